"""Writes screenshots of every screen, light and dark, in the smallest size and a large one.

    shots.py DIRECTORY
"""

import json
import pathlib
import sys

from harness import Desktop, Hmatnik, Role, Settings, wait_until, write_preferences
from publisher import Publisher
from trays import Panel

PANELS_SCREEN = (800, 420)
SIZES = [(980, 650), (1600, 1000)]
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
    def __init__(self, desktop, program, directory, appearance):
        self.desktop = desktop
        self.program = program
        self.directory = directory
        self.appearance = appearance

    def take(self, name):
        """The window as it is now, with the pointer out of the way."""
        self.desktop.move_pointer(1, 1)
        self.desktop.wait_until_still()
        number = self.program.window_id()
        _, _, width, height = self.desktop.geometry(number)
        file = self.directory / f"{name}-{self.appearance}-{width}x{height}.png"
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
        self.desktop.click(sheet.wait_for("Spouštět Hmatník po přihlášení", Role.CHECK_BOX))
        window.wait_for("Nastavení se nepodařilo změnit", Role.ALERT)
        self.take("alert")
        self.desktop.press("Return")
        window.wait_until_gone("Nastavení se nepodařilo změnit")
        self.desktop.press("Return")
        window.wait_until_gone("Nastavení", Role.DIALOG)

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

        for glyph in ("⌘", "⇧"):
            self.desktop.click(window.wait_for(glyph, Role.CHECK_BOX))
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
            "⇧", Role.CHECK_BOX, lambda element: element.parent.name != "Klávesnice"))
        window.wait_for("Zrušit filtry")
        self.desktop.click(window.wait_for("4", Role.CHECK_BOX))
        self.take("keyboard-filtered")
        self.desktop.click(window.wait_for("Zrušit filtry"))


def everywhere(desktop, settings, program, directory):
    """A photographer for each appearance and size, with the window made so."""
    for appearance, scheme in (("light", Settings.LIGHT), ("dark", Settings.DARK)):
        settings.set(scheme)
        for size in SIZES:
            program.resize(*size)
            yield Photographer(desktop, program, directory, appearance)


def take_panels(directory):
    """The overlay and the window of tips, on a desktop with a panel of the same appearance."""
    for appearance, scheme in (("light", Settings.LIGHT), ("dark", Settings.DARK)):
        with Desktop(*PANELS_SCREEN) as desktop:
            Settings(desktop, scheme)
            desktop.output(["xsetroot", "-solid", "#6b74ab"])
            home = desktop.directory / "home"
            home.mkdir()
            write_preferences(home, {"hasLaunchedBefore": True})
            panel = Panel(desktop, home, dark=appearance == "dark")
            panel.start()
            desktop.spawn(["mousepad", "--disable-server"], env=panel.environment)
            wait_until(lambda: desktop.visible_windows("mousepad"), "the program in front")
            program = Hmatnik(desktop, home)
            icon = panel.wait_for_icon()
            desktop.wait_until_still()
            # Out of the pictures, and still the application in front.
            desktop.move(desktop.visible_windows("mousepad")[0], 40, PANELS_SCREEN[1] - 40)
            desktop.click(icon)
            tips = desktop.application(program.process.pid)
            button = tips.wait_for("Zobrazit overlay pro Mousepad", Role.BUTTON)
            desktop.move_pointer(*tips.wait_for("Vložit", Role.LIST_ITEM).centre)
            desktop.wait_until_still()
            picture = directory / f"tips-{appearance}.png"
            desktop.screenshot(picture)
            print(picture, flush=True)
            desktop.click(button)
            tips.wait_for("Otevřít celou knihovnu", Role.BUTTON)
            desktop.wait_until_still()
            picture = directory / f"overlay-{appearance}.png"
            desktop.screenshot(picture)
            print(picture, flush=True)
            program.terminate()
            panel.close()


def own_shortcut(number):
    return {"id": f"custom-{number}", "title": f"Nový textový soubor {number}",
            "keys": ["⌥", "⌘", str(number % 10)], "category": "Text", "apps": [],
            "detail": "Založí textový soubor."}


def main():
    directory = pathlib.Path(sys.argv[1]).resolve()
    take_panels(directory)
    with Desktop() as desktop:
        settings = Settings(desktop)
        home = desktop.directory / "home"
        home.mkdir()
        # Somebody to be in front before us, so that the overlay button has a name to show.
        desktop.spawn(["mousepad", "--disable-server"],
                      env=dict(desktop.environment, HOME=str(home)))
        wait_until(lambda: desktop.visible_windows("mousepad"), "the program in front")
        program = Hmatnik(desktop, home)
        program.window()
        for photographer in everywhere(desktop, settings, program, directory):
            photographer.take_all()
        program.terminate()

        # A login item can't be made where a file is in the way of its folder.
        other_home = desktop.directory / "other-home"
        write_preferences(other_home, {"customShortcuts": json.dumps(
            [own_shortcut(number) for number in range(1, 13)]).encode()})
        (other_home / ".config/autostart").write_text("")
        with Publisher(desktop.directory / "program") as publisher:
            publisher.publish("99.1")
            program = Hmatnik(desktop, other_home, command=(str(publisher.program),))
            program.window()
            for photographer in everywhere(desktop, settings, program, directory):
                photographer.take_banner()
                photographer.take_sheets()
            program.terminate()


if __name__ == "__main__":
    main()
