#include "views/EditorState.h"

#include "FakeDesktop.h"
#include "model/AppModel.h"

#include <QRegularExpression>
#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace hmatnik {

class EditorStateTest : public testing::Test
{
protected:
    EditorStateTest() { m_editor.setModel(&m_model); }

    /// A valid input with nothing optional in it.
    void type(const QString &title, const QString &keys)
    {
        m_editor.setTitle(title);
        m_editor.setKeys(keys);
    }

    /// What a program that starts now would read.
    QList<Shortcut> stored() { return AppModel(m_desktop.desktop()).customShortcuts(); }

    test::FakeDesktop m_desktop;
    AppModel m_model{m_desktop.desktop()};
    EditorState m_editor;
};

TEST_F(EditorStateTest, StartsEmptyWithTheFirstCategory)
{
    EXPECT_EQ(m_editor.title(), QString());
    EXPECT_EQ(m_editor.keys(), QString());
    EXPECT_EQ(m_editor.detail(), QString());
    EXPECT_EQ(m_editor.app(), QString());
    EXPECT_EQ(m_editor.category(), Shortcut::Category::zaklady);
    EXPECT_FALSE(m_editor.isValid());
    EXPECT_EQ(
        EditorState::categories(), (QStringList{
                                       u"Základy"_s, u"Text"_s, u"Okna a aplikace"_s, u"Finder"_s,
                                       u"Snímky obrazovky"_s, u"Prohlížeč"_s}));
}

TEST_F(EditorStateTest, WhatWasTypedOrChosenIsInput)
{
    const QSignalSpy changes(&m_editor, &EditorState::inputChanged);
    EXPECT_FALSE(m_editor.hasInput());
    for (void (EditorState::*set)(const QString &) :
         {&EditorState::setTitle, &EditorState::setKeys, &EditorState::setDetail,
          &EditorState::setApp}) {
        (m_editor.*set)(u" "_s);
        EXPECT_TRUE(m_editor.hasInput());
        (m_editor.*set)(u" x"_s);
        (m_editor.*set)({});
        EXPECT_FALSE(m_editor.hasInput());
    }
    EXPECT_EQ(changes.count(), 8);
    m_editor.setCategoryIndex(1);
    EXPECT_TRUE(m_editor.hasInput());
    m_editor.setCategoryIndex(0);
    EXPECT_FALSE(m_editor.hasInput());
    EXPECT_EQ(changes.count(), 10);
}

TEST_F(EditorStateTest, ATitleOfWhiteSpaceIsNone)
{
    for (const QString &title :
         {QString(), u" "_s, u" \t "_s, u"\n"_s, u"\r\n"_s, u"\u00a0\u2003\u2028"_s}) {
        type(title, u"⌘"_s);
        EXPECT_FALSE(m_editor.isValid()) << qPrintable(title);
        EXPECT_FALSE(m_editor.add());
    }
    EXPECT_TRUE(m_model.customShortcuts().isEmpty());
    EXPECT_TRUE(m_desktop.preferences->writtenKeys().isEmpty());
    type(u" x "_s, u"⌘"_s);
    EXPECT_TRUE(m_editor.isValid());
}

TEST_F(EditorStateTest, KeysNeedAtLeastOneToken)
{
    for (const QString &keys : {QString(), u" "_s, u"+"_s, u"++"_s, u" + +\t+ "_s}) {
        type(u"Něco"_s, keys);
        EXPECT_FALSE(m_editor.isValid()) << qPrintable(keys);
        EXPECT_FALSE(m_editor.add());
    }
    EXPECT_TRUE(m_model.customShortcuts().isEmpty());
}

