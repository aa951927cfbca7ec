#include "platform/linux/shortcuts/CommandTitle.h"

#include <QHash>

namespace hmatnik::platform {

using namespace Qt::StringLiterals;

QString commandTitle(const QString &command)
{
    const QString text = command.simplified();
    // Commands of the Xfce desktop, by which it means whatever program the person prefers.
    static const QHash<QString, QString> known{
        {u"exo-open --launch TerminalEmulator"_s, u"Otevřít terminál"_s},
        {u"exo-open --launch WebBrowser"_s, u"Otevřít prohlížeč"_s},
        {u"exo-open --launch MailReader"_s, u"Otevřít poštu"_s},
        {u"exo-open --launch FileManager"_s, u"Otevřít správce souborů"_s},
        {u"xfce4-popup-applicationsmenu"_s, u"Nabídka aplikací"_s},
        {u"xfce4-appfinder"_s, u"Vyhledat aplikaci"_s},
        {u"xfce4-appfinder --collapsed"_s, u"Spustit příkaz"_s},
        {u"xfce4-appfinder -c"_s, u"Spustit příkaz"_s},
        {u"xfce4-session-logout"_s, u"Odhlásit se"_s},
        {u"xflock4"_s, u"Zamknout obrazovku"_s},
        {u"xfce4-display-settings --minimal"_s, u"Nastavení obrazovek"_s},
        {u"xfdesktop --menu"_s, u"Nabídka plochy"_s},
        {u"xfce4-screenshooter"_s, u"Snímek obrazovky"_s},
        {u"xfce4-screenshooter -w"_s, u"Snímek okna"_s},
        {u"xfce4-screenshooter -r"_s, u"Snímek výběru"_s},
        {u"xfce4-taskmanager"_s, u"Správce úloh"_s},
        {u"xkill"_s, u"Vynutit ukončení okna"_s},
        {u"thunar"_s, u"Otevřít správce souborů"_s},
        {u"orca"_s, u"Čtečka obrazovky"_s}};
    if (text.isEmpty())
        return {};
    return known.value(text, u"Spustit "_s + text);
}

} // namespace hmatnik::platform
