"""Takes the pictures of docs/screenshots anew, and writes the page that shows them.

    scripts/screenshots [name ...]

Without names, every row of the tables below in every language; with names, only these rows.
"""

import glob
import re
import signal
import subprocess
import sys
from pathlib import Path
from typing import NamedTuple

import decoration
import screen
import stage
from texts import Texts
from user import PAGES, User

TREE = Path(__file__).resolve().parents[2]
BUILD = TREE / "build/release"
WORK = TREE / "build/screenshots"
OUT = TREE / "docs/screenshots"

# Part of a picture's name, language file, registry code, theme.
LANGUAGES = (("en", "English", "en", "light"), ("de", "German", "ger", "light"),
             ("zh", "SimplifiedChinese", "sch", "light"), ("en-dark", "English", "en", "dark"))
# The start panel, and the pages in their order.
PANELS = ("start", "files", "messages", "mms", "ringtones", "pictures", "themes", "movies", "calendar",
          "phonebook")


class Shot(NamedTuple):
    """A further window: the panel it is opened from, the way there (one word is a button, several
    are menus and an entry), and the word of its title. With `rows`, the name of a list, the way is
    an entry in the menu of that list's first row."""
    name: str
    panel: str
    way: tuple
    title: str
    rows: str = ""


SHOTS = (
    Shot("phone-info", "start", ("kMenuFile", "kMenuPhoneInfo"), "kPhoneInfoTitle"),
    Shot("help", "start", ("kMenuHelp", "kMenuHelpContents"), "kHelpTitle"),
    Shot("about", "start", ("kMenuHelp", "kAbout"), "kAbout"),
    Shot("composer", "messages", ("kActionNew",), "kComposerTitle"),
    Shot("event-editor", "calendar", ("kActionNew",), "kEventNewTitle"),
    Shot("calendar-sync", "calendar", ("kActionSync",), "kCalendarSyncTitle"),
    Shot("contact-editor", "phonebook", ("kActionNew",), "kContactNewTitle"),
    Shot("phonebook-sync", "phonebook", ("kActionSync",), "kPhonebookSyncTitle"),
    Shot("copy-to-sim", "phonebook", ("kCopyPhoneToSim",), "kCopyToSimTitle", "kNameContacts"),
)
# A page's further views: the picture's name, the page's panel, the word of the view's button.
VIEWS = (("calendar-month", "calendar", "kViewNames + 1"),
         ("calendar-day", "calendar", "kViewNames + 2"))
IN_THE_DARK = ("start", "files", "messages", "composer", "calendar", "calendar-month", "calendar-day",
               "event-editor", "phonebook", "contact-editor", "phonebook-sync", "help")
# The day of the pictures, on which the phone has entries, and a battery that stands still.
TODAY = "@2004-06-11 10:00:00"
STEADY = ("--battery", "100")
# Large, with the pointer in its middle: windows in the upper left corner are not pointed at.
SCREEN = "2120x1480x24"


def steady_clock():
    """The environment of a program whose day is always the same."""
    library, = glob.glob("/usr/lib/*/faketime/libfaketime.so.1")
    return {"LD_PRELOAD": library, "FAKETIME": TODAY, "FAKETIME_DONT_FAKE_MONOTONIC": "1",
            "DONT_FAKE_MONOTONIC": "1"}


def still(seconds):
    return stage.still_picture(quiet=seconds, limit=60)


def frame_around(picture, area):
    """How far the frame of the only window in the picture stands out: left, top, right, bottom."""
    found = subprocess.run(["convert", "ppm:-", "-trim", "-format", "%X %Y %w %h", "info:"],
                           input=picture, check=True, stdout=subprocess.PIPE).stdout.split()
    left, top, width, height = (int(number) for number in found)
    x, y, inner_width, inner_height = area
    return (x - left, y - top, left + width - x - inner_width, top + height - y - inner_height)


