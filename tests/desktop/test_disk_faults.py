"""While the preferences can't be written, the program works on from memory; what is on the disk stays
as it is, and everything is written once that succeeds again."""

import errno
import random
import resource
import unittest

from disks import STEPS, Disk, FailingDisk
from harness import DesktopTestCase, Role, is_row, write_preferences
from kill import Person, read_state


UNSAVED = "Změny se nepodařilo uložit"


class DiskFaultsTest(DesktopTestCase):
    def person(self, disk, **more):
        """Somebody with the program open and the stars in sight."""
        self.addCleanup(disk.close)
        person = Person(self.desktop, disk, random.Random(1), **more)
        person.start()
        self._started.append(person.program)
        person.open_window()
        self.stars = person.find_stars()
        return person

    def check(self, person, break_disk, recover, may_be_written=False):
        """Changes while the disk is broken are shown and not lost when it keeps again."""
        kept = read_state(person.file)
        break_disk()
        for star in self.stars[:3]:
            person.toggle(star)
            self.assertEqual(person.shown_favourites(),
                             person.state.favourites & set(self.stars))
            if not may_be_written:
                self.assertEqual(read_state(person.file), kept)
            self.assertEqual(person.leftovers(), [])
        self.assertTrue(person.program.running)
        recover()
        person.toggle(self.stars[3])
        self.assertEqual(read_state(person.file), person.state)

    def test_every_step_of_a_write_can_fail(self):
        disk = FailingDisk(self.home)
        person = self.person(disk)
        for step in STEPS:
            for error in (errno.ENOSPC, errno.EIO):
                with self.subTest(step=step, error=errno.errorcode[error]):
                    # Failing in the last step, the new file has its name already.
                    self.check(person, lambda: disk.fail(step, error), disk.recover,
                               step == "sync folder")

    def test_a_single_failure(self):
        disk = FailingDisk(self.home)
        person = self.person(disk)
        for step in STEPS:
            with self.subTest(step=step):
                disk.fail(step, errno.EIO, well=1, failing=1)
                for star in self.stars[:3]:
                    person.toggle(star)
                self.assertEqual(disk.failed, 1)
                self.assertEqual(read_state(person.file), person.state)
                disk.recover()

    def test_person_is_told_and_can_try_again(self):
        disk = FailingDisk(self.home)
        person = self.person(disk)
        window = person.program.window()
        kept = read_state(person.file)
        disk.fail("write", errno.ENOSPC)
        self.assertIsNone(window.find(UNSAVED))
        person.toggle(self.stars[0])
        notice = window.wait_for(UNSAVED, Role.ALERT)
        self.assertTrue(notice.description.startswith("Na disku není místo."))
        person.toggle(self.stars[1])
        self.assertEqual(len(window.find_all(UNSAVED, Role.ALERT)), 1)

        notice.wait_for("Zkusit znovu", Role.BUTTON).press()
        self.wait(lambda: window.find(UNSAVED, Role.ALERT).description.startswith("Ani teď"),
                  "the notice to tell that it failed again")
        self.assertEqual(read_state(person.file), kept)
        for row in window.find_all(where=is_row):
            row.press()
            self.wait(lambda: row.selected, "the screen")
            self.assertTrue(window.find(UNSAVED, Role.ALERT).showing)
        disk.recover()
        window.wait_for("Zkusit znovu", Role.BUTTON).press()
        window.wait_until_gone(UNSAVED, Role.ALERT)
        self.assertEqual(read_state(person.file), person.state)

    def test_notice_can_be_put_away_until_the_next_failure(self):
        disk = FailingDisk(self.home)
        person = self.person(disk)
        window = person.program.window()
        for _ in range(2):
            disk.fail("rename", errno.EIO)
            person.toggle(self.stars[0])
            window.wait_for(UNSAVED, Role.ALERT).wait_for("Skrýt", Role.BUTTON).press()
            window.wait_until_gone(UNSAVED, Role.ALERT)
            person.toggle(self.stars[1])
            self.assertIsNone(window.find(UNSAVED, Role.ALERT))
            disk.recover()
            person.toggle(self.stars[2])
        self.assertEqual(read_state(person.file), person.state)

    def test_person_without_a_window_is_told_when_it_opens(self):
        disk = FailingDisk(self.home)
        self.addCleanup(disk.close)
        # Which the program writes back when it starts.
        write_preferences(self.home, {"hasLaunchedBefore": True,
                                      "Hmatnik.dismissedUpdateVersion": "9.9"})
        disk.fail("sync", errno.EIO)
        program = self.start(opened=False, **disk.environment)
        self.wait(lambda: disk.failed, "the first write")
        program.reopen()
        notice = program.window().wait_for(UNSAVED, Role.ALERT)
        disk.recover()
        notice.wait_for("Zkusit znovu", Role.BUTTON).press()
        program.window().wait_until_gone(UNSAVED, Role.ALERT)

    def test_limit_on_the_size_of_files(self):
        person = self.person(Disk(self.home))
        process = person.program.process.pid
        soft, hard = resource.prlimit(process, resource.RLIMIT_FSIZE)
        self.check(person,
                   lambda: resource.prlimit(process, resource.RLIMIT_FSIZE, (64, hard)),
                   lambda: resource.prlimit(process, resource.RLIMIT_FSIZE, (soft, hard)))


if __name__ == "__main__":
    unittest.main()
