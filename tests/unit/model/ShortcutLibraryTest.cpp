#include "model/ShortcutLibrary.h"

#include "ExpectedLibrary.h"

#include <QHash>
#include <QSet>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace hmatnik::test {

TEST(ShortcutLibrary, HoldsEveryRecordFieldByField)
{
    const QList<Shortcut> expected = expectedLibrary();
    const QList<Shortcut> &actual = ShortcutLibrary::all();
    ASSERT_EQ(expected.size(), 58);
    ASSERT_EQ(actual.size(), 58);
    for (qsizetype i = 0; i < expected.size(); ++i) {
        SCOPED_TRACE(expected.at(i).id.toStdString());
        EXPECT_EQ(actual.at(i).id, expected.at(i).id);
        EXPECT_EQ(actual.at(i).title, expected.at(i).title);
        EXPECT_EQ(actual.at(i).keys, expected.at(i).keys);
        EXPECT_EQ(actual.at(i).category, expected.at(i).category);
        EXPECT_EQ(actual.at(i).apps, expected.at(i).apps);
        EXPECT_EQ(actual.at(i).detail, expected.at(i).detail);
    }
}

TEST(ShortcutLibrary, IdsAreDistinctAndKeysPresent)
{
    QSet<QString> ids;
    for (const Shortcut &shortcut : ShortcutLibrary::all()) {
        ids.insert(shortcut.id);
        EXPECT_FALSE(shortcut.keys.isEmpty()) << shortcut.id.toStdString();
        EXPECT_FALSE(shortcut.keys.contains(QString())) << shortcut.id.toStdString();
    }
    EXPECT_EQ(ids.size(), 58);
}

TEST(ShortcutLibrary, CountsPerCategory)
{
    QHash<Shortcut::Category, int> counts;
    for (const Shortcut &shortcut : ShortcutLibrary::all())
        ++counts[shortcut.category];
    using enum Shortcut::Category;
    EXPECT_EQ(counts.value(zaklady), 10);
    EXPECT_EQ(counts.value(text), 9);
    EXPECT_EQ(counts.value(okna), 13);
    EXPECT_EQ(counts.value(finder), 12);
    EXPECT_EQ(counts.value(snimky), 4);
    EXPECT_EQ(counts.value(prohlizec), 10);
}

TEST(ShortcutLibrary, KnownPositions)
{
    const QList<Shortcut> &all = ShortcutLibrary::all();
    EXPECT_EQ(all.at(18).id, u"shot-area"_s);
    EXPECT_EQ(all.at(18).keys, (QStringList{u"⇧"_s, u"⌘"_s, u"4"_s}));
    EXPECT_EQ(all.at(57).id, u"logout"_s);
    EXPECT_EQ(
        all.at(57).detail, u"Zobrazí potvrzení odhlášení. Nejdřív uložte rozdělanou práci."_s);
    EXPECT_EQ(all.at(49).keys.last(), QString(QChar(0x2212)));
}

TEST(ShortcutLibrary, AppsInOrder)
{
    QHash<QString, QStringList> apps;
    for (const Shortcut &shortcut : ShortcutLibrary::all())
        apps.insert(shortcut.id, shortcut.apps);
    const QStringList browsers{u"Safari"_s, u"Google Chrome"_s, u"Arc"_s, u"Firefox"_s};
    EXPECT_EQ(apps.value(u"address"_s), browsers);
    EXPECT_EQ(apps.value(u"reload"_s), browsers);
    EXPECT_EQ(apps.value(u"downloads-browser"_s), QStringList{u"Safari"_s});
}

TEST(ShortcutLibrary, IsBuiltOnce)
{
    EXPECT_EQ(&ShortcutLibrary::all(), &ShortcutLibrary::all());
}

} // namespace hmatnik::test
