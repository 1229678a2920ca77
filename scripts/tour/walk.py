"""The steps of a walk through the program, each as a user, or a screen reader, would do it.

A step's first line of documentation says what is done; what it returns says what was seen.
"""

import re

from screen import drag, wait
from stage import grab
from user import BATTERY_PANEL, LIMIT, User

DARK = 128  # of 255
SLOW = "100"  # milliseconds before each answer of a slow phone, to see the windows of long work
BATTERY_PICTURES = 3  # how many different ones must be seen while charging
FOLDERS = ("Phone", "Sounds", "Ringtones")
TUNE = "Ode"
SCRIPTS = {"Cyrillic": re.compile("[\u0400-\u04FF]"), "Chinese": re.compile("[\u4E00-\u9FFF]")}


class Walk(User):
    def __init__(self, bus, stage, texts, theme):
        super().__init__(bus, stage, texts)
        self._theme = theme

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
        window = self.start()
        if (self._brightness(window) < DARK) != (self._theme == "dark"):
            raise AssertionError(f"the window is not {self._theme}")
        return f"window, {self._theme}, and “{self._words['kSearchTitle']}” before it"

    def found(self):
        """switched the phone on"""
        self.connect()
        return f"search over, question “{self._words['kAskingQuestion']}”"

    def start_panel(self):
        """declined"""
        self._press(self._words["kNotNow"])
        return "; ".join(self.read_connection())

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

    def dragged(self):
        """dragged a tune to the computer"""
        self._press(self._words["kRingtone"])
        files = self._wait("tree", self._words["kNamePhoneFiles"])
        tune = wait("the ringtones", lambda: files.find("tree item", TUNE), LIMIT)
        self._wait_for_the_window()
        target = self._find("tree", self._words["kNameComputerFiles"])
        drag(self._bus, tune.middle, target.middle)
        box = self._wait("alert message", "Tessarin")
        words = box.find("label", bool).name
        box.find("push button", bool).act("Press")
        received = wait("the tune on the computer",
                        lambda: target.find("tree item", lambda name: name.startswith(TUNE)), LIMIT)
        size = self._stage.size_of(f"UserData/Ringtone/{received.name}")
        return f"“{words}”, {received.name} with {size} bytes"

    def lost(self):
        """switched the phone off"""
        self._stage.end_phone()
        self._wait("dialog", self._words["kSearchTitle"])
        self._wait("label", self._words["kStartNoPhone"])
        return f"“{self._words['kSearchTitle']}” is back, no phone connected"

    def found_again(self):
        """switched it on again, slow now"""
        self.connect("--delay", SLOW)
        return f"question “{self._words['kAskingQuestion']}”"

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
        return "; ".join([bar] + self.read_connection())

    def busy(self):
        """took the next step that the start panel offers"""
        self._press(self._words["kStartOpenFiles"])
        title = self._words["kTransferTitle"]
        window = self._wait("dialog", title)
        words = window.find("label", bool)
        return f"“{title}” before it: “{words.name}”"

    def closed(self):
        """chose Exit in the menu"""
        self.leave()
        return "a clean end, and a phone without complaints"

    WHOLE = (search, found, start_panel, charging, phone_info, explorer, folder, dragged, lost, found_again,
             accepted, busy, closed)
    SHORT = (search, found, start_panel, phone_info, explorer, folder, closed)
