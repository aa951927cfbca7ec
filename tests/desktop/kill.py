"""Kills the real program at random moments while a person changes favourites, own shortcuts and
counts without a pause, and looks each time at what is left on the disk.

    kill.py [N [SEED]]

Most runs have an ordinary disk, some one that fails at a random step, some one that is full. The
last line tells the seed, with which the same moments can be chosen again, and what was found; the
exit status is 0 only if nothing was lost and every kind of disk was tried.
"""

import collections
import json
import os
import pathlib
import plistlib
import random
import secrets
import signal
import subprocess
import sys
import tempfile
import threading
import time

from gi.repository import GLib

from disks import Disk, FailingDisk, NoSmallDisk, SmallDisk
from harness import APPLICATION_ID, Desktop, Hmatnik, Role, write_preferences
from shortcuts import SHORTCUTS
from virtual_desktop import wait_until

NEIGHBOUR = "Hostile"
# The two commands in the menu that is always open, which the person has as own shortcuts, and where.
COUNTED = {"Sudá volba": (20, 1010), "Lichá volba": (20, 1045)}
EVEN, ODD = COUNTED
IMPORTED = ("První odjinud", "Druhá odjinud", "Třetí odjinud")
DEFAULT_FAVOURITES = ("copy", "paste", "spotlight", "shot-area")
TEMPORARY = f".{APPLICATION_ID}.plist.new-*"
IDS = {title: identifier for identifier, (title, _) in SHORTCUTS.items()}

# Seconds from the first change, or from the start of the program, to the kill.
LONGEST_CHANGING = 0.3
LONGEST_STARTING = 0.35


class Gone(Exception):
    """The program has ended while something was expected of it."""


class Loss(Exception):
    """What is on the disk is not what must be there."""


# What a person can lose: the ids of the favourites, the titles of the own shortcuts in their order,
# and how often each command was chosen.
State = collections.namedtuple("State", "favourites titles counts")


def read_state(file):
    """What the preferences hold; raises Loss if they can't be read or are not whole."""
    try:
        values = plistlib.loads(file.read_bytes(), fmt=plistlib.FMT_XML)
        records = json.loads(values["customShortcuts"])
        if values["hasLaunchedBefore"] is not True:
            raise ValueError("it says that the program never ran")
        if any(not all(record[key] for key in ("id", "title", "keys", "category", "detail"))
               for record in records):
            raise ValueError("a shortcut is incomplete")
        return State(frozenset(values["favorites"]), tuple(entry["title"] for entry in records),
                     tuple(values["usageCounts"].get(title, 0) for title in COUNTED))
    except Exception as problem:
        raise Loss(f"the file is not whole: {problem!r}") from problem


