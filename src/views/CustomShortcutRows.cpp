#include "views/CustomShortcutRows.h"

#include <algorithm>

namespace hmatnik {

void CustomShortcutRows::setShortcuts(const QList<Shortcut> &shortcuts)
{
    // What both lists begin with and end with stays; what lies between is replaced.
    const qsizetype common = std::min(m_shortcuts.size(), shortcuts.size());
    qsizetype before = 0;
    while (before < common && m_shortcuts.at(before) == shortcuts.at(before))
        ++before;
    qsizetype after = 0;
    while (after < common - before && m_shortcuts.at(m_shortcuts.size() - 1 - after) ==
                                          shortcuts.at(shortcuts.size() - 1 - after))
        ++after;

    const qsizetype removed = m_shortcuts.size() - before - after;
    const qsizetype added = shortcuts.size() - before - after;
    if (removed > 0) {
        beginRemoveRows({}, static_cast<int>(before), static_cast<int>(before + removed - 1));
        m_shortcuts.remove(before, removed);
        endRemoveRows();
    }
    if (added > 0) {
        beginInsertRows({}, static_cast<int>(before), static_cast<int>(before + added - 1));
        m_shortcuts = shortcuts;
        endInsertRows();
    }
    if (removed != added)
        Q_EMIT countChanged();
}

int CustomShortcutRows::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant CustomShortcutRows::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Shortcut &shortcut = m_shortcuts.at(index.row());
    switch (role) {
    case TitleRole:
        return shortcut.title;
    case KeysRole:
        return shortcut.keys;
    default:
        return {};
    }
}

QHash<int, QByteArray> CustomShortcutRows::roleNames() const
{
    return {{TitleRole, "title"}, {KeysRole, "keys"}};
}

} // namespace hmatnik
