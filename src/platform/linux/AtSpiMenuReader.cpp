#include "platform/linux/AtSpiMenuReader.h"

#include <QSet>

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>

namespace hmatnik::platform {

namespace {

using Outcome = AtSpiConnection::Outcome;
using References = AtSpiConnection::References;

constexpr std::size_t maximumElements = 20000;
constexpr qsizetype maximumTitleLength = 1000;
constexpr std::size_t maximumWindows = 64;
constexpr std::size_t maximumSearched = 2000;
constexpr int maximumSearchDepth = 8;
/// A program that does not answer for so long is not going to.
constexpr int silence = 2500; // milliseconds

/// Menus and what holds a document's contents have no menu bar inside, but may be endless.
bool mayHoldMenuBar(std::uint32_t role)
{
    switch (role) {
    case AtSpiConnection::menu:
    case AtSpiConnection::menuBar:
    case AtSpiConnection::menuItem:
    case AtSpiConnection::popupMenu:
    case AtSpiConnection::list:
    case AtSpiConnection::table:
    case AtSpiConnection::tree:
    case AtSpiConnection::treeTable:
    case AtSpiConnection::text:
    case AtSpiConnection::terminal:
    case AtSpiConnection::toolBar:
    case AtSpiConnection::statusBar:
    case AtSpiConnection::documentFrame:
        return false;
    default:
        return role < AtSpiConnection::documentSpreadsheet || role > AtSpiConnection::documentEmail;
    }
}

bool isItem(std::uint32_t role)
{
    return role == AtSpiConnection::menuItem || role == AtSpiConnection::checkMenuItem ||
           role == AtSpiConnection::radioMenuItem || role == AtSpiConnection::tearoffMenuItem;
}

/// Toolkits pad titles to make room for the keys beside them.
QString cleanTitle(const QString &title)
{
    if (title.size() > maximumTitleLength)
        return {};
    QString clean = title;
    clean.removeIf([](QChar c) { return c.category() == QChar::Other_Control; });
    return clean.trimmed();
}

} // namespace

bool AtSpiMenuReader::run(AtSpiConnection &connection, const QDeadlineTimer &deadline)
{
    const Outcome outcome = connection.run(deadline, silence);
    connection.forget();
    return outcome == Outcome::Done;
}

/// A process may be registered more than once, when a toolkit has started anew.
std::optional<std::vector<AtSpiReference>>
AtSpiMenuReader::applicationsOf(std::int32_t process, const QDeadlineTimer &deadline)
{
    std::vector<AtSpiReference> found;
    QSet<QByteArray> seen;
    m_bus.askApplications([&](const std::optional<References> &applications) {
        if (!applications)
            return;
        for (const AtSpiReference &application : *applications) {
            if (seen.contains(application.bus))
                continue;
            seen.insert(application.bus);
            m_bus.askProcess(
                application.bus, [&found, application, process](std::optional<std::uint32_t> id) {
                    if (id == static_cast<std::uint32_t>(process))
                        found.push_back(application);
                });
        }
    });
    return run(m_bus, deadline) ? std::optional(found) : std::nullopt;
}

std::optional<std::vector<AtSpiReference>>
AtSpiMenuReader::windowsOf(std::int32_t process, const QDeadlineTimer &deadline)
{
    const auto applications = applicationsOf(process, deadline);
    if (!applications)
        return std::nullopt;
    m_target = &m_bus;
    QByteArray address;
    if (applications->size() == 1) {
        m_bus.askDirectAddress(applications->front(), [&address](std::optional<QByteArray> answer) {
            address = std::move(answer).value_or(QByteArray());
        });
    }
    std::vector<References> answers(applications->size());
    for (std::size_t i = 0; i < applications->size(); ++i) {
        m_bus.askChildren(applications->at(i), [&answers, i](std::optional<References> windows) {
            answers[i] = std::move(windows).value_or(References());
        });
    }
    if (!run(m_bus, deadline))
        return std::nullopt;
    m_direct = AtSpiConnection::openDirect(address, m_stop);
    if (m_direct)
        m_target = m_direct.get();
    std::vector<AtSpiReference> windows;
    for (const References &some : answers)
        windows.insert(windows.end(), some.begin(), some.end());
    if (windows.size() > maximumWindows)
        windows.resize(maximumWindows);
    return windows;
}

/// Looks for the menu bar of every window at once, level by level, and no deeper than the first
/// that takes up room on the screen: some programs have a second one there that nobody sees.
bool AtSpiMenuReader::searchMenuBars(std::vector<Window> &windows, const QDeadlineTimer &deadline)
{
    struct Place
    {
        std::size_t window;
        AtSpiReference element;
    };
    std::vector<Place> level;
    for (std::size_t i = 0; i < windows.size(); ++i)
        level.push_back({i, windows[i].element});
    std::size_t searched = 0;
    for (int depth = 0; depth < maximumSearchDepth && !level.empty(); ++depth) {
        std::vector<std::uint32_t> roles(level.size());
        std::vector<References> children(level.size());
        for (std::size_t i = 0; i < level.size(); ++i) {
            m_target->askRole(level[i].element, [&roles, i](std::optional<std::uint32_t> role) {
                roles[i] = role.value_or(0);
            });
            m_target->askChildren(
                level[i].element, [&children, i](std::optional<References> answer) {
                    children[i] = std::move(answer).value_or(References());
                });
        }
        if (!run(*m_target, deadline))
            return false;
        std::vector<bool> isOnScreen(level.size());
        for (std::size_t i = 0; i < level.size(); ++i) {
            if (roles[i] != AtSpiConnection::menuBar)
                continue;
            m_target->askExtents(level[i].element, [&isOnScreen, i](std::optional<QRect> extents) {
                isOnScreen[i] = extents && !extents->isEmpty();
            });
        }
        if (!run(*m_target, deadline))
            return false;
        for (std::size_t i = 0; i < level.size(); ++i) {
            Window &window = windows[level[i].window];
            if (roles[i] == AtSpiConnection::menuBar && !window.isOnScreen &&
                (!window.menuBar || isOnScreen[i])) {
                window.menuBar = level[i].element;
                window.isPopulated = !children[i].empty();
                window.isOnScreen = isOnScreen[i];
            }
        }
        std::vector<Place> next;
        for (std::size_t i = 0; i < level.size(); ++i) {
            if (windows[level[i].window].isOnScreen || !mayHoldMenuBar(roles[i]))
                continue;
            for (AtSpiReference &child : children[i]) {
                if (child.bus == level[i].element.bus && ++searched <= maximumSearched)
                    next.push_back({level[i].window, std::move(child)});
            }
        }
        level = std::move(next);
    }
    return true;
}

std::optional<AtSpiReference>
AtSpiMenuReader::findMenuBar(std::int32_t process, const QDeadlineTimer &deadline)
{
    const auto elements = windowsOf(process, deadline);
    if (!elements)
        return std::nullopt;
    std::vector<Window> windows(elements->size());
    for (std::size_t i = 0; i < windows.size(); ++i) {
        windows[i].element = elements->at(i);
        m_target->askStates(
            windows[i].element, [&window = windows[i]](std::optional<std::uint64_t> states) {
                window.isActive = (states.value_or(0) >> AtSpiConnection::active & 1U) != 0;
            });
    }
    if (!searchMenuBars(windows, deadline))
        return std::nullopt;
    const Window *best = nullptr;
    const auto rank = [](const Window &window) {
        return (window.isPopulated ? 4 : 0) + (window.isActive ? 2 : 0) +
               (window.isOnScreen ? 1 : 0);
    };
    for (const Window &window : windows) {
        if (window.menuBar && (!best || rank(window) > rank(*best)))
            best = &window;
    }
    return best ? best->menuBar : std::nullopt;
}

std::optional<MenuSnapshot>
AtSpiMenuReader::readMenuBar(std::int32_t process, const QDeadlineTimer &deadline)
{
    const auto menuBar = findMenuBar(process, deadline);
    if (!menuBar)
        return std::nullopt;

    MenuSnapshot snapshot;
    QSet<QByteArray> seen;
    std::function<void(const AtSpiReference &)> read = [&](const AtSpiReference &element) {
        const std::size_t position = snapshot.nodes.size();
        snapshot.nodes.emplace_back();
        seen.insert(element.path);
        m_target->askChildren(
            element, [&, position, bus = element.bus](const std::optional<References> &children) {
                if (!children)
                    return;
                for (const AtSpiReference &child : *children) {
                    // A tree that leads back into itself, or into another program, ends there.
                    if (child.bus != bus || seen.contains(child.path))
                        continue;
                    if (snapshot.nodes.size() >= maximumElements)
                        return;
                    snapshot.nodes[position].children.push_back(snapshot.nodes.size());
                    read(child);
                }
            });
        m_target->askName(element, [&snapshot, position](const std::optional<QString> &name) {
            snapshot.nodes[position].title = cleanTitle(name.value_or(QString()));
        });
        m_target->askKeyBinding(element, [&snapshot, position](std::optional<QString> binding) {
            snapshot.nodes[position].keyBinding = std::move(binding).value_or(QString());
        });
    };
    read(*menuBar);
    const Outcome outcome = m_target->run(deadline, silence);
    m_target->forget();
    if (outcome != Outcome::Done && outcome != Outcome::OutOfTime)
        return std::nullopt;
    return snapshot;
}

std::optional<AtSpiMenuReader::Menus>
AtSpiMenuReader::openMenus(std::int32_t process, const QDeadlineTimer &deadline)
{
    const auto windows = windowsOf(process, deadline);
    if (!windows)
        return std::nullopt;

    struct Place
    {
        AtSpiReference element;
        std::uint32_t role = 0;
        std::uint64_t states = 0;
        std::optional<QRect> extents;
        References children;
    };
    const auto look = [&](const References &elements) {
        std::vector<Place> places(elements.size());
        for (std::size_t i = 0; i < elements.size(); ++i) {
            Place &place = places[i];
            place.element = elements[i];
            m_target->askRole(elements[i], [&place](auto role) { place.role = role.value_or(0); });
            m_target->askStates(
                elements[i], [&place](auto states) { place.states = states.value_or(0); });
            m_target->askExtents(elements[i], [&place](auto extents) { place.extents = extents; });
            m_target->askChildren(elements[i], [&place](auto children) {
                place.children = std::move(children).value_or(References());
            });
        }
        return places;
    };

    // Menu bars lead to the menus that hang below them; context menus are windows of their own.
    References level;
    std::vector<Window> searched(windows->size());
    for (std::size_t i = 0; i < searched.size(); ++i)
        searched[i].element = windows->at(i);
    if (!searchMenuBars(searched, deadline))
        return std::nullopt;
    for (const Window &window : searched)
        level.push_back(window.menuBar.value_or(window.element));

    Menus menus;
    // Of each menu the place of the element that holds its items.
    std::vector<std::optional<QRect>> around;
    // Of each element of the level the menu in which it stands.
    std::vector<std::optional<std::size_t>> menuOf(level.size());
    struct Named
    {
        AtSpiReference element;
        std::size_t menu;
        std::size_t item;
    };
    std::vector<Named> named;
    for (int depth = 0; depth < maximumSearchDepth && !level.empty(); ++depth) {
        const std::vector<Place> places = look(level);
        if (!run(*m_target, deadline))
            return std::nullopt;
        References next;
        std::vector<std::optional<std::size_t>> nextMenuOf;
        for (std::size_t i = 0; i < places.size(); ++i) {
            const Place &place = places[i];
            const bool isShowing = (place.states >> AtSpiConnection::showing & 1U) != 0;
            const bool isMenuLike = isItem(place.role) || place.role == AtSpiConnection::menu ||
                                    place.role == AtSpiConnection::menuBar ||
                                    place.role == AtSpiConnection::popupMenu || depth == 0;
            if (const auto menu = menuOf[i];
                menu && isShowing && place.extents && !place.extents->isEmpty()) {
                menus[*menu].place |= *place.extents;
                if (isItem(place.role)) {
                    named.push_back({place.element, *menu, menus[*menu].items.size()});
                    menus[*menu].items.push_back({{}, *place.extents, !place.children.empty()});
                }
            }
            if (!isMenuLike || (!isShowing && depth > 0))
                continue;
            // The titles in a menu bar stand in no menu.
            std::optional<std::size_t> menu;
            if (place.role != AtSpiConnection::menuBar) {
                menu = menus.size();
                menus.emplace_back();
                around.push_back(place.extents);
            }
            for (const AtSpiReference &child : place.children) {
                if (child.bus == place.element.bus && next.size() < maximumSearched) {
                    next.push_back(child);
                    nextMenuOf.push_back(menu);
                }
            }
        }
        level = std::move(next);
        menuOf = std::move(nextMenuOf);
    }
    for (const Named &item : named) {
        m_target->askName(
            item.element,
            [&title = menus[item.menu].items[item.item].title](const std::optional<QString> &name) {
                title = cleanTitle(name.value_or(QString()));
            });
    }
    if (!run(*m_target, deadline))
        return std::nullopt;
    for (std::size_t i = 0; i < menus.size(); ++i) {
        // GTK leaves out the menu itself: there the items hang below the title that opens them.
        menus[i].isWhole = around[i] && around[i]->contains(menus[i].place);
        if (menus[i].isWhole)
            menus[i].place = *around[i];
    }
    return menus;
}

} // namespace hmatnik::platform
