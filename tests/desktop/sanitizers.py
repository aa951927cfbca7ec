"""A program that is built with sanitizers: what it is started with, and what it has reported.

ctest says so in the environment (cmake/HmatnikSanitizers.cmake).
"""

import os

KIND = os.environ.get("HMATNIK_SANITIZE", "")


def skip_measures(test):
    """For tests of memory: a sanitizer's own takes many times the program's."""
    if KIND:
        test.skipTest("memory under a sanitizer is the sanitizer's")


def environment(folder):
    """Settings that make the program write what it finds into files of a folder."""
    if not KIND:
        return {}
    settings = {}
    for name in ("ASAN_OPTIONS", "UBSAN_OPTIONS", "TSAN_OPTIONS"):
        given = os.environ.get(name)
        settings[name] = ":".join(filter(None, (given, f"log_path={folder}/report")))
    return settings


def preload(library):
    """The value of LD_PRELOAD that loads a library into the program: after the sanitizer, which
    insists on being the first."""
    return " ".join(filter(None, (os.environ.get("HMATNIK_SANITIZER_RUNTIME"), str(library))))


def take_reports(folder):
    """What the program has found wrong with itself since the last call, file by file."""
    taken = []
    for file in sorted(folder.glob("report.*")):
        taken.append(file.read_text(errors="replace"))
        file.unlink()
    return taken
