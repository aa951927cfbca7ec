#include "platform/linux/PropertyList.h"

#include <QDateTime>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;

namespace hmatnik::platform {

namespace {

const QByteArray head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"_ba;

QByteArray list(const QByteArray &entries)
{
    return head + "<plist version=\"1.0\"><dict>" + entries + "</dict></plist>";
}

QVariant readBack(const QVariant &value)
{
    PropertyList written;
    EXPECT_TRUE(written.setValue(u"key"_s, value));
    const auto read = PropertyList::fromXml(written.toXml());
    return read ? read->value(u"key"_s) : QVariant();
}

} // namespace

TEST(PropertyList, KeepsEveryTypeExactly)
{
    const QList<QVariant> values{
        QVariant(true),
        QVariant(false),
        QVariant(qint64(0)),
        QVariant(qint64(-5)),
        QVariant(std::numeric_limits<qint64>::max()),
        QVariant(std::numeric_limits<qint64>::min()),
        QVariant(0.1),
        QVariant(-1e-300),
        QVariant(1.0 / 3),
        QVariant(2.0),
        QVariant(std::numeric_limits<double>::max()),
        QVariant(u"false"_s),
        QVariant(u""_s),
        QVariant(u"   "_s),
        QVariant(u"\uFEFF1.2"_s),
        QVariant(u" Nový panel <b>&amp;\t\n😀\u0007\r "_s),
        QVariant(QByteArray()),
        QVariant(QByteArray("[{\"id\":\"a\\u0000\"}]\0\xff", 20)),
        QVariant(QVariantList{}),
        QVariant(QVariantList{u"copy"_s, u"paste"_s, qint64(1), true, 0.5, QByteArray("x")}),
        QVariant(QVariantMap{}),
        QVariant(QVariantMap{{u"\uFEFFcopy"_s, u"\uFEFF"_s}}),
        QVariant(QVariantMap{
            {u"copy"_s, qint64(3)},
            {u"menu-A\u0001<&>-⌘"_s, QVariantList{QVariantMap{{u""_s, false}}}}}),
    };
    for (const QVariant &value : values) {
        const QVariant read = readBack(value);
        EXPECT_EQ(read.typeId(), value.typeId()) << value.typeName();
        EXPECT_EQ(read, value) << value.typeName();
    }
}

TEST(PropertyList, RefusesOtherTypesAndKeepsWhatItHas)
{
    PropertyList written;
    ASSERT_TRUE(written.setValue(u"key"_s, u"kept"_s));
    QVariant deep = QVariant(true);
    for (int i = 0; i < 100; ++i)
        deep = QVariantList{deep};
    for (const QVariant &value :
         {QVariant(), QVariant(5), QVariant(5U), QVariant(QStringList{u"a"_s}), QVariant(0.5F),
          QVariant(std::numeric_limits<double>::quiet_NaN()),
          QVariant(std::numeric_limits<double>::infinity()), QVariant(QDateTime()),
          QVariant(QVariantList{QVariant(5)}), QVariant(QVariantMap{{u"a"_s, QVariant()}}), deep})
        EXPECT_FALSE(written.setValue(u"key"_s, value)) << value.typeName();
    EXPECT_EQ(written.value(u"key"_s), QVariant(u"kept"_s));
}

TEST(PropertyList, AMissingKeyGivesNothing)
{
    EXPECT_FALSE(PropertyList().value(u"key"_s).isValid());
}

TEST(PropertyList, ReadsWhatAPersonMayHaveWritten)
{
    const auto read = PropertyList::fromXml(
        "\n<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" \"http://nowhere.example/x.dtd\">"
        "<!-- mine --><plist version='1.0'>\n<dict><!-- a --><key>&#x61;&amp;</key>\n"
        "<string>1 &lt; 2 <![CDATA[<x>]]></string>"
        "<key>data</key><data>\n QUJD\n\tREU= </data><key>hex</key><integer> 0x1F </integer>"
        "<key>t</key><true></true></dict></plist>\n<!-- end -->"_ba);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->value(u"a&"_s), QVariant(u"1 < 2 <x>"_s));
    EXPECT_EQ(read->value(u"data"_s), QVariant("ABCDE"_ba));
    EXPECT_EQ(read->value(u"hex"_s), QVariant(qint64(31)));
    EXPECT_EQ(read->value(u"t"_s), QVariant(true));
}

TEST(PropertyList, ValuesOfOtherTypesSurviveARewrite)
{
    auto read = PropertyList::fromXml(
        list("<key>date</key><date>2024-02-29T12:34:56Z</date>"
             "<key>real</key><real>0.1</real><key>huge</key><integer>18446744073709551615</integer>"
             "<key>uid</key><dict><key>CF$UID</key><integer>3</integer></dict>"
             "<key>inside</key><array><date>1999-12-31T23:59:59Z</date></array>"_ba));
    ASSERT_TRUE(read);
    EXPECT_FALSE(read->value(u"date"_s).isValid());
    EXPECT_FALSE(read->value(u"inside"_s).toList().value(0).isValid());
    ASSERT_TRUE(read->setValue(u"new"_s, true));
    const QByteArray xml = read->toXml();
    EXPECT_TRUE(xml.contains("<date>2024-02-29T12:34:56Z</date>"));
    EXPECT_TRUE(xml.contains("<date>1999-12-31T23:59:59Z</date>"));
    EXPECT_TRUE(xml.contains("<integer>18446744073709551615</integer>"));
    EXPECT_TRUE(QString::fromUtf8(xml).contains(
        QRegularExpression(u"<key>CF\\$UID</key>\\s*<integer>3</integer>"_s)));
    EXPECT_EQ(PropertyList::fromXml(xml)->value(u"real"_s), QVariant(0.1));
}

