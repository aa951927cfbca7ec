#include "platform/linux/AtSpiStatus.h"

#include <QDBusMessage>
#include <QDBusPendingCall>

#include <chrono>
#include <limits>
#include <utility>

namespace hmatnik::platform {

using namespace Qt::StringLiterals;

namespace {

constexpr int firstAnswerTimeout = 100; // milliseconds
constexpr std::chrono::milliseconds lateAnswerTimeout{2500};
/// Takes an answer whenever it comes.
constexpr int noTimeout = std::numeric_limits<int>::max();

const QString service = u"org.a11y.Bus"_s;
const QString path = u"/org/a11y/bus"_s;
const QString properties = u"org.freedesktop.DBus.Properties"_s;
const QString statusInterface = u"org.a11y.Status"_s;
const QString isEnabledProperty = u"IsEnabled"_s;

QDBusMessage question()
{
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, properties, u"Get"_s);
    message.setArguments({statusInterface, isEnabledProperty});
    return message;
}

} // namespace

AtSpiStatus::AtSpiStatus(const QDBusConnection &session)
    : m_session(session)
{
    if (!m_session.isConnected())
        return;
    // Qt looks the slots' types up by name, and knows its own D-Bus types by name only after the
    // first message that held one.
    qRegisterMetaType<QDBusVariant>();
    m_session.connect(
        service, path, properties, u"PropertiesChanged"_s, this,
        SLOT(takeChange(QString, QVariantMap, QStringList)));
    m_watcher.setConnection(m_session);
    m_watcher.setWatchMode(QDBusServiceWatcher::WatchForOwnerChange);
    m_watcher.addWatchedService(service);
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this, &AtSpiStatus::takeOwner);
}

bool AtSpiStatus::isEnabled()
{
    if (const auto isEnabled = known())
        return *isEnabled;
    if (!m_session.isConnected())
        return false;
    if (m_hasWaited) {
        askUnlessAsked();
        return false;
    }
    m_hasWaited = true;
    const QDBusMessage answer = m_session.call(question(), QDBus::Block, firstAnswerTimeout);
    if (answer.type() != QDBusMessage::ReplyMessage) {
        askUnlessAsked();
        return false;
    }
    const bool isEnabled = answer.arguments().value(0).value<QDBusVariant>().variant().toBool();
    m_wasEnabled = isEnabled;
    setKnown(isEnabled);
    return isEnabled;
}

bool AtSpiStatus::waitUntilKnown(const std::stop_token &stop)
{
    if (!known() && m_session.isConnected())
        askUnlessAsked();
    std::unique_lock lock(m_mutex);
    m_isNews.wait_for(lock, stop, lateAnswerTimeout, [this] { return m_known || m_asked == 0; });
    return m_known.value_or(false);
}

void AtSpiStatus::requestEnabled()
{
    QDBusMessage request = QDBusMessage::createMethodCall(service, path, properties, u"Set"_s);
    request.setArguments(
        {statusInterface, isEnabledProperty, QVariant::fromValue(QDBusVariant(true))});
    m_session.asyncCall(request);
}

Subscription AtSpiStatus::onChange(std::function<void()> handler)
{
    return m_handlers.add(std::move(handler));
}

/// Asks and waits for nothing.
void AtSpiStatus::ask()
{
    const std::lock_guard lock(m_mutex);
    if (m_session.callWithCallback(
            question(), this, SLOT(takeAnswer(QDBusVariant)), SLOT(takeRefusal(QDBusError)),
            noTimeout))
        ++m_asked;
}

void AtSpiStatus::askUnlessAsked()
{
    bool isAsked = false;
    {
        const std::lock_guard lock(m_mutex);
        isAsked = m_asked > 0;
    }
    if (!isAsked)
        ask();
}

std::optional<bool> AtSpiStatus::known()
{
    const std::lock_guard lock(m_mutex);
    return m_known;
}

void AtSpiStatus::setKnown(std::optional<bool> isEnabled)
{
    {
        const std::lock_guard lock(m_mutex);
        m_known = isEnabled;
    }
    m_isNews.notify_all();
    tell(isEnabled.value_or(false));
}

void AtSpiStatus::tell(bool isEnabled)
{
    if (std::exchange(m_wasEnabled, isEnabled) != isEnabled)
        m_handlers.call();
}

void AtSpiStatus::takeAnswer(const QDBusVariant &answer)
{
    bool isEnabled = answer.variant().toBool();
    {
        const std::lock_guard lock(m_mutex);
        --m_asked;
        // A change that has come in meanwhile is newer than the answer.
        isEnabled = m_known.value_or(isEnabled);
        m_known = isEnabled;
    }
    m_isNews.notify_all();
    tell(isEnabled);
}

/// There is no such service, or it went while it was asked. It is asked again when it comes.
void AtSpiStatus::takeRefusal(const QDBusError &)
{
    {
        const std::lock_guard lock(m_mutex);
        --m_asked;
    }
    m_isNews.notify_all();
}

void AtSpiStatus::takeOwner(const QString &, const QString &, const QString &newOwner)
{
    setKnown(std::nullopt);
    if (!newOwner.isEmpty())
        ask();
}

void AtSpiStatus::takeChange(
    const QString &interface, const QVariantMap &changed, const QStringList &invalidated)
{
    if (interface != statusInterface)
        return;
    if (const auto value = changed.constFind(isEnabledProperty); value != changed.constEnd()) {
        setKnown(value->toBool());
    } else if (invalidated.contains(isEnabledProperty)) {
        setKnown(std::nullopt);
        ask();
    }
}

} // namespace hmatnik::platform
