#include "views/CustomShortcutRows.h"

#include "model/AppModel.h"

#include <algorithm>

namespace hmatnik {

using namespace Qt::StringLiterals;
void CustomShortcutRows::setKeyStyle(KeyStyle style)
{
    if (m_keyStyle == style)
        return;
    m_keyStyle = style;
    if (!m_shortcuts.isEmpty())
        Q_EMIT dataChanged(index(0), index(count() - 1), {KeysRole});
}

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
    countHeadings();
    // What a row is headed by depends on its neighbours.
    if (removed + added > 0 && count() > 0)
        Q_EMIT dataChanged(index(0), index(count() - 1), {StartsRunRole});
    if (removed != added)
        Q_EMIT countChanged();
}

void CustomShortcutRows::countHeadings()
{
    m_headings = 0;
    bool isAnyImported = false;
    for (int row = 0; row < count(); ++row) {
        if (!startsRun(row))
            continue;
        ++m_headings;
        isAnyImported = isAnyImported || !importedFrom(row).isEmpty();
    }
    if (!isAnyImported)
        m_headings = 0;
}

bool CustomShortcutRows::startsRun(int row) const
{
    return row == 0 || importedFrom(row) != importedFrom(row - 1);
}

QString CustomShortcutRows::importedFrom(int row) const
{
    return row >= 0 && row < count() ? AppModel::importedFrom(at(row)) : QString();
}

QString CustomShortcutRows::heading(const QString &importedFrom)
{
    return importedFrom.isEmpty() ? u"Přidané ručně"_s : u"Z menu aplikace "_s + importedFrom;
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
        return KeyNames::captions(shortcut.keys, m_keyStyle);
    case ImportedFromRole:
        return AppModel::importedFrom(shortcut);
    case StartsRunRole:
        return m_headings > 0 && startsRun(index.row());
    default:
        return {};
    }
}

QHash<int, QByteArray> CustomShortcutRows::roleNames() const
{
    return {
        {TitleRole, "title"},
        {KeysRole, "keys"},
        {ImportedFromRole, "importedFrom"},
        {StartsRunRole, "startsRun"}};
}

} // namespace hmatnik
