"""Screens that are pulled out, plugged in, resized and scaled: every window stays where it can be
seen and used."""

import math
import unittest

from harness import DesktopTestCase, Role, Settings, State, write_preferences
from screens import Scaling, Screens
from trays import Trayer

INSET = 22
BLUE = (0x00, 0x6F, 0xE6)


class ScreensTest(DesktopTestCase):
    SCREEN = (2560, 1440)

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.screens = Screens(cls.desktop)

    def setUp(self):
        super().setUp()
        self.addCleanup(self.reset_screens)

    def reset_screens(self):
        self.screens.divide()
        self.screens.resize(*self.SCREEN)

    def open(self):
        self.program = self.start()
        self.main = self.program.window_id()
        self.program.window()

    def panel(self):
        """X11's id of the overlay as soon as it is painted; it changes with the scale."""
        return self.wait(lambda: [window for window in self.program.windows()
                                  if 0 < self.desktop.geometry(window)[2] < 800
                                  and self.desktop.is_painted(window)], "the panel")[0]

    def main_window(self):
        """X11's id of the main window; it changes with the scale."""
        return self.wait(lambda: [window for window in self.program.windows()
                                  if self.desktop.geometry(window)[2] >= 980], "our window")[0]

    def lies_within(self, window, left, top, width, height):
        x, y, own_width, own_height = self.desktop.geometry(window)
        return (left <= x and x + own_width <= left + width
                and top <= y and y + own_height <= top + height)

    def expect_within(self, window, *area):
        self.wait(lambda: self.lies_within(window(), *area),
                  f"the window within {area}; it is at {self.desktop.geometry(window())}")

    def expect_corner(self, right, scale=1):
        """The overlay is in the upper right corner of a screen that ends there."""
        wanted = (right - (380 + INSET) * scale, INSET * scale, 380 * scale)
        self.wait(lambda: all(abs(number - goal) <= 1 for number, goal
                              in zip(self.desktop.geometry(self.panel()), wanted)),
                  f"the panel at {wanted}")

    def expect_answer(self):
        """Keys reach the search field, and what they change is painted where it is."""
        self.desktop.bring_to_front(self.main_window)
        field = self.program.search_field()
        self.desktop.press("ctrl+f", "ctrl+a", "Delete", "k")
        self.wait(lambda: field.text == "k", "the key in the search field")
        self.desktop.press("BackSpace")
        self.wait(lambda: field.text == "", "an empty search field")

    # Resolution.

    def test_smaller_and_larger(self):
        self.open()
        self.program.toggle_overlay()
        self.expect_corner(2560)
        self.desktop.move(self.main, 1500, 700)
        self.screens.resize(1280, 800)
        self.expect_corner(1280)
        self.expect_within(self.main_window, 0, 0, 1280, 800)
        self.expect_answer()
        self.screens.resize(*self.SCREEN)
        self.expect_corner(2560)
        self.expect_answer()

    def test_smaller_while_hidden(self):
        self.open()
        self.desktop.move(self.main, 1500, 700)
        self.desktop.press("ctrl+w")
        self.wait(lambda: not self.program.windows(), "the window to hide")
        self.screens.resize(1280, 800)
        self.program.reopen()
        self.expect_within(self.main_window, 0, 0, 1280, 800)
        self.expect_answer()

    def test_half_a_window_stays_where_it_was_put(self):
        self.open()
        self.desktop.move(self.main, 600, 100)
        before = self.desktop.geometry(self.main)
        self.screens.resize(1280, 800)
        self.program.toggle_overlay()
        self.expect_corner(1280)
        self.expect_answer()
        # The window manager may push it in, we don't.
        self.assertLessEqual(abs(self.desktop.geometry(self.main)[0] - before[0]), 300)
        self.assertEqual(self.desktop.geometry(self.main)[1], before[1])

    # Several screens.

    def test_second_screen_comes_and_goes(self):
        self.open()
        self.program.toggle_overlay()
        self.screens.divide(1280, 1280)
        self.expect_corner(1280)
        self.desktop.move(self.main, 1400, 300)
        self.expect_answer()
        self.screens.divide()
        self.screens.resize(1280, 1440)
        self.expect_corner(1280)
        self.expect_within(self.main_window, 0, 0, 1280, 1440)
        self.expect_answer()

    # The window of tips.

    def test_tips(self):
        write_preferences(self.home, {"hasLaunchedBefore": True})
        host = Trayer(self.desktop, self.home)
        self.addCleanup(host.stop)
        host.start()
        self.program = self.start(opened=False)
        self.desktop.click(host.wait_for_icon())
        tips = self.wait(self.program.windows, "the tips")[0]
        frame = self.program.tree().wait_for("Hmatník", Role.FRAME,
                                             lambda frame: State.ACTIVE in frame.states)
        self.screens.resize(1280, 800)
        self.expect_within(lambda: tips, 0, 0, 1280, 800)
        self.desktop.click(frame.wait_for("Otevřít knihovnu", Role.BUTTON))
        self.expect_within(self.main_window, 0, 0, 1280, 800)
        self.expect_answer()

    # Scale.

    def is_blue(self, x, y):
        width, _, data = self.desktop.pixels()
        at = 3 * (y * width + x)
        return max(abs(data[at + i] - BLUE[i]) for i in range(3)) < 16

    def expect_painted(self, scale):
        """All of the panel is painted in its new size: its button, far down, with it. Gives a point
        of the button."""
        self.expect_corner(2560, scale)

        def point():
            button = self.program.tree().find("Otevřít celou knihovnu", Role.BUTTON)
            if not button:
                return None
            # The toolkit tells places in layout units.
            x, y, width, height = (number * scale for number in button.extents)
            # At its end, where it has no text.
            end = int(x + width - 30 * scale), int(y + height / 2)
            return end if self.is_blue(*end) else None

        return self.wait(point, "the panel's button in its colour")

    def test_scale(self):
        scaling = Scaling(self.desktop)
        self.addCleanup(scaling.close)
        self.open()
        self.program.toggle_overlay()
        self.expect_corner(2560)
        for scale in (2, 1.5, 1):
            with self.subTest(scale):
                scaling.set(scale)
                self.expect_painted(scale)
                size = (980 * scale, 650 * scale)
                self.wait(lambda: self.desktop.geometry(self.main_window())[2:] == size,
                          "the window in its new size")
                self.expect_within(self.main_window, 0, 0, *self.SCREEN)
                self.expect_answer()
        # What is hidden meanwhile comes back in the new scale.
        self.program.toggle_overlay()
        self.wait(lambda: len(self.program.windows()) == 1, "the panel to go")
        scaling.set(2)
        self.wait(lambda: self.desktop.geometry(self.main_window())[2] == 1960, "the new size")
        self.program.toggle_overlay()
        self.desktop.click(self.expect_painted(2))
        self.wait(lambda: len(self.program.windows()) == 1, "the panel to go")

    def test_scale_changes_before_the_last_one_is_painted(self):
        """The window is made anew again and again, and ends in the size that it began with."""
        scaling = Scaling(self.desktop)
        self.addCleanup(scaling.close)
        self.open()
        for scale in (2, 1, 2, 1, 2, 1, 2):
            before = self.program.windows()
            scaling.set(scale)
            self.wait(lambda: not set(before) & set(self.program.windows()), "the old one to go")
        self.wait(lambda: self.desktop.geometry(self.main_window())[2:] == (1960, 1300),
                  "the window in its new size")
        self.desktop.wait_until_still()
        self.assertEqual(self.desktop.geometry(self.main_window())[2:], (1960, 1300))
        self.expect_answer()

    # Edges.

    def edge(self, picture, x, y, step_x, step_y, depth):
        """From a point inside a surface outwards: how far its edge is, and the edge's colours."""
        width, _, data = picture

        def colour(distance):
            at = 3 * ((y + distance * step_y) * width + x + distance * step_x)
            return tuple(data[at:at + 3])

        # A last digit may differ where a picture was stretched; nobody sees that.
        distance = next((distance for distance in range(1, 40)
                         if abs(sum(colour(distance)) - sum(colour(0))) > 9), None)
        self.assertIsNotNone(distance, f"no edge from {x}, {y}")
        return distance, [colour(distance + i) for i in range(depth)]

    def expect_straight_edges(self, element, picture, scale, radius, inset):
        """Each side of a surface has its edge in one and the same row of dots, from corner to
        corner, and all four have the same colours."""
        left, top, width, height = element.extents
        right, bottom = left + width - 1, top + height - 1
        inset, corner = round(inset * scale), math.ceil(radius * scale) + 2
        down, across = range(top + corner, bottom - corner), range(left + corner, right - corner)
        depth = math.floor(scale)
        sides = {
            "left": [self.edge(picture, left + inset, y, -1, 0, depth) for y in down],
            "right": [self.edge(picture, right - inset, y, 1, 0, depth) for y in down],
            "top": [self.edge(picture, x, top + inset, 0, -1, depth) for x in across],
            "bottom": [self.edge(picture, x, bottom - inset, 0, 1, depth) for x in across]}
        for side, edges in sides.items():
            self.assertEqual(len({distance for distance, _ in edges}), 1,
                             f"the {side} edge of {element!r} has a step")
        colours = {tuple(tuple(value // 8 for value in dot) for dot in colours)
                   for edges in sides.values() for _, colours in edges}
        self.assertEqual(len(colours), 1, f"the edges of {element!r} differ: {colours}")

    def check_edges(self, scale, elements, radius, inset):
        self.desktop.move_pointer(1, 1)
        self.desktop.wait_until_still()
        picture = self.desktop.pixels()
        _, top, _, height = self.desktop.geometry(self.main_window())
        checked = 0
        for element in elements:
            x, y, _, own_height = element.extents
            if y + own_height < top + height:  # not cut off by the end of the window
                self.expect_straight_edges(element, picture, scale, radius, inset)
                checked += 1
        self.assertGreater(checked, 2)

    def test_edges_lie_on_whole_dots(self):
        # With high contrast nothing shines through, so the dots of an edge are all alike.
        settings = Settings(self.desktop)
        self.addCleanup(settings.close)
        settings.set_high_contrast(True)
        scaling = Scaling(self.desktop)
        self.addCleanup(scaling.close)
        self.addCleanup(setattr, self.desktop.accessibility, "scale", 1)
        self.open()
        for scale in (1, 1.25, 1.5, 2):
            with self.subTest(scale):
                scaling.set(scale)
                self.desktop.accessibility.scale = scale
                self.wait(lambda: self.desktop.geometry(self.main_window())[2] == 980 * scale,
                          "the window in its new size")
                self.desktop.click(self.program.row("Všechny zkratky"))
                window = self.program.window()
                window.wait_for("Knihovna", Role.HEADING)
                self.check_edges(scale, self.program.cards().values(), 14, 8)
                self.desktop.click(self.program.row("Vizuální klávesnice"))
                keys = window.wait_for("Klávesnice", Role.PANEL)
                self.check_edges(scale, keys.find_all(role=Role.CHECK_BOX), 8, 3)
                self.desktop.click(self.program.row("Dnešní zkratka"))
                trio = window.wait_for("Dnešní trojice", Role.LIST)
                self.check_edges(scale, trio.find_all(role=Role.LIST_ITEM), 14, 8)

    def test_a_window_that_fills_the_screen_is_scaled(self):
        scaling = Scaling(self.desktop)
        self.addCleanup(scaling.close)
        self.open()
        x, y, width, _ = self.desktop.geometry(self.main)
        self.desktop.move_pointer(x + width // 2, y - 8)
        self.desktop.output(["xdotool", "click", "--repeat", "2", "--delay", "50", "1"])
        self.wait(lambda: self.desktop.geometry(self.main)[2] == 2560, "the whole screen")
        scaling.set(2)
        self.wait(lambda: self.program.window().extents[2] == 1280, "fewer layout units")
        self.assertEqual(self.desktop.geometry(self.main_window())[2], 2560)
        self.desktop.wait_until_still()
        # The far corner is painted as the near one is, not left as it was.
        width, height, data = self.desktop.pixels()
        self.assertNotEqual(data[3 * (width * (height - 100) + width - 100):][:3], b"\0\0\0")
        self.expect_answer()


if __name__ == "__main__":
    unittest.main()
