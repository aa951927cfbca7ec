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
        self.spawn("featherpad", "--standalone")
        self.bring_to_front("featherpad")
        program.wait_for_application("FeatherPad")
        window = self.desktop.visible_windows("featherpad")[0]
        # As an old program, which names itself by nothing else; its toolkit may.
        for name in ("_GTK_APPLICATION_ID", "_KDE_NET_WM_DESKTOP_FILE"):
            self.desktop.output(["xprop", "-id", str(window), "-remove", name])
        self.desktop.output(["xdotool", "set_window", "--classname", "ucetni", "--class", "Ucetni",
                             str(window)])
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

    def title_as_drawn(self, program):
        """The pixels of the page title, to where the buttons may begin."""
        self.assertEqual(program.start_again(), 0)  # brings our window to the front
        self.wait(lambda: self.desktop.active_window() == program.window_id(), "our window")
        self.desktop.wait_until_still()
        heading = program.window().wait_for("Zkratky ze samolepky", Role.HEADING)
        left, top, width, height = heading.extents
        self.assertLessEqual(left + width, program.overlay_button().extents[0])
        screen_width, _, pixels = self.desktop.pixels()
        return [pixels[3 * (row * screen_width + left):3 * (row * screen_width + left + width)]
                for row in range(top, top + height)]

    def check_title(self, **environment):
        """The longest page title, beside a short name and a very long one, in the smallest window
        there is."""
        self.desktop_entry("featherpad.desktop", Name="Nástroj pro úpravu obyčejných textových "
                           "souborů v kódování UTF-8", Exec="featherpad %U")
        program = self.start(**environment)
        program.window()
        program.resize(980, 650)
        self.desktop.click(program.row("Samolepka"))
        self.bring_to_front("mousepad")
        program.wait_for_application("Mousepad")
        beside_short_name = self.title_as_drawn(program)
        self.bring_to_front("featherpad")
        program.wait_for_application("Nástroj pro úpravu obyčejných textových souborů v kódování "
                                     "UTF-8")
        self.assertEqual(self.title_as_drawn(program), beside_short_name)
        program.terminate()

    def test_a_long_name_leaves_the_page_title_as_it_is(self):
        for name, option in (("mousepad", "--disable-server"), ("featherpad", "--standalone")):
            self.spawn(name, option)
            # Opened later it would take the keyboard from us.
            self.bring_to_front(name)
        self.check_title()
        (self.home / ".config").mkdir(exist_ok=True)
        (self.home / ".config/kdeglobals").write_text(
            "[General]\nfont=Inter,13.3,-1,5,50,0,0,0,0,0\n")
        self.check_title(XDG_CURRENT_DESKTOP="KDE", KDE_SESSION_VERSION="5")

    def test_application_that_was_there_at_start(self):
        self.spawn("mousepad", "--disable-server")
        self.bring_to_front("mousepad")
        program = self.start()
        program.window()
        program.wait_for_application("Mousepad")


if __name__ == "__main__":
    unittest.main()
