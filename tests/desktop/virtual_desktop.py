"""A desktop without a display: an X server in memory, a window manager and a private D-Bus session
with an accessibility bus. Whatever is started on it is gone when it closes.

As a program it runs a command there until the command ends or SIGINT or SIGTERM arrives:

    virtual_desktop.py [--screenshot FILE] [--wait-for-class CLASS] COMMAND [ARGUMENT…]
"""

import argparse
import ctypes
import os
import pathlib
import re
import select
import shutil
import signal
import subprocess
import sys
import tempfile
import time

# How many times as long as an ordinary one the program may take: a build with sanitizers is slower.
PATIENCE = float(os.environ.get("HMATNIK_PATIENCE", "1"))
DEADLINE = 30.0 * PATIENCE  # seconds; generous, because test machines are shared
PR_SET_PDEATHSIG = 1
PR_SET_CHILD_SUBREAPER = 36

# Only the accessibility bus can be activated, so that no service of the person's own desktop
# (a portal, a settings daemon) comes to life and answers instead of a test's.
BUS_CONFIGURATION = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:dir={directory}</listen>
  <auth>EXTERNAL</auth>
  <servicedir>{directory}/services</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""


def wait_until(condition, what, deadline=DEADLINE, pause=0.05):
    """Gives the condition's first true answer, or raises AssertionError at the deadline."""
    end = time.monotonic() + deadline
    while True:
        answer = condition()
        if answer:
            return answer
        if time.monotonic() >= end:
            raise AssertionError(f"waited {deadline:g} s for {what}")
        time.sleep(pause)


def descendants(ancestor):
    """Process ids of all processes below the given one, zombies left out."""
    parents = {}
    for entry in os.listdir("/proc"):
        if not entry.isdigit():
            continue
        try:
            status = pathlib.Path("/proc", entry, "stat").read_text(errors="replace")
        except OSError:
            continue
        state, parent = status.rpartition(")")[2].split()[:2]
        if state not in "ZX":
            parents[int(entry)] = int(parent)
    found = set()
    grown = True
    while grown:
        grown = False
        for process, parent in parents.items():
            if process not in found and (parent == ancestor or parent in found):
                found.add(process)
                grown = True
    return found


def command_of(process):
    """The command line of a process, for messages."""
    try:
        raw = pathlib.Path("/proc", str(process), "cmdline").read_bytes()
    except OSError:
        return "?"
    return raw.replace(b"\0", b" ").decode(errors="replace").strip()


