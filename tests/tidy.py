"""Runs clang-tidy over our sources and remembers what passed.

    tidy.py BUILD_DIRECTORY

clang-tidy looks through all that a file includes, Qt's headers as well, which takes most of its
time. So it is given several files at once, included one after another in a file that we write;
where they can't stand together (two of them give different things the same name, say), it is
given fewer. Two run at a time.

What passed is not looked at again until something that clang-tidy sees changes: a file, a header,
the compiler's flags, the rules or the program. It is kept beside other caches, in
$XDG_CACHE_HOME/hmatnik-tidy.
"""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

REPOSITORY = pathlib.Path(__file__).resolve().parents[1]
FOLDERS = ("src", "tests", "benchmarks", "packaging")
OURS = [REPOSITORY / folder for folder in FOLDERS]
CACHE = pathlib.Path(os.environ.get("XDG_CACHE_HOME") or pathlib.Path.home() / ".cache",
                     "hmatnik-tidy")
TOGETHER = 12  # more save little


def is_ours(file):
    return any(folder in file.parents for folder in OURS)


def flags_of(entry):
    """What the compiler is told about a file, without the file itself."""
    command = shlex.split(entry["command"])
    if command[0].endswith("ccache"):
        command = command[1:]
    output = command.index("-o")
    command[output:output + 2] = []
    source = command.index("-c")
    command[source:source + 2] = []
    return tuple(command)


def groups(entries):
    """Files of equal flags, TOGETHER at most, as (flags, files)."""
    by_flags = {}
    for entry in entries:
        by_flags.setdefault(flags_of(entry), []).append(entry["file"])
    for flags, files in by_flags.items():
        files.sort()
        count = -(-len(files) // TOGETHER)
        for number in range(count):
            yield flags, files[number::count]


class Tidier:
    def __init__(self, folder):
        self._folder = pathlib.Path(folder)
        version = subprocess.run(["clang-tidy", "--version"], check=True,
                                 stdout=subprocess.PIPE).stdout
        self._rules = version + (REPOSITORY / ".clang-tidy").read_bytes()

    def _file_of(self, files):
        """A file that includes these; of one name for the same ones."""
        text = "".join(f'#include "{file}"  // NOLINT(bugprone-suspicious-include)\n'
                       for file in files)
        name = hashlib.sha256(text.encode()).hexdigest()[:16] + ".cpp"
        (self._folder / name).write_text(text)
        return self._folder / name

    def _stamp(self, flags, file):
        """The file whose existence tells that what clang-tidy sees has passed; None if it can't
        be preprocessed. Comments count: they can hold instructions to clang-tidy."""
        result = subprocess.run([*flags, "-E", "-C", "-P", str(file)], check=False,
                                stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        if result.returncode != 0:
            return None
        # Where the sources lie is no part of it: another clone need not look again.
        seen = self._rules + (shlex.join(flags).encode() + result.stdout).replace(
            str(REPOSITORY).encode(), b".")
        return CACHE / hashlib.sha256(seen).hexdigest()

    def check(self, flags, files):
        """Gives clang-tidy's complaints; empty if there are none."""
        file = self._file_of(files)
        stamp = self._stamp(flags, file)
        apart = stamp and stamp.with_suffix(".apart")  # they can't stand together
        # Touched, so that whoever tidies up the cache sees that it is used.
        if stamp and stamp.exists():
            stamp.touch()
            return ""
        if apart and apart.exists():
            apart.touch()
            return self._halves(flags, files)
        result = subprocess.run(
            ["clang-tidy", "--quiet", f"--config-file={REPOSITORY / '.clang-tidy'}",
             f"--header-filter=^{re.escape(str(REPOSITORY))}/({'|'.join(FOLDERS)})/",
             str(file), "--", *flags[1:]],
            check=False, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        complaints = result.stdout.decode(errors="replace").strip()
        if "[clang-diagnostic" in complaints and len(files) > 1:
            if apart:
                apart.touch()
            return self._halves(flags, files)
        if result.returncode != 0 and not complaints:
            complaints = result.stderr.decode(errors="replace").strip() or " ".join(files)
        if not complaints and stamp:
            stamp.touch()
        return complaints

    def _halves(self, flags, files):
        middle = len(files) // 2
        both = self.check(flags, files[:middle]), self.check(flags, files[middle:])
        return "\n".join(filter(None, both))


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    entries = {entry["file"]: entry
               for entry in json.loads((build / "compile_commands.json").read_text())
               if is_ours(pathlib.Path(entry["file"]))}
    CACHE.mkdir(parents=True, exist_ok=True)
    failed = 0
    with (tempfile.TemporaryDirectory(prefix="hmatnik-tidy-") as folder,
          concurrent.futures.ThreadPoolExecutor(max_workers=2) as workers):
        tidier = Tidier(folder)
        for complaints in workers.map(lambda group: tidier.check(*group),
                                      list(groups(entries.values()))):
            if complaints:
                failed += 1
                print(complaints, flush=True)
    print(f"clang-tidy: {len(entries)} files looked at"
          + (f", complaints in {failed} groups of them" if failed else ", no complaints"))
    return 1 if failed or not entries else 0


if __name__ == "__main__":
    sys.exit(main())
