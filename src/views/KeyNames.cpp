#include "views/KeyNames.h"

#include <QHash>

namespace hmatnik::KeyNames {

using namespace Qt::StringLiterals;

QString shown(const QString &token)
{
    if (token == "\r"_L1)
        return u"↩"_s;
    if (token == "\x1b"_L1)
        return u"⎋"_s;
    if (token == "\x7f"_L1)
        return u"⌦"_s;
    return token;
}

QString spoken(const QString &token)
{
    static const QHash<QString, QString> words{
        {u"⌃"_s, u"Control"_s},
        {u"⌥"_s, u"Option"_s},
        {u"⇧"_s, u"Shift"_s},
        {u"⌘"_s, u"Command"_s},
        {u"←"_s, u"Šipka vlevo"_s},
        {u"→"_s, u"Šipka vpravo"_s},
        {u"↑"_s, u"Šipka nahoru"_s},
        {u"↓"_s, u"Šipka dolů"_s},
        {u"⌫"_s, u"Backspace"_s},
        {u"⌦"_s, u"Delete"_s},
        {u"↩"_s, u"Enter"_s},
        {u"⇥"_s, u"Tab"_s},
        {u"⎋"_s, u"Escape"_s},
        {u"⇞"_s, u"Page Up"_s},
        {u"⇟"_s, u"Page Down"_s},
        {u"↖"_s, u"Home"_s},
        {u"↘"_s, u"End"_s},
        {u","_s, u"Čárka"_s},
        {u"+"_s, u"Plus"_s},
        {u"−"_s, u"Minus"_s},
        {u"-"_s, u"Spojovník"_s},
        {u"="_s, u"Rovná se"_s},
        {u";"_s, u"Středník"_s},
        {u"'"_s, u"Apostrof"_s},
        {u"["_s, u"Levá hranatá závorka"_s},
        {u"]"_s, u"Pravá hranatá závorka"_s},
    };
    return words.value(shown(token), token);
}

QString spoken(const QStringList &tokens)
{
    QStringList words;
    for (const QString &token : tokens)
        words.append(spoken(token));
    return words.join(u' ');
}

} // namespace hmatnik::KeyNames