TEST(PropertyList, EveryTruncationIsRefused)
{
    PropertyList written;
    written.setValue(u"list"_s, QVariantList{u"á"_s, qint64(1), true, 0.5});
    written.setValue(u"map"_s, QVariantMap{{u"data"_s, QByteArray("abcdefgh")}});
    const QByteArray xml = written.toXml();
    ASSERT_TRUE(PropertyList::fromXml(xml));
    const qsizetype end = xml.lastIndexOf('>');
    for (qsizetype length = 0; length <= end; ++length)
        EXPECT_FALSE(PropertyList::fromXml(xml.left(length))) << length;
}

TEST(PropertyList, WhatIsNoPropertyListIsRefused)
{
    QByteArray deep;
    for (int i = 0; i < 5000; ++i)
        deep += "<array>";
    for (int i = 0; i < 5000; ++i)
        deep += "</array>";
    QByteArray bomb = "<!DOCTYPE plist [<!ENTITY a0 \"x\">"_ba;
    for (int i = 1; i < 30; ++i)
        bomb += "<!ENTITY a" + QByteArray::number(i) + " \"&a" + QByteArray::number(i - 1) + ";&a" +
                QByteArray::number(i - 1) + ";\">";
    bomb += "]><plist><dict><key>k</key><string>&a29;</string></dict></plist>";

    const QList<QByteArray> texts{
        ""_ba,
        " \n"_ba,
        "{\"json\": true}"_ba,
        "bplist00\xd0\x08\x00\x00\x00\x00\x00\x00\x01\x01"_ba,
        QByteArray(4096, '\0'),
        head + "<plist version=\"1.0\"><array/></plist>",
        head + "<plist version=\"1.0\"><string>x</string></plist>",
        head + "<plist version=\"1.0\"/>",
        head + "<plist version=\"1.0\"><dict/><dict/></plist>",
        head + "<html><dict/></html>",
        list("") + "garbage",
        list("") + list(""),
        list("text"),
        list("<key>a</key>"),
        list("<true/>"),
        list("<key>a</key><key>b</key>"),
        list("<key>a</key><foo/>"),
        list("<key>a</key><integer>zz</integer>"),
        list("<key>a</key><integer></integer>"),
        list("<key>a</key><integer>99999999999999999999</integer>"),
        list("<key>a</key><real>1,5</real>"),
        list("<key>a</key><data>@@@</data>"),
        list("<key>a</key><data>QUJ</data>"),
        list("<key>a</key><date>yesterday</date>"),
        list("<key>a</key><true>x</true>"),
        list("<key>a</key><string><b/></string>"),
        list("<key>a</key><string>\x01</string>"),
        list("<key>a</key><string>\xff\xfe</string>"),
        list("<key>a</key><string>&unknown;</string>"),
        list("<key>a</key>" + deep),
        bomb,
        "<?xml version=\"1.0\" encoding=\"ISO-8859-2\"?><plist><dict/></plist>"_ba,
    };
    for (const QByteArray &text : texts)
        EXPECT_FALSE(PropertyList::fromXml(text)) << text.left(200).toStdString();
}

TEST(PropertyList, CopiesSingleEntries)
{
    auto below = PropertyList::fromXml(
        list("<key>a</key><true/><key>b</key><true/><key>c</key><true/><key>d</key><true/>"));
    ASSERT_TRUE(below);
    PropertyList above;
    above.setValue(u"a"_s, false);
    above.setValue(u"b"_s, false);
    above.setValue(u"e"_s, u"new"_s);
    for (const QString &key : {u"b"_s, u"c"_s, u"e"_s, u"nowhere"_s})
        below->copyEntry(key, above);
    EXPECT_EQ(below->value(u"a"_s), QVariant(true));
    EXPECT_EQ(below->value(u"b"_s), QVariant(false));
    EXPECT_FALSE(below->contains(u"c"_s));
    EXPECT_EQ(below->value(u"d"_s), QVariant(true));
    EXPECT_EQ(below->value(u"e"_s), QVariant(u"new"_s));
    EXPECT_FALSE(below->contains(u"nowhere"_s));
}

TEST(PropertyList, AnIntegerBeyond63BitsIsNoneOfOurs)
{
    const auto read = PropertyList::fromXml(
        list("<key>largest</key><integer>9223372036854775807</integer>"
             "<key>beyond</key><integer>9223372036854775808</integer>"
             "<key>unsigned</key><integer>18446744073709551615</integer>"
             "<key>smallest</key><integer>-9223372036854775808</integer>"
             "<key>minus</key><integer>-1</integer>"
             "<key>counts</key><dict><key>copy</key><integer>2</integer>"
             "<key>save</key><integer>18446744073709551615</integer></dict>"_ba));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->value(u"largest"_s), QVariant(std::numeric_limits<qint64>::max()));
    EXPECT_FALSE(read->value(u"beyond"_s).isValid());
    EXPECT_FALSE(read->value(u"unsigned"_s).isValid());
    EXPECT_EQ(read->value(u"smallest"_s), QVariant(std::numeric_limits<qint64>::min()));
    EXPECT_EQ(read->value(u"minus"_s), QVariant(qint64(-1)));
    const QVariantMap counts = read->value(u"counts"_s).toMap();
    EXPECT_EQ(counts.value(u"copy"_s), QVariant(qint64(2)));
    EXPECT_TRUE(counts.contains(u"save"_s));
    EXPECT_FALSE(counts.value(u"save"_s).isValid());
}

} // namespace hmatnik::platform
