"""A service in the place of KDE's shortcut service that doesn't keep to what it should tell.

    shortcut_service.py other-types|nonsense
"""

import sys

from gi.repository import Gio, GLib

COMPONENT = "/component/liar"
LONG = 100_000
# Modifier and key as Qt counts them.
META_A = 0x10000000 | ord("A")


def infos():
    """Ten thousand shortcuts and some more, with texts and keys that nobody has foreseen."""
    yield ("none", "Nic", "liar", "", "", "", [], [])
    yield ("zero", "Nula", "liar", "", "", "", [0, -1], [])
    yield ("", "", "", "", "", "", [-(2 ** 31)], [])
    yield (LONG * "i", "Dlouhé jméno", "liar", "", "", "", [META_A], [])
    yield ("0", "Okno\n\x07nové" + LONG * "x", "liar", "", "", "", [0x01ffffff, META_A], [])
    for number in range(1, 10_100):
        yield (str(number), f"Okno {number}", "liar", "", "", "", [META_A], [])


def main():
    if sys.argv[1] == "other-types":
        components = shortcuts = GLib.Variant("(i)", (7,))
    else:
        components = GLib.Variant("(ao)", ([COMPONENT],))
        # Made before anybody waits for it.
        shortcuts = GLib.Variant("(a(ssssssaiai))", (list(infos()),))
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)

    def asked(connection, message, incoming):
        if not incoming or message.get_message_type() != Gio.DBusMessageType.METHOD_CALL:
            return message
        reply = Gio.DBusMessage.new_method_reply(message)
        reply.set_body(components if message.get_member() == "allComponents" else shortcuts)
        connection.send_message(reply, Gio.DBusSendMessageFlags.NONE)
        return None

    bus.add_filter(asked)
    Gio.bus_own_name_on_connection(bus, "org.kde.kglobalaccel", Gio.BusNameOwnerFlags.NONE)
    GLib.MainLoop().run()


if __name__ == "__main__":
    main()
