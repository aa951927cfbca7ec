"""Killed at random moments, the program loses nothing; the short form of `./dev kill`."""

import secrets
import unittest

from disks import Disk, FailingDisk
from harness import DesktopTestCase
from kill import Kills, start_neighbour

COUNT = 12


class KillTest(DesktopTestCase):
    def test_nothing_is_lost(self):
        neighbour = start_neighbour(self.desktop)
        self.addCleanup(neighbour.stdout.close)
        failing = FailingDisk(self.home / "failing")
        self.addCleanup(failing.close)
        seed = secrets.randbelow(10**9)
        kills = Kills(self.desktop, seed)
        kills.run_all(COUNT, {"ordinary": (3, Disk(self.home / "ordinary")),
                              "failing": (1, failing)})
        print(kills.summary(seed))
        self.assertEqual(kills.losses, [])
        self.assertGreater(kills.while_changing, COUNT // 3, "too slow to test anything")


if __name__ == "__main__":
    unittest.main()
