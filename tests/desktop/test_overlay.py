"""The floating panel of tips: where it is, that it never has the keyboard, and what it shows."""

import unittest

from harness import DesktopTestCase, Role
from neighbours import Neighbour

WIDTH = 380
INSET = 22


class OverlayTest(DesktopTestCase):
    def setUp(self):
        super().setUp()
        self.other = self.neighbour("mousepad")
        self.program = self.start()
        self.main = self.program.window_id()
        self.program.window()
        self.other.bring_to_front()

    def neighbour(self, kind):
        neighbour = Neighbour(self.desktop, kind, self.home / "other")
        self.addCleanup(neighbour.close)
        neighbour.bring_to_front()
        return neighbour

    def tree(self):
        return self.program.tree()

    def toggle(self):
        self.program.toggle_overlay()

    def panels(self):
        return [window for window in self.program.windows() if window != self.main]

    def shown(self):
        """X11's id of the panel as soon as it is on the screen and painted."""
        panel = self.wait(self.panels, "the panel")[0]
        self.desktop.wait_until_painted(panel)
        return panel

    def show(self):
        self.toggle()
        return self.shown()

    def expect_hidden(self):
        self.wait(lambda: not self.panels(), "the panel to go")

    def expect_at_the_corner(self, panel):
        x, y, width, _ = self.desktop.work_area()
        self.wait(lambda: self.desktop.geometry(panel)[:3] == (
            x + width - INSET - WIDTH, y + INSET, WIDTH), "the panel at its place")

    def heading(self):
        close = self.tree().wait_for("Zavřít", Role.BUTTON)
        panel = close.parent
        while not panel.find(role=Role.HEADING):
            panel = panel.parent
        return panel.find(role=Role.HEADING).name

    def on_top(self):
        """The topmost window on the screen."""
        for line in self.desktop.output(["xwininfo", "-root", "-children"]).splitlines():
            words = line.split()
            if (words and words[0].startswith("0x")
                    and "IsViewable" in self.desktop.output(["xwininfo", "-id", words[0]])):
                return int(words[0], 16)
        return None

    def corner(self, panel):
        """Colours of the panel's upper left corner, without repetition, and of what is around."""
        x, y, _, _ = self.desktop.geometry(panel)
        width, _, pixels = self.desktop.pixels()

        def colour(column, row):
            return tuple(pixels[3 * (row * width + column):][:3])

        return ({colour(x + column, y + row) for row in range(14) for column in range(14)},
                colour(x - 3, y - 3))

    def is_cut(self, panel):
        shape = self.desktop.output(["xwininfo", "-shape", "-id", str(panel)])
        return "No window shape defined" not in shape

    def expect_no_black_corner(self, panel):
        colours, around = self.corner(panel)
        self.assertIn(around, colours)
        self.assertNotIn((0, 0, 0), colours)

    def test_corners_are_smooth_under_a_compositor_and_never_black(self):
        self.desktop.output(["xsetroot", "-solid", "#6b74ab"])
        panel = self.show()
        self.assertTrue(self.is_cut(panel))
        self.expect_no_black_corner(panel)
        self.toggle()
        self.expect_hidden()

        compositor = self.spawn("xcompmgr")
        self.wait(lambda: self.desktop.selection_owner("_NET_WM_CM_S0"), "the compositor")
        panel = self.show()
        self.assertFalse(self.is_cut(panel))
        self.wait(lambda: len(self.corner(panel)[0]) > 10, "smooth corners")
        self.expect_no_black_corner(panel)
        self.toggle()
        self.expect_hidden()

        compositor.terminate()
        self.wait(lambda: not self.desktop.selection_owner("_NET_WM_CM_S0"), "its end")
        panel = self.show()
        self.assertTrue(self.is_cut(panel))
        self.expect_no_black_corner(panel)

    def test_shown_hidden_and_shown_at_the_place_of_now(self):
        self.assertEqual(self.desktop.work_area(), (0, 0, *self.desktop.size))
        panel = self.show()
        self.expect_at_the_corner(panel)
        self.toggle()
        self.expect_hidden()
        # A panel of the desktop, at the right and at the top.
        self.spawn("xmessage", "Lišta")
        bar = self.wait(lambda: self.desktop.visible_windows("Xmessage"), "the panel's window")[0]
        self.desktop.output(["xprop", "-id", str(bar), "-f", "_NET_WM_STRUT", "32c",
                             "-set", "_NET_WM_STRUT", "0, 150, 60, 0"])
        width, height = self.desktop.size
        self.wait(lambda: self.desktop.work_area() == (0, 60, width - 150, height - 60),
                  "less room for windows")
        self.other.bring_to_front()
        self.expect_at_the_corner(self.show())

    def test_program_in_front_keeps_the_keyboard(self):
        active = self.desktop.active_window()
        focus = self.desktop.output(["xdotool", "getwindowfocus"])
        text = self.other.tree().wait_for(role=Role.TEXT)
        panel = self.show()
        self.desktop.type("psano dal")
        self.wait(lambda: text.text == "psano dal", "the keys in the program in front")
        self.assertEqual(self.desktop.active_window(), active)
        # Not even a click gives it the keyboard.
        x, y, _, _ = self.desktop.geometry(panel)
        self.desktop.click((x + 60, y + 24))
        self.desktop.type("e")
        self.wait(lambda: text.text == "psano dale", "the keys in the program in front")
        self.assertEqual(self.desktop.active_window(), active)
        self.assertEqual(self.desktop.output(["xdotool", "getwindowfocus"]), focus)
        self.desktop.click(self.tree().wait_for("Zavřít", Role.BUTTON))
        self.expect_hidden()
        self.assertEqual(self.desktop.active_window(), active)

    def test_above_everything_on_every_desktop(self):
        panel = self.show()
        self.assertEqual(self.on_top(), panel)
        self.desktop.press("F11")  # the program in front fills the screen
        window = self.other.window
        self.wait(lambda: self.desktop.geometry(window) == (0, 0, *self.desktop.size),
                  "the full screen")
        self.assertEqual(self.on_top(), panel)
        # Shown while something fills the screen, too.
        self.toggle()
        self.expect_hidden()
        self.assertEqual(self.show(), panel)
        self.assertEqual(self.on_top(), panel)
        self.assertEqual(self.desktop.active_window(), window)
        self.desktop.press("F11")
        for number in (1, 0):
            self.desktop.output(["xdotool", "set_desktop", str(number)])
            self.wait(lambda: self.desktop.output(["xdotool", "get_desktop"]).strip()
                      == str(number), "the other desktop")
            self.assertEqual(self.panels(), [panel])
            self.assertEqual(self.on_top(), panel)

    def test_follows_the_application_in_front(self):
        self.show()
        self.wait(lambda: self.heading() == "Mousepad", "the name of the program in front")
        featherpad = self.neighbour("featherpad")
        self.wait(lambda: self.heading() == "FeatherPad", "the other program's name")
        self.other.bring_to_front()
        self.wait(lambda: self.heading() == "Mousepad", "the first one's name")
        featherpad.close()

    def test_buttons(self):
        self.show()
        self.desktop.click(self.tree().wait_for("Otevřít celou knihovnu", Role.BUTTON))
        self.expect_hidden()
        self.wait(lambda: self.desktop.active_window() == self.main, "the main window")
        # The top bar's own button, clicked: ours is in front then, and stays the last to name.
        self.desktop.click(self.program.window().wait_for("Mousepad", Role.BUTTON))
        self.expect_at_the_corner(self.shown())
        self.assertEqual(self.heading(), "Mousepad")
        self.desktop.click(self.program.window().wait_for("Mousepad", Role.BUTTON))
        self.expect_hidden()


if __name__ == "__main__":
    unittest.main()
