#pragma once

#include "model/KeyNames.h"
#include "model/Shortcut.h"
#include "model/ShortcutOrigin.h"

#include <QAbstractListModel>
#include <QtQmlIntegration>

namespace hmatnik {

/// A person's own shortcuts, one a row. New contents are told as rows that came and went, so that a
/// view stays where it is.
class CustomShortcutRows : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the settings' state")
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    Q_PROPERTY(int headings READ headings NOTIFY countChanged)

public:
    enum Role {
        TitleRole = Qt::UserRole + 1,
        KeysRole,
        SpokenKeysRole,
        HeadingRole,
        ImportedRole,
        StartsRunRole
    };

    using QAbstractListModel::QAbstractListModel;

    int count() const { return static_cast<int>(m_shortcuts.size()); }
    /// How many runs of rows of one origin there are. 0 if all were added by hand.
    int headings() const { return m_headings; }
    const Shortcut &at(int row) const { return m_shortcuts.at(row); }
    /// Whether the row was imported together with others; false for rows out of range.
    Q_INVOKABLE bool isImported(int row) const;
    /// What stands above the run that the row belongs to; tells one origin from every other. Empty
    /// for rows out of range.
    Q_INVOKABLE QString heading(int row) const;
    /// Where the row comes from; by hand for rows out of range.
    ShortcutOrigin origin(int row) const;
    /// Whose names the keys have; at first those of the Mac.
    void setKeyStyle(KeyStyle style);
    void setShortcuts(const QList<Shortcut> &shortcuts);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void countChanged();

private:
    void countHeadings();
    bool startsRun(int row) const;

    QList<Shortcut> m_shortcuts;
    int m_headings = 0;
    KeyStyle m_keyStyle = KeyStyle::mac;
};

} // namespace hmatnik