class VirtualDesktop:
    """A context manager; `environment` is what a program on this desktop has to be started with."""

    WINDOW_MANAGER = ("openbox", "--sm-disable")

    def __init__(self, width=1920, height=1200, window_manager=WINDOW_MANAGER):
        self.size = (width, height)
        self._first_manager = window_manager
        self.window_manager = None
        self.environment = {}
        self.directory = None
        self._log = None
        self._processes = []

    def __enter__(self):
        libc = ctypes.CDLL(None, use_errno=True)
        # Orphans come to us instead of escaping to init, so that closing finds them all.
        libc.prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0)
        self._libc = libc
        self._others = descendants(os.getpid())
        self.directory = pathlib.Path(tempfile.mkdtemp(prefix="hmatnik-desktop-"))
        # What the X server, the buses and the window manager have to say matters only on failure.
        self._log = open(self.directory / "log", "w+b")
        try:
            self._start()
        except BaseException:
            sys.stderr.write((self.directory / "log").read_text(errors="replace"))
            self.close()
            raise
        return self

    def __exit__(self, *_):
        self.close()

    def _start(self):
        runtime = self.directory / "runtime"
        runtime.mkdir(mode=0o700)
        self.environment = dict(os.environ, XDG_RUNTIME_DIR=str(runtime), XDG_SESSION_TYPE="x11")
        for name in ("WAYLAND_DISPLAY", "XAUTHORITY", "SESSION_MANAGER", "AT_SPI_BUS_ADDRESS",
                     "QT_QPA_PLATFORM", "QT_QUICK_CONTROLS_STYLE", "GDK_BACKEND",
                     "DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN"):
            self.environment.pop(name, None)
        # Settings of the programs around us stay in memory instead of in the person's own store.
        self.environment["GSETTINGS_BACKEND"] = "memory"
        self.environment["DISPLAY"] = self._start_server()
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = self._start_bus()
        self.start_window_manager(*self._first_manager)

    def start_window_manager(self, name, *arguments):
        """Starts a window manager and waits until it is the one."""
        # One that is replaced by its like goes by the same name; its window is another.
        before = self._manager_window() if self.managing() else None
        self.window_manager = self._spawn_quietly([name, *arguments])
        wait_until(lambda: self.managing().lower() == name and self._manager_window() != before,
                   name)

    def _manager_window(self):
        """The window by which the window manager tells of itself, as xprop writes it."""
        said = self.output(["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"])
        return said.rpartition("#")[2].strip()

    def managing(self):
        """The name of the window manager that is there; empty if none is."""
        said = self._manager_window()
        # What it has said of itself stays behind when it dies, its window does not.
        name = self.output(["xprop", "-id", said, "_NET_WM_NAME"]) if said[:2] == "0x" else ""
        return name.partition('"')[2].rstrip().rstrip('"')

    def describe_windows(self):
        """Who manages the windows and which there are, for messages."""
        manager = self.window_manager
        state = "none was started" if not manager else (
            "its process runs" if manager.poll() is None else f"ended with {manager.returncode}")
        windows = self.output(["xwininfo", "-root", "-children"]).splitlines()
        return "\n".join([f"Window manager: {self.managing() or 'none'} ({state})", *windows[:60]])

    def _start_server(self):
        reader, writer = os.pipe()
        geometry = "{}x{}x24".format(*self.size)
        # No auto-repeat (-r): on a busy machine the server can come to a key's release so late
        # that it would take the key for held and type it again.
        self._spawn_quietly(["Xvfb", "-displayfd", str(writer), "-screen", "0", geometry,
                             "-nolisten", "tcp", "-noreset", "-r"], pass_fds=(writer,))
        os.close(writer)
        number = self._read_line(reader, "the X server")
        return f":{number}"

    def _start_bus(self):
        services = self.directory / "services"
        services.mkdir()
        accessibility = pathlib.Path("/usr/share/dbus-1/services/org.a11y.Bus.service")
        if accessibility.exists():
            shutil.copy(accessibility, services)
        configuration = self.directory / "bus.conf"
        configuration.write_text(BUS_CONFIGURATION.format(directory=self.directory))
        reader, writer = os.pipe()
        self._spawn_quietly(["dbus-daemon", f"--config-file={configuration}", "--nofork",
                             "--nopidfile", f"--print-address={writer}"], pass_fds=(writer,))
        os.close(writer)
        return self._read_line(reader, "the message bus")

    @staticmethod
    def _read_line(reader, what):
        with os.fdopen(reader) as stream:
            if not select.select([stream], [], [], DEADLINE)[0]:
                raise AssertionError(f"{what} did not start")
            line = stream.readline().strip()
        if not line:
            raise AssertionError(f"{what} ended at once")
        return line

    def spawn(self, command, **options):
        """Starts a program on this desktop in a session of its own, so that a Ctrl+C meant for us
        does not reach it, and tied to our life."""
        options.setdefault("env", self.environment)
        options.setdefault("stdin", subprocess.DEVNULL)
        process = subprocess.Popen(
            command, start_new_session=True,
            preexec_fn=lambda: self._libc.prctl(PR_SET_PDEATHSIG, signal.SIGKILL, 0, 0, 0),
            **options)
        self._processes.append(process)
        return process

    def _spawn_quietly(self, command, **options):
        return self.spawn(command, stdout=self._log, stderr=self._log, **options)

    def output(self, command):
        """What a short command prints, errors included; empty if it fails to start."""
        return subprocess.run(command, env=self.environment, stdin=subprocess.DEVNULL, check=False,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                              timeout=DEADLINE).stdout.decode(errors="replace")

    def screenshot(self, path, window="root"):
        """Writes a picture of the screen or of one window."""
        pathlib.Path(path).parent.mkdir(parents=True, exist_ok=True)
        subprocess.run(["import", "-window", str(window), str(path)], env=self.environment,
                       stdin=subprocess.DEVNULL, check=True, timeout=DEADLINE)

    def pixels(self):
        """Width, height and the RGB bytes of the screen."""
        return *self.size, self._rgb("root")

    def pixels_of(self, x, y, width, height):
        """The RGB bytes of a part of the screen."""
        return self._rgb("root", "-crop", f"{width}x{height}+{x}+{y}")

    def _rgb(self, window, *options, deadline=DEADLINE):
        return subprocess.run(["import", "-window", str(window), *options, "-depth", "8", "rgb:-"],
                              env=self.environment, stdin=subprocess.DEVNULL, check=True,
                              stdout=subprocess.PIPE, timeout=deadline).stdout

    def is_painted(self, window):
        """Whether more than a plain ground shows in a window; not if it has gone meanwhile."""
        try:
            # Of a window that goes at the wrong moment, the command lets one be chosen.
            picture = self._rgb(window, deadline=5 * PATIENCE)
        except (subprocess.CalledProcessError, subprocess.TimeoutExpired):
            return False
        return len({picture[at:at + 3] for at in range(0, len(picture), 3 * 41)}) > 8

    def wait_until_painted(self, window):
        """Waits until more than a plain ground shows in a window."""
        wait_until(lambda: self.is_painted(window), "a painted window", pause=0.15)

    def wait_until_still(self, deadline=DEADLINE):
        """Waits until two pictures of the screen, a moment apart, are the same."""
        last = [None]

        def still():
            before, last[0] = last[0], self.pixels()[2]
            return before == last[0]

        wait_until(still, "a still picture", deadline, pause=0.15)

    def visible_windows(self, window_class):
        """Ids of the windows of that class which are on the screen."""
        found = self.output(["xdotool", "search", "--onlyvisible", "--class",
                             f"^{re.escape(window_class)}$"])
        return [int(line) for line in found.split() if line.isdigit()]

    def close(self):
        """Ends everything that was started here, in the reverse order; leaves nothing behind."""
        for process in reversed(self._processes):
            self._end(process)
        self._processes.clear()
        self._end_the_rest()
        if self._log:
            self._log.close()
        if self.directory:
            shutil.rmtree(self.directory, ignore_errors=True)
            self.directory = None

    @staticmethod
    def _end(process):
        if process.poll() is None:
            process.terminate()
            try:
                process.wait(5)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()

    def _end_the_rest(self):
        """Ends what our programs and the bus had started and left."""
        for chosen in (signal.SIGTERM, signal.SIGKILL):
            end = time.monotonic() + 5
            signalled = set()
            while True:
                self._reap()
                left = descendants(os.getpid()) - self._others
                if not left:
                    return
                for process in left - signalled:
                    try:
                        os.kill(process, chosen)
                    except ProcessLookupError:
                        pass
                signalled |= left
                if time.monotonic() >= end:
                    break
                time.sleep(0.02)
        raise AssertionError("still running: " + ", ".join(map(command_of, left)))

    def _reap(self):
        """Collects adopted orphans that have ended."""
        try:
            while os.waitpid(-1, os.WNOHANG)[0]:
                pass
        except ChildProcessError:
            pass


