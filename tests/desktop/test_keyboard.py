"""Everything can be reached and used by keyboard alone, and the focus can be seen."""

import unittest

from harness import DesktopTestCase, Role, State


class KeyboardTest(DesktopTestCase):
    def setUp(self):
        super().setUp()
        self.program = self.start()
        self.window = self.program.window()

    def focus(self):
        """What has the keyboard, innermost."""
        focused = self.window.find_all(where=lambda element: element.focused
                                       and element.role != Role.FRAME)
        return focused[-1] if focused else None

    def stops(self, key, most=60):
        """The elements that a key leads to, in order, until the round is complete."""
        seen = []
        for _ in range(most):
            before = self.focus()
            self.desktop.press(key)
            self.wait(lambda: self.focus() not in (None, before), f"{key} to move the focus")
            now = self.focus()
            if now in seen:
                return seen
            seen.append(now)
        self.fail(f"no end after {most} stops: {seen}")

    def test_tab_reaches_everything(self):
        forward = self.stops("Tab")
        names = [element.name for element in forward]
        for name in ("Hledat…", "Import z menu", "⌘", "⌥", "⇧", "⌃", "Fn", "Přidat vlastní",
                     "Nastavení", "Všechny zkratky", "Kopírovat"):
            self.assertIn(name, names)
        backward = [element.name for element in self.stops("shift+Tab")]
        self.assertCountEqual(names, backward)

    def test_focus_can_be_seen(self):
        for _ in range(6):
            before = self.focus()
            self.desktop.press("Tab")
            self.wait(lambda: self.focus() not in (None, before), "the focus to move")
            element = self.focus()
            self.desktop.wait_until_still()
            with_focus = self.around(element)
            self.desktop.press("Tab")
            self.wait(lambda: not element.focused, "the focus to leave")
            self.desktop.wait_until_still()
            without = self.around(element)
            self.desktop.press("shift+Tab")
            self.wait(lambda: element.focused, "the focus to come back")
            changed = sum(1 for a, b in zip(with_focus, without) if abs(a - b) > 40)
            self.assertGreater(changed, 60, f"no visible focus on {element!r}")

    def around(self, element, margin=5):
        """The screen's bytes in and around an element."""
        x, y, width, height = element.extents
        screen_width, _, pixels = self.desktop.pixels()
        rows = []
        for row in range(y - margin, y + height + margin):
            start = 3 * (row * screen_width + max(0, x - margin))
            rows.append(pixels[start:start + 3 * (width + 2 * margin)])
        return b"".join(rows)

    def test_typing_finds_without_a_pointer(self):
        for _ in range(60):
            if State.EDITABLE in getattr(self.focus(), "states", ()):
                break
            before = self.focus()
            self.desktop.press("Tab")
            self.wait(lambda: self.focus() not in (None, before), "the focus to move")
        self.desktop.type("zkop")
        self.program.wait_for_cards("Kopírovat", "Výřez do schránky")

    def go_to(self, name):
        for _ in range(60):
            focus = self.focus()
            if focus is not None and focus.name == name:
                return focus
            self.desktop.press("Tab")
            self.wait(lambda: self.focus() not in (None, focus), "the focus to move")
        return self.fail(f"Tab never reaches {name}")

    def test_filter_by_keyboard(self):
        pill = self.go_to("Fn")
        self.desktop.press("space")
        self.wait(lambda: pill.checked, "the pill to be checked")
        self.program.wait_for_cards("Zobrazit plochu")

    def test_star_by_keyboard(self):
        self.go_to("Kopírovat")
        self.desktop.press("Right", "Right")
        self.wait(lambda: self.focus().name == "Vrátit zpět", "the third card")
        self.desktop.press("space")
        self.wait(lambda: self.program.star("Vrátit zpět").checked, "the star")
        self.assertIn("undo", self.program.preferences()["favorites"])

    def test_sidebar_by_keyboard(self):
        self.go_to("Všechny zkratky")
        self.desktop.press("Down")
        self.wait(lambda: self.focus().name == "Oblíbené", "the next row")
        if not self.focus().selected:
            self.desktop.press("space")
        self.program.wait_for_cards("Kopírovat", "Vložit", "Spotlight", "Vyfotit výřez")


if __name__ == "__main__":
    unittest.main()
