#include "platform/linux/DesktopFamilies.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace hmatnik::platform {

TEST(DesktopFamilies, AreToldByTheNamesThatTheSessionSets)
{
    EXPECT_EQ(desktopFamily(u"GNOME"_s), DesktopFamily::gnome);
    EXPECT_EQ(desktopFamily(u"ubuntu:GNOME"_s), DesktopFamily::gnome);
    EXPECT_EQ(desktopFamily(u"GNOME-Classic:GNOME"_s), DesktopFamily::gnome);
    EXPECT_EQ(desktopFamily(u"KDE"_s), DesktopFamily::kde);
    EXPECT_EQ(desktopFamily(u"kde"_s), DesktopFamily::kde);
    EXPECT_EQ(desktopFamily(u"XFCE"_s), DesktopFamily::xfce);
}

TEST(DesktopFamilies, KinWithKeysOfItsOwnIsNotTakenForFamily)
{
    EXPECT_EQ(desktopFamily(u"GNOME-Flashback:GNOME"_s), DesktopFamily::other);
    EXPECT_EQ(desktopFamily(u"Budgie:GNOME"_s), DesktopFamily::other);
    EXPECT_EQ(desktopFamily(u"Unity:Unity7:ubuntu"_s), DesktopFamily::other);
}

TEST(DesktopFamilies, OthersAreNotGuessed)
{
    for (const QString &names : {u""_s, u":"_s, u"LXQt"_s, u"MATE"_s, u"X-Cinnamon"_s, u"GNOMES"_s})
        EXPECT_EQ(desktopFamily(names), DesktopFamily::other) << qPrintable(names);
}

} // namespace hmatnik::platform
