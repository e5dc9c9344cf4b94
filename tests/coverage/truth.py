# SPDX-License-Identifier: MIT
"""The menus of an application as they are: each is opened in it with the pointer and read while it is on the screen."""
from harness.accessible import (CHECKED, ENABLED, MENU, MENU_BAR, MENU_ITEM, POPUP_MENU, SENSITIVE, SEPARATOR, SHOWING,
                                TEAROFF, VISIBLE)
from harness.waiting import TimedOut, wait_for

import keys
from entries import Entry, without_idle_separators

_OPENS_IN = 2.0  # seconds
_OPENS_UNDER_POINTER_IN = 0.7  # toolkits wait a quarter of a second
_LEVELS = 6
_MANAGES_DESCENDANTS = 31
_PLAIN_ROLES = {5, 8, 35, 45, 7}
# What may hold millions of children: documents, tables, lists, terminals, texts, trees.
_LARGE_ROLES = {31, 32, 55, 60, 61, 65, 66, 82, 92, 93, 94, 95, 96, 97, 98}


def find_menu_bar(window, depth=9):
    """The first menu bar on the screen below a window, in document order."""
    for child in window.children:
        role = child.role
        if role == MENU_BAR:
            if SHOWING in child.states:
                return child
        elif depth and role not in _LARGE_ROLES and _MANAGES_DESCENDANTS not in child.states:
            found = find_menu_bar(child, depth - 1)
            if found:
                return found
    return None


class OpenedMenus:
    """Opens menus in the window in front and reads them."""

    def __init__(self, screen, bar, toolkit):
        self._screen = screen
        self._bar = bar
        self._qt = toolkit.startswith("Qt")

    def read(self):
        """The whole bar. What could not be opened says why."""
        entries = self.bar()
        for entry in entries:
            if entry.holds_menu:
                self._close_everything(entries)
                entry.entries, entry.unread = self._open_and_read(entry, self._click_on, 1)
        self._close_everything(entries)
        return entries

    def bar(self):
        return [entry for entry in (self._entry(node) for node in self._bar.children) if entry and not entry.separator]

    def _open_and_read(self, entry, open_it, level):
        if not entry.enabled:
            return None, "it is greyed"
        if level > _LEVELS:
            return None, "it lies too deep"
        for attempt in (open_it, self._click_on, self._nudge):
            attempt(entry.node)
            limit = _OPENS_UNDER_POINTER_IN if attempt == self._point_at else _OPENS_IN
            try:
                entries = wait_for(lambda: self._settled(entry.node), "an open menu", limit, step=0.04)
                break
            except TimedOut:
                continue
        else:
            return None, "it did not open"
        for inner in entries:
            if inner.holds_menu:
                inner.entries, inner.unread = self._open_and_read(inner, self._point_at, level + 1)
        return without_idle_separators(entries), None

    def _settled(self, holder):
        """The entries of an open menu once two looks are the same; nothing while it is not open."""
        first = self._look(holder)
        return first if first and first == self._look(holder) else None

    def _look(self, holder):
        nodes = _contents(holder)
        if not any(SHOWING in node.states for node in nodes):
            return None
        return [entry for entry in map(self._entry, nodes) if entry]

    def _entry(self, node):
        """Nothing for what is not drawn."""
        role, states = node.role, node.states
        if VISIBLE not in states or role == TEAROFF or not node.takes_room():
            return None
        if role == SEPARATOR:
            return Entry(separator=True, node=node)
        title = node.name.split("\t")[0].strip()
        if not title:
            return None
        holds_menu = role == MENU or self._qt and any(child.role == POPUP_MENU for child in node.children)
        entry = Entry(title=title, enabled=bool(states & {SENSITIVE, ENABLED}), checked=CHECKED in states,
                      holds_menu=holds_menu, node=node)
        if not holds_menu:
            published = keys.of_qt(node.key_binding, title) if self._qt else keys.of_gtk(node.key_binding)
            entry.shortcut, entry.apart = published.text, published.apart
        return entry

    # The pointer

    def _point_at(self, node):
        self._screen.move(*node.center)

    def _nudge(self, node):
        x, y = node.center
        for step in range(1, 6):
            self._screen.move(x + step, y)

    def _click_on(self, node):
        self._screen.click(at=node.center)

    def _close_everything(self, bar):
        def closed():
            holders = [entry.node for entry in bar if entry.holds_menu]
            if not any(SHOWING in node.states for holder in holders for node in _contents(holder)[:3]):
                return True
            self._screen.tap("Escape")
            return False
        wait_for(closed, "all menus closed", step=0.1)


def _contents(holder):
    children = holder.children
    if len(children) == 1 and children[0].role in (POPUP_MENU, MENU) and not children[0].name.strip():
        return children[0].children
    return children
