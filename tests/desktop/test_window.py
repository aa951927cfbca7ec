"""The main window as a window: sizes, place, closing, the menu bar, a second start."""

import unittest

from harness import APPLICATION_ID, DEADLINE, DesktopTestCase, Role, pause

MINIMUM = (980, 650)


class WindowTestCase(DesktopTestCase):
    def quit(self, program):
        self.desktop.press("ctrl+q")
        self.assertEqual(program.process.wait(DEADLINE), 0)

    def settled_geometry(self, window):
        """The geometry once the window manager is done with it."""
        seen = []

        def same_twice():
            seen.append(self.desktop.geometry(window))
            return seen[-3:].count(seen[-1]) == 3

        self.wait(same_twice, "a settled window")
        return seen[-1]

    def minimise(self, window):
        self.desktop.press("ctrl+m")
        self.wait(lambda: "_NET_WM_STATE_HIDDEN" in self.desktop.property(window, "_NET_WM_STATE"),
                  "the window to be minimised")

    def close(self, program):
        self.desktop.press("ctrl+w")
        self.wait(lambda: not program.windows(), "the window to hide")


class WindowTest(WindowTestCase):
    def test_first_opening(self):
        program = self.start()
        program.window()
        x, y, width, height = self.settled_geometry(program.window_id())
        self.assertGreaterEqual(width, MINIMUM[0])
        self.assertGreaterEqual(height, MINIMUM[1])
        screen_width, screen_height = self.desktop.size
        self.assertAlmostEqual(x + width / 2, screen_width / 2, delta=20)
        self.assertAlmostEqual(y + height / 2, screen_height / 2, delta=40)

    def test_minimum_size(self):
        program = self.start()
        program.window()
        hints = self.desktop.property(program.window_id(), "WM_NORMAL_HINTS")
        self.assertIn("minimum size: {} by {}".format(*MINIMUM), hints)

    def test_window_class_and_title(self):
        program = self.start()
        window = program.window_id()
        self.assertIn('"hmatnik"', self.desktop.property(window, "WM_CLASS"))
        self.assertIn('"Hmatník"', self.desktop.property(window, "_NET_WM_NAME"))

    def test_geometry_is_kept_without_drift(self):
        program = self.start()
        program.window()
        program.resize(1100, 720)
        self.desktop.move(program.window_id(), 300, 200)
        placed = self.settled_geometry(program.window_id())
        for _ in range(3):
            self.quit(program)
            program = self.start()
            program.window()
            self.assertEqual(self.settled_geometry(program.window_id()), placed)

    def test_geometry_comes_back_after_closing(self):
        program = self.start()
        program.window()
        program.resize(1100, 720)
        self.desktop.move(program.window_id(), 300, 200)
        placed = self.settled_geometry(program.window_id())
        self.close(program)
        self.assertEqual(program.start_again(), 0)
        program.window()
        self.assertEqual(self.settled_geometry(program.window_id()), placed)

    def test_never_off_screen(self):
        program = self.start()
        program.window()
        screen_width, screen_height = self.desktop.size
        self.desktop.move(program.window_id(), screen_width - 60, screen_height - 60)
        self.settled_geometry(program.window_id())
        self.quit(program)
        program = self.start()
        program.window()
        x, y, width, height = self.settled_geometry(program.window_id())
        self.assertGreaterEqual(x, 0)
        self.assertGreaterEqual(y, 0)
        self.assertLessEqual(x + width, screen_width)
        self.assertLessEqual(y + height, screen_height)

    def test_closing_hides_and_keeps_running(self):
        program = self.start()
        program.window()
        self.desktop.press("alt+F4")  # the window manager's own way to close a window
        self.wait(lambda: not program.windows(), "the window to hide")
        pause(0.5)
        self.assertTrue(program.running)
        self.assertEqual(program.start_again(), 0)
        program.window()

    def test_second_start_reopens_and_ends(self):
        program = self.start()
        program.window()
        self.desktop.press("ctrl+w")
        self.wait(lambda: not program.windows(), "the window to hide")
        self.assertEqual(program.start_again(), 0)
        program.window()
        # A window that is open already comes to the front.
        other = self.spawn("mousepad", "--disable-server")
        front = self.wait(lambda: self.desktop.visible_windows("mousepad"), "the other window")[0]
        self.wait(lambda: self.desktop.active_window() == front, "the other window in front")
        self.assertEqual(program.start_again(), 0)
        self.wait(lambda: self.desktop.active_window() == program.window_id(), "our window in front")
        self.assertIsNone(other.poll())

    def test_minimise(self):
        program = self.start()
        program.window()
        self.minimise(program.window_id())
        self.assertEqual(program.start_again(), 0)
        program.window()

    def menu_bar_items(self, program):
        """The items of the menu bar, if it shows."""
        bar = program.window().find(role=Role.MENU_BAR)
        return bar.children if bar else []

    def menu_titles(self, program):
        return [item.name for item in self.menu_bar_items(program)]

    def check_menu_bar(self, key):
        program = self.start()
        program.window()
        self.assertEqual(self.menu_titles(program), [])
        self.desktop.press(key)
        self.wait(lambda: self.menu_titles(program) == ["Hmatník", "Úpravy", "Okno"],
                  "the menu bar")
        self.desktop.press("Escape")
        self.wait(lambda: self.menu_titles(program) == [], "the menu bar to hide")

    def test_f10_shows_the_menu_bar(self):
        self.check_menu_bar("F10")

    def test_alt_shows_the_menu_bar(self):
        self.check_menu_bar("Alt_L")

    def test_menu_items(self):
        program = self.start()
        program.window()
        self.desktop.press("F10")
        self.wait(lambda: self.menu_titles(program), "the menu bar")
        menus = {}
        tree = self.desktop.application(program.process.pid)
        for key, title, first in (("Down", "Hmatník", "O aplikaci Hmatník"),
                                  ("Right", "Úpravy", "Vyjmout"), ("Right", "Okno", "Zavřít")):
            self.desktop.press(key)
            tree.wait_for(first, Role.MENU_ITEM)
            menus[title] = [item.name for item in tree.find_all(role=Role.MENU_ITEM) if item.name]
        self.assertEqual(menus, {
            "Hmatník": ["O aplikaci Hmatník", "Načíst zkratky plochy", "Ukončit Hmatník"],
            "Úpravy": ["Vyjmout", "Kopírovat", "Vložit", "Vybrat vše"],
            "Okno": ["Zavřít", "Minimalizovat"]})

    def test_edit_keys_act_on_the_search_field(self):
        program = self.start()
        window = program.window()
        field = program.search_field()
        # Not by a click: the window manager can hold it back until the text is selected.
        self.wait(lambda: field.focused, "the keyboard in the field")
        self.desktop.type("zkop")
        self.wait(lambda: field.text == "zkop", "the text")
        self.desktop.press("ctrl+a", "ctrl+x")
        self.wait(lambda: field.text == "", "the text to be cut")
        self.desktop.press("ctrl+v", "ctrl+v")
        self.wait(lambda: field.text == "zkopzkop", "the text to be pasted twice")
        window.wait_for("Žádná odpovídající zkratka")

    def choose_from_edit_menu(self, program, text):
        self.desktop.press("F10")
        self.wait(lambda: self.menu_titles(program), "the menu bar")
        self.desktop.press("Right", "Down")
        tree = self.desktop.application(program.process.pid)
        self.desktop.click(tree.wait_for(text, Role.MENU_ITEM))
        self.wait(lambda: not self.menu_titles(program), "the menu bar to hide")

    def test_edit_menu_acts_on_the_search_field(self):
        program = self.start()
        window = program.window()
        field = program.search_field()
        self.desktop.click(field)
        self.desktop.type("zkop")
        self.wait(lambda: field.text == "zkop", "the text")
        self.choose_from_edit_menu(program, "Vybrat vše")
        self.choose_from_edit_menu(program, "Vyjmout")
        self.wait(lambda: field.text == "", "the text to be cut")
        window.wait_for("Oblíbené", Role.CHECK_BOX)
        self.choose_from_edit_menu(program, "Vložit")
        self.choose_from_edit_menu(program, "Vložit")
        self.wait(lambda: field.text == "zkopzkop", "the text to be pasted twice")
        window.wait_for("Žádná odpovídající zkratka")

    def test_quit(self):
        program = self.start()
        program.window()
        self.quit(program)
        self.assertFalse(self.desktop.has_owner(APPLICATION_ID))


