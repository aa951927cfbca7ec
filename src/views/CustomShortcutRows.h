#pragma once

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

public:
    enum Role { TitleRole = Qt::UserRole + 1, KeysRole };

    using QAbstractListModel::QAbstractListModel;

    int count() const { return static_cast<int>(m_shortcuts.size()); }
    const Shortcut &at(int row) const { return m_shortcuts.at(row); }
    void setShortcuts(const QList<Shortcut> &shortcuts);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void countChanged();

private:
    QList<Shortcut> m_shortcuts;
};

} // namespace hmatnik
