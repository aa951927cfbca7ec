"""Light and dark follow the desktop's choice while the program runs."""

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


if __name__ == "__main__":
    unittest.main()
