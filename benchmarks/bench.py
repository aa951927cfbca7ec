"""Measures the program on a virtual desktop, prints each figure with its limit, and fails when a
limit is broken. How to read the figures: docs/benchmarks.md.

    bench.py BUILD_DIRECTORY [GROUP…]

Groups: start, update, memory, idle, filter, keys, screens, appear, import, others; without any, all
of them.

A figure that depends on the machine is a ratio to a reference that runs in turns with what is
measured (A B A B …), so that a busy machine slows both; of the turns the median counts. Where the
system lets us, everything measured also runs ahead of whatever else the machine is doing.
"""

import contextlib
import json
import os
import pathlib
import shutil
import socket
import statistics
import subprocess
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "tests/desktop"))

from virtual_desktop import VirtualDesktop, wait_until  # noqa: E402

# A pass over ten times the records leaves the processor's faster caches on the way, which makes it
# up to twice as slow a record; an answer that does not grow with the records alone would show ten.
GROWTH_TOLERANCE = 2
START_TURNS = 15
# Medians of equal starts differ by this much on a busy machine.
START_TOLERANCE = 1.1
UPDATE_TURNS = 25
MEMORY_TURNS = 5
IDLE_SECONDS = 30
KEY_TURNS = 4
KEY_ROUNDS = 2
SCREEN_ROUNDS = 5
FILTER_REPETITIONS = 5
APPEAR_TURNS = 4
APPEAR_ROUNDS = 5
IMPORT_TURNS = 9
OTHERS_TURNS = 5
FRAME_MILLISECONDS = 1000 / 60
MANY_SHORTCUTS = 10_000
EMPTY_WINDOW_COLOUR = "336699"

# What a program finds in its home: whether it was ever launched decides whether it opens a window.
PREFERENCES = """<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
<dict>
	<key>hasLaunchedBefore</key>
	<{}/>{}
</dict>
</plist>
"""
# The library and the names of keys that a person of this desktop chooses.
OWN_KEYBOARD = """
	<key>keyNames</key>
	<string>pc</string>
	<key>library</key>
	<string>desktop</string>"""


# Small programs of others that do similar work: a grid to search in, and a page shown as a program,
# which is how many programs are made today.
OTHERS = {
    "gucharmap": ("gucharmap",),
    "kcharselect": ("kcharselect",),
    "gnome-characters": ("gnome-characters",),
    "a page in chromium": ("chromium", "--app={page}", "--user-data-dir={profile}", "--no-first-run",
                           "--no-sandbox", "--disable-background-networking", "--disable-sync",
                           "--disable-component-update", "--disable-quic",
                           "--window-size={width},{height}"),
}

# As many cards as the library has, with as little of a page's own cost as can be.
PAGE = """<!doctype html><meta charset="utf-8"><title>Karty</title>
<style>body { font: 13px sans-serif; display: grid; grid-template-columns: repeat(3, 1fr); gap: 14px }
div { border-radius: 14px; padding: 16px; box-shadow: 0 1px 4px #0003 }</style>
<input placeholder="Hledat…"><script>
for (let i = 0; i < 58; ++i)
  document.body.insertAdjacentHTML("beforeend", `<div><b>Zkratka ${i}</b><p>Popis zkratky ${i}.</div>`);
</script>
"""


# Spares the office its window of advice.
OFFICE_SETTINGS = """<?xml version="1.0" encoding="UTF-8"?>
<oor:items xmlns:oor="http://openoffice.org/2001/registry">
<item oor:path="/org.openoffice.Office.Common/Misc"><prop oor:name="ShowTipOfTheDay" oor:op="fuse">
<value>false</value></prop></item>
</oor:items>
"""


class Report:
    """Prints the lines and remembers whether a limit was broken."""

    def __init__(self):
        self.broken = []

    def line(self, name, value, unit, at_most=None, at_least=None):
        limit = "-"
        holds = True
        if at_most is not None:
            limit = f"<= {at_most:g}"
            holds = value <= at_most
        if at_least is not None:
            limit = f">= {at_least:g}"
            holds = value >= at_least
        print(f"{name:<62} {value:>10.3f} {unit:<8} {limit:<8} {'' if holds else 'BROKEN'}".rstrip(),
              flush=True)
        if not holds:
            self.broken.append(name)

    def note(self, name, text):
        print(f"{name:<62} {text}", flush=True)


