#include "platform/linux/AtSpiConnection.h"

#include <QElapsedTimer>

#include <dbus/dbus.h>

#include <algorithm>
#include <cstring>
#include <utility>

namespace hmatnik::platform {

namespace {

constexpr const char *busName = "org.freedesktop.DBus";
constexpr const char *busPath = "/org/freedesktop/DBus";
constexpr const char *accessible = "org.a11y.atspi.Accessible";
constexpr const char *noObject = "/org/a11y/atspi/null";

/// As many questions as are on their way at once: enough for the other program never to wait for
/// us, and few enough not to flood it.
constexpr std::size_t maximumAsked = 64;
/// A bus that takes nobody in for so long is not going to.
constexpr int queueTimeout = 500; // milliseconds
/// Beyond any screen there is.
constexpr int farthest = 1'000'000;
/// A program that was still answering so shortly before the end of the time is alive.
constexpr int aliveWithin = 500; // milliseconds

DBusMessage *call(const char *bus, const char *path, const char *interface, const char *member)
{
    DBusMessage *message = dbus_message_new_method_call(bus, path, interface, member);
    dbus_message_set_auto_start(message, FALSE);
    return message;
}

DBusMessage *call(const AtSpiReference &element, const char *interface, const char *member)
{
    return call(element.bus.constData(), element.path.constData(), interface, member);
}

/// The value at the iterator if it has the type.
template <typename Value>
std::optional<Value> basic(DBusMessageIter *at, int type)
{
    if (dbus_message_iter_get_arg_type(at) != type)
        return std::nullopt;
    Value value{};
    dbus_message_iter_get_basic(at, &value);
    return value;
}

template <typename Value>
std::optional<Value> firstBasic(DBusMessage *reply, int type)
{
    DBusMessageIter at;
    if (!reply || !dbus_message_iter_init(reply, &at))
        return std::nullopt;
    return basic<Value>(&at, type);
}

std::optional<AtSpiConnection::References> references(DBusMessage *reply)
{
    if (!reply || !dbus_message_has_signature(reply, "a(so)"))
        return std::nullopt;
    DBusMessageIter message;
    DBusMessageIter array;
    dbus_message_iter_init(reply, &message);
    dbus_message_iter_recurse(&message, &array);
    AtSpiConnection::References result;
    for (; dbus_message_iter_get_arg_type(&array) == DBUS_TYPE_STRUCT;
         dbus_message_iter_next(&array)) {
        DBusMessageIter pair;
        dbus_message_iter_recurse(&array, &pair);
        const auto bus = basic<const char *>(&pair, DBUS_TYPE_STRING);
        dbus_message_iter_next(&pair);
        const auto path = basic<const char *>(&pair, DBUS_TYPE_OBJECT_PATH);
        // A name that is none would be a mistake to write into a message.
        if (bus && path && dbus_validate_bus_name(*bus, nullptr) &&
            std::strcmp(*path, noObject) != 0)
            result.push_back({*bus, *path});
    }
    return result;
}

} // namespace

AtSpiConnection::Waiting::~Waiting()
{
    clear();
}

void AtSpiConnection::Waiting::clear()
{
    for (const Question &question : *this)
        dbus_message_unref(question.message);
    std::deque<Question>::clear();
}

AtSpiConnection::AtSpiConnection(std::unique_ptr<DBusStream> stream, const std::stop_token &stop)
    : m_stream(std::move(stream))
    , m_onStop(stop, [stream = m_stream.get()] { stream->end(); })
{
}

AtSpiConnection::~AtSpiConnection() = default;

std::unique_ptr<AtSpiConnection> AtSpiConnection::begin(
    const QByteArray &address, const QDeadlineTimer &deadline, const std::stop_token &stop)
{
    auto stream = DBusStream::open(address, std::min(deadline, QDeadlineTimer(queueTimeout)));
    if (!stream)
        return nullptr;
    std::unique_ptr<AtSpiConnection> connection(new AtSpiConnection(std::move(stream), stop));
    connection->ask(
        call(busName, busPath, busName, "Hello"),
        [self = connection.get()](DBusMessage *reply) { self->m_isWelcome = reply != nullptr; });
    return connection;
}

AtSpiConnection::Outcome AtSpiConnection::welcome(const QDeadlineTimer &deadline)
{
    const Outcome outcome = run(deadline, static_cast<int>(deadline.remainingTime()));
    if (m_isWelcome)
        return Outcome::Done;
    return outcome == Outcome::Done || outcome == Outcome::Lost ? Outcome::Lost : Outcome::Silent;
}

std::unique_ptr<AtSpiConnection>
AtSpiConnection::openDirect(const QByteArray &address, const std::stop_token &stop)
{
    // An honest program takes connections up at once; one that does not is asked over the bus.
    auto stream = DBusStream::open(address, QDeadlineTimer(0));
    return stream ? std::unique_ptr<AtSpiConnection>(new AtSpiConnection(std::move(stream), stop))
                  : nullptr;
}

void AtSpiConnection::askProcess(const QByteArray &bus, Answer<std::uint32_t> answer)
{
    DBusMessage *message = call(busName, busPath, busName, "GetConnectionUnixProcessID");
    const char *name = bus.constData();
    dbus_message_append_args(message, DBUS_TYPE_STRING, &name, DBUS_TYPE_INVALID);
    ask(message, [answer = std::move(answer)](DBusMessage *reply) {
        answer(firstBasic<std::uint32_t>(reply, DBUS_TYPE_UINT32));
    });
}

void AtSpiConnection::askApplications(Answer<References> answer)
{
    DBusMessage *message = call(
        "org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root", accessible, "GetChildren");
    dbus_message_set_auto_start(message, TRUE);
    ask(message, [answer = std::move(answer)](DBusMessage *reply) { answer(references(reply)); });
}

void AtSpiConnection::askDirectAddress(const AtSpiReference &application, Answer<QByteArray> answer)
{
    ask(call(application, "org.a11y.atspi.Application", "GetApplicationBusAddress"),
        [answer = std::move(answer)](DBusMessage *reply) {
            const auto address = firstBasic<const char *>(reply, DBUS_TYPE_STRING);
            answer(address ? std::optional(QByteArray(*address)) : std::nullopt);
        });
}

void AtSpiConnection::askChildren(const AtSpiReference &element, Answer<References> answer)
{
    ask(call(element, accessible, "GetChildren"),
        [answer = std::move(answer)](DBusMessage *reply) { answer(references(reply)); });
}

void AtSpiConnection::askRole(const AtSpiReference &element, Answer<std::uint32_t> answer)
{
    ask(call(element, accessible, "GetRole"), [answer = std::move(answer)](DBusMessage *reply) {
        answer(firstBasic<std::uint32_t>(reply, DBUS_TYPE_UINT32));
    });
}

void AtSpiConnection::askStates(const AtSpiReference &element, Answer<std::uint64_t> answer)
{
    ask(call(element, accessible, "GetState"), [answer = std::move(answer)](DBusMessage *reply) {
        DBusMessageIter message;
        DBusMessageIter array;
        if (!reply || !dbus_message_has_signature(reply, "au") ||
            !dbus_message_iter_init(reply, &message)) {
            answer(std::nullopt);
            return;
        }
        dbus_message_iter_recurse(&message, &array);
        const auto low = basic<std::uint32_t>(&array, DBUS_TYPE_UINT32);
        dbus_message_iter_next(&array);
        const auto high = basic<std::uint32_t>(&array, DBUS_TYPE_UINT32);
        answer(low.value_or(0) | static_cast<std::uint64_t>(high.value_or(0)) << 32);
    });
}

void AtSpiConnection::askName(const AtSpiReference &element, Answer<QString> answer)
{
    DBusMessage *message = call(element, "org.freedesktop.DBus.Properties", "Get");
    const char *property = "Name";
    dbus_message_append_args(
        message, DBUS_TYPE_STRING, &accessible, DBUS_TYPE_STRING, &property, DBUS_TYPE_INVALID);
    ask(message, [answer = std::move(answer)](DBusMessage *reply) {
        DBusMessageIter at;
        DBusMessageIter inside;
        if (!reply || !dbus_message_iter_init(reply, &at) ||
            dbus_message_iter_get_arg_type(&at) != DBUS_TYPE_VARIANT) {
            answer(std::nullopt);
            return;
        }
        dbus_message_iter_recurse(&at, &inside);
        const auto name = basic<const char *>(&inside, DBUS_TYPE_STRING);
        answer(name ? std::optional(QString::fromUtf8(*name)) : std::nullopt);
    });
}

void AtSpiConnection::askKeyBinding(const AtSpiReference &element, Answer<QString> answer)
{
    DBusMessage *message = call(element, "org.a11y.atspi.Action", "GetKeyBinding");
    const dbus_int32_t first = 0;
    dbus_message_append_args(message, DBUS_TYPE_INT32, &first, DBUS_TYPE_INVALID);
    ask(message, [answer = std::move(answer)](DBusMessage *reply) {
        const auto binding = firstBasic<const char *>(reply, DBUS_TYPE_STRING);
        answer(binding ? std::optional(QString::fromUtf8(*binding)) : std::nullopt);
    });
}

void AtSpiConnection::askExtents(const AtSpiReference &element, Answer<QRect> answer)
{
    DBusMessage *message = call(element, "org.a11y.atspi.Component", "GetExtents");
    const dbus_uint32_t onScreen = 0;
    dbus_message_append_args(message, DBUS_TYPE_UINT32, &onScreen, DBUS_TYPE_INVALID);
    ask(message, [answer = std::move(answer)](DBusMessage *reply) {
        DBusMessageIter at;
        DBusMessageIter inside;
        if (!reply || !dbus_message_has_signature(reply, "(iiii)") ||
            !dbus_message_iter_init(reply, &at)) {
            answer(std::nullopt);
            return;
        }
        dbus_message_iter_recurse(&at, &inside);
        int numbers[4] = {};
        for (int &number : numbers) {
            number = basic<dbus_int32_t>(&inside, DBUS_TYPE_INT32).value_or(0);
            dbus_message_iter_next(&inside);
            // Sums of larger ones would leave the range.
            if (number < -farthest || number > farthest) {
                answer(std::nullopt);
                return;
            }
        }
        answer(QRect(numbers[0], numbers[1], numbers[2], numbers[3]));
    });
}

void AtSpiConnection::ask(DBusMessage *message, Handler handler)
{
    m_waiting.push_back({message, std::move(handler)});
}

void AtSpiConnection::forget()
{
    m_waiting.clear();
    m_asked.clear();
}

bool AtSpiConnection::send(Question question)
{
    const std::uint32_t serial = m_stream->send(question.message);
    dbus_message_unref(question.message);
    if (serial == 0)
        return false;
    m_asked.emplace(serial, std::move(question.handler));
    ++m_questionCount;
    return true;
}

void AtSpiConnection::take(DBusMessage *message)
{
    const auto found = m_asked.find(dbus_message_get_reply_serial(message));
    if (found == m_asked.end())
        return;
    const Handler handler = std::move(found->second);
    m_asked.erase(found);
    const bool isError = dbus_message_get_type(message) == DBUS_MESSAGE_TYPE_ERROR;
    // The bus itself says so when a program has gone with our questions.
    if (isError && (dbus_message_is_error(message, DBUS_ERROR_NO_REPLY) ||
                    dbus_message_is_error(message, DBUS_ERROR_SERVICE_UNKNOWN)))
        m_isLost = true;
    handler(isError ? nullptr : message);
}

AtSpiConnection::Outcome AtSpiConnection::run(const QDeadlineTimer &deadline, int silence)
{
    QDeadlineTimer patience(silence);
    QElapsedTimer sinceAnswer;
    sinceAnswer.start();
    m_isLost = false;
    while (!m_asked.empty() || !m_waiting.empty()) {
        while (m_asked.size() < maximumAsked && !m_waiting.empty()) {
            Question next = std::move(m_waiting.front());
            m_waiting.pop_front();
            if (!send(std::move(next)))
                return Outcome::Lost;
        }
        if (deadline.hasExpired())
            return sinceAnswer.elapsed() < aliveWithin ? Outcome::OutOfTime : Outcome::Silent;
        if (patience.hasExpired())
            return Outcome::Silent;
        const auto wait = std::min(deadline.remainingTime(), patience.remainingTime());
        if (!m_stream->exchange(static_cast<int>(wait) + 1))
            m_isLost = true;
        while (DBusMessage *message = m_stream->take()) {
            take(message);
            dbus_message_unref(message);
            patience.setRemainingTime(silence);
            sinceAnswer.start();
        }
        if (m_isLost)
            return Outcome::Lost;
    }
    return Outcome::Done;
}

} // namespace hmatnik::platform
