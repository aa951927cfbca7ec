#include "system/MenuShortcutImporter.h"

#include "FakeDesktop.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace hmatnik::test {

namespace {

constexpr std::int32_t appPid = 77;
const auto appName = u"Safari"_s;

class MenuShortcutImporterTest : public testing::Test
{
protected:
    MenuShortcutImporter::Result import(std::int32_t pid = appPid)
    {
        return MenuShortcutImporter::importFromApplication(
            accessibility, FakeWorkspace::ownPid, pid, appName, {});
    }

    QList<Shortcut> importMenu(const std::vector<platform::AccessibleElementPtr> &children)
    {
        accessibility.setMenuBar(appPid, children);
        const auto result = import();
        EXPECT_TRUE(std::holds_alternative<QList<Shortcut>>(result));
        return std::get<QList<Shortcut>>(result);
    }

    QStringList keysOfItem(const QString &character, std::int64_t modifiers)
    {
        const auto shortcuts =
            importMenu({FakeElement::menuItem(u"Položka"_s, character, modifiers)});
        EXPECT_EQ(shortcuts.size(), 1);
        return shortcuts.value(0).keys;
    }

    FakeAccessibility accessibility;
};

QStringList titlesOf(const QList<Shortcut> &shortcuts)
{
    QStringList titles;
    for (const Shortcut &shortcut : shortcuts)
        titles.append(shortcut.title);
    return titles;
}

/// An element whose children are made when they are asked for, so that depth costs the test
/// nothing.
class DeepElement final : public platform::AccessibleElement
{
public:
    explicit DeepElement(int depth)
        : m_depth(depth)
    {
    }
    platform::AttributeResult attribute(QStringView name) const override
    {
        if (name == u"AXTitle")
            return {0, QString::number(m_depth)};
        if (name == u"AXMenuItemCmdChar")
            return {0, u"x"_s};
        if (name == u"AXChildren" && m_depth > 0)
            return {
                0, std::vector<platform::AccessibleElementPtr>{
                       std::make_shared<DeepElement>(m_depth - 1)}};
        return {FakeElement::attributeUnsupported, {}};
    }

private:
    int m_depth;
};

} // namespace

TEST(MenuImportError, OrderAndTexts)
{
    EXPECT_EQ(static_cast<int>(MenuImportError::permission), 0);
    EXPECT_EQ(static_cast<int>(MenuImportError::application), 1);
    EXPECT_EQ(static_cast<int>(MenuImportError::menu), 2);
    EXPECT_EQ(
        localizedDescription(MenuImportError::permission),
        u"Pro import povolte Hmatníku Zpřístupnění v Nastavení systému."_s);
    EXPECT_EQ(
        localizedDescription(MenuImportError::application),
        u"Aktivní aplikaci se nepodařilo načíst. Přepněte do ní a zkuste import znovu."_s);
    EXPECT_EQ(
        localizedDescription(MenuImportError::menu),
        u"Menu aktivní aplikace není dostupné nebo neobsahuje zkratky."_s);
}

TEST_F(MenuShortcutImporterTest, FillsEveryField)
{
    const auto shortcuts = importMenu({FakeElement::menuItem(u"Nový panel"_s, u"t"_s)});
    const Shortcut expected{
        .id = u"menu-Safari-Nový panel-⌘T"_s,
        .title = u"Nový panel"_s,
        .keys = {u"⌘"_s, u"T"_s},
        .category = Shortcut::Category::zaklady,
        .apps = {u"Safari"_s},
        .detail = u"Importováno z menu aplikace Safari."_s,
    };
    EXPECT_EQ(shortcuts, QList<Shortcut>{expected});
}

TEST_F(MenuShortcutImporterTest, KeyTokensFollowTheModifierBits)
{
    EXPECT_EQ(keysOfItem(u"A"_s, 8), QStringList{u"A"_s});
    EXPECT_EQ(keysOfItem(u"q"_s, 6), (QStringList{u"⌃"_s, u"⌥"_s, u"⌘"_s, u"Q"_s}));
    EXPECT_EQ(keysOfItem(u"n"_s, 1), (QStringList{u"⇧"_s, u"⌘"_s, u"N"_s}));
    EXPECT_EQ(keysOfItem(u"n"_s, 0), (QStringList{u"⌘"_s, u"N"_s}));
    EXPECT_EQ(keysOfItem(u"n"_s, 7), (QStringList{u"⌃"_s, u"⌥"_s, u"⇧"_s, u"⌘"_s, u"N"_s}));
    EXPECT_EQ(keysOfItem(u"n"_s, 15), (QStringList{u"⌃"_s, u"⌥"_s, u"⇧"_s, u"N"_s}));
    EXPECT_EQ(keysOfItem(u"n"_s, 12), (QStringList{u"⌃"_s, u"N"_s}));
    // Bits without a meaning add nothing.
    EXPECT_EQ(keysOfItem(u"n"_s, 16), (QStringList{u"⌘"_s, u"N"_s}));
}

