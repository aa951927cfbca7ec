"""Two sessions with one home: what one of them keeps, the other must not undo."""

import json
import subprocess
import unittest

from gi.repository import Gio, GLib

from harness import (APPLICATION_ID, DEADLINE, Accessibility, DesktopTestCase, Role, State, connect,
                     end)

LEARNING = "Učební režim – zobrazovat tip už při prvním použití myší"


class TwoSessionsTest(DesktopTestCase):
    def second_session(self):
        """A session bus of its own, and the accessibility bus that belongs to it."""
        daemon = self.desktop.spawn(["dbus-daemon", "--session", "--nofork", "--print-address"],
                                    stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.addCleanup(daemon.stdout.close)
        self.addCleanup(end, daemon)
        address = daemon.stdout.readline().strip()
        bus = connect(address)

        def call(service, path, interface, method, arguments):
            return bus.call_sync(service, path, interface, method, arguments, None,
                                 Gio.DBusCallFlags.NONE, int(DEADLINE * 1000), None).unpack()

        call("org.a11y.Bus", "/org/a11y/bus", "org.freedesktop.DBus.Properties", "Set",
             GLib.Variant("(ssv)", ("org.a11y.Status", "IsEnabled", GLib.Variant("b", True))))
        return address, call, Accessibility(
            call("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None)[0])

    def test_two_processes_with_one_home_lose_nothing(self):
        def toggle(tree, title):
            card = tree.wait_for(title, Role.LIST_ITEM)
            star = card.wait_for("Oblíbené", Role.CHECK_BOX)
            before = star.checked
            star.press()
            self.wait(lambda: star.checked != before, "the star")

        program = self.start()
        program.window()
        first = program.tree()
        address, call, accessibility = self.second_session()
        # Where nobody answers for the one that runs already.
        other = self.start(opened=False, DBUS_SESSION_BUS_ADDRESS=address)
        self.wait(lambda: call("org.freedesktop.DBus", "/org/freedesktop/DBus",
                               "org.freedesktop.DBus", "NameHasOwner",
                               GLib.Variant("(s)", (APPLICATION_ID,)))[0], "the second program")
        call(APPLICATION_ID, "/cz/hmatnik/Hmatnik", "org.freedesktop.Application", "Activate",
             GLib.Variant("(a{sv})", ({},)))
        second = self.desktop.application(other.process.pid, accessibility)

        toggle(first, "Uložit")
        second.wait_for("Nastavení", Role.BUTTON).press()
        second.wait_for(LEARNING, Role.CHECK_BOX).press()
        self.wait(lambda: program.preferences().get("learningMode"), "the switch in the file")
        self.assertIn("save", program.preferences()["favorites"])
        second.wait_for("Hotovo", Role.BUTTON).press()
        second.wait_until_gone(role=Role.DIALOG)
        toggle(second, "Kopírovat")
        second.wait_for("Přidat vlastní", Role.BUTTON).press()
        editor = second.wait_for("Přidat vlastní zkratku", Role.DIALOG)
        for field, text in (("Název", "Moje zkratka"), ("Klávesy (oddělte +)", "ctrl + k")):
            editor.wait_for(field, Role.TEXT).write(text)
        self.wait(lambda: State.SENSITIVE in editor.find("Přidat", Role.BUTTON).states,
                  "what can be added")
        editor.find("Přidat", Role.BUTTON).press()
        second.wait_until_gone(role=Role.DIALOG)
        toggle(first, "Vrátit zpět")
        values = program.preferences()
        self.assertEqual([record["title"] for record in json.loads(values["customShortcuts"])],
                         ["Moje zkratka"])
        self.assertEqual(sorted(values["favorites"]),
                         ["paste", "save", "shot-area", "spotlight", "undo"])
        self.assertIs(values["learningMode"], True)


if __name__ == "__main__":
    unittest.main()