class Person:
    """Somebody who changes things through the accessibility tree, and knows what must be kept."""

    def __init__(self, desktop, disk, chooser, detail="Z menu."):
        self._desktop = desktop
        self._random = chooser
        self.disk = disk
        self.file = disk.home / ".config/hmatnik" / f"{APPLICATION_ID}.plist"
        self._detail = detail
        self._begin()
        self.changes = 0
        # Called before and after a change is made.
        self.before_change = lambda: None
        self.after_change = lambda: None
        self._number = 0
        self.program = None
        self._tree = None
        self._window = None
        self._stars = {}

    def _begin(self):
        records = [{"id": title, "title": title, "keys": ["⌘", "K"], "category": "Základy",
                    "apps": [NEIGHBOUR], "detail": self._detail} for title in COUNTED]
        write_preferences(self.disk.home, {
            "hasLaunchedBefore": True, "favorites": list(DEFAULT_FAVOURITES),
            "customShortcuts": json.dumps(records).encode(), "usageCounts": {}})
        self.state = read_state(self.file)
        # What may be on the disk: the state that must be, and later ones.
        self.possible = [self.state]

    # The program.

    def start(self):
        mount_point = getattr(self.disk, "mount_point", self.disk.home)
        self.program = Hmatnik(self._desktop, mount_point, self.disk.environment,
                               (*self.disk.prefix, *Hmatnik.COMMAND))
        return self.program.process

    def open_window(self):
        """Opens the main window and finds it in the accessibility tree."""
        self._soon(lambda: self._desktop.has_owner(APPLICATION_ID), "the program on the bus")
        self.program.reopen()
        self._tree = self._soon(self._application, "the accessibility tree")
        self._window = self._soon(lambda: self._tree.find("Hmatník", Role.FRAME), "the main window")

    def _application(self):
        accessibility = self._desktop.accessibility
        for candidate in accessibility.applications():
            try:
                if (accessibility.process_of(candidate.service) == self.program.process.pid
                        and candidate.children):
                    return candidate
            except GLib.Error:
                continue  # one that was killed before
        return None

    def _soon(self, condition, what):
        """Gives the condition's first true answer, unless the program is gone."""

        def happened():
            answer = condition()
            if not answer and not self.program.running:
                raise Gone(what)
            return answer

        return wait_until(happened, what, pause=0.003)

    def _press_button(self, name, inside=None):
        self._soon(lambda: (inside or self._window).find(name, Role.BUTTON), name).press()

    # The changes; those without a name of what is changed have no end.

    def _change(self, act, **fields):
        """Makes a change that comes back when it has been done."""
        changed = self.state._replace(**fields)
        self.possible.append(changed)
        self.disk.starts_change()
        self.before_change()
        act()
        self.state = changed
        self.changes += 1
        if self.disk.kept_change():
            self.possible = [changed]
        self.after_change()

    def find_stars(self):
        """The stars on the screen by the ids of their shortcuts."""
        stars = self._soon(lambda: self._window.find_all("Oblíbené", Role.CHECK_BOX), "the stars")
        self._stars = {IDS[star.parent.name]: star for star in stars}
        self._expect(self.shown_favourites(), self.state.favourites & set(self._stars), "the stars")
        return list(self._stars)

    def shown_favourites(self):
        return {identifier for identifier, star in self._stars.items() if star.checked}

    def toggle(self, identifier):
        self._change(lambda: self._stars[identifier].press(),
                     favourites=self.state.favourites ^ {identifier})

    def change_favourites(self):
        identifiers = self.find_stars()
        while True:
            self.toggle(self._random.choice(identifiers))

    def change_shortcuts(self):
        parts = [self._delete, self._import, self._add]
        # No more than one that was typed, or the list would grow from kill to kill.
        if set(self.state.titles) <= {*COUNTED, *IMPORTED}:
            for _ in range(self._random.randrange(len(parts))):
                parts.append(parts.pop(0))
        while True:
            for part in parts:
                part()

    def change_counts(self):
        """The commands are chosen in turns, so that each choice changes the first tip."""
        self._press_button(NEIGHBOUR)
        heading = self._soon(lambda: self._tree.find("Nejlepší zkratky právě teď"), "the floating panel")
        panel = heading.parent

        def first_tip():
            tip = panel.find(role=Role.LIST_ITEM)
            return tip and tip.name

        def leader(counts):
            return EVEN if counts[0] >= counts[1] else ODD

        self._soon(first_tip, "the tips")
        self._expect(first_tip(), leader(self.state.counts), "the first tip")
        while True:
            even, odd = self.state.counts
            chosen, counts = (ODD, (even, odd + 1)) if even >= odd else (EVEN, (even + 1, odd))

            def choose():
                subprocess.run(["xdotool", "mousemove", *map(str, COUNTED[chosen]), "click", "1"],
                               env=self._desktop.environment, check=True)
                self._soon(lambda: first_tip() == leader(counts), "the choice to count")

            self._change(choose, counts=counts)

    def _import(self):
        missing = tuple(title for title in IMPORTED if title not in self.state.titles)
        if not missing:
            return
        titles = self.state.titles + missing

        def see():
            self._press_button("Import z menu")
            settings = self._open_settings()
            self._soon(lambda: self._see_all(settings, titles), "the imported shortcuts")
            self._close(settings)

        self._change(see, titles=titles)

    def _delete(self):
        settings = self._open_settings()
        # Those out of sight are made when there is time.
        try:
            self._soon(lambda: self._see_all(settings, self.state.titles), "the own shortcuts")
        except AssertionError:
            self._expect(sorted(self._all_rows(settings)), sorted(self.state.titles),
                         "the own shortcuts")
        # All that were typed, and some that were imported.
        doomed = [title for title in self.state.titles if title not in COUNTED
                  and (title not in IMPORTED or self._random.random() < 0.6)]
        for title in doomed:
            row = self._soon(lambda: self._all_rows(settings, title).get(title), title)
            self._change(lambda: row.press(),
                         titles=tuple(kept for kept in self.state.titles if kept != title))
        self._close(settings)

    def _add(self):
        self._number += 1
        title = f"Vlastní {self._number}"
        self._press_button("Přidat vlastní")
        editor = self._soon(lambda: self._window.find("Přidat vlastní zkratku", Role.DIALOG), "the editor")
        for field, text in (("Název", title), ("Klávesy (oddělte +)", "ctrl + k")):
            self._soon(lambda: editor.find(field, Role.TEXT), field).write(text)
        self._change(lambda: self._press_button("Přidat", editor),
                     titles=self.state.titles + (title,))
        self._soon(lambda: not self._window.find(role=Role.DIALOG), "the editor to close")

    def _open_settings(self):
        self._press_button("Nastavení")
        return self._soon(lambda: self._window.find("Nastavení", Role.DIALOG), "the settings")

    def _close(self, sheet):
        self._press_button("Hotovo", sheet)
        self._soon(lambda: not self._window.find(role=Role.DIALOG), "the settings to close")

    @staticmethod
    def _rows(settings):
        """The buttons that delete own shortcuts, by title; the rows that are ready out of sight
        have them too."""
        own = settings.find("Vlastní zkratky", Role.LIST)
        buttons = [button for row in (own.children if own else ()) for button in row.children]
        return {button.description: button for button in buttons if button.name == "Smazat"}

    def _all_rows(self, settings, wanted=None):
        """The same of the whole list, or of as much as it takes to find a title: only the rows in
        sight and a few below exist, so the wheel is turned to its end and back."""
        rows = self._rows(settings)
        own = settings.find("Vlastní zkratky", Role.LIST)
        for button in ("5", "4") if own else ():
            if wanted in rows:
                break
            subprocess.run(["xdotool", "mousemove", *map(str, own.centre),
                            "click", "--repeat", "5", "--delay", "1", button],
                           env=self._desktop.environment, check=True)
            rows |= self._rows(settings)
        return rows

    def _see_all(self, settings, titles):
        """Whether the list shows these titles and no other."""
        return set(self._rows(settings)) == set(titles) or \
            set(self._all_rows(settings)) == set(titles)

    @staticmethod
    def _expect(shown, expected, what):
        if shown != expected:
            raise Loss(f"{what} show {shown} after the start, not {expected}")

    # What is left.

    def look(self):
        """Compares the file with what may be in it; from then on what is in it counts."""
        damaged = list(self.file.parent.glob("*.damaged-*"))
        for file in damaged:
            file.unlink()
        if damaged:
            raise Loss(f"the program took its file for damaged: {damaged}")
        try:
            found = read_state(self.file)
        except Loss:
            self._begin()
            raise
        possible, self.state, self.possible = self.possible, found, [found]
        if found not in possible:
            raise Loss(f"found {found},\n  must be one of {possible}")

    def leftovers(self):
        """Temporary files of writes that a kill ended, by their sizes."""
        return [file.stat().st_size for file in self.file.parent.glob(TEMPORARY)]


