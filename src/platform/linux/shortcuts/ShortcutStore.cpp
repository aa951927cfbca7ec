#include "platform/linux/shortcuts/ShortcutStore.h"

#include <QHash>
#include <QStringList>

namespace hmatnik::platform {

using namespace Qt::StringLiterals;

namespace {

const QHash<QString, ShortcutStore> &storesByName()
{
    static const QHash<QString, ShortcutStore> kinds{
        {u"gnome"_s, ShortcutStore::gnome}, {u"cinnamon"_s, ShortcutStore::cinnamon},
        {u"mate"_s, ShortcutStore::mate},   {u"kde"_s, ShortcutStore::kde},
        {u"xfce"_s, ShortcutStore::xfce},   {u"openbox"_s, ShortcutStore::openbox}};
    return kinds;
}

} // namespace

std::optional<ShortcutStore>
shortcutStore(const QString &currentDesktop, const QString &windowManager)
{
    static const QHash<QString, QString> others{
        {u"x-cinnamon"_s, u"cinnamon"_s}, {u"unity"_s, u"gnome"_s},
        {u"budgie"_s, u"gnome"_s},        {u"pantheon"_s, u"gnome"_s},
        {u"gnome-classic"_s, u"gnome"_s}, {u"gnome-flashback"_s, u"gnome"_s},
        {u"lxde"_s, u"openbox"_s},        {u"lxqt"_s, u"openbox"_s}};
    const QStringList names = currentDesktop.toLower().split(u':', Qt::SkipEmptyParts);
    for (const QString &name : names) {
        if (const auto kind = shortcutStoreNamed(others.value(name, name)))
            return kind;
    }
    if (windowManager.compare("openbox"_L1, Qt::CaseInsensitive) == 0)
        return ShortcutStore::openbox;
    return std::nullopt;
}

QString nameOf(ShortcutStore kind)
{
    return storesByName().key(kind);
}

std::optional<ShortcutStore> shortcutStoreNamed(const QString &name)
{
    const auto found = storesByName().find(name);
    return found == storesByName().end() ? std::nullopt : std::optional(*found);
}

} // namespace hmatnik::platform
