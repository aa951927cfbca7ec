"""The screens for learning and practising."""

import pathlib
import re
import tempfile
import unittest

from harness import DesktopTestCase, Role, pause
from physical_keyboard import (
    ESCAPE, F5, FORWARD_DELETE, LOUDER, MODIFIERS, MUTE, NUM_LOCK, PRINT, RETURN, PhysicalKeyboard)
from shortcuts import SHORTCUTS

# Their keys are never given by a key press: "Esc", "Fn" with "F11", and the minus sign.
IMPOSSIBLE = {"force-quit", "desktop", "zoom-out"}
KEYS_BY_TITLE = {}
for title, keys in SHORTCUTS.values():
    KEYS_BY_TITLE.setdefault(title, keys)

STICKER = [
    "copy", "paste", "undo", "save", "emoji", "spotlight", "switch-app", "close-window",
    "force-quit", "lock", "new-folder", "go-folder", "trash", "quick-look", "shot-full",
    "shot-area", "shot-tools", "restore-tab", "home", "dock-toggle", "computer", "icloud",
    "recents", "minimize-all"]
FIRST_AID = {
    "Aplikace nereaguje": ["force-quit"],
    "Něco jsem omylem změnil": ["undo", "redo"],
    "Nemohu najít soubor nebo aplikaci": ["find", "spotlight"],
    "Potřebuji zachytit obrazovku": ["shot-area", "shot-tools"],
    "Chci se rychle vrátit k práci": ["switch-app", "mission-control", "app-windows"],
}


def titles(ids):
    return [SHORTCUTS[key][0] for key in ids]


