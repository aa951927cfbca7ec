#include "model/Shortcut.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace hmatnik::test {

namespace {

Shortcut sample()
{
    return {
        .id = u"custom-1"_s,
        .title = u"Žluťoučký kůň"_s,
        .keys = {u"Fn"_s, u"⌃"_s, u"⌥"_s, u"⇧"_s, u"⌘"_s, u"−"_s},
        .category = Shortcut::Category::okna,
        .apps = {u"Finder"_s, u"Google Chrome"_s},
        .detail = u"Úpí \"ďábelské\" ódy \\ 😀\n."_s,
    };
}

QJsonObject sampleObject()
{
    return QJsonDocument::fromJson(Shortcut::toJson({sample()})).array().at(0).toObject();
}

QByteArray arrayOf(const QList<QJsonObject> &objects)
{
    QJsonArray array;
    for (const QJsonObject &object : objects)
        array.append(object);
    return QJsonDocument(array).toJson();
}

const QStringList memberNames{u"id"_s,       u"title"_s, u"keys"_s,
                              u"category"_s, u"apps"_s,  u"detail"_s};

} // namespace

TEST(ShortcutCategory, NamesAndSymbolsInOrder)
{
    const QList<QPair<QString, QString>> expected{
        {u"Základy"_s, u"sparkles"_s},
        {u"Text"_s, u"text.cursor"_s},
        {u"Okna a aplikace"_s, u"macwindow.on.rectangle"_s},
        {u"Finder"_s, u"folder"_s},
        {u"Snímky obrazovky"_s, u"camera.viewfinder"_s},
        {u"Prohlížeč"_s, u"globe"_s},
    };
    QList<QPair<QString, QString>> actual;
    for (const auto category : Shortcut::allCategories)
        actual.append({Shortcut::rawValue(category), Shortcut::symbol(category)});
    EXPECT_EQ(actual, expected);
    EXPECT_EQ(Shortcut::allCategories.front(), Shortcut::Category::zaklady);
    EXPECT_EQ(Shortcut::allCategories.back(), Shortcut::Category::prohlizec);
}

TEST(ShortcutCategory, ComesFromItsExactDisplayNameOnly)
{
    for (const auto category : Shortcut::allCategories)
        EXPECT_EQ(Shortcut::categoryFromRawValue(Shortcut::rawValue(category)), category);
    EXPECT_EQ(Shortcut::categoryFromRawValue(u"Okna a aplikace"_s), Shortcut::Category::okna);
    for (const auto &text :
         {u"okna"_s, u"Zaklady"_s, u"základy"_s, u"Text "_s, u""_s, u"finder"_s, u"Prohlizec"_s})
        EXPECT_EQ(Shortcut::categoryFromRawValue(text), std::nullopt) << text.toStdString();
}

TEST(Shortcut, EqualityCoversEveryField)
{
    const Shortcut original = sample();
    Shortcut same = sample();
    EXPECT_EQ(original, same);
    EXPECT_EQ(qHash(original), qHash(same));
    EXPECT_EQ(qHash(original, 17), qHash(same, 17));

    QList<Shortcut> others(8, original);
    others[0].id += u'x';
    others[1].title += u'x';
    others[2].keys.append(u"x"_s);
    others[3].category = Shortcut::Category::text;
    others[4].apps.removeLast();
    others[5].detail += u'x';
    others[6].keys.swapItemsAt(0, 1);
    others[7].apps.swapItemsAt(0, 1);
    QSet<size_t> hashes{qHash(original)};
    for (const Shortcut &other : others) {
        EXPECT_NE(original, other);
        hashes.insert(qHash(other));
    }
    EXPECT_EQ(hashes.size(), others.size() + 1);
}

TEST(Shortcut, EqualityComparesCodePoints)
{
    Shortcut composed = sample();
    composed.title = u"é"_s;
    Shortcut decomposed = composed;
    decomposed.title = u"e\u0301"_s;
    EXPECT_NE(composed, decomposed);
}

