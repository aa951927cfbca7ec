#include "platform/linux/KeyBinding.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace hmatnik::platform {

namespace {

constexpr std::int64_t alone = MenuModifiers::noCommand;
constexpr std::int64_t control = MenuModifiers::control | MenuModifiers::noCommand;
constexpr std::int64_t controlShift = control | MenuModifiers::shift;
constexpr std::int64_t option = MenuModifiers::option | MenuModifiers::noCommand;

std::optional<KeyBinding> parse(const char16_t *binding, const char16_t *title = u"Title")
{
    return KeyBinding::parse(QString::fromUtf16(binding), QString::fromUtf16(title));
}

std::optional<KeyBinding> key(const char16_t *character, std::int64_t modifiers)
{
    return KeyBinding{QString::fromUtf16(character), modifiers};
}

} // namespace

TEST(KeyBinding, TakesOnlyTheThirdFieldOfGtk)
{
    EXPECT_EQ(parse(u"n;<Alt>f:n;<Primary>n"), key(u"n", control));
    EXPECT_EQ(parse(u"a;<Alt>f:a;<Primary><Shift>s"), key(u"s", controlShift));
    EXPECT_EQ(parse(u";;<Primary>x"), key(u"x", control));
    EXPECT_EQ(parse(u"n;<Alt>f:n;"), std::nullopt);
    EXPECT_EQ(parse(u"<Alt>f;<Alt>f;"), std::nullopt);
    EXPECT_EQ(parse(u";;"), std::nullopt);
    EXPECT_EQ(parse(u"<Control>q"), key(u"q", control));
}

TEST(KeyBinding, KnowsTheModifiersOfGtk)
{
    EXPECT_EQ(parse(u";;<Super>l"), key(u"l", 0)) << "Super is Command";
    EXPECT_EQ(parse(u";;<Alt>Up"), key(u"↑", option));
    EXPECT_EQ(
        parse(u";;<Shift><Control><Alt><Super>F5"),
        key(u"F5", MenuModifiers::shift | MenuModifiers::control | MenuModifiers::option));
    EXPECT_EQ(parse(u";;F11"), key(u"F11", alone));
    EXPECT_EQ(parse(u";;<Hyper>a"), std::nullopt) << "no key cap stands for it";
    EXPECT_EQ(parse(u";;<Primary"), std::nullopt);
    EXPECT_EQ(parse(u";;<Primary>"), std::nullopt);
    EXPECT_EQ(parse(u";;<>a"), std::nullopt);
}

TEST(KeyBinding, KnowsTheKeysOfGtk)
{
    for (const auto &[name, glyph] : std::initializer_list<std::pair<QString, QString>>{
             {u"Left"_s, u"←"_s},        {u"Right"_s, u"→"_s},        {u"Up"_s, u"↑"_s},
             {u"Down"_s, u"↓"_s},        {u"BackSpace"_s, u"⌫"_s},    {u"Delete"_s, u"⌦"_s},
             {u"Return"_s, u"↩"_s},      {u"KP_Enter"_s, u"↩"_s},     {u"Tab"_s, u"⇥"_s},
             {u"Escape"_s, u"⎋"_s},      {u"Page_Up"_s, u"⇞"_s},      {u"Page_Down"_s, u"⇟"_s},
             {u"Home"_s, u"↖"_s},        {u"End"_s, u"↘"_s},          {u"F1"_s, u"F1"_s},
             {u"F35"_s, u"F35"_s},       {u"space"_s, u"Mezerník"_s}, {u"plus"_s, u"+"_s},
             {u"semicolon"_s, u";"_s},   {u"comma"_s, u","_s},        {u"KP_Add"_s, u"+"_s},
             {u"KP_1"_s, u"1"_s},        {u"ecaron"_s, u"ě"_s},       {u"Insert"_s, u"Insert"_s},
             {u"bracketleft"_s, u"["_s}, {u"ISO_Left_Tab"_s, u"⇥"_s}})
        EXPECT_EQ(KeyBinding::parse(u";;<Primary>"_s + name, {}), (KeyBinding{glyph, control}))
            << name.toStdString();
    for (const auto *nonsense : {u";;NoSuchKey", u";;F0", u";;F36", u";;Shift_L", u";;XF86Copy"})
        EXPECT_EQ(parse(nonsense), std::nullopt) << QString::fromUtf16(nonsense).toStdString();
}

