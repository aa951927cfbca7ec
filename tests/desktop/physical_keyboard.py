"""A PC keyboard of 105 keys, pressed key by key: which key gives a token depends on the layout."""

import subprocess

from virtual_desktop import DEADLINE

MODIFIERS = {"⌃": 37, "⌥": 64, "⇧": 50, "⌘": 133}
NUM_LOCK = 77
ESCAPE = "Escape"  # key 9, which xdotool would take for the digit
RETURN, F5, FORWARD_DELETE = 36, 71, 119
# These belong to the desktop.
PRINT, MUTE, LOUDER = 107, 121, 123

# What the keys are numbered by X, on every layout.
COMMON = {"Mezerník": 65, "Tab": 23, "Delete": 22, "Esc": ESCAPE, "F11": 95,
          "←": 113, "→": 114, "↑": 111, "↓": 116, ",": 59}
COMMON.update(zip("QWERT", range(24, 29)))
COMMON.update(zip("UIOP", range(30, 34)))
COMMON.update(zip("ASDFGHJKL", range(38, 47)))
COMMON.update(zip("XCVBNM", range(53, 59)))

DIGITS = dict(zip("1234567890", range(10, 20)))

LAYOUTS = {
    # The plus needs Shift on the main block, so the number pad's is taken.
    "us": {"Y": 29, "Z": 52, "−": 20, "+": 86, **DIGITS},
    # The number row writes digits only with Shift; without it the number pad's zero is taken.
    "cz": {"Z": 29, "Y": 52, "−": 61, "+": 10, **DIGITS, "0": 90},
}


class PhysicalKeyboard:
    def __init__(self, desktop, layout):
        self._desktop = desktop
        self._keys = COMMON | LAYOUTS.get(layout, LAYOUTS["us"])
        desktop.output(["setxkbmap", layout])

    def chord(self, *keys):
        """Presses keys one after another and lets go of them the other way round."""
        self._act([("keydown", key) for key in keys] + [("keyup", key) for key in reversed(keys)])

    def hold(self, *keys):
        self._act([("keydown", key) for key in keys])

    def release(self, *keys):
        self._act([("keyup", key) for key in keys])

    def _act(self, steps):
        command = [str(word) for step in steps for word in step]
        if command:
            subprocess.run(["xdotool", *command], env=self._desktop.environment, check=True,
                           timeout=DEADLINE)

    def press(self, tokens):
        """Presses what a shortcut asks for, as far as this keyboard can: it has no Fn key."""
        self.chord(*(MODIFIERS.get(token) or self._keys[token]
                     for token in tokens.split() if token != "Fn"))

    def tap(self, key):
        self.chord(key)
