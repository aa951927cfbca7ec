"""Looking shortcuts up: search, modifier filters, favourites."""

import unittest

from harness import DesktopTestCase, Role

COMMAND_SHIFT = [
    "Provést znovu", "Nová složka", "Přejít do složky", "Vyfotit celou obrazovku", "Vyfotit výřez",
    "Snímání a záznam", "Obnovit zavřený panel", "Otevřít Aplikace", "Domovská složka",
    "Nové anonymní okno", "Výřez do schránky", "Počítač", "iCloud Drive", "Poslední položky",
    "Odhlásit uživatele"]
DEFAULT_FAVORITES = {"copy", "paste", "spotlight", "shot-area"}


class LibraryTest(DesktopTestCase):
    def setUp(self):
        super().setUp()
        self.program = self.start()
        self.window = self.program.window()
        # Large enough that no answer needs scrolling.
        self.program.resize(1800, 1100)
        self.wait(lambda: len(self.program.cards()) > 20, "the first cards")

    def pill(self, glyph):
        return self.window.wait_for(glyph, Role.CHECK_BOX)

    def toggle(self, glyph, checked):
        self.desktop.click(self.pill(glyph))
        self.wait(lambda: self.pill(glyph).checked == checked, f"{glyph} to be {checked}")

    def test_search_shows_exactly_the_matching_cards(self):
        self.desktop.click(self.program.search_field())
        self.desktop.type("zkop")
        self.program.wait_for_cards("Kopírovat", "Výřez do schránky")
        self.assertEqual(self.program.search_field().text, "zkop")

        self.desktop.press("BackSpace", "BackSpace", "BackSpace", "BackSpace")
        self.desktop.type("ICLOUD")
        self.program.wait_for_cards("iCloud Drive")

        self.desktop.click(self.window.wait_for("Vymazat hledání"))
        self.wait(lambda: len(self.program.cards()) > 20, "all cards again")
        self.assertEqual(self.program.search_field().text, "")
        self.assertIsNone(self.window.find("Vymazat hledání"))

    def test_search_takes_text_from_assistive_technologies(self):
        self.program.search_field().write("zkop")
        self.program.wait_for_cards("Kopírovat", "Výřez do schránky")
        self.program.search_field().write("")
        self.wait(lambda: len(self.program.cards()) > 20, "all cards again")

    def test_search_heeds_diacritics(self):
        self.desktop.click(self.program.search_field())
        self.desktop.type("kopirovat")
        self.window.wait_for("Žádná odpovídající zkratka")
        self.window.wait_for("Zrušte některý filtr nebo změňte hledání.")
        self.assertEqual(self.program.cards(), {})
        self.pill("⌘")  # the filter bar stays

    def test_modifier_filters_are_required_together(self):
        self.assertIsNone(self.window.find("Zrušit filtry"))
        self.toggle("⌘", True)
        self.toggle("⇧", True)
        self.program.wait_for_cards(*COMMAND_SHIFT)
        self.toggle("⌃", True)
        self.program.wait_for_cards("Výřez do schránky")
        self.toggle("⌃", False)
        self.program.wait_for_cards(*COMMAND_SHIFT)

        self.desktop.click(self.window.wait_for("Zrušit filtry"))
        self.wait(lambda: len(self.program.cards()) > 20, "all cards again")
        self.assertFalse(self.pill("⌘").checked)
        self.assertFalse(self.pill("⇧").checked)
        self.assertIsNone(self.window.find("Zrušit filtry"))

    def test_fn_filter(self):
        self.toggle("Fn", True)
        self.program.wait_for_cards("Zobrazit plochu")

    def test_search_and_filter_narrow_each_other(self):
        self.toggle("⌃", True)
        self.desktop.click(self.program.search_field())
        self.desktop.type("mission")
        self.program.wait_for_cards("Mission Control")
        self.toggle("⌥", True)
        self.window.wait_for("Žádná odpovídající zkratka")

    def test_card_tells_its_detail_and_keys(self):
        card = self.program.cards()["Provést znovu"]
        self.assertEqual(card.role, Role.LIST_ITEM)
        self.assertIn("Znovu provede vrácenou akci.", card.description)
        self.assertTrue(card.description.rstrip(".").endswith("Z"), card.description)

    def test_star_and_unstar(self):
        self.assertFalse(self.program.star("Uložit").checked)
        self.desktop.click(self.program.star("Uložit"))
        self.wait(lambda: self.program.star("Uložit").checked, "the star")
        self.assertEqual(set(self.program.preferences()["favorites"]),
                         DEFAULT_FAVORITES | {"save"})

        self.desktop.click(self.program.star("Uložit"))
        self.wait(lambda: not self.program.star("Uložit").checked, "no star")
        self.assertEqual(set(self.program.preferences()["favorites"]), DEFAULT_FAVORITES)

    def test_unstarred_card_leaves_the_favourites(self):
        self.desktop.click(self.program.row("Oblíbené"))
        self.program.wait_for_cards("Kopírovat", "Vložit", "Spotlight", "Vyfotit výřez")
        self.desktop.click(self.program.star("Vložit"))
        self.program.wait_for_cards("Kopírovat", "Spotlight", "Vyfotit výřez")
        self.assertEqual(set(self.program.preferences()["favorites"]),
                         DEFAULT_FAVORITES - {"paste"})


if __name__ == "__main__":
    unittest.main()