TEST(KeyBinding, TellsAMnemonicOfQtFromAShortcut)
{
    EXPECT_EQ(parse(u"Alt+C", u"Clear"), std::nullopt);
    EXPECT_EQ(parse(u"Alt+F", u"File"), std::nullopt);
    EXPECT_EQ(parse(u"Alt+E", u"Save with Encoding"), std::nullopt);
    EXPECT_EQ(parse(u"Alt+Á", u"Zarovnání — bez á"), std::nullopt);
    EXPECT_EQ(parse(u"Alt+X", u"Clear"), key(u"X", option));
    EXPECT_EQ(parse(u"Alt+Left", u"Left Tab"), key(u"←", option));
    EXPECT_EQ(parse(u"Ctrl+C", u"Copy"), key(u"C", control));
    EXPECT_EQ(parse(u"Ctrl+Alt+P", u"Side-Pane"), key(u"P", control | MenuModifiers::option));
}

TEST(KeyBinding, KnowsTheKeysOfQt)
{
    EXPECT_EQ(parse(u"Ctrl+Shift+R"), key(u"R", controlShift));
    EXPECT_EQ(parse(u"Meta+L"), key(u"L", 0)) << "the key between Ctrl and Alt is Command";
    EXPECT_EQ(parse(u"F1"), key(u"F1", alone));
    EXPECT_EQ(parse(u"Del"), key(u"⌦", alone));
    EXPECT_EQ(parse(u"Ctrl++"), key(u"+", control));
    EXPECT_EQ(parse(u"+"), key(u"+", alone));
    EXPECT_EQ(parse(u"Ctrl+Num++"), key(u"+", control));
    EXPECT_EQ(parse(u"Ctrl+-"), key(u"-", control));
    EXPECT_EQ(parse(u"Ctrl+,"), key(u",", control));
    EXPECT_EQ(parse(u"Ctrl+;"), key(u";", control));
    EXPECT_EQ(parse(u"Ctrl+<"), key(u"<", control));
    EXPECT_EQ(parse(u"Ctrl+PgUp"), key(u"⇞", control));
    EXPECT_EQ(parse(u"Ctrl+Space"), key(u"Mezerník", control));
    EXPECT_EQ(parse(u"Ctrl+Ž"), key(u"Ž", control));
    EXPECT_EQ(parse(u"Media Play"), key(u"Media Play", alone));
    EXPECT_EQ(parse(u"Ctrl+K, Ctrl+B"), std::nullopt) << "two strokes";
    EXPECT_EQ(parse(u"Nonsense+C"), std::nullopt);
}

TEST(KeyBinding, ReadsQtInItsOwnLanguages)
{
    EXPECT_EQ(parse(u"Ctrl+Mezerník"), key(u"Mezerník", control));
    EXPECT_EQ(parse(u"Alt+Vlevo"), key(u"←", option));
    EXPECT_EQ(parse(u"Shift+Obraz dolů"), key(u"⇟", alone | MenuModifiers::shift));
    EXPECT_EQ(parse(u"Strg+Umschalt+Entf"), key(u"⌦", controlShift));
    EXPECT_EQ(parse(u"Ctrl+Maj+Échap"), key(u"⎋", controlShift));
    EXPECT_EQ(parse(u"Control+Mayúsculas+Inicio"), key(u"↖", controlShift));
    EXPECT_EQ(parse(u"Alt+Pag↓"), key(u"⇟", option));
}

TEST(KeyBinding, AModifierAloneIsNoShortcut)
{
    for (const auto *alone : {u"Ctrl",         u"Shift",       u"Alt",
                              u"Meta",         u"Ctrl+Shift",  u"Ctrl+Alt",
                              u"Strg",         u"Maj",         u"Umschalt",
                              u"Num",          u"AltGr",       u"Super_L",
                              u"Ctrl+Super L", u"CapsLock",    u"NumLock",
                              u"ScrollLock",   u";;Control_L", u";;<Primary>Shift_R",
                              u";;Super_L",    u";;Caps_Lock", u";;ISO_Level3_Shift"})
        EXPECT_EQ(parse(alone), std::nullopt) << QString::fromUtf16(alone).toStdString();
}

TEST(KeyBinding, NonsenseIsNoShortcut)
{
    for (const auto *nonsense : {u"", u"   ", u"a;b", u"<Alt", u"Ctrl+", u"i;<Alt>r"})
        EXPECT_EQ(parse(nonsense), std::nullopt) << QString::fromUtf16(nonsense).toStdString();
    EXPECT_EQ(parse(u"\u0001"), std::nullopt);
    EXPECT_EQ(KeyBinding::parse(u";;"_s + QString(1000000, u'<'), {}), std::nullopt);
    EXPECT_EQ(KeyBinding::parse(QString(1000000, u'x'), {}), std::nullopt);
}

} // namespace hmatnik::platform
