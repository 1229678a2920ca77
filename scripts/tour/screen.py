"""What a screen reader sees: the program's widgets by role and name, over the accessibility bus.

The bus is spoken to directly. The usual library keeps a cache that is only right while its own
event loop runs; a walk-through that acts and waits wants the present state each time.
"""

import time

from gi.repository import Gio, GLib

ACCESSIBLE = "org.a11y.atspi.Accessible"
ACTION = "org.a11y.atspi.Action"
COMPONENT = "org.a11y.atspi.Component"
KEYS = ("org.a11y.atspi.Registry", "/org/a11y/atspi/registry/deviceeventcontroller",
        "org.a11y.atspi.DeviceEventController")
ESCAPE = 0xFF1B  # the key's symbol
REGISTRY = ("org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root")
NULL_PATH = "/org/a11y/atspi/null"
# Bits of the state.
ENABLED = 8
SELECTED = 23
SHOWING = 25  # on the screen
SCREEN_COORDINATES = 0
CALL_LIMIT = 20_000  # milliseconds


class Gone(Exception):
    """The widget, or the whole program, is not there or does not answer."""


def ask(bus, owner, path, interface, method, arguments=None):
    try:
        return bus.call_sync(owner, path, interface, method, arguments, None,
                             Gio.DBusCallFlags.NONE, CALL_LIMIT, None).unpack()
    except GLib.Error as error:
        raise Gone(f"{method}: {error.message}") from error


class Node:
    """One accessible object. Every property is asked anew."""

    def __init__(self, bus, owner, path):
        self.bus, self.owner, self.path = bus, owner, path

    def _ask(self, interface, method, arguments=None):
        return ask(self.bus, self.owner, self.path, interface, method, arguments)

    def _property(self, name):
        arguments = GLib.Variant("(ss)", (ACCESSIBLE, name))
        return self._ask("org.freedesktop.DBus.Properties", "Get", arguments)[0]

    @property
    def name(self):
        return self._property("Name")

    @property
    def role(self):
        return self._ask(ACCESSIBLE, "GetRoleName")[0]

    def _has(self, state):
        return bool(self._ask(ACCESSIBLE, "GetState")[0][0] >> state & 1)

    @property
    def showing(self):
        return self._has(SHOWING)

    @property
    def enabled(self):
        return self._has(ENABLED)

    @property
    def selected(self):
        return self._has(SELECTED)

    @property
    def parent(self):
        return Node(self.bus, *self._property("Parent"))

    @property
    def children(self):
        return [Node(self.bus, owner, path)
                for owner, path in self._ask(ACCESSIBLE, "GetChildren")[0] if path != NULL_PATH]

    @property
    def area(self):
        """x, y, width and height on the screen."""
        return self._ask(COMPONENT, "GetExtents", GLib.Variant("(u)", (SCREEN_COORDINATES,)))[0]

    @property
    def middle(self):
        x, y, width, height = self.area
        return x + width // 2, y + height // 2

    def act(self, action):
        """Does one of the widget's actions, such as "Press"."""
        offered = [name for name, _, _ in self._ask(ACTION, "GetActions")[0]]
        if action not in offered:
            raise Gone(f"“{self.name}” offers {offered}, not {action}")
        # Without waiting for the answer: it comes only when a window that opens is closed again.
        self.bus.call(self.owner, self.path, ACTION, "DoAction",
                      GLib.Variant("(i)", (offered.index(action),)), None,
                      Gio.DBusCallFlags.NONE, CALL_LIMIT, None, None)
        self.bus.flush_sync()

    def all_showing(self):
        """All that is on the screen below this object."""
        for child in self.children:
            try:
                if child.showing:
                    yield child
                    yield from child.all_showing()
            except Gone:
                continue  # it went while it was looked at

    def find(self, role, name):
        """The first on the screen with this role, or one of these, whose name is, or is accepted
        by, `name`."""
        roles = (role,) if isinstance(role, str) else role
        accepts = name if callable(name) else lambda each: each == name
        for node in self.all_showing():
            if node.role in roles and accepts(node.name):
                return node
        return None


def connect():
    """The accessibility bus of this session."""
    session = Gio.bus_get_sync(Gio.BusType.SESSION, None)
    session.set_exit_on_close(False)  # the bus ends before the walk does
    address = ask(session, "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress")[0]
    flags = (Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT |
             Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION)
    return Gio.DBusConnection.new_for_address_sync(address, flags, None, None)


def press_key(bus, symbol):
    """As on the keyboard, in whatever has the focus."""
    press_and_release_symbol = 3
    ask(bus, *KEYS, "GenerateKeyboardEvent",
        GLib.Variant("(isu)", (symbol, "", press_and_release_symbol)))


def drag(bus, start, end):
    """As with the mouse, from one place on the screen to another."""
    steps = 8
    path = [tuple(a + (b - a) * step // steps for a, b in zip(start, end))
            for step in range(steps + 1)]
    for place, event in [(start, "abs"), (start, "b1p"), *((each, "abs") for each in path),
                         (end, "b1r")]:
        ask(bus, *KEYS, "GenerateMouseEvent", GLib.Variant("(iis)", (*place, event)))
        time.sleep(0.1)  # Qt and the window manager look at the way, not only at its end


def program(bus, process):
    """The accessible root of the program that runs as this process, or None."""
    for node in Node(bus, *REGISTRY).children:
        owner = GLib.Variant("(s)", (node.owner,))
        daemon = "org.freedesktop.DBus"
        if ask(bus, daemon, "/", daemon, "GetConnectionUnixProcessID", owner)[0] == process:
            return node
    return None


def wait(what, condition, limit):
    """Polls until `condition` gives something true, and returns it; fails after `limit` seconds."""
    end = time.monotonic() + limit
    reason = ""
    while time.monotonic() < end:
        try:
            if answer := condition():
                return answer
        except Gone as gone:
            reason = f" ({gone})"
        time.sleep(0.05)
    raise TimeoutError(f"{what}: not seen within {limit} s{reason}")