TEST_F(MenuShortcutImporterTest, CharactersAreUpperCasedAndOtherwiseTakenAsTheyCome)
{
    EXPECT_EQ(keysOfItem(u"ř"_s, 8), QStringList{u"Ř"_s});
    EXPECT_EQ(keysOfItem(u"⌫"_s, 8), QStringList{u"⌫"_s});
    EXPECT_EQ(keysOfItem(u"F11"_s, 8), QStringList{u"F11"_s});
    EXPECT_EQ(keysOfItem(u" "_s, 8), QStringList{u" "_s});
    EXPECT_EQ(keysOfItem(u"←"_s, 8), QStringList{u"←"_s});
    for (const QString &name : {u"Mezerník"_s, u"Insert"_s, u"Print"_s, u"Media Play"_s})
        EXPECT_EQ(keysOfItem(name, 8), QStringList{name}) << "a name is not shouted";
}

TEST_F(MenuShortcutImporterTest, ModifiersThatCannotBeReadCountAsNone)
{
    const auto item = FakeElement::menuItem(u"Položka"_s, u"n"_s, 15);
    item->setError(u"AXMenuItemCmdModifiers", -1);
    EXPECT_EQ(importMenu({item}).value(0).keys, (QStringList{u"⌘"_s, u"N"_s}));
    item->set(u"AXMenuItemCmdModifiers", u"15"_s);
    EXPECT_EQ(importMenu({item}).value(0).keys, (QStringList{u"⌘"_s, u"N"_s}));
    // A value beside an error does not count.
    item->setResult(u"AXMenuItemCmdModifiers", {-1, std::int64_t(15)});
    EXPECT_EQ(importMenu({item}).value(0).keys, (QStringList{u"⌘"_s, u"N"_s}));
}

TEST_F(MenuShortcutImporterTest, TitleAndCharacterAreBothNeeded)
{
    const auto titleless = FakeElement::menuItem(u"a"_s, u"a"_s);
    titleless->setError(u"AXTitle", -1);
    const auto numberTitle = FakeElement::menuItem(u"b"_s, u"b"_s);
    numberTitle->set(u"AXTitle", std::int64_t(5));
    const auto characterless = FakeElement::menuItem(u"c"_s, u"c"_s);
    characterless->setError(u"AXMenuItemCmdChar", -1);
    const auto numberCharacter = FakeElement::menuItem(u"d"_s, u"d"_s);
    numberCharacter->set(u"AXMenuItemCmdChar", std::int64_t(65));
    const auto shortcuts = importMenu({
        FakeElement::menuItem(u"Bez klávesy"_s, u""_s),
        FakeElement::menuItem(u""_s, u"k"_s),
        titleless,
        numberTitle,
        characterless,
        numberCharacter,
        FakeElement::make(),
        FakeElement::menuItem(u"Celá"_s, u"k"_s),
    });
    EXPECT_EQ(titlesOf(shortcuts), QStringList{u"Celá"_s});
}

TEST_F(MenuShortcutImporterTest, ChildrenComeBeforeTheirParentAndMenusInOrder)
{
    const auto submenuItem = FakeElement::menuItem(u"Otevřít nedávné"_s, u"r"_s);
    submenuItem->set(
        u"AXChildren", std::vector<platform::AccessibleElementPtr>{FakeElement::branch(
                           u""_s, {FakeElement::menuItem(u"První"_s, u"1"_s),
                                   FakeElement::menuItem(u"Druhý"_s, u"2"_s)})});
    const auto file = FakeElement::branch(
        u"Soubor"_s, {FakeElement::branch(
                         u""_s, {FakeElement::menuItem(u"Nový"_s, u"n"_s), submenuItem,
                                 FakeElement::menuItem(u"Zavřít"_s, u"w"_s)})});
    const auto edit = FakeElement::branch(u"Úpravy"_s, {FakeElement::menuItem(u"Zpět"_s, u"z"_s)});
    EXPECT_EQ(
        titlesOf(importMenu({file, edit})),
        (QStringList{
            u"Nový"_s, u"První"_s, u"Druhý"_s, u"Otevřít nedávné"_s, u"Zavřít"_s, u"Zpět"_s}));
}

