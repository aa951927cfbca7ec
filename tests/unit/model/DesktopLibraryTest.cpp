#include "model/DesktopLibrary.h"

#include "model/KeyNames.h"
#include "model/ShortcutLibrary.h"

#include <QFile>
#include <QHash>
#include <QSet>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace hmatnik::test {

using platform::DesktopFamily;

namespace {

const QHash<QString, DesktopFamily> families{
    {u"gnome"_s, DesktopFamily::gnome},
    {u"kde"_s, DesktopFamily::kde},
    {u"xfce"_s, DesktopFamily::xfce},
    {u"other"_s, DesktopFamily::other}};

QString fileText(const QString &path)
{
    QFile file(QStringLiteral(HMATNIK_SOURCE_DIR "/") + path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    return QString::fromUtf8(file.readAll());
}

const DesktopShortcut *find(const QList<DesktopShortcut> &library, const QString &id)
{
    for (const DesktopShortcut &entry : library) {
        if (entry.shortcut.id == id)
            return &entry;
    }
    return nullptr;
}

} // namespace

// The table once more, kept apart so that a slip in either shows: family, id, title, keys,
// category by its name in code, detail and action, separated by tabs.
TEST(DesktopLibrary, HoldsEveryRecordFieldByField)
{
    const QHash<QString, Shortcut::Category> categories{
        {u"zaklady"_s, Shortcut::Category::zaklady},
        {u"text"_s, Shortcut::Category::text},
        {u"okna"_s, Shortcut::Category::okna},
        {u"finder"_s, Shortcut::Category::finder},
        {u"snimky"_s, Shortcut::Category::snimky},
        {u"prohlizec"_s, Shortcut::Category::prohlizec}};
    QHash<QString, QList<DesktopShortcut>> expected;
    const QStringList lines = fileText(u"tests/unit/model/expected-desktop-library.tsv"_s)
                                  .split(u'\n', Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        const QStringList fields = line.split(u'\t');
        ASSERT_EQ(fields.size(), 7) << qPrintable(line);
        ASSERT_TRUE(categories.contains(fields[4])) << qPrintable(line);
        expected[fields[0]].append(
            {{fields[1],
              fields[2],
              fields[3].split(u' ', Qt::SkipEmptyParts),
              categories[fields[4]],
              {},
              fields[5]},
             fields[6].split(u'|', Qt::SkipEmptyParts)});
    }
    for (auto family = families.begin(); family != families.end(); ++family) {
        SCOPED_TRACE(family.key().toStdString());
        const QList<DesktopShortcut> actual = DesktopLibrary::of(*family);
        const QList<DesktopShortcut> &wanted = expected[family.key()];
        ASSERT_EQ(actual.size(), wanted.size());
        for (qsizetype i = 0; i < wanted.size(); ++i) {
            SCOPED_TRACE(wanted[i].shortcut.id.toStdString());
            EXPECT_EQ(actual[i].shortcut, wanted[i].shortcut);
            EXPECT_EQ(actual[i].actions, wanted[i].actions);
        }
    }
}

TEST(DesktopLibrary, SizesAsTold)
{
    EXPECT_EQ(DesktopLibrary::of(DesktopFamily::gnome).size(), 78);
    EXPECT_EQ(DesktopLibrary::of(DesktopFamily::kde).size(), 73);
    EXPECT_EQ(DesktopLibrary::of(DesktopFamily::xfce).size(), 74);
    int shared = 0;
    int told = 0;
    for (const DesktopShortcut &entry : DesktopLibrary::of(DesktopFamily::other))
        ++(entry.shortcut.keys.isEmpty() ? told : shared);
    EXPECT_EQ(shared, 43);
    EXPECT_EQ(told, 26);
}

TEST(DesktopLibrary, RecordsAreWellFormed)
{
    const QStringList modifiers{u"⌃"_s, u"⌥"_s, u"⇧"_s, u"⌘"_s};
    for (const DesktopFamily family : families) {
        QSet<QString> ids;
        QSet<QString> actions;
        for (const DesktopShortcut &entry : DesktopLibrary::of(family)) {
            const Shortcut &shortcut = entry.shortcut;
            SCOPED_TRACE(shortcut.id.toStdString());
            EXPECT_FALSE(ids.contains(shortcut.id));
            ids.insert(shortcut.id);
            for (const QString &action : entry.actions) {
                EXPECT_FALSE(actions.contains(action)) << qPrintable(action);
                actions.insert(action);
            }
            EXPECT_TRUE(shortcut.detail.endsWith(u'.'));
            EXPECT_FALSE(shortcut.title.isEmpty());
            if (shortcut.keys.isEmpty()) {
                EXPECT_FALSE(entry.actions.isEmpty()) << "nobody tells its keys";
                continue;
            }
            // Modifiers first and in their order, then one key.
            qsizetype last = -1;
            for (const QString &token : shortcut.keys.first(shortcut.keys.size() - 1)) {
                EXPECT_GT(modifiers.indexOf(token), last);
                last = modifiers.indexOf(token);
            }
            EXPECT_FALSE(modifiers.contains(shortcut.keys.last()));
        }
    }
}

TEST(DesktopLibrary, SameActionsGoBySameIds)
{
    // What favourites, counts, first aid, the sticker and the daily trio know them by.
    QSet<QString> macIds;
    for (const Shortcut &shortcut : ShortcutLibrary::all())
        macIds.insert(shortcut.id);
    for (const DesktopFamily family : families) {
        const QList<DesktopShortcut> library = DesktopLibrary::of(family);
        int shared = 0;
        for (const DesktopShortcut &entry : library)
            shared += macIds.contains(entry.shortcut.id) ? 1 : 0;
        EXPECT_GE(shared, 25);
        EXPECT_EQ(library.first().shortcut.id, u"copy"_s);
        EXPECT_EQ(find(library, u"icloud"_s), nullptr) << "no such thing there";
        EXPECT_EQ(find(library, u"dock-toggle"_s), nullptr);
    }
    for (const DesktopFamily family :
         {DesktopFamily::gnome, DesktopFamily::kde, DesktopFamily::xfce}) {
        for (const QString &id : {u"copy"_s, u"paste"_s, u"spotlight"_s, u"shot-area"_s})
            EXPECT_NE(find(DesktopLibrary::of(family), id), nullptr)
                << "a favourite from the start";
    }
}

TEST(DesktopLibrary, OfAnUnknownDesktopOnlyWhatProgramsShare)
{
    for (const DesktopShortcut &entry : DesktopLibrary::of(DesktopFamily::other)) {
        // The rest shows only with keys that settings tell.
        EXPECT_EQ(entry.actions.isEmpty(), !entry.shortcut.keys.isEmpty())
            << qPrintable(entry.shortcut.id);
        EXPECT_FALSE(entry.shortcut.keys.contains(u"⌘"_s)) << qPrintable(entry.shortcut.id);
    }
}

TEST(DesktopLibrary, ActionsNameTheSettingsOfTheirDesktop)
{
    const QHash<DesktopFamily, QStringList> schemes{
        {DesktopFamily::gnome, {u"gnome"_s}},
        {DesktopFamily::kde, {u"kde"_s}},
        {DesktopFamily::xfce, {u"xfce"_s}},
        {DesktopFamily::other, {u"cinnamon"_s, u"mate"_s, u"openbox"_s}}};
    for (auto scheme = schemes.begin(); scheme != schemes.end(); ++scheme) {
        for (const DesktopShortcut &entry : DesktopLibrary::of(scheme.key())) {
            QStringList seen;
            for (const QString &action : entry.actions) {
                seen.append(action.section(u':', 0, 0));
                EXPECT_TRUE(scheme->contains(seen.last())) << qPrintable(action);
                EXPECT_TRUE(action.contains(u'/') || seen.last() == u"openbox"_s)
                    << qPrintable(action);
            }
            EXPECT_EQ(seen.removeDuplicates(), 0) << "one for each desktop";
        }
    }
}

TEST(DesktopLibrary, EveryRowHasItsSourceWritten)
{
    const QString document = fileText(u"docs/library.md"_s);
    for (const DesktopFamily family : families) {
        for (const DesktopShortcut &entry : DesktopLibrary::of(family))
            EXPECT_TRUE(document.contains(u"\n| `"_s + entry.shortcut.id + u"` |"_s))
                << qPrintable(entry.shortcut.id);
    }
}

TEST(DesktopLibrary, NothingIsLeftForAScreenReaderToGuess)
{
    for (const DesktopFamily family : families) {
        for (const DesktopShortcut &entry : DesktopLibrary::of(family)) {
            for (const KeyStyle style : {KeyStyle::mac, KeyStyle::pc}) {
                for (const QChar character : KeyNames::spoken(entry.shortcut.keys, style))
                    EXPECT_TRUE(character.isLetterOrNumber() || character.isSpace())
                        << qPrintable(entry.shortcut.id);
            }
        }
    }
}

} // namespace hmatnik::test
