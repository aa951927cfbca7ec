"""Writes screenshots of every screen and panel, light and dark: in three sizes, at four scale
factors, with a larger font, with high contrast, and with the keys and the library of a PC.

    shots.py DIRECTORY [VARIANT…]

Without a variant, all of them; see VARIANTS.
"""

import dataclasses
import fractions
import json
import math
import pathlib
import subprocess
import sys

from harness import Desktop, Hmatnik, Role, Settings, wait_until, write_preferences
from publisher import Publisher
from trays import Panel

PANELS_SCREEN = (800, 420)
SMALLEST = (980, 650)


@dataclasses.dataclass(frozen=True)
class Variant:
    """What a desktop can be like."""

    sizes: tuple = (SMALLEST,)
    # As desktops set it: the density of the screen, from which toolkits take their scale.
    scale: float = 1
    # Of the desktop's font, in points; 0 leaves the toolkit's own.
    font: float = 0
    high_contrast: bool = False
    # What the person has chosen before.
    preferences: dict = dataclasses.field(default_factory=dict)
    # Whose desktop it says it is.
    desktop: str = ""
    # Names of the pills that are pressed, the one of Shift last.
    filters: tuple = ("⌘", "⇧")

    def prepare(self, desktop, home):
        """Makes the desktop so; gives what programs need in their environment."""
        desktop.accessibility.scale = self.scale
        if self.scale != 1:
            subprocess.run(["xrdb", "-nocpp", "-merge", "-"], check=True, text=True,
                           env=desktop.environment, input=f"Xft.dpi: {round(96 * self.scale)}\n")
        if not self.font:
            return {"XDG_CURRENT_DESKTOP": self.desktop} if self.desktop else {}
        (home / ".config").mkdir(parents=True, exist_ok=True)
        (home / ".config/kdeglobals").write_text(
            f"[General]\nfont=Inter,{self.font},-1,5,50,0,0,0,0,0\n")
        return {"XDG_CURRENT_DESKTOP": "KDE", "KDE_SESSION_VERSION": "5"}

    def scaled(self, *lengths):
        """Lengths of the layout, no shorter than given, that are whole dots of the screen."""
        step = fractions.Fraction(self.scale).denominator
        return tuple(round(self.scale * step * math.ceil(length / step)) for length in lengths)


VARIANTS = {
    "": Variant(sizes=(SMALLEST, (1280, 800), (2560, 1440))),
    "scale-1.25": Variant(scale=1.25),
    "scale-1.5": Variant(scale=1.5),
    "scale-2": Variant(scale=2),
    # A third more than the usual ten points.
    "font": Variant(sizes=(SMALLEST, (1280, 800)), font=13.3),
    "contrast": Variant(high_contrast=True),
    "pc": Variant(preferences={"keyNames": "pc", "library": "desktop"}, desktop="XFCE",
                  filters=("Ctrl", "Shift")),
}
# File name, row of the sidebar, page title.
SCREENS = [
    ("library", "Všechny zkratky", "Knihovna"),
    ("favorites", "Oblíbené", "Oblíbené"),
    ("keyboard", "Vizuální klávesnice", "Vizuální klávesnice"),
    ("sticker", "Samolepka", "Zkratky ze samolepky"),
    ("first-aid", "První pomoc", "První pomoc"),
    ("daily", "Dnešní zkratka", "Dnešní výuka"),
    ("practice", "Procvičování", "Procvičování"),
    ("category", "Okna a aplikace", "Okna a aplikace"),
]


