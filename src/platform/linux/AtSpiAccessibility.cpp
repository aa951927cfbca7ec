#include "platform/linux/AtSpiAccessibility.h"

#include "platform/linux/AtSpiConnection.h"
#include "platform/linux/AtSpiMenuReader.h"
#include "platform/linux/KeyBinding.h"
#include "platform/linux/MenuSnapshot.h"
#include "platform/linux/MenuUnits.h"

#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QMutexLocker>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace hmatnik::platform {

using namespace Qt::StringLiterals;

namespace {

constexpr int readFailed = -1;
constexpr int unsupported = -2;
constexpr int noElement = -3;

constexpr int menuBarTimeout = 8000; // milliseconds
constexpr int positionTimeout = 500;
constexpr int addressTimeout = 1000;

AttributeResult success(AttributeResult::Value value)
{
    return {0, std::move(value)};
}

/// One element of a menu bar that was read before.
class SnapshotElement final : public AccessibleElement
{
public:
    SnapshotElement(std::shared_ptr<const MenuSnapshot> snapshot, std::size_t position, int depth)
        : m_snapshot(std::move(snapshot))
        , m_position(position)
        , m_depth(depth)
    {
    }

    AttributeResult attribute(QStringView name) const override
    {
        if (name == u"AXChildren")
            return success(children());
        if (name == u"AXRole")
            return success(role());
        if (name == u"AXTitle")
            return node().title.isEmpty() ? AttributeResult{readFailed, {}} : success(node().title);
        if (name != u"AXMenuItemCmdChar" && name != u"AXMenuItemCmdModifiers")
            return {unsupported, {}};
        const auto binding = KeyBinding::parse(node().keyBinding, node().title);
        if (!binding)
            return {readFailed, {}};
        return name == u"AXMenuItemCmdChar" ? success(binding->character)
                                            : success(binding->modifiers);
    }

private:
    const MenuSnapshot::Node &node() const { return m_snapshot->nodes[m_position]; }

    std::vector<AccessibleElementPtr> children() const
    {
        std::vector<AccessibleElementPtr> elements;
        elements.reserve(node().children.size());
        for (const std::size_t child : node().children)
            elements.push_back(std::make_shared<SnapshotElement>(m_snapshot, child, m_depth + 1));
        return elements;
    }

    QString role() const
    {
        if (m_depth == 0)
            return u"AXMenuBar"_s;
        if (m_depth == 1)
            return u"AXMenuBarItem"_s;
        return node().title.isEmpty() && !node().children.empty() ? u"AXMenu"_s : u"AXMenuItem"_s;
    }

    std::shared_ptr<const MenuSnapshot> m_snapshot;
    std::size_t m_position;
    int m_depth;
};

/// An item of an open menu.
class ItemElement final : public AccessibleElement
{
public:
    explicit ItemElement(AtSpiMenuReader::Item item)
        : m_item(std::move(item))
    {
    }

    AttributeResult attribute(QStringView name) const override
    {
        // Opening a submenu is no command yet.
        if (name == u"AXRole")
            return success(m_item.hasSubmenu ? u"AXMenu"_s : u"AXMenuItem"_s);
        if (name == u"AXTitle")
            return success(m_item.title);
        return {unsupported, {}};
    }

private:
    AtSpiMenuReader::Item m_item;
};

} // namespace

class AtSpiAccessibility::Bus
{
public:
    explicit Bus(const QDBusConnection &session)
        : m_session(session)
    {
    }

