#include "system/MenuShortcutImporter.h"

#include "platform/MenuModifiers.h"

#include <optional>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace hmatnik {

namespace {

using platform::AccessibleElement;
using platform::AccessibleElementPtr;
using platform::AttributeResult;

/// The attribute's value if it can be read and has the type asked for.
template <typename Value>
std::optional<Value> read(const AccessibleElement &element, QStringView name)
{
    AttributeResult result = element.attribute(name);
    if (result.error != 0)
        return std::nullopt;
    if (auto *value = std::get_if<Value>(&result.value))
        return std::move(*value);
    return std::nullopt;
}

/// A character is written as on its key, in upper case. Desktops give the name of a key that writes
/// none ("Insert"); names stay as they come.
QString keyToken(const QString &character)
{
    return character.toUcs4().size() == 1 ? character.toUpper() : character;
}

QStringList keysOf(const QString &character, std::int64_t modifiers)
{
    return platform::MenuModifiers::tokens(modifiers) << keyToken(character);
}

std::optional<Shortcut> shortcutOf(const AccessibleElement &element, const QString &appName)
{
    const auto title = read<QString>(element, u"AXTitle");
    const auto character = read<QString>(element, u"AXMenuItemCmdChar");
    const auto modifiers = read<std::int64_t>(element, u"AXMenuItemCmdModifiers");
    if (!title || title->isEmpty() || !character || character->isEmpty())
        return std::nullopt;
    const QStringList keys = keysOf(*character, modifiers.value_or(0));
    return Shortcut{
        .id = u"menu-"_s + appName + u'-' + *title + u'-' + keys.join(QString()),
        .title = *title,
        .keys = keys,
        .category = Shortcut::Category::zaklady,
        .apps = {appName},
        .detail = u"Importováno z menu aplikace "_s + appName + u'.',
    };
}

/// An element on the way from the menu bar down to where the walk is.
struct Level
{
    AccessibleElementPtr element;
    std::vector<AccessibleElementPtr> children;
    std::size_t nextChild = 0;
};

Level enter(const AccessibleElementPtr &element)
{
    return {
        element, read<std::vector<AccessibleElementPtr>>(*element, u"AXChildren")
                     .value_or(std::vector<AccessibleElementPtr>())};
}

/// Children before their parent. The way down is kept in a list, not on the call stack, because
/// another program decides how deep it gets.
QList<Shortcut> collect(const AccessibleElementPtr &root, const QString &appName)
{
    QList<Shortcut> shortcuts;
    std::vector<Level> way;
    way.push_back(enter(root));
    while (!way.empty()) {
        Level &level = way.back();
        if (level.nextChild < level.children.size()) {
            // Moved out: a child that was visited need not be kept.
            const AccessibleElementPtr child = std::move(level.children[level.nextChild++]);
            if (child)
                way.push_back(enter(child));
            continue;
        }
        if (auto shortcut = shortcutOf(*level.element, appName))
            shortcuts.append(*std::move(shortcut));
        way.pop_back();
    }
    return shortcuts;
}

} // namespace

MenuShortcutImporter::Result MenuShortcutImporter::importFromApplication(
    platform::Accessibility &accessibility, std::int32_t ownPid, std::int32_t pid,
    const QString &appName, const std::stop_token &stop)
{
    if (!accessibility.waitForTrust(stop)) {
        if (!stop.stop_requested())
            accessibility.requestTrust();
        return MenuImportError::permission;
    }
    if (pid == ownPid)
        return MenuImportError::application;
    const AccessibleElementPtr application = accessibility.applicationElement(pid, stop);
    const auto menuBar = read<AccessibleElementPtr>(*application, u"AXMenuBar");
    if (!menuBar || !*menuBar)
        return MenuImportError::menu;
    return collect(*menuBar, appName);
}

} // namespace hmatnik
