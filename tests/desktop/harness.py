"""What the desktop tests stand on: the real program on a virtual desktop, looked at through the
accessibility tree as a screen reader does, and used with keys and pointer as a person does.

One test process has one desktop; each test has a home folder of its own and starts the program
itself.
"""

import ctypes
import enum
import os
import pathlib
import plistlib
import shutil
import signal
import subprocess
import sys
import time
import unittest
from xml.parsers.expat import ExpatError

from gi.repository import Gio, GLib

import sanitizers
from virtual_desktop import DEADLINE, VirtualDesktop, wait_until

APPLICATION_ID = "cz.hmatnik.Hmatnik"
WINDOW_CLASS = "hmatnik"
LARGEST_ICON = 64  # pixels high
# What XDG_CURRENT_DESKTOP says where the toolkit lets Return press a button, as Space does.
RETURN_PRESSES_BUTTONS = ("GNOME", "XFCE", "MATE", "X-Cinnamon")
REPOSITORY = pathlib.Path(__file__).resolve().parents[2]
PROGRAM = pathlib.Path(os.environ.get("HMATNIK_PROGRAM", REPOSITORY / "build/release/hmatnik"))
FAILURES = pathlib.Path(os.environ.get("HMATNIK_FAILURES", PROGRAM.parent / "failures"))


class Role(enum.IntEnum):
    """The numbers that AT-SPI2 gives to the roles we meet; any other number stays a number."""

    ALERT = 2
    CHECK_BOX = 7
    DIALOG = 16
    FRAME = 23
    LABEL = 29
    LIST = 31
    LIST_ITEM = 32
    MENU = 33
    MENU_BAR = 34
    MENU_ITEM = 35
    PANEL = 39
    BUTTON = 43
    TEXT = 61
    TOGGLE_BUTTON = 62
    TOOL_BAR = 63
    WINDOW = 69
    APPLICATION = 75
    HEADING = 83
    NOTIFICATION = 101


class State(enum.IntEnum):
    """The bits of an AT-SPI2 state set."""

    ACTIVE = 1
    CHECKED = 4
    EDITABLE = 7
    ENABLED = 8
    FOCUSABLE = 11
    FOCUSED = 12
    SELECTABLE = 22
    SELECTED = 23
    SENSITIVE = 24
    SHOWING = 25
    VISIBLE = 30


class Accessibility:
    """The accessibility bus, spoken to directly: a library in between would cache answers and
    serve events while we ask."""

    REGISTRY = "org.a11y.atspi.Registry"
    ROOT = "/org/a11y/atspi/accessible/root"

    def __init__(self, address):
        self._bus = connect(address)
        # The toolkit's bridge tells lengths in units of its layout, not in dots of the screen.
        self.scale = 1

    def call(self, service, path, interface, method, arguments=None, deadline=DEADLINE):
        return self._bus.call_sync(service, path, interface, method, arguments, None,
                                   Gio.DBusCallFlags.NONE, int(deadline * 1000), None).unpack()

    def call_all(self, calls):
        """Sends calls (service, path, interface, method, arguments) without waiting in between and
        gives the answers in their order, None for one that failed: asking for a whole tree one by
        one would take seconds on a busy machine."""
        answers = [None] * len(calls)
        open_calls = set(range(len(calls)))

        def answered(bus, result, index):
            open_calls.discard(index)
            try:
                answers[index] = bus.call_finish(result).unpack()
            except GLib.Error:
                pass  # gone since we heard of it

        for index, call in enumerate(calls):
            self._bus.call(*call, None, Gio.DBusCallFlags.NONE, int(DEADLINE * 1000), None,
                           answered, index)
        while open_calls:
            GLib.MainContext.default().iteration(True)
        return answers

    def process_of(self, service):
        return self.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                         "GetConnectionUnixProcessID", GLib.Variant("(s)", (service,)))[0]

    def applications(self):
        """The root elements of all programs that have an accessibility tree, by registration."""
        return Element(self, self.REGISTRY, self.ROOT).children