TEST_F(EditorStateTest, KeysAreSplitAtPlusAndTrimmed)
{
    m_editor.setKeys(u" ⌘ + C "_s);
    EXPECT_EQ(m_editor.parsedKeys(), (QStringList{u"⌘"_s, u"C"_s}));
    m_editor.setKeys(u"⌥ + ⌘ + K"_s);
    EXPECT_EQ(m_editor.parsedKeys(), (QStringList{u"⌥"_s, u"⌘"_s, u"K"_s}));
    // The plus key itself can't be written.
    m_editor.setKeys(u"⌘++"_s);
    EXPECT_EQ(m_editor.parsedKeys(), QStringList{u"⌘"_s});
    // Words stay as they are.
    m_editor.setKeys(u"ctrl+ page down +x"_s);
    EXPECT_EQ(m_editor.parsedKeys(), (QStringList{u"ctrl"_s, u"page down"_s, u"x"_s}));
}

TEST_F(EditorStateTest, TellsWhenItBecomesValid)
{
    const QSignalSpy valid(&m_editor, &EditorState::validChanged);
    m_editor.setTitle(u"N"_s);
    EXPECT_EQ(valid.count(), 0);
    m_editor.setKeys(u"+"_s);
    EXPECT_EQ(valid.count(), 0);
    m_editor.setKeys(u"+x"_s);
    EXPECT_EQ(valid.count(), 1);
    m_editor.setTitle(u"Ná"_s);
    EXPECT_EQ(valid.count(), 1);
    m_editor.setTitle(u" "_s);
    EXPECT_EQ(valid.count(), 2);
}

TEST_F(EditorStateTest, AddsTheShortcutAtTheEndAndStoresIt)
{
    m_model.setCustomShortcuts(
        {{u"custom-1"_s, u"Dřívější"_s, {u"A"_s}, Shortcut::Category::text, {}, u"…"_s}});
    m_editor.setTitle(u" Nový soubor "_s);
    m_editor.setKeys(u"⌥+⌘+K"_s);
    m_editor.setCategoryIndex(3);
    m_editor.setApp(u"Finder"_s);
    m_editor.setDetail(u"Založí soubor."_s);
    ASSERT_TRUE(m_editor.add());

    ASSERT_EQ(m_model.customShortcuts().size(), 2);
    const Shortcut &added = m_model.customShortcuts().last();
    static const QRegularExpression form(
        u"^custom-[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}$"_s);
    EXPECT_TRUE(form.match(added.id).hasMatch()) << qPrintable(added.id);
    EXPECT_EQ(added.title, u" Nový soubor "_s);
    EXPECT_EQ(added.keys, (QStringList{u"⌥"_s, u"⌘"_s, u"K"_s}));
    EXPECT_EQ(added.category, Shortcut::Category::finder);
    EXPECT_EQ(added.apps, QStringList{u"Finder"_s});
    EXPECT_EQ(added.detail, u"Založí soubor."_s);
    EXPECT_EQ(stored(), m_model.customShortcuts());
}

TEST_F(EditorStateTest, AddsToWhatAnotherProcessStored)
{
    const Shortcut theirs{u"custom-1"_s, u"Jejich"_s, {u"K"_s}, Shortcut::Category::text, {},
                          u"Popis."_s};
    m_desktop.preferences->storeElsewhere(u"customShortcuts"_s, Shortcut::toJson({theirs}));
    type(u"Naše"_s, u"L"_s);
    ASSERT_TRUE(m_editor.add());
    ASSERT_EQ(stored().size(), 2);
    EXPECT_EQ(stored().first(), theirs);
    EXPECT_EQ(stored().last().title, u"Naše"_s);
}

TEST_F(EditorStateTest, OptionalFieldsLeftEmpty)
{
    type(u"Něco"_s, u"⌘"_s);
    ASSERT_TRUE(m_editor.add());
    const Shortcut &added = m_model.customShortcuts().last();
    EXPECT_TRUE(added.apps.isEmpty());
    EXPECT_EQ(added.detail, u"Vlastní klávesová zkratka."_s);
    EXPECT_EQ(added.category, Shortcut::Category::zaklady);
}

TEST_F(EditorStateTest, AnApplicationOfBlanksIsKept)
{
    type(u"Něco"_s, u"⌘"_s);
    m_editor.setApp(u"  "_s);
    m_editor.setDetail(u" "_s);
    ASSERT_TRUE(m_editor.add());
    EXPECT_EQ(m_model.customShortcuts().last().apps, QStringList{u"  "_s});
    EXPECT_EQ(m_model.customShortcuts().last().detail, u" "_s);
}

