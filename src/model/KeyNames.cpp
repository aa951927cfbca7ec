#include "model/KeyNames.h"

#include "model/Shortcut.h"

#include <QHash>
#include <QSet>

#include <algorithm>

namespace hmatnik::KeyNames {

using namespace Qt::StringLiterals;

namespace {

/// Words for what screen readers skip, the same on every keyboard.
const QHash<QString, QString> &commonWords()
{
    static const QHash<QString, QString> words{
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
        {u"."_s, u"Tečka"_s},
        {u"+"_s, u"Plus"_s},
        {u"−"_s, u"Minus"_s},
        {u"-"_s, u"Spojovník"_s},
        {u"="_s, u"Rovná se"_s},
        {u";"_s, u"Středník"_s},
        {u"'"_s, u"Apostrof"_s},
        {u"["_s, u"Levá hranatá závorka"_s},
        {u"]"_s, u"Pravá hranatá závorka"_s},
    };
    return words;
}

const QHash<QString, QString> &macWords()
{
    static const QHash<QString, QString> words{
        {u"⌃"_s, u"Control"_s},
        {u"⌥"_s, u"Option"_s},
        {u"⇧"_s, u"Shift"_s},
        {u"⌘"_s, u"Command"_s},
        // The key above Return is "Delete" there, so the other one is told from it.
        {u"⌫"_s, u"Delete"_s},
        {u"⌦"_s, u"Delete vpřed"_s},
    };
    return words;
}

/// Where they differ from what stands on the key.
const QHash<QString, QString> &pcWords()
{
    static const QHash<QString, QString> words{
        {u"⌃"_s, u"Control"_s},
        {u"Esc"_s, u"Escape"_s},
    };
    return words;
}

const QHash<QString, QString> &pcCaptions()
{
    static const QHash<QString, QString> captions{
        {u"⌃"_s, u"Ctrl"_s},
        {u"⌥"_s, u"Alt"_s},
        {u"⇧"_s, u"Shift"_s},
        {u"⌘"_s, u"Super"_s},
        // The key above Return, which deletes backwards.
        {u"Delete"_s, u"Backspace"_s},
        {u"⌫"_s, u"Backspace"_s},
        {u"⌦"_s, u"Delete"_s},
        {u"↩"_s, u"Enter"_s},
        {u"⇥"_s, u"Tab"_s},
        {u"⎋"_s, u"Esc"_s},
        {u"⇞"_s, u"Page Up"_s},
        {u"⇟"_s, u"Page Down"_s},
        {u"↖"_s, u"Home"_s},
        {u"↘"_s, u"End"_s},
        {u"␣"_s, u"Mezerník"_s},
    };
    return captions;
}

/// What people call the keys of a PC, in lower case and without diacritics.
const QHash<QString, QString> &pcTokens()
{
    static const QHash<QString, QString> tokens{
        {u"ctrl"_s, u"⌃"_s},
        {u"control"_s, u"⌃"_s},
        {u"alt"_s, u"⌥"_s},
        {u"shift"_s, u"⇧"_s},
        {u"super"_s, u"⌘"_s},
        {u"meta"_s, u"⌘"_s},
        {u"logo"_s, u"⌘"_s},
        {u"cmd"_s, u"⌘"_s},
        {u"command"_s, u"⌘"_s},
        {u"option"_s, u"⌥"_s},
        {u"win"_s, u"⌘"_s},
        {u"windows"_s, u"⌘"_s},
        {u"fn"_s, u"Fn"_s},
        {u"altgr"_s, u"AltGr"_s},
        {u"alt gr"_s, u"AltGr"_s},
        {u"backspace"_s, u"Delete"_s},
        {u"delete"_s, u"⌦"_s},
        {u"del"_s, u"⌦"_s},
        {u"insert"_s, u"Insert"_s},
        {u"ins"_s, u"Insert"_s},
        {u"enter"_s, u"↩"_s},
        {u"return"_s, u"↩"_s},
        {u"tab"_s, u"Tab"_s},
        {u"esc"_s, u"Esc"_s},
        {u"escape"_s, u"Esc"_s},
        {u"mezernik"_s, u"Mezerník"_s},
        {u"mezera"_s, u"Mezerník"_s},
        {u"space"_s, u"Mezerník"_s},
        {u"home"_s, u"↖"_s},
        {u"end"_s, u"↘"_s},
        {u"page up"_s, u"⇞"_s},
        {u"pageup"_s, u"⇞"_s},
        {u"pgup"_s, u"⇞"_s},
        {u"page down"_s, u"⇟"_s},
        {u"pagedown"_s, u"⇟"_s},
        {u"pgdn"_s, u"⇟"_s},
        {u"pgdown"_s, u"⇟"_s},
        {u"print"_s, u"Print"_s},
        {u"print screen"_s, u"Print"_s},
        {u"printscreen"_s, u"Print"_s},
        {u"prtsc"_s, u"Print"_s},
        {u"prtscr"_s, u"Print"_s},
        {u"pause"_s, u"Pause"_s},
        {u"menu"_s, u"Menu"_s},
        {u"vlevo"_s, u"←"_s},
        {u"sipka vlevo"_s, u"←"_s},
        {u"doleva"_s, u"←"_s},
        {u"sipka doleva"_s, u"←"_s},
        {u"leva sipka"_s, u"←"_s},
        {u"left"_s, u"←"_s},
        {u"vpravo"_s, u"→"_s},
        {u"sipka vpravo"_s, u"→"_s},
        {u"doprava"_s, u"→"_s},
        {u"sipka doprava"_s, u"→"_s},
        {u"prava sipka"_s, u"→"_s},
        {u"right"_s, u"→"_s},
        {u"nahoru"_s, u"↑"_s},
        {u"sipka nahoru"_s, u"↑"_s},
        {u"up"_s, u"↑"_s},
        {u"dolu"_s, u"↓"_s},
        {u"sipka dolu"_s, u"↓"_s},
        {u"down"_s, u"↓"_s},
        {u"plus"_s, u"+"_s},
        {u"minus"_s, u"−"_s},
        {u"tecka"_s, u"."_s},
        {u"carka"_s, u","_s},
        {u"strednik"_s, u";"_s},
        {u"rovna se"_s, u"="_s},
        {u"apostrof"_s, u"'"_s},
        {u"leva hranata zavorka"_s, u"["_s},
        {u"prava hranata zavorka"_s, u"]"_s},
        // The minus of the notation, which no keyboard writes.
        {u"-"_s, u"−"_s},
    };
    return tokens;
}

/// A typed name in the form in which pcTokens() has it.
QString plainName(const QString &name)
{
    QString lower = name.simplified().toLower();
    if (std::ranges::all_of(lower, [](QChar character) { return character < u'\x80'; }))
        return lower;
    QString plain;
    for (const QChar character : lower.normalized(QString::NormalizationForm_D)) {
        if (character.category() != QChar::Mark_NonSpacing)
            plain += character;
    }
    return plain;
}

/// Keys that the quiz takes as the control character they write have the glyph of the key.
QString glyphOfControl(const QString &token)
{
    if (token == "\r"_L1)
        return u"↩"_s;
    if (token == "\x1b"_L1)
        return u"⎋"_s;
    if (token == "\x7f"_L1)
        return u"⌦"_s;
    return token;
}

/// The token that a press of the key gives with KeyNaming::all.
QString pressedToken(const QString &token)
{
    static const QHash<QString, QString> others{
        {u"⌫"_s, u"Delete"_s},   {u"⇥"_s, u"Tab"_s}, {u"⎋"_s, u"Esc"_s},
        {u"␣"_s, u"Mezerník"_s}, {u"-"_s, u"−"_s},
    };
    const QString glyph = glyphOfControl(token);
    if (const auto other = others.constFind(glyph); other != others.constEnd())
        return *other;
    return glyph.size() == 1 || isFunctionKey(glyph) ? glyph.toUpper() : glyph;
}

QSet<QString> pressedTokens(const QStringList &tokens)
{
    QSet<QString> pressed;
    for (const QString &token : tokens)
        pressed.insert(pressedToken(token));
    return pressed;
}

/// Whether a press gives this token, which is none of a modifier.
bool isPressedKey(const QString &key, KeyNaming naming)
{
    static const QSet<QString> literal{u"Delete"_s, u"Tab"_s, u"Mezerník"_s};
    static const QSet<QString> further{u"Esc"_s, u"↩"_s, u"⌦"_s, u"Insert"_s, u"↖"_s,
                                       u"↘"_s,   u"⇞"_s, u"⇟"_s, u"−"_s};
    if (naming == KeyNaming::literal)
        return literal.contains(key) || (key.size() == 1 && !further.contains(key));
    const QString pressed = pressedToken(key);
    return pressed.size() == 1 || isFunctionKey(pressed) || literal.contains(pressed) ||
           further.contains(pressed);
}

QString tokenOfPcName(const QString &piece)
{
    const auto known = pcTokens().constFind(plainName(piece));
    if (known != pcTokens().constEnd())
        return *known;
    // Some letters, such as "ß", are two as capitals, which no key writes.
    const QString capital = piece.toUpper();
    return capital.size() == 1 || isFunctionKey(piece) ? capital : piece;
}

} // namespace

bool isFunctionKey(const QString &name)
{
    if (name.size() < 2 || name.front().toUpper() != u'F')
        return false;
    bool isNumber = false;
    const int number = QStringView(name).mid(1).toInt(&isNumber);
    return isNumber && number >= 1 && number <= 35;
}

QString caption(const QString &token, KeyStyle style)
{
    const QString glyph = glyphOfControl(token);
    return style == KeyStyle::pc ? pcCaptions().value(glyph, glyph) : glyph;
}

QStringList captions(const QStringList &tokens, KeyStyle style)
{
    QStringList captions;
    captions.reserve(tokens.size());
    for (const QString &token : tokens)
        captions.append(caption(token, style));
    return captions;
}

QString spoken(const QString &token, KeyStyle style)
{
    const QHash<QString, QString> &own = style == KeyStyle::pc ? pcWords() : macWords();
    const QString glyph = glyphOfControl(token);
    if (const auto word = own.constFind(glyph); word != own.constEnd())
        return *word;
    return commonWords().value(glyph, caption(glyph, style));
}

QString spoken(const QStringList &tokens, KeyStyle style)
{
    QStringList words;
    words.reserve(tokens.size());
    for (const QString &token : tokens)
        words.append(spoken(token, style));
    return words.join(u' ');
}

QStringList tokensFromText(const QString &text, KeyStyle style)
{
    QStringList tokens = Shortcut::keysFromText(text);
    if (style == KeyStyle::mac)
        return tokens;
    for (QString &token : tokens)
        token = tokenOfPcName(token);
    // "Ctrl++": a plus that another one stands before, and nothing behind, is the key of that name.
    const QString typed = text.trimmed();
    const QString before = typed.chopped(typed.endsWith(u'+') ? 1 : 0).trimmed();
    if (typed.endsWith(u'+') && (before.isEmpty() || before.endsWith(u'+')))
        tokens.append(u"+"_s);
    return tokens;
}

QStringList inDisplayOrder(QStringList tokens)
{
    static const QStringList modifiers{u"Fn"_s, u"⌃"_s, u"⌥"_s, u"⇧"_s, u"⌘"_s};
    const auto place = [](const QString &token) {
        const qsizetype position = modifiers.indexOf(token);
        return position < 0 ? modifiers.size() : position;
    };
    std::ranges::stable_sort(tokens, {}, place);
    return tokens;
}

bool canBePressed(const QStringList &tokens, KeyNaming naming)
{
    static const QSet<QString> modifiers{u"⌃"_s, u"⌥"_s, u"⇧"_s, u"⌘"_s};
    if (tokens.isEmpty() || modifiers.contains(tokens.last()))
        return false;
    const bool isOneKey = std::all_of(tokens.cbegin(), tokens.cend() - 1, [](const QString &token) {
        return modifiers.contains(token);
    });
    return isOneKey && isPressedKey(tokens.last(), naming);
}

bool areSameKeys(const QStringList &one, const QStringList &other)
{
    return pressedTokens(one) == pressedTokens(other);
}

QString rawValue(KeyStyle style)
{
    return style == KeyStyle::pc ? u"pc"_s : u"mac"_s;
}

std::optional<KeyStyle> styleFromRawValue(const QString &rawValue)
{
    for (const KeyStyle style : {KeyStyle::mac, KeyStyle::pc}) {
        if (rawValue == KeyNames::rawValue(style))
            return style;
    }
    return std::nullopt;
}

} // namespace hmatnik::KeyNames
