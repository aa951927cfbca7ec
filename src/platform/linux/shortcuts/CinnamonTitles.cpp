#include "platform/linux/shortcuts/CinnamonTitles.h"

#include <QHash>

namespace hmatnik::platform {

using namespace Qt::StringLiterals;

namespace {

QHash<QString, QString> allTitles()
{
    QHash<QString, QString> titles{
        // Windows.
        {u"activate-window-menu"_s, u"Nabídka okna"_s},
        {u"begin-move"_s, u"Přesunout okno"_s},
        {u"begin-resize"_s, u"Změnit velikost okna"_s},
        {u"close"_s, u"Zavřít okno"_s},
        {u"decrease-opacity"_s, u"Průhlednější okno"_s},
        {u"increase-opacity"_s, u"Méně průhledné okno"_s},
        {u"lower"_s, u"Okno dospodu"_s},
        {u"maximize"_s, u"Maximalizovat okno"_s},
        {u"maximize-horizontally"_s, u"Maximalizovat okno vodorovně"_s},
        {u"maximize-vertically"_s, u"Maximalizovat okno svisle"_s},
        {u"minimize"_s, u"Minimalizovat okno"_s},
        {u"move-to-center"_s, u"Okno doprostřed"_s},
        {u"move-to-corner-ne"_s, u"Okno do pravého horního rohu"_s},
        {u"move-to-corner-nw"_s, u"Okno do levého horního rohu"_s},
        {u"move-to-corner-se"_s, u"Okno do pravého dolního rohu"_s},
        {u"move-to-corner-sw"_s, u"Okno do levého dolního rohu"_s},
        {u"move-to-monitor-down"_s, u"Okno na obrazovku dole"_s},
        {u"move-to-monitor-left"_s, u"Okno na obrazovku vlevo"_s},
        {u"move-to-monitor-right"_s, u"Okno na obrazovku vpravo"_s},
        {u"move-to-monitor-up"_s, u"Okno na obrazovku nahoře"_s},
        {u"move-to-side-e"_s, u"Okno k pravému okraji"_s},
        {u"move-to-side-n"_s, u"Okno k hornímu okraji"_s},
        {u"move-to-side-s"_s, u"Okno k dolnímu okraji"_s},
        {u"move-to-side-w"_s, u"Okno k levému okraji"_s},
        {u"push-snap-down"_s, u"Přichytit okno dole"_s},
        {u"push-snap-left"_s, u"Přichytit okno vlevo"_s},
        {u"push-snap-right"_s, u"Přichytit okno vpravo"_s},
        {u"push-snap-up"_s, u"Přichytit okno nahoře"_s},
        {u"push-tile-down"_s, u"Okno do dolní poloviny"_s},
        {u"push-tile-left"_s, u"Okno do levé poloviny"_s},
        {u"push-tile-right"_s, u"Okno do pravé poloviny"_s},
        {u"push-tile-up"_s, u"Okno do horní poloviny"_s},
        {u"raise"_s, u"Okno navrch"_s},
        {u"raise-or-lower"_s, u"Okno navrch, nebo dospodu"_s},
        {u"show-desktop"_s, u"Ukázat plochu"_s},
        {u"switch-group"_s, u"Přepnout okno aplikace"_s},
        {u"switch-group-backward"_s, u"Přepnout okno aplikace zpět"_s},
        {u"switch-monitor"_s, u"Přepnout zapojení obrazovek"_s},
        {u"switch-panels"_s, u"Přepnout panel"_s},
        {u"switch-panels-backward"_s, u"Přepnout panel zpět"_s},
        {u"switch-windows"_s, u"Přepnout okno"_s},
        {u"switch-windows-backward"_s, u"Přepnout okno zpět"_s},
        {u"rotate-monitor"_s, u"Otočit obrazovku"_s},
        {u"toggle-above"_s, u"Okno vždy navrchu"_s},
        {u"toggle-fullscreen"_s, u"Okno na celou obrazovku"_s},
        {u"toggle-maximized"_s, u"Maximalizovat okno, nebo obnovit"_s},
        {u"toggle-on-all-workspaces"_s, u"Okno na všechny plochy"_s},
        {u"toggle-shaded"_s, u"Sbalit okno"_s},
        {u"unmaximize"_s, u"Obnovit velikost okna"_s},
        // Workspaces. Those above and below are the overviews of all windows and all workspaces.
        {u"move-to-workspace-down"_s, u"Okno na plochu dole"_s},
        {u"move-to-workspace-left"_s, u"Okno na plochu vlevo"_s},
        {u"move-to-workspace-new"_s, u"Okno na novou plochu"_s},
        {u"move-to-workspace-right"_s, u"Okno na plochu vpravo"_s},
        {u"move-to-workspace-up"_s, u"Okno na plochu nahoře"_s},
        {u"switch-to-workspace-down"_s, u"Přehled oken"_s},
        {u"switch-to-workspace-left"_s, u"Plocha vlevo"_s},
        {u"switch-to-workspace-right"_s, u"Plocha vpravo"_s},
        {u"switch-to-workspace-up"_s, u"Přehled ploch"_s},
        // The desktop itself.
        {u"area-screenshot"_s, u"Snímek výběru"_s},
        {u"area-screenshot-clip"_s, u"Snímek výběru do schránky"_s},
        {u"calculator"_s, u"Otevřít kalkulačku"_s},
        {u"decrease-text-size"_s, u"Zmenšit písmo"_s},
        {u"email"_s, u"Otevřít poštu"_s},
        {u"help"_s, u"Otevřít nápovědu"_s},
        {u"hibernate"_s, u"Hibernovat"_s},
        {u"home"_s, u"Otevřít domovskou složku"_s},
        {u"increase-text-size"_s, u"Zvětšit písmo"_s},
        {u"logout"_s, u"Odhlásit se"_s},
        {u"looking-glass-keybinding"_s, u"Ladicí okno plochy"_s},
        {u"magnifier-zoom-in"_s, u"Zvětšit lupou"_s},
        {u"magnifier-zoom-out"_s, u"Zmenšit lupou"_s},
        {u"on-screen-keyboard"_s, u"Klávesnice na obrazovce"_s},
        {u"panel-run-dialog"_s, u"Spustit příkaz"_s},
        {u"restart-cinnamon"_s, u"Spustit plochu znovu"_s},
        {u"screenreader"_s, u"Čtečka obrazovky"_s},
        {u"screensaver"_s, u"Zamknout obrazovku"_s},
        {u"screenshot"_s, u"Snímek obrazovky"_s},
        {u"screenshot-clip"_s, u"Snímek obrazovky do schránky"_s},
        {u"search"_s, u"Hledat"_s},
        {u"show-desklets"_s, u"Ukázat miniaplikace plochy"_s},
        {u"shutdown"_s, u"Vypnout počítač"_s},
        {u"suspend"_s, u"Uspat počítač"_s},
        {u"terminal"_s, u"Otevřít terminál"_s},
        {u"toggle-contrast"_s, u"Vysoký kontrast"_s},
        {u"toggle-recording"_s, u"Nahrávat obrazovku"_s},
        {u"video-rotation-lock"_s, u"Zámek otočení obrazovky"_s},
        {u"window-screenshot"_s, u"Snímek okna"_s},
        {u"window-screenshot-clip"_s, u"Snímek okna do schránky"_s},
        {u"www"_s, u"Otevřít prohlížeč"_s}};
    constexpr int workspaces = 12;
    for (int i = 1; i <= workspaces; ++i) {
        const QString number = QString::number(i);
        titles.insert(u"switch-to-workspace-"_s + number, u"Plocha "_s + number);
        titles.insert(u"move-to-workspace-"_s + number, u"Okno na plochu "_s + number);
    }
    return titles;
}

} // namespace

QString cinnamonTitle(const QString &key)
{
    static const QHash<QString, QString> titles = allTitles();
    return titles.value(key);
}

} // namespace hmatnik::platform
