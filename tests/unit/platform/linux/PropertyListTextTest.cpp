#include "platform/linux/PropertyListText.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace hmatnik::platform {

TEST(PropertyListText, LeavesOrdinaryTextAlone)
{
    for (const QString &text :
         {QString(), u"Kopírovat"_s, u"tabulátor\ta\nřádek"_s, u"⌃⌥⇧⌘ 😀 <&>"_s, u"␛ sám"_s,
          u"␛12"_s, u"␛0041 není znak řídicí"_s, u"␛00ab"_s}) {
        EXPECT_EQ(escapedForXml(text), text);
        EXPECT_EQ(unescapedFromXml(text), text);
    }
}

TEST(PropertyListText, EscapesWhatXmlCannotCarry)
{
    EXPECT_EQ(escapedForXml(u"a\u0001b"_s), u"a␛0001b"_s);
    EXPECT_EQ(escapedForXml(u"\r\n"_s), u"␛000D\n"_s);
    EXPECT_EQ(escapedForXml(QString(QChar(0))), u"␛0000"_s);
    EXPECT_EQ(escapedForXml(QString(QChar(0xFFFF)) + QChar(0xFFFE)), u"␛FFFF␛FFFE"_s);
    EXPECT_EQ(escapedForXml(u"x"_s + QChar(0xD800)), u"x␛D800"_s);
    EXPECT_EQ(escapedForXml(QChar(0xDC00) + u"x"_s), u"␛DC00x"_s);
}

TEST(PropertyListText, ATextThatLooksEscapedComesBackAsItWas)
{
    const QString text = u"␛0001 ␛241B ␛␛0001"_s;
    EXPECT_EQ(escapedForXml(text), u"␛241B0001 ␛241B241B ␛␛241B0001"_s);
    EXPECT_EQ(unescapedFromXml(escapedForXml(text)), text);
}

TEST(PropertyListText, EveryCodeUnitComesBack)
{
    for (uint unit = 0; unit <= 0xFFFF; ++unit) {
        const QString text = u"a"_s + QChar(static_cast<ushort>(unit)) + u"␛0"_s;
        ASSERT_EQ(unescapedFromXml(escapedForXml(text)), text) << unit;
    }
}

} // namespace hmatnik::platform