class MaximisedTest(WindowTestCase):
    """A window that fills the screen does so again whenever it comes back, and knows where it was
    before."""

    def is_maximised(self, window):
        states = self.desktop.property(window, "_NET_WM_STATE")
        return all(f"_NET_WM_STATE_MAXIMIZED_{way}" in states for way in ("HORZ", "VERT"))

    def toggle(self, program):
        """As a person does it, on the title bar."""
        x, y, width, _ = self.settled_geometry(program.window_id())
        self.desktop.move_pointer(x + width // 2, y - 8)
        self.desktop.output(["xdotool", "click", "--repeat", "2", "--delay", "50", "1"])

    def start_maximised(self):
        """Gives the program and where its window was before."""
        program = self.start()
        program.window()
        program.resize(1100, 720)
        self.desktop.move(program.window_id(), 300, 200)
        placed = self.settled_geometry(program.window_id())
        # Otherwise it might not have heard of it.
        self.wait(lambda: program.window().extents == placed, "the program to know its place")
        self.toggle(program)
        self.expect_maximised(program)
        return program, placed

    def expect_maximised(self, program):
        program.window()
        self.wait(lambda: self.is_maximised(program.window_id()), "a maximised window")
        self.wait(lambda: self.desktop.geometry(program.window_id())[2] == self.SCREEN[0],
                  "a window as wide as the screen")
        self.wait(lambda: program.window().extents[2] == self.SCREEN[0],
                  "the program to fill its window")

    def expect_normal_again(self, program, placed):
        self.toggle(program)
        self.wait(lambda: not self.is_maximised(program.window_id()), "a window of its own size")
        self.assertEqual(self.settled_geometry(program.window_id()), placed)

    def test_comes_back_after_minimising(self):
        program, placed = self.start_maximised()
        self.minimise(program.window_id())
        self.assertEqual(program.start_again(), 0)
        self.expect_maximised(program)
        self.expect_normal_again(program, placed)

    def test_comes_back_after_closing(self):
        program, placed = self.start_maximised()
        for _ in range(2):
            self.close(program)
            self.assertEqual(program.start_again(), 0)
            self.expect_maximised(program)
        self.expect_normal_again(program, placed)
        # Closed as it is now, it is that.
        self.close(program)
        self.assertEqual(program.start_again(), 0)
        program.window()
        self.assertEqual(self.settled_geometry(program.window_id()), placed)

    def test_comes_back_in_the_next_run(self):
        program, placed = self.start_maximised()
        for _ in range(2):
            self.quit(program)
            program = self.start()
            self.expect_maximised(program)
        self.expect_normal_again(program, placed)
        self.quit(program)
        program = self.start()
        program.window()
        self.assertEqual(self.settled_geometry(program.window_id()), placed)
        self.assertFalse(self.is_maximised(program.window_id()))

    def test_asked_for_again_it_stays(self):
        program, _ = self.start_maximised()
        self.spawn("mousepad", "--disable-server")
        front = self.wait(lambda: self.desktop.visible_windows("mousepad"), "the other window")[0]
        self.wait(lambda: self.desktop.active_window() == front, "the other window in front")
        self.assertEqual(program.start_again(), 0)
        self.expect_maximised(program)


class MaximisedByMetacityTest(MaximisedTest):
    WINDOW_MANAGER = ("metacity", "--sm-disable")


class SmallScreenTest(DesktopTestCase):
    SCREEN = (1024, 700)

    def test_window_fits(self):
        program = self.start()
        program.window()
        x, y, width, height = self.desktop.geometry(program.window_id())
        self.assertGreaterEqual(x, 0)
        self.assertGreaterEqual(y, 0)
        self.assertLessEqual(x + width, 1024)
        self.assertLessEqual(y + height, 700)


if __name__ == "__main__":
    unittest.main()
