"""A short use of the installed program, on a system that has nothing of the source tree: the files
that a desktop finds it by, the start from a launcher, and the library."""

import pathlib
import shutil
import unittest

from gi.repository import GLib

from harness import APPLICATION_ID, DesktopTestCase, Role

SHARE = pathlib.Path("/usr/share")


class InstalledTest(DesktopTestCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.enterClassContext(ServiceOfTheProgram(cls.desktop))

    def test_files_that_a_desktop_looks_for(self):
        entry = (SHARE / f"applications/{APPLICATION_ID}.desktop").read_text()
        self.assertIn("DBusActivatable=true", entry)
        self.assertIn("Comment[cs]=", entry)
        self.assertTrue((SHARE / f"metainfo/{APPLICATION_ID}.metainfo.xml").exists())
        icons = SHARE / "icons/hicolor"
        for side in (16, 22, 24, 32, 48, 64, 128, 256, 512):
            picture = icons / f"{side}x{side}/apps/{APPLICATION_ID}.png"
            self.assertEqual(self.desktop.output(
                ["identify", "-format", "%wx%h", str(picture)]), f"{side}x{side}")
        self.assertTrue((icons / f"scalable/apps/{APPLICATION_ID}.svg").exists())
        self.assertTrue((icons / f"symbolic/apps/{APPLICATION_ID}-symbolic.svg").exists())

    def test_first_start_and_use(self):
        program = self.start()
        window = program.window()
        self.desktop.click(program.search_field())
        self.desktop.type("zkop")
        program.wait_for_cards("Kopírovat", "Výřez do schránky")
        self.desktop.click(program.star("Výřez do schránky"))
        self.wait(lambda: "shot-clipboard" in program.preferences().get("favorites", []),
                  "the stored favourite")
        self.assertTrue(window.find("Knihovna", Role.HEADING))
        self.assertEqual(program.start_again(), 0)
        self.desktop.press("ctrl+q")
        self.assertEqual(program.process.wait(10), 0)

    def test_desktops_own_shortcuts(self):
        """They are read by a program that is installed apart."""
        window = self.start(XDG_CURRENT_DESKTOP="").window()
        self.desktop.click(window.wait_for("Import z menu", Role.BUTTON))
        window.wait_for(where=lambda element: element.name.startswith("Importováno ")
                        and element.name.endswith(" zkratek plochy."))

    def test_launcher(self):
        """A desktop activates the program over D-Bus."""
        environment = {"HOME": str(self.home), "XDG_CONFIG_HOME": str(self.home / ".config"),
                       "DISPLAY": self.desktop.environment["DISPLAY"],
                       "LANG": self.desktop.environment["LANG"]}
        self.desktop.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                          "UpdateActivationEnvironment",
                          GLib.Variant("(a{ss})", (environment,)))
        self.desktop.call(APPLICATION_ID, "/cz/hmatnik/Hmatnik", "org.freedesktop.Application",
                          "Activate", GLib.Variant("(a{sv})", ({},)))
        self.wait(lambda: self.desktop.visible_windows("hmatnik"), "the window")
        self.desktop.press("ctrl+q")
        self.wait(lambda: not self.desktop.has_owner(APPLICATION_ID), "the program to end")


class ServiceOfTheProgram:
    """Lets the desktop's bus start the program, as a session's does."""

    def __init__(self, desktop):
        self._copy = desktop.directory / "services" / f"{APPLICATION_ID}.service"
        self._desktop = desktop

    def __enter__(self):
        shutil.copy(SHARE / f"dbus-1/services/{APPLICATION_ID}.service", self._copy)
        self._desktop.call("org.freedesktop.DBus", "/org/freedesktop/DBus",
                           "org.freedesktop.DBus", "ReloadConfig")

    def __exit__(self, *_):
        self._copy.unlink()


if __name__ == "__main__":
    unittest.main()