TEST_F(MenuShortcutImporterTest, ARepeatedCommandComesTwice)
{
    const auto shortcuts = importMenu(
        {FakeElement::branch(u"A"_s, {FakeElement::menuItem(u"Tisk"_s, u"p"_s)}),
         FakeElement::branch(u"B"_s, {FakeElement::menuItem(u"Tisk"_s, u"p"_s)})});
    ASSERT_EQ(shortcuts.size(), 2);
    EXPECT_EQ(shortcuts.at(0), shortcuts.at(1));
}

TEST_F(MenuShortcutImporterTest, UnreadableChildrenAreSkipped)
{
    const auto broken = FakeElement::menuItem(u"Bez dětí"_s, u"b"_s);
    broken->setResult(
        u"AXChildren", {-25204, std::vector<platform::AccessibleElementPtr>{
                                    FakeElement::menuItem(u"x"_s, u"x"_s)}});
    const auto wrong = FakeElement::branch(u"Jiný typ"_s, {});
    wrong->set(u"AXChildren", u"text"_s);
    EXPECT_EQ(
        titlesOf(importMenu({broken, nullptr, wrong, FakeElement::menuItem(u"Dál"_s, u"d"_s)})),
        (QStringList{u"Bez dětí"_s, u"Dál"_s}));
}

TEST_F(MenuShortcutImporterTest, AMenuBarWithoutKeyEquivalentsIsNoError)
{
    EXPECT_EQ(importMenu({}), QList<Shortcut>());
    EXPECT_EQ(importMenu({FakeElement::branch(u"Soubor"_s, {})}), QList<Shortcut>());
}

TEST_F(MenuShortcutImporterTest, WithoutPermissionAsksForItAndReadsNothing)
{
    accessibility.setTrusted(false);
    accessibility.setMenuBar(appPid, {FakeElement::menuItem(u"a"_s, u"a"_s)});
    EXPECT_EQ(import(), MenuShortcutImporter::Result(MenuImportError::permission));
    EXPECT_EQ(accessibility.trustRequests(), 1);
    EXPECT_EQ(
        import(FakeWorkspace::ownPid), MenuShortcutImporter::Result(MenuImportError::permission));
    EXPECT_EQ(accessibility.trustRequests(), 2);
    EXPECT_EQ(accessibility.applicationQueries(), 0);
}

TEST_F(MenuShortcutImporterTest, OwnMenusAreNeverRead)
{
    EXPECT_EQ(
        import(FakeWorkspace::ownPid), MenuShortcutImporter::Result(MenuImportError::application));
    EXPECT_EQ(accessibility.applicationQueries(), 0);
    EXPECT_EQ(accessibility.trustRequests(), 0);
}

TEST_F(MenuShortcutImporterTest, AMenuBarThatCannotBeReadIsAnError)
{
    const MenuShortcutImporter::Result menuError = MenuImportError::menu;
    EXPECT_EQ(import(), menuError); // no such process
    const auto application = FakeElement::make();
    accessibility.setApplication(appPid, application);
    EXPECT_EQ(import(), menuError);
    application->setResult(u"AXMenuBar", {0, std::monostate()});
    EXPECT_EQ(import(), menuError);
    application->set(u"AXMenuBar", platform::AccessibleElementPtr());
    EXPECT_EQ(import(), menuError);
    application->set(u"AXMenuBar", u"text"_s);
    EXPECT_EQ(import(), menuError);
    application->setResult(
        u"AXMenuBar", {-25211, platform::AccessibleElementPtr(FakeElement::make())});
    EXPECT_EQ(import(), menuError);
}

TEST_F(MenuShortcutImporterTest, DepthIsNotLimited)
{
    constexpr int depth = 100'000;
    const auto shortcuts = importMenu({std::make_shared<DeepElement>(depth)});
    ASSERT_EQ(shortcuts.size(), depth + 1);
    EXPECT_EQ(shortcuts.first().title, u"0"_s);
    EXPECT_EQ(shortcuts.last().title, QString::number(depth));
}

} // namespace hmatnik::test
