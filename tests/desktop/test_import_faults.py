""""Import z menu" when the program in front is not as it should be."""

import functools
import json
import os
import pathlib
import re
import signal
import subprocess
import sys
import time
import unittest

from gi.repository import GLib

import sanitizers
from harness import DesktopTestCase, Role
from neighbours import Neighbour
from virtual_desktop import DEADLINE, PATIENCE

PERMISSION = "Pro import povolte Hmatníku Zpřístupnění v Nastavení systému."
MENU = "Menu aktivní aplikace není dostupné nebo neobsahuje zkratky."
LONGEST = 10 * PATIENCE  # seconds
# What a person takes for at once.
AT_ONCE = 2.0 * PATIENCE  # seconds


class ImportFaultsTest(DesktopTestCase):
    def stored(self, program):
        return json.loads(program.preferences().get("customShortcuts", b"[]"))

    def titles(self, program):
        return [record["title"] for record in self.stored(program)]

    def press_import(self, program):
        """Brings our window to the front and presses the button."""
        self.assertEqual(program.start_again(), 0)
        window = program.window()
        self.desktop.click(window.wait_for("Import z menu", Role.BUTTON))
        return window

    def import_menu(self, program, message):
        """Imports and checks that a message of that pattern comes in time."""
        window = self.press_import(program)
        pressed = time.monotonic()
        found = window.wait_for(role=Role.ALERT, deadline=DEADLINE,
                                where=lambda label: re.fullmatch(message, label.name))
        # The message stands before we see it, so a slow machine only makes this stricter.
        self.assertLess(time.monotonic() - pressed, LONGEST)
        window.wait_for("Import z menu", Role.BUTTON)
        return found.name

    def neighbour(self, kind):
        neighbour = Neighbour(self.desktop, kind, self.home / "other")
        self.addCleanup(neighbour.close)
        neighbour.bring_to_front()
        neighbour.tree()
        return neighbour

    def hostile(self, tree):
        """Starts the hostile program and brings it to the front."""
        script = pathlib.Path(__file__).with_name("hostile_menus.py")
        address = self.desktop.call("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus",
                                    "GetAddress")[0]
        process = self.desktop.spawn([sys.executable, str(script), address, tree],
                                     stdout=subprocess.PIPE, text=True)
        self.addCleanup(process.stdout.close)
        self.addCleanup(self.end_hostile, process)
        self.assertEqual(process.stdout.readline(), "registered\n")
        window = self.wait(lambda: self.desktop.visible_windows("Hostile"), "its window")[0]
        self.desktop.bring_to_front(lambda: window)
        return process

    def end_hostile(self, process):
        # It ends by itself only where it means to, or thrown off the bus.
        self.assertIn(process.poll(), (None, 0), "a mistake in the hostile program")
        process.kill()
        process.wait(DEADLINE)

    def import_from(self, tree, message):
        self.hostile(tree)
        program = self.start()
        program.window()
        self.import_menu(program, message)
        return program

    # Who may be asked.

    def set_enabled(self, enabled):
        self.desktop.call("org.a11y.Bus", "/org/a11y/bus", "org.freedesktop.DBus.Properties",
                          "Set", GLib.Variant("(ssv)", ("org.a11y.Status", "IsEnabled",
                                                        GLib.Variant("b", enabled))))

    def is_enabled(self):
        return self.desktop.call("org.a11y.Bus", "/org/a11y/bus",
                                 "org.freedesktop.DBus.Properties", "Get",
                                 GLib.Variant("(ss)", ("org.a11y.Status", "IsEnabled")))[0]

    def test_without_permission_it_is_asked_for(self):
        self.neighbour("mousepad")
        program = self.start()
        window = program.window()
        button = window.wait_for("Import z menu", Role.BUTTON).centre
        self.addCleanup(self.set_enabled, True)
        self.set_enabled(False)
        # What was heard of the change shows in what the press does.
        self.desktop.click(button)
        self.wait(self.is_enabled, "the desktop to be asked")
        program.window().wait_for(PERMISSION, Role.ALERT)
        self.assertEqual(self.stored(program), [])
        # The request was granted.
        self.assertEqual(program.start_again(), 0)
        self.import_menu(program, r"Importováno \d+ zkratek z aplikace Mousepad\.")

    def test_nobody_but_us(self):
        program = self.start()
        program.window()
        # Then it is the desktop's own shortcuts that are meant.
        self.import_menu(program, r"Importováno \d+ zkratek plochy\.")
        self.assertTrue(all(record["apps"] == [] for record in self.stored(program)))

    # Programs that can't be read.

    def test_program_that_has_quit(self):
        neighbour = self.neighbour("mousepad")
        program = self.start()
        program.window()
        neighbour.close()
        self.import_menu(program, MENU)
        self.assertEqual(self.stored(program), [])

    def test_program_without_accessibility(self):
        self.spawn("xmessage", "Zpráva")
        window = self.wait(lambda: self.desktop.visible_windows("Xmessage"), "the message")[0]
        self.desktop.bring_to_front(lambda: window)
        program = self.start()
        program.window()
        self.import_menu(program, MENU)

    def test_program_without_menu_bar(self):
        self.assertEqual(self.stored(self.import_from("without_menu_bar", MENU)), [])

    def test_program_that_refuses(self):
        self.assertEqual(self.stored(self.import_from("refusing", MENU)), [])

    def test_program_that_dies_on_the_way(self):
        process = self.hostile("dying")
        program = self.start()
        program.window()
        self.import_menu(program, MENU)
        self.assertEqual(process.wait(DEADLINE), 0)
        self.assertEqual(self.stored(program), [])

    # Programs that stop.

    def check_alive_while_importing(self, program):
        """Presses the button, types into the search field meanwhile, and checks that text and
        picture change before the import ends."""
        self.assertEqual(program.start_again(), 0)
        window = program.window()
        field = program.search_field()
        importer = window.wait_for("Import z menu", Role.BUTTON)
        place = importer.centre
        # Of the field alone: on a busy machine one of the screen takes as long as the import.
        picture = functools.partial(self.desktop.pixels_of, *field.extents)
        self.desktop.click(field)
        self.wait(lambda: field.focused, "the keyboard in the field")
        self.desktop.click(place)
        pressed = time.monotonic()
        window.wait_for("Importuji…", Role.BUTTON)
        self.desktop.click(field)
        echoes = 0
        typed = ""
        for letter in "zkratka":
            before = picture()
            self.desktop.press(letter)
            typed += letter
            self.wait(lambda: field.text == typed, "the letter")
            if not window.find("Importuji…", Role.BUTTON):
                break
            self.wait(lambda: picture() != before, "the letter to be painted")
            echoes += 1
        self.assertGreater(echoes, 0, "no letter came while the import ran")
        self.desktop.press("ctrl+a", "Delete")
        window.wait_for(MENU, Role.ALERT, deadline=LONGEST)
        window.wait_for("Import z menu", Role.BUTTON)
        self.assertLess(time.monotonic() - pressed, LONGEST)
        self.assertEqual(self.stored(program), [])

    def check_stopped(self, kind):
        neighbour = self.neighbour(kind)
        program = self.start()
        program.window()
        os.kill(neighbour.process, signal.SIGSTOP)
        self.addCleanup(os.kill, neighbour.process, signal.SIGCONT)
        self.check_alive_while_importing(program)

    def test_stopped_gtk_program(self):
        self.check_stopped("mousepad")

    def test_stopped_qt_program(self):
        self.check_stopped("featherpad")

    def test_program_that_stops_on_the_way(self):
        self.hostile("stopping")
        program = self.start()
        program.window()
        self.check_alive_while_importing(program)

    def test_program_that_takes_nobody_in(self):
        # Whoever answers over the bus is asked there.
        program = self.import_from("taking_nobody_in", r"Importováno 2 zkratek .*")
        self.assertEqual(self.titles(program), ["Zbrusu nový", "Otevřít"])

    def test_program_that_takes_nobody_in_and_is_silent(self):
        self.hostile("taking_nobody_in_silently")
        program = self.start()
        window = self.press_import(program)
        pressed = time.monotonic()
        longest = 0
        while not window.find(MENU, Role.ALERT):
            asked = time.monotonic()
            self.assertLess(asked - pressed, LONGEST)
            window.name  # pylint: disable=pointless-statement
            longest = max(longest, time.monotonic() - asked)
        print(f"longest time without an answer: {1000 * longest:.0f} ms", file=sys.stderr)
        self.assertLess(longest, AT_ONCE)
        window.wait_for("Import z menu", Role.BUTTON)
        self.assertEqual(self.stored(program), [])

    # Quitting in the middle.

    def check_quitting(self, tree):
        self.hostile(tree)
        program = self.start()
        window = self.press_import(program)
        window.wait_for("Importuji…", Role.BUTTON)
        self.desktop.press("ctrl+q")
        quitting = time.monotonic()
        self.assertEqual(program.process.wait(DEADLINE), 0)
        self.assertLess(time.monotonic() - quitting, AT_ONCE)
        self.assertEqual(self.stored(program), [])

    def test_quitting_while_the_program_is_silent(self):
        self.check_quitting("stopping")

    def test_quitting_while_the_program_takes_nobody_in(self):
        self.check_quitting("taking_nobody_in_silently")

    def test_quitting_while_much_is_read(self):
        self.check_quitting("many")

    # Menus that no honest program has.

    def test_cycle(self):
        program = self.import_from("cycle", r"Importováno 3 zkratek .*")
        self.assertEqual(self.titles(program), ["Zbrusu nový", "Uvnitř", "Otevřít"])

    def test_title_and_binding_without_end(self):
        program = self.import_from("huge", r"Importováno 2 zkratek .*")
        self.assertEqual(self.titles(program), ["Zbrusu nový", "Otevřít"])

    def test_odd_characters(self):
        program = self.import_from("odd", r"Importováno 5 zkratek .*")
        titles = self.titles(program)
        self.assertEqual(titles[:2], ["Zbrusu nový", "Příkaz[31m"])
        self.assertIn("a\u0301\u0301\u0301", titles[2])
        self.assertEqual(titles[3], "<b>tučně</b> &amp; <img src='file:///etc/passwd'>")

    def test_broken_characters(self):
        # The bus ends the connection that sends them, so the program has gone for us.
        program = self.import_from("broken", MENU)
        self.assertEqual(self.stored(program), [])

    def test_no_bus_in_between(self):
        program = self.import_from("directly", r"Importováno 2 zkratek .*")
        self.assertEqual(self.titles(program), ["Zbrusu nový", "Otevřít"])

    def test_broken_characters_without_a_bus_in_between(self):
        self.assertEqual(self.stored(self.import_from("broken_directly", MENU)), [])

    def test_hundred_thousand_items(self):
        program = self.start()
        program.window()
        before = self.memory(program)
        self.hostile("many")
        self.import_menu(program, r"Importováno \d+ zkratek .*")
        titles = self.titles(program)
        self.assertEqual(titles[:3], ["Zbrusu nový", "Otevřít", "Položka 0"])
        self.assertLess(len(titles), 20_000)
        with self.subTest("memory"):
            sanitizers.skip_measures(self)
            self.assertLess(self.memory(program) - before, 256)

    @staticmethod
    def memory(program):
        """The most it has ever had in memory, in MiB."""
        status = pathlib.Path(f"/proc/{program.process.pid}/status").read_text()
        return int(re.search(r"VmHWM:\s+(\d+)", status)[1]) / 1024


if __name__ == "__main__":
    unittest.main()
