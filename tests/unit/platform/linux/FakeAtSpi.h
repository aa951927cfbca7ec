#pragma once

#include "AnswerThread.h"
#include "PrivateBus.h"

#include <QByteArray>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QHash>
#include <QMutex>
#include <QRect>
#include <QStringList>

#include <atomic>

namespace hmatnik::test {

/// A name on the bus and an object there.
struct FakeReference
{
    QString bus;
    QDBusObjectPath path;
};

inline QDBusArgument &operator<<(QDBusArgument &argument, const FakeReference &reference)
{
    argument.beginStructure();
    argument << reference.bus << reference.path;
    argument.endStructure();
    return argument;
}

inline const QDBusArgument &operator>>(const QDBusArgument &argument, FakeReference &reference)
{
    argument.beginStructure();
    argument >> reference.bus >> reference.path;
    argument.endStructure();
    return argument;
}

} // namespace hmatnik::test

Q_DECLARE_METATYPE(hmatnik::test::FakeReference)

namespace hmatnik::test {

/// The accessibility services of a session and one application of our own process, on a private
/// bus. It answers from a thread of its own, as another process would.
class FakeAtSpi final : public QDBusVirtualObject
{
public:
    struct Element
    {
        QString name = {};
        QString keyBinding = {};
        quint32 role = 35;
        QStringList children = {};
        quint32 states = 1U << 25;
        QRect extents = QRect(0, 0, 10, 10);
    };

    explicit FakeAtSpi(const PrivateBus &bus, bool isEnabled = false)
        : m_address(bus.address())
        , m_bus(bus.connect(QStringLiteral("application-%1").arg(++s_count)))
        , m_registry(bus.connect(QStringLiteral("registry-%1").arg(s_count)))
        , m_isEnabled(isEnabled)
    {
        qDBusRegisterMetaType<FakeReference>();
        qDBusRegisterMetaType<QList<FakeReference>>();
        m_thread.run([this] {
            for (QDBusConnection *connection : {&m_bus, &m_registry})
                connection->registerVirtualObject(s_path, this, QDBusConnection::SubPath);
        });
        m_registry.registerService(QStringLiteral("org.a11y.Bus"));
        m_registry.registerService(QStringLiteral("org.a11y.atspi.Registry"));
    }
    ~FakeAtSpi() override
    {
        m_thread.run([this] {
            for (QDBusConnection *connection : {&m_bus, &m_registry})
                connection->unregisterObject(s_path, QDBusConnection::UnregisterTree);
        });
        QDBusConnection::disconnectFromBus(m_bus.name());
        QDBusConnection::disconnectFromBus(m_registry.name());
    }

    /// Where it says that the accessibility bus is; its own bus unless told otherwise.
    void setAddress(const QString &address)
    {
        const QMutexLocker lock(&m_mutex);
        m_address = address;
    }

    /// Where the application says that it takes connections of its own; nowhere unless told.
    void setDirectAddress(const QString &address)
    {
        const QMutexLocker lock(&m_mutex);
        m_directAddress = address;
    }
    /// How long it takes to say where the bus is, and whether it is enabled, in milliseconds;
    /// nothing else is said meanwhile.
    void setAddressDelay(int milliseconds) { m_addressDelay = milliseconds; }
    void setStatusDelay(int milliseconds) { m_statusDelay = milliseconds; }

