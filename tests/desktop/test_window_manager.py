"""A window manager that is replaced, dies and comes back, and one that can't make up its mind."""

import pathlib
import subprocess
import sys
import time
import unittest

from harness import DesktopTestCase, Role
from neighbours import Neighbour
from virtual_desktop import PATIENCE

INSET = 22
WIDTH = 380
NOTICES = 10_000
LONGEST_SILENCE = 1.5 * PATIENCE  # seconds; on an idle machine it is a tenth of that


class WindowManagerTest(DesktopTestCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        home = cls.desktop.directory / "others"
        cls.mousepad = Neighbour(cls.desktop, "mousepad", home)
        cls.featherpad = Neighbour(cls.desktop, "featherpad", home)

    @classmethod
    def tearDownClass(cls):
        for neighbour in (cls.mousepad, cls.featherpad):
            neighbour.close()
        super().tearDownClass()

    def setUp(self):
        super().setUp()
        self.addCleanup(self.desktop.start_window_manager, *self.WINDOW_MANAGER, "--replace")
        self.mousepad.bring_to_front()
        self.program = self.start()
        self.program.window()
        self.program.wait_for_application("Mousepad")

    # What has to work with every one.

    def press_hot_key(self):
        subprocess.run(["xdotool", "keydown", "ctrl", "keydown", "alt", "key", "space",
                        "keyup", "alt", "keyup", "ctrl"], env=self.desktop.environment, check=True)

    def expect_keyboard(self):
        """The keys come to our window."""
        field = self.program.tree().wait_for("Hledat…", Role.TEXT)
        self.wait(lambda: field.focused, "the keyboard in the search field")
        self.desktop.press("k")
        self.wait(lambda: field.text == "k", "the key")
        self.desktop.press("BackSpace")
        self.wait(lambda: field.text == "", "an empty field")

    def panels(self):
        return [window for window in self.program.windows()
                if self.desktop.geometry(window)[2] == WIDTH]

    def expect_everything_works(self):
        for neighbour, name in ((self.featherpad, "FeatherPad"), (self.mousepad, "Mousepad")):
            neighbour.bring_to_front()
            self.program.wait_for_application(name)
        self.program.toggle_overlay()
        panel = self.wait(self.panels, "the panel")[0]
        x, y, width, _ = self.desktop.work_area()
        self.wait(lambda: self.desktop.geometry(panel)[:2] == (x + width - INSET - WIDTH,
                                                               y + INSET), "its place")
        self.assertEqual(self.desktop.active_window(), self.mousepad.window)
        self.press_hot_key()
        self.wait(lambda: self.desktop.active_window() in self.program.windows(),
                  "our window in front")
        self.expect_keyboard()
        self.program.wait_for_application("Mousepad")
        self.program.toggle_overlay()
        self.wait(lambda: not self.panels(), "the panel to go")

    def test_replaced_while_running(self):
        self.program.toggle_overlay()
        panel = self.wait(self.panels, "the panel")
        place = self.desktop.geometry(panel[0])
        self.desktop.start_window_manager("metacity", "--sm-disable", "--replace")
        # The new one takes it over in its own time.
        self.wait(lambda: self.panels() == panel and self.desktop.geometry(panel[0]) == place,
                  "the panel where it was")
        self.program.toggle_overlay()
        self.wait(lambda: not self.panels(), "the panel to go")
        self.expect_everything_works()
        self.desktop.start_window_manager("openbox", "--sm-disable", "--replace")
        self.expect_everything_works()

    def test_killed_without_a_successor(self):
        self.desktop.window_manager.kill()
        self.wait(lambda: not self.desktop.managing(), "the window manager's end")
        self.press_hot_key()
        self.expect_keyboard()
        # Hidden, and wanted again.
        self.desktop.press("ctrl+w")
        self.wait(lambda: not self.program.windows(), "the window to hide")
        self.press_hot_key()
        self.wait(self.program.windows, "the window")
        self.expect_keyboard()
        self.program.toggle_overlay()
        self.wait(self.panels, "the panel")
        self.program.toggle_overlay()
        self.wait(lambda: not self.panels(), "the panel to go")
        self.desktop.start_window_manager("metacity", "--sm-disable")
        self.expect_everything_works()

    # Ten thousand notices.

    def test_burst_of_activations(self):
        """The one that is active last counts, and the program answers all the while."""
        button = self.program.overlay_button()
        script = pathlib.Path(__file__).with_name("activations.py")
        burst = self.desktop.spawn([sys.executable, str(script), str(NOTICES),
                                    str(self.mousepad.window), str(self.featherpad.window)])
        longest, ended = 0, None
        while ended is None:
            ended = burst.poll()
            asked = time.monotonic()
            button.name  # pylint: disable=pointless-statement
            longest = max(longest, time.monotonic() - asked)
        self.assertEqual(ended, 0)
        self.program.wait_for_application("FeatherPad")
        print(f"longest time without an answer: {1000 * longest:.0f} ms", file=sys.stderr)
        self.assertLess(longest, LONGEST_SILENCE)
        self.press_hot_key()
        self.expect_keyboard()


if __name__ == "__main__":
    unittest.main()
