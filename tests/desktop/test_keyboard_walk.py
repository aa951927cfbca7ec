"""Everything without a mouse: areas, destinations, the order of Tab, and that a person sees where
the keyboard is."""

import unittest

from harness import DesktopTestCase, Role
from neighbours import Neighbour
from physical_keyboard import MODIFIERS, NUM_LOCK, PhysicalKeyboard

# From the search field on; the grid and the sidebar are walked with the arrow keys.
TAB_ORDER = ["⌘", "⌥", "⇧", "⌃", "Fn", "Kopírovat", "Oblíbené", "Všechny zkratky",
             "Přidat vlastní", "Nastavení", "Mousepad", "Import z menu", "Hledat…"]
# Of the screens that the rows of the sidebar lead to.
TITLES = ["Knihovna", "Oblíbené", "Vizuální klávesnice", "Zkratky ze samolepky", "První pomoc",
          "Dnešní výuka", "Procvičování", "Základy", "Text", "Okna a aplikace", "Finder",
          "Snímky obrazovky", "Prohlížeč"]


class WalkTestCase(DesktopTestCase):
    def open(self, **environment):
        self.program = self.start(**environment)
        self.window = self.program.window()

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
            active = self.desktop.active_window()
            raise AssertionError(
                f"the keyboard is on {last[0]!r}, not on {name!r}; the active window is "
                f"{active:#x}, ours are {self.program.windows()}") from None


class KeyboardWalkTest(WalkTestCase):
    def setUp(self):
        super().setUp()
        # Whose name stands on the button of the overlay.
        neighbour = Neighbour(self.desktop, "mousepad", self.home / "other")
        self.addCleanup(neighbour.close)
        neighbour.bring_to_front()
        # It asks for the front by itself once its window stands; only then is it ours to take.
        neighbour.tree().wait_for(role=Role.TEXT, where=lambda text: text.focused)
        self.open()
        self.window.wait_for("Mousepad", Role.BUTTON)

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
        """By the place of the keys, whatever the layout writes there."""
        places = [[10 + number] for number in range(10)]
        places += [[MODIFIERS["⇧"], 10 + number] for number in range(3)]
        number_pad = (87, 88, 89, 83, 84, 85, 79, 80, 81, 90)
        self.addCleanup(PhysicalKeyboard, self.desktop, "us")
        for layout in ("us", "cz", "fr"):
            keyboard = PhysicalKeyboard(self.desktop, layout)
            for place, title in zip(places, TITLES):
                with self.subTest(layout=layout, title=title):
                    self.lead(keyboard, place, title)
        keyboard.tap(NUM_LOCK)
        self.addCleanup(keyboard.tap, NUM_LOCK)
        for place, title in zip(number_pad, TITLES):
            with self.subTest(number_pad=title):
                self.lead(keyboard, [place], title)

    def lead(self, keyboard, place, title):
        keyboard.chord(MODIFIERS["⌃"], *place)
        self.window.wait_for(title, Role.HEADING)
        if title == "Procvičování":
            # Out of the field, which takes all other keys for answers.
            self.wait_for_focus("Klikněte sem a stiskněte zkratku")
            keyboard.tap(MODIFIERS["⇧"])
            keyboard.tap(MODIFIERS["⇧"])
            self.wait(lambda: self.focused() != "Klikněte sem a stiskněte zkratku", "the way out")

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
        # Before the first change none are stored.
        self.wait(lambda: "paste" not in self.program.preferences().get("favorites", ["paste"]),
                  "the change")
        self.desktop.press("End")
        self.wait(lambda: self.focused() not in ("Vložit", None), "the last card")

    def test_library_scrolls_from_wherever_the_keyboard_is(self):
        last = "Odhlásit uživatele"
        self.wait_for_focus("Hledat…")
        self.desktop.press("Next")
        self.window.wait_until_gone("Kopírovat", Role.LIST_ITEM)
        self.desktop.press("Prior")
        self.window.wait_for("Kopírovat", Role.LIST_ITEM)
        self.desktop.press("F6")
        self.wait_for_focus("⌘")
        self.assertIsNone(self.window.find(last, Role.LIST_ITEM))
        self.desktop.press("End")
        self.window.wait_for(last, Role.LIST_ITEM)
        self.desktop.press("Home")
        self.window.wait_for("Kopírovat", Role.LIST_ITEM)
        self.wait_for_focus("⌘")

    def test_caret_leaves_the_placeholder_legible(self):
        self.wait_for_focus("Hledat…")
        x, y, width, height = self.program.search_field().extents
        with_caret = self.columns(x, y, width, height)
        self.desktop.press("shift+F6")
        self.wait_for_focus("Všechny zkratky")
        without = self.columns(x, y, width, height)
        changed = [number for number, (before, after) in enumerate(zip(with_caret, without))
                   if any(abs(a - b) > 40 for a, b in zip(before, after))]
        self.assertTrue(changed, "there is a caret")
        for column in range(changed[0], changed[-1] + 2):
            self.assertLess(max(without[column]) - min(without[column]), 40,
                            f"a letter in column {column}, the caret in {changed}")

    def columns(self, x, y, width, height):
        """The greens of the columns of a part of the screen."""
        self.desktop.wait_until_still()
        screen_width, _, pixels = self.desktop.pixels()
        return [[pixels[3 * (row * screen_width + column) + 1] for row in range(y, y + height)]
                for column in range(x, x + width)]

    def test_search_by_keyboard(self):
        self.desktop.press("F6", "ctrl+f")
        self.wait_for_focus("Hledat…")
        self.desktop.type("zkop")
        self.program.wait_for_cards("Kopírovat", "Výřez do schránky")
        self.desktop.press("Escape")
        self.wait(lambda: self.program.search_field().text == "", "an empty field")
        self.wait_for_focus("Hledat…")


