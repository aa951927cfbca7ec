#pragma once

#include "platform/Accessibility.h"
#include "platform/BackgroundTasks.h"
#include "platform/linux/AtSpiMenuReader.h"
#include "platform/linux/AtSpiStatus.h"
#include "platform/linux/OpenMenu.h"

#include <QByteArray>
#include <QDBusConnection>
#include <QMutex>
#include <QPoint>

#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <stop_token>

namespace hmatnik::platform {

/// Looks into other programs over the accessibility bus (AT-SPI2).
///
/// Reading "AXMenuBar" of an application takes the whole menu bar over at once, within 8 seconds;
/// its elements then answer from memory, as the menus were at that moment. Keys and modifiers are
/// given as KeyBinding explains; elements without a shortcut give none. "AXRole" of these elements
/// follows from their place: "AXMenuBar", "AXMenuBarItem", below that "AXMenuItem", or "AXMenu"
/// for what only groups others.
class AtSpiAccessibility final : public Accessibility
{
public:
    /// Gives the menu that is open at a point of the screen, if there is one.
    using MenuAt = std::function<std::optional<OpenMenu>(QPoint)>;

    explicit AtSpiAccessibility(
        MenuAt menuAt = {}, const QDBusConnection &session = QDBusConnection::sessionBus());
    ~AtSpiAccessibility() override;

    Availability availability() const override;
    bool isTrusted() const override;
    bool waitForTrust(const std::stop_token &stop) override;
    Subscription onTrustChange(std::function<void()> handler) override;
    void requestTrust() override;
    AccessibleElementPtr
    applicationElement(std::int32_t processIdentifier, const std::stop_token &stop) override;
    /// Finds items of open menus and nothing else. Takes half a second at most; costs no look into
    /// another program where no menu is open.
    ElementAtPosition elementAtPosition(float x, float y) override;
    /// Reads a process's open menus in the background, for a look at a position after they have
    /// closed.
    void readOpenMenus(std::int32_t processIdentifier);

    /// Where the accessibility bus is; shared with elements, which may outlive this object.
    class Bus;

private:
    QDBusConnection m_session;
    std::shared_ptr<Bus> m_bus;
    MenuAt m_menuAt;
    std::unique_ptr<AtSpiStatus> m_status;
    std::int32_t m_menuOwner = 0;
    /// The menus that the owner opened last, once they are read.
    std::shared_future<AtSpiMenuReader::Menus> m_openMenus;
    // Ended first.
    BackgroundTasks m_readers;
};

} // namespace hmatnik::platform
