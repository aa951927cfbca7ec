#include "platform/linux/X11KeyboardLayout.h"

#include <xcb/xcb.h>
#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon-x11.h>
#include <xkbcommon/xkbcommon.h>

namespace hmatnik::platform {

namespace {

using Context = std::unique_ptr<xkb_context, decltype(&xkb_context_unref)>;
using Keymap = std::unique_ptr<xkb_keymap, decltype(&xkb_keymap_unref)>;
using State = std::unique_ptr<xkb_state, decltype(&xkb_state_unref)>;

/// Events carry the layout's number in these bits of their state.
xkb_layout_index_t layoutOf(std::uint32_t state)
{
    return (state >> 13U) & 3U;
}

/// The accent of a dead key standing alone; 0 if the key is not dead.
char32_t accent(xkb_keysym_t keysym)
{
    switch (keysym) {
    case XKB_KEY_dead_grave:
        return U'`';
    case XKB_KEY_dead_acute:
        return U'´';
    case XKB_KEY_dead_circumflex:
        return U'^';
    case XKB_KEY_dead_tilde:
        return U'~';
    case XKB_KEY_dead_macron:
        return U'¯';
    case XKB_KEY_dead_breve:
        return U'˘';
    case XKB_KEY_dead_abovedot:
        return U'˙';
    case XKB_KEY_dead_diaeresis:
        return U'¨';
    case XKB_KEY_dead_abovering:
        return U'°';
    case XKB_KEY_dead_doubleacute:
        return U'˝';
    case XKB_KEY_dead_caron:
        return U'ˇ';
    case XKB_KEY_dead_cedilla:
        return U'¸';
    case XKB_KEY_dead_ogonek:
        return U'˛';
    default:
        return 0;
    }
}

/// Beside Print there are the keysyms of the vendor "XFree86": every special key of keyboards and
/// laptops has one of them.
bool isForDesktop(xkb_keysym_t keysym)
{
    constexpr xkb_keysym_t vendor = 0x1008;
    return keysym >> 16U == vendor || keysym == XKB_KEY_Print || keysym == XKB_KEY_Sys_Req;
}

QString characters(xkb_keysym_t keysym)
{
    char32_t character = accent(keysym);
    if (character == 0)
        character = xkb_keysym_to_utf32(keysym);
    return character == 0 ? QString() : QString::fromUcs4(&character, 1);
}

} // namespace

Availability X11KeyboardLayout::availability() const
{
    return Availability::yes();
}

KeyCharacters
X11KeyboardLayout::characters(std::uint32_t nativeScanCode, std::uint32_t nativeModifiers)
{
    if (!connect())
        return {};
    const Context context(xkb_context_new(XKB_CONTEXT_NO_FLAGS), &xkb_context_unref);
    if (!context)
        return {};
    const Keymap keymap(
        xkb_x11_keymap_new_from_device(
            context.get(), m_connection.get(),
            xkb_x11_get_core_keyboard_device_id(m_connection.get()), XKB_KEYMAP_COMPILE_NO_FLAGS),
        &xkb_keymap_unref);
    if (!keymap)
        return {};
    const State state(xkb_state_new(keymap.get()), &xkb_state_unref);
    if (!state)
        return {};

    // Num Lock decides what the number pad writes, as a second layout does for letters.
    const xkb_mod_index_t numLock = xkb_keymap_mod_get_index(keymap.get(), XKB_MOD_NAME_NUM);
    const xkb_mod_mask_t locked =
        numLock == XKB_MOD_INVALID ? 0 : nativeModifiers & (xkb_mod_mask_t(1) << numLock);
    const xkb_layout_index_t layout = layoutOf(nativeModifiers);
    const xkb_mod_index_t shift = xkb_keymap_mod_get_index(keymap.get(), XKB_MOD_NAME_SHIFT);

    KeyCharacters result;
    xkb_state_update_mask(state.get(), 0, 0, locked, 0, 0, layout);
    const xkb_keysym_t plain = xkb_state_key_get_one_sym(state.get(), nativeScanCode);
    result.plain = hmatnik::platform::characters(plain);
    result.isForDesktop = isForDesktop(plain);
    xkb_state_update_mask(state.get(), xkb_mod_mask_t(1) << shift, 0, locked, 0, 0, layout);
    result.shifted =
        hmatnik::platform::characters(xkb_state_key_get_one_sym(state.get(), nativeScanCode));
    return result;
}

std::optional<int> X11KeyboardLayout::digit(std::uint32_t nativeScanCode) const
{
    // X numbers keys from 8 on; the first is Escape, and the digits from 1 follow it.
    constexpr std::uint32_t one = 10;
    if (nativeScanCode < one || nativeScanCode >= one + 10)
        return std::nullopt;
    return static_cast<int>(nativeScanCode - one + 1) % 10;
}

bool X11KeyboardLayout::connect()
{
    if (m_connection)
        return xcb_connection_has_error(m_connection.get()) == 0;
    m_connection.reset(xcb_connect(nullptr, nullptr));
    return xcb_connection_has_error(m_connection.get()) == 0 &&
           xkb_x11_setup_xkb_extension(
               m_connection.get(), XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
               XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, nullptr, nullptr) != 0;
}

void X11KeyboardLayout::Disconnect::operator()(xcb_connection_t *connection) const
{
    xcb_disconnect(connection);
}

} // namespace hmatnik::platform