class Element:
    """One element of an accessibility tree, read afresh at every question."""

    ACCESSIBLE = "org.a11y.atspi.Accessible"

    def __init__(self, accessibility, service, path):
        self._accessibility = accessibility
        self.service = service
        self.path = path

    def __repr__(self):
        role = self.role
        return f"{role.name.lower() if isinstance(role, Role) else role} {self.name!r}"

    def __eq__(self, other):
        return (isinstance(other, Element)
                and (self.service, self.path) == (other.service, other.path))

    def __hash__(self):
        return hash((self.service, self.path))

    def _call(self, interface, method, arguments=None):
        return self._accessibility.call(self.service, self.path, interface, method, arguments)

    def _property(self, name, interface=ACCESSIBLE):
        return self._call("org.freedesktop.DBus.Properties", "Get",
                          GLib.Variant("(ss)", (interface, name)))[0]

    @property
    def name(self):
        return self._property("Name")

    @property
    def description(self):
        return self._property("Description")

    @property
    def role(self):
        number = self._call(self.ACCESSIBLE, "GetRole")[0]
        return Role(number) if number in Role._value2member_map_ else number

    @property
    def parent(self):
        return Element(self._accessibility, *self._property("Parent"))

    @property
    def children(self):
        return [Element(self._accessibility, *child)
                for child in self._call(self.ACCESSIBLE, "GetChildren")[0]]

    @property
    def states(self):
        low, high = self._call(self.ACCESSIBLE, "GetState")[0]
        bits = low | high << 32
        return {state for state in State if bits >> state & 1}

    @property
    def text(self):
        """What stands in a text field."""
        return self._call("org.a11y.atspi.Text", "GetText", GLib.Variant("(ii)", (0, -1)))[0]

    def write(self, text):
        """Puts the text in place of what stands in a text field."""
        if not self._call("org.a11y.atspi.EditableText", "SetTextContents",
                          GLib.Variant("(s)", (text,)))[0]:
            raise AssertionError(f"{self!r} took no text")

    def press(self):
        """Acts as an assistive technology does; comes back when the program has done it."""
        interface = "org.a11y.atspi.Action"
        # Since Qt 6.8 the first one can be that which only moves the keyboard there.
        number = next((number for number, (name, *_)
                       in enumerate(self._call(interface, "GetActions")[0]) if name != "SetFocus"), 0)
        if not self._call(interface, "DoAction", GLib.Variant("(i)", (number,)))[0]:
            raise AssertionError(f"{self!r} refused")

    @property
    def extents(self):
        """x, y, width and height on the screen, in its dots."""
        extents = self._call("org.a11y.atspi.Component", "GetExtents", GLib.Variant("(u)", (0,)))[0]
        return tuple(round(self._accessibility.scale * length) for length in extents)

    @property
    def centre(self):
        x, y, width, height = self.extents
        return x + width // 2, y + height // 2

    @property
    def checked(self):
        return State.CHECKED in self.states

    @property
    def selected(self):
        return State.SELECTED in self.states

    @property
    def focused(self):
        return State.FOCUSED in self.states

    @property
    def showing(self):
        return State.SHOWING in self.states

    def walk(self):
        """(element, name, role) of this element and all that are showing below it, level by
        level; within a level in the tree's order."""
        level = [self]
        while level:
            answers = self._accessibility.call_all([call for element in level for call in (
                (element.service, element.path, "org.freedesktop.DBus.Properties", "Get",
                 GLib.Variant("(ss)", (self.ACCESSIBLE, "Name"))),
                (element.service, element.path, self.ACCESSIBLE, "GetRole", None),
                (element.service, element.path, self.ACCESSIBLE, "GetState", None),
                (element.service, element.path, self.ACCESSIBLE, "GetChildren", None))])
            below = []
            for index, element in enumerate(level):
                name, role, states, children = answers[4 * index:4 * index + 4]
                if None in (name, role, states, children):
                    continue
                if element is not self and not states[0][0] >> State.SHOWING & 1:
                    continue
                yield element, name[0], role[0]
                below += [Element(self._accessibility, *child) for child in children[0]]
            level = below

    def find_all(self, name=None, role=None, where=None):
        """The elements below this one of that name and role for which `where` answers true."""
        found = []
        for element, its_name, its_role in self.walk():
            if name not in (None, its_name) or role not in (None, its_role):
                continue
            try:
                if where is None or where(element):
                    found.append(element)
            except GLib.Error:
                continue  # gone since we asked for it
        return found

    def find(self, name=None, role=None, where=None):
        """The first such element, or None."""
        found = self.find_all(name, role, where)
        return found[0] if found else None

    def wait_for(self, name=None, role=None, where=None, deadline=DEADLINE):
        """The first such element as soon as it is there."""
        return wait_until(lambda: self.find(name, role, where),
                          f"{role.name if role else 'element'} {name!r}", deadline)

    def wait_until_gone(self, name=None, role=None, where=None, deadline=DEADLINE):
        wait_until(lambda: not self.find(name, role, where), f"{name!r} to go", deadline)

    def tree(self, depth=0):
        """The showing tree as text, for messages."""
        states = " ".join(state.name.lower() for state in sorted(self.states))
        lines = ["  " * depth + f"{self!r} {self.description!r} [{states}]"]
        lines += [child.tree(depth + 1) for child in self.children if child.showing]
        return "\n".join(lines)


