"""Programs of others that the tests act on, started as a person starts them."""

import json
import pathlib
import subprocess
import sys

from harness import Role, end
from virtual_desktop import DEADLINE, wait_until

PROGRAM_CHANGED = 75  # how menu_listing.py ends then

OFFICE_SETTINGS = """<?xml version="1.0" encoding="UTF-8"?>
<oor:items xmlns:oor="http://openoffice.org/2001/registry">
<item oor:path="/org.openoffice.Office.Common/Misc"><prop oor:name="ShowTipOfTheDay" oor:op="fuse">
<value>false</value></prop></item>
</oor:items>
"""


def write_office_settings(home):
    """Spares the office its window of advice."""
    folder = home / ".config/libreoffice/4/user"
    folder.mkdir(parents=True)
    (folder / "registrymodifications.xcu").write_text(OFFICE_SETTINGS)


class Neighbour:
    """A program of others with a window of its own."""

    # Command, window class, extra environment, what to prepare in the home folder.
    KINDS = {
        "mousepad": (["mousepad", "--disable-server"], "mousepad", {}, None),
        "geany": (["geany", "--new-instance"], "geany", {}, None),
        "featherpad": (["featherpad", "--standalone"], "featherpad", {}, None),
        "writer": (["soffice", "--writer", "--norestore", "--nologo"], "libreoffice-writer",
                   {"SAL_USE_VCLPLUGIN": "gtk3"}, write_office_settings),
        "linguist": (["/usr/lib/qt6/bin/linguist"], "linguist", {}, None),
    }

    def __init__(self, desktop, kind, home, *arguments, **more):
        """Starts it with those arguments, and `more` in its environment."""
        self._desktop = desktop
        command, self.window_class, environment, prepare = self.KINDS[kind]
        home = pathlib.Path(home)
        home.mkdir(parents=True, exist_ok=True)
        if prepare:
            prepare(home)
        settings = dict(desktop.environment, HOME=str(home), XDG_CONFIG_HOME=str(home / ".config"),
                        XDG_DATA_HOME=str(home / ".local/share"),
                        XDG_CACHE_HOME=str(home / ".cache"), **environment, **more)
        self.starter = desktop.spawn(command + list(arguments), env=settings,
                                     stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def _window_and_process(self):
        managed = self._desktop.output(["xprop", "-root", "_NET_CLIENT_LIST"])
        for window in self._desktop.visible_windows(self.window_class):
            if f"{window:#x}" not in managed.replace(",", " ").split():
                continue  # a menu or a tooltip
            # A window that is only just being made has no process yet.
            owner = self._desktop.property(window, "_NET_WM_PID").rpartition("=")[2].strip()
            if owner.isdigit():
                return window, int(owner)
        return None

    @property
    def window(self):
        return wait_until(self._window_and_process, self.window_class, 2 * DEADLINE)[0]

    @property
    def process(self):
        """The process that has the window; an office starts it for us."""
        return wait_until(self._window_and_process, self.window_class, 2 * DEADLINE)[1]

    def tree(self):
        return self._desktop.application(self.process)

    def bring_to_front(self):
        self._desktop.bring_to_front(lambda: self.window)

    def menu_bar(self):
        """The menu bar that takes up room: an office has a second one that nobody sees."""
        return wait_until(
            lambda: self.tree().find(role=Role.MENU_BAR,
                                     where=lambda bar: bar.extents[3] > 0 and bar.children),
            "the menu bar")

    def menu_with(self, item):
        """The title in the menu bar under which an item of that name stands directly."""

        def names(element, depth):
            for child in element.children:
                yield child.name.strip()
                if not child.name and depth:  # what only groups
                    yield from names(child, depth - 1)

        for title in self.menu_bar().children:
            if item in names(title, 1):
                return title
        raise AssertionError(f"no menu has {item!r}")

    def open_menu(self, item):
        """Clicks a menu open and gives the item of that name."""
        title = self.menu_with(item)
        self._desktop.click(title)
        return wait_until(
            lambda: title.find(where=lambda element: element.name.strip() == item
                               and element.showing and element.extents[3] > 0),
            f"the item {item!r}")

    def list_menu(self):
        """(title, key binding, number of children) of its whole menu bar, children before their
        parent, read by another client."""
        script = pathlib.Path(__file__).with_name("menu_listing.py")

        def listing():
            answer = subprocess.run([sys.executable, str(script), str(self.process)],
                                    env=self._desktop.environment, stdin=subprocess.DEVNULL,
                                    stdout=subprocess.PIPE, check=False, timeout=DEADLINE)
            if answer.returncode == PROGRAM_CHANGED:
                return None
            answer.check_returncode()
            return json.loads(answer.stdout)

        return [tuple(entry) for entry in wait_until(listing, "a menu bar that stays as it is")]

    def close(self):
        end(self.starter)
