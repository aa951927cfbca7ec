#include "model/DesktopLibrary.h"

#include <QStringView>

#include <array>

namespace hmatnik {

namespace {

using platform::DesktopFamily;

/// What a desktop has for an action; nothing where it lacks it.
struct Binding
{
    /// Tokens separated by spaces.
    QStringView keys = {};
    /// Its names in settings, separated by "|": one for each desktop that may be in front of us.
    QStringView actions = {};
};

struct Row
{
    QStringView id;
    QStringView title;
    Shortcut::Category category = Shortcut::Category::zaklady;
    QStringView detail;
    // One for each family.
    Binding gnome;
    Binding kde;
    Binding xfce;
    Binding other;
};

/// A row of what programs share on every desktop.
constexpr Row everywhere(
    QStringView id, QStringView title, Shortcut::Category category, QStringView detail,
    QStringView keys)
{
    const Binding binding{keys, {}};
    return {id, title, category, detail, binding, binding, binding, binding};
}

using enum Shortcut::Category;

// The order is part of the data, as in the library of the Mac. Where each key was seen stands in
// docs/library.md, row by row; a row without a source there has no place here.
constexpr std::array rows{
    everywhere(u"copy", u"Kopírovat", zaklady, u"Zkopíruje vybraný text nebo soubor.", u"⌃ C"),
    everywhere(u"paste", u"Vložit", zaklady, u"Vloží obsah schránky.", u"⌃ V"),
    everywhere(u"undo", u"Vrátit zpět", zaklady, u"Vrátí poslední provedenou akci.", u"⌃ Z"),
    everywhere(u"redo", u"Provést znovu", zaklady, u"Znovu provede vrácenou akci.", u"⌃ ⇧ Z"),
    everywhere(
        u"cut", u"Vyjmout", zaklady, u"Přesune vybraný text nebo soubor do schránky.", u"⌃ X"),
    everywhere(u"save", u"Uložit", zaklady, u"Uloží aktuální dokument.", u"⌃ S"),
    everywhere(u"select-all", u"Vybrat vše", zaklady, u"Vybere veškerý obsah.", u"⌃ A"),
    everywhere(
        u"find", u"Najít", text, u"Vyhledá text v aktuálním dokumentu nebo stránce.", u"⌃ F"),
    Row{u"emoji",
        u"Emoji a symboly",
        text,
        u"Otevře výběr emoji a vloží vybrané do textu.",
        {u"⌃ ."},
        {u"⌘ .", u"kde:org.kde.plasma.emojier.desktop/_launch"},
        {u"⌃ ."},
        {u"⌃ ."}},
    Row{u"spotlight",
        u"Spouštěč",
        okna,
        u"Rychle najde a spustí aplikaci.",
        {u"⌘ A", u"gnome:org.gnome.shell.keybindings/toggle-application-view"},
        {u"⌥ Mezerník", u"kde:org.kde.krunner.desktop/_launch"},
        {u"⌥ F3", u"xfce:commands/xfce4-appfinder"},
        {}},
    Row{u"run-command",
        u"Spustit příkaz",
        okna,
        u"Otevře okénko, do kterého napíšete příkaz.",
        {u"⌥ F2", u"gnome:org.gnome.desktop.wm.keybindings/panel-run-dialog"},
        {},
        {u"⌥ F2", u"xfce:commands/xfce4-appfinder --collapsed"},
        {{},
         u"cinnamon:org.cinnamon.desktop.keybindings.wm/panel-run-dialog|"
         u"mate:org.mate.Marco.global-keybindings/panel-run-dialog"}},
    Row{u"switch-app",
        u"Přepnout aplikaci",
        okna,
        u"Přepíná mezi spuštěnými aplikacemi.",
        {u"⌘ Tab", u"gnome:org.gnome.desktop.wm.keybindings/switch-applications"},
        {u"⌥ Tab", u"kde:kwin/Walk Through Windows"},
        {u"⌥ Tab", u"xfce:xfwm4/cycle_windows_key"},
        {{},
         u"cinnamon:org.cinnamon.desktop.keybindings.wm/switch-windows|"
         u"mate:org.mate.Marco.global-keybindings/switch-windows|"
         u"openbox:NextWindow"}},
    Row{u"close-window",
        u"Zavřít okno",
        okna,
        u"Zavře aktuální okno.",
        {u"⌥ F4", u"gnome:org.gnome.desktop.wm.keybindings/close"},
        {u"⌥ F4", u"kde:kwin/Window Close"},
        {u"⌥ F4", u"xfce:xfwm4/close_window_key"},
        {{},
         u"cinnamon:org.cinnamon.desktop.keybindings.wm/close|"
         u"mate:org.mate.Marco.window-keybindings/close|"
         u"openbox:Close"}},
    everywhere(
        u"close-tab", u"Zavřít panel", okna, u"Zavře aktuální panel nebo dokument, okno zůstane.",
        u"⌃ W"),
    Row{u"force-quit",
        u"Vynutit ukončení",
        okna,
        u"Ukončí aplikaci, na jejíž okno pak kliknete.",
        {},
        {u"⌃ ⌘ Esc", u"kde:kwin/Kill Window"},
        {u"⌃ ⌥ Esc", u"xfce:commands/xkill"},
        {}},
    Row{u"lock",
        u"Zamknout obrazovku",
        okna,
        u"Okamžitě zamkne obrazovku.",
        {u"⌘ L", u"gnome:org.gnome.settings-daemon.plugins.media-keys/screensaver"},
        {u"⌘ L", u"kde:ksmserver/Lock Session"},
        {u"⌃ ⌥ L", u"xfce:commands/xflock4"},
        {{},
         u"cinnamon:org.cinnamon.desktop.keybindings.media-keys/screensaver|"
         u"mate:org.mate.SettingsDaemon.plugins.media-keys/screensaver"}},
    Row{u"new-folder",
        u"Nová složka",
        finder,
        u"Vytvoří novou složku ve správci souborů.",
        {u"⌃ ⇧ N"},
        {u"F10"},
        {u"⌃ ⇧ N"},
        {}},
    Row{u"go-folder",
        u"Přejít do složky",
        finder,
        u"Otevře cestu zadanou ručně, také v dialogu pro výběr souboru.",
        {u"⌃ L"},
        {},
        {u"⌃ L"},
        {u"⌃ L"}},
    Row{u"trash",
        u"Přesunout do koše",
        finder,
        u"Přesune vybrané položky do koše.",
        {u"⌦"},
        {u"⌦"},
        {u"⌦"},
        {}},
    Row{u"rename",
        u"Přejmenovat",
        finder,
        u"Změní název vybraného souboru nebo složky.",
        {u"F2"},
        {u"F2"},
        {u"F2"},
        {}},
    Row{u"shot-full",
        u"Vyfotit celou obrazovku",
        snimky,
        u"Uloží snímek celé obrazovky.",
        {u"⇧ Print", u"gnome:org.gnome.shell.keybindings/screenshot"},
        {u"⇧ Print", u"kde:org.kde.spectacle.desktop/FullScreenScreenShot"},
        {},
        {{}, u"cinnamon:org.cinnamon.desktop.keybindings.media-keys/screenshot"}},
    Row{u"shot-area",
        u"Vyfotit výřez",
        snimky,
        u"Umožní tažením vybrat část obrazovky.",
        {u"Print", u"gnome:org.gnome.shell.keybindings/show-screenshot-ui"},
        {u"⇧ ⌘ Print", u"kde:org.kde.spectacle.desktop/RectangularRegionScreenShot"},
        {u"⇧ Print", u"xfce:commands/xfce4-screenshooter -r"},
        {{}, u"cinnamon:org.cinnamon.desktop.keybindings.media-keys/area-screenshot"}},
    Row{u"shot-tools",
        u"Snímání a záznam",
        snimky,
        u"Otevře nástroj pro snímky nebo záznam obrazovky.",
        {u"⌃ ⌥ ⇧ R", u"gnome:org.gnome.shell.keybindings/show-screen-recording-ui"},
        {u"Print", u"kde:org.kde.spectacle.desktop/_launch"},
        {u"Print", u"xfce:commands/xfce4-screenshooter"},
        {}},
    Row{u"shot-window",
        u"Vyfotit okno",
        snimky,
        u"Uloží snímek aktivního okna.",
        {u"⌥ Print", u"gnome:org.gnome.shell.keybindings/screenshot-window"},
        {u"⌘ Print", u"kde:org.kde.spectacle.desktop/ActiveWindowScreenShot"},
        {u"⌥ Print", u"xfce:commands/xfce4-screenshooter -w"},
        {{}, u"cinnamon:org.cinnamon.desktop.keybindings.media-keys/window-screenshot"}},
    everywhere(u"new-tab", u"Nový panel", prohlizec, u"Otevře nový panel prohlížeče.", u"⌃ T"),
    everywhere(
        u"restore-tab", u"Obnovit zavřený panel", prohlizec, u"Vrátí naposledy zavřený panel.",
        u"⌃ ⇧ T"),
    everywhere(
        u"address", u"Přejít do adresního řádku", prohlizec,
        u"Označí adresu stránky, abyste mohli rovnou psát.", u"⌃ L"),
    everywhere(u"print", u"Tisknout", zaklady, u"Otevře dialog tisku.", u"⌃ P"),
    everywhere(u"new", u"Nový dokument", zaklady, u"Vytvoří nový dokument nebo okno.", u"⌃ N"),
    everywhere(u"open", u"Otevřít", zaklady, u"Otevře existující soubor.", u"⌃ O"),
    Row{u"preferences",
        u"Nastavení aplikace",
        zaklady,
        u"Otevře nastavení právě používané aplikace.",
        {},
        {u"⌃ ⇧ ,"},
        {},
        {}},
    everywhere(u"help", u"Nápověda", zaklady, u"Otevře nápovědu právě používané aplikace.", u"F1"),
    Row{u"quit",
        u"Ukončit aplikaci",
        zaklady,
        u"Zavře všechna okna aplikace a ukončí ji.",
        {u"⌃ Q"},
        {u"⌃ Q"},
        {u"⌃ Q"},
        {}},
    everywhere(u"bold", u"Tučné písmo", text, u"Zapne nebo vypne tučné formátování.", u"⌃ B"),
    everywhere(u"italic", u"Kurzíva", text, u"Zapne nebo vypne kurzívu.", u"⌃ I"),
    everywhere(u"underline", u"Podtržení", text, u"Zapne nebo vypne podtržení.", u"⌃ U"),
    everywhere(
        u"word-left", u"O slovo doleva", text, u"Přesune kurzor na začátek předchozího slova.",
        u"⌃ ←"),
    everywhere(
        u"word-right", u"O slovo doprava", text, u"Přesune kurzor za následující slovo.", u"⌃ →"),
    everywhere(u"line-start", u"Začátek řádku", text, u"Přesune kurzor na začátek řádku.", u"↖"),
    everywhere(u"line-end", u"Konec řádku", text, u"Přesune kurzor na konec řádku.", u"↘"),
    everywhere(
        u"document-start", u"Začátek dokumentu", text, u"Přesune kurzor na úplný začátek textu.",
        u"⌃ ↖"),
    everywhere(
        u"document-end", u"Konec dokumentu", text, u"Přesune kurzor na úplný konec textu.", u"⌃ ↘"),
    everywhere(u"delete-word", u"Smazat slovo", text, u"Smaže slovo před kurzorem.", u"⌃ Delete"),
    Row{u"minimize",
        u"Minimalizovat okno",
        okna,
        u"Odklidí aktuální okno do lišty.",
        {u"⌘ H", u"gnome:org.gnome.desktop.wm.keybindings/minimize"},
        {u"⌘ ⇟", u"kde:kwin/Window Minimize"},
        {u"⌥ F9", u"xfce:xfwm4/hide_window_key"},
        {{},
         u"cinnamon:org.cinnamon.desktop.keybindings.wm/minimize|"
         u"mate:org.mate.Marco.window-keybindings/minimize|"
         u"openbox:Iconify"}},
    Row{u"maximize",
        u"Maximalizovat okno",
        okna,
        u"Roztáhne okno přes celou plochu.",
        {u"⌘ ↑", u"gnome:org.gnome.desktop.wm.keybindings/maximize"},
        {u"⌘ ⇞", u"kde:kwin/Window Maximize"},
        {u"⌥ F10", u"xfce:xfwm4/maximize_window_key"},
        {{},
         u"cinnamon:org.cinnamon.desktop.keybindings.wm/toggle-maximized|"
         u"mate:org.mate.Marco.window-keybindings/toggle-maximized|"
         u"openbox:ToggleMaximize"}},
    Row{u"restore-window",
        u"Obnovit velikost okna",
        okna,
        u"Vrátí maximalizovanému oknu původní velikost.",
        {u"⌘ ↓", u"gnome:org.gnome.desktop.wm.keybindings/unmaximize"},
        {},
        {},
        {{},
         u"cinnamon:org.cinnamon.desktop.keybindings.wm/unmaximize|"
         u"mate:org.mate.Marco.window-keybindings/unmaximize|"
         u"openbox:Unmaximize"}},
    Row{u"tile-left",
        u"Okno na levou polovinu",
        okna,
        u"Přichytí okno k levé polovině obrazovky.",
        {u"⌘ ←", u"gnome:org.gnome.mutter.keybindings/toggle-tiled-left"},
        {u"⌘ ←", u"kde:kwin/Window Quick Tile Left"},
        {},
        {{},
         u"cinnamon:org.cinnamon.desktop.keybindings.wm/push-tile-left|"
         u"mate:org.mate.Marco.window-keybindings/tile-to-side-w"}},
    Row{u"tile-right",
        u"Okno na pravou polovinu",
        okna,
        u"Přichytí okno k pravé polovině obrazovky.",
        {u"⌘ →", u"gnome:org.gnome.mutter.keybindings/toggle-tiled-right"},
        {u"⌘ →", u"kde:kwin/Window Quick Tile Right"},
        {},
        {{},
         u"cinnamon:org.cinnamon.desktop.keybindings.wm/push-tile-right|"
         u"mate:org.mate.Marco.window-keybindings/tile-to-side-e"}},
    Row{u"full-screen",
        u"Celá obrazovka",
        okna,
        u"Zobrazí okno přes celou obrazovku.",
        {u"F11"},
        {u"⌃ ⇧ F"},
        {u"⌥ F11", u"xfce:xfwm4/fullscreen_key"},
        {u"F11"}},
    Row{u"window-menu",
        u"Nabídka okna",
        okna,
        u"Otevře nabídku s příkazy pro aktuální okno.",
        {u"⌥ Mezerník", u"gnome:org.gnome.desktop.wm.keybindings/activate-window-menu"},
        {u"⌥ F3", u"kde:kwin/Window Operations Menu"},
        {u"⌥ Mezerník", u"xfce:xfwm4/popup_menu_key"},
        {{},
         u"cinnamon:org.cinnamon.desktop.keybindings.wm/activate-window-menu|"
         u"mate:org.mate.Marco.window-keybindings/activate-window-menu|"
         u"openbox:ShowMenu/client-menu"}},
    Row{u"window-move",
        u"Přesunout okno",
        okna,
        u"Okno pak posouváte šipkami, Enter ho pustí.",
        {u"⌥ F7", u"gnome:org.gnome.desktop.wm.keybindings/begin-move"},
        {},
        {u"⌥ F7", u"xfce:xfwm4/move_window_key"},
        {{},
         u"cinnamon:org.cinnamon.desktop.keybindings.wm/begin-move|"
         u"mate:org.mate.Marco.window-keybindings/begin-move|"
         u"openbox:Move"}},
    Row{u"window-resize",
        u"Změnit velikost okna",
        okna,
        u"Velikost pak měníte šipkami, Enter ji potvrdí.",
        {u"⌥ F8", u"gnome:org.gnome.desktop.wm.keybindings/begin-resize"},
        {},
        {u"⌥ F8", u"xfce:xfwm4/resize_window_key"},
        {{},
         u"cinnamon:org.cinnamon.desktop.keybindings.wm/begin-resize|"
         u"mate:org.mate.Marco.window-keybindings/begin-resize|"
         u"openbox:Resize"}},
    Row{u"mission-control",
        u"Přehled oken",
        okna,
        u"Zobrazí všechna otevřená okna a plochy.",
        {u"⌥ ⌘ ↑", u"gnome:org.gnome.shell.keybindings/shift-overview-up"},
        {u"⌘ W", u"kde:kwin/Overview"},
        {},
        {{}, u"cinnamon:org.cinnamon.desktop.keybindings.wm/switch-to-workspace-down"}},
    Row{u"app-windows",
        u"Okna aktuální aplikace",
        okna,
        u"Zobrazí všechna okna aktivní aplikace.",
        {},
        {u"⌃ F7", u"kde:kwin/ExposeClass"},
        {},
        {}},
    Row{u"desktop",
        u"Zobrazit plochu",
        okna,
        u"Odkryje pracovní plochu.",
        {},
        {u"⌘ D", u"kde:kwin/Show Desktop"},
        {u"⌃ ⌥ D", u"xfce:xfwm4/show_desktop_key"},
        {{},
         u"cinnamon:org.cinnamon.desktop.keybindings.wm/show-desktop|"
         u"mate:org.mate.Marco.global-keybindings/show-desktop|"
         u"openbox:ToggleShowDesktop"}},
    Row{u"workspace-left",
        u"Na předchozí plochu",
        okna,
        u"Přepne na pracovní plochu vlevo.",
        {u"⌘ ⇞", u"gnome:org.gnome.desktop.wm.keybindings/switch-to-workspace-left"},
        {u"⌃ ⌘ ←", u"kde:kwin/Switch One Desktop to the Left"},
        {u"⌃ ⌥ ←", u"xfce:xfwm4/left_workspace_key"},
        {{},
         u"cinnamon:org.cinnamon.desktop.keybindings.wm/switch-to-workspace-left|"
         u"mate:org.mate.Marco.global-keybindings/switch-to-workspace-left|"
         u"openbox:GoToDesktop/left"}},
    Row{u"workspace-right",
        u"Na další plochu",
        okna,
        u"Přepne na pracovní plochu vpravo.",
        {u"⌘ ⇟", u"gnome:org.gnome.desktop.wm.keybindings/switch-to-workspace-right"},
        {u"⌃ ⌘ →", u"kde:kwin/Switch One Desktop to the Right"},
        {u"⌃ ⌥ →", u"xfce:xfwm4/right_workspace_key"},
        {{},
         u"cinnamon:org.cinnamon.desktop.keybindings.wm/switch-to-workspace-right|"
         u"mate:org.mate.Marco.global-keybindings/switch-to-workspace-right|"
         u"openbox:GoToDesktop/right"}},
    Row{u"window-workspace-left",
        u"Okno na předchozí plochu",
        okna,
        u"Vezme okno s sebou na pracovní plochu vlevo.",
        {u"⇧ ⌘ ⇞", u"gnome:org.gnome.desktop.wm.keybindings/move-to-workspace-left"},
        {u"⌃ ⇧ ⌘ ←", u"kde:kwin/Window One Desktop to the Left"},
        {u"⌃ ⌥ ↖", u"xfce:xfwm4/move_window_prev_workspace_key"},
        {{},
         u"cinnamon:org.cinnamon.desktop.keybindings.wm/move-to-workspace-left|"
         u"mate:org.mate.Marco.window-keybindings/move-to-workspace-left|"
         u"openbox:SendToDesktop/left"}},
    Row{u"window-workspace-right",
        u"Okno na další plochu",
        okna,
        u"Vezme okno s sebou na pracovní plochu vpravo.",
        {u"⇧ ⌘ ⇟", u"gnome:org.gnome.desktop.wm.keybindings/move-to-workspace-right"},
        {u"⌃ ⇧ ⌘ →", u"kde:kwin/Window One Desktop to the Right"},
        {u"⌃ ⌥ ↘", u"xfce:xfwm4/move_window_next_workspace_key"},
        {{},
         u"cinnamon:org.cinnamon.desktop.keybindings.wm/move-to-workspace-right|"
         u"mate:org.mate.Marco.window-keybindings/move-to-workspace-right|"
         u"openbox:SendToDesktop/right"}},
    Row{u"window-screen-left",
        u"Okno na obrazovku vlevo",
        okna,
        u"Přesune okno na vedlejší obrazovku.",
        {u"⇧ ⌘ ←", u"gnome:org.gnome.desktop.wm.keybindings/move-to-monitor-left"},
        {u"⇧ ⌘ ←", u"kde:kwin/Window to Previous Screen"},
        {},
        {{},
         u"cinnamon:org.cinnamon.desktop.keybindings.wm/move-to-monitor-left|"
         u"mate:org.mate.Marco.window-keybindings/move-to-monitor-w"}},
    Row{u"window-screen-right",
        u"Okno na obrazovku vpravo",
        okna,
        u"Přesune okno na vedlejší obrazovku.",
        {u"⇧ ⌘ →", u"gnome:org.gnome.desktop.wm.keybindings/move-to-monitor-right"},
        {u"⇧ ⌘ →", u"kde:kwin/Window to Next Screen"},
        {},
        {{},
         u"cinnamon:org.cinnamon.desktop.keybindings.wm/move-to-monitor-right|"
         u"mate:org.mate.Marco.window-keybindings/move-to-monitor-e"}},
    Row{u"notifications",
        u"Oznámení",
        okna,
        u"Ukáže kalendář a přehled oznámení.",
        {u"⌘ V", u"gnome:org.gnome.shell.keybindings/toggle-message-tray"},
        {},
        {},
        {}},
    Row{u"screens",
        u"Připojené obrazovky",
        okna,
        u"Nabídne, co má být na které obrazovce.",
        {u"⌘ P", u"gnome:org.gnome.mutter.keybindings/switch-monitor"},
        {},
        {u"⌘ P", u"xfce:commands/xfce4-display-settings --minimal"},
        {{}, u"cinnamon:org.cinnamon.desktop.keybindings.wm/switch-monitor"}},
    Row{u"keyboard-layout",
        u"Rozložení klávesnice",
        okna,
        u"Přepne na další rozložení klávesnice.",
        {u"⌘ Mezerník", u"gnome:org.gnome.desktop.wm.keybindings/switch-input-source"},
        {},
        {},
        {}},
    Row{u"terminal",
        u"Terminál",
        okna,
        u"Otevře okno terminálu.",
        {},
        {u"⌃ ⌥ T", u"kde:org.kde.konsole.desktop/_launch"},
        {u"⌃ ⌥ T", u"xfce:commands/exo-open --launch TerminalEmulator"},
        {{},
         u"cinnamon:org.cinnamon.desktop.keybindings.media-keys/terminal|"
         u"mate:org.mate.Marco.global-keybindings/run-command-terminal"}},
    Row{u"terminal-copy",
        u"Kopírovat v terminálu",
        okna,
        u"Zkopíruje vybraný text z okna terminálu.",
        {u"⌃ ⇧ C"},
        {},
        {u"⌃ ⇧ C"},
        {}},
    Row{u"terminal-paste",
        u"Vložit v terminálu",
        okna,
        u"Vloží obsah schránky do příkazového řádku.",
        {u"⌃ ⇧ V"},
        {},
        {u"⌃ ⇧ V"},
        {}},
    Row{u"task-manager",
        u"Správce úloh",
        okna,
        u"Ukáže, které programy zatěžují počítač.",
        {},
        {},
        {u"⌃ ⇧ Esc", u"xfce:commands/xfce4-taskmanager"},
        {}},
    Row{u"file-manager",
        u"Správce souborů",
        finder,
        u"Otevře okno se soubory.",
        {},
        {u"⌘ E", u"kde:org.kde.dolphin.desktop/_launch"},
        {u"⌘ E", u"xfce:commands/thunar"},
        {}},
    everywhere(u"home", u"Domovská složka", finder, u"Otevře domovskou složku uživatele.", u"⌥ ↖"),
    everywhere(u"parent-folder", u"O složku výš", finder, u"Přejde do nadřazené složky.", u"⌥ ↑"),
    everywhere(
        u"hidden-files", u"Skryté soubory", finder, u"Ukáže nebo schová skryté soubory.", u"⌃ H"),
    Row{u"info",
        u"Informace o souboru",
        finder,
        u"Zobrazí informace o vybrané položce.",
        {u"⌥ ↩"},
        {},
        {u"⌥ ↩"},
        {}},
    everywhere(
        u"reload", u"Načíst znovu", prohlizec, u"Aktualizuje právě otevřenou stránku nebo složku.",
        u"F5"),
    everywhere(
        u"back", u"Zpět", prohlizec, u"Vrátí se na předchozí stránku nebo do předchozí složky.",
        u"⌥ ←"),
    everywhere(
        u"forward", u"Vpřed", prohlizec, u"Přejde na stránku, ze které jste se vrátili.", u"⌥ →"),
    everywhere(
        u"history", u"Historie prohlížení", prohlizec, u"Otevře historii prohlížení.", u"⌃ H"),
    everywhere(
        u"downloads-browser", u"Stažené soubory", prohlizec,
        u"Zobrazí stažené soubory. Ve Firefoxu se Shiftem a Y místo J.", u"⌃ J"),
    everywhere(
        u"private", u"Nové anonymní okno", prohlizec,
        u"Otevře nové anonymní okno. Ve Firefoxu s P místo N.", u"⌃ ⇧ N"),
    everywhere(u"next-tab", u"Další panel", prohlizec, u"Přepne na panel vpravo.", u"⌃ ⇟"),
    everywhere(u"previous-tab", u"Předchozí panel", prohlizec, u"Přepne na panel vlevo.", u"⌃ ⇞"),
    everywhere(
        u"zoom-in", u"Přiblížit", prohlizec, u"Zvětší obsah stránky nebo dokumentu.", u"⌃ +"),
    everywhere(u"zoom-out", u"Oddálit", prohlizec, u"Zmenší obsah stránky nebo dokumentu.", u"⌃ −"),
    everywhere(
        u"zoom-reset", u"Skutečná velikost", prohlizec, u"Vrátí výchozí velikost zobrazení.",
        u"⌃ 0"),
    Row{u"logout",
        u"Odhlásit uživatele",
        okna,
        u"Zobrazí potvrzení odhlášení. Nejdřív uložte rozdělanou práci.",
        {u"⌃ ⌥ ⌦", u"gnome:org.gnome.settings-daemon.plugins.media-keys/logout"},
        {u"⌃ ⌥ ⌦", u"kde:ksmserver/Log Out"},
        {u"⌃ ⌥ ⌦", u"xfce:commands/xfce4-session-logout"},
        {{}, u"cinnamon:org.cinnamon.desktop.keybindings.media-keys/logout"}},
};

const Binding &bindingOf(const Row &row, DesktopFamily family)
{
    switch (family) {
    case DesktopFamily::gnome:
        return row.gnome;
    case DesktopFamily::kde:
        return row.kde;
    case DesktopFamily::xfce:
        return row.xfce;
    case DesktopFamily::other:
        break;
    }
    return row.other;
}

QStringList tokens(QStringView keys)
{
    QStringList tokens;
    for (const QStringView token : keys.split(u' ', Qt::SkipEmptyParts))
        tokens.append(token.toString());
    return tokens;
}

} // namespace

QList<DesktopShortcut> DesktopLibrary::of(DesktopFamily family)
{
    QList<DesktopShortcut> shortcuts;
    for (const Row &row : rows) {
        const Binding &binding = bindingOf(row, family);
        if (binding.keys.isEmpty() && binding.actions.isEmpty())
            continue;
        shortcuts.append(
            {.shortcut =
                 {.id = row.id.toString(),
                  .title = row.title.toString(),
                  .keys = tokens(binding.keys),
                  .category = row.category,
                  .apps = {},
                  .detail = row.detail.toString()},
             .actions = binding.actions.toString().split(u'|', Qt::SkipEmptyParts)});
    }
    return shortcuts;
}

} // namespace hmatnik
