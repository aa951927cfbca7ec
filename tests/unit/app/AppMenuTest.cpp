#include "app/AppMenu.h"

#include <gtest/gtest.h>

namespace hmatnik::test {

using namespace Qt::StringLiterals;

TEST(AppMenuTest, hasItsThreeMenus)
{
    const MenuTable expected{
        {u"Hmatník"_s,
         {{u"O aplikaci Hmatník"_s, MenuAction::About, QChar()},
          {QString(), MenuAction::Separator, QChar()},
          {u"Ukončit Hmatník"_s, MenuAction::Quit, u'q'}}},
        {u"Úpravy"_s,
         {{u"Vyjmout"_s, MenuAction::Cut, u'x'},
          {u"Kopírovat"_s, MenuAction::Copy, u'c'},
          {u"Vložit"_s, MenuAction::Paste, u'v'},
          {u"Vybrat vše"_s, MenuAction::SelectAll, u'a'}}},
        {u"Okno"_s,
         {{u"Zavřít"_s, MenuAction::Close, u'w'},
          {u"Minimalizovat"_s, MenuAction::Minimize, u'm'}}}};
    EXPECT_EQ(AppMenu::table(), expected);
}

TEST(AppMenuTest, offersTheDesktopsShortcutsWhereTheyCanBeRead)
{
    MenuTable menus = AppMenu::table(AppMenu::DesktopShortcuts::Offered);
    const MenuDefinition expected{
        u"Hmatník"_s,
        {{u"O aplikaci Hmatník"_s, MenuAction::About, QChar()},
         {QString(), MenuAction::Separator, QChar()},
         {u"Načíst zkratky plochy"_s, MenuAction::ImportSystemShortcuts, QChar()},
         {QString(), MenuAction::Separator, QChar()},
         {u"Ukončit Hmatník"_s, MenuAction::Quit, u'q'}}};
    EXPECT_EQ(menus.takeFirst(), expected);
    EXPECT_EQ(menus, AppMenu::table().mid(1));
}

} // namespace hmatnik::test
