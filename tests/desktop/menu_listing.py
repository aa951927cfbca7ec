"""Lists the menu bar of a process as an assistive technology sees it, by a client that shares no
code with the program: one JSON array of [title, key binding, number of children], children before
their parent. A program of its own, because the library behind it keeps answers.

    menu_listing.py PROCESS

Ends with 75 if the program changed while it was looked through: then ask again.
"""

import json
import sys

import pyatspi
from gi.repository import GLib

DEPTH_OF_MENU_BARS = 6
CHANGED = 75  # EX_TEMPFAIL of sysexits.h


def windows_of(process):
    for application in pyatspi.Registry.getDesktop(0):
        try:
            if application is not None and application.get_process_id() == process:
                yield from (window for window in application if window is not None)
        except GLib.Error:
            continue  # gone since we heard of it


def menu_bars(element, depth=0):
    if element.getRole() == pyatspi.ROLE_MENU_BAR:
        yield element
    elif depth < DEPTH_OF_MENU_BARS:
        for child in element:
            if child is not None:
                yield from menu_bars(child, depth + 1)


def is_on_screen(element):
    extents = element.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    return extents.width > 0 and extents.height > 0


def entries(element):
    children = [child for child in element if child is not None]
    for child in children:
        yield from entries(child)
    try:
        binding = element.queryAction().getKeyBinding(0)
    except (NotImplementedError, GLib.Error):
        binding = ""  # a separator; Qt hands out some that it does not know itself
    yield element.name, binding, len(children)


def main():
    bars = [bar for window in windows_of(int(sys.argv[1])) for bar in menu_bars(window)]
    best = max(bars, key=lambda bar: (bar.childCount > 0, is_on_screen(bar)))
    json.dump(list(entries(best)), sys.stdout, ensure_ascii=False)


if __name__ == "__main__":
    try:
        main()
    except GLib.Error as gone:
        print(gone, file=sys.stderr)
        sys.exit(CHANGED)