TEST(Shortcut, HashCountsTheElementsOfEachList)
{
    Shortcut first = sample();
    first.keys = {u"A"_s, u"B"_s};
    first.apps = {};
    Shortcut second = first;
    second.keys = {u"A"_s};
    second.apps = {u"B"_s};
    EXPECT_NE(first, second);
    EXPECT_NE(qHash(first), qHash(second));
}

TEST(ShortcutJson, HasExactlyTheSixMembers)
{
    const QJsonObject object = sampleObject();
    const QStringList names = object.keys();
    EXPECT_EQ(
        QSet<QString>(names.begin(), names.end()),
        QSet<QString>(memberNames.begin(), memberNames.end()));
    EXPECT_EQ(object.value(u"category"_s), QJsonValue(u"Okna a aplikace"_s));
    EXPECT_TRUE(object.value(u"keys"_s).isArray());
    EXPECT_TRUE(object.value(u"apps"_s).isArray());

    const Shortcut copy{
        u"copy"_s,
        u"Kopírovat"_s,
        {u"⌘"_s, u"C"_s},
        Shortcut::Category::zaklady,
        {},
        u"Zkopíruje vybraný text nebo soubor."_s};
    const auto document = QJsonDocument::fromJson(Shortcut::toJson({copy}));
    const QJsonObject expected{
        {u"id"_s, u"copy"_s},
        {u"title"_s, u"Kopírovat"_s},
        {u"keys"_s, QJsonArray{u"⌘"_s, u"C"_s}},
        {u"category"_s, u"Základy"_s},
        {u"apps"_s, QJsonArray()},
        {u"detail"_s, u"Zkopíruje vybraný text nebo soubor."_s},
    };
    EXPECT_EQ(document.array(), QJsonArray{expected});
}

TEST(ShortcutJson, ReadsBackWhatItWrote)
{
    Shortcut second = sample();
    second.id = u"custom-2"_s;
    second.keys.clear();
    second.apps.clear();
    second.detail.clear();
    const QList<Shortcut> shortcuts{sample(), second, sample()};
    EXPECT_EQ(Shortcut::fromJson(Shortcut::toJson(shortcuts)), shortcuts);
    EXPECT_EQ(Shortcut::fromJson(Shortcut::toJson({})), QList<Shortcut>());
    EXPECT_EQ(Shortcut::fromJson("[]"), QList<Shortcut>());
}

TEST(ShortcutJson, OrderOfMembersAndUnknownMembersDoNotMatter)
{
    const QByteArray json = R"([{"detail":"d","extra":{"x":[1]},"apps":["a"],"category":"Finder",)"
                            R"("keys":["K"],"title":"t","id":"i","version":7}])";
    const Shortcut expected{u"i"_s, u"t"_s, {u"K"_s}, Shortcut::Category::finder, {u"a"_s}, u"d"_s};
    EXPECT_EQ(Shortcut::fromJson(json), QList<Shortcut>{expected});
}

TEST(ShortcutJson, OneRecordWithoutAMemberFailsTheWholeList)
{
    for (const QString &name : memberNames) {
        QJsonObject lacking = sampleObject();
        lacking.remove(name);
        EXPECT_EQ(Shortcut::fromJson(arrayOf({sampleObject(), lacking})), std::nullopt)
            << name.toStdString();
    }
}

TEST(ShortcutJson, OneMemberOfAnotherTypeFailsTheWholeList)
{
    const QList<QJsonValue> wrongForText{
        QJsonValue(), 5, true, 1.5, QJsonArray(), QJsonArray{u"x"_s}, QJsonObject()};
    const QList<QJsonValue> wrongForList{
        QJsonValue(),
        5,
        true,
        u"x"_s,
        QJsonObject(),
        QJsonArray{5},
        QJsonArray{QJsonValue()},
        QJsonArray{u"x"_s, QJsonArray()}};
    for (const QString &name : memberNames) {
        const bool isList = name == u"keys"_s || name == u"apps"_s;
        for (const QJsonValue &value : isList ? wrongForList : wrongForText) {
            QJsonObject wrong = sampleObject();
            wrong[name] = value;
            EXPECT_EQ(Shortcut::fromJson(arrayOf({sampleObject(), wrong})), std::nullopt)
                << QJsonDocument(wrong).toJson().toStdString();
        }
    }
}

