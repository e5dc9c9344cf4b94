# SPDX-License-Identifier: MIT
"""The menus of an application as they are: each is opened in it with the pointer and read while it is on the screen."""
import time

from Xlib import error

from harness.accessible import (CHECKED, ENABLED, MENU, MENU_BAR, MENU_ITEM, POPUP_MENU, SENSITIVE, SEPARATOR, SHOWING,
                                TEAROFF, VISIBLE)
from harness.waiting import TimedOut, wait_for

import keys
from entries import EMPTY, GREYED, SHUT, Entry, without_idle_separators

_OPENS_IN = 2.0  # seconds; toolkits wait a quarter of a second before they open a submenu under the pointer
_SETTLES_IN = 10.0  # seconds; a menu of Java takes one to be read
_LEVELS = 6
_EXPANDED, _SELECTED, _MANAGES_DESCENDANTS = 10, 23, 31
_HIGHLIGHTED_IN = 0.1  # seconds
_FRAME = 8  # pixels around the entries of a menu, at most
_ENTRY_ROLES = {8, MENU, MENU_ITEM, 45}  # with the items that are checked, alone or as one of several
# What may hold millions of children: documents, tables, lists, terminals, texts, trees.
_LARGE_ROLES = {31, 32, 55, 60, 61, 65, 66, 82, 92, 93, 94, 95, 96, 97, 98}


def find_menu_bar(window, sign=SHOWING, depth=9):
    """The first menu bar on the screen below a window, in document order. `sign` is the state that tells so."""
    for child in window.children:
        role = child.role
        if role == MENU_BAR:
            if sign in child.states:
                return child
        elif depth and role not in _LARGE_ROLES and _MANAGES_DESCENDANTS not in child.states:
            found = find_menu_bar(child, sign, depth - 1)
            if found:
                return found
    return None


class OpenedMenus:
    """Opens menus in the window in front and reads them.

    Each submenu is reached from the bar anew: on its way from one to the next the pointer would look to a toolkit as if
    it went somewhere else.
    """

    def __init__(self, screen, bar, toolkit):
        self._screen = screen
        self._bar = bar
        self._qt = toolkit.startswith("Qt")
        self._places_are_right = toolkit != "Swing"  # it tells those of the entries of a menu as if the bar had no height
        self._is_open = {"GTK 2": self._has_window, "Gecko": _is_expanded}.get(toolkit, _has_something_showing)

    def read(self):
        """The whole bar. What could not be opened says why."""
        entries = self.bar()
        self._read_below(entries, [])
        self._close_everything()
        return entries

    def bar(self):
        return [entry for entry in map(self._entry, self._bar.children) if entry and not entry.separator]

    def _read_below(self, entries, path):
        for index, entry in enumerate(entries):
            if not entry.holds_menu:
                continue
            here = [*path, (index, entry.title)]
            entry.entries, entry.unread = self._read_menu(entry, here)

    def _read_menu(self, entry, path):
        """The entries of a submenu, or why there are none."""
        if not entry.enabled:
            return None, GREYED
        if len(path) > _LEVELS:
            return None, "it lies too deep"
        opened = self._open(path)
        if opened is None:
            return None, SHUT if _contents(entry.node) else EMPTY
        self._read_below(opened, path)
        return without_idle_separators(opened), None

    def _open(self, path):
        """Opens the submenu at a path and returns its entries; nothing when it does not open."""
        self._close_everything()
        entries = self.bar()
        for level, (index, title) in enumerate(path):
            if index >= len(entries) or entries[index].title != title:
                return None
            attempts = self._ways_to(entries) if level else (self._click_on, self._click_on)
            entries = self._opened_by(attempts, entries[index].node)
            if entries is None:
                return None
        return entries

    def _ways_to(self, entries):
        """How a submenu is opened that one of these entries holds."""
        if self._places_are_right:
            return self._point_at, self._click_on, self._point_at
        return (lambda holder: self._walk_to(holder, len(entries)),)

    def _opened_by(self, attempts, holder):
        for attempt in attempts:
            attempt(holder)
            try:
                wait_for(lambda: self._is_open(holder), "an open menu", _OPENS_IN, step=0.04)
                return wait_for(lambda: self._settled(holder), "an open menu at rest", _SETTLES_IN, step=0.04)
            except TimedOut:
                continue
        return None

    def _settled(self, holder):
        """The entries of an open menu once two looks are the same; nothing while it is not open."""
        first = self._look(holder)
        return first if first and first == self._look(holder) else None

    def _look(self, holder):
        return [entry for entry in map(self._entry, _contents(holder)) if entry] if self._is_open(holder) else None

    def _entry(self, node):
        """Nothing for what is not drawn."""
        role, states = node.role, node.states
        # An entry that stands in two menus of Qt has the state of the first.
        if not (self._qt or VISIBLE in states) or role == TEAROFF or not node.takes_room():
            return None
        if role == SEPARATOR:
            return Entry(separator=True, node=node)
        title = node.name.split("\t")[0].strip()
        if not title and role not in _ENTRY_ROLES:
            return None
        holds_menu = role == MENU or self._qt and any(child.role == POPUP_MENU for child in node.children)
        entry = Entry(title=title, enabled=bool(states & {SENSITIVE, ENABLED}), checked=CHECKED in states,
                      holds_menu=holds_menu, node=node)
        if not holds_menu:
            published = keys.of_qt(node.key_binding, title) if self._qt else keys.of_gtk(node.key_binding)
            entry.shortcut, entry.apart = published.text, published.apart
        return entry

    def _has_window(self, holder):
        """GTK 2 says of no entry that it is showing, and leaves those of a closed menu where they were."""
        frame = next((node.frame for node in holder.children if VISIBLE in node.states), None)
        return frame is not None and any(
            abs(frame[0] - x) <= _FRAME and abs(frame[2] - width) <= 2 * _FRAME and y <= frame[1] < y + height
            for x, y, width, height in map(_frame_of, self._screen.unmanaged_windows()))

    # The pointer

    def _point_at(self, node):
        """In several steps: Qt makes nothing of the first one in a new menu."""
        x, y = node.center
        for step in range(4, -1, -1):
            self._screen.move(x + step, y)

    def _click_on(self, node):
        self._screen.click(at=node.center)

    # The keyboard

    def _walk_to(self, holder, entries):
        """Down to a holder in the open menu, and into its own."""
        for _ in range(entries + 1):
            if _SELECTED in holder.states:
                break
            self._screen.tap("Down")
            time.sleep(_HIGHLIGHTED_IN)
        self._screen.tap("Right")

    def _close_everything(self):
        holders = [entry.node for entry in self.bar() if entry.holds_menu]

        def closed():
            if not any(map(self._is_open, holders)):
                return True
            self._screen.tap("Escape")
            return False
        wait_for(closed, "all menus closed", step=0.1)


def _menu_in_between(holder):
    """The menu that an entry holds, where that is something by itself."""
    children = holder.children
    return children[0] if len(children) == 1 and children[0].role == POPUP_MENU else None


def _contents(holder):
    return (_menu_in_between(holder) or holder).children


def _frame_of(window):
    """Nowhere when it has gone meanwhile."""
    try:
        return window.frame
    except error.XError:
        return -1, -1, 0, 0


def _has_something_showing(holder):
    between = _menu_in_between(holder)
    return any(SHOWING in node.states for node in ([between] if between else holder.children))


def _is_expanded(holder):
    """Gecko says of the entries of a menu that was open once that they are showing."""
    return _EXPANDED in holder.states
