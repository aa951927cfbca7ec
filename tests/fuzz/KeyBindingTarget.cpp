#include "FuzzTargets.h"
#include "Require.h"
#include "fakes/FakeAccessibility.h"
#include "platform/linux/KeyBinding.h"
#include "system/MenuShortcutImporter.h"

#include <algorithm>
#include <bit>

using namespace Qt::StringLiterals;

namespace hmatnik::test {

namespace {

using platform::KeyBinding;

constexpr std::int32_t ownPid = 1;
constexpr std::int32_t otherPid = 2;
constexpr std::int64_t modifierBits = 15;
constexpr qsizetype maximumKeyLength = 32;

bool isOneCharacter(const QString &text)
{
    return text.toUcs4().size() == 1;
}

void requireSensible(const KeyBinding &binding)
{
    require(!binding.character.isEmpty(), "a binding has a key");
    require(binding.character.size() <= maximumKeyLength, "a key's name is short");
    require(
        binding.modifiers >= 0 && binding.modifiers <= modifierBits, "there are four modifiers");
    require(binding.character.isValidUtf16(), "a key is a whole text");
    const auto codePoints = binding.character.toUcs4();
    require(
        std::all_of(
            codePoints.begin(), codePoints.end(), [](char32_t c) { return QChar::isPrint(c); }),
        "a key can be shown");
}

/// A key of one character, written in the forms of the toolkits, is read as that again.
void requireRoundTrip(const KeyBinding &binding)
{
    if (!isOneCharacter(binding.character))
        return;
    QString gtk;
    QString qt;
    const auto add = [&](std::int64_t bit, const QString &gtkName, const QString &qtName) {
        if ((binding.modifiers & bit) == 0)
            return;
        gtk += gtkName;
        qt += qtName;
    };
    add(platform::MenuModifiers::control, u"<Primary>"_s, u"Ctrl+"_s);
    add(platform::MenuModifiers::option, u"<Alt>"_s, u"Alt+"_s);
    add(platform::MenuModifiers::shift, u"<Shift>"_s, u"Shift+"_s);
    if ((binding.modifiers & platform::MenuModifiers::noCommand) == 0) {
        gtk += u"<Super>"_s;
        qt += u"Meta+"_s;
    }
    // GTK writes this one by its name.
    const QString gtkKey = binding.character == u"<" ? u"less"_s : binding.character;
    require(
        KeyBinding::parse(u";;"_s + gtk + gtkKey, {}) == binding,
        "a key in the form of GTK reads the same");
    require(
        KeyBinding::parse(qt + binding.character, {}) == binding,
        "a key in the form of Qt reads the same");
}

QList<Shortcut> imported(
    const platform::AttributeResult::Value &title,
    const platform::AttributeResult::Value &character,
    const platform::AttributeResult::Value &modifiers)
{
    const auto item = FakeElement::make();
    item->set(u"AXTitle", title);
    item->set(u"AXMenuItemCmdChar", character);
    item->set(u"AXMenuItemCmdModifiers", modifiers);
    FakeAccessibility accessibility;
    accessibility.setMenuBar(otherPid, {item});
    const auto result = MenuShortcutImporter::importFromApplication(
        accessibility, ownPid, otherPid, u"Tabulky"_s, {});
    const auto *list = std::get_if<QList<Shortcut>>(&result);
    require(list, "a menu bar that can be read gives a list");
    return *list;
}

void requireImport(const QString &title, const QString &character, std::int64_t modifiers)
{
    const QList<Shortcut> shortcuts = imported(title, character, modifiers);
    if (title.isEmpty() || character.isEmpty()) {
        require(shortcuts.isEmpty(), "an item needs a title and a key");
        return;
    }
    require(shortcuts.size() == 1, "one item, one shortcut");
    const Shortcut &shortcut = shortcuts.front();
    require(shortcut.title == title, "the title stays as it is");
    const QString key = isOneCharacter(character) ? character.toUpper() : character;
    require(shortcut.keys.constLast() == key, "the key comes last, a character in upper case");

    const QStringList tokens{u"⌃"_s, u"⌥"_s, u"⇧"_s, u"⌘"_s};
    const QStringList held = shortcut.keys.first(shortcut.keys.size() - 1);
    const auto bits = std::uint64_t(modifiers ^ platform::MenuModifiers::noCommand) & modifierBits;
    require(held.size() == std::popcount(bits), "each modifier gives one token");
    qsizetype place = -1;
    for (const QString &token : held) {
        require(tokens.indexOf(token) > place, "modifiers come in their order");
        place = tokens.indexOf(token);
    }
    require(
        shortcut.id == u"menu-Tabulky-"_s + title + u'-' + shortcut.keys.join(QString()),
        "the id tells the command");
}

} // namespace

void fuzzKeyBinding(const QByteArray &bytes)
{
    const QStringList lines = QString::fromUtf8(bytes).split(u'\n');
    const QString text = lines.value(0);
    const QString title = lines.value(1);

    const auto binding = KeyBinding::parse(text, title);
    require(
        KeyBinding::parse(u' ' + text + u'\t', title) == binding, "white space around is nothing");
    if (binding) {
        requireSensible(*binding);
        requireRoundTrip(*binding);
        requireImport(title, binding->character, binding->modifiers);
        require(KeyBinding::parse(text, {}) == binding, "without a title there is no mnemonic");
    }

    // What a program answers need not have passed our parser, nor be of the right type.
    std::int64_t modifiers = 0;
    std::copy_n(
        bytes.begin(), std::min(bytes.size(), qsizetype(sizeof modifiers)),
        reinterpret_cast<char *>(&modifiers));
    requireImport(title, text, modifiers);
    require(imported(title, modifiers, text).isEmpty(), "a number is no key");
    require(imported(modifiers, text, {}).isEmpty(), "a number is no title");
}

} // namespace hmatnik::test
