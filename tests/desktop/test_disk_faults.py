"""While the preferences can't be written, the program works on from memory; what is on the disk stays
as it is, and everything is written once that succeeds again."""

import errno
import random
import resource
import unittest

from disks import STEPS, Disk, FailingDisk
from harness import DesktopTestCase
from kill import Person, read_state


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

    def test_limit_on_the_size_of_files(self):
        person = self.person(Disk(self.home))
        process = person.program.process.pid
        soft, hard = resource.prlimit(process, resource.RLIMIT_FSIZE)
        self.check(person,
                   lambda: resource.prlimit(process, resource.RLIMIT_FSIZE, (64, hard)),
                   lambda: resource.prlimit(process, resource.RLIMIT_FSIZE, (soft, hard)))


if __name__ == "__main__":
    unittest.main()
