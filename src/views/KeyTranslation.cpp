#include "views/KeyTranslation.h"

#include "model/KeyNames.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace hmatnik {

namespace {

bool isDigit(const QString &characters)
{
    return characters.size() == 1 && characters.front() >= u'0' && characters.front() <= u'9';
}

bool isLetter(const QString &characters)
{
    return characters.size() == 1 && characters.front().isLetter();
}

/// Whether Shift is held for the plus sign, as some layouts want it; it is no part of the
/// combination then.
bool isShiftedPlus(const KeyPress &press)
{
    return press.shift && press.shiftedCharacters == "+"_L1 && press.characters != "+"_L1;
}

/// Names of keys that only KeyNaming::all knows; empty for others.
QString furtherName(const KeyPress &press)
{
    switch (press.specialKey) {
    case KeyPress::SpecialKey::escape:
        return u"Esc"_s;
    case KeyPress::SpecialKey::enter:
        return u"↩"_s;
    case KeyPress::SpecialKey::forwardDelete:
        return u"⌦"_s;
    case KeyPress::SpecialKey::insert:
        return u"Insert"_s;
    case KeyPress::SpecialKey::home:
        return u"↖"_s;
    case KeyPress::SpecialKey::end:
        return u"↘"_s;
    case KeyPress::SpecialKey::pageUp:
        return u"⇞"_s;
    case KeyPress::SpecialKey::pageDown:
        return u"⇟"_s;
    case KeyPress::SpecialKey::function:
        return u'F' + QString::number(press.functionNumber);
    default:
        break;
    }
    // Where a letter stands in the digit's place, combinations are known by the digit.
    if (isDigit(press.shiftedCharacters) && isLetter(press.characters))
        return press.shiftedCharacters;
    return press.characters == "-"_L1 ? u"−"_s : isShiftedPlus(press) ? u"+"_s : QString();
}

QString keyName(const KeyPress &press)
{
    switch (press.specialKey) {
    case KeyPress::SpecialKey::backspace:
        return u"Delete"_s;
    case KeyPress::SpecialKey::tab:
        return u"Tab"_s;
    case KeyPress::SpecialKey::leftArrow:
        return u"←"_s;
    case KeyPress::SpecialKey::rightArrow:
        return u"→"_s;
    case KeyPress::SpecialKey::upArrow:
        return u"↑"_s;
    case KeyPress::SpecialKey::downArrow:
        return u"↓"_s;
    default:
        break;
    }
    // On some layouts, the Czech one among them, the number row writes digits only with Shift,
    // and it is the digits that shortcuts with Shift are known by.
    if (press.shift && isDigit(press.shiftedCharacters))
        return press.shiftedCharacters;
    const QString name = press.characters.toUpper();
    return name == " "_L1 ? u"Mezerník"_s : name;
}

} // namespace

QStringList keyTokens(const KeyPress &press, KeyNaming naming)
{
    QStringList tokens;
    if (press.control)
        tokens.append(u"⌃"_s);
    if (press.option)
        tokens.append(u"⌥"_s);
    if (press.shift && !(naming == KeyNaming::all && isShiftedPlus(press)))
        tokens.append(u"⇧"_s);
    if (press.command)
        tokens.append(u"⌘"_s);
    QString name = naming == KeyNaming::all ? furtherName(press) : QString();
    if (name.isEmpty())
        name = keyName(press);
    if (!name.isEmpty())
        tokens.append(name);
    return tokens;
}

bool canBePressed(const QStringList &tokens)
{
    static const QSet<QString> modifiers{u"⌃"_s, u"⌥"_s, u"⇧"_s, u"⌘"_s};
    static const QSet<QString> named{u"Delete"_s, u"Tab"_s, u"Mezerník"_s, u"Esc"_s, u"↩"_s, u"⌦"_s,
                                     u"Insert"_s, u"↖"_s,   u"↘"_s,        u"⇞"_s,   u"⇟"_s};
    if (tokens.isEmpty())
        return false;
    const QString &key = tokens.last();
    for (qsizetype i = 0; i + 1 < tokens.size(); ++i) {
        if (!modifiers.contains(tokens.at(i)))
            return false;
    }
    if (modifiers.contains(key))
        return false;
    return key.size() == 1 || KeyNames::isFunctionKey(key) || named.contains(key);
}

} // namespace hmatnik
