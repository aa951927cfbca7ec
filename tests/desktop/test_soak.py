"""The short form of `./dev soak`: what is done again and again leaves nothing behind that can be
counted. Memory needs the whole soak to judge."""

import subprocess
import unittest

from harness import DEADLINE, DesktopTestCase
from soak import grown_counts, run

SHARES = {"searches": 60, "screens": 14, "imports": 4, "overlays": 10}
PARTS = 3
REMEMBERED = 1000  # keys


class SoakTest(DesktopTestCase):
    def test_nothing_that_can_be_counted_grows(self):
        first, last = run(self.desktop, self.home, SHARES, PARTS, 1, print)
        self.assertEqual(grown_counts(first, last), [])
        # The counters count.
        for what in ("descriptors", "X WINDOW", "session bus: match rules",
                     "accessibility bus: match rules"):
            self.assertGreater(first.counts[what], 0, what)

    def test_search_field_does_not_remember_every_key_for_ever(self):
        program = self.start()
        field = program.search_field()
        self.desktop.click(field)
        self.wait(lambda: field.focused, "the keyboard in the search field")
        self.press_quickly(*["a", "BackSpace"] * (REMEMBERED // 2))
        self.desktop.press("b")
        self.wait(lambda: field.text == "b", "the last key")
        self.desktop.press("ctrl+z")
        self.desktop.press("c")
        self.wait(lambda: field.text == "bc", "the key to stay, and another at the end")
        self.desktop.press("ctrl+z")
        self.wait(lambda: field.text == "b", "the newest key to be taken back")

    def press_quickly(self, *keys):
        subprocess.run(["xdotool", "key", "--delay", "0", *keys], env=self.desktop.environment,
                       check=True, timeout=DEADLINE)


if __name__ == "__main__":
    unittest.main()
