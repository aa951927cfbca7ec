// Starts a program and tells, from outside, when its first window was painted.
//
//     hmatnik_first_frame WHAT PROGRAM [ARGUMENT…]
//
// A frame counts as painted when the X server reports damage of a window that carries the
// program's process id, and the window then shows WHAT: "screen" is a picture of many
// colours, "RRGGBB" nothing but that one. (Damage alone does not do: the window manager's moving
// the window damages it too.) Whichever way a program draws, by shared memory or by a GL library,
// ends there. The time runs from just before the fork to the damage.
//
// Prints one line "PROCESS MILLISECONDS WIDTH HEIGHT". Then it obeys its input: the line "close"
// closes the window as a person does and is answered by "closed" when the window is gone from the
// screen; at the end of input the program is ended.

#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/damage.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

// Generous, because a machine that builds beside us can be slow.
constexpr auto deadline = 60s;
// A screen of ours shows hundreds of colours; a frame without contents a handful at most.
constexpr size_t coloursOfAScreen = 100;

struct Free
{
    void operator()(void *memory) const { std::free(memory); }
};
template <typename T>
using Reply = std::unique_ptr<T, Free>;

[[noreturn]] void stop(const char *reason)
{
    std::fprintf(stderr, "hmatnik_first_frame: %s\n", reason);
    std::_Exit(2);
}

struct Frame
{
    xcb_window_t window;
    Clock::time_point time;
    uint16_t width;
    uint16_t height;
};

/// What a painted window shows: one colour, or many.
struct Expected
{
    std::optional<uint32_t> colour;

    bool operator()(const std::unordered_set<uint32_t> &colours) const
    {
        return colour ? colours.size() == 1 && colours.contains(*colour)
                      : colours.size() >= coloursOfAScreen;
    }
};

class Observer
{
public:
    explicit Observer(const Expected &expected)
        : m_expected(expected)
        , m_connection(xcb_connect(nullptr, nullptr))
    {
        if (xcb_connection_has_error(m_connection))
            stop("no X server");
        m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
        const xcb_query_extension_reply_t *damage =
            xcb_get_extension_data(m_connection, &xcb_damage_id);
        if (!damage || !damage->present)
            stop("the X server cannot report damage");
        m_damageNotify = damage->first_event + XCB_DAMAGE_NOTIFY;
        const Reply<xcb_damage_query_version_reply_t> version(xcb_damage_query_version_reply(
            m_connection, xcb_damage_query_version(m_connection, 1, 1), nullptr));
        m_processProperty = atom("_NET_WM_PID");
        const uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(m_connection, m_root, XCB_CW_EVENT_MASK, &mask);
        sync();
    }
    Observer(const Observer &) = delete;
    Observer &operator=(const Observer &) = delete;
    ~Observer() { xcb_disconnect(m_connection); }

    /// Waits for the first wholly painted window of the process.
    Frame firstFrame(pid_t process)
    {
        const auto end = Clock::now() + deadline;
        for (;;) {
            while (const auto event = poll()) {
                if (const auto frame = paintedBy(process, *event, Clock::now()))
                    return *frame;
            }
            if (waitpid(process, nullptr, WNOHANG) != 0)
                stop("the program ended without a window");
            if (Clock::now() > end)
                stop("no window was painted");
            wait(100);
        }
    }

    /// Asks the window to close and waits until it is off the screen.
    void close(xcb_window_t window)
    {
        const uint32_t mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        xcb_change_window_attributes(m_connection, window, XCB_CW_EVENT_MASK, &mask);
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = window;
        message.type = atom("WM_PROTOCOLS");
        message.data.data32[0] = atom("WM_DELETE_WINDOW");
        xcb_send_event(
            m_connection, false, window, XCB_EVENT_MASK_NO_EVENT,
            reinterpret_cast<const char *>(&message));
        xcb_flush(m_connection);
        const auto end = Clock::now() + deadline;
        for (;;) {
            while (const auto event = poll()) {
                if (type(*event) == XCB_UNMAP_NOTIFY &&
                    reinterpret_cast<const xcb_unmap_notify_event_t &>(*event).window == window)
                    return;
            }
            if (Clock::now() > end)
                stop("the window did not close");
            wait(100);
        }
    }

    /// Reads and forgets what the server has to say, so that it need not keep it.
    void drain()
    {
        while (poll()) {
        }
    }

    int descriptor() const { return xcb_get_file_descriptor(m_connection); }

private:
    using Event = Reply<xcb_generic_event_t>;

    static int type(const xcb_generic_event_t &event) { return event.response_type & 0x7f; }

    Event poll() { return Event(xcb_poll_for_event(m_connection)); }

    void wait(int milliseconds)
    {
        xcb_flush(m_connection);
        pollfd descriptorState{descriptor(), POLLIN, 0};
        ::poll(&descriptorState, 1, milliseconds);
    }

