"""Commands chosen with the mouse in the menus of other programs count; nothing else does."""

import json
import subprocess
import unittest

from gi.repository import GLib

from harness import (DesktopTestCase, Role, connect, pause,
                     write_preferences)
from neighbours import Neighbour

SMART = "Chytré návrhy podle použitých položek menu"


class ObserverCase(DesktopTestCase):
    def observe(self, *titles, **more):
        """Starts the program with custom shortcuts of these titles; their ids are the titles."""
        records = [{"id": title, "title": title, "keys": ["⌘", "K"], "category": "Základy",
                    "apps": ["Editor"], "detail": "Z menu."} for title in titles]
        write_preferences(self.home, {"customShortcuts": json.dumps(records).encode(), **more})
        program = self.start()
        program.window()
        return program

    def counts(self, program):
        return program.preferences().get("usageCounts", {})

    def expect_counts(self, program, expected):
        self.wait(lambda: self.counts(program) == expected,
                  f"the counts {expected}; they are {self.counts(program)}")
        pause(0.4)
        self.assertEqual(self.counts(program), expected)

    def pointer(self, *actions):
        subprocess.run(["xdotool", *map(str, actions)], env=self.desktop.environment, check=True)


class ObserverTest(ObserverCase):
    # A harmless command of each, by the key that stands beside it.
    KEYS = {"mousepad": ";<Primary>a", "geany": ";<Primary>a", "writer": ";<Primary>a",
            "featherpad": "Ctrl+A", "linguist": "Ctrl+A"}

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        home = cls.desktop.directory / "others"
        cls.neighbours = {kind: Neighbour(cls.desktop, kind, home) for kind in cls.KEYS}
        cls.items = {}
        for kind, neighbour in cls.neighbours.items():
            neighbour.bring_to_front()
            cls.items[kind] = next(title.strip() for title, binding, _ in neighbour.list_menu()
                                   if binding.endswith(cls.KEYS[kind]))

    @classmethod
    def tearDownClass(cls):
        for neighbour in cls.neighbours.values():
            neighbour.close()
        super().tearDownClass()

    # What counts.

    def check_click_click(self, kind):
        neighbour, item = self.neighbours[kind], self.items[kind]
        # A record of the built-in library would win over ours.
        program = self.observe(item)
        neighbour.bring_to_front()
        element = neighbour.open_menu(item)
        self.expect_counts(program, {})  # the title in the menu bar is no command
        # Over before anybody can ask: the button goes up at once, and the menu closes.
        self.desktop.click(element)
        self.wait(lambda: sum(self.counts(program).values()) == 1, "the click to count")
        self.desktop.press("Escape")
        # As slow as a person.
        x, y = neighbour.open_menu(item).centre
        self.pointer("mousemove", x, y, "sleep", 0.1, "mousedown", 1, "sleep", 0.12, "mouseup", 1)
        self.wait(lambda: sum(self.counts(program).values()) == 2, "the slow click to count")
        self.desktop.press("Escape")
        pause(0.4)
        counts = self.counts(program)
        self.assertEqual(list(counts.values()), [2], counts)
        self.assertIn(next(iter(counts)), (item, "select-all"))

    def test_gtk_mousepad(self):
        self.check_click_click("mousepad")

    def test_gtk_geany(self):
        self.check_click_click("geany")

    def test_office_writer(self):
        self.check_click_click("writer")

    def test_qt5_featherpad(self):
        self.check_click_click("featherpad")

    def test_qt6_linguist(self):
        self.check_click_click("linguist")

    def test_context_menu(self):
        neighbour, item = self.neighbours["mousepad"], self.items["mousepad"]
        program = self.observe(item)
        neighbour.bring_to_front()
        x, y, width, height = self.desktop.geometry(neighbour.window)
        self.pointer("mousemove", x + width // 2, y + height // 2, "click", 3)
        menu = neighbour.tree().wait_for(role=Role.WINDOW)
        element = menu.wait_for(where=lambda element: element.name.strip() == item)
        self.desktop.click(element)
        self.wait(lambda: sum(self.counts(program).values()) == 1, "the click to count")
        self.desktop.press("Escape")

    def test_swapped_buttons(self):
        neighbour, item = self.neighbours["mousepad"], self.items["mousepad"]
        program = self.observe(item)
        self.addCleanup(self.desktop.output, ["xmodmap", "-e", "pointer = 1 2 3"])
        self.desktop.output(["xmodmap", "-e", "pointer = 3 2 1"])
        neighbour.bring_to_front()
        title = neighbour.menu_with(item).centre
        self.pointer("mousemove", *title, "click", 3)
        element = neighbour.tree().wait_for(where=lambda element: (
            element.name.strip() == item and element.extents[3] > 0))
        self.pointer("mousemove", *element.centre, "click", 3)
        self.wait(lambda: sum(self.counts(program).values()) == 1, "the click to count")
        # The other button is not the one that people choose with.
        self.desktop.press("Escape", "Escape")
        self.pointer("mousemove", *title, "click", 3)
        self.wait(lambda: element.extents[3] > 1, "the menu")
        self.pointer("mousemove", *element.centre, "click", 1)
        self.desktop.press("Escape", "Escape")
        pause(0.4)
        self.assertEqual(sum(self.counts(program).values()), 1)

    def check_press_drag_release(self, kind):
        """Only where the button goes down counts."""
        neighbour, item = self.neighbours[kind], self.items[kind]
        program = self.observe(item)
        neighbour.bring_to_front()
        target = neighbour.open_menu(item).centre
        self.desktop.press("Escape", "Escape")
        self.wait(lambda: not neighbour.menu_with(item).find(item), "the menu to close")
        x, y = neighbour.menu_with(item).centre
        self.pointer("mousemove", x, y, "mousedown", 1, "sleep", 0.3,
                     "mousemove", target[0], target[1] - 3, "sleep", 0.1,
                     "mousemove", *target, "sleep", 0.2, "mouseup", 1)
        self.expect_counts(program, {})

        # Down on the item, up on another or outside: it was meant.
        x, y = neighbour.open_menu(item).centre
        self.pointer("mousemove", x, y, "sleep", 0.1, "mousedown", 1, "sleep", 0.1,
                     "mousemove", x + 900, y + 300, "sleep", 0.1, "mouseup", 1)
        self.wait(lambda: sum(self.counts(program).values()) == 1, "the press to count")
        self.desktop.press("Escape", "Escape")

    def test_press_drag_release_gtk(self):
        self.check_press_drag_release("mousepad")

    def test_press_drag_release_qt(self):
        self.check_press_drag_release("featherpad")

    # What does not.

    def accessibility_connections(self):
        """How many connections the accessibility bus has had so far, ours included: it numbers
        them. Every look into another program takes one."""
        bus = connect(self.desktop.call("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus",
                                        "GetAddress")[0])
        return int(bus.get_unique_name().rpartition(".")[2])

    def test_other_clicks_cost_nothing(self):
        neighbour = self.neighbours["geany"]
        program = self.observe(self.items["geany"])
        neighbour.bring_to_front()
        x, y, width, height = self.desktop.geometry(neighbour.window)
        bar = neighbour.menu_bar().extents
        button = neighbour.tree().wait_for(role=Role.TOOL_BAR).find(role=Role.BUTTON)
        before = self.accessibility_connections()
        for place in ((x + width // 2, y + height // 2),  # the document
                      (bar[0] + bar[2] - 5, bar[1] + bar[3] // 2),  # the menu bar's empty end
                      (button.centre[0], button.centre[1]),
                      (self.desktop.size[0] - 3, self.desktop.size[1] - 3)):
            self.desktop.click(place)
            pause(0.2)
        self.assertEqual(self.accessibility_connections(), before + 1)
        self.expect_counts(program, {})
        # The check can fail: an open menu is looked into.
        neighbour.bring_to_front()
        self.desktop.click(neighbour.open_menu(self.items["geany"]))
        self.wait(lambda: self.counts(program), "the click to count")
        self.assertGreater(self.accessibility_connections(), before + 2)

    def test_own_windows_do_not_count(self):
        program = self.observe()
        window = program.window()
        self.desktop.press("F10", "Right", "Down")
        tree = self.desktop.application(program.process.pid)
        self.desktop.click(tree.wait_for("Kopírovat", Role.MENU_ITEM))
        window.wait_until_gone("Úpravy")
        self.desktop.wait_until_still()
        self.desktop.click(program.star("Vrátit zpět"))
        self.wait(lambda: "undo" in program.preferences().get("favorites", []), "the star")
        self.expect_counts(program, {})

    # On and off.

    def test_off_means_off(self):
        neighbour = self.neighbours["mousepad"]
        item = self.items["mousepad"]
        program = self.observe(item, smartSuggestions=False)

        def click_a_command():
            """Gives how many looks into other programs it cost."""
            neighbour.bring_to_front()
            element = neighbour.open_menu(item)
            before = self.accessibility_connections()
            self.desktop.click(element)
            pause(0.7)
            return self.accessibility_connections() - before - 1

        before = self.accessibility_connections()
        neighbour.bring_to_front()
        neighbour.open_menu(item)
        self.desktop.press("Escape")
        self.assertEqual(self.accessibility_connections(), before + 1)
        self.assertEqual(click_a_command(), 0)
        self.expect_counts(program, {})

        self.flip_suggestions(program, True)
        self.assertGreater(click_a_command(), 0)
        self.wait(lambda: sum(self.counts(program).values()) == 1, "the click to count")

        self.flip_suggestions(program, False)
        self.assertEqual(click_a_command(), 0)
        self.assertEqual(sum(self.counts(program).values()), 1)

    def flip_suggestions(self, program, on):
        self.assertEqual(program.start_again(), 0)
        window = program.window()
        self.desktop.click(window.wait_for("Nastavení", Role.BUTTON))
        sheet = window.wait_for("Nastavení", Role.DIALOG)
        self.desktop.click(sheet.wait_for(SMART, Role.CHECK_BOX))
        self.wait(lambda: sheet.find(SMART).checked == on, "the switch")
        self.desktop.press("Return")
        window.wait_until_gone("Nastavení", Role.DIALOG)

    def set_enabled(self, enabled):
        self.desktop.call("org.a11y.Bus", "/org/a11y/bus", "org.freedesktop.DBus.Properties",
                          "Set", GLib.Variant("(ssv)", ("org.a11y.Status", "IsEnabled",
                                                        GLib.Variant("b", enabled))))

    def test_permission_takes_effect_when_it_comes(self):
        neighbour = self.neighbours["mousepad"]
        item = self.items["mousepad"]
        neighbour.bring_to_front()
        self.addCleanup(self.set_enabled, True)
        self.set_enabled(False)
        program = self.start()
        program.wait_for_service()
        self.wait(program.windows, "its window")
        neighbour.bring_to_front()
        self.desktop.click(neighbour.open_menu(item))
        self.expect_counts(program, {})
        self.set_enabled(True)
        self.desktop.click(neighbour.open_menu(item))
        self.expect_counts(program, {"select-all": 1})


class ScaledObserverTest(ObserverCase):
    # From the top of a menu to its end; no word of them stands in the library. What is disabled
    # counts as well: it was meant.
    HARMLESS = {"mousepad": ["Zalamování řádku", "Režim prohlížeče", "Následující karta"],
                "linguist": ["Redo", "Select All", "Translation File Settings..."]}
    SUBMENU = {"mousepad": ("Typ souboru", "Čistý text"),
               "linguist": ("Toolbars", "Validation")}

    def check_scaled(self, kind, scale, **environment):
        """Each command counts as itself where a unit of the program is more than a pixel."""
        neighbour = Neighbour(self.desktop, kind, self.home / "scaled", **environment)
        self.addCleanup(neighbour.close)
        neighbour.bring_to_front()
        neighbour.tree()
        submenu, inside = self.SUBMENU[kind]
        program = self.observe(inside, *self.HARMLESS[kind])
        neighbour.bring_to_front()
        self.addCleanup(setattr, self.desktop.accessibility, "scale", 1)
        self.desktop.accessibility.scale = scale
        expected = {}
        for item in self.HARMLESS[kind]:
            self.desktop.click(neighbour.open_menu(item))
            expected[item] = 1
            self.expect_counts(program, expected)
            self.close_menus(neighbour)
        opening = neighbour.open_menu(submenu)
        self.desktop.click(opening)
        self.desktop.click(opening.wait_for(where=lambda element: (
            element.name.strip() == inside and element.extents[3] > 0)))
        self.expect_counts(program, {**expected, inside: 1})

    def close_menus(self, neighbour):
        def closed():
            self.desktop.press("Escape")
            return len(self.desktop.visible_windows(neighbour.window_class)) == 1

        self.wait(closed, "the menu to close")

    def test_scaled_gtk(self):
        self.check_scaled("mousepad", 2, GDK_SCALE="2")

    def test_scaled_qt(self):
        self.check_scaled("linguist", 2, QT_SCALE_FACTOR="2")

    def test_scaled_by_a_fraction_qt(self):
        self.check_scaled("linguist", 1.5, QT_SCALE_FACTOR="1.5")


if __name__ == "__main__":
    unittest.main()
