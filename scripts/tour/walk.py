"""The steps of a walk through the program, each as a user, or a screen reader, would do it.

A step's first line of documentation says what is done; what it returns says what was seen.
"""

import re

from screen import Gone, program, wait
from stage import grab

SCAN_LIMIT = 90  # seconds; another device that keeps silent costs the search ten of them
LIMIT = 20
DARK = 128  # of 255
SLOW = "400"  # milliseconds before each answer of a slow phone, to see the windows of long work
WINDOWS = ("frame", "dialog")
BATTERY_PANEL = 6
BATTERY_PICTURES = 3  # how many different ones must be seen while charging
FOLDERS = ("Phone", "Sounds", "Ringtones")
SCRIPTS = {"Cyrillic": re.compile("[\u0400-\u04FF]"), "Chinese": re.compile("[\u4E00-\u9FFF]")}


class Walk:
    def __init__(self, bus, stage, texts, theme):
        self._bus, self._stage, self._words, self._theme = bus, stage, texts, theme
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
        self._stage.require_program()
        if role not in WINDOWS:
            return self._root.find(role, name)
        # Only at the top: while the program works it answers each question some 20 ms later.
        windows = (node for node in self._root.children if node.name == name)
        return next((node for node in windows if node.role == role and node.showing), None)

    def _wait(self, role, name, limit=LIMIT, what=None):
        return wait(what or f"{role} “{name}”", lambda: self._find(role, name), limit)

    def _wait_until_gone(self, role, name):
        wait(f"end of {role} “{name}”", lambda: self._find(role, name) is None, LIMIT)

    def _press(self, name):
        self._wait("push button", name).act("Press")

    def _choose(self, menu, entry):
        """Opens a menu and chooses one of its entries."""
        self._wait("menu item", self._words[menu]).act("ShowMenu")
        self._wait("menu item", self._words[entry]).act("Press")

    def _open(self, folder):
        """Opens a folder of the phone as soon as it is there and no other is being read."""
        tree = self._wait("tree", self._words["kNamePhoneFolders"])
        node = wait(f"folder “{folder}”", lambda: tree.find("tree item", folder), LIMIT)
        self._wait_until_gone("dialog", self._words["kTransferTitle"])
        node.act("Toggle")

    def _brightness(self, window):
        x, y, width, height = window.area
        corner = f"1x1+{x + width - 30}+{y + height - 60}"
        return max(grab("-crop", corner, "-depth", "8", "rgb:-"))

    def search(self):
        """started without a phone"""
        pid = self._stage.start_program()

        def root():
            self._stage.require_program()
            return program(self._bus, pid)

        self._root = wait("the program", root, LIMIT)
        window = self._wait("frame", "Tessarin")
        self._wait("dialog", self._words["kSearchTitle"])
        if (self._brightness(window) < DARK) != (self._theme == "dark"):
            raise AssertionError(f"the window is not {self._theme}")
        return f"window, {self._theme}, and “{self._words['kSearchTitle']}” before it"

    def found(self):
        """switched the phone on"""
        self._stage.start_phone()
        return self._asked()

    def _asked(self):
        self._wait("dialog", self._words["kAskingTitle"], SCAN_LIMIT)
        if self._find("dialog", self._words["kSearchTitle"]):
            raise AssertionError("the search window is still there")
        return f"search over, question “{self._words['kAskingQuestion']}”"

    def start_panel(self):
        """declined"""
        self._press(self._words["kNotNow"])
        return self._connected()

    def _connected(self):
        heading = re.compile(re.escape(self._words["kStartConnected"]).replace(r"\#\#\#1", "(.+)"))
        # "Not connected" may look like a phone of that name.
        connected = lambda name: name != self._words["kStartNoPhone"] and heading.fullmatch(name)
        title = self._wait("label", connected, what="the phone's name").name
        model = heading.fullmatch(title).group(1)
        port = f"{self._words.panel(3)}{model}{self._words['kStatusSeparator']}COM3"
        level = re.compile(re.escape(self._words.panel(BATTERY_PANEL)) + r"\d{1,3}%")
        seen = [self._wait("label", self._words.panel(2) + self._words["kStatusConnected"]),
                self._wait("label", port), self._wait("label", level.fullmatch, what="the battery")]
        return f"“{title}”; " + "; ".join(node.name for node in seen)

    def charging(self):
        """watched the battery for some seconds"""
        text = lambda name: name.startswith(self._words.panel(BATTERY_PANEL))
        panel = wait("battery", lambda: self._find("label", text), LIMIT).parent
        picture = panel.find("filler", "")
        x, y, width, height = picture.area
        pictures = set()

        def enough():
            pictures.add(grab("-crop", f"{width}x{height}+{x}+{y}", "rgb:-"))
            return len(pictures) >= BATTERY_PICTURES

        wait("a battery picture that moves", enough, LIMIT)
        return f"{len(pictures)} different pictures"

    def phone_info(self):
        """chose Phone Info in the menu"""
        self._choose("kMenuFile", "kMenuPhoneInfo")
        window = self._wait("dialog", self._words["kPhoneInfoTitle"])
        heads = [self._words[f"kPhoneInfo{each}"]
                 for each in ("Manufacturer", "Model", "Firmware", "Imei")]
        values = [node.name for node in window.all_showing()
                  if node.role == "label" and node.name and node.name not in heads]
        if len(values) != len(heads):
            raise AssertionError(f"four values expected, seen {values}")
        return ", ".join(values)

    def explorer(self):
        """opened the File Explorer"""
        window = self._find("dialog", self._words["kPhoneInfoTitle"])
        if window:
            window.find("push button", lambda name: True).act("Press")
            self._wait_until_gone("dialog", self._words["kPhoneInfoTitle"])
        self._press(self._words["kFileExplorer"])
        tree = self._wait("tree", self._words["kNamePhoneFolders"])
        wait("folders", lambda: tree.find("tree item", FOLDERS[0]), LIMIT)
        self._wait_until_gone("dialog", self._words["kTransferTitle"])
        folders = [node.name for node in tree.all_showing() if node.role == "tree item"]
        return "folders " + ", ".join(folders)

    def folder(self):
        """opened Phone, Sounds, Ringtones"""
        for folder in FOLDERS:
            self._open(folder)
        rows = self._wait("tree", self._words["kNamePhoneFiles"])

        def names():
            cells = [node.name for node in rows.all_showing() if node.role == "tree item"]
            found = {script: next(filter(letters.search, cells), None)
                     for script, letters in SCRIPTS.items()}
            return found if all(found.values()) else None

        found = wait("names in Cyrillic and Chinese", names, LIMIT)
        self._wait_until_gone("dialog", self._words["kTransferTitle"])
        return "files " + ", ".join(f"“{name}” ({script})" for script, name in found.items())

    def lost(self):
        """switched the phone off"""
        self._stage.end_phone()
        self._wait("dialog", self._words["kSearchTitle"])
        self._wait("label", self._words["kStartNoPhone"])
        return f"“{self._words['kSearchTitle']}” is back, no phone connected"

    def found_again(self):
        """switched it on again, slow now"""
        self._stage.start_phone("--delay", SLOW)
        return self._asked()

    def accepted(self):
        """let the phonebook be read"""
        self._press(self._words["kOk"])
        reading = self._words["kReadingPhonebook"]
        seen = []

        def connected():
            bar = self._find("dialog", reading)
            seen.extend([bar] if bar else [])
            return not bar and self._find("label", self._words["kStartBattery"])

        wait("the end of the reading", connected, LIMIT)
        bar = f"“{reading}” came and went" if seen else "read before one could look"
        return f"{bar}; {self._connected()}"

    def busy(self):
        """took the next step that the start panel offers"""
        self._press(self._words["kStartOpenFiles"])
        title = self._words["kTransferTitle"]
        window = self._wait("dialog", title)
        words = window.find("label", bool)
        return f"“{title}” before it: “{words.name}”"

    def closed(self):
        """chose Exit in the menu"""
        self._wait_until_gone("dialog", self._words["kTransferTitle"])
        try:
            self._choose("kMenuFile", "kMenuExit")
        except Gone:
            pass  # it may be gone before it answers; how it went is what counts
        status = self._stage.program_end(LIMIT)
        if status != 0:
            raise AssertionError(f"the program ended with {status}")
        self._stage.end_phone()
        return "a clean end, and a phone without complaints"

    WHOLE = (search, found, start_panel, charging, phone_info, explorer, folder, lost, found_again,
             accepted, busy, closed)
    SHORT = (search, found, start_panel, phone_info, explorer, folder, closed)
