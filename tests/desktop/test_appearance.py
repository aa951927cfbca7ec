"""Colours, contrast and the size of texts follow the desktop's choices."""

import unittest
from collections import Counter

from harness import DesktopTestCase, Role, Settings


def luminance(colour):
    """Relative luminance of WCAG 2."""
    red, green, blue = (part / 12.92 if part <= 0.03928 else ((part + 0.055) / 1.055) ** 2.4
                        for part in (value / 255 for value in colour))
    return 0.2126 * red + 0.7152 * green + 0.0722 * blue


def contrast(one, other):
    brighter, darker = sorted((luminance(one), luminance(other)), reverse=True)
    return (brighter + 0.05) / (darker + 0.05)


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

    def text_contrast(self, element):
        """Of the strongest dot of an element's text to what it stands on."""
        self.desktop.move_pointer(1, 1)
        self.desktop.wait_until_still()
        left, top, width, height = element.extents
        screen_width, _, pixels = self.desktop.pixels()
        dots = Counter(
            tuple(pixels[3 * (y * screen_width + x):][:3])
            for y in range(top + 3, top + height - 3) for x in range(left + 8, left + width - 8))
        ground = dots.most_common(1)[0][0]
        return max(contrast(dot, ground) for dot in dots)

    def test_buttons_that_cannot_be_pressed_can_be_read(self):
        program = self.start()
        window = program.window()
        self.desktop.click(program.row("Dnešní zkratka"))
        self.desktop.click(window.wait_for("Trojici umím", Role.BUTTON))
        done = window.wait_for("Dnes splněno ✓", Role.BUTTON)
        for scheme, high_contrast in ((Settings.LIGHT, False), (Settings.DARK, False),
                                      (Settings.DARK, True), (Settings.LIGHT, True)):
            with self.subTest(scheme=scheme, high_contrast=high_contrast):
                self.settings.set(scheme)
                self.settings.set_high_contrast(high_contrast)
                wait = self.wait_for_dark if scheme == Settings.DARK else self.wait_for_light
                wait(program)
                # It says something, so it counts as any text.
                self.wait(lambda: self.text_contrast(done) >= 4.5, "a text that can be read")
                self.desktop.click(window.wait_for("Přidat vlastní", Role.BUTTON))
                sheet = window.wait_for("Přidat vlastní zkratku", Role.DIALOG)
                add = sheet.wait_for("Přidat", Role.BUTTON)
                self.wait(lambda: self.text_contrast(add) >= 3, "a text that can be made out")
                self.desktop.press("Escape")
                window.wait_until_gone("Přidat vlastní zkratku", Role.DIALOG)

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
