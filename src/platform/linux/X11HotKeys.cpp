#include "platform/linux/X11HotKeys.h"

#include <xcb/xcb_keysyms.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>

namespace hmatnik::platform {

namespace {

constexpr xcb_keysym_t spaceKeysym = 0x0020;
constexpr xcb_keysym_t numLockKeysym = 0xff7f;
constexpr xcb_keysym_t scrollLockKeysym = 0xff14;

using KeySymbols = std::unique_ptr<xcb_key_symbols_t, decltype(&xcb_key_symbols_free)>;

std::vector<xcb_keycode_t> keysOf(xcb_key_symbols_t *symbols, xcb_keysym_t symbol)
{
    const std::unique_ptr<xcb_keycode_t, decltype(&std::free)> found(
        xcb_key_symbols_get_keycode(symbols, symbol), &std::free);
    std::vector<xcb_keycode_t> keys;
    for (const xcb_keycode_t *key = found.get(); key && *key != XCB_NO_SYMBOL; ++key)
        keys.push_back(*key);
    return keys;
}

/// The modifier that a lock key switches in the present layout; 0 if it switches none.
std::uint16_t modifierOf(X11Connection &connection, xcb_key_symbols_t *symbols, xcb_keysym_t lock)
{
    const auto mapping = connection.reply(
        xcb_get_modifier_mapping_reply, xcb_get_modifier_mapping(connection.raw()));
    if (!mapping)
        return 0;
    const auto keys = keysOf(symbols, lock);
    const xcb_keycode_t *table = xcb_get_modifier_mapping_keycodes(mapping.get());
    const int count = xcb_get_modifier_mapping_keycodes_length(mapping.get());
    for (int i = 0; i < count; ++i) {
        if (table[i] != 0 && std::find(keys.begin(), keys.end(), table[i]) != keys.end())
            return static_cast<std::uint16_t>(1U << (i / mapping->keycodes_per_modifier));
    }
    return 0;
}

} // namespace

X11HotKeys::X11HotKeys(std::shared_ptr<X11Connection> connection)
    : m_connection(std::move(connection))
{
}

X11HotKeys::~X11HotKeys()
{
    if (!m_handlers.isEmpty())
        ungrab();
}

Subscription X11HotKeys::registerControlOptionSpace(std::function<void()> handler)
{
    if (m_handlers.isEmpty()) {
        if (!grab())
            return {};
        m_events = m_connection->onEvent([this](const xcb_generic_event_t &event) { take(event); });
    }
    return m_handlers.add(std::move(handler), [this] {
        if (!m_handlers.isEmpty())
            return;
        ungrab();
        m_events.cancel();
    });
}

/// Takes all combinations or none: another program may hold some of them.
bool X11HotKeys::grab()
{
    const KeySymbols symbols(xcb_key_symbols_alloc(m_connection->raw()), &xcb_key_symbols_free);
    m_keys = keysOf(symbols.get(), spaceKeysym);
    const std::array<std::uint16_t, 3> locks{
        XCB_MOD_MASK_LOCK, modifierOf(*m_connection, symbols.get(), numLockKeysym),
        modifierOf(*m_connection, symbols.get(), scrollLockKeysym)};
    std::vector<xcb_void_cookie_t> grabs;
    for (const xcb_keycode_t key : m_keys) {
        for (unsigned state = 0; state < 1U << locks.size(); ++state) {
            unsigned modifiers = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1;
            for (std::size_t i = 0; i < locks.size(); ++i)
                modifiers |= (state >> i & 1U) != 0 ? locks[i] : 0U;
            grabs.push_back(xcb_grab_key_checked(
                m_connection->raw(), 0, m_connection->root(), static_cast<std::uint16_t>(modifiers),
                key, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
        }
    }
    bool isDone = !grabs.empty();
    for (const xcb_void_cookie_t cookie : grabs)
        isDone = m_connection->check(cookie) && isDone;
    if (!isDone)
        ungrab();
    return isDone;
}

void X11HotKeys::ungrab()
{
    for (const xcb_keycode_t key : m_keys)
        xcb_ungrab_key(m_connection->raw(), key, m_connection->root(), XCB_MOD_MASK_ANY);
    m_keys.clear();
    xcb_flush(m_connection->raw());
}

void X11HotKeys::take(const xcb_generic_event_t &event)
{
    switch (event.response_type & 0x7f) {
    case XCB_MAPPING_NOTIFY: {
        const auto &mapping = reinterpret_cast<const xcb_mapping_notify_event_t &>(event);
        if (mapping.request == XCB_MAPPING_POINTER)
            break;
        ungrab();
        grab();
        break;
    }
    case XCB_KEY_PRESS: {
        const auto &press = reinterpret_cast<const xcb_key_press_event_t &>(event);
        if (std::find(m_keys.begin(), m_keys.end(), press.detail) == m_keys.end())
            break;
        if (press.time != m_lastRelease)
            m_handlers.call();
        break;
    }
    case XCB_KEY_RELEASE:
        m_lastRelease = reinterpret_cast<const xcb_key_release_event_t &>(event).time;
        break;
    default:
        break;
    }
}

} // namespace hmatnik::platform
