#include "app/AppMenu.h"

namespace hmatnik {

using namespace Qt::StringLiterals;

MenuTable AppMenu::table(DesktopShortcuts desktopShortcuts)
{
    MenuTable menus{
        // Where the desktop shows no application menu of its own, a menu without a title could not
        // be opened.
        {u"Hmatník"_s,
         {{u"O aplikaci Hmatník"_s, MenuAction::About, {}},
          {{}, MenuAction::Separator, {}},
          {u"Ukončit Hmatník"_s, MenuAction::Quit, u'q'}}},
        {u"Úpravy"_s,
         {{u"Vyjmout"_s, MenuAction::Cut, u'x'},
          {u"Kopírovat"_s, MenuAction::Copy, u'c'},
          {u"Vložit"_s, MenuAction::Paste, u'v'},
          {u"Vybrat vše"_s, MenuAction::SelectAll, u'a'}}},
        {u"Okno"_s,
         {{u"Zavřít"_s, MenuAction::Close, u'w'},
          {u"Minimalizovat"_s, MenuAction::Minimize, u'm'}}},
    };
    if (desktopShortcuts == DesktopShortcuts::Offered) {
        QList<MenuEntry> &entries = menus.first().entries;
        entries.insert(
            entries.size() - 1,
            {u"Načíst zkratky plochy"_s, MenuAction::ImportSystemShortcuts, {}});
        entries.insert(entries.size() - 1, {{}, MenuAction::Separator, {}});
    }
    return menus;
}

} // namespace hmatnik