class Interrupted(Exception):
    """A signal asked us to stop."""


def _interrupt(number, _frame):
    # One is enough; a second must not disturb the tidying up.
    for ignored in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
        signal.signal(ignored, signal.SIG_IGN)
    raise Interrupted(number)


def _take_picture(desktop, process, window_class, path):
    def shown():
        if process.poll() is not None:
            raise SystemExit(f"The program ended at once with status {process.returncode}.")
        return desktop.visible_windows(window_class)

    try:
        desktop.wait_until_painted(wait_until(shown, f"a window of class {window_class}")[0])
        desktop.wait_until_still()
    except AssertionError as problem:
        print(f"No window appeared: {problem}", file=sys.stderr, flush=True)
    desktop.screenshot(path)
    print(f"Screenshot: {path}", flush=True)


def main():
    parser = argparse.ArgumentParser(description="Runs a command on a desktop without a display.")
    parser.add_argument("--screenshot", type=pathlib.Path, help="write a picture here")
    parser.add_argument("--wait-for-class", default="hmatnik",
                        help="class of the window that the picture waits for")
    parser.add_argument("command", nargs=argparse.REMAINDER)
    arguments = parser.parse_args()
    # Set explicitly, because a shell starts background jobs with SIGINT ignored.
    for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
        signal.signal(number, _interrupt)
    status = 0
    desktop = VirtualDesktop()
    try:
        with desktop:
            process = desktop.spawn(arguments.command)
            if arguments.screenshot:
                _take_picture(desktop, process, arguments.wait_for_class,
                              arguments.screenshot.resolve())
                print("Running; Ctrl+C stops it.", flush=True)
            status = process.wait()
    except Interrupted:
        print("Stopped.", flush=True)
    return status if status >= 0 else 128 - status


if __name__ == "__main__":
    sys.exit(main())
