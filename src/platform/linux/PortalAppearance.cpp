#include "platform/linux/PortalAppearance.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>

#include <array>
#include <vector>

namespace hmatnik::platform {

using namespace Qt::StringLiterals;

namespace {

constexpr int firstAnswerTimeout = 100; // milliseconds

const QString service = u"org.freedesktop.portal.Desktop"_s;
const QString path = u"/org/freedesktop/portal/desktop"_s;
const QString interface = u"org.freedesktop.portal.Settings"_s;

const QString appearance = u"org.freedesktop.appearance"_s;
const QString gnomeInterface = u"org.gnome.desktop.interface"_s;
const QString gnomeAccessibility = u"org.gnome.desktop.a11y.interface"_s;
const QString colorSchemeKey = u"color-scheme"_s;
const QString reducedMotionKey = u"reduced-motion"_s;
const QString animationsKey = u"enable-animations"_s;
const QString contrastKey = u"contrast"_s;
const QString highContrastKey = u"high-contrast"_s;

struct Setting
{
    QString group;
    QString key;
};

std::array<Setting, 5> settings()
{
    return {
        {{appearance, colorSchemeKey},
         {appearance, reducedMotionKey},
         {gnomeInterface, animationsKey},
         {appearance, contrastKey},
         {gnomeAccessibility, highContrastKey}}};
}

QDBusMessage question(const Setting &setting)
{
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, u"Read"_s);
    message.setArguments({setting.group, setting.key});
    return message;
}

/// Portals wrap the value once, and the older of their two ways of reading once more.
QVariant unwrapped(QVariant value)
{
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

} // namespace

PortalAppearance::PortalAppearance(const QDBusConnection &bus)
    : m_bus(bus)
{
    if (!m_bus.isConnected())
        return;
    // Qt looks the slot's types up by name, and knows its own D-Bus types by name only after the
    // first message that held one.
    qRegisterMetaType<QDBusVariant>();
    m_bus.connect(
        service, path, interface, u"SettingChanged"_s, this,
        SLOT(takeChange(QString, QString, QDBusVariant)));
    m_watcher.setConnection(m_bus);
    m_watcher.setWatchMode(QDBusServiceWatcher::WatchForRegistration);
    m_watcher.addWatchedService(service);
    connect(&m_watcher, &QDBusServiceWatcher::serviceRegistered, this, &PortalAppearance::askLater);

    QDBusMessage isRunning = QDBusMessage::createMethodCall(
        u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s,
        u"NameHasOwner"_s);
    isRunning.setArguments({service});
    const QDBusMessage answer = m_bus.call(isRunning, QDBus::Block, firstAnswerTimeout);
    if (answer.type() == QDBusMessage::ReplyMessage && answer.arguments().value(0).toBool())
        askNow();
    else
        askLater();
}

bool PortalAppearance::reducedMotion() const
{
    return m_reducedMotion.value_or(!m_animations.value_or(true));
}

bool PortalAppearance::highContrast() const
{
    return m_contrast.value_or(m_accessibleTheme.value_or(false));
}

Subscription PortalAppearance::onChange(std::function<void()> handler)
{
    return m_handlers.add(std::move(handler));
}

/// Sends every question at once, so that all of them together wait no longer than one.
void PortalAppearance::askNow()
{
    std::vector<QDBusPendingCall> calls;
    for (const Setting &setting : settings())
        calls.push_back(m_bus.asyncCall(question(setting), firstAnswerTimeout));
    bool isLate = false;
    for (std::size_t i = 0; i < calls.size(); ++i) {
        calls[i].waitForFinished();
        const QDBusMessage reply = calls[i].reply();
        if (reply.type() == QDBusMessage::ReplyMessage)
            take(settings()[i].group, settings()[i].key, reply.arguments().value(0));
        else if (calls[i].error().type() == QDBusError::NoReply)
            isLate = true;
    }
    if (isLate)
        askLater();
}

void PortalAppearance::askLater()
{
    for (const Setting &setting : settings()) {
        auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(question(setting)), this);
        connect(
            watcher, &QDBusPendingCallWatcher::finished, this,
            [this, setting](QDBusPendingCallWatcher *call) {
                call->deleteLater();
                if (!call->isError())
                    take(setting.group, setting.key, call->reply().arguments().value(0));
            });
    }
}

void PortalAppearance::takeChange(
    const QString &group, const QString &key, const QDBusVariant &value)
{
    take(group, key, QVariant::fromValue(value));
}

void PortalAppearance::take(const QString &group, const QString &key, const QVariant &wrapped)
{
    const QVariant value = unwrapped(wrapped);
    const auto colorSchemeBefore = m_colorScheme;
    const bool reducedMotionBefore = reducedMotion();
    const bool highContrastBefore = highContrast();
    if (group == appearance && key == colorSchemeKey) {
        // 1 asks for dark, 2 for light; whatever else is no preference.
        const uint choice = value.toUInt();
        m_colorScheme = choice == 1   ? ColorScheme::Dark
                        : choice == 2 ? ColorScheme::Light
                                      : ColorScheme::NoPreference;
    } else if (group == appearance && key == reducedMotionKey) {
        m_reducedMotion = value.toUInt() == 1;
    } else if (group == gnomeInterface && key == animationsKey) {
        m_animations = value.typeId() != QMetaType::Bool || value.toBool();
    } else if (group == appearance && key == contrastKey) {
        m_contrast = value.toUInt() == 1;
    } else if (group == gnomeAccessibility && key == highContrastKey) {
        m_accessibleTheme = value.typeId() == QMetaType::Bool && value.toBool();
    }
    if (m_colorScheme != colorSchemeBefore || reducedMotion() != reducedMotionBefore ||
        highContrast() != highContrastBefore)
        m_handlers.call();
}

} // namespace hmatnik::platform