    /// Puts an element there; the application's own is "root".
    void set(const QString &name, const Element &element)
    {
        const QMutexLocker lock(&m_mutex);
        m_elements.insert(name, element);
    }
    void setEnabled(bool enabled)
    {
        m_isEnabled = enabled;
        QDBusMessage signal = QDBusMessage::createSignal(
            QStringLiteral("/org/a11y/bus"), s_properties, QStringLiteral("PropertiesChanged"));
        signal.setArguments(
            {QStringLiteral("org.a11y.Status"), QVariantMap{{QStringLiteral("IsEnabled"), enabled}},
             QStringList()});
        m_registry.send(signal);
    }
    bool isEnabled() const { return m_isEnabled; }
    /// The same without telling anybody.
    void setEnabledSilently(bool enabled) { m_isEnabled = enabled; }
    int statusQuestions() const { return m_statusQuestions; }
    /// From the given number of questions about elements on, none is answered any more.
    void fallSilentAfter(int questions) { m_silentAfter = questions; }
    /// At the given question about an element, the application goes from the bus.
    void dieAt(int question) { m_diesAt = question; }
    int questions() const { return m_questions; }

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override
    {
        if (message.path() == QStringLiteral("/org/a11y/bus"))
            return answerSession(message, bus);
        if (bus.name() == m_registry.name())
            return bus.send(message.createReply(
                QVariant::fromValue(QList<FakeReference>{reference(QStringLiteral("root"))})));
        const QString direct = directAddress();
        if (message.interface() == QStringLiteral("org.a11y.atspi.Application") &&
            !direct.isEmpty())
            return bus.send(message.createReply(direct));
        if (message.interface() == QStringLiteral("org.a11y.atspi.Application"))
            return bus.send(message.createErrorReply(
                QStringLiteral("org.freedesktop.DBus.Error.UnknownMethod"), QString()));
        const int question = ++m_questions;
        if (question >= m_diesAt) {
            // The connection closes when the last one lets go of it, this call included.
            QMetaObject::invokeMethod(
                this,
                [this] {
                    QDBusConnection::disconnectFromBus(m_bus.name());
                    m_bus = QDBusConnection(QStringLiteral("gone"));
                },
                Qt::QueuedConnection);
            m_silentAfter = 0;
            m_diesAt = 1 << 30;
            return true;
        }
        if (question > m_silentAfter)
            return true;
        return answerElement(message, bus);
    }

private:
    bool answerSession(const QDBusMessage &message, const QDBusConnection &bus)
    {
        if (message.member() == QStringLiteral("GetAddress")) {
            QThread::msleep(static_cast<unsigned long>(m_addressDelay));
            return bus.send(message.createReply(address()));
        }
        if (message.member() == QStringLiteral("Get")) {
            ++m_statusQuestions;
            QThread::msleep(static_cast<unsigned long>(m_statusDelay));
            return bus.send(
                message.createReply(QVariant::fromValue(QDBusVariant(m_isEnabled.load()))));
        }
        if (message.member() == QStringLiteral("Set")) {
            setEnabled(message.arguments().value(2).value<QDBusVariant>().variant().toBool());
            return bus.send(message.createReply());
        }
        return false;
    }

    FakeReference reference(const QString &name) const
    {
        return {
            m_bus.baseService(),
            QDBusObjectPath(QStringLiteral("/org/a11y/atspi/accessible/") + name)};
    }

    bool answerElement(const QDBusMessage &message, const QDBusConnection &bus)
    {
        const QMutexLocker lock(&m_mutex);
        const QString name = message.path().section(u'/', -1);
        const Element element = m_elements.value(name);
        const QString member = message.member();
        if (member == QStringLiteral("GetChildren")) {
            QList<FakeReference> children;
            for (const QString &child : element.children)
                children.append(
                    child.startsWith(u':')
                        ? FakeReference{child, QDBusObjectPath(QStringLiteral("/x"))}
                        : reference(child));
            return bus.send(message.createReply(QVariant::fromValue(children)));
        }
        if (member == QStringLiteral("GetRole"))
            return bus.send(message.createReply(element.role));
        if (member == QStringLiteral("Get"))
            return bus.send(message.createReply(QVariant::fromValue(QDBusVariant(element.name))));
        if (member == QStringLiteral("GetKeyBinding"))
            return bus.send(message.createReply(element.keyBinding));
        if (member == QStringLiteral("GetState"))
            return bus.send(
                message.createReply(QVariant::fromValue(QList<uint>{element.states, 0U})));
        if (member == QStringLiteral("GetExtents"))
            return bus.send(message.createReply(QVariant::fromValue(element.extents)));
        return false;
    }

    static inline const QString s_properties = QStringLiteral("org.freedesktop.DBus.Properties");
    static inline const QString s_path = QStringLiteral("/org/a11y");
    static inline int s_count = 0;

    QString address()
    {
        const QMutexLocker lock(&m_mutex);
        return m_address;
    }
    QString directAddress()
    {
        const QMutexLocker lock(&m_mutex);
        return m_directAddress;
    }

    QString m_address;
    QString m_directAddress;
    QDBusConnection m_bus;
    QDBusConnection m_registry;
    QMutex m_mutex;
    QHash<QString, Element> m_elements;
    std::atomic<bool> m_isEnabled;
    std::atomic<int> m_addressDelay = 0;
    std::atomic<int> m_statusDelay = 0;
    std::atomic<int> m_statusQuestions = 0;
    std::atomic<int> m_questions = 0;
    std::atomic<int> m_silentAfter = 1 << 30;
    std::atomic<int> m_diesAt = 1 << 30;
    // Goes first.
    AnswerThread m_thread{*this};
};

} // namespace hmatnik::test