class Kills:
    """A row of runs on one desktop, and what came of them."""

    def __init__(self, desktop, seed):
        self._desktop = desktop
        # One that only chooses the moments, so that a seed chooses the same again.
        self._random = random.Random(seed)
        self._other_random = random.Random(seed)
        self.kills = collections.Counter()
        self.changes = 0
        self.while_changing = 0
        self.while_writing = 0
        self.losses = []

    def run(self, person, kind):
        """Starts the program, changes things, kills it, and looks."""
        killed = threading.Event()
        changes_before = person.changes
        # Those of favourites follow each other fastest.
        change = self._random.choice((person.change_favourites, person.change_favourites,
                                      person.change_shortcuts, person.change_counts))
        is_early = self._random.random() < 0.1
        moment = self._random.uniform(0, LONGEST_STARTING if is_early else LONGEST_CHANGING)
        process = person.start()

        def kill():
            killed.set()
            process.kill()

        timer = threading.Timer(moment, kill)
        started = iter([timer.start])
        person.before_change = lambda: next(started, lambda: None)()
        person.after_change = lambda: person.disk.may_fail(self._other_random)
        if is_early:
            person.before_change()
        problem = None
        try:
            person.open_window()
            if any(person.leftovers()):
                raise Loss(f"temporary files pile up: {person.leftovers()} bytes")
            change()
        except Loss as loss:
            problem = loss
        except Exception as failure:
            # The program vanishes under our hands, whatever we are doing.
            if not killed.is_set():
                problem = failure
        timer.cancel()
        if timer.ident:
            timer.join()
        process.kill()
        process.wait()
        self.kills[kind] += 1
        self.changes += person.changes - changes_before
        self.while_changing += person.changes > changes_before
        self.while_writing += bool(person.leftovers())
        person.disk.recover()
        try:
            person.look()
        except Loss as loss:
            problem = loss
        if problem:
            self.losses.append(f"kill {self.kills.total()}, {kind} disk, {change.__name__}: "
                               f"{problem!r}")
            print(self.losses[-1], file=sys.stderr, flush=True)

    def run_all(self, count, disks, report=lambda: None):
        """`disks` are kinds, each with how often it is taken and its disk; `report` is called now
        and then."""
        people = {kind: Person(self._desktop, disk, self._other_random)
                  for kind, (_, disk) in disks.items()}
        kinds = [kind for kind, (weight, _) in disks.items() for _ in range(weight)]
        for number in range(count):
            kind = kinds[number % len(kinds)]
            self.run(people[kind], kind)
            if number % 100 == 99:
                report()
        for kind, person in people.items():
            self._expect_no_leftovers(person, kind)

    def _expect_no_leftovers(self, person, kind):
        """What a start leaves lie is empty, and goes when it is old."""
        for file in person.file.parent.glob(TEMPORARY):
            os.utime(file, (1000, 1000))
        process = person.start()
        person.open_window()
        process.kill()
        process.wait()
        if person.leftovers():
            self.losses.append(f"{kind} disk: temporary files stay")

    def summary(self, seed):
        kinds = ", ".join(f"{count} on the {kind} disk" for kind, count in self.kills.items())
        return (f"seed {seed}: {self.kills.total()} kills ({kinds}), {self.changes} changes, "
                f"{self.while_changing} kills after a change in the same run, {self.while_writing} "
                f"in the middle of a write, {len(self.losses)} losses")


