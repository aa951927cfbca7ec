"""Uses one process of the program for long, and looks for what grows: its memory, its descriptors and
threads, what it holds of the X server, and what it asked the message buses to be told of.

    soak.py [SCALE [KIND…]]

A whole soak is 100,000 searches, 10,000 changes of the screen, 1,000 imports and 10,000 times the
overlay shown or hidden, in ten equal parts of ten rounds; SCALE takes that part of each, KIND only
some of "searches", "screens", "imports", "overlays". A round has some of each kind, as a person's
hour has, and ends with the person turning to the other program; then what is held is counted.
Memory may be 2 % more after the last part than after the first; of the rest nothing may be more.

How much the heap holds besides what is in use depends on where its gaps happen to lie: from one
round to the next it goes up and down by a hundredth of the whole. So the memory after a part is the
median after its last rounds. And it depends on what came before: the gaps that one kind leaves are
filled by the next. Once the kinds have followed each other some times, it stays as it is.
"""

import collections
import itertools
import json
import pathlib
import signal
import statistics
import subprocess
import sys
import tempfile
import time

from gi.repository import GLib

from harness import (APPLICATION_ID, PROGRAM, Desktop, Hmatnik, Role, State, is_row,
                     write_preferences)
from neighbours import Neighbour
from virtual_desktop import DEADLINE, wait_until

X_RESOURCES = PROGRAM.parent / "tests/hmatnik_x_resources"
PARTS = 10
ROUNDS = 10  # of a part
ROUNDS_FOR_MEMORY = 5  # the last of a part
WHOLE = {"searches": 100_000, "screens": 10_000, "imports": 1_000, "overlays": 10_000}
MEMORY_TOLERANCE = 1.02
WORDS = ("kopirovat", "okno", "text", "schranka", "zpet", "snimek", "prohlizec", "finder", "xx", "a")
WORDS_AT_ONCE = 4
# What was imported is deleted, so that it is new again, after so many imports.
IMPORTS_BETWEEN_DELETIONS = 20
# Long enough for a frame: a panel that is hidden at once would never be painted.
SECONDS_ON_SCREEN = 0.004
# The program is at rest when it has used no processor time for so long.
SECONDS_OF_REST = 0.5
# A thread that waits for more work to come ends after half a minute, and with it what it holds.
SECONDS_TO_LET_GO = 45

Holding = collections.namedtuple("Holding", "memory counts")


def soon(condition, what):
    return wait_until(condition, what, pause=0.002)


class Soak:
    """A person who never tires, and the one process that is used."""

    def __init__(self, desktop, home):
        self._desktop = desktop
        write_preferences(home, {"hasLaunchedBefore": True})
        self._neighbour = Neighbour(desktop, "mousepad", home / "other")
        self._neighbour.bring_to_front()
        self._neighbour.tree()
        self.program = Hmatnik(desktop, home)
        self.program.reopen()
        window = self.program.window()
        self._tree = desktop.application(self.program.process.pid)
        self._window = window
        self._search = self.program.search_field()
        self._rows = window.find_all(where=is_row)
        self._import = window.find("Import z menu", Role.BUTTON)
        self._overlay = window.find("Mousepad", Role.BUTTON)
        self._words = itertools.cycle(WORDS)
        # Each row after each other, in turns of different length.
        self._screens = itertools.cycle(
            row for step in (1, 3, 5) for row in (self._rows[(step * number) % len(self._rows)]
                                                  for number in range(len(self._rows))))
        self.done = collections.Counter()

    # What is done, each so often.

    def search(self, times):
        """Types words letter by letter and takes them back; each key is a search of its own."""
        self._rows[0].press()
        self._desktop.click(self._search)
        soon(lambda: self._search.focused, "the keyboard in the search field")
        left = times
        while left > 0:
            keys, last = [], ""
            for _ in range(WORDS_AT_ONCE):
                keys += ["BackSpace"] * len(last)
                last = next(self._words)
                keys += last
            left -= len(keys) + len(last)
            for part, text in ((keys, last), (["BackSpace"] * len(last), "")):
                subprocess.run(["xdotool", "key", "--delay", "0", *part], check=True,
                               env=self._desktop.environment, timeout=DEADLINE)
                soon(lambda: self._search.text == text, f"{text!r} in the search field")
        self.done["searches"] += times - left

    def change_screen(self, times):
        for _ in range(times):
            row = next(self._screens)
            row.press()
            if not row.selected:
                raise AssertionError(f"{row!r} is not selected")
        self.done["screens"] += times
        self._rows[0].press()

    def import_menus(self, times):
        for _ in range(times):
            if self.done["imports"] % IMPORTS_BETWEEN_DELETIONS == 0:
                self._delete_imported()
            self._import.press()
            soon(lambda: self._import.name == "Import z menu", "the import")
            self.done["imports"] += 1
        if not self._window.find(role=Role.ALERT):
            raise AssertionError("no import told of its end")

    def toggle_overlay(self, times):
        shown = False
        for _ in range(times):
            self._overlay.press()
            shown = not shown
            if shown:
                time.sleep(SECONDS_ON_SCREEN)
        if shown:
            self._overlay.press()
        self.done["overlays"] += times

    ACTS = {"searches": search, "screens": change_screen, "imports": import_menus,
            "overlays": toggle_overlay}

    def _delete_imported(self):
        stored = json.loads(self.program.preferences().get("customShortcuts", b"[]"))
        if not stored:
            return
        self._window.wait_for("Nastavení", Role.BUTTON).press()
        sheet = soon(lambda: self._window.find("Nastavení", Role.DIALOG), "the settings")
        for _ in stored:
            soon(lambda: sheet.find("Smazat", Role.BUTTON), "a shortcut to delete").press()
        soon(lambda: not sheet.find("Smazat", Role.BUTTON), "an empty list")
        sheet.find("Hotovo", Role.BUTTON).press()
        soon(lambda: not self._window.find(role=Role.DIALOG), "the settings to close")

    # What is held.

    def turn_to_the_program(self):
        self.program.reopen()
        self.program.window()

    def look(self):
        """What is held once the person has turned to something else and the program is at rest."""
        self._neighbour.bring_to_front()
        self._rest()
        process = self.program.process.pid
        return Holding(self._private_memory(process), {
            "descriptors": len(list(pathlib.Path(f"/proc/{process}/fd").iterdir())),
            "threads": len(list(pathlib.Path(f"/proc/{process}/task").iterdir())),
            **self._x_resources(process), **self._bus("session bus", self._desktop.call),
            **self._bus("accessibility bus", self._desktop.accessibility.call)})

    def _rest(self):
        def ticks():
            stat = pathlib.Path(f"/proc/{self.program.process.pid}/stat").read_text()
            return stat.rpartition(")")[2].split()[11:13]

        def still():
            before = ticks()
            time.sleep(SECONDS_OF_REST)
            return ticks() == before

        wait_until(still, "the program at rest")

    @staticmethod
    def _private_memory(process):
        """KiB that the process has written to and shares with nobody: others don't disturb it."""
        for line in pathlib.Path(f"/proc/{process}/smaps_rollup").read_text().splitlines():
            if line.startswith("Private_Dirty:"):
                return int(line.split()[1])
        raise AssertionError("no Private_Dirty in smaps_rollup")

    def _x_resources(self, process):
        lines = subprocess.run([str(X_RESOURCES), str(process)], check=True, text=True,
                               stdout=subprocess.PIPE, env=self._desktop.environment).stdout
        return {f"X {kind}": int(count) for kind, count in
                (line.split("\t") for line in lines.splitlines())}

    def _bus(self, name, call):
        """Connections of the program to a message bus, and the match rules of all of them."""
        def ask(interface, method, *arguments):
            return call("org.freedesktop.DBus", "/org/freedesktop/DBus", interface, method,
                        *arguments)[0]

        counts = {f"{name}: connections": 0, f"{name}: match rules": 0}
        for connection in ask("org.freedesktop.DBus", "ListNames"):
            if not connection.startswith(":"):
                continue
            argument = GLib.Variant("(s)", (connection,))
            try:
                if ask("org.freedesktop.DBus", "GetConnectionUnixProcessID",
                       argument) != self.program.process.pid:
                    continue
                rules = ask("org.freedesktop.DBus.Debug.Stats", "GetConnectionStats",
                            argument)["MatchRules"]
            except GLib.Error:
                continue  # disconnected meanwhile
            counts[f"{name}: connections"] += 1
            counts[f"{name}: match rules"] += rules
        return counts


