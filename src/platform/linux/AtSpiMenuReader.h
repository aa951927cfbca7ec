#pragma once

#include "platform/linux/AtSpiConnection.h"
#include "platform/linux/MenuSnapshot.h"

#include <QDeadlineTimer>
#include <QRect>

#include <cstdint>
#include <memory>
#include <optional>
#include <stop_token>
#include <utility>
#include <vector>

namespace hmatnik::platform {

/// Reads other programs' menus over the accessibility bus.
///
/// Bounds, which no honest program meets: 20,000 elements of a menu bar, each read once however
/// often it turns up; titles of 1,000 characters, longer ones count as absent; 64 windows.
class AtSpiMenuReader
{
public:
    /// @param connection must outlive the reader
    /// @param stop ends connections that the reader makes itself
    explicit AtSpiMenuReader(AtSpiConnection &connection, std::stop_token stop = {})
        : m_bus(connection)
        , m_stop(std::move(stop))
        , m_target(&connection)
    {
    }

    /// The menu bar of the process: of its active window, else of the first that has one with
    /// something in it. None if it has no menu bar, has gone, or stopped answering. Of a menu too
    /// large to be read by the deadline, what was read until then.
    std::optional<MenuSnapshot> readMenuBar(std::int32_t process, const QDeadlineTimer &deadline);

    /// A menu item on the screen.
    struct Item
    {
        QString title;
        /// Where it is, in the program's units.
        QRect place;
        /// It opens a menu of its own.
        bool hasSubmenu = false;
    };
    /// A menu on the screen; see MenuUnits.
    struct Menu
    {
        /// Where it is, in the program's units.
        QRect place;
        /// Whether that is the menu itself; else it is all that stands in it.
        bool isWhole = false;
        std::vector<Item> items;
    };
    using Menus = std::vector<Menu>;
    /// All menus that the process shows; what lies on top comes last.
    std::optional<Menus> openMenus(std::int32_t process, const QDeadlineTimer &deadline);

private:
    struct Window
    {
        AtSpiReference element;
        bool isActive = false;
        std::optional<AtSpiReference> menuBar;
        bool isPopulated = false;
        bool isOnScreen = false;
    };

    static bool run(AtSpiConnection &connection, const QDeadlineTimer &deadline);
    std::optional<std::vector<AtSpiReference>>
    applicationsOf(std::int32_t process, const QDeadlineTimer &deadline);
    std::optional<std::vector<AtSpiReference>>
    windowsOf(std::int32_t process, const QDeadlineTimer &deadline);
    std::optional<AtSpiReference> findMenuBar(std::int32_t process, const QDeadlineTimer &deadline);
    bool searchMenuBars(std::vector<Window> &windows, const QDeadlineTimer &deadline);

    AtSpiConnection &m_bus;
    std::stop_token m_stop;
    std::unique_ptr<AtSpiConnection> m_direct;
    /// Where the program we read is asked: directly if it takes connections, else over the bus.
    AtSpiConnection *m_target;
};

} // namespace hmatnik::platform
