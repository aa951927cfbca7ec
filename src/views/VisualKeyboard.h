#pragma once

#include "model/Shortcut.h"
#include "views/ScreenState.h"

#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

#include <optional>

namespace hmatnik {

/// The drawn keyboard: its keys, which of them is selected, which are available with the chosen
/// modifiers, and the shortcuts that use the selected one.
class VisualKeyboard : public ScreenState
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QList<QStringList> rows READ rows CONSTANT)
    Q_PROPERTY(QString selectedKey READ selectedKeyText NOTIFY changed)

public:
    /// Most shortcuts that are shown at once.
    static constexpr int mostMatches = 12;
    // Lengths in points.
    static constexpr int keyWidth = 43;
    static constexpr int spaceBarWidth = 210;
    static constexpr int keyHeight = 39;
    static constexpr int keySpacing = 6;
    static constexpr int rowSpacing = 7;

    /// Directions in which the keys are walked.
    enum class Direction { left, right, up, down };
    Q_ENUM(Direction)

    /// Place of a key; keys are told apart by it, because two labels occur twice.
    struct Position
    {
        int row = 0;
        int column = 0;
        bool operator==(const Position &) const = default;
    };

    explicit VisualKeyboard(QObject *parent = nullptr);

    /// Labels of the keys, row by row; they are the tokens that shortcuts are written in.
    static const QList<QStringList> &rows();
    /// Width of a key in points, by its label.
    Q_INVOKABLE static int width(const QString &label);
    /// How a key whose label is a sign is called in words; empty if the label says it.
    Q_INVOKABLE static QString spokenName(const QString &label);

    /// The label that is selected; none at first.
    const std::optional<QString> &selectedKey() const { return m_selectedKey; }
    /// Selects a label, or nothing if it was selected.
    Q_INVOKABLE void click(const QString &label);
    /// Whether the label is the selected one. Use it in bindings together with selectedKey.
    bool isSelected(const QString &label) const { return m_selectedKey == label; }
    /// Whether some shortcut that passes the filters uses the key; never while no modifier filter
    /// is chosen.
    bool isAvailable(const QString &label) const { return m_availableKeys.contains(label); }

    /// The shortcuts that pass the filters and use the selected key, or all of those that pass
    /// while none is selected; the first twelve.
    QList<Shortcut> matches() const;

    /// The key that lies in the given direction; the same one at the edge. Up and down lead to the
    /// nearest key of the next row, as the rows are drawn.
    static Position neighbour(Position from, Direction direction);

protected:
    void follow(AppModel &model) override;

private:
    QString selectedKeyText() const { return m_selectedKey.value_or(QString()); }
    void update();

    std::optional<QString> m_selectedKey;
    QSet<QString> m_availableKeys;
};

} // namespace hmatnik
