"""The steps, each a method that says what was seen, or fails."""

from screen import Gone, wait
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

    def _reach(self, act, seen):
        """Acts until `seen`, which is given its limit, does not fail. The window of a page's work
        may come up in the moment of an act, which then does nothing, as a click would."""
        try:
            self._wait_for_the_window()
            act()
            return seen(5)
        except (AssertionError, TimeoutError, Gone):
            self._wait_for_the_window()
            act()
            return seen(LIMIT)

    def _change_language(self, entry, language):
        before = self._words
        after = Texts(self._tree, language)
        self._reach(lambda: self._choose("kMenuOption", "kMenuLanguage", entry),
                    lambda limit: self._wait("menu item", after["kMenuOption"], limit))
        self._words = after
        self._expect_no_word_of(before)

    def _expect_no_word_of(self, other):
        """Nothing on the screen speaks the other language."""
        strange = other.all() - self._words.all()
        left = []

        def none():
            """Rows may go while they are asked: then all are asked again."""
            left.clear()
            names = (node.name for node in self._root.all_showing() if node.role in OWN_WORDS)
            left.extend(name for name in names if strange.intersection(name.split(": ")))
            return not left

        try:
            wait("the language alone", none, LIMIT)
        except TimeoutError as late:
            raise AssertionError(f"still in the other language: {left}") from late

    def _is_in_front(self, number, limit=LIMIT):
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
            wait("the page", right, limit)
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
            seen.append(self._reach(lambda: self._press(self._words[name]),
                                    lambda limit: self._is_in_front(number, limit)))
        return ", ".join(seen)

    def another_language(self):
        self._change_language("kLanguageGerman", "German")
        return "; ".join([self._is_in_front(len(PAGES) - 1)] + self.read_status("T610"))

    def pages_by_the_menu(self):
        english = Texts(self._tree, "English")
        seen = []
        for number, (name, _) in enumerate(PAGES):
            seen.append(self._reach(lambda: self._choose("kMenuTools", name),
                                    lambda limit: self._is_in_front(number, limit)))
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
