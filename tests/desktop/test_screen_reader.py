"""What somebody hears who does not see the screens: names, roles, states, and what is announced."""

import json
import threading
import unittest

from gi.repository import Gio, GLib

from harness import DesktopTestCase, Hmatnik, Role, State, connect, write_preferences
from publisher import Publisher

ROWS = ["Všechny zkratky", "Oblíbené", "Vizuální klávesnice", "Samolepka", "První pomoc",
        "Dnešní zkratka", "Procvičování", "Základy"]
KEY_WORDS = {"⌘": "Command", "⌥": "Option", "⇧": "Shift", "⌃": "Control"}
# Containers and drawing that nobody stops at.
SILENT = {20, Role.PANEL}
MESSAGES = (Role.ALERT, Role.NOTIFICATION)


class Announcements:
    """What the program tells assistive technologies by itself: messages that come to be shown, and
    what can be used from now on or can't any more."""

    def __init__(self, desktop, process_id):
        self.heard = []
        self.usability = []
        self._desktop = desktop
        self._process = process_id
        self._loop = GLib.MainLoop.new(GLib.MainContext.new(), False)
        self._ready = threading.Event()
        self._thread = threading.Thread(target=self._listen, daemon=True)
        self._thread.start()
        self._ready.wait()

    def _listen(self):
        context = self._loop.get_context()
        context.push_thread_default()
        address = self._desktop.call("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus",
                                     "GetAddress")[0]
        self._bus = connect(address)
        for event in ("object:state-changed", "object:announcement"):
            self._bus.call_sync(
                "org.a11y.atspi.Registry", "/org/a11y/atspi/registry", "org.a11y.atspi.Registry",
                "RegisterEvent", GLib.Variant("(sass)", (event, [], "")), None,
                Gio.DBusCallFlags.NONE, 10000, None)
        self._bus.signal_subscribe(None, "org.a11y.atspi.Event.Object", None, None, None,
                                   Gio.DBusSignalFlags.NONE, self._take)
        self._ready.set()
        self._loop.run()
        context.pop_thread_default()

    def _take(self, _bus, sender, path, _interface, signal, arguments):
        detail, first, _, value = arguments.unpack()[:4]
        if signal == "Announcement":
            self.heard.append(value)
        elif signal == "StateChanged" and detail == "showing" and first == 1:
            self.heard.append((sender, path))
        elif signal == "StateChanged" and detail in ("enabled", "sensitive"):
            self.usability.append((path, detail, bool(first)))

    def told(self, element, usable):
        """Whether the element has told that it can be used from now on, or not any more."""
        return all((element.path, state, usable) in self.usability
                   for state in ("enabled", "sensitive"))

    def texts(self, accessibility):
        """The names of the messages among what came to be shown, and plain announcements."""
        texts = []
        for entry in list(self.heard):
            if isinstance(entry, str):
                texts.append(entry)
                continue
            try:
                role = accessibility.call(*entry, "org.a11y.atspi.Accessible", "GetRole")[0]
                name = accessibility.call(
                    *entry, "org.freedesktop.DBus.Properties", "Get",
                    GLib.Variant("(ss)", ("org.a11y.atspi.Accessible", "Name")))[0]
            except GLib.Error:
                continue
            if role in MESSAGES:
                texts.append(name)
        return texts

    def close(self):
        self._loop.quit()
        self._thread.join(5)