    /// A new connection to the accessibility bus, for the thread that asks; null if there is none.
    /// @param stop ends the wait for it, and every later one on it
    std::unique_ptr<AtSpiConnection>
    connect(const QDeadlineTimer &deadline, const std::stop_token &stop)
    {
        if (const QByteArray address = knownAddress(); !address.isEmpty()) {
            if (auto connection = open(address, deadline, stop))
                return connection;
        }
        // It may have started anew elsewhere.
        if (deadline.hasExpired() || stop.stop_requested())
            return nullptr;
        const QDBusMessage answer = askAddress(
            static_cast<int>(std::min<qint64>(addressTimeout, deadline.remainingTime())), stop);
        if (answer.type() != QDBusMessage::ReplyMessage)
            return nullptr;
        const QByteArray address = answer.arguments().value(0).toString().toUtf8();
        if (address.isEmpty())
            return nullptr;
        {
            const QMutexLocker lock(&m_mutex);
            m_address = address;
        }
        return open(address, deadline, stop);
    }

private:
    QDBusMessage askAddress(int timeout, const std::stop_token &stop) const
    {
        const QDBusMessage question = QDBusMessage::createMethodCall(
            u"org.a11y.Bus"_s, u"/org/a11y/bus"_s, u"org.a11y.Bus"_s, u"GetAddress"_s);
        if (!stop.stop_possible())
            return m_session.call(question, QDBus::Block, timeout);
        const QDBusPendingCallWatcher watcher(m_session.asyncCall(question, timeout));
        QEventLoop loop;
        QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
        const std::stop_callback onStop(stop, [&loop] {
            QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
        });
        if (!watcher.isFinished())
            loop.exec();
        return watcher.reply();
    }

    QByteArray knownAddress()
    {
        const QMutexLocker lock(&m_mutex);
        return m_address;
    }

    /// Waits without the lock: one thread's patience is not another's.
    std::unique_ptr<AtSpiConnection>
    open(const QByteArray &address, const QDeadlineTimer &deadline, const std::stop_token &stop)
    {
        if (isStillSilent(address))
            return nullptr;
        auto connection = AtSpiConnection::begin(address, deadline, stop);
        if (!connection)
            return nullptr;
        const auto outcome = connection->welcome(deadline);
        if (outcome == AtSpiConnection::Outcome::Done)
            return connection;
        if (outcome == AtSpiConnection::Outcome::Silent) {
            const QMutexLocker lock(&m_mutex);
            m_silent = std::move(connection);
            m_silentAddress = address;
        }
        return nullptr;
    }

    /// Whether the bus has not even answered the last one who came. It is not asked again before:
    /// a stopped one takes in only so many, and would then keep each of us waiting.
    bool isStillSilent(const QByteArray &address)
    {
        const QMutexLocker lock(&m_mutex);
        if (m_silent && m_silentAddress == address &&
            m_silent->welcome(QDeadlineTimer(1)) == AtSpiConnection::Outcome::Silent)
            return true;
        m_silent.reset();
        return false;
    }

    QDBusConnection m_session;
    QMutex m_mutex;
    QByteArray m_address;
    std::unique_ptr<AtSpiConnection> m_silent;
    QByteArray m_silentAddress;
};

namespace {

/// A whole application; asks it only when its menu bar is asked for.
class ApplicationElement final : public AccessibleElement
{
public:
    ApplicationElement(
        std::shared_ptr<AtSpiAccessibility::Bus> bus, std::int32_t process, std::stop_token stop)
        : m_bus(std::move(bus))
        , m_process(process)
        , m_stop(std::move(stop))
    {
    }

    AttributeResult attribute(QStringView name) const override
    {
        if (name == u"AXRole")
            return success(u"AXApplication"_s);
        if (name != u"AXMenuBar")
            return {unsupported, {}};
        const QDeadlineTimer deadline(menuBarTimeout);
        const auto connection = m_bus->connect(deadline, m_stop);
        if (!connection)
            return {readFailed, {}};
        auto snapshot = AtSpiMenuReader(*connection, m_stop).readMenuBar(m_process, deadline);
        if (!snapshot)
            return {readFailed, {}};
        return success(AccessibleElementPtr(std::make_shared<SnapshotElement>(
            std::make_shared<const MenuSnapshot>(std::move(*snapshot)), 0, 0)));
    }

private:
    std::shared_ptr<AtSpiAccessibility::Bus> m_bus;
    std::int32_t m_process;
    std::stop_token m_stop;
};

} // namespace

