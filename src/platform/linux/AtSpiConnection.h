#pragma once

#include "platform/linux/DBusStream.h"

#include <QByteArray>
#include <QDeadlineTimer>
#include <QRect>
#include <QString>

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <unordered_map>
#include <vector>

struct DBusMessage;

namespace hmatnik::platform {

/// An object of another program on the accessibility bus.
struct AtSpiReference
{
    /// Unique name of the program's connection.
    QByteArray bus;
    QByteArray path;

    bool operator==(const AtSpiReference &) const = default;
};

/// A private connection to the accessibility bus that keeps many questions on their way at once:
/// a menu bar takes thousands of them, and waiting for each answer alone is what makes reading one
/// slow. Questions are only put down by the functions that ask; run() sends them and hands out the
/// answers. Belongs to one thread, whichever it is.
class AtSpiConnection
{
public:
    /// Receives an answer; none if the other program refused or gave one of another form.
    template <typename Value>
    using Answer = std::function<void(std::optional<Value>)>;
    using References = std::vector<AtSpiReference>;

    /// Roles and states as the protocol numbers them; those that we look at.
    enum Role : std::uint32_t {
        checkMenuItem = 8,
        frame = 23,
        list = 31,
        menu = 33,
        menuBar = 34,
        menuItem = 35,
        popupMenu = 41,
        radioMenuItem = 45,
        statusBar = 54,
        table = 55,
        tearoffMenuItem = 59,
        terminal = 60,
        text = 61,
        toolBar = 63,
        tree = 65,
        treeTable = 66,
        window = 69,
        documentFrame = 82,
        documentSpreadsheet = 92,
        documentEmail = 96
    };
    enum State : int { active = 1, showing = 25 };

    /// How a run ended.
    enum class Outcome {
        /// Every question was answered.
        Done,
        /// The time was up while answers were still coming in.
        OutOfTime,
        /// The other program has stopped answering.
        Silent,
        /// The other program, or the bus, has gone.
        Lost,
    };

    /// Begins to connect, for welcome() to finish; null if there is no such bus, or if its queue
    /// stays full for half a second, or until the deadline.
    /// @param stop when it is asked for, the connection counts as lost
    static std::unique_ptr<AtSpiConnection>
    begin(const QByteArray &address, const QDeadlineTimer &deadline, const std::stop_token &stop);
    /// Waits for the bus to take us in: Done, Lost if it refuses or has gone, else Silent; then
    /// this may be called again.
    Outcome welcome(const QDeadlineTimer &deadline);
    /// Connects to one program without the bus in between; null if the address is not that of a
    /// socket of this machine, or if nobody takes us in there at once.
    static std::unique_ptr<AtSpiConnection>
    openDirect(const QByteArray &address, const std::stop_token &stop);
    ~AtSpiConnection();
    AtSpiConnection(const AtSpiConnection &) = delete;
    AtSpiConnection &operator=(const AtSpiConnection &) = delete;

    void askProcess(const QByteArray &bus, Answer<std::uint32_t> answer);
    void askApplications(Answer<References> answer);
    /// The address at which the application takes connections of its own.
    void askDirectAddress(const AtSpiReference &application, Answer<QByteArray> answer);
    void askChildren(const AtSpiReference &element, Answer<References> answer);
    void askRole(const AtSpiReference &element, Answer<std::uint32_t> answer);
    /// One bit per state.
    void askStates(const AtSpiReference &element, Answer<std::uint64_t> answer);
    void askName(const AtSpiReference &element, Answer<QString> answer);
    /// The key binding of the element's first action.
    void askKeyBinding(const AtSpiReference &element, Answer<QString> answer);
    /// On the screen.
    void askExtents(const AtSpiReference &element, Answer<QRect> answer);

    /// Sends the questions and hands out answers, which may ask more, until all are answered.
    /// @param silence longest time, in milliseconds, without any answer
    Outcome run(const QDeadlineTimer &deadline, int silence);
    /// Forgets every question: whatever is still answered after a run that did not get done is of
    /// no interest any more.
    void forget();

    /// How many questions have been sent; for tests and measurements.
    std::uint64_t questionCount() const { return m_questionCount; }

private:
    using Handler = std::function<void(DBusMessage *)>;
    struct Question
    {
        DBusMessage *message;
        Handler handler;
    };
    class Waiting : public std::deque<Question>
    {
    public:
        Waiting() = default;
        ~Waiting();
        Waiting(const Waiting &) = delete;
        Waiting &operator=(const Waiting &) = delete;
        void clear();
    };

    AtSpiConnection(std::unique_ptr<DBusStream> stream, const std::stop_token &stop);

    void ask(DBusMessage *message, Handler handler);
    bool send(Question question);
    void take(DBusMessage *message);

    std::unique_ptr<DBusStream> m_stream;
    std::stop_callback<std::function<void()>> m_onStop;
    Waiting m_waiting;
    std::unordered_map<std::uint32_t, Handler> m_asked;
    std::uint64_t m_questionCount = 0;
    bool m_isLost = false;
    bool m_isWelcome = false;
};

} // namespace hmatnik::platform
