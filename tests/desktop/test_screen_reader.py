"""What somebody hears who does not see the screens: names, roles, states, and what is announced."""

import threading
import unittest

from gi.repository import Gio, GLib

from harness import DesktopTestCase, Hmatnik, Role, State, connect
from publisher import Publisher

ROWS = ["Všechny zkratky", "Oblíbené", "Vizuální klávesnice", "Samolepka", "První pomoc",
        "Dnešní zkratka", "Procvičování", "Základy"]
KEY_WORDS = {"⌘": "Command", "⌥": "Option", "⇧": "Shift", "⌃": "Control"}
# Containers and drawing that nobody stops at.
SILENT = {20, Role.PANEL}
MESSAGES = (Role.ALERT, Role.NOTIFICATION)


class Announcements:
    """What the program has assistive technologies read out: messages that come to be shown."""

    def __init__(self, desktop, process_id):
        self.heard = []
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
        for event in ("object:state-changed:showing", "object:announcement"):
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
