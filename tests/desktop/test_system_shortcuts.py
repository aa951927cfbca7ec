"""The desktop's own shortcuts, read from the settings services that desktops use."""

import gettext
import json
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import unittest

from gi.repository import GLib

from harness import (APPLICATION_ID, DEADLINE, PROGRAM, DesktopTestCase, Role, State,
                     pause, write_preferences)
from physical_keyboard import PhysicalKeyboard
from virtual_desktop import PATIENCE, descendants

READER = PROGRAM.with_name("hmatnik-desktop-shortcuts")
COMMAND = "Načíst zkratky plochy"
NOBODY = "Aktivní aplikaci se nepodařilo načíst. Přepněte do ní a zkuste import znovu."
UNREADABLE = "Menu aktivní aplikace není dostupné nebo neobsahuje zkratky."
MEDIA_KEYS = "org/gnome/settings-daemon/plugins/media-keys"
NOTHING_NEW = "V nastavení plochy nebyly nalezeny žádné nové zkratky."
# What a person takes for at once.
AT_ONCE = 2 * PATIENCE  # seconds

XFCE_PATH = "xfce4/xfconf/xfce-perchannel-xml/xfce4-keyboard-shortcuts.xml"
XFCE_FILE = """<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-keyboard-shortcuts" version="1.0">
  <property name="xfwm4" type="empty"><property name="custom" type="empty">
    <property name="override" type="bool" value="true"/>
    <property name="&lt;Super&gt;q" type="string" value="close_window_key"/>
  </property></property>
</channel>
"""
OPENBOX_FILE = """<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc"><keyboard>
  <keybind key="W-q"><action name="Close"/></keybind>
</keyboard></openbox_config>
"""
EXPECTED_LIBRARY = (
    pathlib.Path(__file__).parents[1] / "unit/model/expected-desktop-library.tsv")
KDE_FILE = ("[kwin]\n_k_friendly_name=KWin\n"
            "Window Close=Meta+Q,Alt+F4,Zavřít okno\nWindow Move=none,none,Přesunout okno\n")


def kde_service():
    """KDE's shortcut service, of its fifth or sixth version."""
    found = shutil.which("kglobalaccel5")
    return found or str(next(pathlib.Path("/usr/lib").glob("*/libexec/kglobalacceld")))


def is_running(process):
    try:
        status = pathlib.Path(f"/proc/{process}/stat").read_text()
    except OSError:
        return False
    return status.rpartition(")")[2].split()[0] not in "ZX"