namespace {

/// All open menus of a process; none if it does not answer.
AtSpiMenuReader::Menus openMenus(
    AtSpiAccessibility::Bus &bus, std::int32_t process, const QDeadlineTimer &deadline,
    const std::stop_token &stop = {})
{
    const auto connection = bus.connect(deadline, stop);
    if (!connection)
        return {};
    return AtSpiMenuReader(*connection, stop)
        .openMenus(process, deadline)
        .value_or(AtSpiMenuReader::Menus());
}

/// The item at a pixel of the screen, of those in the menu whose window is there.
std::optional<AtSpiMenuReader::Item>
itemAt(const AtSpiMenuReader::Menus &menus, QPoint position, const QRect &window)
{
    const AtSpiMenuReader::Menu *menu = nullptr;
    std::optional<MenuUnits> units;
    for (const AtSpiMenuReader::Menu &candidate : menus) {
        const auto its = MenuUnits::of(candidate.place, candidate.isWhole, window);
        if (its && (!units || its->misfit() <= units->misfit())) {
            menu = &candidate;
            units = its;
        }
    }
    if (!menu)
        return std::nullopt;
    const auto found = std::find_if(
        menu->items.crbegin(), menu->items.crend(),
        [place = units->fromPixels(position)](const auto &item) {
            return item.place.contains(place);
        });
    return found != menu->items.crend() ? std::optional(*found) : std::nullopt;
}

} // namespace

AtSpiAccessibility::AtSpiAccessibility(MenuAt menuAt, const QDBusConnection &session)
    : m_session(session)
    , m_bus(std::make_shared<Bus>(session))
    , m_menuAt(std::move(menuAt))
    , m_status(std::make_unique<AtSpiStatus>(session))
{
}

AtSpiAccessibility::~AtSpiAccessibility() = default;

Availability AtSpiAccessibility::availability() const
{
    return m_session.isConnected()
               ? Availability::yes()
               : Availability::no(u"Není k dispozici sběrnice D-Bus, přes kterou se čtou menu."_s);
}

bool AtSpiAccessibility::isTrusted() const
{
    return m_status->isEnabled();
}

bool AtSpiAccessibility::waitForTrust(const std::stop_token &stop)
{
    return m_status->waitUntilKnown(stop);
}

Subscription AtSpiAccessibility::onTrustChange(std::function<void()> handler)
{
    return m_status->onChange(std::move(handler));
}

void AtSpiAccessibility::requestTrust()
{
    m_status->requestEnabled();
}

AccessibleElementPtr
AtSpiAccessibility::applicationElement(std::int32_t processIdentifier, const std::stop_token &stop)
{
    return std::make_shared<ApplicationElement>(m_bus, processIdentifier, stop);
}

Accessibility::ElementAtPosition AtSpiAccessibility::elementAtPosition(float x, float y)
{
    const QPoint position(static_cast<int>(std::floor(x)), static_cast<int>(std::floor(y)));
    const auto menu = m_menuAt ? m_menuAt(position) : std::nullopt;
    if (!menu)
        return {noElement, nullptr};
    const QDeadlineTimer deadline(positionTimeout);
    auto item = itemAt(openMenus(*m_bus, menu->process, deadline), position, menu->place);
    // A quick click may have closed the menu already; then it counts how the menu was when it
    // opened.
    if (!item && menu->process == m_menuOwner &&
        m_openMenus.wait_for(std::chrono::milliseconds(deadline.remainingTime())) ==
            std::future_status::ready)
        item = itemAt(m_openMenus.get(), position, menu->place);
    if (!item)
        return {noElement, nullptr};
    return {0, std::make_shared<ItemElement>(std::move(*item))};
}

void AtSpiAccessibility::readOpenMenus(std::int32_t processIdentifier)
{
    if (!isTrusted())
        return;
    m_menuOwner = 0;
    const auto promise = std::make_shared<std::promise<AtSpiMenuReader::Menus>>();
    const bool hasBegun =
        m_readers.start([bus = m_bus, processIdentifier, promise](const std::stop_token &stop) {
            promise->set_value(
                openMenus(*bus, processIdentifier, QDeadlineTimer(positionTimeout), stop));
        });
    // Without a thread to read it, the menu is still looked into when it is clicked.
    if (!hasBegun)
        return;
    m_menuOwner = processIdentifier;
    m_openMenus = promise->get_future().share();
}

} // namespace hmatnik::platform
