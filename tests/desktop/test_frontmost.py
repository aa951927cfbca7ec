"""The application in front, as the overlay button names it."""

import unittest

from harness import DesktopTestCase, Role, pause


class FrontmostTest(DesktopTestCase):
    """Mousepad stands for GTK 3, FeatherPad for Qt 5."""

    def desktop_entry(self, file, **keys):
        """Gives the person a desktop entry of their own, which wins over the system's."""
        folder = self.home / ".local/share/applications"
        folder.mkdir(parents=True, exist_ok=True)
        lines = ["[Desktop Entry]", "Type=Application"]
        lines += [f"{key.replace('_cs', '[cs]')}={value}" for key, value in keys.items()]
        (folder / file).write_text("\n".join(lines) + "\n")

    def overlay_name(self, program):
        """The text of the top bar's first button."""
        tree = self.desktop.application(program.process.pid)
        importer = tree.wait_for("Import z menu", Role.BUTTON)
        buttons = tree.find_all(role=Role.BUTTON, where=lambda element: (
            element.extents[1] == importer.extents[1] and element.extents[0] < importer.extents[0]))
        self.assertEqual(len(buttons), 1)
        return buttons[0].name

    def wait_for_name(self, program, name):
        seen = []

        def named():
            seen.append(self.overlay_name(program))
            return seen[-1] == name

        self.wait(named, f"the overlay button to read {name!r}")

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
        self.wait_for_name(program, "Mousepad")
        self.spawn("featherpad", "--standalone")
        self.bring_to_front("featherpad")
        self.wait_for_name(program, "Pírko")
        self.bring_to_front("mousepad")
        self.wait_for_name(program, "Mousepad")

    def test_localised_name_found_by_startup_class(self):
        self.desktop_entry("zz-poznamky.desktop", Name="Notes", Name_cs="Poznámky",
                           Exec="mousepad", StartupWMClass="Mousepad")
        program = self.start()
        program.window()
        self.spawn("mousepad", "--disable-server")
        self.bring_to_front("mousepad")
        self.wait_for_name(program, "Poznámky")

    def test_our_own_name_is_never_taken(self):
        program = self.start()
        program.window()
        self.spawn("mousepad", "--disable-server")
        self.bring_to_front("mousepad")
        self.wait_for_name(program, "Mousepad")
        self.assertEqual(program.start_again(), 0)  # brings our window to the front
        self.wait(lambda: self.desktop.active_window() == program.window_id(), "our window")
        pause(0.5)
        self.assertEqual(self.overlay_name(program), "Mousepad")

    def test_application_that_was_there_at_start(self):
        self.spawn("mousepad", "--disable-server")
        self.bring_to_front("mousepad")
        program = self.start()
        program.window()
        self.wait_for_name(program, "Mousepad")


if __name__ == "__main__":
    unittest.main()