TEST(ShortcutJson, CategoryMustBeADisplayName)
{
    for (const auto &name : {u"Zaklady"_s, u"zaklady"_s, u"Snimky obrazovky"_s, u"OKNA"_s, u""_s}) {
        QJsonObject wrong = sampleObject();
        wrong[u"category"_s] = name;
        EXPECT_EQ(Shortcut::fromJson(arrayOf({wrong, sampleObject()})), std::nullopt)
            << name.toStdString();
        EXPECT_EQ(Shortcut::fromJson(arrayOf({sampleObject(), wrong})), std::nullopt)
            << name.toStdString();
    }
}

TEST(ShortcutJson, WhatIsNoArrayOfObjectsIsRefused)
{
    const QByteArray whole = Shortcut::toJson({sample()});
    for (const QByteArray &json :
         {QByteArray(), QByteArray("null"), QByteArray("{}"), QByteArray("[1]"), QByteArray("[[]]"),
          QByteArray("[null]"), QByteArray("\"x\""), QByteArray("[{}]"), QByteArray("\xFF\xFE[]"),
          QByteArray("bplist00"), whole.chopped(1), QByteArray(whole + "x"), whole.mid(1)})
        EXPECT_EQ(Shortcut::fromJson(json), std::nullopt) << json.toStdString();
    EXPECT_EQ(Shortcut::fromJson(QByteArray(100'000, '[')), std::nullopt);
    QByteArray badUtf8 = whole;
    badUtf8.replace("ďábelské", "\xC4");
    ASSERT_NE(badUtf8, whole);
    EXPECT_EQ(Shortcut::fromJson(badUtf8), std::nullopt);
}

TEST(ShortcutJson, LoneSurrogatesDoNoHarm)
{
    Shortcut odd = sample();
    odd.title = u"a"_s + QChar(0xD800) + u"b"_s;
    odd.detail = QString(QChar(0xDC00));
    const auto read = Shortcut::fromJson(Shortcut::toJson({odd, sample()}));
    // They may be replaced; the list itself must come back.
    ASSERT_TRUE(read);
    ASSERT_EQ(read->size(), 2);
    EXPECT_EQ(read->at(0).id, odd.id);
    EXPECT_EQ(read->at(1), sample());

    QByteArray escaped = Shortcut::toJson({sample()});
    escaped.replace("Žluťoučký kůň", R"(\ud800 \udc00\ud800)");
    EXPECT_EQ(Shortcut::fromJson(escaped).value_or(QList<Shortcut>(1)).size(), 1);
}

TEST(ShortcutKeys, TypedTextSplitsAtPlus)
{
    const auto keys = &Shortcut::keysFromText;
    EXPECT_EQ(keys(u"⌥ + ⌘ + K"_s), (QStringList{u"⌥"_s, u"⌘"_s, u"K"_s}));
    EXPECT_EQ(keys(u"⌘+ +K"_s), (QStringList{u"⌘"_s, u"K"_s}));
    EXPECT_EQ(keys(u"cmd+shift+k"_s), (QStringList{u"cmd"_s, u"shift"_s, u"k"_s}));
    EXPECT_EQ(keys(u"cmd + shift + k"_s), (QStringList{u"cmd"_s, u"shift"_s, u"k"_s}));
    EXPECT_EQ(keys(u"⌘ + +"_s), QStringList{u"⌘"_s});
    EXPECT_EQ(keys(u"+"_s), QStringList());
    EXPECT_EQ(keys(u"+++"_s), QStringList());
    EXPECT_EQ(keys(u""_s), QStringList());
    EXPECT_EQ(keys(QString()), QStringList());
    EXPECT_EQ(keys(u" \t\n\u00A0\u2003\u2028 "_s), QStringList());
    EXPECT_EQ(keys(u"\u00A0⌘\u2003+\u2029K\r\n"_s), (QStringList{u"⌘"_s, u"K"_s}));
    EXPECT_EQ(keys(u"K+⌘+K"_s), (QStringList{u"K"_s, u"⌘"_s, u"K"_s}));
    EXPECT_EQ(keys(u"Page Up"_s), QStringList{u"Page Up"_s});
}

} // namespace hmatnik::test
