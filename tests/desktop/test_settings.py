"""The sheet of settings: switches, the permission, the list of own shortcuts."""

import json
import unittest

from gi.repository import GLib

from harness import (APPLICATION_ID, RETURN_PRESSES_BUTTONS, DesktopTestCase, Role, is_row, pause,
                     write_preferences)

LAUNCH = "Spouštět Hmatník po přihlášení"
SMART = "Chytré návrhy podle použitých položek menu"
LEARNING = "Učební režim – zobrazovat tip už při prvním použití myší"
TIPS = "Tipy k návrhům jako oznámení plochy"
NAMES = "Názvy kláves"
MAC = "Jako na Macu (Command, Option, Shift, Control)"
PC = "Jako na PC (Super, Alt, Shift, Control)"
LIBRARY = "Knihovna"


def custom(number):
    return {"id": f"menu-{number}", "title": f"Položka {number}", "keys": ["⌘", "K"],
            "category": "Základy", "apps": ["Editor"], "detail": "Z menu."}


class SettingsTest(DesktopTestCase):
    def open(self, program):
        self.window = program.window()
        self.desktop.click(self.window.wait_for("Nastavení", Role.BUTTON))
        return self.window.wait_for("Nastavení", Role.DIALOG)

    def close(self):
        self.desktop.press("Return")
        self.window.wait_until_gone("Nastavení", Role.DIALOG)

    def flip(self, sheet, name, on):
        self.desktop.click(sheet.wait_for(name, Role.CHECK_BOX))
        self.wait(lambda: sheet.find(name).checked == on, f"{name!r} to be {on}")

    def choose(self, sheet, label, choice):
        """Another choice of a picker, by mouse; the wheel brings the picker into sight."""
        picker = sheet.wait_for(label)
        _, top, _, height = sheet.extents

        def below():
            return picker.extents[1] + picker.extents[3] - (top + height - 8)

        while (before := below()) > 0:
            self.desktop.move_pointer(*sheet.find("Soukromí a oprávnění", Role.HEADING).centre)
            self.desktop.output(["xdotool", "click", "5"])
            self.wait(lambda: below() < before, "the sheet to scroll")
        self.desktop.wait_until_still()
        self.desktop.click(picker)
        self.desktop.click(self.window.wait_for(choice, Role.LIST_ITEM))
        self.window.wait_until_gone(choice, Role.LIST_ITEM)

    def card(self, title):
        return self.window.wait_for(title, Role.LIST_ITEM)

    def with_shortcuts(self, count):
        write_preferences(self.home, {
            "hasLaunchedBefore": True,
            "customShortcuts": json.dumps([custom(number) for number in range(count)]).encode()})

    def stored(self, program):
        return json.loads(program.preferences()["customShortcuts"])

    @property
    def autostart(self):
        return self.home / ".config/autostart" / f"{APPLICATION_ID}.desktop"

    def test_switches_act_at_once(self):
        program = self.start()
        sheet = self.open(program)
        self.assertEqual([sheet.find(name).checked for name in (LAUNCH, SMART, LEARNING)],
                         [False, True, False])
        self.assertFalse(self.autostart.exists())

        self.flip(sheet, LAUNCH, True)
        self.assertIn(f'Exec="{program.command[0]}"', self.autostart.read_text())
        self.flip(sheet, LAUNCH, False)
        self.assertFalse(self.autostart.exists())
        self.flip(sheet, SMART, False)
        self.assertIs(program.preferences()["smartSuggestions"], False)
        self.flip(sheet, LEARNING, True)
        self.assertIs(program.preferences()["learningMode"], True)
        self.close()

        sheet = self.open(program)
        self.assertEqual([sheet.find(name).checked for name in (LAUNCH, SMART, LEARNING)],
                         [False, False, True])

    def test_switches_work_by_keyboard(self):
        program = self.start()
        sheet = self.open(program)
        self.wait(lambda: sheet.find(LAUNCH).focused, "the keyboard at the first switch")
        self.desktop.press("Tab", "Tab", "space")
        self.wait(lambda: sheet.find(LEARNING).checked, "the switch")
        self.close()
        self.assertIs(program.preferences()["learningMode"], True)

    def test_login_item_removed_by_hand_shows_as_off(self):
        program = self.start()
        self.flip(self.open(program), LAUNCH, True)
        self.close()
        self.autostart.unlink()
        sheet = self.open(program)
        self.assertFalse(sheet.wait_for(LAUNCH, Role.CHECK_BOX).checked)
        self.flip(sheet, LAUNCH, True)
        self.assertTrue(self.autostart.exists())

    def test_failing_login_item_shows_the_systems_message(self):
        (self.home / ".config").mkdir(exist_ok=True)
        # A file where the folder should be.
        (self.home / ".config/autostart").write_text("")
        # Where Return would press the button that has the keyboard.
        program = self.start(XDG_CURRENT_DESKTOP="GNOME")
        sheet = self.open(program)
        for close_with in ("Return", "Escape", "OK"):
            self.desktop.click(sheet.wait_for(LAUNCH, Role.CHECK_BOX))
            alert = self.window.wait_for("Nastavení se nepodařilo změnit", Role.ALERT)
            self.assertNotIn(alert.description, ("", "Neznámá chyba"))
            self.assertIsNone(self.window.find("Hotovo"), "the sheet is out of reach meanwhile")
            # Leads to the search field, which is out of reach too.
            self.desktop.press("ctrl+f")
            if close_with == "OK":
                self.desktop.click(alert.wait_for("OK", Role.BUTTON))
            else:
                self.desktop.press(close_with)
            self.window.wait_until_gone("Nastavení se nepodařilo změnit")
            self.assertFalse(sheet.wait_for(LAUNCH, Role.CHECK_BOX).checked)
            self.assertIsNotNone(self.window.find("Nastavení", Role.DIALOG))
        self.close()

    def test_return_closes_from_anywhere(self):
        self.with_shortcuts(1)
        for desktop in ("", *RETURN_PRESSES_BUTTONS):
            with self.subTest(desktop=desktop):
                program = self.start(XDG_CURRENT_DESKTOP=desktop)
                try:
                    self.check_return_closes_from_anywhere(program)
                finally:
                    program.terminate()

    def check_return_closes_from_anywhere(self, program):
        stops = []
        # Round once: every control has had the keyboard when the first has it again.
        while len(stops) < 2 or stops[-1] != stops[0]:
            sheet = self.open(program)
            self.wait(lambda: sheet.find(LAUNCH).focused, "the keyboard at the first switch")
            for passed in range(len(stops)):
                self.desktop.press("Tab")
                self.wait(lambda: self.focus(sheet) != stops[passed], "the next control")
            stops.append(self.focus(sheet))
            self.close()
        self.assertEqual(set(stops), {LAUNCH, SMART, LEARNING, "Povolit ve Zpřístupnění…",
                                      "Vlastní zkratky", "Smazat", "Smazat všechny", NAMES, LIBRARY,
                                      "Hotovo"})
        self.assertEqual(len(self.stored(program)), 1)
        self.assertFalse(self.autostart.exists())
        sheet = self.open(program)
        self.assertEqual([sheet.find(name).checked for name in (LAUNCH, SMART, LEARNING)],
                         [False, True, False])

    @staticmethod
    def focus(sheet):
        focused = sheet.find_all(where=lambda element: element.focused)
        # A row of the list tells of the keyboard too.
        return next((element.name for element in reversed(focused)
                     if element.role != Role.LIST_ITEM), None)

    def test_button_and_escape_close(self):
        program = self.start()
        sheet = self.open(program)
        self.desktop.click(sheet.wait_for("Hotovo", Role.BUTTON))
        self.window.wait_until_gone("Nastavení", Role.DIALOG)
        self.open(program)
        self.desktop.press("Escape")
        self.window.wait_until_gone("Nastavení", Role.DIALOG)

    def test_rest_of_the_window_is_out_of_reach(self):
        program = self.start()
        program.window()
        row = program.row("Oblíbené").centre
        self.open(program)
        self.assertEqual(self.window.find_all(where=is_row), [])
        self.assertIsNone(self.window.find("Import z menu"))
        self.desktop.click(row)
        self.desktop.press("F10", "F6", "ctrl+2", "ctrl+f")
        pause(0.3)
        self.assertIsNone(self.window.find("Úpravy"))
        # The keyboard is still the sheet's.
        self.close()
        self.assertTrue(program.row("Všechny zkratky").selected)
        self.window.wait_for("Import z menu")

    def test_permission_is_asked_for(self):
        def enabled(value=None):
            if value is not None:
                self.desktop.call("org.a11y.Bus", "/org/a11y/bus",
                                  "org.freedesktop.DBus.Properties", "Set",
                                  GLib.Variant("(ssv)", ("org.a11y.Status", "IsEnabled",
                                                         GLib.Variant("b", value))))
            return self.desktop.call("org.a11y.Bus", "/org/a11y/bus",
                                     "org.freedesktop.DBus.Properties", "Get",
                                     GLib.Variant("(ss)", ("org.a11y.Status", "IsEnabled")))[0]

        program = self.start()
        button = self.open(program).wait_for("Povolit ve Zpřístupnění…", Role.BUTTON).centre
        enabled(False)
        self.addCleanup(enabled, True)
        pause(0.3)
        self.desktop.click(button)
        self.wait(enabled, "the desktop to be asked")

    def test_five_hundred_shortcuts_scroll_inside_the_frame(self):
        self.with_shortcuts(500)
        program = self.start()
        sheet = self.open(program)
        self.wait(lambda: sheet.extents[2:] == (540, 480), "the sheet at its full size")
        rows = sheet.wait_for("Vlastní zkratky", Role.LIST)
        self.assertLess(len(rows.children), 20, "only the rows in sight exist")
        self.desktop.press("Tab", "Tab", "Tab", "Tab")
        self.wait(lambda: rows.focused, "the keyboard in the list")
        sx, sy, width, height = sheet.extents
        x, _, list_width, list_height = rows.extents
        self.wait(lambda: rows.extents[1] + list_height <= sy + height - 8, "the list in the frame")
        self.assertLessEqual(x + list_width, sx + width - 22)

        self.desktop.press("End")
        rows.wait_for("Položka 499", Role.LIST_ITEM)
        self.desktop.press("Delete")
        rows.wait_until_gone("Položka 499", Role.LIST_ITEM)
        rows.wait_for("Položka 498", Role.LIST_ITEM)
        self.assertEqual(len(self.stored(program)), 499)
        self.desktop.press("Home")
        first = rows.wait_for("Položka 0", Role.LIST_ITEM)
        self.desktop.click(first.wait_for("Smazat", Role.BUTTON))
        rows.wait_until_gone("Položka 0", Role.LIST_ITEM)
        rows.wait_for("Položka 1", Role.LIST_ITEM)
        self.assertEqual(len(self.stored(program)), 498)

    def bar_at_the_edge(self, rows):
        """Whether something is drawn where the list's scroll bar goes."""
        self.desktop.wait_until_still()
        x, y, width, height = rows.extents
        screen_width, _, pixels = self.desktop.pixels()
        places = [3 * (row * screen_width + x + width - 5) for row in range(y, y + height)]
        return len({pixels[place:place + 3] for place in places}) > 1

    def test_a_list_that_goes_on_says_so(self):
        for count, goes_on in ((1, False), (30, True)):
            with self.subTest(count=count):
                self.with_shortcuts(count)
                program = self.start()
                sheet = self.open(program)
                rows = sheet.wait_for("Vlastní zkratky", Role.LIST)
                self.desktop.move_pointer(5, 5)
                self.assertEqual(self.bar_at_the_edge(rows), goes_on)
                program.terminate()

    def with_imports(self):
        records = [{**custom(number), "apps": [app], "id": f"{kind}-{number}"}
                   for number, (kind, app) in enumerate((
                       ("menu", "Editor"), ("menu", "Editor"), ("custom", "Editor"),
                       ("menu", "Malování"), ("menu", "Editor")))]
        write_preferences(self.home, {"hasLaunchedBefore": True, "favorites": ["menu-1", "copy"],
                                      "customShortcuts": json.dumps(records).encode()})
        return records

    def test_list_keeps_room_for_rows(self):
        write_preferences(self.home, {
            "hasLaunchedBefore": True, "tipNotifications": False,
            "customShortcuts": json.dumps([custom(number) for number in range(30)]).encode()})
        program = self.start()
        program.resize(980, 650)
        sheet = self.open(program)
        # The switch that only those see who have turned the tips off.
        sheet.wait_for(TIPS, Role.CHECK_BOX)
        rows = sheet.wait_for("Vlastní zkratky", Role.LIST)
        for _ in range(8):
            if rows.focused:
                break
            self.desktop.press("Tab")
            pause(0.1)
        self.assertTrue(rows.focused)

        def last_line_in_sight():
            _, top, _, height = rows.extents
            _, sheet_top, _, sheet_height = sheet.extents
            return top + height <= sheet_top + sheet_height

        self.wait(last_line_in_sight, "the whole list in the sheet")
        # The application's heading and three rows.
        self.assertGreaterEqual(rows.extents[3], 30 + 3 * 32)
        self.wait(lambda: sheet.find("Hotovo", Role.BUTTON), "the way out in sight")
        # Back at the first switch, what is above is in sight again.
        switch = sheet.find(LAUNCH, Role.CHECK_BOX)
        for _ in range(12):
            if switch.focused:
                break
            self.desktop.press("shift+Tab")
            pause(0.1)
        self.assertTrue(switch.focused)
        done = sheet.find("Hotovo", Role.BUTTON)
        self.wait(lambda: switch.extents[1] > done.extents[1] + done.extents[3],
                  "the switch under the sheet's title")

    def test_import_is_deleted_together_and_comes_back(self):
        records = self.with_imports()
        kept = [records[2], records[3]]
        program = self.start()
        sheet = self.open(program)
        group = sheet.wait_for("Smazat všechny", Role.BUTTON)
        self.assertEqual(group.description, "Z menu aplikace Editor")
        self.desktop.click(group)
        sheet.wait_for("Smazány zkratky aplikace Editor (3)", Role.ALERT)
        sheet.wait_until_gone("Položka 0", Role.LIST_ITEM)
        self.assertEqual(self.stored(program), kept)
        # Closing the sheet by mistake does not take the way back.
        self.close()
        sheet = self.open(program)
        message = sheet.wait_for("Smazány zkratky aplikace Editor (3)", Role.ALERT)
        self.desktop.click(message.wait_for("Vrátit", Role.BUTTON))
        sheet.wait_for("Položka 0", Role.LIST_ITEM)
        sheet.wait_until_gone("Smazány zkratky aplikace Editor (3)", Role.ALERT)
        self.assertEqual(self.stored(program), records)
        self.assertEqual(sorted(program.preferences()["favorites"]), ["copy", "menu-1"])

    def test_import_is_deleted_and_brought_back_by_keyboard(self):
        records = self.with_imports()
        records = [record for record in records if record["id"].startswith("menu")][:1]
        write_preferences(self.home, {"hasLaunchedBefore": True,
                                      "customShortcuts": json.dumps(records).encode()})
        program = self.start()
        sheet = self.open(program)
        button = sheet.wait_for("Smazat všechny", Role.BUTTON)
        for _ in range(8):
            if button.focused:
                break
            self.desktop.press("Tab")
            pause(0.1)
        self.assertTrue(button.focused)
        self.desktop.press("space")
        undo = sheet.wait_for("Vrátit", Role.BUTTON)
        # The list has gone with its last row; the way back has the keyboard.
        sheet.wait_until_gone("Vlastní zkratky")
        self.wait(lambda: undo.focused, "the keyboard at the way back")
        self.assertEqual(self.stored(program), [])
        self.desktop.press("space")
        rows = sheet.wait_for("Vlastní zkratky", Role.LIST)
        self.wait(lambda: rows.focused, "the keyboard in the list")
        self.assertEqual(self.stored(program), records)
        # The same from any of its rows.
        self.desktop.press("shift+Delete")
        self.wait(lambda: undo.focused, "the keyboard at the way back")
        self.assertEqual(self.stored(program), [])

    def test_shortcuts_of_the_desktop_are_deleted_together_and_come_back(self):
        records = [{**custom(number), "apps": [], "id": f"{kind}-{number}"}
                   for number, kind in enumerate(("system", "custom", "system"))]
        write_preferences(self.home, {"hasLaunchedBefore": True,
                                      "customShortcuts": json.dumps(records).encode()})
        program = self.start()
        sheet = self.open(program)
        # The row between them was added by hand.
        self.assertEqual(
            [heading.name for heading in sheet.wait_for("Vlastní zkratky", Role.LIST)
             .find_all(role=Role.HEADING)],
            ["Z nastavení plochy", "Přidané ručně", "Z nastavení plochy"])
        group = sheet.wait_for("Smazat všechny", Role.BUTTON)
        self.assertEqual(group.description, "Z nastavení plochy")
        self.desktop.click(group)
        message = sheet.wait_for("Smazány zkratky plochy (2)", Role.ALERT)
        sheet.wait_until_gone("Položka 0", Role.LIST_ITEM)
        self.assertEqual(self.stored(program), records[1:2])
        self.desktop.click(message.wait_for("Vrátit", Role.BUTTON))
        sheet.wait_for("Položka 0", Role.LIST_ITEM)
        self.assertEqual(self.stored(program), records)

    def test_names_of_keys_change_everywhere_at_once(self):
        self.with_shortcuts(1)
        program = self.start()
        sheet = self.open(program)
        row = sheet.wait_for("Položka 0", Role.LIST_ITEM)
        self.assertEqual(row.description, "Command K")
        self.choose(sheet, NAMES, PC)
        self.wait(lambda: row.description == "Super K", "the names in the list")
        self.assertEqual(program.preferences()["keyNames"], "pc")
        self.close()

        self.assertTrue(self.card("Kopírovat").description.endswith("Super C"))
        for name in ("Super", "Alt", "Shift", "Ctrl", "Fn"):
            self.window.wait_for(name, Role.CHECK_BOX)
        self.desktop.click(program.search_field())
        for text in ("ctrl", "Ctrl+Super Q"):
            self.desktop.press("ctrl+a")
            self.desktop.type(text)
            self.window.wait_until_gone("Kopírovat", Role.LIST_ITEM)
            self.card("Zamknout Mac")
        self.desktop.press("Escape")
        self.card("Kopírovat")

        self.desktop.click(program.row("Vizuální klávesnice"))
        keyboard = self.window.wait_for("Klávesnice")
        for name in ("Super", "AltGr", "Shift", "Enter"):
            self.assertIsNotNone(keyboard.wait_for(name, Role.CHECK_BOX))
        self.assertEqual(len(keyboard.find_all("Ctrl", Role.CHECK_BOX)), 2)
        self.desktop.click(keyboard.find("Alt", Role.CHECK_BOX))
        self.window.wait_until_gone("Kopírovat", Role.LIST_ITEM)
        self.card("Vynutit ukončení")

        sheet = self.open(program)
        self.choose(sheet, NAMES, MAC)
        self.close()
        keyboard = self.window.wait_for("Klávesnice")
        keyboard.wait_for("⌘", Role.CHECK_BOX)
        self.assertIsNone(keyboard.find("AltGr", Role.CHECK_BOX))
        self.assertEqual(program.preferences()["keyNames"], "mac")

    def test_keys_are_typed_by_their_names(self):
        write_preferences(self.home, {"hasLaunchedBefore": True, "keyNames": "pc"})
        program = self.start()
        window = program.window()
        self.desktop.click(window.wait_for("Přidat vlastní", Role.BUTTON))
        sheet = window.wait_for("Přidat vlastní zkratku", Role.DIALOG)
        self.assertEqual(sheet.wait_for("Klávesy (oddělte +)").description,
                         "např. Alt plus Super plus K")
        self.desktop.type("Novinka")
        self.desktop.press("Tab")
        self.desktop.type("ctrl+Shift + f2")
        self.desktop.press("Return")
        window.wait_until_gone("Přidat vlastní zkratku", Role.DIALOG)
        self.assertEqual(self.stored(program)[0]["keys"], ["⌃", "⇧", "F2"])

    def test_library_of_the_desktop_changes_everywhere_at_once(self):
        program = self.start(XDG_CURRENT_DESKTOP="XFCE")
        sheet = self.open(program)
        self.choose(sheet, LIBRARY, "Zkratky této plochy")
        self.close()
        self.assertEqual(program.preferences()["library"], "desktop")
        self.assertTrue(self.card("Kopírovat").description.endswith("Control C"))
        self.assertIsNone(self.window.find("iCloud Drive"))

        self.desktop.click(program.row("Samolepka"))
        self.window.wait_for("Zkratky ze samolepky", Role.HEADING)
        self.assertTrue(self.card("Zamknout obrazovku").description.endswith("Control Option L"))

        self.desktop.click(program.row("Procvičování"))
        field = self.window.wait_for(where=lambda element: element.focused
                                     and "Pole přijímá" in element.description)
        for pressed, shown in (("alt+F2", "⌥ F2"), ("ctrl+Home", "⌃ ↖"), ("Escape", "Esc"),
                               ("ctrl+alt+Right", "⌃ ⌥ →"), ("alt+Return", "⌥ ↩")):
            self.desktop.press(pressed)
            self.wait(lambda: field.name == shown, f"{pressed} to be {shown}")

        program.terminate()
        program = self.start(XDG_CURRENT_DESKTOP="XFCE")
        program.window()
        self.window = program.window()
        self.assertTrue(self.card("Kopírovat").description.endswith("Control C"))

    def test_favourites_outlive_a_change_of_the_library(self):
        kept = {"copy", "undo", "icloud"}
        write_preferences(self.home, {"hasLaunchedBefore": True, "favorites": sorted(kept)})
        program = self.start(XDG_CURRENT_DESKTOP="XFCE")
        self.window = program.window()
        self.desktop.click(program.row("Oblíbené"))
        program.wait_for_cards("Kopírovat", "Vrátit zpět", "iCloud Drive")
        for choice, titles in (("Zkratky této plochy", ["Kopírovat", "Vrátit zpět"]),
                               ("Zkratky Macu", ["Kopírovat", "Vrátit zpět", "iCloud Drive"])):
            sheet = self.open(program)
            self.choose(sheet, LIBRARY, choice)
            self.close()
            program.wait_for_cards(*titles)
            self.assertEqual(set(program.preferences()["favorites"]), kept)

        # Starred in the one, it is in the other, and what the other lacks is not lost.
        sheet = self.open(program)
        self.choose(sheet, LIBRARY, "Zkratky této plochy")
        self.close()
        self.desktop.click(self.card("Vrátit zpět").find("Oblíbené", Role.CHECK_BOX))
        program.wait_for_cards("Kopírovat")
        program.terminate()
        self.assertEqual(set(program.preferences()["favorites"]), kept - {"undo"})

    def test_group_goes_with_its_last_row(self):
        self.with_shortcuts(2)
        program = self.start()
        sheet = self.open(program)
        for number in range(2):
            row = sheet.wait_for(f"Položka {number}", Role.LIST_ITEM)
            self.desktop.click(row.wait_for("Smazat", Role.BUTTON))
            sheet.wait_until_gone(f"Položka {number}", Role.LIST_ITEM)
        sheet.wait_until_gone("Vlastní zkratky")
        self.assertEqual(self.stored(program), [])


if __name__ == "__main__":
    unittest.main()
