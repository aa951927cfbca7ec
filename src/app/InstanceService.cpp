#include "app/InstanceService.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>

namespace hmatnik {

using namespace Qt::StringLiterals;

namespace {

const QString serviceName = u"cz.hmatnik.Hmatnik"_s;
const QString objectPath = u"/cz/hmatnik/Hmatnik"_s;

// A running program that does not answer for this long is not waited for.
constexpr int handOverMilliseconds = 3000;

} // namespace

InstanceService::InstanceService(std::function<void()> reopen, QObject *parent)
    : QObject(parent)
    , m_reopen(std::move(reopen))
{
    new ApplicationAdaptor(m_reopen, this);
}

InstanceService::Outcome InstanceService::start()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return Outcome::Alone;
    bus.registerObject(objectPath, this, QDBusConnection::ExportAdaptors);
    if (bus.registerService(serviceName))
        return Outcome::Serving;
    QDBusMessage activate = QDBusMessage::createMethodCall(
        serviceName, objectPath, u"org.freedesktop.Application"_s, u"Activate"_s);
    activate << QVariantMap{
        {u"desktop-startup-id"_s, qEnvironmentVariable("DESKTOP_STARTUP_ID")},
        {u"activation-token"_s, qEnvironmentVariable("XDG_ACTIVATION_TOKEN")}};
    const QDBusMessage answer = bus.call(activate, QDBus::Block, handOverMilliseconds);
    return answer.type() == QDBusMessage::ReplyMessage ? Outcome::HandedOver : Outcome::Alone;
}

} // namespace hmatnik