class LargeTextsWalkTest(WalkTestCase):
    """Where the desktop's font is so large that every screen is higher than the window."""

    def setUp(self):
        super().setUp()
        (self.home / ".config").mkdir()
        (self.home / ".config/kdeglobals").write_text(
            "[General]\nfont=Inter,20,-1,5,50,0,0,0,0,0\n")
        self.open(XDG_CURRENT_DESKTOP="KDE", KDE_SESSION_VERSION="5")

    def test_every_screen_scrolls_by_keys(self):
        for number, seen in ((4, "Nejdůležitější zkratky na jednom místě"),
                             (5, "Co se právě stalo?"), (6, "Trojici umím"), (7, "Úkol 1 / 8")):
            with self.subTest(seen=seen):
                self.desktop.press(f"ctrl+{number}")
                element = self.window.wait_for(seen)
                start = element.extents[1]
                if number == 7:
                    self.wait_for_focus("Klikněte sem a stiskněte zkratku")
                    self.desktop.press("super+k")
                    self.wait_for_focus("⌘ K")
                    # Below the window's edge, until the keyboard is on it.
                    self.desktop.press("Shift_L", "Shift_L")
                    self.wait_for_focus("Další úkol")
                else:
                    self.desktop.press("ctrl+f", "F6")
                    self.wait(lambda: self.focused() != "Hledat…", "the keyboard in the screen")
                for key, moved in (("Next", True), ("Prior", False), ("End", True),
                                   ("Home", False)):
                    self.desktop.press(key)
                    self.wait(lambda moved=moved: (element.extents[1] < start) == moved,
                              f"{key} to scroll")
                self.assertEqual(element.extents[1], start)

    def test_sidebar_follows_the_keyboard(self):
        for key, name in (("ctrl+shift+3", "Prohlížeč"), ("ctrl+1", "Všechny zkratky")):
            self.desktop.press(key)
            row = self.program.row(name)
            self.wait(lambda row=row: row.selected, "the row to be selected")
            self.wait(lambda row=row: self.in_sight(row), "the row in sight")
        self.desktop.press("shift+F6")
        self.wait_for_focus("Všechny zkratky")
        self.desktop.press("End")
        self.wait_for_focus("Prohlížeč")
        row = self.program.row("Prohlížeč")
        self.wait(lambda: self.in_sight(row), "the row in sight")

    def in_sight(self, row):
        """Whether a row of the sidebar is between what stands above and below all of them."""
        _, above, _, height = self.window.find("Ovládni svůj Mac").extents
        _, below, _, _ = self.window.find("Přidat vlastní").extents
        _, top, _, row_height = row.extents
        return above + height <= top and top + row_height <= below


if __name__ == "__main__":
    unittest.main()