def connect(address):
    """A connection of our own to a message bus."""
    return Gio.DBusConnection.new_for_address_sync(
        address, Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
        | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)


class Desktop(VirtualDesktop):
    """A virtual desktop in Czech with a person who has an assistive technology on."""

    def _start(self):
        super()._start()
        self.reports = self.directory / "reports"
        self.reports.mkdir()
        self.environment.update(LANG="cs_CZ.UTF-8", LANGUAGE="cs")
        self.environment = {key: value for key, value in self.environment.items()
                            if not key.startswith("LC_")}
        self._make_czech_locale()
        self.bus = connect(self.environment["DBUS_SESSION_BUS_ADDRESS"])
        self.connect_accessibility()

    def connect_accessibility(self):
        """Starts the accessibility bus if it is not there, and switches it on."""
        self.call("org.a11y.Bus", "/org/a11y/bus", "org.freedesktop.DBus.Properties", "Set",
                  GLib.Variant("(ssv)", ("org.a11y.Status", "IsEnabled",
                                         GLib.Variant("b", True))))
        self.accessibility = Accessibility(
            self.call("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress")[0])

    def _make_czech_locale(self):
        """A machine need not have the Czech locale: a compiled one in our own folder will do."""
        if "cs_CZ.utf8" in self.output(["locale", "-a"]).split():
            return
        folder = self.directory / "locale"
        folder.mkdir()
        subprocess.run(["localedef", "-i", "cs_CZ", "-f", "UTF-8", str(folder / "cs_CZ.UTF-8")],
                       check=True, stdout=subprocess.DEVNULL)
        self.environment["LOCPATH"] = str(folder)

    def call(self, service, path, interface, method, arguments=None):
        """A D-Bus call on the session bus; gives the unpacked answer."""
        answer = self.bus.call_sync(service, path, interface, method, arguments, None,
                                    Gio.DBusCallFlags.NONE, int(DEADLINE * 1000), None)
        return answer.unpack()

    def has_owner(self, name):
        return self.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                         "NameHasOwner", GLib.Variant("(s)", (name,)))[0]

    def application(self, process_id, accessibility=None):
        """The accessibility tree of a process; waits until it has one with a window in it. A
        process can register twice: the one with something in it is taken. `accessibility` is the
        bus of another session than ours."""
        bus = accessibility or self.accessibility

        def registered():
            for candidate in bus.applications():
                try:
                    if (bus.process_of(candidate.service) == process_id
                            and candidate.children):
                        return candidate
                except GLib.Error:
                    continue
            return None

        return wait_until(registered, f"the accessibility tree of process {process_id}")

    # The keyboard and the pointer.

    def press(self, *keys):
        """Presses key combinations one after another, as xdotool names them: "ctrl+q"."""
        subprocess.run(["xdotool", "key", "--clearmodifiers", *keys], env=self.environment,
                       check=True, timeout=DEADLINE)

    def type(self, text):
        subprocess.run(["xdotool", "type", "--delay", "20", text], env=self.environment,
                       check=True, timeout=DEADLINE)

    def move_pointer(self, x, y):
        subprocess.run(["xdotool", "mousemove", str(x), str(y)], env=self.environment, check=True,
                       timeout=DEADLINE)

    def click(self, element):
        """Clicks the middle of an element, or a point (x, y)."""
        point = None
        # An element can move while the pointer is on its way: a layout settles, a list grows.
        while point != (aim := element.centre if isinstance(element, Element) else element):
            self.move_pointer(*aim)
            point = aim
        subprocess.run(["xdotool", "click", "1"], env=self.environment, check=True,
                       timeout=DEADLINE)

    # Windows.

    def selection_owner(self, name):
        """X11's id of the window that owns a selection, 0 if none does."""
        library = ctypes.CDLL("libX11.so.6")
        library.XOpenDisplay.restype = ctypes.c_void_p
        display = ctypes.c_void_p(library.XOpenDisplay(self.environment["DISPLAY"].encode()))
        library.XInternAtom.restype = library.XGetSelectionOwner.restype = ctypes.c_ulong
        atom = ctypes.c_ulong(library.XInternAtom(display, name.encode(), False))
        owner = library.XGetSelectionOwner(display, atom)
        library.XCloseDisplay(display)
        return owner

    def geometry(self, window):
        """x, y, width and height of a window's contents on the screen; nothing but zeros if it has
        gone, as one does that is made anew."""
        values = {}
        for line in self.output(["xwininfo", "-id", str(window)]).splitlines():
            label, _, value = line.strip().partition(":")
            values[label] = value.strip()
        return tuple(int(values.get(label, 0)) for label in
                     ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height"))

    def height(self, window):
        """Height of a window's contents; 0 if it has gone."""
        return self.geometry(window)[3]

    def property(self, window, name):
        """A window's property as xprop prints it."""
        return self.output(["xprop", "-id", str(window), name]).strip()

    def active_window(self):
        answer = self.output(["xdotool", "getactivewindow"]).strip()
        return int(answer) if answer.isdigit() else None

    def work_area(self):
        """x, y, width and height of the screen without panels, as the window manager tells."""
        numbers = self.output(["xprop", "-root", "_NET_WORKAREA"]).partition("=")[2].split(",")
        return tuple(int(number) for number in numbers[:4])

    def bring_to_front(self, window):
        """Makes the window active that `window` gives. Asks again if another one, just opened,
        has come in between."""

        def in_front():
            wanted = window()
            if self.active_window() == wanted:
                return True
            self.output(["xdotool", "windowactivate", str(wanted)])
            return False

        wait_until(in_front, "the window in front", pause=0.2)

    def resize(self, window, width, height):
        """Waits for the X server; for the program, see Hmatnik.resize()."""
        subprocess.run(["xdotool", "windowsize", str(window), str(width), str(height)],
                       env=self.environment, check=True, timeout=DEADLINE)
        wait_until(lambda: self.geometry(window)[2:] == (width, height), "the window's size")

    def move(self, window, x, y):
        """Waits until the window has left its place, if it has to."""
        subprocess.run(["xdotool", "windowmove", "--sync", str(window), str(x), str(y)],
                       env=self.environment, check=True, timeout=DEADLINE)


class Settings:
    """The desktop's settings portal, as far as it tells how programs should look; a program of its
    own, because it has to answer while the test waits."""

    LIGHT, DARK, NO_PREFERENCE = 2, 1, 0

    def __init__(self, desktop, scheme=LIGHT):
        script = pathlib.Path(__file__).with_name("settings_portal.py")
        self._process = desktop.spawn([sys.executable, str(script)], stdin=subprocess.PIPE,
                                      text=True)
        self.set(scheme)
        wait_until(lambda: desktop.has_owner("org.freedesktop.portal.Desktop"),
                   "the settings portal")

    def set(self, scheme):
        self._tell("color-scheme", scheme)

    def set_high_contrast(self, on):
        self._tell("contrast", int(on))

    def _tell(self, key, value):
        self._process.stdin.write(f"{key} {value}\n")
        self._process.stdin.flush()

    def close(self):
        self._process.stdin.close()
        self._process.wait(DEADLINE)


class Hmatnik:
    """The program while it runs, with its main window."""

    COMMAND = (str(PROGRAM),)

    def __init__(self, desktop, home, environment=None, command=COMMAND):
        self.desktop = desktop
        self.home = pathlib.Path(home)
        self.environment = dict(
            desktop.environment, HOME=str(home), XDG_CONFIG_HOME=str(self.home / ".config"),
            XDG_DATA_HOME=str(self.home / ".local/share"), XDG_CACHE_HOME=str(self.home / ".cache"),
            XDG_STATE_HOME=str(self.home / ".local/state"),
            **sanitizers.environment(desktop.reports), **(environment or {}))
        self.command = command
        self.launched_before = self._launched_before()
        self.process = desktop.spawn(list(command), env=self.environment)

    @property
    def preferences_file(self):
        return self.home / ".config/hmatnik" / f"{APPLICATION_ID}.plist"

    def preferences(self):
        with open(self.preferences_file, "rb") as stream:
            return plistlib.load(stream)

    def _launched_before(self):
        try:
            return self.preferences().get("hasLaunchedBefore") is True
        except (OSError, ValueError, plistlib.InvalidFileException, ExpatError):
            return False

    def wait_for_service(self):
        """Until it answers over the bus, or has ended. It has its name before all the rest, and
        answers when that is there."""
        wait_until(lambda: not self.running or self.desktop.has_owner(APPLICATION_ID),
                   "the program on the bus")
        if self.running:
            self.desktop.call(APPLICATION_ID, "/cz/hmatnik/Hmatnik",
                              "org.freedesktop.DBus.Introspectable", "Introspect")

    def reopen(self):
        """Asks the running program for its main window, as a launcher does."""
        self.wait_for_service()
        self.desktop.call(APPLICATION_ID, "/cz/hmatnik/Hmatnik", "org.freedesktop.Application",
                          "Activate", GLib.Variant("(a{sv})", ({},)))

    @property
    def running(self):
        return self.process.poll() is None

    def windows(self):
        """Ids of the windows on the screen; an icon in a tray is a window too, and left out."""
        return [window for window in self.desktop.visible_windows(WINDOW_CLASS)
                if self.desktop.height(window) > LARGEST_ICON]

    def window_id(self):
        """X11's id of the main window, as soon as it is on the screen."""

        def shown():
            if not self.running:
                raise AssertionError(f"the program ended with status {self.process.returncode}")
            windows = self.windows()
            return windows[0] if windows else None

        return wait_until(shown, "the main window")

    def window(self):
        """The main window in the accessibility tree, painted and active."""
        self.window_id()
        # Asked for again each time: a window of the run before can live on for a moment.
        wait_until(lambda: self.desktop.active_window() in self.windows(),
                   "the main window to be active")
        return self.desktop.application(self.process.pid).wait_for("Hmatník", Role.FRAME)

    def resize(self, width, height):
        """Gives the main window that size and waits until the program knows about it: what it
        tells of places on the screen before that is no longer true."""
        window = self.window_id()
        frame = self.window()
        self.desktop.resize(window, width, height)
        wait_until(lambda: frame.extents == self.desktop.geometry(window),
                   "the program to notice its window's size")

    def start_again(self):
        """Starts the program once more and gives the second process's exit status."""
        # Whichever process comes first serves the other.
        self.wait_for_service()
        return subprocess.run(list(self.command), env=self.environment, check=False,
                              stdin=subprocess.DEVNULL, timeout=DEADLINE).returncode

    def terminate(self, number=signal.SIGTERM):
        if self.running:
            self.process.send_signal(number)
        self.process.wait(DEADLINE)

    def tree(self):
        """All its windows in the accessibility tree."""
        return self.desktop.application(self.process.pid)

    # The top bar.

    def overlay_button(self):
        """The button that bears the name of the application in front."""
        tree = self.tree()
        importer = tree.wait_for("Import z menu", Role.BUTTON)
        return tree.wait_for(role=Role.BUTTON, where=lambda element: (
            element.extents[1] == importer.extents[1]
            and element.extents[0] < importer.extents[0]))

    def toggle_overlay(self):
        """Presses that button as an assistive technology does, which leaves the program in front
        where it is."""
        self.overlay_button().press()

    def wait_for_application(self, name):
        """Waits until the top bar names that application as the one in front."""
        seen = []

        def named():
            seen[:] = [self.overlay_button().name]
            return seen == [name]

        try:
            wait_until(named, "the name")
        except AssertionError:
            raise AssertionError(f"the overlay button reads {seen}, not {name!r}") from None

    # The library.

    def search_field(self):
        return self.window().wait_for("Hledat…", where=lambda element: State.EDITABLE in element.states)

    def cards(self):
        """The cards on the screen by title, in reading order."""
        cards = []
        for grid in self.window().find_all("Zkratky", Role.LIST):
            cards += [(name, element) for element, name, role in grid.walk()
                      if role == Role.LIST_ITEM]
        boxes = self.desktop.accessibility.call_all([
            (element.service, element.path, "org.a11y.atspi.Component", "GetExtents",
             GLib.Variant("(u)", (0,))) for _, element in cards])
        # By centres, because a card under the pointer is a little larger than its neighbours.
        placed = sorted(
            ((y + height / 2, x + width / 2, card) for ((x, y, width, height),), card in (
                (box, card) for box, card in zip(boxes, cards) if box)),
            key=lambda entry: entry[0])
        rows = []
        for y, x, card in placed:
            if not rows or y - rows[-1][0] > 40:
                rows.append((y, []))
            rows[-1][1].append((x, card))
        return dict(card for _, row in rows for _, card in sorted(row, key=lambda entry: entry[0]))

    def star(self, title):
        return wait_until(lambda: self.cards().get(title), f"the card {title!r}").wait_for(
            "Oblíbené", Role.CHECK_BOX)

    def row(self, name):
        """A row of the sidebar."""
        return self.window().wait_for(name, where=is_row)

    def wait_for_cards(self, *titles):
        """Waits until exactly these cards are on the screen."""
        shown = []

        def right():
            shown[:] = self.cards()
            return shown == list(titles)

        try:
            wait_until(right, "the cards")
        except AssertionError:
            raise AssertionError(f"cards are {shown}, not {list(titles)}") from None


def is_row(element):
    return State.SELECTABLE in element.states


class DesktopTestCase(unittest.TestCase):
    """Gives each test a home folder of its own and ends what it started; a test that fails leaves
    a picture."""

    SCREEN = (1920, 1200)
    WINDOW_MANAGER = Desktop.WINDOW_MANAGER

    @classmethod
    def setUpClass(cls):
        cls.desktop = Desktop(*cls.SCREEN, cls.WINDOW_MANAGER)
        cls.enterClassContext(cls.desktop)

    def setUp(self):
        self.home = self.desktop.directory / f"home-{self._testMethodName}"
        self.home.mkdir()
        self.addCleanup(shutil.rmtree, self.home, True)
        self._started = []
        self.addCleanup(self._end_all)

    def start(self, opened=True, **environment):
        """Starts the program with the home folder of this test. Unless `opened` is false the main
        window opens, on a later start than the first because the program is asked to re-open."""
        program = Hmatnik(self.desktop, self.home, environment)
        self._started.append(program)
        if opened and program.launched_before:
            program.reopen()
        return program

    def spawn(self, *command, **environment):
        """Starts somebody else's program with the home folder of this test."""
        settings = dict(self.desktop.environment, HOME=str(self.home),
                        XDG_CONFIG_HOME=str(self.home / ".config"),
                        XDG_DATA_HOME=str(self.home / ".local/share"), **environment)
        process = self.desktop.spawn(list(command), env=settings, stdout=subprocess.DEVNULL,
                                     stderr=subprocess.DEVNULL)
        self.addCleanup(end, process)
        return process

    def wait(self, condition, what, deadline=DEADLINE):
        return wait_until(condition, what, deadline)

    def _end_all(self):
        if self._failed():
            FAILURES.mkdir(parents=True, exist_ok=True)
            picture = FAILURES / f"{self.id()}.png"
            self.desktop.screenshot(picture)
            print(f"Picture of the failure: {picture}", file=sys.stderr)
            print(self.desktop.describe_windows(), file=sys.stderr)
        for program in self._started:
            if program.running:
                program.terminate()
            elif program.process.returncode < 0 and program.process.returncode not in (
                    -signal.SIGTERM, -signal.SIGKILL):
                self.fail(f"the program died of signal {-program.process.returncode}")
        if reports := sanitizers.take_reports(self.desktop.reports):
            self.fail("\n".join(reports))

    def _failed(self):
        outcome = self._outcome
        result = outcome.result
        return any(test is self for test, _ in result.failures + result.errors) or any(
            error for _, error in getattr(outcome, "errors", []) if error)


def end(process):
    if process.poll() is None:
        process.terminate()
    process.wait(DEADLINE)


def write_preferences(home, values):
    """Puts a preferences file in place before the program starts."""
    file = pathlib.Path(home) / ".config/hmatnik" / f"{APPLICATION_ID}.plist"
    file.parent.mkdir(parents=True, exist_ok=True)
    with open(file, "wb") as stream:
        plistlib.dump(values, stream, fmt=plistlib.FMT_XML)


def pause(seconds):
    """For the rare case that there is nothing to wait for: that something does not happen."""
    time.sleep(seconds)
