"""What is kept from one run to the next, and what is done about a file that can't be read."""

import json
import plistlib
import signal
import subprocess
import unittest

from gi.repository import Gio, GLib

from harness import (APPLICATION_ID, DEADLINE, Accessibility, DesktopTestCase, Role, connect, end,
                     write_preferences)

LEARNING = "Učební režim – zobrazovat tip už při prvním použití myší"
DEFAULT_FAVORITES = ("Kopírovat", "Vložit", "Spotlight", "Vyfotit výřez")


def custom(identifier, title, detail="Něco udělá.", keys=("⌘", "K")):
    return {"id": identifier, "title": title, "keys": list(keys), "category": "Základy",
            "apps": [], "detail": detail}


class PreferencesTest(DesktopTestCase):
    def favourites(self, program, *titles):
        self.desktop.click(program.row("Oblíbené"))
        program.wait_for_cards(*titles)

    def test_favourites_are_kept(self):
        program = self.start()
        self.desktop.click(program.star("Uložit"))
        self.wait(lambda: program.star("Uložit").checked, "the star")
        self.desktop.press("ctrl+q")
        self.assertEqual(program.process.wait(DEADLINE), 0)

        program = self.start()
        self.favourites(program, "Kopírovat", "Vložit", "Uložit", "Spotlight", "Vyfotit výřez")

    def test_favourites_survive_a_kill(self):
        program = self.start()
        self.desktop.click(program.star("Uložit"))
        self.wait(lambda: program.star("Uložit").checked, "the star")
        program.terminate(signal.SIGKILL)

        program = self.start()
        self.favourites(program, "Kopírovat", "Vložit", "Uložit", "Spotlight", "Vyfotit výřez")

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

    def add_shortcut(self, tree, title):
        """Adds an own shortcut in the window that is active."""
        tree.wait_for("Přidat vlastní", Role.BUTTON).press()
        sheet = tree.wait_for("Přidat vlastní zkratku", Role.DIALOG)
        self.wait(lambda: sheet.find("Název").focused, "the keyboard in the first field")
        self.desktop.type(title)
        self.desktop.press("Tab")
        self.desktop.type("ctrl+k")
        self.desktop.press("Return")
        tree.wait_until_gone("Přidat vlastní zkratku", Role.DIALOG)

    def test_two_processes_with_one_home_lose_nothing(self):
        def toggle(tree, title):
            card = tree.wait_for(title, Role.LIST_ITEM)
            star = card.wait_for("Oblíbené", Role.CHECK_BOX)
            before = star.checked
            star.press()
            self.wait(lambda: star.checked != before, "the star")

        program = self.start()
        program.window()
        first_window = program.window_id()
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
        self.wait(lambda: self.desktop.active_window() in set(other.windows()) - {first_window},
                  "the second window to be active")
        self.add_shortcut(second, "Druhé relace")
        toggle(second, "Kopírovat")
        toggle(first, "Vrátit zpět")
        values = program.preferences()
        self.assertEqual(sorted(values["favorites"]),
                         ["paste", "save", "shot-area", "spotlight", "undo"])
        self.assertIs(values["learningMode"], True)
        self.assertEqual([record["title"] for record in json.loads(values["customShortcuts"])],
                         ["Druhé relace"])

    def test_first_start_writes_a_property_list(self):
        program = self.start()
        program.window()
        self.wait(program.preferences_file.exists, "the preferences file")
        self.assertTrue(program.preferences_file.read_bytes().startswith(b"<?xml"))
        self.assertIs(program.preferences()["hasLaunchedBefore"], True)

    def check_moved_aside(self, contents):
        folder = self.home / ".config/hmatnik"
        folder.mkdir(parents=True)
        file = folder / "cz.hmatnik.Hmatnik.plist"
        file.write_bytes(contents)
        program = self.start()
        self.favourites(program, *DEFAULT_FAVORITES)
        aside = [other for other in folder.iterdir() if other.read_bytes() == contents]
        self.assertEqual(len(aside), 1, "the old file lies beside, unchanged")
        self.assertNotEqual(aside[0], file)
        self.assertIs(program.preferences()["hasLaunchedBefore"], True)
        # And it is a working store again.
        self.desktop.click(program.star("Vložit"))
        program.wait_for_cards("Kopírovat", "Spotlight", "Vyfotit výřez")
        self.assertEqual(sorted(program.preferences()["favorites"]),
                         ["copy", "shot-area", "spotlight"])

    def test_garbled_file_is_moved_aside(self):
        self.check_moved_aside(bytes(range(256)) * 8)

    def test_truncated_file_is_moved_aside(self):
        whole = plistlib.dumps({"favorites": ["copy", "save"], "learningMode": True})
        self.check_moved_aside(whole[: len(whole) * 2 // 3])

    def test_foreign_file_is_moved_aside(self):
        self.check_moved_aside(json.dumps({"favorites": ["copy"]}).encode())

    def test_values_of_a_wrong_type_give_way_to_defaults(self):
        write_preferences(self.home, {"favorites": {"copy": True}, "customShortcuts": "text",
                                      "hasLaunchedBefore": True})
        program = self.start()
        self.favourites(program, *DEFAULT_FAVORITES)

    def test_markup_in_titles_is_shown_as_it_is(self):
        title = "<b>x</b><img src='http://127.0.0.1:9/x.png'>"
        detail = "<a href='http://127.0.0.1:9/'>odkaz</a> &amp; **tučně**"
        shortcuts = [custom("menu-1", title, detail, ("⌘", "<i>K</i>"))]
        write_preferences(self.home, {
            "customShortcuts": json.dumps(shortcuts, ensure_ascii=False).encode(),
            "hasLaunchedBefore": True})
        program = self.start()
        self.desktop.click(program.search_field())
        self.desktop.type("odkaz")
        program.wait_for_cards(title)
        card = program.cards()[title]
        self.assertIn(detail, card.description)
        # Drawn as plain text, the long tag needs its room; as markup, little of it would be left.
        self.desktop.wait_until_still()
        self.assertGreater(self.ink_width(card), 200)

    def ink_width(self, card):
        """How far the writing of the title reaches to the right, in pixels."""
        x, y, width, _ = card.extents
        screen_width, _, pixels = self.desktop.pixels()
        rightmost = 0
        for row in range(y + 44, y + 66):
            start = 3 * (row * screen_width + x + 16)
            line = pixels[start:start + 3 * (width - 32)]
            ground = line[-3]
            for column in range(width - 32):
                if abs(line[3 * column] - ground) > 90:
                    rightmost = max(rightmost, column)
        return rightmost


if __name__ == "__main__":
    unittest.main()
