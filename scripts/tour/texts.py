"""The program's words in one language, by the names that its code gives them."""

import re
from pathlib import Path

NAMES = re.compile(r"inline constexpr int (k\w+) = (\d+);")


def _section(lines, heading):
    inside = False
    for line in lines:
        if line.startswith("["):
            inside = line == heading
        elif inside and not line.startswith("#"):
            yield line


class Texts:
    """`tree` is the source tree; `language` the name of a file in resources/languages."""

    def __init__(self, tree: Path, language: str):
        header = (tree / "src/core/TextIndex.h").read_text(encoding="utf-8")
        header = header[header.index("namespace interface_"):]
        self._index = {name: int(index) for name, index in NAMES.findall(header)}
        source = (tree / f"resources/languages/{language}.txt").read_text(encoding="utf-8")
        rows = [line.split("=", 1) for line in _section(source.splitlines(), "[interface]") if line]
        self._words = {int(index): text.replace("\\n", "\n") for index, text in rows}

    def __getitem__(self, name):
        """The word of that name; "kViewNames + 1" is the one behind it."""
        first, _, further = name.partition(" + ")
        return self._words[self._index[first] + int(further or 0)]

    def all(self):
        """Every word of the interface."""
        return set(self._words.values())

    def filled(self, name, *values):
        text = self[name]
        for number, value in enumerate(values, 1):
            text = text.replace(f"###{number}", value)
        return text

    def panel(self, number):
        """What a screen reader says in front of the text of a panel of the status bar."""
        return self._words[self._index["kNameStatusPanels"] + number - 1] + ": "
