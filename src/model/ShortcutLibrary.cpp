#include "model/ShortcutLibrary.h"

#include <QStringView>

namespace hmatnik {

namespace {

/// One record with its lists as text: keys separated by spaces, applications by commas.
struct Row
{
    QStringView id;
    QStringView title;
    QStringView keys;
    Shortcut::Category category = Shortcut::Category::zaklady;
    QStringView apps;
    QStringView detail;
};

using enum Shortcut::Category;

constexpr QStringView everywhere;
constexpr QStringView finderApp = u"Finder";
constexpr QStringView safari = u"Safari";
constexpr QStringView tabbedBrowsers = u"Safari,Google Chrome,Arc";
constexpr QStringView allBrowsers = u"Safari,Google Chrome,Arc,Firefox";
constexpr QStringView chromeFamily = u"Google Chrome,Arc";
constexpr QStringView writers = u"Pages,Microsoft Word,Poznámky";

// The order is part of the data: the grid shows it, and where several records would answer, the
// first one does.
constexpr std::array rows{
    Row{u"copy", u"Kopírovat", u"⌘ C", zaklady, everywhere, u"Zkopíruje vybraný text nebo soubor."},
    Row{u"paste", u"Vložit", u"⌘ V", zaklady, everywhere, u"Vloží obsah schránky."},
    Row{u"undo", u"Vrátit zpět", u"⌘ Z", zaklady, everywhere, u"Vrátí poslední provedenou akci."},
    Row{u"redo", u"Provést znovu", u"⇧ ⌘ Z", zaklady, everywhere, u"Znovu provede vrácenou akci."},
    Row{u"save", u"Uložit", u"⌘ S", zaklady, everywhere, u"Uloží aktuální dokument."},
    Row{u"select-all", u"Vybrat vše", u"⌘ A", zaklady, everywhere, u"Vybere veškerý obsah."},
    Row{u"find", u"Najít", u"⌘ F", text, everywhere,
        u"Vyhledá text v aktuálním dokumentu nebo stránce."},
    Row{u"emoji", u"Emoji a symboly", u"⌃ ⌘ Mezerník", text, everywhere,
        u"Otevře systémový výběr emoji a symbolů."},
    Row{u"spotlight", u"Spotlight", u"⌘ Mezerník", okna, everywhere,
        u"Rychle najde aplikaci, soubor nebo informaci."},
    Row{u"switch-app", u"Přepnout aplikaci", u"⌘ Tab", okna, everywhere,
        u"Přepíná mezi spuštěnými aplikacemi."},
    Row{u"close-window", u"Zavřít okno", u"⌘ W", okna, everywhere,
        u"Zavře aktuální okno nebo panel."},
    Row{u"force-quit", u"Vynutit ukončení", u"⌥ ⌘ Esc", okna, everywhere,
        u"Otevře nabídku pro ukončení nereagující aplikace."},
    Row{u"lock", u"Zamknout Mac", u"⌃ ⌘ Q", okna, everywhere, u"Okamžitě zamkne obrazovku."},
    Row{u"new-folder", u"Nová složka", u"⇧ ⌘ N", finder, finderApp,
        u"Vytvoří novou složku ve Finderu."},
    Row{u"go-folder", u"Přejít do složky", u"⇧ ⌘ G", finder, finderApp,
        u"Otevře cestu zadanou ručně."},
    Row{u"trash", u"Přesunout do koše", u"⌘ Delete", finder, finderApp,
        u"Přesune vybrané položky do koše."},
    Row{u"quick-look", u"Rychlý náhled", u"Mezerník", finder, finderApp,
        u"Zobrazí náhled souboru bez otevření."},
    Row{u"shot-full", u"Vyfotit celou obrazovku", u"⇧ ⌘ 3", snimky, everywhere,
        u"Uloží snímek celé obrazovky."},
    Row{u"shot-area", u"Vyfotit výřez", u"⇧ ⌘ 4", snimky, everywhere,
        u"Umožní tažením vybrat část obrazovky."},
    Row{u"shot-tools", u"Snímání a záznam", u"⇧ ⌘ 5", snimky, everywhere,
        u"Otevře panel snímků a nahrávání obrazovky."},
    Row{u"new-tab", u"Nový panel", u"⌘ T", prohlizec, tabbedBrowsers,
        u"Otevře nový panel prohlížeče."},
    Row{u"restore-tab", u"Obnovit zavřený panel", u"⇧ ⌘ T", prohlizec, tabbedBrowsers,
        u"Vrátí naposledy zavřený panel."},
    Row{u"address", u"Přejít do adresního řádku", u"⌘ L", prohlizec, allBrowsers,
        u"Označí adresu stránky, abyste mohli rovnou psát."},
    Row{u"print", u"Tisknout", u"⌘ P", zaklady, everywhere, u"Otevře dialog tisku."},
    Row{u"new", u"Nový dokument", u"⌘ N", zaklady, everywhere, u"Vytvoří nový dokument nebo okno."},
    Row{u"open", u"Otevřít", u"⌘ O", zaklady, everywhere, u"Otevře existující soubor."},
    Row{u"preferences", u"Nastavení aplikace", u"⌘ ,", zaklady, everywhere,
        u"Otevře nastavení právě používané aplikace."},
    Row{u"bold", u"Tučné písmo", u"⌘ B", text, writers, u"Zapne nebo vypne tučné formátování."},
    Row{u"italic", u"Kurzíva", u"⌘ I", text, writers, u"Zapne nebo vypne kurzívu."},
    Row{u"underline", u"Podtržení", u"⌘ U", text, writers, u"Zapne nebo vypne podtržení."},
    Row{u"word-left", u"O slovo doleva", u"⌥ ←", text, everywhere,
        u"Přesune kurzor na začátek předchozího slova."},
    Row{u"word-right", u"O slovo doprava", u"⌥ →", text, everywhere,
        u"Přesune kurzor na konec dalšího slova."},
    Row{u"line-start", u"Začátek řádku", u"⌘ ←", text, everywhere,
        u"Přesune kurzor na začátek řádku."},
    Row{u"line-end", u"Konec řádku", u"⌘ →", text, everywhere, u"Přesune kurzor na konec řádku."},
    Row{u"hide", u"Skrýt aplikaci", u"⌘ H", okna, everywhere,
        u"Skryje všechna okna aktuální aplikace."},
    Row{u"minimize", u"Minimalizovat okno", u"⌘ M", okna, everywhere,
        u"Minimalizuje aktuální okno do Docku."},
    Row{u"mission-control", u"Mission Control", u"⌃ ↑", okna, everywhere,
        u"Zobrazí všechna otevřená okna a plochy."},
    Row{u"app-windows", u"Okna aktuální aplikace", u"⌃ ↓", okna, everywhere,
        u"Zobrazí všechna okna aktivní aplikace."},
    Row{u"desktop", u"Zobrazit plochu", u"Fn F11", okna, everywhere, u"Odkryje pracovní plochu."},
    Row{u"applications", u"Otevřít Aplikace", u"⇧ ⌘ A", finder, finderApp,
        u"Otevře složku Aplikace."},
    Row{u"downloads", u"Otevřít Stažené", u"⌥ ⌘ L", finder, finderApp, u"Otevře složku Stažené."},
    Row{u"home", u"Domovská složka", u"⇧ ⌘ H", finder, finderApp,
        u"Otevře domovskou složku uživatele."},
    Row{u"info", u"Informace o souboru", u"⌘ I", finder, finderApp,
        u"Zobrazí informace o vybrané položce."},
    Row{u"duplicate", u"Duplikovat", u"⌘ D", finder, finderApp, u"Vytvoří kopii vybrané položky."},
    Row{u"reload", u"Načíst stránku znovu", u"⌘ R", prohlizec, allBrowsers,
        u"Aktualizuje právě otevřenou stránku."},
    Row{u"history", u"Historie prohlížení", u"⌘ Y", prohlizec, chromeFamily,
        u"Otevře historii prohlížení."},
    Row{u"downloads-browser", u"Stažené soubory", u"⌥ ⌘ L", prohlizec, safari,
        u"Zobrazí stažené soubory."},
    Row{u"private", u"Nové anonymní okno", u"⇧ ⌘ N", prohlizec, chromeFamily,
        u"Otevře nové anonymní okno."},
    Row{u"zoom-in", u"Přiblížit", u"⌘ +", prohlizec, everywhere,
        u"Zvětší obsah stránky nebo dokumentu."},
    // U+2212 MINUS SIGN, as printed on the key; not the hyphen.
    Row{u"zoom-out", u"Oddálit", u"⌘ −", prohlizec, everywhere,
        u"Zmenší obsah stránky nebo dokumentu."},
    Row{u"zoom-reset", u"Skutečná velikost", u"⌘ 0", prohlizec, everywhere,
        u"Vrátí výchozí velikost zobrazení."},
    Row{u"shot-clipboard", u"Výřez do schránky", u"⌃ ⇧ ⌘ 4", snimky, everywhere,
        u"Zkopíruje výřez obrazovky přímo do schránky."},
    Row{u"dock-toggle", u"Skrýt nebo zobrazit Dock", u"⌥ ⌘ D", okna, everywhere,
        u"Přepne viditelnost Docku."},
    Row{u"computer", u"Počítač", u"⇧ ⌘ C", finder, finderApp,
        u"Otevře ve Finderu přehled disků tohoto Macu."},
    Row{u"icloud", u"iCloud Drive", u"⇧ ⌘ I", finder, finderApp,
        u"Otevře iCloud Drive ve Finderu."},
    Row{u"recents", u"Poslední položky", u"⇧ ⌘ F", finder, finderApp,
        u"Zobrazí naposledy používané soubory."},
    Row{u"minimize-all", u"Minimalizovat všechna okna", u"⌥ ⌘ M", okna, everywhere,
        u"Minimalizuje všechna okna aktivní aplikace."},
    Row{u"logout", u"Odhlásit uživatele", u"⇧ ⌘ Q", okna, everywhere,
        u"Zobrazí potvrzení odhlášení. Nejdřív uložte rozdělanou práci."},
};
static_assert(rows.size() == 58);

QStringList split(QStringView list, QChar separator)
{
    QStringList strings;
    for (const QStringView element : list.split(separator, Qt::SkipEmptyParts))
        strings.append(element.toString());
    return strings;
}

QList<Shortcut> build()
{
    QList<Shortcut> shortcuts;
    shortcuts.reserve(qsizetype(rows.size()));
    for (const Row &row : rows) {
        shortcuts.append({
            .id = row.id.toString(),
            .title = row.title.toString(),
            .keys = split(row.keys, u' '),
            .category = row.category,
            .apps = split(row.apps, u','),
            .detail = row.detail.toString(),
        });
    }
    return shortcuts;
}

} // namespace

const QList<Shortcut> &ShortcutLibrary::all()
{
    static const QList<Shortcut> shortcuts = build();
    return shortcuts;
}

} // namespace hmatnik