def start_neighbour(desktop):
    """Another program in front, with a menu that is always open."""
    script = pathlib.Path(__file__).with_name("hostile_menus.py")
    address = desktop.call("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress")[0]
    neighbour = desktop.spawn([sys.executable, str(script), address, "always_open"],
                              stdout=subprocess.PIPE, text=True)
    if neighbour.stdout.readline() != "registered\n":
        raise AssertionError("the other program did not start")
    window = wait_until(lambda: desktop.visible_windows(NEIGHBOUR), "the other program's window")[0]
    desktop.bring_to_front(lambda: window)
    return neighbour


def main(count, seed):
    begun = time.monotonic()
    with tempfile.TemporaryDirectory(prefix="hmatnik-kill-") as folder, Desktop() as desktop:
        with start_neighbour(desktop).stdout:
            home = pathlib.Path(folder)
            disks = {"ordinary": (6, Disk(home / "ordinary")),
                     "failing": (2, FailingDisk(home / "failing"))}
            not_tried = None
            try:
                disks["full"] = (2, SmallDisk(home / "full", desktop))
            except NoSmallDisk as reason:
                not_tried = reason
            kills = Kills(desktop, seed)
            try:
                kills.run_all(count, disks, lambda: print(kills.summary(seed), flush=True))
            finally:
                for _, disk in disks.values():
                    disk.close()
    seconds = time.monotonic() - begun
    print(f"{seconds:.0f} s, {seconds / count:.2f} s a kill")
    if not_tried:
        print(f"NOT TRIED: a full disk, because the system lets us mount none: {not_tried}")
    print(kills.summary(seed))
    return 1 if kills.losses or not_tried else 0


if __name__ == "__main__":
    # So that everything is put away.
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    sys.exit(main(int(sys.argv[1]) if len(sys.argv) > 1 else 1000,
                  int(sys.argv[2]) if len(sys.argv) > 2 else secrets.randbelow(10**9)))
