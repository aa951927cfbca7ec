"""Disks that lose their room or fail while the program runs, each with a home folder on it."""

import mmap
import os
import pathlib
import struct
import subprocess

import sanitizers
from harness import PROGRAM
from virtual_desktop import DEADLINE

LIBRARY = PROGRAM.parent / "tests/libhmatnik_failing_disk.so"
PAGE = 4096
# What FailingDisk.cpp can make fail, in its order.
STEPS = ("make", "write", "half a write", "sync", "rename", "sync folder")


class Disk:
    """An ordinary one, which keeps what it is told."""

    def __init__(self, home):
        self.home = pathlib.Path(home)
        self.home.mkdir(exist_ok=True)
        # What the program is started with and behind.
        self.environment = {}
        self.prefix = ()

    def may_fail(self, random):
        """Perhaps makes the next changes fail."""

    def starts_change(self):
        """A change is about to be made."""

    def kept_change(self):
        """Whether the change that has been made since must be on the disk."""
        return True

    def recover(self):
        """From now on it keeps what it is told."""

    def close(self):
        pass


class FailingDisk(Disk):
    """One that fails at a chosen step of writing the preferences."""

    PLAN = struct.Struct("5i")

    def __init__(self, home):
        super().__init__(home)
        file = self.home / "plan"
        file.write_bytes(bytes(self.PLAN.size))
        with open(file, "r+b") as stream:
            self._plan = mmap.mmap(stream.fileno(), self.PLAN.size)
        self.environment = {"LD_PRELOAD": sanitizers.preload(LIBRARY),
                            "HMATNIK_FAILING_DISK": str(file)}
        self._failed_before = 0

    def fail(self, step, error, well=0, failing=1 << 30):
        """After `well` of these steps the next `failing` fail with that error."""
        self._plan[:] = self.PLAN.pack(STEPS.index(step) + 1, well, failing, error, 0)
        self._failed_before = 0

    def may_fail(self, random):
        if random.random() < 0.2:
            self.fail(random.choice(STEPS), 28, random.randrange(4), random.randrange(1, 4))

    @property
    def failed(self):
        """How many steps have failed since they were told to."""
        return self.PLAN.unpack(self._plan[:])[4]

    def starts_change(self):
        self._failed_before = self.failed

    def kept_change(self):
        return self.failed == self._failed_before

    def recover(self):
        self._plan[:] = bytes(self.PLAN.size)

    def close(self):
        self._plan.close()


class NoSmallDisk(Exception):
    """The system lets us mount nothing; says what it answered."""


class SmallDisk(Disk):
    """A file system of 64 KiB that only we and the program see, in a mount namespace of its own."""

    SIZE = 16 * PAGE
    # In a changed root that is no mount itself, the second works. Without root, a user namespace
    # gives the right to mount, where the system allows that.
    NAMESPACES = ([], ["--propagation", "unchanged"],
                  ["--user", "--map-current-user", "--keep-caps"])
    SCRIPT = """
        mount -t tmpfs -o size="$2",mode=700 tmpfs "$1" || exit 1
        echo done
        while read -r options; do mount -o "remount,$options" "$1" && echo done || echo failed; done
        umount --lazy "$1"
    """

    def __init__(self, home, desktop):
        super().__init__(home)
        self.mount_point = self.home
        answers = []
        for namespace in self.NAMESPACES:
            self._holder = desktop.spawn(
                ["unshare", "--mount", *namespace, "sh", "-c", self.SCRIPT, "sh", str(self.home),
                 str(self.SIZE)],
                stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
            if self._holder.stdout.readline() == "done\n":
                break
            answers.append(self._holder.stderr.read().strip())
            self.close()
        else:
            raise NoSmallDisk("; ".join(answers))
        # From outside, the same folder.
        self.home = pathlib.Path(f"/proc/{self._holder.pid}/root{self.home}")
        # The root as well: that of the namespace is another one where we are in a changed root.
        self.prefix = ("nsenter", "--target", str(self._holder.pid), "--mount", "--root",
                       *(["--user", "--preserve-credentials"] if "--user" in namespace else []), "--")
        self._ballast = self.home / "ballast"
        self._is_full = False

    def fill(self, free_pages=0):
        """Leaves no room but for so many pages."""
        with open(self._ballast, "ab", buffering=0) as stream:
            try:
                while stream.write(bytes(512)):
                    pass
            except OSError:
                pass
        if free_pages:
            os.truncate(self._ballast, max(0, self._ballast.stat().st_size - PAGE * free_pages))
        self._is_full = True

    def recover(self):
        self._ballast.unlink(missing_ok=True)
        self._is_full = False

    def remount(self, option):
        """Makes it read-only ("ro") or writable ("rw")."""
        self._holder.stdin.write(option + "\n")
        self._holder.stdin.flush()
        if self._holder.stdout.readline() != "done\n":
            raise AssertionError(f"could not remount: {self._holder.stderr.readline()}")

    def may_fail(self, random):
        chance = random.random()
        if chance < 0.15:
            self.fill(random.randrange(2))
        elif chance < 0.35:
            self.recover()

    def kept_change(self):
        return not self._is_full

    def close(self):
        self._holder.stdin.close()  # which ends it
        self._holder.wait(DEADLINE)
        self._holder.stdout.close()
        self._holder.stderr.close()
