"""A click on a menu whose program answers garbage, slowly or never."""

import json
import pathlib
import subprocess
import sys
import time
import unittest

from harness import DesktopTestCase, end, pause, write_preferences
from virtual_desktop import DEADLINE, PATIENCE

ITEM = "Zbrusu nový"
MENU = (1000, 730)
# Half a second is what a look may take; the rest is for the machine.
LONGEST_SILENCE = 2.0 * PATIENCE  # seconds


class ObserverFaultsTest(DesktopTestCase):
    def setUp(self):
        super().setUp()
        records = [{"id": ITEM, "title": ITEM, "keys": ["⌘", "K"], "category": "Základy",
                    "apps": ["Editor"], "detail": "Z menu."}]
        write_preferences(self.home, {"customShortcuts": json.dumps(records).encode()})
        self.program = self.start()
        self.desktop.move(self.program.window_id(), 100, 20)
        self.program.window()
        self.field = self.program.search_field()
        self.address = self.desktop.call("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus",
                                         "GetAddress")[0]

    def counts(self):
        return self.program.preferences().get("usageCounts", {})

    def open_menu(self, tree):
        """Starts a program that has a menu open over everything."""
        script = pathlib.Path(__file__).with_name("hostile_menus.py")
        process = self.desktop.spawn([sys.executable, str(script), self.address, tree],
                                     stdout=subprocess.PIPE, text=True)
        self.addCleanup(process.stdout.close)
        self.addCleanup(end, process)
        self.assertEqual(process.stdout.readline(), "registered\n")
        self.wait(lambda: process.poll() is not None or self.is_menu_shown(), "the menu")
        return process

    def is_menu_shown(self):
        width, _, data = self.desktop.pixels()
        at = 3 * (MENU[1] * width + MENU[0])
        return data[at:at + 3] == b"\x44\xcc\x44"

    def check_ignored(self, tree):
        """A click on that menu counts for nothing, and does not keep the program from answering."""
        process = self.open_menu(tree)
        before = self.counts()
        self.desktop.click(MENU)
        clicked = time.monotonic()
        longest = 0
        while time.monotonic() < clicked + 1.2:
            asked = time.monotonic()
            self.field.text  # pylint: disable=pointless-statement
            longest = max(longest, time.monotonic() - asked)
        print(f"{tree}: longest time without an answer: {1000 * longest:.0f} ms", file=sys.stderr)
        self.assertLess(longest, LONGEST_SILENCE)
        self.desktop.bring_to_front(self.program.window_id)
        self.desktop.press("ctrl+f", "ctrl+a", "Delete", "k")
        self.wait(lambda: self.field.text == "k", "the key in the search field")
        self.assertEqual(self.counts(), before)
        process.kill()
        process.wait(DEADLINE)

    def test_click_is_ignored(self):
        for tree in ("garbage", "slow", "silent", "taking_nobody_in", "dying", "huge"):
            with self.subTest(tree):
                self.check_ignored("popped_up_" + tree)
        # The observer still sees the honest ones.
        self.open_menu("popped_up")
        pause(0.2)
        self.desktop.click(MENU)
        self.wait(lambda: self.counts() == {ITEM: 1}, f"the click to count, not {self.counts()}")

    def test_quitting_while_a_menu_is_read(self):
        for tree in ("silent", "taking_nobody_in"):
            with self.subTest(tree):
                if not self.program.running:
                    self.program = self.start()
                    self.program.window()
                process = self.open_menu("popped_up_" + tree)
                self.desktop.click(MENU)
                self.desktop.bring_to_front(self.program.window_id)
                self.desktop.press("ctrl+q")
                quitting = time.monotonic()
                self.assertEqual(self.program.process.wait(DEADLINE), 0)
                self.assertLess(time.monotonic() - quitting, LONGEST_SILENCE)
                process.kill()
                process.wait(DEADLINE)


if __name__ == "__main__":
    unittest.main()
