"""Control + Option + Space, from anywhere."""

import itertools
import re
import subprocess
import sys
import unittest

from harness import DesktopTestCase, Role, end, pause, write_preferences
from neighbours import Neighbour

HOLDER = """
import ctypes, time
x11 = ctypes.CDLL("libX11.so.6")
x11.XOpenDisplay.restype = ctypes.c_void_p
display = ctypes.c_void_p(x11.XOpenDisplay(None))
space = x11.XKeysymToKeycode(display, ctypes.c_ulong(0x20))
x11.XGrabKey(display, space, 4 | 8, x11.XDefaultRootWindow(display), 0, 1, 1)
x11.XSync(display, 0)
print("held", flush=True)
time.sleep(3600)
"""


class HotKeyCase(DesktopTestCase):
    def setUp(self):
        super().setUp()
        self.other = Neighbour(self.desktop, "mousepad", self.home / "other")
        self.addCleanup(self.other.close)
        self.other.bring_to_front()

    def press_hot_key(self):
        subprocess.run(["xdotool", "keydown", "ctrl", "keydown", "alt", "key", "space",
                        "keyup", "alt", "keyup", "ctrl"], env=self.desktop.environment, check=True)

    def work_in_the_other(self):
        """Brings the other program to the front and types into it, so that it has been used later
        than ours."""
        self.other.bring_to_front()
        x, y, width, height = self.desktop.geometry(self.other.window)
        self.desktop.click((x + width // 2, y + height // 2))
        self.desktop.type("x")
        self.assertEqual(self.desktop.active_window(), self.other.window)

    def expect_in_front(self, program):
        """Our window is active and gets the keys."""
        window = program.window()
        self.desktop.press("ctrl+a", "Delete")
        self.desktop.press("k")
        field = program.search_field()
        self.wait(lambda: field.text.lower() == "k", "the key in our search field")
        self.desktop.press("BackSpace")
        return window


class HotKeyTest(HotKeyCase):
    def locks(self):
        state = self.desktop.output(["xset", "q"])
        return tuple(re.search(rf"{lock} Lock:\s+(on|off)", state)[1] == "on"
                     for lock in ("Num", "Caps"))

    def test_works_with_every_lock(self):
        program = self.start()
        program.window()
        self.addCleanup(self.set_locks, (False, False))
        for locks in itertools.product((False, True), repeat=2):
            with self.subTest(locks):
                self.set_locks(locks)
                self.work_in_the_other()
                self.press_hot_key()
                self.expect_in_front(program)

    def set_locks(self, wanted):
        for key, has, want in zip(("Num_Lock", "Caps_Lock"), self.locks(), wanted):
            if has != want:
                subprocess.run(["xdotool", "key", key], env=self.desktop.environment, check=True)
        self.wait(lambda: self.locks() == wanted, "the locks")

    def test_held_by_another_program(self):
        holder = self.desktop.spawn([sys.executable, "-c", HOLDER], stdout=subprocess.PIPE,
                                    text=True)
        self.addCleanup(holder.stdout.close)
        self.addCleanup(end, holder)
        self.assertEqual(holder.stdout.readline(), "held\n")
        program = self.start()
        program.window()
        self.work_in_the_other()
        self.press_hot_key()
        pause(0.7)
        self.assertEqual(self.desktop.active_window(), self.other.window)
        # The rest works.
        self.assertEqual(program.start_again(), 0)
        window = self.expect_in_front(program)
        self.desktop.click(window.wait_for("Import z menu", Role.BUTTON))
        window.wait_for(role=Role.ALERT,
                        where=lambda label: label.name.startswith("Importováno "))
        self.desktop.click(window.wait_for("Mousepad", Role.BUTTON))
        self.wait(lambda: len(program.windows()) == 2, "the overlay")


class GuardedFocusTest(HotKeyCase):
    """A window manager that lets no window take the keyboard from one that was used later."""

    WINDOW_MANAGER = ("metacity", "--sm-disable")

    def test_comes_to_the_front_nevertheless(self):
        write_preferences(self.home, {"hasLaunchedBefore": True})
        program = self.start(opened=False)
        program.wait_for_service()
        with self.subTest("never opened before"):
            self.work_in_the_other()
            self.press_hot_key()
            self.expect_in_front(program)
        with self.subTest("behind"):
            self.work_in_the_other()
            self.press_hot_key()
            self.expect_in_front(program)
        with self.subTest("closed"):
            geometry = self.desktop.geometry(program.window_id())
            self.desktop.press("ctrl+w")
            self.wait(lambda: not program.windows(), "the window to hide")
            self.work_in_the_other()
            self.press_hot_key()
            self.expect_in_front(program)
            self.wait(lambda: self.desktop.geometry(program.window_id()) == geometry, "its place")
        with self.subTest("minimised"):
            self.desktop.press("ctrl+m")
            self.wait(lambda: self.desktop.active_window() not in program.windows(),
                      "the window to be minimised")
            self.work_in_the_other()
            self.press_hot_key()
            self.expect_in_front(program)
        with self.subTest("started again"):
            self.work_in_the_other()
            self.assertEqual(program.start_again(), 0)
            self.expect_in_front(program)


if __name__ == "__main__":
    unittest.main()
