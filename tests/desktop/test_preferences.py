"""What is kept from one run to the next, and what is done about a file that can't be read."""

import json
import plistlib
import signal
import unittest

from harness import DEADLINE, DesktopTestCase, write_preferences

DEFAULT_FAVORITES = ("Kopírovat", "Vložit", "Spotlight", "Vyfotit výřez")


def custom(identifier, title, detail="Něco udělá.", keys=("⌘", "K")):
    return {"id": identifier, "title": title, "keys": list(keys), "category": "Základy",
            "apps": [], "detail": detail}


class PreferencesTest(DesktopTestCase):
    def favourites(self, program, *titles):
        self.desktop.click(program.row("Oblíbené"))
        program.wait_for_cards(*titles)

    def test_favourites_are_kept(self):
        program = self.start()
        self.desktop.click(program.star("Uložit"))
        self.wait(lambda: program.star("Uložit").checked, "the star")
        self.desktop.press("ctrl+q")
        self.assertEqual(program.process.wait(DEADLINE), 0)

        program = self.start()
        self.favourites(program, "Kopírovat", "Vložit", "Uložit", "Spotlight", "Vyfotit výřez")

    def test_favourites_survive_a_kill(self):
        program = self.start()
        self.desktop.click(program.star("Uložit"))
        self.wait(lambda: program.star("Uložit").checked, "the star")
        program.terminate(signal.SIGKILL)

        program = self.start()
        self.favourites(program, "Kopírovat", "Vložit", "Uložit", "Spotlight", "Vyfotit výřez")

    def test_first_start_writes_a_property_list(self):
        program = self.start()
        program.window()
        self.wait(program.preferences_file.exists, "the preferences file")
        self.assertTrue(program.preferences_file.read_bytes().startswith(b"<?xml"))
        self.assertIs(program.preferences()["hasLaunchedBefore"], True)

    def check_moved_aside(self, contents):
        folder = self.home / ".config/hmatnik"
        folder.mkdir(parents=True)
        file = folder / "cz.hmatnik.Hmatnik.plist"
        file.write_bytes(contents)
        program = self.start()
        self.favourites(program, *DEFAULT_FAVORITES)
        aside = [other for other in folder.iterdir() if other.read_bytes() == contents]
        self.assertEqual(len(aside), 1, "the old file lies beside, unchanged")
        self.assertNotEqual(aside[0], file)
        self.assertIs(program.preferences()["hasLaunchedBefore"], True)
        # And it is a working store again.
        self.desktop.click(program.star("Vložit"))
        program.wait_for_cards("Kopírovat", "Spotlight", "Vyfotit výřez")
        self.assertEqual(sorted(program.preferences()["favorites"]),
                         ["copy", "shot-area", "spotlight"])

    def test_garbled_file_is_moved_aside(self):
        self.check_moved_aside(bytes(range(256)) * 8)

    def test_truncated_file_is_moved_aside(self):
        whole = plistlib.dumps({"favorites": ["copy", "save"], "learningMode": True})
        self.check_moved_aside(whole[: len(whole) * 2 // 3])

    def test_foreign_file_is_moved_aside(self):
        self.check_moved_aside(json.dumps({"favorites": ["copy"]}).encode())

    def test_values_of_a_wrong_type_give_way_to_defaults(self):
        write_preferences(self.home, {"favorites": {"copy": True}, "customShortcuts": "text",
                                      "hasLaunchedBefore": True})
        program = self.start()
        self.favourites(program, *DEFAULT_FAVORITES)

    def test_markup_in_titles_is_shown_as_it_is(self):
        title = "<b>x</b><img src='http://127.0.0.1:9/x.png'>"
        detail = "<a href='http://127.0.0.1:9/'>odkaz</a> &amp; **tučně**"
        shortcuts = [custom("menu-1", title, detail, ("⌘", "<i>K</i>"))]
        write_preferences(self.home, {
            "customShortcuts": json.dumps(shortcuts, ensure_ascii=False).encode(),
            "hasLaunchedBefore": True})
        program = self.start()
        self.desktop.click(program.search_field())
        self.desktop.type("odkaz")
        program.wait_for_cards(title)
        card = program.cards()[title]
        self.assertIn(detail, card.description)
        # Drawn as plain text, the long tag needs its room; as markup, little of it would be left.
        self.desktop.wait_until_still()
        self.assertGreater(self.ink_width(card), 200)

    def ink_width(self, card):
        """How far the writing of the title reaches to the right, in pixels."""
        x, y, width, _ = card.extents
        screen_width, _, pixels = self.desktop.pixels()
        rightmost = 0
        for row in range(y + 44, y + 66):
            start = 3 * (row * screen_width + x + 16)
            line = pixels[start:start + 3 * (width - 32)]
            ground = line[-3]
            for column in range(width - 32):
                if abs(line[3 * column] - ground) > 90:
                    rightmost = max(rightmost, column)
        return rightmost


if __name__ == "__main__":
    unittest.main()
