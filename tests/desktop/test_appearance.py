"""Colours, contrast and the size of texts follow the desktop's choices."""

import unittest

from harness import DesktopTestCase, Settings


class AppearanceTest(DesktopTestCase):
    def setUp(self):
        super().setUp()
        self.settings = Settings(self.desktop)
        self.addCleanup(self.settings.close)

    def brightness(self, program):
        """Median of the window's grey values, 0 to 255."""
        x, y, width, height = self.desktop.geometry(program.window_id())
        screen_width, _, pixels = self.desktop.pixels()
        values = []
        for row in range(y + 5, y + height - 5, 9):
            for column in range(x + 5, x + width - 5, 9):
                at = 3 * (row * screen_width + column)
                values.append(sum(pixels[at:at + 3]) // 3)
        return sorted(values)[len(values) // 2]

    def wait_for_light(self, program):
        self.wait(lambda: self.brightness(program) > 200, "the light appearance")

    def wait_for_dark(self, program):
        self.wait(lambda: self.brightness(program) < 80, "the dark appearance")

    def test_follows_while_running(self):
        program = self.start()
        program.window()
        self.wait_for_light(program)
        self.settings.set(Settings.DARK)
        self.wait_for_dark(program)
        self.settings.set(Settings.LIGHT)
        self.wait_for_light(program)

    def test_starts_dark(self):
        self.settings.set(Settings.DARK)
        program = self.start()
        program.window()
        self.wait_for_dark(program)

    def colour_of_selected_row(self, program):
        x, y, _, height = program.row("Všechny zkratky").extents
        width, _, pixels = self.desktop.pixels()
        at = 3 * ((y + height // 2) * width + x + 4)
        return tuple(pixels[at:at + 3])

    def test_follows_the_contrast_while_running(self):
        program = self.start()
        program.window()
        self.wait_for_light(program)
        self.wait(lambda: self.colour_of_selected_row(program) == (0x00, 0x6F, 0xE6),
                  "the accent")
        self.settings.set_high_contrast(True)
        self.wait(lambda: self.colour_of_selected_row(program) == (0x00, 0x4F, 0xB8),
                  "the darker accent")
        self.settings.set_high_contrast(False)
        self.wait(lambda: self.colour_of_selected_row(program) == (0x00, 0x6F, 0xE6),
                  "the accent again")

    def row_height(self, **environment):
        program = self.start(**environment)
        program.window()
        height = program.row("Všechny zkratky").extents[3]
        program.terminate()
        return height

    def test_texts_and_what_holds_them_grow_with_the_desktops_font(self):
        self.assertEqual(self.row_height(), 30)
        (self.home / ".config/kdeglobals").write_text(
            "[General]\nfont=Inter,15,-1,5,50,0,0,0,0,0\n")
        self.assertEqual(self.row_height(XDG_CURRENT_DESKTOP="KDE", KDE_SESSION_VERSION="5"), 45)


if __name__ == "__main__":
    unittest.main()
