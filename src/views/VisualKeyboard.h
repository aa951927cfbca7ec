#pragma once

#include "model/KeyNames.h"
#include "model/Shortcut.h"
#include "views/CardRows.h"
#include "views/KeySizes.h"
#include "views/ScreenState.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariantList>

#include <optional>

namespace hmatnik {

/// The drawn keyboard: its keys, which of them is selected, which are available with the chosen
/// modifiers, and the shortcuts that use the selected one.
// The base is named in full, because that is how the QML tools look it up.
class VisualKeyboard : public hmatnik::ScreenState
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QVariantList keyRows READ keyRows NOTIFY keyRowsChanged)
    Q_PROPERTY(QString selectedKey READ selectedKeyText NOTIFY changed)
    Q_PROPERTY(QStringList availableKeys READ availableKeys NOTIFY changed)
    Q_PROPERTY(hmatnik::CardRows *cards READ cards CONSTANT)
    Q_PROPERTY(int currentRow READ currentRow NOTIFY currentChanged)
    Q_PROPERTY(int currentColumn READ currentColumn NOTIFY currentChanged)

public:
    /// Most shortcuts that are shown at once.
    static constexpr int mostMatches = 12;
    /// Label of the widest key.
    static const QString spaceBar;
    // Lengths in points.
    static constexpr int keyWidth = 43;
    static constexpr int spaceBarWidth = 210;
    static constexpr int keyHeight = 39;
    static constexpr int keySpacing = 6;
    static constexpr int rowSpacing = 7;

    /// Directions in which the keys are walked.
    enum class Direction { Left, Right, Up, Down };
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
    /// @param style whose keyboard is drawn
    static const QList<QStringList> &rows(KeyStyle style = KeyStyle::mac);
    /// What stands on the key with a label.
    Q_INVOKABLE QString caption(const QString &label) const;
    /// Width of a key in points, by its label, where there is room for all of them.
    static int width(const QString &label);
    /// What the rows measure within a width in layout units on a screen with so many pixels to a
    /// unit.
    Q_INVOKABLE hmatnik::KeySizes sizes(double width, double devicePixelRatio) const
    {
        return {width, devicePixelRatio, keyStyle()};
    }
    /// What a screen reader adds to what stands on a key: its name in words, and whether it is
    /// available.
    Q_INVOKABLE QString description(const QString &label, bool available) const;

    /// The label that is selected; none at first.
    const std::optional<QString> &selectedKey() const { return m_selectedKey; }
    /// Selects a label, or nothing if it was selected.
    Q_INVOKABLE void click(const QString &label);
    /// Whether the label is the selected one.
    bool isSelected(const QString &label) const { return m_selectedKey == label; }
    /// Whether some shortcut that passes the filters uses the key; never while no modifier filter
    /// is chosen.
    bool isAvailable(const QString &label) const { return m_availableKeys.contains(label); }
    /// All tokens for which that is so, each once.
    const QStringList &availableKeys() const { return m_availableKeys; }

    /// The shortcuts that pass the filters and use the selected key, or all of those that pass
    /// while none is selected; the first twelve.
    const QList<Shortcut> &matches() const { return m_matches; }
    /// The matches as cards.
    CardRows *cards() { return &m_cards; }
    /// Marks or unmarks a match as a favourite; positions out of range are ignored.
    Q_INVOKABLE void toggleFavorite(int card);

    /// The key that lies in the given direction; the same one at the edge. Up and down lead to the
    /// nearest key of the next row, as the rows are drawn.
    static Position neighbour(Position from, Direction direction, KeyStyle style = KeyStyle::mac);

    /// The key that arrow keys walk from.
    Position current() const { return m_current; }
    int currentRow() const { return m_current.row; }
    int currentColumn() const { return m_current.column; }
    void setCurrent(Position position);
    Q_INVOKABLE void setCurrent(int row, int column) { setCurrent(Position{row, column}); }
    /// Walks one key on.
    Q_INVOKABLE void walk(hmatnik::VisualKeyboard::Direction direction);

Q_SIGNALS:
    void currentChanged();
    void keyRowsChanged();
    /// Other shortcuts match; the view goes back to its beginning.
    void restarted();

protected:
    void follow(AppModel &model) override;

private:
    KeyStyle keyStyle() const { return model() ? model()->keyStyle() : KeyStyle::mac; }
    QVariantList keyRows() const;
    /// Draws the keys of another keyboard.
    void replaceKeys();
    QString selectedKeyText() const { return m_selectedKey.value_or(QString()); }
    void updateFilters();
    void updateMatches();
    void reload();

    std::optional<QString> m_selectedKey;
    QStringList m_availableKeys;
    QList<Shortcut> m_matches;
    CardRows m_cards;
    Position m_current;
};

} // namespace hmatnik
