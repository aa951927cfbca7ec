"""Suggestions are shown by the desktop's notification service, here dunst."""

import unittest

from gi.repository import GLib

from harness import DesktopTestCase, Role, pause, write_preferences
from neighbours import Neighbour
from physical_keyboard import FORWARD_DELETE, MODIFIERS, PhysicalKeyboard

SERVICE = "org.freedesktop.Notifications"
PATH = "/org/freedesktop/Notifications"
DUNST = "org.dunstproject.cmd0"
SWITCH = "Tipy k návrhům jako oznámení plochy"
PRACTICE, MUTE = "Procvičit", "Nezobrazovat"


class NotificationsTest(DesktopTestCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.neighbour = Neighbour(cls.desktop, "mousepad", cls.desktop.directory / "others")
        cls.neighbour.bring_to_front()
        cls.item = next(title.strip() for title, binding, _ in cls.neighbour.list_menu()
                        if binding.endswith(";<Primary>a"))

    @classmethod
    def tearDownClass(cls):
        cls.neighbour.close()
        super().tearDownClass()

    def start_program(self):
        write_preferences(self.home, {"hasLaunchedBefore": True, "learningMode": True})
        self.program = self.start(opened=False)
        self.program.wait_for_service()
        self.neighbour.bring_to_front()

    def start_dunst(self):
        """Of several actions dunst lets another program choose: here, one that takes the line with
        the text in a file."""
        self.choice = self.home / "choice"
        chooser = self.home / "chooser"
        chooser.write_text(f'#!/bin/sh\ngrep -F -m1 -f "{self.choice}"\n')
        chooser.chmod(0o755)
        settings = self.home / ".config/dunst/dunstrc"
        settings.parent.mkdir(parents=True, exist_ok=True)
        # No tip goes by itself while a test looks at it.
        settings.write_text(f"[global]\ndmenu = {chooser}\n[urgency_low]\ntimeout = 0\n")
        dunst = self.spawn("dunst")
        self.wait(lambda: self.desktop.has_owner(SERVICE), "dunst")
        return dunst

    def click_command(self, item=None):
        """Chooses a command with the mouse, and waits until it has counted."""
        before = self.uses()
        self.neighbour.bring_to_front()
        self.desktop.click(self.neighbour.open_menu(item or self.item))
        self.wait(lambda: self.uses() == before + 1, "the click to count")
        self.desktop.press("Escape")

    def uses(self):
        return sum(self.program.preferences().get("usageCounts", {}).values())

    def dunst(self, method, arguments=None):
        return self.desktop.call(SERVICE, PATH, DUNST, method, arguments)

    def dunst_property(self, name, value=None):
        properties = "org.freedesktop.DBus.Properties"
        if value is not None:
            self.desktop.call(SERVICE, PATH, properties, "Set",
                              GLib.Variant("(ssv)", (DUNST, name, value)))
        return self.desktop.call(SERVICE, PATH, properties, "Get",
                                 GLib.Variant("(ss)", (DUNST, name)))[0]

    def displayed(self):
        return self.dunst_property("displayedLength")

    def wait_for_tip(self):
        self.wait(lambda: self.displayed() == 1, "the tip")

    def choose(self, action):
        self.choice.write_text(action + "\n")
        self.dunst("NotificationAction", GLib.Variant("(u)", (0,)))

    def show_tip(self):
        self.start_dunst()
        self.start_program()
        self.click_command()
        self.wait_for_tip()

    def open_sheet(self, button, title):
        self.program.reopen()
        self.window = self.program.window()
        self.desktop.click(self.window.wait_for(button, Role.BUTTON))
        return self.window.wait_for(title, Role.DIALOG)

    def field(self):
        return self.window.wait_for(where=lambda element: "Pole přijímá" in element.description)

    def answer_the_tip(self):
        """The quiz asks for the command of the tip, and hears what is typed."""
        self.window.wait_for("Vybrat vše", Role.HEADING)
        self.window.wait_for("Úkol 1 / 8")
        self.wait(lambda: self.field().focused, "the keyboard in the field")
        PhysicalKeyboard(self.desktop, "us").press("⌘ A")
        self.window.wait_for("Správně")

    def test_tip_has_title_sentence_and_keys(self):
        self.start_dunst()
        self.start_program()
        self.click_command()
        self.wait_for_tip()
        # What was closed can be read again.
        self.dunst("NotificationCloseLast")
        tip = self.dunst("NotificationListHistory")[0][0]
        self.assertEqual(tip["summary"], "Vybrat vše")
        self.assertIn(f"Položku „{self.item}“ jste použili myší.", tip["message"])
        self.assertIn("⌘ A", tip["message"])

    def test_practising_begins_with_the_shortcut_of_the_tip(self):
        self.start_dunst()
        self.start_program()
        self.click_command()
        self.wait_for_tip()
        self.choose(PRACTICE)
        window = self.program.window()
        window.wait_for("Vybrat vše", Role.HEADING)
        window.wait_for("Úkol 1 / 8")

    def test_practising_what_was_imported_from_a_menu(self):
        self.start_dunst()
        self.start_program()
        self.program.reopen()
        self.window = self.program.window()
        self.desktop.click(self.window.wait_for("Import z menu", Role.BUTTON))
        self.window.wait_for(where=lambda element: element.name.startswith("Importováno "))
        self.click_command("Smazat řádek")
        self.wait_for_tip()
        self.choose(PRACTICE)
        self.window = self.program.window()
        self.window.wait_for("Smazat řádek", Role.HEADING)
        self.wait(lambda: self.field().focused, "the keyboard in the field")
        PhysicalKeyboard(self.desktop, "us").chord(
            MODIFIERS["⌃"], MODIFIERS["⇧"], FORWARD_DELETE)
        self.window.wait_for("Správně")
        self.assertEqual(self.field().name, "⌃ ⇧ ⌦")

    def test_practising_closes_the_settings(self):
        self.show_tip()
        self.open_sheet("Nastavení", "Nastavení")
        self.choose(PRACTICE)
        self.window.wait_until_gone("Nastavení", Role.DIALOG)
        self.answer_the_tip()

    def test_practising_closes_the_settings_over_the_quiz(self):
        self.show_tip()
        self.program.reopen()
        self.desktop.click(self.program.row("Procvičování"))
        self.desktop.click(self.program.search_field())
        self.open_sheet("Nastavení", "Nastavení")
        self.choose(PRACTICE)
        self.window.wait_until_gone("Nastavení", Role.DIALOG)
        self.answer_the_tip()

    def test_practising_takes_the_keyboard_from_the_search(self):
        self.show_tip()
        self.program.reopen()
        self.window = self.program.window()
        self.desktop.click(self.program.row("Procvičování"))
        self.desktop.click(self.program.search_field())
        self.wait(lambda: self.program.search_field().focused, "the keyboard in the search")
        self.choose(PRACTICE)
        self.answer_the_tip()

    def test_practising_closes_an_empty_editor(self):
        self.show_tip()
        self.open_sheet("Přidat vlastní", "Přidat vlastní zkratku")
        self.choose(PRACTICE)
        self.window.wait_until_gone("Přidat vlastní zkratku", Role.DIALOG)
        self.answer_the_tip()

    def test_practising_waits_for_an_editor_with_something_in_it(self):
        self.show_tip()
        sheet = self.open_sheet("Přidat vlastní", "Přidat vlastní zkratku")
        name = sheet.wait_for("Název")
        self.wait(lambda: name.focused, "the keyboard in the editor")
        self.desktop.type("Moje")
        self.wait(lambda: name.text == "Moje", "the text")
        self.neighbour.bring_to_front()
        self.choose(PRACTICE)
        self.program.window()
        self.wait(lambda: name.focused, "the keyboard in the editor again")
        self.desktop.type(" zkratka")
        self.wait(lambda: name.text == "Moje zkratka", "the rest of the text")
        self.desktop.press("Tab")
        self.desktop.type("ctrl+k")
        self.desktop.press("Return")
        self.window.wait_until_gone("Přidat vlastní zkratku", Role.DIALOG)
        self.assertIn("Moje zkratka".encode(), self.program.preferences()["customShortcuts"])
        self.answer_the_tip()

    def test_tip_goes_with_the_program(self):
        self.show_tip()
        self.program.reopen()
        self.program.window()
        self.assertEqual(self.displayed(), 1)
        self.desktop.press("ctrl+q")
        self.program.process.wait(5)
        self.wait(lambda: self.displayed() == 0, "the tip to go")

    def test_the_same_tip_does_not_come_again_at_once(self):
        self.start_dunst()
        self.start_program()
        self.click_command()
        self.wait_for_tip()
        self.dunst("NotificationCloseLast")
        self.wait(lambda: self.displayed() == 0, "the tip to go")
        self.click_command()
        pause(0.5)
        self.assertEqual(self.displayed(), 0)

    def test_none_while_messages_are_paused(self):
        self.start_dunst()
        self.dunst_property("paused", GLib.Variant("b", True))
        self.start_program()
        self.click_command()
        pause(0.5)
        self.assertEqual(self.dunst_property("waitingLength"), 0)
        self.dunst_property("paused", GLib.Variant("b", False))
        pause(0.5)
        self.assertEqual(self.displayed(), 0)

    def test_turned_off_in_the_tip_and_on_again_in_the_settings(self):
        self.start_dunst()
        self.start_program()
        self.click_command()
        self.wait_for_tip()
        self.choose(MUTE)
        self.wait(lambda: self.displayed() == 0, "the tip to go")
        self.wait(lambda: self.program.preferences().get("tipNotifications") is False, "the choice")
        self.program.reopen()
        window = self.program.window()
        self.desktop.click(window.wait_for("Nastavení", Role.BUTTON))
        sheet = window.wait_for("Nastavení", Role.DIALOG)
        switch = sheet.wait_for(SWITCH, Role.CHECK_BOX)
        self.assertFalse(switch.checked)
        self.desktop.click(switch)
        self.wait(lambda: sheet.find(SWITCH).checked, "the switch")
        self.assertIs(self.program.preferences()["tipNotifications"], True)

    def test_none_while_the_quiz_is_open(self):
        self.start_dunst()
        self.start_program()
        self.program.reopen()
        window = self.program.window()
        self.desktop.click(self.program.row("Procvičování"))
        window.wait_for("Úkol 1 / 8")
        self.click_command()
        pause(0.5)
        self.assertEqual(self.displayed(), 0)

    def test_without_a_service_nothing_happens(self):
        self.start_program()
        self.click_command()
        self.program.reopen()
        self.program.window().wait_for("Import z menu", Role.BUTTON)
        self.assertFalse(self.desktop.has_owner(SERVICE))


if __name__ == "__main__":
    unittest.main()