def run_ahead():
    """Lets us and all we start go before other programs. Tells whether it was allowed."""
    try:
        os.sched_setscheduler(0, os.SCHED_RR, os.sched_param(1))
    except PermissionError:
        return False
    return True


def renderer_of(process):
    """What a process with a Qt Quick window draws with."""
    mapped = pathlib.Path(f"/proc/{process}/maps").read_text()
    if "_dri.so" in mapped or "libnvidia-gl" in mapped:
        return "OpenGL, without a graphics card" if "swrast_dri" in mapped else "OpenGL"
    return "software"


def memory_of(process):
    """Proportional set size in MiB: what the process has for itself, and its share of what it
    shares with others."""
    for line in pathlib.Path(f"/proc/{process}/smaps_rollup").read_text().splitlines():
        if line.startswith("Pss:"):
            return int(line.split()[1]) / 1024
    raise AssertionError("no Pss in smaps_rollup")


def memory_of_all(process):
    """The same of a process and all that descend from it."""
    parents = {}
    for stat in pathlib.Path("/proc").glob("[0-9]*/stat"):
        with contextlib.suppress(OSError):
            parents[int(stat.parent.name)] = int(stat.read_text().rpartition(")")[2].split()[1])
    family = {process}
    while more := {child for child, parent in parents.items()
                   if parent in family and child not in family}:
        family |= more
    total = 0
    for member in family:
        with contextlib.suppress(OSError, AssertionError):  # ended meanwhile
            total += memory_of(member)
    return total


def steady_memory(process):
    """What memory_of_all() tells once it has stopped moving, which a program that blinks does too."""
    last = [memory_of_all(process)]

    def steady():
        time.sleep(1)
        last.append(memory_of_all(process))
        return abs(last[-1] - last[-2]) < 0.01 * last[-1]

    wait_until(steady, f"the memory of process {process} to settle", deadline=60, pause=0)
    return last[-1]


def processor_ticks(process):
    """User and system time of all its threads, those that have ended too, in clock ticks."""
    fields = pathlib.Path(f"/proc/{process}/stat").read_text().rpartition(")")[2].split()
    return int(fields[11]) + int(fields[12])


def wake_ups(process):
    """How often each living thread went to sleep by itself, by thread: what wakes up sleeps again."""
    counts = {}
    for thread in pathlib.Path(f"/proc/{process}/task").iterdir():
        try:
            lines = (thread / "status").read_text().splitlines()
        except OSError:
            continue  # ended meanwhile
        for line in lines:
            if line.startswith("voluntary_ctxt_switches"):
                counts[thread.name] = int(line.split()[1])
    return counts


def wait_until_settled(process):
    """Waits until the process has slept for a second."""

    def settled():
        before = wake_ups(process), processor_ticks(process)
        time.sleep(1)
        return before == (wake_ups(process), processor_ticks(process))

    wait_until(settled, f"process {process} to come to rest", deadline=60, pause=0)


class Window:
    """A program started through the observer of first frames."""

    def __init__(self, bench, shows, command):
        self._observer = subprocess.Popen(
            [bench.build / "hmatnik_first_frame", shows, *map(str, command)],
            env=bench.environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
            stderr=bench.log, text=True)
        words = self._observer.stdout.readline().split()
        if len(words) != 4:
            raise SystemExit(f"bench: {command[0]} painted no window; see {bench.log.name}")
        self.process = int(words[0])
        self.milliseconds = float(words[1])
        self.size = int(words[2]), int(words[3])

    def hide(self):
        self._observer.stdin.write("close\n")
        self._observer.stdin.flush()
        if self._observer.stdout.readline() != "closed\n":
            raise SystemExit("bench: the window did not close")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._observer.stdin.close()
        self._observer.wait()


