"""A person's own shortcuts: adding, finding and deleting them."""

import json
import unittest

from harness import (RETURN_PRESSES_BUTTONS, DesktopTestCase, Role, is_row, pause,
                     write_preferences)

ODD_TITLES = [
    "e\u0301\u0323\u0330 s čárkami",
    "\u05e9\u05dc\u05d5\u05dd \u202eobrácené\u202c",
    "\U0001F469\u200d\U0001F469\u200d\U0001F467 rodina",
    "řádek\nřádek\tsloupec\u2028konec",
    "zvonek \x07 a \x1b[31mescape",
    "Ž" * 10000,
    "slovo " * 1600,
    "<b>tučně</b> &amp;",
]


def custom(number, title, keys=("⌘", "K")):
    return {"id": f"custom-{number}", "title": title, "keys": list(keys), "category": "Základy",
            "apps": [], "detail": title}


class EditorTest(DesktopTestCase):
    def open(self, program):
        """Opens the editor and gives its sheet."""
        self.window = program.window()
        self.desktop.click(self.window.wait_for("Přidat vlastní", Role.BUTTON))
        sheet = self.window.wait_for("Přidat vlastní zkratku", Role.DIALOG)
        self.wait(lambda: sheet.find("Název").focused, "the keyboard in the first field")
        return sheet

    def wait_until_closed(self):
        self.window.wait_until_gone("Přidat vlastní zkratku", Role.DIALOG)

    def stored(self, program):
        return json.loads(program.preferences().get("customShortcuts", b"[]"))

    def add(self, program, title, keys):
        self.open(program)
        self.desktop.type(title)
        self.desktop.press("Tab")
        self.desktop.type(keys)
        self.desktop.press("Return")
        self.wait_until_closed()

    def test_added_shortcut_is_found_and_deleted(self):
        program = self.start()
        sheet = self.open(program)
        self.desktop.type("Moje zkratka")
        self.desktop.press("Tab")
        self.desktop.type(" ctrl + alt+x ")
        self.desktop.press("Tab", "Down", "Down", "Tab")
        self.wait(lambda: sheet.find("Kategorie").description == "Okna a aplikace", "the choice")
        self.desktop.type("Finder")
        self.desktop.press("Tab")
        self.desktop.type("Popis zkratky")
        self.desktop.press("Return")
        self.wait_until_closed()

        record, = self.stored(program)
        self.assertRegex(record.pop("id"),
                         r"^custom-[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}$")
        self.assertEqual(record, {
            "title": "Moje zkratka", "keys": ["ctrl", "alt", "x"], "category": "Okna a aplikace",
            "apps": ["Finder"], "detail": "Popis zkratky"})

        self.desktop.click(program.search_field())
        self.desktop.type("moje zkr")
        program.wait_for_cards("Moje zkratka")
        card = program.cards()["Moje zkratka"]
        self.assertIn("Popis zkratky", card.description)
        self.desktop.click(program.star("Moje zkratka"))
        self.wait(lambda: program.star("Moje zkratka").checked, "the star")

        self.desktop.click(self.window.wait_for("Nastavení", Role.BUTTON))
        sheet = self.window.wait_for("Nastavení", Role.DIALOG)
        row = sheet.wait_for("Moje zkratka", Role.LIST_ITEM)
        self.desktop.click(row.wait_for("Smazat", Role.BUTTON))
        sheet.wait_until_gone("Vlastní zkratky")
        self.assertEqual(self.stored(program), [])
        self.desktop.press("Return")
        self.window.wait_for("Žádná odpovídající zkratka")

    def test_return_adds_from_anywhere(self):
        for desktop in ("", *RETURN_PRESSES_BUTTONS):
            with self.subTest(desktop=desktop):
                program = self.start(XDG_CURRENT_DESKTOP=desktop)
                try:
                    self.check_return_adds_from_anywhere(program)
                finally:
                    program.terminate()
                    program.preferences_file.unlink()

    def check_return_adds_from_anywhere(self, program):
        for added, name in enumerate(("Název", "Kategorie", "Aplikace (volitelné)", "Zrušit",
                                      "Přidat")):
            sheet = self.open(program)
            self.desktop.type("Neco")
            self.desktop.press("Tab")
            self.desktop.type("a")
            while not sheet.find(name).focused:
                before = sheet.find(where=lambda element: element.focused)
                self.desktop.press("Tab")
                self.wait(lambda: not before.focused, "the next control")
            self.desktop.press("Return")
            self.wait_until_closed()
            self.assertEqual(len(self.stored(program)), added + 1, f"Return on {name!r}")

        # The open choice needs Return itself.
        sheet = self.open(program)
        self.desktop.type("Neco")
        self.desktop.press("Tab")
        self.desktop.type("a")
        self.desktop.press("Tab", "space")
        self.window.wait_for("Text", Role.LIST_ITEM)
        self.desktop.press("Down", "Return")
        self.window.wait_until_gone("Text", Role.LIST_ITEM)
        self.wait(lambda: sheet.find("Kategorie").description == "Text", "the choice")
        self.desktop.press("KP_Enter")
        self.wait_until_closed()
        self.assertEqual(self.stored(program)[-1]["category"], "Text")

    def test_same_shortcut_twice_stays_twice(self):
        program = self.start()
        self.add(program, "Dvakrat", "a")
        self.add(program, "Dvakrat", "a")
        first, second = self.stored(program)
        self.assertNotEqual(first.pop("id"), second.pop("id"))
        self.assertEqual(first, second)

    def test_invalid_input_is_not_added(self):
        program = self.start()
        self.open(program)
        for title, keys in ((None, None), ("   ", "a"), ("Neco", " + + ")):
            if title is not None:
                self.desktop.press("ctrl+a", "BackSpace")
                self.desktop.type(title)
                self.desktop.press("Tab", "ctrl+a", "BackSpace")
                self.desktop.type(keys)
                self.desktop.press("shift+Tab")
            self.desktop.press("ctrl+f", "Return")
            pause(0.3)
            self.assertIsNotNone(self.window.find("Přidat vlastní zkratku", Role.DIALOG))
        self.desktop.press("Escape")
        self.wait_until_closed()
        self.assertEqual(self.stored(program), [])

    def test_cancelled_input_is_forgotten(self):
        program = self.start()
        sheet = self.open(program)
        self.desktop.type("Neco")
        self.desktop.press("Tab")
        self.desktop.type("a")
        self.desktop.press("Tab", "Down")
        self.desktop.click(sheet.wait_for("Zrušit", Role.BUTTON))
        self.wait_until_closed()
        self.assertEqual(self.stored(program), [])

        sheet = self.open(program)
        self.assertEqual(sheet.find("Název").text, "")
        self.assertEqual(sheet.find("Klávesy (oddělte +)").text, "")
        self.assertEqual(sheet.find("Kategorie").description, "Základy")

    def test_escape_closes_an_open_choice_first(self):
        program = self.start()
        sheet = self.open(program)
        self.desktop.press("Tab", "Tab", "space")
        self.window.wait_for("Prohlížeč", Role.LIST_ITEM)
        self.desktop.press("Escape")
        self.window.wait_until_gone("Prohlížeč", Role.LIST_ITEM)
        self.assertIsNotNone(sheet.find("Název"))
        self.desktop.press("Escape")
        self.wait_until_closed()

    def test_keyboard_stays_inside_and_is_given_back(self):
        program = self.start()
        field = program.search_field()
        self.desktop.click(field)
        self.wait(lambda: field.focused, "the keyboard in the search field")
        sheet = self.open(program)
        controls = ("Název", "Klávesy (oddělte +)", "Kategorie", "Aplikace (volitelné)", "Popis",
                    "Zrušit")
        for name in controls + controls[:1]:
            self.wait(lambda: sheet.find(name).focused, f"the keyboard at {name!r}")
            self.desktop.press("Tab")
        self.desktop.press("shift+Tab", "shift+Tab")
        self.wait(lambda: sheet.find("Zrušit").focused, "the keyboard to go round")
        self.assertEqual(self.window.find_all(where=is_row), [], "the rest is out of reach")
        self.assertIsNone(self.window.find("Hledat…"))
        self.desktop.press("Escape")
        self.wait_until_closed()
        self.wait(lambda: program.search_field().focused, "the keyboard to be given back")

    def test_pointer_stays_inside(self):
        program = self.start()
        row = program.row("Oblíbené").centre
        self.open(program)
        self.desktop.click(row)
        pause(0.3)
        self.desktop.press("Escape")
        self.wait_until_closed()
        self.assertTrue(program.row("Všechny zkratky").selected)

    def test_odd_text_is_shown_exactly(self):
        write_preferences(self.home, {
            "hasLaunchedBefore": True,
            "customShortcuts": json.dumps([
                custom(number, title, (title.strip()[:300], "K"))
                for number, title in enumerate(ODD_TITLES)] + [
                custom("many", "Mnoho kláves", ["x"] * 5000)]).encode()})
        program = self.start()
        self.window = program.window()
        for size in ((980, 650), (1800, 1100)):
            program.resize(*size)
            self.desktop.click(self.window.wait_for("Nastavení", Role.BUTTON))
            sheet = self.window.wait_for("Nastavení", Role.DIALOG)
            self.wait(lambda: sheet.extents[2:] == (540, 480), "the sheet at its full size")
            shown = sheet.wait_for("Vlastní zkratky", Role.LIST)
            self.desktop.press("Tab", "Tab", "Tab", "Tab")
            self.wait(lambda: shown.focused, "the keyboard in the list")
            self.look_at_every_row(shown)
            self.desktop.press("Escape")
            self.window.wait_until_gone("Nastavení", Role.DIALOG)


    def look_at_every_row(self, shown):
        """Walks down a list until each of the odd titles has been in sight."""
        left = set(ODD_TITLES)

        def all_seen():
            for row, name, _ in list(shown.walk())[1:]:
                if name not in left:
                    continue
                _, _, width, height = row.extents
                self.assertLessEqual(width, 540)
                self.assertEqual(height, 32)
                left.discard(name)
            if left:
                self.desktop.press("Down")
            return not left

        try:
            self.wait(all_seen, "all rows")
        except AssertionError as problem:
            # Shortened, because some are endless.
            raise AssertionError(f"{problem}; {[title[:20] for title in left]} missing") from None


if __name__ == "__main__":
    unittest.main()
