"""Everything without a mouse: areas, destinations, the order of Tab, and that a person sees where
the keyboard is."""

import unittest

from harness import DesktopTestCase, Role

# From the search field on; the grid and the sidebar are walked with the arrow keys.
TAB_ORDER = ["⌘", "⌥", "⇧", "⌃", "Fn", "Kopírovat", "Oblíbené", "Všechny zkratky",
             "Přidat vlastní", "Nastavení", "Mousepad", "Import z menu", "Hledat…"]


class KeyboardWalkTest(DesktopTestCase):
    def setUp(self):
        super().setUp()
        # Whose name stands on the button of the overlay.
        self.spawn("mousepad", "--disable-server")
        self.wait(lambda: self.desktop.visible_windows("mousepad"), "the program in front")
        self.program = self.start()
        self.window = self.program.window()
        self.window.wait_for("Mousepad", Role.BUTTON)

    def focused(self):
        """The name of the innermost element with the keyboard."""
        elements = self.window.find_all(where=lambda element: element.focused)
        return elements[-1].name if elements else None

    def wait_for_focus(self, name):
        last = []

        def there():
            last[:] = [self.focused()]
            return last == [name]

        try:
            self.wait(there, f"the keyboard on {name!r}")
        except AssertionError:
            raise AssertionError(f"the keyboard is on {last[0]!r}, not on {name!r}") from None

    def test_f6_goes_round_the_areas(self):
        self.wait_for_focus("Hledat…")
        for key, areas in (("F6", ["⌘", "Všechny zkratky", "Hledat…", "⌘"]),
                           ("shift+F6", ["Hledat…", "Všechny zkratky", "⌘"])):
            for name in areas:
                self.desktop.press(key)
                self.wait_for_focus(name)

    def test_tab_reaches_everything_and_shows_where_it_is(self):
        self.wait_for_focus("Hledat…")
        self.desktop.wait_until_still()
        before = self.desktop.pixels()[2]
        for name in TAB_ORDER:
            self.desktop.press("Tab")
            self.wait_for_focus(name)
            self.desktop.wait_until_still()
            after = self.desktop.pixels()[2]
            self.assertNotEqual(before, after, f"{name!r} shows that it has the keyboard")
            before = after
        for name in reversed(TAB_ORDER[:-1]):
            self.desktop.press("shift+Tab")
            self.wait_for_focus(name)

    def test_numbers_lead_to_destinations(self):
        for key, title in (("ctrl+3", "Vizuální klávesnice"), ("ctrl+9", "Text"),
                           ("ctrl+1", "Knihovna")):
            self.desktop.press(key)
            self.window.wait_for(title, Role.HEADING)

    def test_arrow_keys_pass_the_screen_that_takes_the_keyboard(self):
        self.desktop.press("ctrl+6", "shift+F6")
        self.wait_for_focus("Dnešní zkratka")
        self.desktop.press("Down")
        self.wait_for_focus("Procvičování")
        self.assertTrue(self.window.find("Dnešní výuka", Role.HEADING))
        self.desktop.press("Down")
        self.wait_for_focus("Základy")
        self.window.wait_for("Základy", Role.HEADING)
        self.desktop.press("Up", "Return")
        self.window.wait_for("Procvičování", Role.HEADING)
        self.wait_for_focus("Klikněte sem a stiskněte zkratku")
        # Out again by keyboard, and the way round goes on.
        self.desktop.press("Shift_L", "Shift_L")
        self.wait(lambda: self.focused() != "Klikněte sem a stiskněte zkratku", "the way out")

    def test_cards_are_walked_and_starred(self):
        self.desktop.press("F6")
        self.wait_for_focus("⌘")
        self.desktop.press(*["Tab"] * 5)
        self.wait_for_focus("Kopírovat")
        self.desktop.press("Right")
        self.wait_for_focus("Vložit")
        self.desktop.press("space")
        self.wait(lambda: "paste" not in self.program.preferences()["favorites"], "the change")
        self.desktop.press("End")
        self.wait(lambda: self.focused() not in ("Vložit", None), "the last card")

    def test_search_by_keyboard(self):
        self.desktop.press("F6", "ctrl+f")
        self.wait_for_focus("Hledat…")
        self.desktop.type("zkop")
        self.program.wait_for_cards("Kopírovat", "Výřez do schránky")
        self.desktop.press("Escape")
        self.wait(lambda: self.program.search_field().text == "", "an empty field")
        self.wait_for_focus("Hledat…")


if __name__ == "__main__":
    unittest.main()