    /// One round trip, after which everything sent so far has been done.
    void sync()
    {
        const Reply<xcb_get_input_focus_reply_t> reply(
            xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    }

    xcb_atom_t atom(std::string_view name)
    {
        const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
            m_connection,
            xcb_intern_atom(m_connection, false, static_cast<uint16_t>(name.size()), name.data()),
            nullptr));
        return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    }

    std::optional<Frame>
    paintedBy(pid_t process, const xcb_generic_event_t &event, Clock::time_point time)
    {
        if (type(event) == XCB_CREATE_NOTIFY) {
            const auto &created = reinterpret_cast<const xcb_create_notify_event_t &>(event);
            // Fails for windows that take only input; those are never painted.
            xcb_damage_create(
                m_connection, xcb_generate_id(m_connection), created.window,
                XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
            xcb_flush(m_connection);
            return {};
        }
        if (type(event) != m_damageNotify)
            return {};
        const auto &damage = reinterpret_cast<const xcb_damage_notify_event_t &>(event);
        // From now on the server tells of damage that comes after this one.
        xcb_damage_subtract(m_connection, damage.damage, XCB_NONE, XCB_NONE);
        const Frame frame{damage.drawable, time, damage.geometry.width, damage.geometry.height};
        if (processOf(frame.window) != process || !m_expected(colours(frame)))
            return {};
        return frame;
    }

    /// The different colours that the window shows now; stops at enough for a screen.
    std::unordered_set<uint32_t> colours(const Frame &frame)
    {
        const Reply<xcb_get_image_reply_t> image(xcb_get_image_reply(
            m_connection,
            xcb_get_image(
                m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, frame.window, 0, 0, frame.width,
                frame.height, 0x00ffffff),
            nullptr));
        std::unordered_set<uint32_t> found;
        if (!image)
            return found; // Not on the screen yet.
        const uint8_t *bytes = xcb_get_image_data(image.get());
        const auto count = static_cast<size_t>(xcb_get_image_data_length(image.get())) / 4;
        uint32_t last = UINT32_MAX;
        for (size_t i = 0; i < count && found.size() < coloursOfAScreen; ++i) {
            uint32_t pixel = 0;
            std::memcpy(&pixel, bytes + 4 * i, sizeof pixel);
            if (pixel != last)
                found.insert(pixel);
            last = pixel;
        }
        return found;
    }

    pid_t processOf(xcb_window_t window)
    {
        const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
            m_connection,
            xcb_get_property(
                m_connection, false, window, m_processProperty, XCB_ATOM_CARDINAL, 0, 1),
            nullptr));
        if (!reply || xcb_get_property_value_length(reply.get()) != 4)
            return 0;
        uint32_t process = 0;
        std::memcpy(&process, xcb_get_property_value(reply.get()), sizeof process);
        return static_cast<pid_t>(process);
    }

    Expected m_expected;
    xcb_connection_t *m_connection;
    xcb_window_t m_root = XCB_NONE;
    xcb_atom_t m_processProperty = XCB_ATOM_NONE;
    int m_damageNotify = 0;
};

void end(pid_t process)
{
    kill(process, SIGTERM);
    for (int tries = 0; tries < 500; ++tries) {
        if (waitpid(process, nullptr, WNOHANG) != 0)
            return;
        usleep(10'000);
    }
    kill(process, SIGKILL);
    waitpid(process, nullptr, 0);
}

/// Obeys the lines of our input until it ends.
void serve(Observer &observer, const Frame &frame)
{
    std::string line;
    for (;;) {
        pollfd descriptors[]{{STDIN_FILENO, POLLIN, 0}, {observer.descriptor(), POLLIN, 0}};
        ::poll(descriptors, std::size(descriptors), -1);
        observer.drain();
        if (!descriptors[0].revents)
            continue;
        char letter = 0;
        if (read(STDIN_FILENO, &letter, 1) != 1)
            return;
        if (letter != '\n') {
            line += letter;
            continue;
        }
        if (line == "close") {
            observer.close(frame.window);
            std::printf("closed\n");
            std::fflush(stdout);
        }
        line.clear();
    }
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc < 3)
        stop("what is to be seen, and of which program?");
    Expected expected;
    if (std::string_view(argv[1]) != "screen")
        expected.colour = static_cast<uint32_t>(std::strtoul(argv[1], nullptr, 16));
    Observer observer(expected);
    const auto start = Clock::now();
    const pid_t process = fork();
    if (process < 0)
        stop("cannot fork");
    if (process == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        execv(argv[2], argv + 2);
        stop("cannot start the program");
    }
    const Frame frame = observer.firstFrame(process);
    const double milliseconds =
        std::chrono::duration<double, std::milli>(frame.time - start).count();
    std::printf("%d %.2f %u %u\n", process, milliseconds, frame.width, frame.height);
    std::fflush(stdout);
    serve(observer, frame);
    end(process);
    return 0;
}
