"""One who works the program by its accessible names alone, as a screen reader does."""

import re

from screen import Gone, program, wait

SCAN_LIMIT = 90  # seconds; another device that keeps silent costs the search ten of them
LIMIT = 30
WINDOWS = ("frame", "dialog")
BUTTONS = ("push button", "page tab")
BATTERY_PANEL = 6
# The words of each page's name and of what it is for, in the order of the page bar.
PAGES = (("kFileExplorer", "kAboutFilePage"), ("kSmsEms", "kAboutSmsPage"),
         ("kMms", "kAboutMmsPage"), ("kRingtone", "kAboutRingtonePage"),
         ("kPicture", "kAboutPicturePage"), ("kTheme", "kAboutThemePage"),
         ("kMovie", "kAboutMoviePage"), ("kCalendar", "kAboutCalendarPage"),
         ("kPhonebook", "kAboutPhonebookPage"))


class User:
    """`texts` are the words of the language that the program speaks when it starts."""

    def __init__(self, bus, stage, texts):
        self._bus, self._stage, self._words = bus, stage, texts
        self._root = None

    def open_windows(self):
        """The titles of the windows, and the words in those that are not the main one."""
        words = []
        for window in self._root.children if self._root else []:
            if window.showing:
                labels = [node.name for node in window.all_showing() if node.role == "label"]
                words.append(" / ".join([window.name] + labels * (window.role != "frame")))
        return "; ".join(words)

    def _find(self, role, name):
        """What is on the screen with this role, or one of these; None when there is nothing."""
        self._stage.require_program()
        if role not in WINDOWS:
            return self._root.find(role, name)
        # Only at the top: while the program works it answers each question some 20 ms later.
        accepts = name if callable(name) else lambda each: each == name
        windows = (node for node in self._root.children if node.role == role and node.showing)
        return next((node for node in windows if accepts(node.name)), None)

    def _wait(self, role, name, limit=LIMIT, what=None):
        return wait(what or f"{role} “{name}”", lambda: self._find(role, name), limit)

    def _wait_until_gone(self, role, name):
        wait(f"end of {role} “{name}”", lambda: self._find(role, name) is None, LIMIT)

    def _wait_for_the_window(self):
        """Until no other window stands before the main one."""
        any_name = lambda name: True
        wait("nothing before the window", lambda: not self._find("dialog", any_name), LIMIT)

    def _press(self, name):
        self._wait(BUTTONS, name).act("Press")

    def _choose(self, *path):
        """Opens one menu after the other by the names of their words, and chooses the last entry."""
        *menus, entry = (self._words[each] for each in path)

        def reach():
            """The entry, its menus being opened; a window that comes up meanwhile closes them."""
            opened.clear()
            below = self._root
            for name in menus:
                below = below.find("menu item", name)
                if not below:
                    return None
                if not below.children[0].showing:
                    below.act("ShowMenu")
                opened.append(below)
            return below.find("menu item", entry)

        opened = []
        wait(f"menu item “{entry}”", reach, LIMIT).act("Press")
        for menu in reversed(opened):  # unlike a click, this leaves the menus open
            if menu.children[0].showing:
                menu.act("ShowMenu")

    def start(self):
        """Starts the program and waits for its window and for the search."""
        pid = self._stage.start_program()

        def root():
            self._stage.require_program()
            return program(self._bus, pid)

        self._root = wait("the program", root, LIMIT)
        window = self._wait("frame", "Tessarin")
        self._wait("dialog", self._words["kSearchTitle"])
        return window

    def connect(self, *options):
        """Switches the phone on and waits for the question that follows."""
        self._stage.start_phone(*options)
        self._wait("dialog", self._words["kAskingTitle"], SCAN_LIMIT)
        if self._find("dialog", self._words["kSearchTitle"]):
            raise AssertionError("the search window is still there")

    def read_connection(self):
        """Waits until the phone is connected; the start panel's heading and the status bar."""
        heading = re.compile(re.escape(self._words["kStartConnected"]).replace(r"\#\#\#1", "(.+)"))
        # "Not connected" may look like a phone of that name.
        connected = lambda name: name != self._words["kStartNoPhone"] and heading.fullmatch(name)
        title = self._wait("label", connected, what="the phone's name").name
        return [f"“{title}”"] + self.read_status(heading.fullmatch(title).group(1))

    def read_status(self, model):
        """What the status bar says of a connected phone of that model."""
        port = f"{self._words.panel(3)}{model}{self._words['kStatusSeparator']}COM3"
        level = re.compile(re.escape(self._words.panel(BATTERY_PANEL)) + r"\d{1,3}%")
        seen = [self._wait("label", self._words.panel(2) + self._words["kStatusConnected"]),
                self._wait("label", port), self._wait("label", level.fullmatch, what="the battery")]
        return [node.name for node in seen]

    def leave(self):
        """Chooses Exit in the menu, and looks at how the program and the phone end."""
        self._wait_for_the_window()
        try:
            self._choose("kMenuFile", "kMenuExit")
        except Gone:
            pass  # it may be gone while its menus are being closed; how it went is what counts
        status = self._stage.program_end(LIMIT)
        if status != 0:
            raise AssertionError(f"the program ended with {status}")
        self._stage.end_phone()
