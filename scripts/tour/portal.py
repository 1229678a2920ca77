"""A desktop that prefers the light or the dark, as its argument says.

It gives the one answer of the desktop portal that the program asks for, until it is ended.
"""

import sys

from gi.repository import Gio, GLib

NAME = "org.freedesktop.portal.Desktop"
PATH = "/org/freedesktop/portal/desktop"
INTERFACE = """
<node><interface name="org.freedesktop.portal.Settings">
  <method name="Read">
    <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="v" direction="out"/>
  </method>
</interface></node>"""
SETTING = ("org.freedesktop.appearance", "color-scheme")
SCHEMES = {"dark": 1, "light": 2}


def answer(_connection, _sender, _path, _interface, _method, parameters, call):
    if parameters.unpack() != SETTING:
        call.return_dbus_error("org.freedesktop.portal.Error.NotFound", "no such setting")
        return
    scheme = GLib.Variant("u", SCHEMES[sys.argv[1]])
    call.return_value(GLib.Variant("(v)", (GLib.Variant("v", scheme),)))  # wrapped twice


def main():
    connection = Gio.bus_get_sync(Gio.BusType.SESSION, None)
    interface = Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0]
    connection.register_object(PATH, interface, answer, None, None)
    Gio.bus_own_name_on_connection(connection, NAME, Gio.BusNameOwnerFlags.NONE, None, None)
    GLib.MainLoop().run()


if __name__ == "__main__":
    main()
