# SPDX-License-Identifier: MIT
"""The menus that the program under test has on the screen."""
from gi.repository import Gio, GLib

from .accessible import FOCUSED, POPUP_MENU, Accessible
from .waiting import LIMIT, dispatch_events, wait_for

_EVENTS = "org.a11y.atspi.Event.Object"
_MENU_TYPES = {"_NET_WM_WINDOW_TYPE_POPUP_MENU", "_NET_WM_WINDOW_TYPE_DROPDOWN_MENU"}


class PopUps:
    """Which menus are open, seen from the X server alone: the program does not notice that somebody looks."""

    def __init__(self, screen, pid):
        self._screen = screen
        self._pid = pid

    def windows(self):
        """The open menus, the pop-up itself first."""
        return [window for window in self._screen.unmanaged_windows()
                if window.pid == self._pid and _MENU_TYPES & set(window.types)]

    def count(self):
        return len(self.windows())

    def wait_for(self, count, limit=LIMIT):
        """Waits until exactly `count` menus are open and returns them."""
        return wait_for(lambda: (open_now := self.windows()) is not None and len(open_now) == count and
                        (open_now or [None]), f"{count} open menus", limit)


class PopUpReader:
    """Reads the menus of a process while they are open, over the events that its toolkit sends for them.

    From its making to `close()` every program of the session is asked for such events, as with a screen reader.
    """

    def __init__(self, bus, pid):
        self._bus = bus
        self._pid = pid
        self._names = {}
        self._open = []
        self.focused = None
        self._subscription = bus.connection.signal_subscribe(
            None, _EVENTS, "StateChanged", None, None, Gio.DBusSignalFlags.NONE, self._on_event)
        for event in self._wanted():
            self._tell_registry("RegisterEvent", event)
        # It comes to the program after the word that somebody listens: of a menu before that nothing would be told.
        _ = self._bus.application(self._pid).role

    def close(self):
        """Afterwards keys go straight to the program again."""
        if self._subscription is None:
            return
        for event in self._wanted():
            self._tell_registry("DeregisterEvent", event)
        self._bus.connection.signal_unsubscribe(self._subscription)
        self._subscription = None
        for application in self._bus.applications():
            if self._is_ours(application.name_on_bus):
                _ = application.role  # comes to it after the word that nobody listens

    def menus(self):
        """The open menus, the pop-up itself first."""
        dispatch_events()
        return list(self._open)

    def wait_for(self, count, limit=LIMIT):
        """Waits until exactly `count` menus are open and returns the items of the last one."""
        wait_for(lambda: len(self.menus()) == count, f"{count} open menus to read", limit)
        return self._open[-1].items() if count else []

    def items(self, level=0):
        return self.menus()[level].items()

    def titles(self, level=0):
        return [item.title for item in self.items(level)]

    def item(self, title, level=-1):
        """The entry of an open menu with this title."""
        return wait_for(lambda: next((item for item in self.items(level) if item.title == title), None),
                        f"the entry {title!r}")

    def focused_title(self):
        """The title of the highlighted entry of the last open menu, nothing when none is."""
        dispatch_events()
        if not self.focused or FOCUSED not in self.focused.states:
            children = self._open[-1].children if self._open else []
            self.focused = next((node for node in children if FOCUSED in node.states), None)
        return self.focused.name if self.focused else None

    @staticmethod
    def _wanted():
        return ("object:state-changed:showing", "object:state-changed:focused")

    def _tell_registry(self, method, event):
        arguments = GLib.Variant("(s)", (event,))
        self._bus.call("org.a11y.atspi.Registry", "/org/a11y/atspi/registry", "org.a11y.atspi.Registry", method,
                       arguments)

    def _is_ours(self, sender):
        if sender not in self._names:
            self._names[sender] = self._bus.process_of(sender) == self._pid
        return self._names[sender]

    def _on_event(self, _connection, sender, path, _interface, _signal, arguments):
        detail, on = arguments.unpack()[:2]
        if not self._is_ours(sender):
            return
        node = Accessible(self._bus, sender, path)
        if detail == "focused" and on:
            self.focused = node
        elif detail == "showing" and (node in self._open or node.role == POPUP_MENU):
            self._open = [menu for menu in self._open if menu != node] + ([node] if on else [])
            self.focused = None