class LearningTest(DesktopTestCase):
    @classmethod
    def setUpClass(cls):
        """A desktop that writes down which of its own keys it has heard of."""
        directory = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        cls.heard = directory / "heard"
        bindings = "".join(
            f"""<keybind key="{key}"><action name="Execute">
                <command>sh -c 'echo {key} &gt;&gt; {cls.heard}'</command></action></keybind>"""
            for key in ("XF86AudioMute", "Print", "A-Print"))
        # Its own bindings of these keys need programs that may be missing.
        others = re.sub(r'<keybind key="(A-)?Print">.*?</keybind>', "",
                        pathlib.Path("/etc/xdg/openbox/rc.xml").read_text(), flags=re.DOTALL)
        settings = directory / "rc.xml"
        settings.write_text(others.replace("</keyboard>", f"{bindings}</keyboard>"))
        cls.WINDOW_MANAGER = (*cls.WINDOW_MANAGER, "--config-file", str(settings))
        super().setUpClass()

    def setUp(self):
        super().setUp()
        self.open()

    def open(self):
        self.program = self.start()
        self.window = self.program.window()
        self.program.resize(1600, 1100)

    def go_to(self, row, title):
        self.desktop.click(self.program.row(row))
        self.window.wait_for(title, Role.HEADING)

    def press(self, element):
        self.desktop.click(element)

    # Sticker and first aid.

    def test_sticker_shows_its_list(self):
        self.go_to("Samolepka", "Zkratky ze samolepky")
        self.window.wait_for("Nejdůležitější zkratky na jednom místě")
        sheet = self.window.wait_for("Samolepka", Role.LIST)
        self.assertEqual([item.name for item in sheet.find_all(role=Role.LIST_ITEM)],
                         titles(STICKER))

    def test_first_aid_shows_its_situations(self):
        self.program.resize(1600, 1190)
        self.go_to("První pomoc", "První pomoc")
        for situation, ids in FIRST_AID.items():
            card = self.window.wait_for(situation, Role.LIST)
            self.assertEqual([tile.name for tile in card.find_all(role=Role.LIST_ITEM)],
                             titles(ids), situation)
        # Tiles side by side share the width; whole pixels may make a difference of one.
        tiles = self.window.wait_for("Chci se rychle vrátit k práci", Role.LIST).find_all(
            role=Role.LIST_ITEM)
        self.assertEqual(len({tile.extents[1] for tile in tiles}), 1)
        widths = [tile.extents[2] for tile in tiles]
        self.assertEqual(len(widths), 3)
        self.assertLessEqual(max(widths) - min(widths), 1)
        self.window.wait_for("Spuštění a obnovení Macu")

    # The trio of the day.

    def test_trio_is_confirmed_once_and_stays_confirmed(self):
        self.go_to("Dnešní zkratka", "Dnešní výuka")
        self.window.wait_for("DNEŠNÍ TROJICE  •  0 dní v řadě")
        self.press(self.window.wait_for("Trojici umím", Role.BUTTON))
        done = self.window.wait_for("Dnes splněno ✓", Role.BUTTON)
        self.press(done)
        self.window.wait_for("DNEŠNÍ TROJICE  •  1 dní v řadě")
        self.assertEqual(self.program.preferences()["learningStreak"], 1)

        self.program.terminate()
        self.open()
        self.go_to("Dnešní zkratka", "Dnešní výuka")
        self.window.wait_for("DNEŠNÍ TROJICE  •  1 dní v řadě")
        self.window.wait_for("Dnes splněno ✓", Role.BUTTON)

    # The drawn keyboard.

    def key(self, label):
        return self.window.wait_for("Klávesnice").wait_for(label)

    def test_drawn_keyboard_finds_shortcuts(self):
        self.go_to("Vizuální klávesnice", "Vizuální klávesnice")
        self.press(self.key("4"))
        self.program.wait_for_cards("Vyfotit výřez", "Výřez do schránky")
        self.assertTrue(self.key("4").checked)
        self.assertNotIn("dostupná", self.key("3").description)
        self.press(self.key("4"))
        self.wait(lambda: len(self.program.cards()) > 2, "more cards again")
        self.assertFalse(self.key("4").checked)

        self.press(self.window.wait_for("⌃", where=lambda element: element.role != Role.BUTTON
                                        and "dostupná" not in element.description
                                        and element.parent.name != "Klávesnice"))
        self.wait(lambda: "dostupná" in self.key("↑").description, "available keys")
        self.assertNotIn("dostupná", self.key("→").description)
        self.press(self.key("Mezerník"))
        self.program.wait_for_cards("Emoji a symboly")

    def test_drawn_keyboard_is_walked_by_arrow_keys(self):
        self.go_to("Vizuální klávesnice", "Vizuální klávesnice")
        self.press(self.key("4"))
        for _ in range(60):
            if any(self.key(label).focused for label in ("4",)):
                break
            self.desktop.press("Tab")
        self.wait(lambda: self.key("4").focused, "the focus on the last key used")
        for arrow, label in (("Down", "R"), ("Right", "T"), ("Down", "F"), ("Left", "D")):
            self.desktop.press(arrow)
            self.wait(lambda label=label: self.key(label).focused, f"the focus on {label}")
        self.desktop.press("space")
        self.wait(lambda: self.key("D").checked, "the key to be selected")

    # Practice.

    def practise(self, layout):
        keyboard = PhysicalKeyboard(self.desktop, layout)
        self.go_to("Procvičování", "Procvičování")
        self.expect_focus()
        return keyboard

    def expect_focus(self):
        """Another program that takes the keyboard for a moment, even the window manager for one of
        its keys, has the toolkit tell of a lost focus."""
        self.wait(lambda: self.area().focused, "the capture area to have the focus")

    def area(self):
        return self.window.wait_for(where=lambda element: "Pole přijímá" in element.description)

    def captured(self):
        return self.area().name

    def asked(self):
        return next(heading.name for heading in self.window.find_all(role=Role.HEADING)
                    if heading.name in KEYS_BY_TITLE)

    def test_a_whole_round(self):
        keyboard = self.practise("us")
        score = 0
        for task in range(1, 9):
            self.window.wait_for(f"Úkol {task} / 8", Role.LABEL)
            self.assertEqual(self.captured(), "Klikněte sem a stiskněte zkratku")
            keys = KEYS_BY_TITLE[self.asked()]
            possible = keys in [SHORTCUTS[key][1] for key in SHORTCUTS if key not in IMPOSSIBLE]
            if task % 3 and possible:
                keyboard.press(keys)
                score += 1
                self.window.wait_for("Správně")
            else:
                keyboard.press("⌃ ⌥ ⇧ ⌘ K")
                self.window.wait_for("Zkuste si zapamatovat správnou kombinaci")
                # A second attempt does not count.
                keyboard.press(keys)
                pause(0.2)
                self.assertIsNone(self.window.find("Správně"))
            self.window.wait_for(f"{score} bodů")
            self.press(self.window.wait_for("Další úkol" if task < 8 else "Začít znovu",
                                            Role.BUTTON))
            self.expect_focus()
        self.window.wait_for("Úkol 1 / 8", Role.LABEL)
        self.window.wait_for("0 bodů")

    def test_score_and_task_survive_leaving(self):
        keyboard = self.practise("us")
        keyboard.press("⌘ K")
        self.press(self.window.wait_for("Další úkol", Role.BUTTON))
        self.window.wait_for("Úkol 2 / 8", Role.LABEL)
        self.go_to("Samolepka", "Zkratky ze samolepky")
        self.go_to("Procvičování", "Procvičování")
        self.window.wait_for("Úkol 2 / 8", Role.LABEL)
        self.assertIsNone(self.window.find("Další úkol"))

    def test_field_has_the_keyboard_again_after_a_sheet(self):
        keyboard = self.practise("us")
        for button, sheet in (("Přidat vlastní", "Přidat vlastní zkratku"),
                              ("Nastavení", "Nastavení")):
            for by_keyboard in (False, True):
                with self.subTest(sheet=sheet, by_keyboard=by_keyboard):
                    if by_keyboard:
                        self.walk_to(keyboard, button)
                        self.desktop.press("Return")
                    else:
                        self.press(self.window.wait_for(button, Role.BUTTON))
                    self.window.wait_for(sheet, Role.DIALOG)
                    self.desktop.press("Escape")
                    self.window.wait_until_gone(sheet, Role.DIALOG)
                    self.wait(lambda: self.area().focused, "the keyboard in the field")
                    keyboard.press("⌃ Q")
                    self.wait(lambda: self.captured() == "⌃ Q", "the combination")
                    keyboard.press("⌘ L")
                    self.wait(lambda: self.captured() == "⌘ L", "the next one")
        # Whoever was about to type something else goes on with that.
        self.press(self.program.search_field())
        self.press(self.window.wait_for("Nastavení", Role.BUTTON))
        self.window.wait_for("Nastavení", Role.DIALOG)
        self.desktop.press("Escape")
        self.wait(lambda: self.program.search_field().focused, "the keyboard in the search field")

    def walk_to(self, keyboard, name):
        """Leaves the field and goes on with Tab."""
        keyboard.tap(MODIFIERS["⇧"])
        keyboard.tap(MODIFIERS["⇧"])
        self.wait(lambda: not self.area().focused, "the focus to leave")
        while not self.window.find(name, Role.BUTTON, lambda element: element.focused):
            before = self.window.find_all(where=lambda element: element.focused)
            self.desktop.press("Tab")
            self.wait(lambda: self.window.find_all(where=lambda element: element.focused)
                      != before, "the next control")

    def test_whole_task_without_a_mouse(self):
        keyboard = self.practise("us")
        self.assertIn("dvakrát krátce stiskněte samotný Shift",
                      self.window.wait_for(role=Role.LABEL, where=lambda element: (
                          "bez myši" in element.name)).name)
        keyboard.press("⌘ K")
        self.window.wait_for("Další úkol", Role.BUTTON)
        self.window.wait_for("Dál bez myši: dvakrát krátce stiskněte samotný Shift, potom Enter.",
                             Role.LABEL)
        keyboard.tap(MODIFIERS["⇧"])
        keyboard.tap(MODIFIERS["⇧"])
        self.window.wait_for("Další úkol", Role.BUTTON, lambda element: element.focused)
        self.desktop.press("Return")
        self.window.wait_for("Úkol 2 / 8", Role.LABEL)
        self.wait(lambda: self.area().focused, "the keyboard in the field")

    def check_every_record(self, layout):
        keyboard = self.practise(layout)
        if layout == "cz":
            keyboard.tap(NUM_LOCK)
            self.addCleanup(keyboard.tap, NUM_LOCK)
        failed = set()
        for identifier, (_, keys) in SHORTCUTS.items():
            keyboard.chord("x")  # so that no answer is taken for the one before
            self.wait(lambda: self.captured() == "X", "the key in between")
            keyboard.press(keys)
            self.wait(lambda: self.captured() != "X", f"an answer to {keys}")
            if set(self.captured().split(" ")) != set(keys.split(" ")):
                failed.add(identifier)
        self.assertEqual(failed, IMPOSSIBLE)

    def test_every_record_on_the_us_layout(self):
        self.check_every_record("us")

    def test_every_record_on_the_czech_layout(self):
        self.check_every_record("cz")

    def test_dead_keys_and_foreign_letters(self):
        keyboard = self.practise("cz")
        keyboard.chord(21)
        self.wait(lambda: self.captured() == "´", "the dead key's accent")
        keyboard.chord(54)
        self.wait(lambda: self.captured() == "C", "a plain letter after it")
        keyboard = PhysicalKeyboard(self.desktop, "ru")
        self.addCleanup(PhysicalKeyboard, self.desktop, "us")
        keyboard.chord(MODIFIERS["⌘"], 54)
        self.wait(lambda: self.captured() == "⌘ С", "the Cyrillic letter")

    def test_takes_every_combination_and_lets_go(self):
        other = self.spawn("featherpad")
        theirs = self.wait(lambda: self.desktop.visible_windows("featherpad"), "another window")[0]
        ours = self.program.window_id()
        self.desktop.output(["xdotool", "windowactivate", "--sync", str(ours)])
        keyboard = self.practise("us")
        for keys in ("⌥ Tab", "⌃ Q", "⌘ L", "⌘ Mezerník", "⌃ ⌥ Mezerník"):
            keyboard.press(keys)
            self.wait(lambda keys=keys: self.captured() == keys, keys)
            self.assertEqual(self.desktop.active_window(), ours)
        self.assertTrue(self.program.running)

        # A lone modifier tapped twice leads out, and the window manager has its keys again.
        keyboard.tap(MODIFIERS["⇧"])
        keyboard.tap(MODIFIERS["⇧"])
        self.wait(lambda: not self.area().focused, "the focus to leave")
        keyboard.press("⌥ Tab")
        self.wait(lambda: self.desktop.active_window() == theirs, "the other window")

        # Coming back to the area takes the keyboard again; a click elsewhere gives it back.
        self.desktop.output(["xdotool", "windowactivate", "--sync", str(ours)])
        self.press(self.area())
        keyboard.press("⌥ Tab")
        self.wait(lambda: self.captured() == "⌥ Tab", "the combination")
        self.press(self.window.wait_for("Úkol 1 / 8", Role.LABEL))
        self.wait(lambda: not self.area().focused, "the focus to leave")
        keyboard.press("⌥ Tab")
        self.wait(lambda: self.desktop.active_window() == theirs, "the other window")
        self.assertIsNone(other.poll())

    def test_keys_for_the_desktop_stay_with_it(self):
        self.heard.write_text("")
        keyboard = self.practise("us")
        ours = self.program.window_id()
        expected = []
        for name, modifier, key in (("XF86AudioMute", None, MUTE), ("Print", None, PRINT),
                                    ("A-Print", "⌥", PRINT), ("XF86AudioMute", None, MUTE)):
            held = [MODIFIERS[modifier]] if modifier else []
            keyboard.hold(*held)
            keyboard.tap(key)
            expected.append(name)
            self.wait(lambda: self.heard.read_text().split() == expected, f"the desktop to act on {name}")
            keyboard.release(*held)
            # The same key again, soon, is the desktop's without us.
            keyboard.tap(MUTE)
            expected.append("XF86AudioMute")
            self.wait(lambda: self.heard.read_text().split() == expected, "the desktop to act again")
            self.assertIsNone(self.window.find("Další úkol"), f"{name} was taken for an answer")
            self.expect_focus()
            # Any other key is an answer, and from it on all combinations are ours again.
            keyboard.tap(F5)
            self.wait(lambda: self.window.find("Další úkol", Role.BUTTON), "a verdict about F5")
            keyboard.press("⌥ Tab")
            self.wait(lambda: self.captured() == "⌥ Tab", "the combination")
            self.assertEqual(self.desktop.active_window(), ours)
            self.press(self.window.wait_for("Další úkol", Role.BUTTON))
            self.window.wait_until_gone("Další úkol")
            self.expect_focus()
        self.assertEqual(self.heard.read_text().split(), expected)

    def test_keys_for_the_desktop_that_it_has_no_use_for_are_no_answers(self):
        keyboard = self.practise("us")
        impossible = [SHORTCUTS[key][1] for key in IMPOSSIBLE]
        task = 1
        while KEYS_BY_TITLE[self.asked()] in impossible:
            keyboard.chord("x")
            self.press(self.window.wait_for("Další úkol", Role.BUTTON))
            task += 1
            self.window.wait_for(f"Úkol {task} / 8", Role.LABEL)
            self.expect_focus()
        for _ in range(3):
            keyboard.tap(LOUDER)
        keyboard.press(KEYS_BY_TITLE[self.asked()])
        self.window.wait_for("Správně")

    def test_control_characters_have_legible_caps(self):
        keyboard = self.practise("us")
        for key, cap, word in ((ESCAPE, "⎋", "Escape"), (RETURN, "↩", "Enter"),
                               (FORWARD_DELETE, "⌦", "Delete vpřed")):
            keyboard.chord(MODIFIERS["⌥"], key)
            self.wait(lambda cap=cap: self.captured() == f"⌥ {cap}", f"{word} on its cap")
            self.assertTrue(self.area().description.startswith(f"Option {word}. "))
        self.window.wait_for("Zkuste si zapamatovat správnou kombinaci")


if __name__ == "__main__":
    unittest.main()
