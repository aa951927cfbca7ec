"""The two message buses when they are missing, fall silent, die and come back."""

import json
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import time
import unittest

from harness import Desktop, DesktopTestCase, Role, pause
from neighbours import Neighbour
from virtual_desktop import PATIENCE, command_of, descendants

IDLE = 1.5  # seconds
# Half a second is what a look into an open menu may take; the rest is typing, and the machine.
LONGEST_ANSWER = 5 * PATIENCE  # seconds
TICKS = os.sysconf("SC_CLK_TCK")


class BusCase(DesktopTestCase):
    """Each test has a desktop of its own, because it breaks it. The tree goes with the buses, so
    what a person sees is learnt before."""

    @classmethod
    def setUpClass(cls):
        pass

    def setUp(self):
        self.desktop = self.enterContext(Desktop(*self.SCREEN))
        super().setUp()

    def open(self):
        """Starts the program with Mousepad behind it, and looks where everything is."""
        self.other = Neighbour(self.desktop, "mousepad", self.home / "other")
        self.other.bring_to_front()
        self.program = self.start()
        window = self.program.window()
        self.program.wait_for_application("Mousepad")
        self.importer = window.wait_for("Import z menu", Role.BUTTON).centre

    def processes(self, command):
        return [process for process in descendants(os.getpid())
                if command in command_of(process)]

    def end_all(self, command, number=signal.SIGKILL):
        for process in self.processes(command):
            os.kill(process, number)
        if number == signal.SIGKILL:
            self.wait(lambda: not self.processes(command), f"the end of {command}")

    def is_favourite(self):
        return "mission-control" in self.program.preferences().get("favorites", [])

    def imported(self):
        return json.loads(self.program.preferences().get("customShortcuts", b"[]"))

    def processor_time(self):
        status = pathlib.Path(f"/proc/{self.program.process.pid}/stat").read_text()
        user, system = status.rpartition(")")[2].split()[11:13]
        return (int(user) + int(system)) / TICKS

    def expect_calm(self):
        """It does not wear out the processor on a connection that is closed. What was typed last may
        still be under way, so the first stretch need not be the calm one."""
        def calm():
            before = self.processor_time()
            pause(IDLE)
            return self.processor_time() - before < 0.1 * IDLE

        self.wait(calm, "the program at rest")
        self.assertTrue(self.program.running)

    def press_hot_key(self):
        subprocess.run(["xdotool", "keydown", "ctrl", "keydown", "alt", "key", "space",
                        "keyup", "alt", "keyup", "ctrl"], env=self.desktop.environment, check=True)

    def in_front(self):
        return self.desktop.active_window() in self.program.windows()

    def expect_answer(self):
        """What is typed finds a card, and that a key makes it a favourite is on the disk."""
        for was in (False, True):
            self.assertEqual(self.is_favourite(), was)
            self.desktop.press("ctrl+f", "ctrl+a", "Delete")
            self.desktop.type("mission")
            # Past the filters to the first card.
            self.desktop.press("F6", *["Tab"] * 5, "space")
            self.wait(lambda: self.is_favourite() != was, "the favourite")
        self.desktop.press("ctrl+f", "ctrl+a", "Delete")


class AccessibilityBusTest(BusCase):
    LAUNCHER = "at-spi-bus-launcher"
    DAEMON = "accessibility.conf"
    REGISTRY = "at-spi2-registryd"

    def service_file(self):
        return self.desktop.directory / "services/org.a11y.Bus.service"

    def reload_bus(self):
        self.desktop.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                          "ReloadConfig")

    def end_bus(self):
        for command in (self.DAEMON, self.LAUNCHER, self.REGISTRY):
            self.end_all(command)

    def start_bus(self):
        """It starts by itself as soon as somebody asks; the person wants it."""
        self.desktop.connect_accessibility()

    def start_other_again(self):
        """Only a program that starts now takes the new bus up."""
        self.other.close()
        self.other = Neighbour(self.desktop, "mousepad", self.home / "other")
        self.other.bring_to_front()
        self.other.tree()

    def expect_import(self):
        """By what it stores: whether our own tree comes back is the toolkit's choice."""
        self.start_other_again()
        self.program.reopen()
        self.wait(self.in_front, "our window")
        self.desktop.click(self.importer)
        self.wait(self.imported, "the import")
        self.expect_answer()

    def expect_observer(self):
        """It has started by itself when the permission came."""
        self.desktop.move(self.other.window, 5, 30)  # where ours does not cover its menu bar
        self.other.bring_to_front()
        self.desktop.click(self.other.open_menu("Vybrat vše"))
        self.wait(lambda: self.program.preferences().get("usageCounts") == {"select-all": 1},
                  "the click to count")

    def test_missing_at_start(self):
        self.open()
        self.program.terminate()
        self.end_bus()
        parked = shutil.move(self.service_file(), self.desktop.directory / "parked")
        self.reload_bus()
        self.program = self.start()
        self.wait(self.in_front, "our window")
        self.desktop.wait_until_painted(self.program.window_id())
        self.desktop.click(self.importer)
        self.expect_answer()
        self.assertEqual(self.imported(), [])
        self.expect_calm()
        shutil.move(parked, self.service_file())
        self.reload_bus()
        self.start_bus()
        self.expect_import()
        self.expect_observer()

    def test_dies_and_comes_back(self):
        self.open()
        self.end_bus()
        self.desktop.click(self.importer)
        self.expect_answer()
        self.assertEqual(self.imported(), [])
        self.expect_calm()
        self.start_bus()
        self.expect_import()

    def test_silent_while_a_menu_is_clicked(self):
        """An import waits for the bus in the background; who clicks on a menu meanwhile does not."""
        self.open()
        self.desktop.move(self.other.window, 5, 30)  # where ours does not cover its menu bar
        self.other.bring_to_front()
        item = self.other.open_menu("Otevřít…")
        place = item.centre
        title = self.other.menu_with("Otevřít…").centre
        self.desktop.press("Escape", "Escape")
        self.program.reopen()
        self.wait(self.in_front, "our window")
        self.end_all(self.DAEMON, signal.SIGSTOP)
        self.addCleanup(self.end_all, self.DAEMON, signal.SIGCONT)
        self.desktop.click(self.importer)
        pause(0.3)
        self.desktop.click(title)
        pause(0.3)
        self.desktop.click(place)
        self.desktop.press("Escape", "Escape", "Escape")
        began = time.monotonic()
        self.press_hot_key()
        self.wait(self.in_front, "our window")
        self.expect_answer()
        took = time.monotonic() - began
        print(f"answered after {1000 * took:.0f} ms", file=sys.stderr)
        self.assertLess(took, LONGEST_ANSWER)


class SessionBusTest(BusCase):
    def end_bus(self):
        self.end_all("bus.conf")

    def expect_the_rest_works(self):
        self.expect_answer()
        self.desktop.press("ctrl+w")
        self.wait(lambda: not self.program.windows(), "the window to hide")
        self.press_hot_key()
        self.wait(self.in_front, "our window")
        self.desktop.wait_until_painted(self.program.window_id())
        self.expect_answer()
        self.expect_calm()

    def test_dies(self):
        self.open()
        self.end_bus()
        self.expect_the_rest_works()

    def test_missing_at_start(self):
        self.end_bus()
        self.program = self.start()
        self.wait(self.in_front, "our window")
        self.desktop.wait_until_painted(self.program.window_id())
        self.expect_the_rest_works()


if __name__ == "__main__":
    unittest.main()