class Bench:
    def __init__(self, build, desktop):
        self.build = build
        self.desktop = desktop
        self.report = Report()
        self.log = open(build / "bench.log", "w")
        self.environment = dict(desktop.environment)
        self.use_home("home")
        self.window_size = None
        self.start_milliseconds = None

    def use_home(self, name):
        """Gives the programs a home folder of this name, with the preferences of a second start."""
        home = self.desktop.directory / name
        self.preferences = home / ".config/hmatnik/cz.hmatnik.Hmatnik.plist"
        if not self.preferences.exists():
            self.preferences.parent.mkdir(parents=True)
            self.preferences.write_text(PREFERENCES.format("true", ""))
        self.environment.update(
            HOME=str(home), XDG_CONFIG_HOME=str(home / ".config"),
            XDG_DATA_HOME=str(home / ".local/share"), XDG_CACHE_HOME=str(home / ".cache"),
            LANG="C.UTF-8", LC_ALL="C.UTF-8")

    def program(self, choices=""):
        """The program with its window: a first start, the only one that opens it by itself."""
        self.preferences.write_text(PREFERENCES.format("false", choices))
        window = Window(self, "screen", [self.build / "hmatnik"])
        self.window_size = window.size
        return window

    def program_of_this_keyboard(self):
        """The program as chosen to speak of the keyboard and the desktop in front of it."""
        return self.program(OWN_KEYBOARD)

    def empty_window(self):
        """The reference, as large as the program's window."""
        if not self.window_size:
            with self.program():
                pass
        return Window(self, EMPTY_WINDOW_COLOUR,
                      [self.build / "hmatnik_empty_window", *self.window_size])

    # Each group of figures.

    def start(self):
        for one in (self.program, self.program_of_this_keyboard, self.empty_window):
            with one():  # warms the caches of all
                pass
        ours, chosen, empty, our_ticks, empty_ticks = [], [], [], [], []
        for _ in range(START_TURNS):
            with self.program_of_this_keyboard() as window:
                chosen.append(window.milliseconds)
            with self.program() as window:
                renderer = renderer_of(window.process)
                ours.append(window.milliseconds)
                our_ticks.append(processor_ticks(window.process))
            with self.empty_window() as window:
                empty_renderer = renderer_of(window.process)
                empty.append(window.milliseconds)
                empty_ticks.append(processor_ticks(window.process))
        self.start_milliseconds = statistics.median(ours)
        self.report.note("start: renderer of the program", renderer)
        self.report.note("start: renderer of the empty window, Qt's own choice", empty_renderer)
        self.report.line("start: the program", self.start_milliseconds, "ms")
        self.report.line("start: an empty Qt Quick window", statistics.median(empty), "ms")
        self.report.line("start: ratio", self.start_milliseconds / statistics.median(empty), "x",
                         at_most=1.5)
        self.report.line("start: the program, keys of a PC and the desktop's library",
                         statistics.median(chosen), "ms")
        self.report.line("start: ratio, keys of a PC and the desktop's library",
                         statistics.median(chosen) / statistics.median(empty), "x", at_most=1.5)
        self.report.line("start: processor time, ratio",
                         statistics.mean(our_ticks) / statistics.mean(empty_ticks), "x")

    def update(self):
        """Starts of the program with different programs beside it that fetch the manifest."""
        with socket.socket() as closed, socket.create_server(("127.0.0.1", 0)) as silent:
            # Nobody listens at the first; the second takes connections and never says a word.
            closed.bind(("127.0.0.1", 0))
            certificate = self._certificate()
            fetch = self.build / "tests/FetchOverLoopback"
            ways = {"without a check": None,
                    "with an unreachable server": f"{fetch} 127.0.0.1:{closed.getsockname()[1]}",
                    "with a stalling server": f"{fetch} 127.0.0.1:{silent.getsockname()[1]}"}
            programs = {way: self._program_that_fetches(number, command and
                                                        f"{command} {certificate}")
                        for number, (way, command) in enumerate(ways.items())}
            times = {way: [] for way in ways}
            for turn in range(UPDATE_TURNS + 1):
                for way, program in programs.items():
                    self.preferences.write_text(PREFERENCES.format("false", ""))
                    with Window(self, "screen", [program]) as window:
                        if turn > 0:  # the first warms the caches
                            times[way].append(window.milliseconds)
            silent.settimeout(10)
            silent.accept()[0].close()  # it was really asked
        without = statistics.median(times["without a check"])
        self.report.line("update: start without a check", without, "ms")
        for way in list(ways)[1:]:
            time_of_way = statistics.median(times[way])
            self.report.line(f"update: start {way}", time_of_way, "ms")
            self.report.line(f"update: start {way}, ratio", time_of_way / without, "x",
                             at_most=START_TOLERANCE)

    def _certificate(self):
        key, certificate = (self.desktop.directory / name for name in ("key.pem", "cert.pem"))
        subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2",
                        "-subj", "/CN=localhost", "-keyout", str(key), "-out", str(certificate)],
                       check=True, stderr=self.log)
        return certificate

    def _program_that_fetches(self, number, command):
        """The program, in a folder where it finds another program that fetches the manifest."""
        folder = self.desktop.directory / f"program-{number}"
        folder.mkdir()
        for name in ("hmatnik", "hmatnik-views.so"):
            shutil.copy(self.build / name, folder)
        if command:
            fetch = folder / "hmatnik-fetch-manifest"
            fetch.write_text(f"#!/bin/sh\nexec {command}\n")
            fetch.chmod(0o755)
        return folder / "hmatnik"

    def memory(self):
        memories = {name: [] for name in (
            "ours", "chosen", "empty", "waiting", "chosen waiting", "tray")}

        def measure(name, one):
            with one() as window:
                wait_until_settled(window.process)
                memories[name].append(memory_of(window.process))

        for _ in range(MEMORY_TURNS):
            measure("empty", self.empty_window)
            memories["tray"].append(self._memory_in_tray("hmatnik_bare_tray"))
            # A window's start leaves the preferences of a second one.
            measure("ours", self.program)
            memories["waiting"].append(self._memory_in_tray("hmatnik"))
            measure("chosen", self.program_of_this_keyboard)
            memories["chosen waiting"].append(self._memory_in_tray("hmatnik"))
        for name, mine, reference, reference_name, limit in (
                ("window open", "ours", "empty", "an empty Qt Quick window", 1.4),
                ("window open, keys of a PC and the desktop's library", "chosen", "empty", None, 1.4),
                ("in the tray", "waiting", "tray", "a bare tray program", 1.25),
                ("in the tray, keys of a PC and the desktop's library", "chosen waiting", "tray",
                 None, 1.25)):
            mine, reference = statistics.median(memories[mine]), statistics.median(memories[reference])
            self.report.line(f"memory, {name}: the program", mine, "MiB")
            if reference_name:
                self.report.line(f"memory, {name}: {reference_name}", reference, "MiB")
            self.report.line(f"memory, {name}: ratio", mine / reference, "x", at_most=limit)

    def _memory_in_tray(self, name):
        """Memory of a program that shows nothing but its icon, in a tray that is really there."""
        with contextlib.ExitStack() as running:
            self._start(running, "trayer", "--widthtype", "pixel", "--width", "100")
            wait_until(lambda: self.desktop.visible_windows("trayer"), "the tray")
            before = self._windows_in_tray()
            process = self._start(running, self.build / name)
            wait_until(lambda: self._windows_in_tray() > before, f"the icon of {name}")
            wait_until_settled(process.pid)
            if process.poll() is not None:
                raise SystemExit(f"bench: {name} ended; see {self.log.name}")
            mapped = pathlib.Path(f"/proc/{process.pid}/maps").read_text()
            if "Qt6Quick" in mapped:
                raise SystemExit(f"bench: {name} has loaded Qt Quick without a window")
            return memory_of(process.pid)

    def _start(self, running, *command):
        """Starts a program that ends with `running`."""
        process = subprocess.Popen(command, env=self.environment, stdin=subprocess.DEVNULL,
                                   stdout=self.log, stderr=self.log)
        running.callback(process.wait)
        running.callback(process.terminate)
        return process

    def _windows_in_tray(self):
        """Lines that describe the tray's windows: more of them with each icon."""
        return sum(len(self.desktop.output(["xwininfo", "-tree", "-id", str(window)]).splitlines())
                   for window in self.desktop.visible_windows("trayer"))

    def idle(self):
        with self.program() as window:
            wait_until_settled(window.process)
            self._idle("window open", window.process)
            window.hide()
            wait_until_settled(window.process)
            self._idle("window hidden", window.process)
        with self._accessibility(), self.program() as window:
            window.hide()
            wait_until_settled(window.process)
            self._idle("observing the mouse", window.process, most_wake_ups=0)

    @contextlib.contextmanager
    def _accessibility(self):
        """The permission to look into other programs, which the observer of the mouse needs."""
        self._set_accessibility(True)
        try:
            yield
        finally:
            self._set_accessibility(False)

    def _set_accessibility(self, on):
        subprocess.run(["dbus-send", "--session", "--print-reply", "--dest=org.a11y.Bus",
                        "/org/a11y/bus", "org.freedesktop.DBus.Properties.Set",
                        "string:org.a11y.Status", "string:IsEnabled",
                        f"variant:boolean:{'true' if on else 'false'}"],
                       env=self.environment, stdout=self.log, stderr=self.log, check=True)

    def _idle(self, name, process, most_wake_ups=None):
        ticks, before = processor_ticks(process), wake_ups(process)
        time.sleep(IDLE_SECONDS)
        self.report.line(f"idle, {name}: processor time in {IDLE_SECONDS} s",
                         (processor_ticks(process) - ticks) * 1000 / os.sysconf("SC_CLK_TCK"),
                         "ms", at_most=0)
        self.report.line(f"idle, {name}: wake-ups in {IDLE_SECONDS} s",
                         sum(count - before.get(thread, 0)
                             for thread, count in wake_ups(process).items()), "",
                         at_most=most_wake_ups)

    def filter(self):
        answer = subprocess.run(
            [self.build / "hmatnik_filter_benchmark", "--benchmark_filter=^(plain|filtered)/",
             "--benchmark_format=json", f"--benchmark_repetitions={FILTER_REPETITIONS}",
             "--benchmark_enable_random_interleaving=true", "--benchmark_min_time=0.05"],
            env=self.environment, stdout=subprocess.PIPE, stderr=self.log, check=True)
        times = {}
        for run in json.loads(answer.stdout)["benchmarks"]:
            if run.get("aggregate_name") == "median":
                way, query, count = run["run_name"].split("/")
                times[query, int(count), way] = run["cpu_time"]
        queries = list(dict.fromkeys(query for query, _, _ in times))
        # Each begins with its own library alone.
        counts = {query: sorted({count for of, count, _ in times if of == query})
                  for query in queries}
        for query in queries:
            for count in counts[query]:
                mine, plain = times[query, count, "filtered"], times[query, count, "plain"]
                name = f"filter, {query} query, {count} records"
                self.report.line(f"{name}: time", mine, "us")
                self.report.line(f"{name}: faster than contains", plain / mine, "x", at_least=5)
        for query in queries:
            for fewer, more in zip(counts[query], counts[query][1:]):
                growth = (times[query, more, "filtered"] / times[query, fewer, "filtered"]
                          / (more / fewer))
                self.report.line(f"filter, {query} query: growth from {fewer} to {more} over that "
                                 "of the records", growth, "x", at_most=GROWTH_TOLERANCE)

    def _interact(self, *arguments):
        """Lines of the interaction benchmark as pairs of what was done and milliseconds."""
        answer = subprocess.run([self.build / "hmatnik_interaction_benchmark", *map(str, arguments)],
                                env=self.environment, stdout=subprocess.PIPE, stderr=self.log,
                                text=True, check=True)
        notes = [line for line in answer.stdout.splitlines() if "\t" not in line]
        steps = [line.rsplit("\t", 1) for line in answer.stdout.splitlines() if "\t" in line]
        self.renderer = notes[0].removeprefix("renderer ")
        self.sizes = [size.split("x") for note in notes[1:] for size in note.split()[1:]]
        return [(step, float(time)) for step, time in steps]

    def keys(self):
        times = {0: [], MANY_SHORTCUTS: []}
        for _ in range(KEY_TURNS):
            for count, measured in times.items():
                self.use_home(f"home-{count}")
                measured += [time for _, time in self._interact("keys", count, KEY_ROUNDS)]
        self.use_home("home")
        few, many = (statistics.median(times[count]) for count in (0, MANY_SHORTCUTS))
        self.report.note("keys: renderer", self.renderer)
        self.report.line("keys: key to frame, built-in shortcuts alone", few, "ms")
        self.report.line(f"keys: key to frame, {MANY_SHORTCUTS} custom shortcuts", many, "ms")
        self.report.line("keys: ratio", many / few, "x", at_most=1.5)

    def screens(self):
        if self.start_milliseconds is None:
            with self.program():
                pass
            starts = []
            for _ in range(START_TURNS):
                with self.program() as window:
                    starts.append(window.milliseconds)
            self.start_milliseconds = statistics.median(starts)
            self.report.line("screens: start of the program", self.start_milliseconds, "ms")
        times = {}
        for step, time in self._interact("screens", SCREEN_ROUNDS):
            times.setdefault(step, []).append(time)
        self.report.note("screens: renderer", self.renderer)
        for step, measured in times.items():
            self.report.line(f"screens: {step}", statistics.median(measured), "ms",
                             at_most=self.start_milliseconds / 4)

    def appear(self):
        times = {}
        for _ in range(APPEAR_TURNS):
            ours = self._interact("appear", APPEAR_ROUNDS)
            renderer, sizes = self.renderer, self.sizes
            for name, size in zip(("main window", "overlay"), sizes):
                times.setdefault(f"empty as the {name}", []).extend(
                    time for _, time in self._interact("empty", *size, APPEAR_ROUNDS))
            for window, time_of_window in ours:
                times.setdefault(window, []).append(time_of_window)
        times = {window: statistics.median(measured) for window, measured in times.items()}
        self.report.note("appear: renderer of the program", renderer)
        self.report.note("appear: renderer of the empty windows, Qt's own choice", self.renderer)
        for name, window, same in (
                ("hot key to frame of the main window", "main window", "empty window"),
                ("toggle to frame of the overlay", "overlay", "empty panel")):
            reference = times[f"empty as the {window}"]
            self.report.line(f"appear: {name}", times[window], "ms")
            self.report.line(f"appear: an empty window as large as the {window}", reference, "ms")
            self.report.line(f"appear: {name}, ratio", times[window] / reference, "x",
                             at_most=1.5)
            self.report.line(f"appear: {name}, over one with our renderer",
                             times[window] / times[same], "x")

    def import_(self):
        with self._accessibility(), self._writer() as (window, process):
            ours, plain = [], []
            for _ in range(IMPORT_TURNS + 1):
                shortcuts, milliseconds = self._read_menus("hmatnik_import_benchmark", process)
                ours.append(milliseconds)
                elements, bindings, milliseconds = self._read_menus("hmatnik_plain_menu_walk",
                                                                    process)
                plain.append(milliseconds)
            ours, plain = (statistics.median(times[1:]) for times in (ours, plain))
            self.report.line("import: elements in the menus of the office", elements, "")
            self.report.line("import: key bindings of theirs, mnemonics included", bindings, "")
            self.report.line("import: shortcuts among them", shortcuts, "")
            self.report.line("import: the importer", ours, "ms")
            self.report.line("import: a plain libatspi walk", plain, "ms")
            self.report.line("import: ratio", ours / plain, "x", at_most=0.5)

            subprocess.run(["xdotool", "windowactivate", str(window)], env=self.environment,
                           check=True)
            wait_until(lambda: self.desktop.output(["xdotool", "getactivewindow"]).strip()
                       == str(window), "the office in front")
            times = [time for _, time in self._interact("import", int(process),
                                                        "LibreOffice Writer", IMPORT_TURNS)]
            self.report.line("import: longest that the main thread is away meanwhile",
                             statistics.median(times), "ms", at_most=FRAME_MILLISECONDS)

    @contextlib.contextmanager
    def _writer(self):
        """The office's window and process, once its menus have come to rest."""
        with contextlib.ExitStack() as running:
            settings = pathlib.Path(self.environment["HOME"]) / ".config/libreoffice/4/user"
            settings.mkdir(parents=True, exist_ok=True)
            (settings / "registrymodifications.xcu").write_text(OFFICE_SETTINGS)
            self.environment["SAL_USE_VCLPLUGIN"] = "gtk3"
            self._start(running, "soffice", "--writer", "--norestore", "--nologo")

            def shown():
                for window in self.desktop.visible_windows("libreoffice-writer"):
                    process = self.desktop.output(
                        ["xprop", "-id", str(window), "_NET_WM_PID"]).rpartition("=")[2].strip()
                    if process.isdigit():
                        return window, process
                return None

            window, process = wait_until(shown, "the office", deadline=120)
            read = [None]

            def same_twice():
                time.sleep(0.5)
                before, read[0] = read[0], self._read_menus("hmatnik_plain_menu_walk", process)[:2]
                return before == read[0] and read[0][0] > 500

            # It never comes to rest itself, because its text cursor blinks.
            wait_until(same_twice, "the office's menus", deadline=60)
            yield window, process

    def others(self):
        """Start and memory beside small programs of others, in turns with them."""
        with self.program():
            pass
        page = self.desktop.directory / "page.html"
        page.write_text(PAGE)
        values = {"page": page.as_uri(), "profile": str(self.desktop.directory / "profile"),
                  "width": self.window_size[0], "height": self.window_size[1]}
        commands = {name: [shutil.which(command[0]),
                           *(word.format(**values) for word in command[1:])]
                    for name, command in OTHERS.items()}
        ways = {"the program": self.program}
        for name, command in commands.items():
            ways[name] = lambda command=command: Window(self, "screen", command)
        starts, memories = ({name: [] for name in ways} for _ in range(2))
        for turn in range(OTHERS_TURNS + 1):
            for name, way in ways.items():
                with way() as window:
                    if turn == 0:  # warms the caches
                        continue
                    starts[name].append(window.milliseconds)
                    memories[name].append(steady_memory(window.process))
        for what, unit, measured in (("start", "ms", starts), ("memory", "MiB", memories)):
            ours = statistics.median(measured["the program"])
            for name, values_of in measured.items():
                value = statistics.median(values_of)
                self.report.line(f"others, {what}: {name}", value, unit)
                if name != "the program":
                    self.report.line(f"others, {what}: the program / {name}", ours / value, "x")

    def _read_menus(self, program, process):
        answer = subprocess.run([self.build / program, process], env=self.environment,
                                stdout=subprocess.PIPE, stderr=self.log, text=True, check=True)
        return [float(number) for number in answer.stdout.split()]



GROUPS = ("start", "update", "memory", "idle", "filter", "keys", "screens", "appear", "import",
          "others")
GROUP_METHODS = {"import": "import_"}  # a word of the language


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    groups = sys.argv[2:] or GROUPS
    unknown = set(groups) - set(GROUPS)
    if unknown:
        raise SystemExit(f"bench: no such group: {', '.join(unknown)}; there are "
                         + ", ".join(GROUPS))
    ahead = run_ahead()
    with VirtualDesktop() as desktop:
        bench = Bench(build, desktop)
        bench.report.note("load of the machine before", f"{os.getloadavg()[0]:.2f}")
        bench.report.note("ahead of other programs", "yes" if ahead else "no")
        for group in groups:
            getattr(bench, GROUP_METHODS.get(group, group))()
        bench.report.note("load of the machine after", f"{os.getloadavg()[0]:.2f}")
    if bench.report.broken:
        print(f"{len(bench.report.broken)} limits are broken.", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
