"""The application in front, as the overlay button names it."""

import unittest

from harness import DesktopTestCase, pause


class FrontmostTest(DesktopTestCase):
    """Mousepad stands for GTK 3, FeatherPad for Qt 5."""

    def desktop_entry(self, file, **keys):
        """Gives the person a desktop entry of their own, which wins over the system's."""
        folder = self.home / ".local/share/applications"
        folder.mkdir(parents=True, exist_ok=True)
        lines = ["[Desktop Entry]", "Type=Application"]
        lines += [f"{key.replace('_cs', '[cs]')}={value}" for key, value in keys.items()]
        (folder / file).write_text("\n".join(lines) + "\n")

    def bring_to_front(self, window_class):
        window = self.wait(lambda: self.desktop.visible_windows(window_class), window_class, 20)[0]
        self.desktop.output(["xdotool", "windowactivate", "--sync", str(window)])
        self.wait(lambda: self.desktop.active_window() == window, f"{window_class} in front")

    def test_follows_gtk_and_qt_applications(self):
        self.desktop_entry("featherpad.desktop", Name="FeatherPad", Name_cs="Pírko",
                           Exec="featherpad %U")
        program = self.start()
        program.window()
        self.spawn("mousepad", "--disable-server")
        self.bring_to_front("mousepad")
        program.wait_for_application("Mousepad")
        self.spawn("featherpad", "--standalone")
        self.bring_to_front("featherpad")
        program.wait_for_application("Pírko")
        self.bring_to_front("mousepad")
        program.wait_for_application("Mousepad")

    def test_localised_name_found_by_startup_class(self):
        self.desktop_entry("zz-poznamky.desktop", Name="Notes", Name_cs="Poznámky",
                           Exec="mousepad", StartupWMClass="Mousepad")
        program = self.start()
        program.window()
        self.spawn("mousepad", "--disable-server")
        self.bring_to_front("mousepad")
        program.wait_for_application("Poznámky")

    def test_application_that_changes_its_window_class(self):
        program = self.start()
        program.window()
        self.spawn("mousepad", "--disable-server")
        self.bring_to_front("mousepad")
        program.wait_for_application("Mousepad")
        window = self.desktop.visible_windows("mousepad")[0]
        self.desktop.output(["xdotool", "set_window", "--class", "Ucetni", str(window)])
        program.wait_for_application("Ucetni")

    def test_our_own_name_is_never_taken(self):
        program = self.start()
        program.window()
        self.spawn("mousepad", "--disable-server")
        self.bring_to_front("mousepad")
        program.wait_for_application("Mousepad")
        self.assertEqual(program.start_again(), 0)  # brings our window to the front
        self.wait(lambda: self.desktop.active_window() == program.window_id(), "our window")
        pause(0.5)
        self.assertEqual(program.overlay_button().name, "Mousepad")

    def test_application_that_was_there_at_start(self):
        self.spawn("mousepad", "--disable-server")
        self.bring_to_front("mousepad")
        program = self.start()
        program.window()
        program.wait_for_application("Mousepad")


if __name__ == "__main__":
    unittest.main()
