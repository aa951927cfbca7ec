"""The item in the tray: its icon, the window of tips beside it, its menu, and trays that come, go
and restart."""

import subprocess
import unittest

from gi.repository import GLib

from harness import (APPLICATION_ID, LARGEST_ICON, DesktopTestCase, Role, State, pause,
                     write_preferences)
from trays import Panel, Trayer
from virtual_desktop import DEADLINE

GAP = 6


class TrayTest(DesktopTestCase):
    def setUp(self):
        super().setUp()
        write_preferences(self.home, {"hasLaunchedBefore": True})
        self.front = self.spawn("mousepad", "--disable-server")
        self.wait(lambda: self.desktop.visible_windows("mousepad"), "the program in front")

    def trayer(self):
        tray = Trayer(self.desktop, self.home)
        self.addCleanup(tray.stop)
        return tray

    def panel(self):
        panel = Panel(self.desktop, self.home)
        self.addCleanup(panel.close)
        return panel

    def start_quietly(self):
        program = self.start(opened=False)
        self.wait(lambda: self.desktop.has_owner(APPLICATION_ID), "the program on the bus")
        return program

    def tips(self, program):
        """The window of tips in the accessibility tree; it has the keyboard."""
        self.wait(lambda: self.desktop.active_window() in program.windows(), "the tips in front")
        tree = self.desktop.application(program.process.pid)
        frame = tree.wait_for("Hmatník", Role.FRAME,
                              lambda frame: State.ACTIVE in frame.states
                              and frame.find("Ukončit", Role.BUTTON))
        self.desktop.wait_until_still()  # nobody clicks before seeing it
        return frame

    def open_tips(self, program, host):
        self.desktop.click(host.wait_for_icon())
        return self.tips(program)

    def wait_until_closed(self, program):
        self.wait(lambda: not program.windows(), "the tips to close")

    def expect_beside(self, icon, program):
        """The window begins below the host, and is over the icon or at the screen's edge."""
        x, y, width, _ = self.desktop.geometry(program.windows()[0])
        self.assertEqual((width, y), (320, self.desktop.work_area()[1] + GAP))
        self.assertGreaterEqual(x, GAP)
        self.assertLessEqual(x + width, self.desktop.size[0] - GAP)
        middle = x + width // 2
        self.assertTrue(abs(middle - icon[0]) <= 12 or x == GAP
                        or x + width == self.desktop.size[0] - GAP, (x, icon))

    # What a later start shows.

    def test_a_later_start_is_quiet_without_a_tray(self):
        program = self.start_quietly()
        pause(1)
        self.assertTrue(program.running)
        self.assertEqual(program.windows(), [])
        self.assertEqual(program.start_again(), 0)
        program.window()

    # Both kinds of tray.

    def check_window(self, host, program):
        icon = host.wait_for_icon()
        self.assertEqual(program.windows(), [])
        window = self.open_tips(program, host)
        self.expect_beside(icon, program)
        self.assertTrue(window.find("Tipy pro Mousepad"))
        self.assertEqual([name for _, name, role in window.walk() if role == Role.LIST_ITEM],
                         ["Kopírovat", "Vložit", "Vrátit zpět", "Provést znovu"])

        self.desktop.press("Escape")
        self.wait_until_closed(program)

        self.open_tips(program, host)
        self.desktop.click(icon)
        self.wait_until_closed(program)
        pause(0.3)
        self.assertEqual(program.windows(), [], "the click that closes does not open")

        self.open_tips(program, host)
        self.desktop.click((self.desktop.size[0] // 2, self.desktop.size[1] // 2))
        self.wait_until_closed(program)
        pause(0.5)  # sooner, the click would count as the one that took the keyboard away

        # The overlay comes after the tips have gone, and without the keyboard.
        tips = self.open_tips(program, host)
        self.desktop.click(tips.wait_for("Zobrazit overlay pro Mousepad", Role.BUTTON))
        # The tips give the keyboard back a moment before they go.
        self.wait(lambda: self.desktop.active_window() not in program.windows()
                  and [self.desktop.geometry(window)[2] for window in program.windows()] == [380],
                  "the overlay alone")

        tips = self.open_tips(program, host)
        self.desktop.click(tips.wait_for("Otevřít knihovnu", Role.BUTTON))
        self.desktop.application(program.process.pid).wait_for("Přidat vlastní", Role.BUTTON)
        self.wait(lambda: len(program.windows()) == 2, "the library beside the overlay alone")

        # The library is open already: it comes to the front.
        self.desktop.click((self.desktop.geometry(self.desktop.visible_windows("mousepad")[0])[0]
                            + 5, host.height + 400))
        tips = self.open_tips(program, host)
        self.desktop.press("Tab", "Tab", "Tab", "space")
        self.wait(lambda: len(program.windows()) == 2, "the tips to close")
        self.wait(lambda: self.desktop.geometry(self.desktop.active_window())[2] >= 980,
                  "the library in front")

        tips = self.open_tips(program, host)
        self.desktop.click(tips.wait_for("Ukončit", Role.BUTTON))
        self.assertEqual(program.process.wait(DEADLINE), 0)
        host.wait_until_empty()

    def test_window_at_a_tray_of_windows(self):
        host = self.trayer()
        host.start()
        self.check_window(host, self.start_quietly())

    def test_window_at_a_panel_of_notifier_items(self):
        host = self.panel()
        host.start()
        self.check_window(host, self.start_quietly())


    def check_menu(self, host, program, menu_shown):
        """The same commands as in the window, in its order, by pointer and keyboard."""
        x, y = host.wait_for_icon()

        def choose(number):
            self.desktop.wait_until_still()  # a window that comes now would close the menu
            before = menu_shown()
            self.desktop.move_pointer(x, y)
            subprocess.run(["xdotool", "click", "3"], env=self.desktop.environment, check=True)
            self.wait(lambda: menu_shown() > before, "the menu")
            self.desktop.press(*["Down"] * number, "Return")
            self.wait(lambda: not program.running or menu_shown() == before, "the menu to close")

        choose(1)
        self.wait(lambda: [self.desktop.geometry(window)[2] for window in program.windows()]
                  == [380], "the overlay")
        choose(2)
        self.wait(lambda: len(program.windows()) == 2, "the library")
        self.wait(lambda: self.desktop.geometry(self.desktop.active_window())[2] >= 980,
                  "the library in front")
        choose(3)
        self.assertEqual(program.process.wait(DEADLINE), 0)

    def popups(self, window_class):
        return len([window for window in self.desktop.visible_windows(window_class)
                    if LARGEST_ICON < self.desktop.height(window) < 200])

    def test_menu_at_a_tray_of_windows(self):
        host = self.trayer()
        host.start()
        program = self.start_quietly()
        self.check_menu(host, program, lambda: self.popups("hmatnik"))

    def menu_of_notifier_item(self):
        """Texts of the menu that a panel gets for our icon."""
        item, = self.desktop.call(
            "org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher",
            "org.freedesktop.DBus.Properties", "Get", GLib.Variant("(ss)", (
                "org.kde.StatusNotifierWatcher", "RegisteredStatusNotifierItems")))[0]
        service, _, _ = item.partition("/")
        menu = self.desktop.call(
            service, "/StatusNotifierItem", "org.freedesktop.DBus.Properties", "Get",
            GLib.Variant("(ss)", ("org.kde.StatusNotifierItem", "Menu")))[0]
        _, (_, _, items) = self.desktop.call(
            service, menu, "com.canonical.dbusmenu", "GetLayout",
            GLib.Variant("(iias)", (0, -1, ["label", "type"])))
        return [properties.get("label", properties.get("type")) for _, properties, _ in items]

    def test_menu_at_a_panel_of_notifier_items(self):
        host = self.panel()
        host.start()
        program = self.start_quietly()
        host.wait_for_icon()
        self.wait(lambda: self.menu_of_notifier_item() == [
            "Zobrazit overlay pro Mousepad", "Otevřít knihovnu", "separator", "Ukončit"],
            "the menu's texts")
        self.check_menu(host, program, lambda: self.popups("wrapper-2.0"))

    # Trays that come and go.

    def check_restart(self, host):
        program = self.start_quietly()
        pause(0.5)
        host.start()
        self.open_tips(program, host)
        self.desktop.press("Escape")
        self.wait_until_closed(program)
        host.stop()
        pause(0.5)
        self.assertTrue(program.running)
        host.start()
        self.open_tips(program, host)

    def test_a_tray_of_windows_that_comes_later_and_restarts(self):
        self.check_restart(self.trayer())

    def test_a_panel_of_notifier_items_that_comes_later_and_restarts(self):
        self.check_restart(self.panel())


if __name__ == "__main__":
    unittest.main()
