# SPDX-License-Identifier: MIT
"""The same as `truth` for GTK 4, which tells no places on the screen: its menus are opened with the keyboard."""
from harness.accessible import CHECKED, ENABLED, MENU, MENU_ITEM, SENSITIVE, SEPARATOR, VISIBLE
from harness.waiting import wait_for

import keys
from entries import EMPTY, GREYED, Entry, without_idle_separators

_LABEL, _PICTURE = 29, 20


class OpenedMenusOfGtk4:
    """Opens menus in the window in front and reads them, each from the bar anew."""

    def __init__(self, screen, bar):
        self._screen = screen
        self._bar = bar

    def read(self):
        """The whole bar. What could not be opened says why."""
        entries = self._titles()
        for entry in entries:
            entry.holds_menu = True
        self._read_below(entries, [])
        self._close_everything()
        return entries

    def _titles(self):
        return [_entry(node) for node in self._bar.children if node.role == MENU_ITEM]

    def _read_below(self, entries, path):
        for entry in entries:
            if not entry.holds_menu:
                continue
            if not entry.enabled:
                entry.unread = GREYED
                continue
            entry.entries = without_idle_separators(self._open([*path, entry.title]))
            entry.unread = None if entry.entries else EMPTY
            self._read_below(entry.entries, [*path, entry.title])

    def _open(self, path):
        """Opens the menu at a path of titles and returns its entries."""
        self._close_everything()
        self._screen.tap("F10")
        holder = self._showing_after(self._bar.children[0])
        for node in self._bar.children[1:]:
            if holder.name == path[0]:
                break
            self._screen.tap("Right")
            holder = self._showing_after(node)
        for title in path[1:]:
            entries = [entry for entry in _rows(_popover(holder)) if not entry.separator and entry.enabled]
            place = [entry.title for entry in entries].index(title)
            for _ in range(place):  # the first one has the focus
                self._screen.tap("Down")
            self._screen.tap("Right")
            holder = self._showing_after(entries[place].node)
        return wait_for(lambda: _settled(_popover(holder)), f"the menu {path}")

    @staticmethod
    def _showing_after(holder):
        wait_for(lambda: _popover(holder), f"the menu of {holder.name!r}", step=0.05)
        return holder

    def _close_everything(self):
        def closed():
            if not any(map(_popover, self._bar.children)):
                return True
            self._screen.tap("Escape")
            return False
        wait_for(closed, "all menus closed", step=0.2)


def _popover(holder):
    """What an entry has opened, once there is something in it; it has gone from the tree when it is closed."""
    return next((node for node in holder.children if node.role == MENU and next(_nodes(node), None)), None)


def _nodes(popover):
    """The entries below, without those of the menus that they open themselves."""
    for node in popover.children:
        if node.role in (MENU_ITEM, SEPARATOR):
            if VISIBLE in node.states:
                yield node
        elif node.role != MENU:
            yield from _nodes(node)


def _rows(popover):
    return [_entry(node) for node in _nodes(popover)]


def _settled(popover):
    """The entries once two looks are the same."""
    first = _rows(popover) if popover else None
    return first if first and first == _rows(popover) else None


def _entry(node):
    """A second label is the shortcut, a picture beside them the sign of a menu."""
    if node.role == SEPARATOR:
        return Entry(separator=True)
    states = node.states
    roles = [(child.role, child.name) for child in node.children]
    labels = [name for role, name in roles if role == _LABEL]
    entry = Entry(title=node.name, enabled=bool(states & {SENSITIVE, ENABLED}), checked=CHECKED in states,
                  holds_menu=_PICTURE in [role for role, _ in roles], node=node)
    if len(labels) > 1:
        published = keys.of_qt(labels[1], "")
        entry.shortcut, entry.apart = published.text, published.apart
    return entry
