# SPDX-License-Identifier: MIT
"""A desktop's portal that tells whether programs are to be light or dark."""
from gi.repository import Gio, GLib

from .accessible import connect

_NAME = "org.freedesktop.portal.Desktop"
_PATH = "/org/freedesktop/portal/desktop"
_SETTINGS = "org.freedesktop.portal.Settings"
_GROUP, _KEY = "org.freedesktop.appearance", "color-scheme"
DARK, LIGHT = 1, 2

_INTERFACES = f"""<node><interface name="{_SETTINGS}">
  <method name="Read"><arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="v" direction="out"/></method>
  <signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal>
</interface></node>"""


class Portal:
    """On the bus from when it is made to close(); it answers while the test waits for something."""

    def __init__(self, address, scheme):
        self._scheme = scheme
        self._connection = connect(address)
        interface = Gio.DBusNodeInfo.new_for_xml(_INTERFACES).interfaces[0]
        self._connection.register_object(_PATH, interface, self._called, None, None)
        self._connection.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
                                   GLib.Variant("(su)", (_NAME, 4)), None, Gio.DBusCallFlags.NONE, 30000, None)

    def close(self):
        self._connection.close_sync(None)

    def set(self, scheme):
        """The person prefers another one from now on."""
        self._scheme = scheme
        changed = GLib.Variant("(ssv)", (_GROUP, _KEY, GLib.Variant("u", scheme)))
        self._connection.emit_signal(None, _PATH, _SETTINGS, "SettingChanged", changed)
        self._connection.flush_sync(None)

    def _called(self, _connection, _sender, _path, _interface, _method, arguments, invocation):
        if arguments.unpack() == (_GROUP, _KEY):
            answer = GLib.Variant("v", GLib.Variant("u", self._scheme))
            invocation.return_value(GLib.Variant("(v)", (answer,)))
        else:
            invocation.return_dbus_error("org.freedesktop.portal.Error.NotFound", "There is no such setting.")
