#pragma once

#include "model/KeyNames.h"
#include "model/Shortcut.h"

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
    enum Role { TitleRole = Qt::UserRole + 1, KeysRole, ImportedFromRole, StartsRunRole };

    using QAbstractListModel::QAbstractListModel;

    int count() const { return static_cast<int>(m_shortcuts.size()); }
    /// How many runs of rows there are that were imported from the same application or, between
    /// such, added by hand. 0 if all were added by hand.
    int headings() const { return m_headings; }
    /// What stands above the first row of a run.
    /// @param importedFrom the application; empty for rows that were added by hand.
    Q_INVOKABLE static QString heading(const QString &importedFrom);
    const Shortcut &at(int row) const { return m_shortcuts.at(row); }
    /// The application that the row was imported from; empty for one that was added by hand and for
    /// rows out of range.
    Q_INVOKABLE QString importedFrom(int row) const;
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
