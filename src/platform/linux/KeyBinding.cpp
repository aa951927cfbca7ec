#include "platform/linux/KeyBinding.h"

#include <QHash>
#include <QSet>
#include <QStringList>

#include <xkbcommon/xkbcommon.h>

#include <algorithm>
#include <array>

namespace hmatnik::platform {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype maximumLength = 200;
constexpr qsizetype maximumKeyNameLength = 32;
constexpr int functionKeys = 35;

/// What a modifier's name stands for; Command is a bit of its own while parsing.
constexpr std::int64_t commandBit = 16;
constexpr std::int64_t keypadBit = 32;

std::int64_t asMask(std::int64_t bits)
{
    const std::int64_t named =
        bits & (MenuModifiers::shift | MenuModifiers::option | MenuModifiers::control);
    return (bits & commandBit) != 0 ? named : named | MenuModifiers::noCommand;
}

/// The space bar, as the key notation of shortcuts names it.
const auto spaceBar = u"Mezerník"_s;

/// The character itself if it can be shown.
std::optional<QString> asCharacter(char32_t character)
{
    if (character == U' ')
        return spaceBar;
    if (!QChar::isPrint(character) || QChar::isSpace(character))
        return std::nullopt;
    return QString::fromUcs4(&character, 1);
}

bool isOneCharacter(const QString &text)
{
    return text.size() == 1 || (text.size() == 2 && text[0].isHighSurrogate());
}

std::optional<QString> functionKey(const QString &name)
{
    if (!name.startsWith(u'F', Qt::CaseInsensitive))
        return std::nullopt;
    bool isNumber = false;
    const int number = QStringView(name).mid(1).toInt(&isNumber);
    if (!isNumber || number < 1 || number > functionKeys)
        return std::nullopt;
    return u'F' + QString::number(number);
}

// --- The form of GTK ----------------------------------------------------------------------------

std::int64_t gtkModifier(const QString &name)
{
    static const QHash<QString, std::int64_t> bits{
        {u"primary"_s, MenuModifiers::control},
        {u"control"_s, MenuModifiers::control},
        {u"ctrl"_s, MenuModifiers::control},
        {u"ctl"_s, MenuModifiers::control},
        {u"shift"_s, MenuModifiers::shift},
        {u"shft"_s, MenuModifiers::shift},
        {u"alt"_s, MenuModifiers::option},
        {u"mod1"_s, MenuModifiers::option},
        {u"super"_s, commandBit},
        {u"meta"_s, commandBit},
        {u"mod4"_s, commandBit}};
    return bits.value(name.toLower());
}

std::optional<QString> gtkKey(const QString &name)
{
    if (auto key = functionKey(name))
        return key;
    const QByteArray symbolName = name.toLatin1();
    xkb_keysym_t symbol = xkb_keysym_from_name(symbolName.constData(), XKB_KEYSYM_NO_FLAGS);
    if (symbol == XKB_KEY_NoSymbol)
        return isOneCharacter(name) ? asCharacter(name.toUcs4().value(0)) : std::nullopt;
    switch (symbol) {
    case XKB_KEY_Left:
    case XKB_KEY_KP_Left:
        return u"←"_s;
    case XKB_KEY_Right:
    case XKB_KEY_KP_Right:
        return u"→"_s;
    case XKB_KEY_Up:
    case XKB_KEY_KP_Up:
        return u"↑"_s;
    case XKB_KEY_Down:
    case XKB_KEY_KP_Down:
        return u"↓"_s;
    case XKB_KEY_BackSpace:
        return u"⌫"_s;
    case XKB_KEY_Delete:
    case XKB_KEY_KP_Delete:
        return u"⌦"_s;
    case XKB_KEY_Return:
    case XKB_KEY_KP_Enter:
    case XKB_KEY_ISO_Enter:
        return u"↩"_s;
    case XKB_KEY_Tab:
    case XKB_KEY_KP_Tab:
    case XKB_KEY_ISO_Left_Tab:
        return u"⇥"_s;
    case XKB_KEY_Escape:
        return u"⎋"_s;
    case XKB_KEY_Page_Up:
    case XKB_KEY_KP_Page_Up:
        return u"⇞"_s;
    case XKB_KEY_Page_Down:
    case XKB_KEY_KP_Page_Down:
        return u"⇟"_s;
    case XKB_KEY_Home:
    case XKB_KEY_KP_Home:
        return u"↖"_s;
    case XKB_KEY_End:
    case XKB_KEY_KP_End:
        return u"↘"_s;
    case XKB_KEY_Insert:
    case XKB_KEY_KP_Insert:
        return u"Insert"_s;
    case XKB_KEY_Print:
    case XKB_KEY_Pause:
    case XKB_KEY_Menu:
    case XKB_KEY_Help:
        return name;
    default:
        return asCharacter(xkb_keysym_to_utf32(symbol));
    }
}

std::optional<KeyBinding> parseGtk(QStringView accelerator)
{
    std::int64_t bits = 0;
    while (accelerator.startsWith(u'<')) {
        const qsizetype end = accelerator.indexOf(u'>');
        if (end < 0)
            return std::nullopt;
        const std::int64_t bit = gtkModifier(accelerator.sliced(1, end - 1).toString());
        if (bit == 0)
            return std::nullopt;
        bits |= bit;
        accelerator = accelerator.sliced(end + 1);
    }
    if (accelerator.isEmpty())
        return std::nullopt;
    const auto key = gtkKey(accelerator.toString());
    return key ? std::optional(KeyBinding{*key, asMask(bits)}) : std::nullopt;
}

// --- The form of Qt -----------------------------------------------------------------------------

/// Modifiers as Qt's translations name them, in lower case.
std::int64_t qtModifier(const QString &name)
{
    static const QHash<QString, std::int64_t> bits{
        {u"ctrl"_s, MenuModifiers::control},
        {u"strg"_s, MenuModifiers::control},
        {u"control"_s, MenuModifiers::control},
        {u"کنترل"_s, MenuModifiers::control},
        {u"shift"_s, MenuModifiers::shift},
        {u"umschalt"_s, MenuModifiers::shift},
        {u"maj"_s, MenuModifiers::shift},
        {u"mayúsculas"_s, MenuModifiers::shift},
        {u"skift"_s, MenuModifiers::shift},
        {u"vaihto"_s, MenuModifiers::shift},
        {u"شیفت"_s, MenuModifiers::shift},
        {u"alt"_s, MenuModifiers::option},
        {u"دگرساز"_s, MenuModifiers::option},
        {u"meta"_s, commandBit},
        {u"méta"_s, commandBit},
        {u"متا"_s, commandBit},
        {u"מטא"_s, commandBit},
        {u"num"_s, keypadBit},
        {u"núm"_s, keypadBit},
        {u"zahlenblock"_s, keypadBit},
        {u"sayı"_s, keypadBit}};
    return bits.value(name.toLower());
}

/// Keys as Qt names them: in English, Czech, Slovak, German, Polish, French, Spanish and Italian.
/// Qt has two names for some, and some are the same in several of these languages.
const QHash<QString, QString> &qtKeyGlyphs()
{
    static const QHash<QString, QString> glyphs = [] {
        struct Names
        {
            const char16_t *glyph = nullptr;
            QStringList names;
        };
        const std::array table{
            Names{
                u"←",
                {u"left"_s, u"vlevo"_s, u"vľavo"_s, u"links"_s, u"lewo"_s, u"gauche"_s,
                 u"izquierda"_s, u"sinistra"_s, u"←"_s}},
            Names{
                u"→",
                {u"right"_s, u"vpravo"_s, u"rechts"_s, u"prawo"_s, u"droite"_s, u"derecha"_s,
                 u"destra"_s, u"→"_s}},
            Names{
                u"↑",
                {u"up"_s, u"nahoru"_s, u"hore"_s, u"hoch"_s, u"góra"_s, u"haut"_s, u"arriba"_s,
                 u"su"_s, u"↑"_s}},
            Names{
                u"↓",
                {u"down"_s, u"dolů"_s, u"dole"_s, u"herunter"_s, u"dół"_s, u"bas"_s, u"abajo"_s,
                 u"giù"_s, u"↓"_s}},
            Names{u"⌫", {u"backspace"_s, u"rücktaste"_s, u"effacement"_s}},
            Names{
                u"⌦",
                {u"del"_s, u"delete"_s, u"zmazať"_s, u"entf"_s, u"löschen"_s, u"suppr"_s,
                 u"supprimer"_s, u"suprimir"_s, u"canc"_s, u"cancella"_s}},
            Names{
                u"↩",
                {u"return"_s, u"enter"_s, u"retour"_s, u"entrée"_s, u"retorno"_s, u"intro"_s,
                 u"invio"_s}},
            Names{
                u"⇥",
                {u"tab"_s, u"backtab"_s, u"zpět-tab"_s, u"tabulátor"_s, u"spätný tabulátor"_s,
                 u"rück-tab"_s, u"tabulator"_s, u"tab arr"_s, u"tabulador"_s,
                 u"tabulador hacia atrás"_s, u"tab indietro"_s}},
            Names{u"⎋", {u"esc"_s, u"escape"_s, u"échap"_s, u"échapement"_s}},
            Names{
                u"⇞",
                {u"pgup"_s, u"page up"_s, u"bild aufwärts"_s, u"page préc"_s, u"page haut"_s,
                 u"re pág"_s, u"retroceder página"_s, u"pag↑"_s, u"pagina precedente"_s}},
            Names{
                u"⇟",
                {u"pgdown"_s, u"page down"_s, u"obraz dolů"_s, u"bild abwärts"_s, u"page suiv"_s,
                 u"page bas"_s, u"av pág"_s, u"avanzar página"_s, u"pag↓"_s,
                 u"pagina successiva"_s}},
            Names{
                u"↖", {u"home"_s, u"pos1"_s, u"katalog domowy"_s, u"début"_s, u"inicio"_s, u"↖"_s}},
            Names{u"↘", {u"end"_s, u"ende"_s, u"fin"_s, u"fine"_s}},
            Names{
                u"Mezerník",
                {u"space"_s, u"mezerník"_s, u"medzerník"_s, u"leertaste"_s, u"spacja"_s,
                 u"espace"_s, u"espacio"_s, u"spazio"_s}},
            Names{
                u"Insert",
                {u"ins"_s, u"insert"_s, u"vložiť"_s, u"einfg"_s, u"einfügen"_s, u"inser"_s,
                 u"insérer"_s, u"insertar"_s, u"inserisci"_s}},
        };
        QHash<QString, QString> result;
        for (const Names &row : table) {
            for (const QString &name : row.names)
                result.insert(name, QString::fromUtf16(row.glyph));
        }
        return result;
    }();
    return glyphs;
}

/// Keys that only change what others mean, or lock them: held alone they choose no command. Beside
/// those that combinations are written with; as Qt names them, in lower case.
bool isModifierAlone(const QString &name)
{
    static const QSet<QString> others{
        u"altgr"_s,       u"mode switch"_s, u"mode_switch"_s, u"super l"_s, u"super r"_s,
        u"super_l"_s,     u"super_r"_s,     u"hyper l"_s,     u"hyper r"_s, u"hyper_l"_s,
        u"hyper_r"_s,     u"capslock"_s,    u"caps lock"_s,   u"numlock"_s, u"num lock"_s,
        u"number lock"_s, u"scrolllock"_s,  u"scroll lock"_s};
    return qtModifier(name) != 0 || others.contains(name.toLower());
}

std::optional<QString> qtKey(const QString &name)
{
    if (isModifierAlone(name))
        return std::nullopt;
    if (isOneCharacter(name) && !qtKeyGlyphs().contains(name))
        return asCharacter(name.toUcs4().value(0));
    if (auto key = functionKey(name))
        return key;
    QString glyph = qtKeyGlyphs().value(name.toLower());
    if (!glyph.isEmpty())
        return glyph;
    // A key whose name we don't know is still a key: show what the program shows.
    const bool isName = name.size() > 1 && name.size() <= maximumKeyNameLength &&
                        std::none_of(name.cbegin(), name.cend(), [](QChar c) {
                            return c.isPunct() || c.isSymbol() || !c.isPrint();
                        });
    return isName ? std::optional(name) : std::nullopt;
}

std::optional<KeyBinding> parseQt(const QString &text, const QString &title)
{
    if (text.contains(u", ")) // several strokes, one after the other
        return std::nullopt;
    std::int64_t bits = 0;
    QString rest = text;
    // The key itself may be the plus sign.
    for (qsizetype plus = rest.indexOf(u'+'); plus > 0 && plus + 1 < rest.size();
         plus = rest.indexOf(u'+')) {
        const std::int64_t bit = qtModifier(rest.left(plus));
        if (bit == 0)
            return std::nullopt;
        bits |= bit;
        rest = rest.mid(plus + 1);
    }
    const auto key = qtKey(rest);
    if (!key)
        return std::nullopt;
    const bool isMnemonic = bits == MenuModifiers::option && isOneCharacter(rest) &&
                            title.contains(rest, Qt::CaseInsensitive);
    if (isMnemonic)
        return std::nullopt;
    return KeyBinding{*key, asMask(bits)};
}

} // namespace

std::optional<KeyBinding> KeyBinding::parse(const QString &binding, const QString &title)
{
    const QString text = binding.trimmed();
    if (text.isEmpty() || text.size() > maximumLength)
        return std::nullopt;
    if (text.count(u';') >= 2)
        return parseGtk(QStringView(text).mid(text.indexOf(u';', text.indexOf(u';') + 1) + 1));
    if (text.startsWith(u'<') && text.size() > 1)
        return parseGtk(text);
    return parseQt(text, title);
}

} // namespace hmatnik::platform