class Photographer:
    def __init__(self, desktop, program, directory, suffix, variant):
        self.desktop = desktop
        self.program = program
        self.directory = directory
        self.suffix = suffix
        self.variant = variant

    def take(self, name):
        """The window as it is now, with the pointer out of the way."""
        self.desktop.move_pointer(1, 1)
        self.desktop.wait_until_still()
        number = self.program.window_id()
        _, _, width, height = self.desktop.geometry(number)
        file = self.directory / f"{name}-{self.suffix}-{width}x{height}.png"
        self.desktop.screenshot(file, number)
        print(file, flush=True)

    def go_to(self, row, title):
        self.desktop.click(self.program.row(row))
        self.program.window().wait_for(title, Role.HEADING)

    def take_sheets(self):
        window = self.program.window()
        self.desktop.click(window.wait_for("Přidat vlastní", Role.BUTTON))
        sheet = window.wait_for("Přidat vlastní zkratku", Role.DIALOG)
        self.take("editor-empty")
        self.desktop.type("Novy textovy soubor")
        self.desktop.press("Tab", "Tab", "space")
        window.wait_for("Prohlížeč", Role.LIST_ITEM)
        self.take("editor")
        self.desktop.press("Escape")
        self.desktop.click(sheet.wait_for("Zrušit", Role.BUTTON))
        window.wait_until_gone("Přidat vlastní zkratku", Role.DIALOG)

        self.desktop.click(window.wait_for("Nastavení", Role.BUTTON))
        sheet = window.wait_for("Nastavení", Role.DIALOG)
        self.take("settings")
        self.wheel(sheet, "5")
        sheet.wait_for("Klávesnice", Role.HEADING)
        self.take("settings-keyboard")
        self.wheel(sheet, "4")
        self.desktop.click(sheet.wait_for("Spouštět Hmatník po přihlášení", Role.CHECK_BOX))
        window.wait_for("Nastavení se nepodařilo změnit", Role.ALERT)
        self.take("alert")
        self.desktop.press("Return")
        window.wait_until_gone("Nastavení se nepodařilo změnit")
        self.desktop.press("Return")
        window.wait_until_gone("Nastavení", Role.DIALOG)

    def wheel(self, sheet, button):
        """To the end of a sheet, or to its start."""
        self.desktop.move_pointer(*sheet.wait_for("Vlastní zkratky", Role.HEADING).centre)
        self.desktop.output(["xdotool", "click", "--repeat", "20", "--delay", "10", button])

    def take_banner(self):
        self.program.window().wait_for("Přeskočit", Role.BUTTON)
        self.take("update-banner")

    def take_all(self):
        window = self.program.window()
        for name, row, title in SCREENS:
            self.go_to(row, title)
            self.take(name)
        self.take_learning(window)
        self.go_to("Všechny zkratky", "Knihovna")

        for name in self.variant.filters:
            self.desktop.click(window.wait_for(name, Role.CHECK_BOX))
        self.take("filtered")
        self.desktop.click(self.program.search_field())
        self.desktop.type("zkop")
        self.take("found")
        self.desktop.type("xyz")
        window.wait_for("Žádná odpovídající zkratka")
        self.take("nothing-found")
        self.desktop.click(window.wait_for("Vymazat hledání"))
        self.desktop.click(window.wait_for("Zrušit filtry"))

        self.desktop.press("F10")
        window.wait_for(role=Role.MENU_BAR)
        self.desktop.press("Down")
        self.desktop.application(self.program.process.pid).wait_for("Ukončit Hmatník")
        self.take("menu-bar")
        self.desktop.press("Escape")
        if window.find(role=Role.MENU_BAR):
            self.desktop.press("Escape")
        window.wait_until_gone(role=Role.MENU_BAR)

    def take_learning(self, window):
        self.go_to("Procvičování", "Procvičování")
        window.wait_for(where=lambda element: element.focused
                        and "Pole přijímá" in element.description)
        self.desktop.press("super+k")
        window.wait_for("Další úkol", Role.BUTTON)
        self.take("practice-answered")

        self.go_to("Vizuální klávesnice", "Vizuální klávesnice")
        # The filter, not the drawn key.
        self.desktop.click(window.wait_for(
            self.variant.filters[-1], Role.CHECK_BOX, lambda element: element.parent.name != "Klávesnice"))
        window.wait_for("Zrušit filtry")
        self.desktop.click(window.wait_for("4", Role.CHECK_BOX))
        self.take("keyboard-filtered")
        self.desktop.click(window.wait_for("Zrušit filtry"))


def settings_of(desktop, variant, scheme=Settings.LIGHT):
    settings = Settings(desktop, scheme)
    settings.set_high_contrast(variant.high_contrast)
    return settings


def suffix_of(appearance, name):
    return f"{appearance}-{name}" if name else appearance


