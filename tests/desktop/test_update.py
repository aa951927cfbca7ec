"""The banner of a newer version, with a real HTTPS server on the loopback interface."""

import os
import unittest

from harness import DesktopTestCase, Hmatnik, Role, State, pause
from publisher import Publisher

DISMISSED = "Hmatnik.dismissedUpdateVersion"
TOP_BAR = 66  # pixels high
BELOW_BANNER = 12


class UpdateTest(DesktopTestCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.server = cls.enterClassContext(Publisher(cls.desktop.directory / "program"))

    def setUp(self):
        super().setUp()
        # The person's browser.
        tools = self.home / "bin"
        tools.mkdir()
        self.opened = self.home / "opened"
        browser = tools / "xdg-open"
        browser.write_text(f"#!/bin/sh\nprintf '%s\\n' \"$@\" >> '{self.opened}'\n")
        browser.chmod(0o755)

    def start(self):
        self.server.requests.clear()
        program = Hmatnik(self.desktop, self.home,
                          {"PATH": f"{self.home / 'bin'}:{os.environ['PATH']}"},
                          (str(self.server.program),))
        self._started.append(program)
        if self.home.joinpath(".config/hmatnik").exists():
            # Only the first start ever opens the window by itself.
            program.start_again()
        self.window = program.window()
        self.wait(lambda: self.server.requests, "the check")
        return program

    def expect_no_banner(self):
        pause(0.7)
        self.assertIsNone(self.window.find("Přeskočit"))

    def test_newer_version_is_told_of_once_a_run(self):
        self.server.publish("99.1")
        self.start()
        self.window.wait_for("Dostupná nová verze 99.1", Role.LABEL)
        version = self.window.find(where=lambda element: element.name.startswith("Ty máš verzi "))
        self.assertRegex(
            version.name,
            r"^Ty máš verzi \d+(\.\d+)*\. Stáhni novou a přetáhni do Applications\.$")
        self.assertEqual(self.server.requests, ["/downloads/hmatnik/version.json"])

    def test_notes_are_plain_text(self):
        notes = "<b>Nové</b> <img src='http://127.0.0.1/x'> &amp; věci"
        self.server.publish("99.1", notes=notes)
        self.start()
        self.window.wait_for(notes, Role.LABEL)

    def screen_top(self):
        """How far below the window's edge the library begins, with the row of its filters."""
        return (self.window.wait_for("⌘", Role.CHECK_BOX).extents[1] - self.window.extents[1])

    def test_the_library_begins_under_the_banner_or_right_under_the_top_bar(self):
        self.server.publish("0.0.1")
        program = self.start()
        self.expect_no_banner()
        without = self.screen_top()
        self.assertEqual(without, TOP_BAR)
        program.terminate()

        self.server.publish("99.1")
        self.start()
        skip = self.window.wait_for("Přeskočit", Role.BUTTON)
        banner = skip
        while banner.role != Role.NOTIFICATION:
            banner = banner.parent
        _, y, _, height = banner.extents
        self.assertEqual(y - self.window.extents[1], TOP_BAR)
        self.assertEqual(self.screen_top(), TOP_BAR + height + BELOW_BANNER)
        self.desktop.click(skip)
        self.wait(lambda: self.screen_top() == without, "the library in the banner's place")

    def test_skipped_version_stays_away(self):
        self.server.publish("99.1")
        program = self.start()
        self.desktop.click(self.window.wait_for("Přeskočit", Role.BUTTON))
        self.window.wait_until_gone("Přeskočit")
        self.assertEqual(program.preferences()[DISMISSED], "99.1")
        program.terminate()

        program = self.start()
        self.expect_no_banner()
        program.terminate()

        self.server.publish("99.2")
        program = self.start()
        self.window.wait_for("Dostupná nová verze 99.2", Role.LABEL)
        self.assertEqual(program.preferences()[DISMISSED], "99.1")

    def test_download_opens_the_browser_and_the_banner_stays(self):
        self.server.publish("99.1", "https://stahnout.example/hmatnik?a=1&b=%20c")
        self.start()
        self.desktop.click(self.window.wait_for("Stáhnout", Role.BUTTON))
        self.wait(self.opened.exists, "the browser")
        self.wait(lambda: self.opened.read_text().strip(), "the address")
        self.assertEqual(self.opened.read_text().split(),
                         ["https://stahnout.example/hmatnik?a=1&b=%20c"])
        self.assertIsNotNone(self.window.find("Dostupná nová verze 99.1"))

    def test_address_of_another_kind_is_not_offered(self):
        for url in ("file:///etc/passwd", "javascript:alert(1)", "není adresa"):
            with self.subTest(url):
                self.server.publish("99.1", url)
                program = self.start()
                self.window.wait_for("Přeskočit", Role.BUTTON)
                self.assertIsNone(self.window.find("Stáhnout"))
                program.terminate()

    def test_no_banner_without_a_newer_version(self):
        for answer in ((200, b'{"version":"0.0.1","url":"https://a.example"}'),
                       (404, b'{"version":"99","url":"https://a.example"}'),
                       (200, b'{"version":"99"}'), (200, b"{")):
            with self.subTest(answer):
                self.server.answer = answer
                program = self.start()
                self.expect_no_banner()
                program.terminate()

    def note_picture(self, note):
        """The bytes of the picture where the note is, once it no longer changes."""
        self.desktop.move_pointer(1, 1)
        self.desktop.wait_until_still()
        x, y, width, height = note.extents
        screen_width, _, pixels = self.desktop.pixels()
        return b"".join(pixels[3 * (row * screen_width + x):3 * (row * screen_width + x + width)]
                        for row in range(y, y + height))

    def test_long_notes_can_be_read_to_their_end(self):
        for last in ("konec", "█" * 40):
            notes = "\n".join([*(f"Novinka {number}" for number in range(1, 30)), last])
            self.server.publish("99.1", notes=notes)
            program = self.start()
            program.resize(980, 650)
            note = self.window.wait_for(notes, Role.LABEL)
            self.assertLess(note.extents[3], 60)
            self.assertGreater(len(program.cards()), 5)
            self.assertIn(State.FOCUSABLE, note.states)
            if last == "konec":
                beginning = self.note_picture(note)
            else:
                self.assertEqual(self.note_picture(note), beginning)  # the last line is out of sight

            # By the keyboard, and back.
            for _ in range(60):
                if note.focused:
                    break
                self.desktop.press("Tab")
            self.wait(lambda note=note: note.focused, "the keyboard in the notes")
            first = self.note_picture(note)
            self.desktop.press("End")
            end = self.note_picture(note)
            self.assertNotEqual(end, first)
            self.desktop.press("Down", "Next")
            self.assertEqual(self.note_picture(note), end)
            self.desktop.press("Prior")
            self.assertNotEqual(self.note_picture(note), end)
            self.desktop.press("Home")
            self.assertEqual(self.note_picture(note), first)
            self.desktop.press(*["Down"] * 30)
            self.assertEqual(self.note_picture(note), end)
            self.desktop.press("Home")

            # By the wheel.
            self.desktop.move_pointer(*note.centre)
            self.desktop.output(["xdotool", "click", "--repeat", "40", "--delay", "20", "5"])
            self.assertEqual(self.note_picture(note), end)
            if last == "konec":
                end_of_words = end
            program.terminate()
        # What was seen at the end is the last line.
        self.assertNotEqual(end, end_of_words)

    def test_a_short_note_takes_its_own_room(self):
        self.server.publish("99.1", notes="Drobné opravy.")
        self.start()
        note = self.window.wait_for("Drobné opravy.", Role.LABEL)
        self.assertLess(note.extents[3], 20)
        # Nothing to scroll, so the keyboard passes it.
        self.desktop.press("ctrl+f", "Tab")
        skip = self.window.wait_for("Přeskočit", Role.BUTTON)
        self.wait(lambda: State.FOCUSED in skip.states, "the keyboard on the banner's first button")

    def test_endless_texts_keep_the_layout(self):
        self.server.publish("99." + "1" * 3000, notes="slovo " * 3000)
        program = self.start()
        for size in ((980, 650), (1600, 1000)):
            program.resize(*size)
            skip = self.window.wait_for("Přeskočit", Role.BUTTON)
            download = self.window.wait_for("Stáhnout", Role.BUTTON)
            x, _, width, _ = self.window.extents
            self.wait(lambda: download.extents[0] + download.extents[2] == x + size[0] - 36,
                      "the buttons at the edge")
            self.assertLess(skip.extents[0], download.extents[0])
            self.assertGreater(len(program.cards()), 5)


if __name__ == "__main__":
    unittest.main()