def grown_counts(first, last):
    """What is held more often than it may be."""
    return [f"{what}: {first.counts.get(what, 0)} → {count}"
            for what, count in last.counts.items() if count > first.counts.get(what, 0)]


def run(desktop, home, shares, parts, rounds, report):
    """Uses one process for so many equal parts of so many rounds; `shares` is how often each kind of
    thing is done in one round. Gives what was held after the first part and after the last."""
    soak = Soak(desktop, home)
    try:
        first = held = None
        for number in range(parts):
            begun = time.monotonic()
            memory = []
            for _ in range(rounds):
                soak.turn_to_the_program()
                for kind, count in shares.items():
                    soak.ACTS[kind](soak, count)
                held = soak.look()
                memory.append(held.memory)
            held = held._replace(memory=statistics.median(memory[-ROUNDS_FOR_MEMORY:]))
            first = first or held
            rules = sum(count for what, count in held.counts.items() if "rules" in what)
            report(f"part {number + 1:2}: {held.memory} KiB, {held.counts['descriptors']} "
                   f"descriptors, {held.counts['X WINDOW']} windows, {rules} match rules; "
                   f"{time.monotonic() - begun:.0f} s; KiB round by round: "
                   + " ".join(map(str, memory)))
        end = time.monotonic() + SECONDS_TO_LET_GO
        while grown_counts(first, held) and time.monotonic() < end:
            held = soak.look()._replace(memory=held.memory)
    finally:
        # The next one that is started would otherwise only wake this one.
        soak.program.terminate()
    report(", ".join(f"{count} {what}" for what, count in soak.done.items()))
    return first, held


def main(scale, kinds):
    shares = {kind: max(1, round(scale * WHOLE[kind] / PARTS / ROUNDS)) for kind in kinds}
    with tempfile.TemporaryDirectory(prefix="hmatnik-soak-") as folder, Desktop() as desktop:
        first, last = run(desktop, pathlib.Path(folder), shares, PARTS, ROUNDS,
                          lambda line: print(line, flush=True))
    print("at the end: " + ", ".join(f"{what} {count}" for what, count in last.counts.items()))
    print(f"memory of the last part / of the first: {last.memory / first.memory:.4f} "
          f"(at most {MEMORY_TOLERANCE})")
    grown = grown_counts(first, last)
    if last.memory > MEMORY_TOLERANCE * first.memory:
        grown.append(f"memory: {first.memory} → {last.memory} KiB")
    for what in grown:
        print(f"GROWN: {what}")
    return 1 if grown else 0


if __name__ == "__main__":
    # So that everything is put away.
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    sys.exit(main(float(sys.argv[1]) if len(sys.argv) > 1 else 1.0, sys.argv[2:] or list(WHOLE)))
