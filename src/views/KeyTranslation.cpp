#include "views/KeyTranslation.h"

#include <QList>

#include <algorithm>

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

QStringList modifierTokens(const KeyPress &press)
{
    QStringList tokens;
    if (press.control)
        tokens.append(u"⌃"_s);
    if (press.option)
        tokens.append(u"⌥"_s);
    if (press.shift)
        tokens.append(u"⇧"_s);
    if (press.command)
        tokens.append(u"⌘"_s);
    return tokens;
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
    KeyPress held = press;
    held.shift = press.shift && !(naming == KeyNaming::all && isShiftedPlus(press));
    QStringList tokens = modifierTokens(held);
    QString name = naming == KeyNaming::all ? furtherName(press) : QString();
    if (name.isEmpty())
        name = keyName(press);
    if (!name.isEmpty())
        tokens.append(name);
    return tokens;
}

QStringList keyTokens(const KeyPress &press, const QStringList &asked)
{
    if (press.specialKey != KeyPress::SpecialKey::none)
        return keyTokens(press, KeyNaming::all);
    // The first one is the usual one.
    QList<QStringList> readings{
        keyTokens(press, KeyNaming::all), modifierTokens(press) << press.characters.toUpper()};
    if (press.shift || isDigit(press.shiftedCharacters)) {
        const QString shifted = press.shiftedCharacters.toUpper();
        readings.append(modifierTokens(press) << shifted);
        // Shift is what the sign takes, then, and no part of the combination.
        if (shifted != press.characters.toUpper()) {
            KeyPress plain = press;
            plain.shift = false;
            readings.append(modifierTokens(plain) << shifted);
        }
    }
    const auto same =
        std::find_if(readings.cbegin(), readings.cend(), [&](const QStringList &reading) {
            return KeyNames::areSameKeys(reading, asked);
        });
    return same == readings.cend() ? readings.constFirst() : *same;
}

} // namespace hmatnik
