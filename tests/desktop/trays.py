"""Hosts of tray icons that other people made: a panel that speaks StatusNotifierItem, and a tray
for XEmbed alone."""

import pathlib
import signal

from virtual_desktop import wait_until

PANEL_HEIGHT = 30
TRAY_HEIGHT = 26

PANEL_SETTINGS = f"""<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="dark-mode" type="bool" value="{{dark}}"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=6;x=0;y=0"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="length" type="uint" value="100"/>
      <property name="size" type="uint" value="{PANEL_HEIGHT}"/>
      <property name="plugin-ids" type="array"><value type="int" value="1"/></property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="systray"/>
  </property>
</channel>
"""


class Host:
    """A program that shows tray icons; it can be ended and started again."""

    def __init__(self, desktop, home):
        self.desktop = desktop
        self.environment = dict(desktop.environment, HOME=str(home),
                                XDG_CONFIG_HOME=str(home / ".config"),
                                XDG_CACHE_HOME=str(home / ".cache"))
        self.process = None

    def start(self):
        self.process = self.desktop.spawn(self.command(), env=self.environment)

    def stop(self):
        if self.process and self.process.poll() is None:
            self.process.send_signal(signal.SIGTERM)
            self.process.wait(10)

    def blue_at(self):
        """The middle of a blue thing on the host, or None: our icon is the only one."""
        width, _, data = self.desktop.pixels()
        blue = []
        for y in range(self.height):
            row = data[3 * width * y:3 * width * (y + 1)]
            blue += [(x, y) for x in range(width)
                     if row[3 * x] < 110 and row[3 * x + 2] > 200]
        if len(blue) < 100:
            return None
        xs, ys = [x for x, _ in blue], [y for _, y in blue]
        return (min(xs) + max(xs)) // 2, (min(ys) + max(ys)) // 2

    def wait_for_icon(self):
        return wait_until(self.blue_at, f"the icon on {self.command()[0]}")

    def wait_until_empty(self):
        wait_until(lambda: not self.blue_at(), "the icon to go")


class Trayer(Host):
    """A tray at the right end of the upper edge."""

    height = TRAY_HEIGHT

    def command(self):
        return ["trayer", "--edge", "top", "--align", "right", "--widthtype", "pixel",
                "--width", "120", "--height", str(TRAY_HEIGHT), "--SetPartialStrut", "true"]

    def start(self):
        super().start()
        wait_until(lambda: self.desktop.visible_windows("trayer"), "the tray")


class Panel(Host):
    """A panel along the upper edge; its icons begin on the left."""

    height = PANEL_HEIGHT

    def __init__(self, desktop, home, dark=False):
        super().__init__(desktop, home)
        folder = home / ".config/xfce4/xfconf/xfce-perchannel-xml"
        folder.mkdir(parents=True)
        (folder / "xfce4-panel.xml").write_text(
            PANEL_SETTINGS.format(dark="true" if dark else "false"))
        # It keeps the panel's settings, and has to be there before it.
        keeper = next(pathlib.Path("/usr/lib").glob("*/xfce4/xfconf/xfconfd"))
        self.settings = desktop.spawn([str(keeper)], env=self.environment)
        wait_until(lambda: desktop.has_owner("org.xfce.Xfconf"), "the panel's settings")

    def command(self):
        return ["xfce4-panel", "--disable-wm-check", "--sm-client-disable"]

    def start(self):
        super().start()
        wait_until(lambda: self.desktop.has_owner("org.kde.StatusNotifierWatcher"), "the panel")

    def close(self):
        self.stop()
        self.settings.terminate()
        self.settings.wait(10)