class ScreenReaderTest(DesktopTestCase):
    def announcements(self, program):
        heard = Announcements(self.desktop, program.process.pid)
        self.addCleanup(heard.close)
        return heard

    def wait_to_hear(self, heard, text):
        self.wait(lambda: any(text in each for each in heard.texts(self.desktop.accessibility)),
                  f"the announcement of {text!r}")

    def check_tree(self, window):
        for element, name, role in window.walk():
            states = element.states
            what = f"{element!r} in {window!r}"
            # To the toolkit every text can have the keyboard.
            if State.FOCUSABLE in states and role != Role.LABEL:
                self.assertTrue(name, f"{what} can have the keyboard and has no name")
                self.assertNotIn(role, (0, 20), f"{what} has no role")
            elif not name:
                self.assertIn(role, SILENT, f"{what} is found and says nothing")
            if any(glyph in name for glyph in KEY_WORDS):
                words = [word for glyph, word in KEY_WORDS.items() if glyph in name]
                for word in words:
                    self.assertIn(word, element.description, f"{what} is no word")
            for glyph in KEY_WORDS:
                self.assertNotIn(glyph, element.description, f"{what} is described by a glyph")

    def test_every_screen(self):
        program = self.start()
        window = program.window()
        for row in ROWS:
            with self.subTest(row=row):
                self.desktop.click(program.row(row))
                self.wait(lambda: program.row(row).selected, "the row to be selected")
                self.desktop.wait_until_still()
                self.check_tree(window)
                self.assertTrue(window.find(role=Role.HEADING))

    def test_sheets(self):
        program = self.start()
        window = program.window()
        for button, sheet in (("Přidat vlastní", "Přidat vlastní zkratku"),
                              ("Nastavení", "Nastavení")):
            self.desktop.click(window.wait_for(button, Role.BUTTON))
            window.wait_for(sheet, Role.DIALOG)
            self.desktop.wait_until_still()
            self.check_tree(window)
            self.desktop.press("Escape")
            window.wait_until_gone(sheet, Role.DIALOG)

    def usable(self, element):
        states = element.states & {State.ENABLED, State.SENSITIVE, State.FOCUSABLE}
        self.assertIn(len(states), (0, 3), f"{element!r} says {states}")
        return bool(states)

    def test_what_cannot_be_used_says_so(self):
        program = self.start()
        window = program.window()
        heard = self.announcements(program)
        self.desktop.click(window.wait_for("Přidat vlastní", Role.BUTTON))
        sheet = window.wait_for("Přidat vlastní zkratku", Role.DIALOG)
        add = sheet.wait_for("Přidat", Role.BUTTON)
        self.assertFalse(self.usable(add))
        add.press()
        self.desktop.type("Neco")
        self.desktop.press("Tab")
        self.desktop.type("a")
        self.wait(lambda: self.usable(add), "the button to be of use")
        self.wait(lambda: heard.told(add, True), "the button to say so")
        heard.usability.clear()
        self.desktop.press("BackSpace")
        self.wait(lambda: not self.usable(add), "the button to be of no use")
        self.wait(lambda: heard.told(add, False), "the button to say so")
        add.press()
        self.assertIsNotNone(window.find("Přidat vlastní zkratku", Role.DIALOG))
        self.desktop.type("a")
        self.wait(lambda: self.usable(add), "the button to be of use again")
        add.press()
        window.wait_until_gone("Přidat vlastní zkratku", Role.DIALOG)
        record, = json.loads(program.preferences()["customShortcuts"])
        self.assertEqual(record["title"], "Neco")

        program.row("Dnešní zkratka").press()
        known = window.wait_for("Trojici umím", Role.BUTTON)
        self.assertTrue(self.usable(known))
        known.press()
        done = window.wait_for("Dnes splněno ✓", Role.BUTTON)
        self.assertEqual(known, done)
        self.assertFalse(self.usable(done))
        self.wait(lambda: heard.told(done, False), "the button to say so")
        done.press()
        done.press()
        window.wait_for("DNEŠNÍ TROJICE  •  1 dní v řadě")
        self.assertEqual(program.preferences()["learningStreak"], 1)

    def test_presses_by_assistive_technology(self):
        program = self.start()
        window = program.window()
        program.row("Oblíbené").press()
        self.wait(lambda: program.row("Oblíbené").selected, "the row to be selected")
        program.row("Všechny zkratky").press()
        window.wait_for("Knihovna", Role.HEADING)
        program.star("Vrátit zpět").press()
        self.wait(lambda: program.star("Vrátit zpět").checked, "the star")
        window.wait_for("Fn", Role.CHECK_BOX).press()
        program.wait_for_cards("Zobrazit plochu")
        window.wait_for("Zrušit filtry", Role.BUTTON).press()
        program.row("Vizuální klávesnice").press()
        key = window.wait_for("Klávesnice").wait_for("4")
        key.press()
        program.wait_for_cards("Vyfotit výřez", "Výřez do schránky")
        window.wait_for("Nastavení", Role.BUTTON).press()
        sheet = window.wait_for("Nastavení", Role.DIALOG)
        switch = sheet.wait_for("Chytré návrhy podle použitých položek menu", Role.CHECK_BOX)
        for on in (False, True):
            switch.press()
            self.wait(lambda on=on: switch.checked == on, f"the switch to be {on}")
        sheet.wait_for("Hotovo", Role.BUTTON).press()
        window.wait_until_gone("Nastavení", Role.DIALOG)

    def check_reading_order(self, shown):
        """The rows or cards of a list stand in the tree as they do on the screen."""
        items = [item for item in shown.children if item.showing]
        places = {item: item.extents for item in items}
        # A card under the pointer is a little larger than its neighbours.
        self.assertEqual(items, sorted(
            items, key=lambda item: (round(places[item][1] / 40), places[item][0])))
        return [item.name for item in items]

    def test_cards_are_read_in_their_order(self):
        program = self.start()
        window = program.window()
        self.desktop.click(program.search_field())
        grid = window.wait_for("Zkratky", Role.LIST)
        everything = self.check_reading_order(grid)
        for text in ("mac", "o", "zkop", "s"):
            self.desktop.type(text)
            self.wait(lambda text=text: program.search_field().text == text, "the search")
            self.desktop.wait_until_still()
            self.check_reading_order(grid)
            self.desktop.press("Escape")
            self.wait(lambda: program.search_field().text == "", "no search")
            self.wait(lambda: self.check_reading_order(grid) == everything, "all cards again")
        self.desktop.press("F6", *["Tab"] * 5)
        self.wait(lambda: grid.focused, "the keyboard among the cards")
        for key in ("End", "Home", *["Next"] * 3, "Prior", "Prior", "Home"):
            self.desktop.press(key)
            self.desktop.wait_until_still()
            self.check_reading_order(grid)
        self.assertEqual(self.check_reading_order(grid), everything)

    def test_own_shortcuts_are_read_in_their_order(self):
        write_preferences(self.home, {
            "hasLaunchedBefore": True,
            "customShortcuts": json.dumps([
                {"id": f"custom-{number}", "title": f"Položka {number}", "keys": ["K"],
                 "category": "Základy", "apps": [], "detail": "x"}
                for number in range(60)]).encode()})
        program = self.start()
        window = program.window()
        window.wait_for("Nastavení", Role.BUTTON).press()
        rows = window.wait_for("Vlastní zkratky", Role.LIST)
        self.desktop.press(*["Tab"] * 4)
        self.wait(lambda: rows.focused, "the keyboard in the list")
        for key in ("End", "Home", "Next", "Next", "Prior", *["Delete"] * 3, "Home"):
            self.desktop.press(key)
            self.desktop.wait_until_still()
            self.check_reading_order(rows)
        first = rows.wait_for("Položka 0", Role.LIST_ITEM)
        self.assertEqual(rows.children[0], first)

    def test_search_tells_how_many_are_left(self):
        program = self.start()
        field = program.search_field()
        self.wait(lambda: field.description == "58 zkratek", "the whole library")
        self.desktop.click(field)
        self.desktop.type("zkop")
        self.wait(lambda: field.description == "2 zkratky", "what is left")
        self.desktop.type("xyz")
        self.wait(lambda: field.description == "Žádná odpovídající zkratka", "nothing left")

    def test_verdict_is_announced(self):
        program = self.start()
        window = program.window()
        heard = self.announcements(program)
        self.desktop.click(program.row("Procvičování"))
        window.wait_for(where=lambda element: element.focused
                        and "Pole přijímá" in element.description)
        self.desktop.press("super+shift+ctrl+F12")
        window.wait_for("Další úkol", Role.BUTTON)
        verdict = window.find(role=Role.ALERT)
        self.assertTrue(verdict and verdict.name)
        self.wait_to_hear(heard, verdict.name)

    def test_import_message_is_announced(self):
        program = self.start()
        window = program.window()
        heard = self.announcements(program)
        self.desktop.click(window.wait_for("Import z menu", Role.BUTTON))
        message = window.wait_for(role=Role.ALERT)
        self.wait_to_hear(heard, message.name)

    def test_banner_is_a_notification(self):
        """It may come before anybody listens: then its role is what tells of it."""
        with Publisher(self.desktop.directory / "program") as publisher:
            publisher.publish("99.1")
            program = Hmatnik(self.desktop, self.home, command=(str(publisher.program),))
            self._started.append(program)
            window = program.window()
            banner = window.wait_for("Dostupná nová verze 99.1", Role.NOTIFICATION)
            self.assertTrue(banner.find("Přeskočit", Role.BUTTON))
            program.terminate()


if __name__ == "__main__":
    unittest.main()
