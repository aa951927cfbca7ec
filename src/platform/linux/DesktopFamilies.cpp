#include "platform/linux/DesktopFamilies.h"

#include <QHash>
#include <QStringList>

namespace hmatnik::platform {

using namespace Qt::StringLiterals;

DesktopFamily desktopFamily(const QString &currentDesktop)
{
    static const QHash<QString, DesktopFamily> families{
        {u"gnome"_s, DesktopFamily::gnome},
        {u"kde"_s, DesktopFamily::kde},
        {u"xfce"_s, DesktopFamily::xfce},
    };
    const QStringList names = currentDesktop.toLower().split(u':', Qt::SkipEmptyParts);
    // Another desktop may call itself kin of one of these and yet have keys of its own: these do.
    for (const QString &name : {u"gnome-flashback"_s, u"budgie"_s, u"unity"_s, u"x-cinnamon"_s}) {
        if (names.contains(name))
            return DesktopFamily::other;
    }
    for (const QString &name : names) {
        if (const auto family = families.constFind(name); family != families.constEnd())
            return *family;
    }
    return DesktopFamily::other;
}

} // namespace hmatnik::platform
