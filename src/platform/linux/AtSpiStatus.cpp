#include "platform/linux/AtSpiStatus.h"

#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusVariant>

namespace hmatnik::platform {

using namespace Qt::StringLiterals;

namespace {

constexpr int firstAnswerTimeout = 100; // milliseconds

const QString service = u"org.a11y.Bus"_s;
const QString path = u"/org/a11y/bus"_s;
const QString properties = u"org.freedesktop.DBus.Properties"_s;
const QString statusInterface = u"org.a11y.Status"_s;
const QString isEnabledProperty = u"IsEnabled"_s;

} // namespace

AtSpiStatus::AtSpiStatus(const QDBusConnection &session)
    : m_session(session)
{
    if (!m_session.isConnected())
        return;
    m_session.connect(
        service, path, properties, u"PropertiesChanged"_s, this,
        SLOT(takeChange(QString, QVariantMap, QStringList)));
    m_watcher.setConnection(m_session);
    m_watcher.setWatchMode(QDBusServiceWatcher::WatchForOwnerChange);
    m_watcher.addWatchedService(service);
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this, [this] {
        m_known = Known::Nothing;
    });
}

bool AtSpiStatus::isEnabled()
{
    if (const Known known = m_known; known != Known::Nothing)
        return known == Known::Yes;
    if (!m_session.isConnected())
        return false;
    QDBusMessage question = QDBusMessage::createMethodCall(service, path, properties, u"Get"_s);
    question.setArguments({statusInterface, isEnabledProperty});
    const QDBusMessage answer = m_session.call(question, QDBus::Block, firstAnswerTimeout);
    if (answer.type() != QDBusMessage::ReplyMessage)
        return false;
    const bool isEnabled = answer.arguments().value(0).value<QDBusVariant>().variant().toBool();
    // A change that has come in meanwhile is newer than the answer.
    Known nothing = Known::Nothing;
    m_known.compare_exchange_strong(nothing, isEnabled ? Known::Yes : Known::No);
    return isEnabled;
}

void AtSpiStatus::requestEnabled()
{
    QDBusMessage request = QDBusMessage::createMethodCall(service, path, properties, u"Set"_s);
    request.setArguments(
        {statusInterface, isEnabledProperty, QVariant::fromValue(QDBusVariant(true))});
    m_session.asyncCall(request);
}

void AtSpiStatus::takeChange(
    const QString &interface, const QVariantMap &changed, const QStringList &invalidated)
{
    if (interface != statusInterface)
        return;
    if (const auto value = changed.constFind(isEnabledProperty); value != changed.constEnd())
        m_known = value->toBool() ? Known::Yes : Known::No;
    else if (invalidated.contains(isEnabledProperty))
        m_known = Known::Nothing;
}

} // namespace hmatnik::platform