class Photographer(User):
    """Works through the tables in one language and theme."""

    def __init__(self, bus, scene, row, wanted):
        self._suffix, language, _, theme = row
        super().__init__(bus, scene, Texts(TREE, language))
        self._wanted = [name for name in wanted or every_name()
                        if theme == "light" or name in IN_THE_DARK]
        self._border = None

    def take_all(self):
        window = self.start()
        self._border = frame_around(still(0.5), window.area)
        self.connect(*STEADY)
        self._press(self._words["kOk"])
        self.read_connection()
        for panel in PANELS:
            self._wait_for_the_window()
            if panel != "start":
                self._press(self._words[PAGES[PANELS.index(panel) - 1][0]])
                self._wait_for_the_work()
            self._take(panel, window)
            for name, of_panel, word in VIEWS:
                if of_panel == panel and name in self._wanted:
                    self._wait("check box", self._words[word]).act("Toggle")
                    self._take(name, window)
            for shot in SHOTS:
                if shot.panel == panel and shot.name in self._wanted:
                    self._take_further(shot)
        self.leave()

    def _wait_for_the_work(self):
        """Until the page in front has read what it shows: its job begins within a second."""
        still(2.5)
        self._wait_for_the_window()

    def _take_further(self, shot):
        if shot.rows:
            self._choose_for_first_row(shot.rows, *shot.way)
        elif len(shot.way) == 1:
            self._press(self._words[shot.way[0]])
        else:
            self._choose(*shot.way)
        word = self._words[shot.title]
        title = lambda name: name.endswith(word)  # a name may stand before it
        self._take(shot.name, self._wait("dialog", title, what=f"“{word}”"))
        screen.press_key(self._bus, screen.ESCAPE)
        self._wait_until_gone("dialog", title)

    def _choose_for_first_row(self, rows, entry):
        """An entry can be pressed without its menu being open: nothing stands before what it opens."""
        self._wait("tree", self._words[rows]).find("tree item", bool).act("Toggle")
        menus = self._wait("menu bar", self._words["kNameMainMenu"]).children
        entries = [each for menu in menus for below in menu.children for each in below.children]
        wanted = self._words[entry]
        next(each for each in entries if each.name == wanted and each.enabled).act("Press")

    def _take(self, name, window):
        """The window in its frame, in few colours."""
        if name not in self._wanted:
            return
        file = OUT / f"{name}-{self._suffix}.png"
        picture = still(0.5)
        x, y, width, height = window.area
        left, top, right, bottom = self._border
        crop = f"{left + width + right}x{top + height + bottom}+{x - left}+{y - top}"
        subprocess.run(["convert", "ppm:-", "-crop", crop, "+repage", "-strip", str(file)],
                       input=picture, check=True)
        subprocess.run(["pngquant", "--force", "--nofs", "--speed", "1", "--strip", "--ext", ".png",
                        "256", str(file)], check=True)
        print(f"  {file.name}", flush=True)


def every_name():
    """The pages, each with its further views behind it, and then the other windows."""
    names = []
    for panel in PANELS:
        names += [panel] + [name for name, of_panel, _ in VIEWS if of_panel == panel]
    return tuple(names) + tuple(shot.name for shot in SHOTS)


def heading(name, words):
    if name == "start":
        return words["kNameStartPanel"]
    if name in PANELS:
        return words[PAGES[PANELS.index(name) - 1][0]]
    for view, panel, word in VIEWS:
        if view == name:
            return f"{heading(panel, words)}: {words[word]}"
    return next(words[shot.title] for shot in SHOTS if shot.name == name)


def write_page():
    """The page that shows all pictures, a row a window."""
    words = Texts(TREE, "English")
    light = [(row[0], re.sub(r"\B([A-Z])", r" \1", row[1])) for row in LANGUAGES
             if row[3] == "light"]
    lines = ["# Screenshots", "", "Every page beside the simulated phone. `scripts/screenshots` takes "
             "these pictures and writes", "this page."]
    for name in every_name():
        title = heading(name, words)
        lines += ["", f"## {title}", "", "| " + " | ".join(row[1] for row in light) + " |",
                  "|---" * len(light) + "|",
                  "| " + " | ".join(f"![{title}, {row[1]}]({name}-{row[0]}.png)" for row in light)
                  + " |"]
    lines += ["", "## In the dark", ""]
    lines += [f"![{heading(name, words)}]({name}-en-dark.png)" for name in IN_THE_DARK]
    (OUT / "README.md").write_text("\n".join(lines) + "\n", encoding="utf-8")


def main():
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    WORK.mkdir(parents=True, exist_ok=True)
    OUT.mkdir(parents=True, exist_ok=True)
    unknown = set(sys.argv[1:]) - set(every_name())
    if unknown:
        print(f"no such pictures: {', '.join(sorted(unknown))}", file=sys.stderr)
        return 2
    for row in LANGUAGES:
        suffix, _, code, theme = row
        frame = decoration.write(WORK / "frame", theme)
        print(suffix, flush=True)
        with (stage.screen(SCREEN, "--config-file", str(frame)),
              stage.session_bus(WORK / "bus.log"), stage.desktop(theme),
              stage.Stage(BUILD, WORK / suffix, code, **steady_clock()) as scene):
            Photographer(screen.connect(), scene, row, sys.argv[1:]).take_all()
    write_page()
    return 0


if __name__ == "__main__":
    sys.exit(main())
