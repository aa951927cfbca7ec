#include "platform/linux/WindowKeyboardGrab.h"

#include <QGuiApplication>
#include <QPointer>
#include <QWindow>

#include <xcb/xtest.h>

#include <cstdlib>
#include <memory>
#include <string_view>

namespace hmatnik::platform {

namespace {

template <typename Reply>
using ReplyPtr = std::unique_ptr<Reply, decltype(&std::free)>;

bool hasExtension(xcb_connection_t *connection, std::string_view name)
{
    const auto cookie =
        xcb_query_extension(connection, static_cast<std::uint16_t>(name.size()), name.data());
    const ReplyPtr<xcb_query_extension_reply_t> reply(
        xcb_query_extension_reply(connection, cookie, nullptr), &std::free);
    return reply && reply->present != 0;
}

/// Whether the same modifiers are held now and locked as in an event's state.
bool areHeld(xcb_connection_t *connection, std::uint32_t state)
{
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    const ReplyPtr<xcb_query_pointer_reply_t> reply(
        xcb_query_pointer_reply(connection, xcb_query_pointer(connection, root), nullptr),
        &std::free);
    constexpr std::uint32_t modifiers = 0xff;
    return reply && (reply->mask & modifiers) == (state & modifiers);
}

} // namespace

Availability WindowKeyboardGrab::availability() const
{
    return Availability::yes();
}

Subscription WindowKeyboardGrab::grab(QWindow &window)
{
    if (!window.setKeyboardGrabEnabled(true))
        return {};
    return Subscription([held = QPointer(&window)] {
        if (held)
            held->setKeyboardGrabEnabled(false);
    });
}

void WindowKeyboardGrab::passOn(std::uint32_t nativeScanCode, std::uint32_t nativeModifiers)
{
    const auto *toolkit = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!toolkit)
        return;
    // The toolkit's connection, so that the server has let go of the keyboard before.
    xcb_connection_t *connection = toolkit->connection();
    if (!hasExtension(connection, "XTEST") || hasExtension(connection, "XWAYLAND") ||
        !areHeld(connection, nativeModifiers))
        return;
    for (const std::uint8_t type : {XCB_KEY_PRESS, XCB_KEY_RELEASE})
        xcb_test_fake_input(
            connection, type, static_cast<std::uint8_t>(nativeScanCode), XCB_CURRENT_TIME,
            XCB_WINDOW_NONE, 0, 0, 0);
    xcb_flush(connection);
}

} // namespace hmatnik::platform
