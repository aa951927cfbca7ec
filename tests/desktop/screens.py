"""The screens of a virtual desktop, plugged in, pulled out and scaled as a person does."""

import subprocess

from virtual_desktop import wait_until

PIXELS_PER_INCH = 96  # where nothing is scaled


class Screens:
    """The X server has one output, which can be made smaller than it began and divided."""

    def __init__(self, desktop):
        self._desktop = desktop
        self._modes = {desktop.size}
        self._monitors = []

    def resize(self, width, height):
        """Gives the output another resolution, and the whole desktop with it."""
        name = f"{width}x{height}"
        if (width, height) not in self._modes:
            self._modes.add((width, height))
            # The timing is of no interest to a screen in memory.
            self._xrandr("--newmode", name, "50", *map(str, (
                width, width + 8, width + 16, width + 24,
                height, height + 1, height + 2, height + 3)))
            self._xrandr("--addmode", "screen", name)
        self._xrandr("--output", "screen", "--mode", name)
        self._desktop.size = (width, height)

    def divide(self, *widths):
        """Makes monitors of these widths side by side; none: the output is one again."""
        for name in self._monitors:
            self._xrandr("--delmonitor", name)
        self._monitors = []
        left, height = 0, self._desktop.size[1]
        for number, width in enumerate(widths):
            name = f"monitor{number}"
            self._xrandr("--setmonitor", name, f"{width}/300x{height}/300+{left}+0",
                         "none" if number else "screen")
            self._monitors.append(name)
            left += width

    def _xrandr(self, *arguments):
        subprocess.run(["xrandr", *arguments], env=self._desktop.environment, check=True,
                       stdout=subprocess.DEVNULL)


class Scaling:
    """The desktop's settings daemon, as far as it tells how large everything is to be drawn."""

    def __init__(self, desktop, scale=1):
        self._file = desktop.directory / "xsettings"
        self._write(scale)
        self._process = desktop.spawn(["xsettingsd", "-c", str(self._file)],
                                      stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_until(lambda: "Xft/DPI" in desktop.output(["dump_xsettings"]), "the settings")

    def set(self, scale):
        self._write(scale)
        self._process.send_signal(1)  # reads its file again

    def _write(self, scale):
        self._file.write_text(f"Xft/DPI {int(1024 * PIXELS_PER_INCH * scale)}\n")

    def close(self):
        self._process.terminate()
        self._process.wait(10)
