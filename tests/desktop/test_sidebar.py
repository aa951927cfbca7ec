"""The sidebar: every row leads to its screen."""

import unittest

from harness import DesktopTestCase, Role, is_row

# Row, page title, how many cards (none: the screen holds no library).
ROWS = [
    ("Všechny zkratky", "Knihovna", 58),
    ("Oblíbené", "Oblíbené", 4),
    ("Vizuální klávesnice", "Vizuální klávesnice", 12),
    ("Samolepka", "Zkratky ze samolepky", None),
    ("První pomoc", "První pomoc", None),
    ("Dnešní zkratka", "Dnešní výuka", None),
    ("Procvičování", "Procvičování", None),
    ("Základy", "Základy", 10),
    ("Text", "Text", 9),
    ("Okna a aplikace", "Okna a aplikace", 13),
    ("Finder", "Finder", 12),
    ("Snímky obrazovky", "Snímky obrazovky", 4),
    ("Prohlížeč", "Prohlížeč", 10),
]
# What the largest screen here shows without scrolling is less than the whole library.
UNSCROLLED = 24


class SidebarTest(DesktopTestCase):
    def test_every_row_leads_to_its_screen(self):
        program = self.start()
        window = program.window()
        program.resize(1800, 1100)
        self.assertTrue(program.row("Všechny zkratky").selected)
        rows = [element.name for element in window.find_all(where=is_row)]
        self.assertEqual(rows, [row for row, _, _ in ROWS])
        for row, title, count in ROWS:
            with self.subTest(row=row):
                self.desktop.click(program.row(row))
                window.wait_for(title, Role.HEADING)
                self.wait(lambda: program.row(row).selected, "the row to be selected")
                selected = [other for other, _, _ in ROWS if program.row(other).selected]
                self.assertEqual(selected, [row])
                if count is None:
                    self.wait(lambda: not program.cards(), "no cards")
                elif count <= UNSCROLLED:
                    self.wait(lambda: len(program.cards()) == count, f"{count} cards")
                else:
                    self.wait(lambda: len(program.cards()) >= UNSCROLLED, "many cards")


if __name__ == "__main__":
    unittest.main()