class SystemShortcutsTest(DesktopTestCase):
    def write(self, path, text):
        file = self.home / ".config" / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_bytes(text if isinstance(text, bytes) else text.encode())

    def settings(self):
        return dict(self.desktop.environment, HOME=str(self.home),
                    XDG_CONFIG_HOME=str(self.home / ".config"), GSETTINGS_BACKEND="keyfile")

    def read(self, desktop):
        """What the program that reads the settings answers, by action; none if it fails. What has
        no keys is remembered."""
        answer = subprocess.run([READER, desktop], env=self.settings(), check=False,
                                stdout=subprocess.PIPE, stdin=subprocess.DEVNULL, timeout=DEADLINE)
        if answer.returncode == 1:
            return None
        answer.check_returncode()
        settings = json.loads(answer.stdout)
        self.without_keys = set(settings["withoutKeys"])
        return {shortcut["id"]: shortcut for shortcut in settings["shortcuts"]}

    def settings_file(self, text):
        self.write("glib-2.0/settings/keyfile", text)

    # GNOME.

    def test_gnome_defaults_in_the_persons_language(self):
        shortcuts = self.read("gnome")
        close = shortcuts["gnome:org.gnome.desktop.wm.keybindings/close"]
        self.assertEqual((close["title"], close["keys"]), ("Zavřít okno", ["⌥", "F4"]))
        # From the lists of the settings program, of the window manager and of the shell.
        titles = {name.removeprefix("gnome:org.gnome."): shortcut["title"]
                  for name, shortcut in shortcuts.items()}
        self.assertEqual(titles["settings-daemon.plugins.media-keys/logout"], "Odhlásit se")
        self.assertEqual(titles["mutter.keybindings/toggle-tiled-left"],
                         self.translated("mutter", "View split on left"))
        self.assertEqual(titles["shell.keybindings/show-screenshot-ui"],
                         self.translated("gnome-shell", "Take a screenshot interactively"))
        # In no list.
        self.assertEqual(titles["mutter.keybindings/switch-monitor"],
                         self.translated("mutter", "Switch monitor configurations"))
        kinds = {name: shortcut["kind"] for name, shortcut in shortcuts.items()}
        self.assertEqual(kinds["gnome:org.gnome.shell.keybindings/show-screenshot-ui"], 3)

    def translated(self, catalogue, text):
        czech = gettext.translation(catalogue, "/usr/share/locale", ["cs"]).gettext(text)
        self.assertNotEqual(czech, text)
        return czech

    def test_gnome_as_the_person_has_set_it(self):
        self.settings_file(
            "[org/gnome/desktop/wm/keybindings]\nclose=['<Super>q', '<Alt>F4']\n"
            "minimize=@as []\nmaximize=['disabled']\n"
            f"[{MEDIA_KEYS}]\ncustom-keybindings=['/a/', 'nonsense', '/b//c/', '/d/']\n"
            "[a]\nname='Poznámky'\ncommand='mousepad'\nbinding='<Super>n'\n"
            "[d]\nname='Nic'\ncommand='x'\nbinding=''\n")
        shortcuts = self.read("gnome")
        schema = "gnome:org.gnome.desktop.wm.keybindings/"
        self.assertEqual(shortcuts[schema + "close"]["keys"], ["⌘", "Q"])
        for key in ("minimize", "maximize"):
            self.assertNotIn(schema + key, shortcuts)
            self.assertIn(schema + key, self.without_keys)
        self.assertNotIn(schema + "close", self.without_keys)
        self.assertEqual(shortcuts["gnome:/a/"]["title"], "Poznámky")
        self.assertEqual(shortcuts["gnome:/a/"]["keys"], ["⌘", "N"])
        self.assertNotIn("gnome:/d/", shortcuts)

    def test_gnome_with_ten_thousand_and_with_nonsense(self):
        paths = [f"/c{number}/" for number in range(10_100)]
        self.settings_file(
            f"[{MEDIA_KEYS}]\ncustom-keybindings={paths}\n" + "".join(
                f"[c{number}]\nname='Příkaz {number}'\nbinding='<Super>F{number % 12 + 1}'\n"
                for number in range(10_100)))
        shortcuts = self.read("gnome")
        self.assertEqual(len(shortcuts), 10_000)
        self.settings_file(b"[org/gnome/desktop/wm/keybindings]\nclose=['\xff\xfe']\n\x00\x01[")
        self.assertIn("gnome:org.gnome.desktop.wm.keybindings/close", self.read("gnome"))

    # KDE.

    def test_kde_by_its_service_and_without_it(self):
        self.write("kglobalshortcutsrc", KDE_FILE)
        in_file = self.read("kde")
        self.assertEqual(in_file["kde:kwin/Window Close"]["keys"], ["⌘", "Q"])
        service = self.spawn(kde_service(), XDG_CURRENT_DESKTOP="KDE")
        self.wait(lambda: self.desktop.has_owner("org.kde.kglobalaccel"), "the service")
        # It may know more of what the file holds than its names, and says them itself.
        self.assertIn("kde:kwin/Window Move", self.without_keys, "of the file")
        from_service = self.read("kde")
        self.assertIn("kde:kwin/Window Move", self.without_keys, "of the service")
        self.assertEqual(from_service["kde:kwin/Window Close"]["keys"], ["⌘", "Q"])
        self.assertEqual(from_service["kde:kwin/Window Close"]["title"], "Zavřít okno")
        self.assertNotIn("kde:kwin/Window Move", from_service)
        # Silent, it is given up for the file.
        os.kill(service.pid, signal.SIGSTOP)
        self.addCleanup(os.kill, service.pid, signal.SIGCONT)
        self.assertEqual(self.read("kde"), in_file)

    def test_kde_without_anything(self):
        self.assertIsNone(self.read("kde"))

    def start_service(self, behaviour):
        """Takes the place of KDE's shortcut service."""
        script = pathlib.Path(__file__).with_name("shortcut_service.py")
        self.spawn(sys.executable, str(script), behaviour)
        self.wait(lambda: self.desktop.has_owner("org.kde.kglobalaccel"), "the service")

    def test_kde_service_that_lies(self):
        self.start_service("other-types")
        self.assertIsNone(self.read("kde"))

    def test_kde_service_that_tells_nonsense(self):
        self.start_service("nonsense")
        shortcuts = self.read("kde")
        # Of the ten thousand that are taken, one has too long a name.
        self.assertEqual(len(shortcuts), 9_999)
        self.assertEqual(self.without_keys, {"kde:/", "kde:liar/none", "kde:liar/zero"})
        self.assertEqual(shortcuts["kde:liar/0"]["title"], "Okno nové" + 191 * "x")
        self.assertTrue(all(shortcut["keys"] == ["⌘", "A"] for shortcut in shortcuts.values()))

    # Xfce.

    def test_xfce_by_its_service_and_without_it(self):
        self.write(XFCE_PATH, XFCE_FILE)
        in_file = self.read("xfce")
        self.assertEqual(in_file["xfce:xfwm4/close_window_key"]["keys"], ["⌘", "Q"])
        # The person's own are in force, and have nothing for what the desktop comes with.
        self.assertIn("xfce:xfwm4/hide_window_key", self.without_keys)
        self.assertNotIn("xfce:xfwm4/close_window_key", self.without_keys)
        self.assertNotIn("xfce:commands/xflock4", self.without_keys)
        without_keys = self.without_keys
        service = next(pathlib.Path("/usr/lib").glob("*/xfce4/xfconf/xfconfd"))
        xfconfd = self.spawn(str(service))
        self.wait(lambda: self.desktop.has_owner("org.xfce.Xfconf"), "the service")
        self.assertEqual(self.read("xfce"), in_file)
        self.assertEqual(self.without_keys, without_keys)
        # Silent, it is given up for the file.
        self.wait(lambda: self.desktop.has_owner("org.xfce.Xfconf"), "the service")
        os.kill(xfconfd.pid, signal.SIGSTOP)
        self.addCleanup(os.kill, xfconfd.pid, signal.SIGCONT)
        self.assertEqual(self.read("xfce"), in_file)

    def test_xfce_with_a_file_that_is_none(self):
        self.write(XFCE_PATH, b"\xff\xfe<channel")
        shortcuts = self.read("xfce")
        self.assertEqual(shortcuts["xfce:xfwm4/close_window_key"]["keys"], ["⌥", "F4"],
                         "as the desktop comes")

    # Openbox.

    def test_openbox_as_it_comes_and_as_the_person_has_set_it(self):
        self.assertEqual(self.read("openbox")["openbox:Close"]["keys"], ["⌥", "F4"])
        self.write("openbox/rc.xml", OPENBOX_FILE)
        self.assertEqual(self.read("openbox"), {"openbox:Close": {
            "id": "openbox:Close", "title": "Zavřít okno", "keys": ["⌘", "Q"], "others": [],
            "kind": 1, "desktop": "Openbox"}})
        self.write("openbox/rc.xml", OPENBOX_FILE[:-30])
        self.assertIsNone(self.read("openbox"))

    # MATE and Cinnamon.

    def test_mate(self):
        self.settings_file(
            "[org/mate/marco/window-keybindings]\nclose='<Super>q'\nminimize='disabled'\n"
            "[org/mate/marco/global-keybindings]\nrun-command-2='<Super>g'\n"
            "[org/mate/marco/keybinding-commands]\ncommand-2='gimp'\n"
            "[org/mate/desktop/keybindings/custom1]\n"
            "name='Poznámky'\naction='pluma'\nbinding='<Super>n'\n")
        shortcuts = self.read("mate")
        windows = "mate:org.mate.Marco.window-keybindings/"
        keys = {name: (shortcuts[name]["title"], shortcuts[name]["keys"]) for name in (
            windows + "close", windows + "begin-move",
            "mate:org.mate.Marco.global-keybindings/run-command-2",
            "mate:org.mate.SettingsDaemon.plugins.media-keys/screensaver",
            "mate:/org/mate/desktop/keybindings/custom1/")}
        self.assertEqual(list(keys.values()), [
            ("Zavřít okno", ["⌘", "Q"]), ("Přesunout okno", ["⌥", "F7"]),
            ("Spustit gimp", ["⌘", "G"]), ("Zamknout obrazovku", ["⌃", "⌥", "L"]),
            ("Poznámky", ["⌘", "N"])])
        self.assertNotIn(windows + "minimize", shortcuts)
        self.assertIn(windows + "minimize", self.without_keys)

    def test_cinnamon(self):
        self.settings_file(
            "[org/cinnamon/desktop/keybindings/wm]\nclose=['<Super>q']\nminimize=@as []\n"
            "[org/cinnamon/desktop/keybindings]\ncustom-list=['custom3', 'a/b']\n"
            "[org/cinnamon/desktop/keybindings/custom-keybindings/custom3]\n"
            "name='Poznámky'\ncommand='xed'\nbinding=['<Super>n']\n")
        shortcuts = self.read("cinnamon")
        windows = "cinnamon:org.cinnamon.desktop.keybindings.wm/"
        keys = {name: (shortcuts[name]["title"], shortcuts[name]["keys"]) for name in (
            windows + "close", windows + "push-tile-left",
            "cinnamon:org.cinnamon.desktop.keybindings.media-keys/screensaver",
            "cinnamon:org.cinnamon.desktop.keybindings/show-desklets",
            "cinnamon:/org/cinnamon/desktop/keybindings/custom-keybindings/custom3/")}
        self.assertEqual(list(keys.values()), [
            ("Zavřít okno", ["⌘", "Q"]), ("Okno do levé poloviny", ["⌘", "←"]),
            ("Zamknout obrazovku", ["⌃", "⌥", "L"]),
            ("Ukázat miniaplikace plochy", ["⌘", "S"]), ("Poznámky", ["⌘", "N"])])
        self.assertNotIn(windows + "minimize", shortcuts)
        self.assertIn(windows + "minimize", self.without_keys)

    # The program.

    def start_on(self, desktop, **preferences):
        write_preferences(self.home, {"hasLaunchedBefore": True, **preferences})
        program = self.start(XDG_CURRENT_DESKTOP=desktop, GSETTINGS_BACKEND="keyfile")
        self.window = program.window()
        return program

    def choose_command(self):
        self.desktop.press("F10", "Down")
        self.desktop.click(self.window.wait_for(COMMAND, Role.MENU_ITEM))

    def test_command_imports_what_is_set(self):
        self.settings_file("[org/gnome/desktop/wm/keybindings]\nclose=['<Super>q']\n")
        program = self.start_on("GNOME")
        self.choose_command()
        self.window.wait_for(where=lambda element: element.name.startswith("Importováno ")
                             and element.name.endswith(" zkratek plochy."))
        stored = {record["id"]: record
                  for record in json.loads(program.preferences()["customShortcuts"])}
        close = next(record for record in stored.values()
                     if record["id"].startswith("system-gnome:org.gnome.desktop.wm.keybindings/close"))
        self.assertEqual(close["title"], "Zavřít okno")
        self.assertEqual(close["keys"], ["⌘", "Q"])
        self.assertEqual(close["category"], "Okna a aplikace")
        self.assertEqual(close["apps"], [])
        self.choose_command()
        self.window.wait_for(NOTHING_NEW)
        self.assertEqual(len(json.loads(program.preferences()["customShortcuts"])), len(stored))

    def test_command_leaves_out_what_the_desktops_library_has(self):
        program = self.start_on("GNOME", library="desktop")
        self.choose_command()
        self.window.wait_for(where=lambda element: element.name.startswith("Importováno ")
                             and element.name.endswith(" zkratek plochy."))
        stored = {record["id"].removesuffix("-" + "".join(record["keys"]))
                  for record in json.loads(program.preferences()["customShortcuts"])}
        schema = "system-gnome:org.gnome.desktop.wm.keybindings/"
        self.assertIn(schema + "switch-applications-backward", stored)
        rows = {"system-" + line.split("\t")[-1]
                for line in EXPECTED_LIBRARY.read_text().splitlines() if line.startswith("gnome\t")}
        self.assertIn(schema + "close", rows)
        self.assertEqual(stored & rows, set())

    def test_settings_that_cannot_be_read_give_the_imports_message(self):
        self.start_on("KDE")
        self.choose_command()
        self.window.wait_for(UNREADABLE)

    # The library of the desktop.

    def test_desktops_library_shows_the_keys_that_are_set(self):
        self.settings_file("[org/gnome/desktop/wm/keybindings]\nclose=['<Super>q']\n"
                           "minimize=['<Super>j', '<Super>h']\n")
        program = self.start_on("GNOME", library="desktop")
        self.desktop.click(program.row("Okna a aplikace"))
        self.wait_for_keys(program, "Zavřít okno", "Command Q")
        self.wait_for_keys(program, "Minimalizovat okno", "Command H")
        # Changed meanwhile: it is read again when the window comes back.
        self.settings_file("[org/gnome/desktop/wm/keybindings]\nclose=['<Super>w']\n")
        self.desktop.press("ctrl+w")
        self.wait(lambda: not program.windows(), "the window to close")
        program.reopen()
        self.window = program.window()
        self.wait_for_keys(program, "Zavřít okno", "Command W")

    def test_desktops_library_leaves_out_what_is_switched_off(self):
        self.settings_file("[org/gnome/desktop/wm/keybindings]\nminimize=@as []\n"
                           "maximize=['']\n")
        program = self.start_on("GNOME", library="desktop")
        self.desktop.click(program.row("Okna a aplikace"))
        self.wait_for_keys(program, "Zavřít okno", "Option F4")
        self.wait(lambda: not {"Minimalizovat okno", "Maximalizovat okno"} & set(program.cards()),
                  "the cards to go")
        self.settings_file("[org/gnome/desktop/wm/keybindings]\nmaximize=['']\n")
        self.desktop.press("ctrl+w")
        self.wait(lambda: not program.windows(), "the window to close")
        program.reopen()
        self.window = program.window()
        self.wait_for_keys(program, "Minimalizovat okno", "Command H")
        self.assertNotIn("Maximalizovat okno", program.cards())

    def test_keys_set_meanwhile_are_shown_to_who_comes_back(self):
        self.settings_file("[org/gnome/desktop/wm/keybindings]\nclose=['<Super>q']\n")
        program = self.start_on("GNOME", library="desktop", usageCounts={"close-window": 9})
        self.desktop.click(program.row("Okna a aplikace"))
        self.wait_for_keys(program, "Zavřít okno", "Command Q")
        ours = program.window_id()
        self.spawn("xmessage", "Nastavení plochy")
        other = self.wait(lambda: self.desktop.visible_windows("Xmessage"), "another window")[0]
        self.desktop.bring_to_front(lambda: other)
        pause(2)  # as long as anybody takes there; who comes back at once never left, for the toolkit
        self.settings_file("[org/gnome/desktop/wm/keybindings]\nclose=['<Super>w']\n")
        self.desktop.bring_to_front(lambda: ours)
        self.wait_for_keys(program, "Zavřít okno", "Command W")

        self.settings_file("[org/gnome/desktop/wm/keybindings]\nclose=['<Super>e']\n")
        program.toggle_overlay()
        self.wait_for_keys(program, "Zavřít okno", "Command E")

    def test_command_leads_to_its_outcome(self):
        program = self.start_on("GNOME")
        self.desktop.click(program.row("První pomoc"))
        self.window.wait_for("První pomoc", Role.HEADING)
        self.choose_command()
        self.window.wait_for(where=lambda element: element.name.endswith(" zkratek plochy."))
        self.window.wait_for("Knihovna", Role.HEADING)
        self.desktop.click(program.row("Oblíbené"))
        self.window.wait_for("Oblíbené", Role.HEADING)
        self.choose_command()
        self.window.wait_for(NOTHING_NEW)
        self.window.wait_for("Oblíbené", Role.HEADING)

    @staticmethod
    def library_of(desktop):
        """Title and keys by action of what the person can set."""
        rows = [line.split("\t") for line in EXPECTED_LIBRARY.read_text().splitlines()]
        return {row[-1]: (row[2], row[3].split(" ")) for row in rows
                if row[0] == desktop and row[-1].startswith(desktop + ":")}

    def test_quiz_goes_on_when_keys_are_set(self):
        program = self.start_on("GNOME", library="desktop", usageCounts={"close-window": 9})
        keyboard = PhysicalKeyboard(self.desktop, "us")
        self.desktop.click(program.row("Procvičování"))
        field = self.window.wait_for(where=lambda element: "Pole přijímá" in element.description)

        def answer(number, keys):
            self.wait(lambda: field.focused, "the keyboard in the field")
            keyboard.press(keys)
            self.desktop.click(self.window.wait_for("Další úkol", Role.BUTTON))
            self.window.wait_for(f"Úkol {number + 1} / 8", Role.LABEL)

        def asked():
            return self.window.wait_for(role=Role.HEADING, where=lambda heading: (
                heading.name != "Procvičování")).name

        def tip_has(keys):
            return program.tree().find(where=lambda element: (
                "Zavře" in element.description and element.description.endswith(keys)))

        answer(1, "⌃ ⌥ ⇧ ⌘ X")
        title = asked()
        # The panel tells when the keys have been read.
        program.toggle_overlay()
        self.wait(lambda: tip_has("Option F4"), "the usual keys")
        schemas = {}
        for action in self.library_of("gnome"):
            schema, _, key = action.removeprefix("gnome:").partition("/")
            schemas.setdefault(schema.replace(".", "/"), []).append(key)
        self.settings_file("".join(
            f"[{schema}]\n" + "".join(f"{key}=['<Control><Super>k']\n" for key in keys)
            for schema, keys in schemas.items()))
        program.reopen()
        self.wait(lambda: tip_has("Control Command K"), "the keys that are set")
        self.window.wait_for("Úkol 2 / 8", Role.LABEL)
        self.assertEqual(asked(), title)
        settable = {title for title, _ in self.library_of("gnome").values()}
        for task in range(2, 8):
            title = asked()
            self.wait(lambda: field.focused, "the keyboard in the field")
            keyboard.press("⌃ ⌘ K")
            self.window.wait_for("Další úkol", Role.BUTTON)
            self.assertEqual(bool(self.window.find("Správně")), title in settable, title)
            answer(task, "⌃ ⌘ K")

    def test_defaults_are_those_of_the_desktops_library(self):
        for desktop in ("gnome", "xfce"):
            library = {action: keys for action, (_, keys) in self.library_of(desktop).items()}
            shortcuts = self.read(desktop)
            self.assertGreater(len(library), 15)
            for action, keys in library.items():
                if action in shortcuts:
                    self.assertIn(keys, [shortcuts[action]["keys"], *shortcuts[action]["others"]],
                                  action)
            self.assertEqual(library.keys() - shortcuts.keys(), set())

    def test_names_in_the_settings_of_other_desktops_are_right(self):
        names = {}
        for line in EXPECTED_LIBRARY.read_text().splitlines():
            fields = line.split("\t")
            if fields[0] == "other" and fields[-1]:
                for name in fields[-1].split("|"):
                    names.setdefault(name.partition(":")[0], set()).add(name)
        self.assertEqual(names.keys(), {"cinnamon", "mate", "openbox"})
        for desktop in ("cinnamon", "mate"):
            known = self.read(desktop).keys() | self.without_keys
            self.assertEqual(names[desktop] - known, set())
        # Openbox's file names only what has keys.
        known = self.read("openbox").keys()
        self.assertIn("openbox:GoToDesktop/left", names["openbox"] & known)
        others = names["openbox"] - known
        self.write("openbox/rc.xml", OPENBOX_FILE.replace("</keyboard>", "".join(
            f'<keybind key="W-F{number}"><action name="{name.partition(":")[2]}"/></keybind>'
            for number, name in enumerate(sorted(others), 1)) + "</keyboard>"))
        self.assertEqual(others - self.read("openbox").keys(), set())

    def test_library_of_another_desktop_has_what_is_set_there(self):
        self.settings_file("[org/mate/marco/window-keybindings]\nclose='<Super>q'\n"
                           "minimize='disabled'\n")
        program = self.start_on("MATE", library="desktop")
        self.desktop.click(program.row("Okna a aplikace"))
        self.wait_for_keys(program, "Zavřít okno", "Command Q")
        self.wait_for_keys(program, "Zamknout obrazovku", "Control Option L")
        self.desktop.click(program.search_field())
        # Switched off, and one that this desktop lacks.
        for text in ("minimalizovat", "obrazovky"):
            self.desktop.press("ctrl+a")
            self.desktop.type(text)
            self.window.wait_for("Žádná odpovídající zkratka")
        self.desktop.press("ctrl+a")
        self.desktop.type("posouv")
        self.wait_for_keys(program, "Přesunout okno", "Option F7")

    def wait_for_keys(self, program, title, spoken):
        seen = []

        def right():
            card = program.cards().get(title)
            seen[:] = [card.description if card else None]
            return card and card.description.endswith(spoken)

        try:
            self.wait(right, f"the keys of {title!r}")
        except AssertionError:
            raise AssertionError(f"{title!r} is described by {seen}") from None

    def hang(self):
        """Makes the settings a pipe into which nobody ever writes."""
        folder = self.home / ".config/glib-2.0/settings"
        folder.mkdir(parents=True)
        os.mkfifo(folder / "keyfile")

    def readers(self, program):
        return [child for child in descendants(program.process.pid)
                if pathlib.Path(f"/proc/{child}/comm").read_text().strip() == READER.name[:15]]

    def start_hanging(self):
        self.hang()
        program = self.start_on("GNOME")
        self.choose_command()
        return program, self.wait(lambda: self.readers(program), "the reader")[0]

    def wait_until_gone(self, process):
        self.wait(lambda: not is_running(process), "the reader to end", AT_ONCE)

    def test_settings_that_hang(self):
        """Meanwhile the window answers; then there is the import's message."""
        program, reader = self.start_hanging()
        self.desktop.click(program.search_field())
        self.desktop.type("zkop")
        program.wait_for_cards("Kopírovat", "Výřez do schránky")
        self.assertEqual(self.readers(program), [reader])
        self.window.wait_for(UNREADABLE)
        self.wait_until_gone(reader)
        self.assertEqual(json.loads(program.preferences().get("customShortcuts", "[]")), [])

    def test_command_is_dimmed_while_an_import_runs(self):
        self.start_hanging()

        def usable():
            return State.ENABLED in self.window.wait_for(COMMAND, Role.MENU_ITEM).states

        self.desktop.press("F10", "Down")
        self.wait(lambda: not usable(), "the command to be dimmed")
        about = self.window.wait_for("O aplikaci Hmatník", Role.MENU_ITEM)
        self.assertIn(State.ENABLED, about.states)
        # The menu stays as it is, and becomes as it was.
        self.window.wait_for(UNREADABLE)
        self.wait(usable, "the command to be there again")

    def test_command_is_dimmed_also_where_the_desktop_shows_the_menus(self):
        script = pathlib.Path(__file__).with_name("menu_registrar.py")
        self.spawn(sys.executable, str(script))
        self.wait(lambda: self.desktop.has_owner("com.canonical.AppMenu.Registrar"), "the registrar")
        self.hang()
        program = self.start_on("GNOME")

        def items():
            """Number and whether it is usable of each command of the first menu."""
            _, (_, _, (menu, *_)) = self.desktop.call(
                APPLICATION_ID, "/MenuBar/1", "com.canonical.dbusmenu", "GetLayout",
                GLib.Variant("(iias)", (0, -1, ["label", "enabled"])))
            return {properties.get("label"): (number, properties.get("enabled", True))
                    for number, properties, _ in menu[2]}

        def choose(name):
            number, usable = items()[name]
            self.assertTrue(usable)
            self.desktop.call(APPLICATION_ID, "/MenuBar/1", "com.canonical.dbusmenu", "Event",
                              GLib.Variant("(isvu)", (number, "clicked", GLib.Variant("s", ""), 0)))

        choose(COMMAND)
        self.wait(lambda: self.readers(program), "the reader")
        self.wait(lambda: not items()[COMMAND][1], "the command to be dimmed")
        self.assertTrue(items()["O aplikaci Hmatník"][1])
        self.window.wait_for(UNREADABLE)
        self.wait(lambda: items()[COMMAND][1], "the command to be there again")
        choose("Ukončit Hmatník")
        self.assertEqual(program.process.wait(DEADLINE), 0)

    def test_quitting_while_settings_hang(self):
        program, reader = self.start_hanging()
        self.desktop.press("ctrl+q")
        self.assertEqual(program.process.wait(AT_ONCE), 0)
        self.wait_until_gone(reader)

    def test_reader_ends_with_a_program_that_is_killed(self):
        program, reader = self.start_hanging()
        program.terminate(signal.SIGKILL)
        self.wait_until_gone(reader)

    def test_ten_thousand(self):
        paths = [f"/c{number}/" for number in range(10_100)]
        self.settings_file(
            f"[{MEDIA_KEYS}]\ncustom-keybindings={paths}\n" + "".join(
                f"[c{number}]\nname='Příkaz {number}'\nbinding='<Super>F{number % 12 + 1}'\n"
                for number in range(10_100)))
        program = self.start_on("GNOME")
        self.choose_command()
        self.window.wait_for("Importováno 10000 zkratek plochy.")
        self.desktop.click(program.search_field())
        self.desktop.type("kaz 9777")
        program.wait_for_cards("Příkaz 9777")

    def test_import_button_takes_them_where_no_program_is_in_front(self):
        self.start_on("")
        self.desktop.click(self.window.wait_for("Import z menu", Role.BUTTON))
        self.window.wait_for(where=lambda element: element.name.endswith(" zkratek plochy."))

    def test_no_command_on_an_unknown_desktop(self):
        self.desktop.start_window_manager("metacity", "--sm-disable", "--replace")
        self.addCleanup(self.desktop.start_window_manager, "openbox", "--sm-disable", "--replace")
        self.start_on("Unheard")
        self.desktop.press("F10", "Down")
        self.window.wait_for("O aplikaci Hmatník", Role.MENU_ITEM)
        self.assertIsNone(self.window.find(COMMAND))
        self.desktop.press("Escape", "Escape")
        self.desktop.click(self.window.wait_for("Import z menu", Role.BUTTON))
        self.window.wait_for(NOBODY)


if __name__ == "__main__":
    unittest.main()
