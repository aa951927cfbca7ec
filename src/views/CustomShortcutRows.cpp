#include "views/CustomShortcutRows.h"

#include <algorithm>

namespace hmatnik {

using namespace Qt::StringLiterals;
void CustomShortcutRows::setKeyStyle(KeyStyle style)
{
    if (m_keyStyle == style)
        return;
    m_keyStyle = style;
    if (!m_shortcuts.isEmpty())
        Q_EMIT dataChanged(index(0), index(count() - 1), {KeysRole, SpokenKeysRole});
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
        isAnyImported = isAnyImported || isImported(row);
    }
    if (!isAnyImported)
        m_headings = 0;
}

bool CustomShortcutRows::startsRun(int row) const
{
    return row == 0 || origin(row) != origin(row - 1);
}

ShortcutOrigin CustomShortcutRows::origin(int row) const
{
    return row >= 0 && row < count() ? ShortcutOrigin::of(at(row)) : ShortcutOrigin();
}

bool CustomShortcutRows::isImported(int row) const
{
    return origin(row).kind != ShortcutOrigin::Kind::person;
}

QString CustomShortcutRows::heading(int row) const
{
    if (row < 0 || row >= count())
        return {};
    const ShortcutOrigin from = origin(row);
    switch (from.kind) {
    case ShortcutOrigin::Kind::person:
        break;
    case ShortcutOrigin::Kind::menu:
        return u"Z menu aplikace "_s + from.appName;
    case ShortcutOrigin::Kind::desktop:
        return u"Z nastavení plochy"_s;
    }
    return u"Přidané ručně"_s;
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
    case SpokenKeysRole:
        return KeyNames::spoken(shortcut.keys, m_keyStyle);
    case HeadingRole:
        return heading(index.row());
    case ImportedRole:
        return isImported(index.row());
    case StartsRunRole:
        return m_headings > 0 && startsRun(index.row());
    default:
        return {};
    }
}

QHash<int, QByteArray> CustomShortcutRows::roleNames() const
{
    return {{TitleRole, "title"},     {KeysRole, "keys"},         {SpokenKeysRole, "spokenKeys"},
            {HeadingRole, "heading"}, {ImportedRole, "imported"}, {StartsRunRole, "startsRun"}};
}

} // namespace hmatnik
