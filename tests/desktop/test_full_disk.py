"""The same as test_disk_faults on a disk that is really full, or read-only. Exits with 77 where the
system lets nobody mount one: that is no success."""

import sys
import unittest

import test_disk_faults
from disks import PAGE, NoSmallDisk, SmallDisk
from harness import DesktopTestCase
from kill import Kills, read_state, start_neighbour

SKIPPED = 77
KILLS = 5


class FullDiskTest(DesktopTestCase):
    person = test_disk_faults.DiskFaultsTest.person
    check = test_disk_faults.DiskFaultsTest.check

    def small_disk(self):
        try:
            return SmallDisk(self.home / "small", self.desktop)
        except NoSmallDisk as reason:
            return self.skipTest(f"NOT TRIED: the system lets us mount no small disk: {reason}")

    def test_full_disk(self):
        disk = self.small_disk()
        # With one page free, a new file gets its name and its beginning, but not all of it.
        person = self.person(disk, detail="x" * 3000)
        self.assertGreater(person.file.stat().st_size, 2 * PAGE)
        for free_pages in (0, 1):
            with self.subTest(free_pages=free_pages):
                self.check(person, lambda: disk.fill(free_pages), disk.recover)

    def test_started_on_a_full_disk(self):
        disk = self.small_disk()
        person = self.person(disk)
        person.toggle(self.stars[0])
        disk.fill()
        person.program.terminate()
        person.start()
        self._started.append(person.program)
        person.open_window()
        person.find_stars()
        self.check(person, lambda: None, disk.recover)

    def test_read_only_disk(self):
        disk = self.small_disk()
        person = self.person(disk)
        self.check(person, lambda: disk.remount("ro"), lambda: disk.remount("rw"))

    def test_killed_on_a_full_disk(self):
        neighbour = start_neighbour(self.desktop)
        self.addCleanup(neighbour.stdout.close)
        disk = self.small_disk()
        self.addCleanup(disk.close)
        kills = Kills(self.desktop, 1)
        kills.run_all(KILLS, {"full": (1, disk)})
        print(kills.summary(1))
        self.assertEqual(kills.losses, [])


if __name__ == "__main__":
    outcome = unittest.main(exit=False).result
    if not outcome.wasSuccessful():
        sys.exit(1)
    sys.exit(SKIPPED if outcome.skipped else 0)
