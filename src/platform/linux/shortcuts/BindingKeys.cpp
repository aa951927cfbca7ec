#include "platform/linux/shortcuts/BindingKeys.h"

#include "platform/MenuModifiers.h"
#include "platform/linux/KeyBinding.h"

#include <QHash>

#include <array>
#include <optional>

namespace hmatnik::platform {

using namespace Qt::StringLiterals;

namespace {

/// Menus show a sign where shortcuts name the key. Their minus is that of arithmetic.
QString keyName(const QString &character)
{
    static const QHash<QString, QString> names{
        {u"⇥"_s, u"Tab"_s}, {u"⎋"_s, u"Esc"_s}, {u"⌫"_s, u"Delete"_s}, {u"-"_s, u"−"_s}};
    if (QString name = names.value(character); !name.isEmpty())
        return name;
    const bool isName = character.size() > 2; // "Print"; a letter can take two units
    return isName ? character : character.toUpper();
}

QStringList tokens(const std::optional<KeyBinding> &binding)
{
    if (!binding)
        return {};
    return MenuModifiers::tokens(binding->modifiers) << keyName(binding->character);
}

// Qt's numbers, from its header qnamespace.h. A key with a character is that character's number.
constexpr std::uint32_t qtKeyMask = 0x01ffffff;
constexpr std::uint32_t qtFirstNamedKey = 0x01000000;
constexpr std::uint32_t qtFirstFunctionKey = 0x01000030;
constexpr std::uint32_t qtLastFunctionKey = 0x01000052;

struct QtModifier
{
    std::uint32_t bit;
    const char16_t *name;
};
constexpr std::array<QtModifier, 4> qtModifiers{
    {{0x04000000, u"Ctrl+"},
     {0x08000000, u"Alt+"},
     {0x02000000, u"Shift+"},
     {0x10000000, u"Meta+"}}};

/// Qt's name of a key; empty for keys that are shortcuts by themselves.
QString qtKeyName(std::uint32_t key)
{
    if (key >= qtFirstFunctionKey && key <= qtLastFunctionKey)
        return u'F' + QString::number(key - qtFirstFunctionKey + 1);
    if (key < qtFirstNamedKey) {
        const auto character = static_cast<char32_t>(key);
        if (character == U' ')
            return u"Space"_s;
        return key == 0 ? QString() : QString::fromUcs4(&character, 1);
    }
    static const QHash<std::uint32_t, QString> names{
        {0x01000000, u"Esc"_s},       {0x01000001, u"Tab"_s},    {0x01000002, u"Tab"_s},
        {0x01000003, u"Backspace"_s}, {0x01000004, u"Return"_s}, {0x01000005, u"Return"_s},
        {0x01000006, u"Ins"_s},       {0x01000007, u"Del"_s},    {0x01000008, u"Pause"_s},
        {0x01000009, u"Print"_s},     {0x01000010, u"Home"_s},   {0x01000011, u"End"_s},
        {0x01000012, u"Left"_s},      {0x01000013, u"Up"_s},     {0x01000014, u"Right"_s},
        {0x01000015, u"Down"_s},      {0x01000016, u"PgUp"_s},   {0x01000017, u"PgDown"_s},
        {0x01000055, u"Menu"_s},      {0x01000058, u"Help"_s}};
    return names.value(key);
}

/// Whether a text in Qt's form ends with a key of its own ("Volume Up", "Launch Mail").
bool isKeyOfItsOwn(const QString &binding)
{
    const QString key = binding.section(u'+', -1);
    for (const QLatin1String &start :
         {"Volume"_L1,      "Media"_L1,     "Launch"_L1,   "Monitor"_L1,   "Keyboard"_L1,
          "Microphone"_L1,  "Power"_L1,     "Touchpad"_L1, "Home Page"_L1, "Calculator"_L1,
          "Sleep"_L1,       "Hibernate"_L1, "Suspend"_L1,  "Battery"_L1,   "Display"_L1,
          "Screensaver"_L1, "Search"_L1,    "Tools"_L1,    "Toggle"_L1,    "Screen Rotation"_L1,
          "Eject"_L1,       "Wake"_L1,      "Logout"_L1,   "WWW"_L1}) {
        if (key.startsWith(start))
            return true;
    }
    return key == "none"_L1;
}

} // namespace

QStringList BindingKeys::fromGtk(const QString &binding)
{
    // As the third field of what GTK hands to assistive technologies, so that nothing is taken for
    // the other toolkit's form.
    return binding.contains(u';') ? QStringList()
                                  : tokens(KeyBinding::parse(u";;"_s + binding, {}));
}

QStringList BindingKeys::fromQt(const QString &binding)
{
    const bool isGtk = binding.startsWith(u'<') || binding.contains(u';');
    return isGtk || isKeyOfItsOwn(binding) ? QStringList() : tokens(KeyBinding::parse(binding, {}));
}

QStringList BindingKeys::fromQtKey(std::int32_t combination)
{
    const auto bits = static_cast<std::uint32_t>(combination);
    const QString key = qtKeyName(bits & qtKeyMask);
    if (key.isEmpty())
        return {};
    QString text;
    for (const QtModifier &modifier : qtModifiers) {
        if (bits & modifier.bit)
            text += QString::fromUtf16(modifier.name);
    }
    return tokens(KeyBinding::parse(text + key, {}));
}

QStringList BindingKeys::fromOpenbox(const QString &binding)
{
    static const QHash<QString, QString> names{
        {u"C"_s, u"<Control>"_s},
        {u"A"_s, u"<Alt>"_s},
        {u"S"_s, u"<Shift>"_s},
        {u"W"_s, u"<Super>"_s}};
    const QString text = binding.trimmed();
    // The key itself may be the minus sign.
    const qsizetype last = text.lastIndexOf(u'-', -2);
    QString result;
    if (last > 0) {
        const QStringList modifiers = text.left(last).split(u'-');
        for (const QString &modifier : modifiers) {
            const QString name = names.value(modifier);
            if (name.isEmpty())
                return {};
            result += name;
        }
    }
    return fromGtk(result + text.mid(last + 1));
}

} // namespace hmatnik::platform
