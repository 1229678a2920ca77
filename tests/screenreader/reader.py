"""The steps, each a method that says what was seen, or fails."""

from screen import wait
from texts import Texts
from user import BUTTONS, LIMIT, PAGES, User

# The entries of the menu that wait for a phone, and those that do not.
WAITING = ("kSmsEms", "kRingtone", "kPicture", "kTheme", "kMovie", "kCalendar", "kPhonebook")
ALWAYS = ("kFileExplorer", "kMms")
# Their names are the program's own words; those of trees and lists are what the phone holds.
OWN_WORDS = ("label", "menu item", "menu bar", "tool bar", "status bar", "tree", "table", "text",
             "filler", "splitter", "column header", "dialog") + BUTTONS


class Reader(User):
    def __init__(self, bus, stage, tree):
        super().__init__(bus, stage, Texts(tree, "English"))
        self._tree = tree

    def _change_language(self, entry, language):
        before = self._words
        self._choose("kMenuOption", "kMenuLanguage", entry)
        self._words = Texts(self._tree, language)
        self._wait("menu item", self._words["kMenuOption"])
        self._expect_no_word_of(before)

    def _expect_no_word_of(self, other):
        """Nothing on the screen speaks the other language."""
        strange = other.all() - self._words.all()
        names = (node.name for node in self._root.all_showing() if node.role in OWN_WORDS)
        left = [name for name in names if strange.intersection(name.split(": "))]
        if left:
            raise AssertionError(f"still in the other language: {left}")

    def _is_in_front(self, number):
        """Title, panel, line and tab say that this page, and no other, is the one in front."""
        names = [self._words[name] for name, _ in PAGES]
        title = "Tessarin - " + ("File Explorer" if number == 0 else names[number])
        expected = {("frame", title), ("page tab", names[number]), ("filler", names[number]),
                    ("label", self._words[PAGES[number][1]])}
        every = set(names) | {title} | {self._words[about] for _, about in PAGES}
        seen = set()

        def right():
            seen.clear()
            seen.update((node.role, node.name) for node in self._root.all_showing()
                        if node.role != "page tab" or node.selected)
            seen.intersection_update({(role, name) for role, _ in expected for name in every})
            return seen == expected

        try:
            wait("the page", right, LIMIT)
        except TimeoutError as late:
            raise AssertionError(f"“{names[number]}” in front is told of by {seen}") from late
        return names[number]

    def _entries(self, names):
        tools = self._wait("menu item", self._words["kMenuTools"])
        entries = {node.name: node for node in tools.children[0].children}
        return [entries[self._words[name]] for name in names]

    def without_a_phone(self):
        self.start()
        state = self._wait("label", self._words.panel(2) + self._words["kStatusNoPhone"]).name
        for names, enabled in ((WAITING, False), (ALWAYS, True)):
            for entry in self._entries(names):
                if entry.enabled != enabled:
                    raise AssertionError(f"menu entry “{entry.name}” is enabled: {entry.enabled}")
        return f"“{self._words['kSearchTitle']}”; {state}; {len(WAITING)} entries wait for a phone"

    def with_a_phone(self):
        self.connect()
        self._press(self._words["kNotNow"])
        seen = self.read_connection()
        entries = lambda: all(entry.enabled for entry in self._entries(WAITING + ALWAYS))
        wait("every page's entry in the menu", entries, LIMIT)
        return "; ".join(seen)

    def pages_by_the_bar(self):
        seen = []
        for number, (name, _) in enumerate(PAGES):
            self._wait_for_the_window()
            self._press(self._words[name])
            seen.append(self._is_in_front(number))
        return ", ".join(seen)

    def another_language(self):
        self._wait_for_the_window()
        self._change_language("kLanguageGerman", "German")
        return "; ".join([self._is_in_front(len(PAGES) - 1)] + self.read_status("T610"))

    def pages_by_the_menu(self):
        english = Texts(self._tree, "English")
        seen = []
        for number, (name, _) in enumerate(PAGES):
            self._wait_for_the_window()
            self._choose("kMenuTools", name)
            seen.append(self._is_in_front(number))
            self._expect_no_word_of(english)
        return ", ".join(seen)

    def the_end(self):
        self.leave()
        return "a clean end, and a phone without complaints"

    def the_language_stays(self):
        self.without_a_phone()
        self._expect_no_word_of(Texts(self._tree, "English"))
        return self.with_a_phone()

    STEPS = (without_a_phone, with_a_phone, pages_by_the_bar, another_language, pages_by_the_menu,
             the_end, the_language_stays, the_end)
