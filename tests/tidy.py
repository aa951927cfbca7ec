"""Runs clang-tidy over our sources, two at a time, and remembers what passed.

    tidy.py BUILD_DIRECTORY

clang-tidy takes longer than a compiler, so a file that passed is not looked at again until
something that it sees changes: its own text, a header, its compiler flags, the rules or the
program. What passed is kept beside other caches, in $XDG_CACHE_HOME/hmatnik-tidy.
"""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import shlex
import subprocess
import sys

REPOSITORY = pathlib.Path(__file__).resolve().parents[1]
OURS = [REPOSITORY / folder for folder in ("src", "tests", "benchmarks")]
CACHE = pathlib.Path(os.environ.get("XDG_CACHE_HOME") or pathlib.Path.home() / ".cache",
                     "hmatnik-tidy")


def is_ours(file):
    return any(folder in file.parents for folder in OURS)


def key_of(entry, rules):
    """A digest of everything that clang-tidy sees of a file, comments included: they can hold
    instructions to it. None if the file can't be preprocessed."""
    command = shlex.split(entry["command"])
    if command[0].endswith("ccache"):
        command = command[1:]
    output = command.index("-o")
    command[output:output + 2] = []
    command[command.index("-c")] = "-E"
    result = subprocess.run(command + ["-C", "-P"], cwd=entry["directory"], check=False,
                            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    if result.returncode != 0:
        return None
    return hashlib.sha256(rules + entry["command"].encode() + result.stdout).hexdigest()


def check(entry, build, rules):
    """Gives clang-tidy's complaints; empty if there are none."""
    key = key_of(entry, rules)
    stamp = CACHE / key if key else None
    if stamp and stamp.exists():
        stamp.touch()  # so that whoever tidies up the cache sees that it is used
        return ""
    result = subprocess.run(["clang-tidy", "--quiet", "-p", str(build), entry["file"]],
                            check=False, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
    complaints = result.stdout.decode(errors="replace").strip()
    if result.returncode != 0 and not complaints:
        complaints = result.stderr.decode(errors="replace").strip() or entry["file"]
    if not complaints and stamp:
        stamp.touch()
    return complaints


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    entries = {entry["file"]: entry
               for entry in json.loads((build / "compile_commands.json").read_text())
               if is_ours(pathlib.Path(entry["file"]))}
    version = subprocess.run(["clang-tidy", "--version"], check=True, stdout=subprocess.PIPE).stdout
    rules = version + (REPOSITORY / ".clang-tidy").read_bytes()
    CACHE.mkdir(parents=True, exist_ok=True)
    failed = 0
    with concurrent.futures.ThreadPoolExecutor(max_workers=2) as workers:
        for complaints in workers.map(lambda entry: check(entry, build, rules), entries.values()):
            if complaints:
                failed += 1
                print(complaints, flush=True)
    print(f"clang-tidy: {len(entries)} files, {failed} with complaints")
    return 1 if failed or not entries else 0


if __name__ == "__main__":
    sys.exit(main())
