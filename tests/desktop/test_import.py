""""Import z menu" with programs of others in front, compared item by item with what another
accessibility client lists in the same run."""

import json
import re
import unittest

from harness import DesktopTestCase, Role
from neighbours import Neighbour
from shortcuts import SHORTCUTS

NOTHING_NEW = "V menu nebyly nalezeny žádné nové zkratky."

GTK_MODIFIERS = {"primary": "⌃", "control": "⌃", "alt": "⌥", "shift": "⇧", "super": "⌘"}
QT_MODIFIERS = {"ctrl": "⌃", "alt": "⌥", "shift": "⇧", "meta": "⌘"}
KEYS = {"left": "←", "right": "→", "up": "↑", "down": "↓", "page_up": "⇞", "page_down": "⇟",
        "return": "↩", "escape": "⎋", "delete": "⌦", "space": "Mezerník", "comma": ",", "period": ".",
        "minus": "-", "plus": "+", "slash": "/", "bracketleft": "[", "bracketright": "]"}


def tokens(modifiers, key):
    # A name stays as it is, a character is written as on its key.
    key = KEYS.get(key.lower(), key.upper() if len(key) == 1 else key)
    return [glyph for glyph in "⌃⌥⇧⌘" if glyph in modifiers] + [key]


def gtk_keys(binding):
    """From "mnemonic;path;accelerator"; None where there is no accelerator."""
    accelerator = binding.split(";", 2)[2] if binding else ""
    if not accelerator:
        return None
    modifiers, key = re.fullmatch(r"((?:<\w+>)*)(\w+)", accelerator).groups()
    return tokens([GTK_MODIFIERS[name.lower()] for name in re.findall(r"<(\w+)>", modifiers)], key)


def qt_keys(binding, title):
    """From "Ctrl+N"; None for a mnemonic, which is Alt and a letter of the title."""
    if not binding:
        return None
    *modifiers, key = re.findall(r"(?<=\+)\+$|[^+]+", binding)
    if [name.lower() for name in modifiers] == ["alt"] and key.lower() in title.lower():
        return None
    return tokens([QT_MODIFIERS[name.lower()] for name in modifiers], key)


class ImportTest(DesktopTestCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        home = cls.desktop.directory / "others"
        # All at once: an office takes its time.
        cls.neighbours = {kind: Neighbour(cls.desktop, kind, home) for kind in Neighbour.KINDS}
        for neighbour in cls.neighbours.values():
            neighbour.bring_to_front()

    @classmethod
    def tearDownClass(cls):
        for neighbour in cls.neighbours.values():
            neighbour.close()
        super().tearDownClass()

    def stored(self, program):
        return json.loads(program.preferences().get("customShortcuts", b"[]"))

    def import_menu(self, program, message):
        """Presses the button as a person does, and waits for a message of that pattern."""
        self.assertEqual(program.start_again(), 0)  # our window comes to the front
        window = program.window()
        self.desktop.click(window.wait_for("Import z menu", Role.BUTTON))
        return window.wait_for(role=Role.ALERT,
                               where=lambda label: re.fullmatch(message, label.name)).name

    def check(self, kind, name, keys_of, at_least):
        neighbour = self.neighbours[kind]
        neighbour.bring_to_front()
        entries = neighbour.list_menu()
        program = self.start()
        program.window()
        message = self.import_menu(
            program, rf"Importováno \d+ zkratek z aplikace {re.escape(name)}\.")
        records = self.stored(program)
        again = neighbour.list_menu()
        self.assertEqual(again, entries, "the menus have changed meanwhile")

        own = {title.lower() + keys.replace(" ", "") for title, keys in SHORTCUTS.values()}
        listed = [(title.strip(), keys) for title, keys in (
            (title, keys_of(binding, title)) for title, binding, _ in entries) if keys]
        expected = [(title, keys) for title, keys in listed
                    if title and title.lower() + "".join(keys) not in own]
        self.assertEqual([(record["title"], record["keys"]) for record in records], expected)
        self.assertGreaterEqual(len(expected), at_least)
        mnemonics_alone = sum(1 for title, binding, _ in entries
                              if binding and keys_of(binding, title) is None)
        self.assertGreater(mnemonics_alone, 0, "nothing that could be taken by mistake")
        self.assertEqual(message, f"Importováno {len(expected)} zkratek z aplikace {name}.")
        for record, (title, keys) in zip(records, expected):
            self.assertEqual(record, {
                "id": f"menu-{name}-{title}-{''.join(keys)}", "title": title, "keys": keys,
                "category": "Základy", "apps": [name],
                "detail": f"Importováno z menu aplikace {name}."})

        self.import_menu(program, re.escape(NOTHING_NEW))
        self.assertEqual(self.stored(program), records)

    def test_gtk_mousepad(self):
        self.check("mousepad", "Mousepad", lambda binding, _: gtk_keys(binding), 30)

    def test_gtk_geany(self):
        self.check("geany", "Geany", lambda binding, _: gtk_keys(binding), 45)

    def test_office_writer(self):
        self.check("writer", "LibreOffice Writer", lambda binding, _: gtk_keys(binding), 70)

    def test_qt5_featherpad(self):
        self.check("featherpad", "FeatherPad", qt_keys, 30)

    def test_qt6_linguist(self):
        self.check("linguist", "Linguist", qt_keys, 20)


if __name__ == "__main__":
    unittest.main()
