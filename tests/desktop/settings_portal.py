"""A settings portal (org.freedesktop.portal.Settings) that knows how programs should look, and
nothing else.

Each line on standard input is a key of org.freedesktop.appearance and its number: "color-scheme" (0
no preference, 1 dark, 2 light), "contrast" or "reduced-motion" (0 no preference, 1 more, or less).
It ends with its input.
"""

import sys

from gi.repository import Gio, GLib

NAMESPACE = "org.freedesktop.appearance"
PATH = "/org/freedesktop/portal/desktop"
INTERFACE = "org.freedesktop.portal.Settings"
DESCRIPTION = f"""
<node>
  <interface name="{INTERFACE}">
    <method name="Read">
      <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="v" direction="out"/>
    </method>
    <method name="ReadOne">
      <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="v" direction="out"/>
    </method>
    <method name="ReadAll">
      <arg type="as" direction="in"/><arg type="a{{sa{{sv}}}}" direction="out"/>
    </method>
    <signal name="SettingChanged">
      <arg type="s"/><arg type="s"/><arg type="v"/>
    </signal>
    <property name="version" type="u" access="read"/>
  </interface>
</node>
"""


class Portal:
    def __init__(self, loop):
        self._loop = loop
        self._values = {}
        self._take(sys.stdin.readline())
        self._bus = Gio.bus_get_sync(Gio.BusType.SESSION, None)
        interface = Gio.DBusNodeInfo.new_for_xml(DESCRIPTION).interfaces[0]
        self._bus.register_object(PATH, interface, self._call, self._property, None)
        Gio.bus_own_name_on_connection(self._bus, "org.freedesktop.portal.Desktop",
                                       Gio.BusNameOwnerFlags.NONE, None, None)
        GLib.io_add_watch(sys.stdin.fileno(), GLib.PRIORITY_DEFAULT,
                          GLib.IOCondition.IN | GLib.IOCondition.HUP, self._told)

    def _take(self, line):
        key, value = line.split()
        self._values[key] = GLib.Variant("u", int(value))
        return key

    def _call(self, _connection, _sender, _path, _interface, method, arguments, invocation):
        if method == "ReadAll":
            everything = {NAMESPACE: self._values}
            invocation.return_value(GLib.Variant("(a{sa{sv}})", (everything,)))
            return
        namespace, key = arguments.unpack()
        value = self._values.get(key) if namespace == NAMESPACE else None
        if value is None:
            invocation.return_dbus_error("org.freedesktop.portal.Error.NotFound", "no such setting")
        elif method == "Read":  # wraps its answer twice, for historical reasons
            invocation.return_value(GLib.Variant("(v)", (GLib.Variant("v", value),)))
        else:
            invocation.return_value(GLib.Variant("(v)", (value,)))

    def _property(self, *_):
        return GLib.Variant("u", 2)

    def _told(self, *_):
        line = sys.stdin.readline()
        if not line:
            self._loop.quit()
            return False
        key = self._take(line)
        self._bus.emit_signal(None, PATH, INTERFACE, "SettingChanged",
                              GLib.Variant("(ssv)", (NAMESPACE, key, self._values[key])))
        return True


if __name__ == "__main__":
    main_loop = GLib.MainLoop()
    Portal(main_loop)
    main_loop.run()
