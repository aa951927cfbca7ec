#include "views/KeyTranslation.h"

using namespace Qt::StringLiterals;

namespace hmatnik {

namespace {

bool isDigit(const QString &characters)
{
    return characters.size() == 1 && characters.front() >= u'0' && characters.front() <= u'9';
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
    case KeyPress::SpecialKey::none:
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

QStringList keyTokens(const KeyPress &press)
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
    if (const QString name = keyName(press); !name.isEmpty())
        tokens.append(name);
    return tokens;
}

} // namespace hmatnik
