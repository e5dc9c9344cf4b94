# SPDX-License-Identifier: MIT
"""Reads accessible trees over the accessibility bus, with plain reads only.

It does not use libatspi: that keeps one bus for the life of a process, and it makes the programs that it looks at behave
differently. What a person with a screen reader would switch on is switched on by `PopUpReader` only.
"""
from gi.repository import Gio, GLib

from .waiting import LIMIT, wait_for

_ACCESSIBLE = "org.a11y.atspi.Accessible"
_ACTION = "org.a11y.atspi.Action"
_COMPONENT = "org.a11y.atspi.Component"
_TEXT = "org.a11y.atspi.Text"
_REGISTRY = "org.a11y.atspi.Registry"
_ROOT = "/org/a11y/atspi/accessible/root"

MENU, MENU_BAR, MENU_ITEM, POPUP_MENU, SEPARATOR, TEAROFF = 33, 34, 35, 41, 50, 59
CHECKED, ENABLED, FOCUSED, SENSITIVE, SHOWING, VISIBLE = 4, 8, 12, 24, 25, 30


def connect(address):
    flags = (Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION)
    connection = Gio.DBusConnection.new_for_address_sync(address, flags, None, None)
    connection.set_exit_on_close(False)
    return connection


class Item:
    """One entry of a menu as it reads from outside. Two entries with the same look are equal."""

    def __init__(self, title, enabled=True, checked=False, separator=False, holds_menu=False, node=None):
        self.title = title
        self.enabled = enabled
        self.checked = checked
        self.separator = separator
        self.holds_menu = holds_menu
        self.node = node

    def _look(self):
        return "---" if self.separator else (self.title, self.enabled, self.checked, self.holds_menu)

    def __eq__(self, other):
        return self._look() == other._look()

    def __hash__(self):
        return hash(self._look())

    def __repr__(self):
        return str(self._look())


class Accessible:
    """One object in the tree of a program. Failed reads give what is neutral."""

    def __init__(self, bus, name, path):
        self._bus = bus
        self.name_on_bus = name
        self.path = path

    def __eq__(self, other):
        return (self.name_on_bus, self.path) == (other.name_on_bus, other.path)

    def __hash__(self):
        return hash((self.name_on_bus, self.path))

    @property
    def name(self):
        return self._property("Name") or ""

    @property
    def role(self):
        return self._call(_ACCESSIBLE, "GetRole") or 0

    @property
    def states(self):
        low, high = self._call(_ACCESSIBLE, "GetState") or (0, 0)
        return {bit for bit in range(64) if (low | high << 32) >> bit & 1}

    @property
    def children(self):
        return [Accessible(self._bus, *child) for child in self._call(_ACCESSIBLE, "GetChildren") or []]

    @property
    def index_in_parent(self):
        return self._call(_ACCESSIBLE, "GetIndexInParent")

    @property
    def key_binding(self):
        return self._call(_ACTION, "GetKeyBinding", GLib.Variant("(i)", (0,))) or ""

    @property
    def frame(self):
        """(x, y, width, height) on the screen."""
        return self._call(_COMPONENT, "GetExtents", GLib.Variant("(u)", (0,)))

    def takes_room(self):
        """Whether it is drawn, or would be once its menu is open; also when that cannot be told."""
        frame = self.frame
        return not frame or frame[2] > 0 and frame[3] > 0

    @property
    def center(self):
        x, y, width, height = self.frame
        return x + width // 2, y + height // 2

    def press(self):
        """Performs the first action, whatever comes of it."""
        self._call(_ACTION, "DoAction", GLib.Variant("(i)", (0,)))

    def text(self):
        """All its text."""
        return self._call(_TEXT, "GetText", GLib.Variant("(ii)", (0, -1))) or ""

    def descendants(self, depth=8):
        for child in self.children:
            yield child
            if depth > 0:
                yield from child.descendants(depth - 1)

    def menu_bar(self):
        """The first menu bar below, or nothing."""
        return next((node for node in self.descendants() if node.role == MENU_BAR), None)

    def items(self):
        """The entries that show in a menu, in a menu bar, or in the menu that an entry holds."""
        children = self.children
        if len(children) == 1 and children[0].role == POPUP_MENU:
            children = children[0].children
        closed_in_qt = self.role != MENU
        items = [_item(child, closed_in_qt) for child in children]
        return [item for item in items if item.title or item.separator]

    def _property(self, name):
        return self._bus.call(self.name_on_bus, self.path, "org.freedesktop.DBus.Properties", "Get",
                              GLib.Variant("(ss)", (_ACCESSIBLE, name)))

    def _call(self, interface, method, arguments=None):
        return self._bus.call(self.name_on_bus, self.path, interface, method, arguments)


def _item(node, visible_means_open):
    """GTK marks what it hides in a closed menu, Qt gives it no room there."""
    role = node.role
    states = node.states
    hidden = role == TEAROFF or not (node.takes_room() if visible_means_open else VISIBLE in states)
    if role == SEPARATOR:
        return Item("", separator=not hidden, node=node)
    title = "" if hidden else node.name.split("\t")[0].strip()
    holds_menu = role == MENU or any(child.role in (MENU, POPUP_MENU) for child in node.children)
    return Item(title, bool(states & {SENSITIVE, ENABLED}), CHECKED in states, False, holds_menu, node)


class AccessibilityBus:
    """The accessibility bus of a session, with the programs on it."""

    def __init__(self, session_bus_address):
        self._session = connect(session_bus_address)
        address = self._session.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None, None,
                                          Gio.DBusCallFlags.NONE, 30000, None).unpack()[0]
        self.address = address
        self.connection = connect(address)

    def close(self):
        self.connection.close_sync(None)
        self._session.close_sync(None)

    def is_enabled(self):
        """Whether somebody has switched accessibility on for the session."""
        return self._session.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.freedesktop.DBus.Properties", "Get",
                                       GLib.Variant("(ss)", ("org.a11y.Status", "IsEnabled")), None,
                                       Gio.DBusCallFlags.NONE, 30000, None).unpack()[0]

    def switch_on(self):
        """Switches accessibility on for the session, when the registry runs: earlier some programs miss it."""
        self.call(_REGISTRY, _ROOT, _ACCESSIBLE, "GetChildren", limit=30000)  # which may have to start first
        status = GLib.Variant("(ssv)", ("org.a11y.Status", "IsEnabled", GLib.Variant("b", True)))
        self._session.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.freedesktop.DBus.Properties", "Set", status, None,
                                Gio.DBusCallFlags.NONE, 30000, None)

    def call(self, destination, path, interface, method, arguments=None, limit=10000):
        """The first value of the answer; nothing when the call fails."""
        try:
            answer = self.connection.call_sync(destination, path, interface, method, arguments, None,
                                               Gio.DBusCallFlags.NONE, limit, None).unpack()
        except GLib.Error:
            return None
        return answer[0] if answer else True

    def process_of(self, name):
        return self.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                         "GetConnectionUnixProcessID", GLib.Variant("(s)", (name,)))

    def applications(self):
        return Accessible(self, _REGISTRY, _ROOT).children

    def application(self, pid, limit=LIMIT):
        """The application of a process, once it has come to the bus."""
        def find():
            return next((found for found in self.applications() if self.process_of(found.name_on_bus) == pid), None)
        return wait_for(find, f"process {pid} on the accessibility bus", limit, step=0.05)
