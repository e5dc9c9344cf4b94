# SPDX-License-Identifier: MIT
"""Both kinds of tray: one that takes windows in, and one that items are described to on the bus."""
from gi.repository import Gio, GLib
from Xlib import error

from .screen import Window
from .waiting import wait_for

_WATCHER = "org.kde.StatusNotifierWatcher"
_ITEM = "org.kde.StatusNotifierItem"
_MENU = "com.canonical.dbusmenu"

_INTERFACES = f"""<node><interface name="{_WATCHER}">
  <method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
  <method name="RegisterStatusNotifierHost"><arg type="s" direction="in"/></method>
  <property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
  <property name="RegisteredStatusNotifierItems" type="as" access="read"/>
  <property name="ProtocolVersion" type="i" access="read"/>
  <signal name="StatusNotifierHostRegistered"/>
</interface></node>"""


def embedded_icon(screen, pid):
    """The window of the process that some tray has taken in, None while there is none."""
    def search(window):
        for child in window.query_tree().children:
            owner = screen.property_of(child, "_NET_WM_PID")
            embedded = window.id != screen.root.id and child.id not in managed
            if owner and owner[0] == pid and embedded and child.get_attributes().map_state == 2:
                return child
            found = search(child)
            if found:
                return found
        return None
    managed = {window.id for window in screen.windows()}  # the window manager has put a frame around them
    try:
        return search(screen.root)
    except error.XError:  # a window went while it was looked at
        return None


def icon_at_rest(screen, pid):
    """The same, once it is there and stays where it is: trays lay themselves out anew for it. It can be clicked on."""
    places = []

    def rests():
        icon = embedded_icon(screen, pid)
        try:
            places.append(icon and Window(screen, icon).frame)
        except error.XError:  # it went while it was looked at
            places.append(None)
        return icon if icon and len(places) > 10 and len(set(places[-10:])) == 1 else None
    return wait_for(rests, "an icon at rest in the tray", step=0.03)


class PublishedTray:
    """A StatusNotifier host that keeps to the rules and shows nothing."""

    def __init__(self, address):
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        self._connection = Gio.DBusConnection.new_for_address_sync(address, flags, None, None)
        self._connection.set_exit_on_close(False)
        self._items = []
        interface = Gio.DBusNodeInfo.new_for_xml(_INTERFACES).interfaces[0]
        self._connection.register_object("/StatusNotifierWatcher", interface, self._called, self._property, None)
        self._bus_call("RequestName", GLib.Variant("(su)", (_WATCHER, 4)))

    def close(self):
        self._connection.close_sync(None)

    def item(self):
        """Waits for the first item and returns the name of its program on the bus."""
        return wait_for(lambda: self._items and self._items[0], "an item in the tray")

    def item_property(self, name):
        arguments = GLib.Variant("(ss)", (_ITEM, name))
        return self._call(self.item(), "/StatusNotifierItem", "org.freedesktop.DBus.Properties", "Get",
                          arguments)[0]

    def menu(self):
        """The (id, label) of each entry of the item's menu."""
        arguments = GLib.Variant("(iias)", (0, -1, ["label"]))
        layout = self._call(self.item(), self.item_property("Menu"), _MENU, "GetLayout", arguments)[1]
        return [(entry[0], entry[1].get("label", "")) for entry in layout[2]]

    def activate(self):
        """Clicks on the item."""
        self._call(self.item(), "/StatusNotifierItem", _ITEM, "Activate", GLib.Variant("(ii)", (0, 0)))

    def choose(self, label):
        identifier = next(number for number, text in self.menu() if text == label)
        arguments = GLib.Variant("(isvu)", (identifier, "clicked", GLib.Variant("i", 0), 0))
        self._call(self.item(), self.item_property("Menu"), _MENU, "Event", arguments)

    def _call(self, name, path, interface, method, arguments):
        return self._connection.call_sync(name, path, interface, method, arguments, None, Gio.DBusCallFlags.NONE,
                                          30000, None).unpack()

    def _bus_call(self, method, arguments):
        return self._call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", method, arguments)

    def _called(self, _connection, sender, _path, _interface, method, arguments, invocation):
        if method == "RegisterStatusNotifierItem":
            name = arguments.unpack()[0]
            self._items.append(sender if name.startswith("/") else name)
        invocation.return_value(None)

    def _property(self, _connection, _sender, _path, _interface, name):
        return {"IsStatusNotifierHostRegistered": GLib.Variant("b", True),
                "RegisteredStatusNotifierItems": GLib.Variant("as", self._items),
                "ProtocolVersion": GLib.Variant("i", 0)}[name]