def everywhere(desktop, settings, program, directory, name):
    """A photographer for each appearance and size, with the window made so."""
    variant = VARIANTS[name]
    for appearance, scheme in (("light", Settings.LIGHT), ("dark", Settings.DARK)):
        settings.set(scheme)
        for size in variant.sizes:
            program.resize(*variant.scaled(*size))
            yield Photographer(desktop, program, directory, suffix_of(appearance, name), variant)


def take_panels(directory, name):
    """The overlay and the window of tips, on a desktop with a panel of the same appearance."""
    variant = VARIANTS[name]
    # Larger texts make the panels larger.
    larger = max(variant.font / 10, 1)
    screen = variant.scaled(*(larger * length for length in PANELS_SCREEN))
    for appearance, scheme in (("light", Settings.LIGHT), ("dark", Settings.DARK)):
        with Desktop(*screen) as desktop:
            home = desktop.directory / "home"
            home.mkdir()
            environment = variant.prepare(desktop, home)
            settings_of(desktop, variant, scheme)
            desktop.output(["xsetroot", "-solid", "#6b74ab"])
            write_preferences(home, {"hasLaunchedBefore": True, **variant.preferences})
            panel = Panel(desktop, home, dark=appearance == "dark")
            panel.start()
            desktop.spawn(["mousepad", "--disable-server"], env=panel.environment)
            wait_until(lambda: desktop.visible_windows("mousepad"), "the program in front")
            program = Hmatnik(desktop, home, environment)
            icon = panel.wait_for_icon()
            desktop.wait_until_still()
            # Out of the pictures, and still the application in front.
            desktop.move(desktop.visible_windows("mousepad")[0], 40, screen[1] - 40)
            desktop.click(icon)
            tips = desktop.application(program.process.pid)
            button = tips.wait_for("Zobrazit overlay pro Mousepad", Role.BUTTON)
            desktop.move_pointer(*tips.wait_for("Vložit", Role.LIST_ITEM).centre)
            desktop.wait_until_still()
            picture = directory / f"tips-{suffix_of(appearance, name)}.png"
            desktop.screenshot(picture)
            print(picture, flush=True)
            desktop.click(button)
            tips.wait_for("Otevřít celou knihovnu", Role.BUTTON)
            desktop.wait_until_still()
            picture = directory / f"overlay-{suffix_of(appearance, name)}.png"
            desktop.screenshot(picture)
            print(picture, flush=True)
            program.terminate()
            panel.close()


def own_shortcut(number):
    return {"id": f"custom-{number}", "title": f"Nový textový soubor {number}",
            "keys": ["⌥", "⌘", str(number % 10)], "category": "Text", "apps": [],
            "detail": "Založí textový soubor."}


def take_windows(directory, name):
    variant = VARIANTS[name]
    largest = [max(side) for side in zip(*variant.sizes)]
    with Desktop(*(length + 100 for length in variant.scaled(*largest))) as desktop:
        home = desktop.directory / "home"
        home.mkdir()
        environment = variant.prepare(desktop, home)
        settings = settings_of(desktop, variant)
        # Somebody to be in front before us, so that the overlay button has a name to show.
        desktop.spawn(["mousepad", "--disable-server"],
                      env=dict(desktop.environment, HOME=str(home)))
        wait_until(lambda: desktop.visible_windows("mousepad"), "the program in front")
        write_preferences(home, variant.preferences)
        program = Hmatnik(desktop, home, environment)
        program.window()
        for photographer in everywhere(desktop, settings, program, directory, name):
            photographer.take_all()
        program.terminate()

        # A login item can't be made where a file is in the way of its folder.
        other_home = desktop.directory / "other-home"
        write_preferences(other_home, {**variant.preferences, "customShortcuts": json.dumps(
            [own_shortcut(number) for number in range(1, 13)]).encode()})
        variant.prepare(desktop, other_home)
        (other_home / ".config/autostart").write_text("")
        with Publisher(desktop.directory / "program") as publisher:
            publisher.publish("99.1")
            program = Hmatnik(desktop, other_home, environment, (str(publisher.program),))
            program.window()
            for photographer in everywhere(desktop, settings, program, directory, name):
                photographer.take_banner()
                photographer.take_sheets()
            program.terminate()


def main():
    directory = pathlib.Path(sys.argv[1]).resolve()
    for name in sys.argv[2:] or VARIANTS:
        take_panels(directory, name)
        take_windows(directory, name)


if __name__ == "__main__":
    main()