TEST_F(EditorStateTest, TheSameTwiceIsTwoShortcuts)
{
    type(u"Něco"_s, u"⌘+1"_s);
    ASSERT_TRUE(m_editor.add());
    ASSERT_TRUE(m_editor.add());
    ASSERT_EQ(m_model.customShortcuts().size(), 2);
    EXPECT_NE(m_model.customShortcuts().first().id, m_model.customShortcuts().last().id);
}

TEST_F(EditorStateTest, UnknownCategoriesAreIgnored)
{
    const QSignalSpy changes(&m_editor, &EditorState::categoryChanged);
    m_editor.setCategoryIndex(5);
    EXPECT_EQ(m_editor.category(), Shortcut::Category::prohlizec);
    m_editor.setCategoryIndex(6);
    m_editor.setCategoryIndex(-1);
    EXPECT_EQ(m_editor.category(), Shortcut::Category::prohlizec);
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(EditorStateTest, WithoutAModelNothingIsAdded)
{
    EditorState editor;
    editor.setTitle(u"x"_s);
    editor.setKeys(u"y"_s);
    EXPECT_TRUE(editor.isValid());
    EXPECT_FALSE(editor.add());
}

class EditorStateOddTextTest : public EditorStateTest, public testing::WithParamInterface<QString>
{
};

TEST_P(EditorStateOddTextTest, IsKeptCharacterForCharacter)
{
    const QString odd = GetParam();
    type(u"T"_s + odd, odd + u"K"_s);
    m_editor.setApp(odd);
    m_editor.setDetail(odd);
    ASSERT_TRUE(m_editor.add());
    const QList<Shortcut> kept = stored();
    ASSERT_EQ(kept.size(), 1);
    EXPECT_EQ(kept.first(), m_model.customShortcuts().first());
    EXPECT_EQ(kept.first().title, u"T"_s + odd);
    EXPECT_EQ(kept.first().keys, QStringList{QString(odd + u"K"_s).trimmed()});
    EXPECT_EQ(kept.first().apps, QStringList{odd});
    EXPECT_EQ(kept.first().detail, odd);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, EditorStateOddTextTest,
    testing::Values(
        u"e\u0301\u0323\u0330"_s, u"\u05e9\u05dc\u05d5\u05dd \u202eobrácené\u202c"_s,
        u"\U0001F469\u200d\U0001F469\u200d\U0001F467 \U0001F3F3\ufe0f\u200d\U0001F308"_s,
        u"a\u0000b\u0001\u0007\u001b[31m\u007f\u009b"_s, u"x\ny\r\nz\u2028w\u2029v\tu"_s,
        QString(10'000, u'Ž'), u"<b>tučně</b> &amp; \\ \" '"_s, u"\ufeff\ufffd\uffff"_s));

TEST_F(EditorStateTest, NamesOfAPcsKeysAreTakenWhereTheyAreChosen)
{
    EXPECT_EQ(m_editor.keysPlaceholder(), u"např. ⌥ + ⌘ + K"_s);
    EXPECT_EQ(m_editor.spokenKeysPlaceholder(), u"např. Option plus Command plus K"_s);
    type(u"Uložit"_s, u"Ctrl+S"_s);
    EXPECT_EQ(m_editor.parsedKeys(), (QStringList{u"Ctrl"_s, u"S"_s}));

    const QSignalSpy changes(&m_editor, &EditorState::keyStyleChanged);
    m_model.setKeyStyle(KeyStyle::pc);
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(m_editor.keysPlaceholder(), u"např. Alt + Super + K"_s);
    EXPECT_EQ(m_editor.spokenKeysPlaceholder(), u"např. Alt plus Super plus K"_s);
    EXPECT_TRUE(m_editor.add());
    EXPECT_EQ(stored().front().keys, (QStringList{u"⌃"_s, u"S"_s}));
}

} // namespace hmatnik
