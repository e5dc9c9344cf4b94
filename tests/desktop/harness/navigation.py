# SPDX-License-Identifier: MIT
"""Ways through an open menu."""
from .waiting import wait_for


class Navigation:
    """Moves through the menus that a reader reads, as a person does with keys or with the pointer."""

    def __init__(self, screen, reader):
        self._screen = screen
        self._reader = reader

    def highlight(self, title):
        """Presses Down until the entry of the last open menu is highlighted."""
        entries = len(self._reader.items(-1))
        for _ in range(entries + 1):
            highlighted = self._reader.focused_title()
            if highlighted == title:
                return
            self._screen.tap("Down")
            wait_for(lambda before=highlighted: self._reader.focused_title() != before,
                     f"another entry than {title!r} highlighted")
        raise AssertionError(f"{title!r} cannot be reached with Down")

    def enter(self, title):
        """Opens the submenu of an entry with the keyboard and returns its items."""
        level = len(self._reader.menus())
        self.highlight(title)
        self._screen.tap("Right")
        return self._reader.wait_for(level + 1)

    def leave(self):
        """Closes the last submenu with the keyboard."""
        level = len(self._reader.menus())
        self._screen.tap("Left")
        self._reader.wait_for(level - 1)

    def choose(self, *titles):
        """Chooses the entry at the end of the path with the keyboard."""
        for title in titles[:-1]:
            self.enter(title)
        self.highlight(titles[-1])
        self._screen.tap("Return")
        self._reader.wait_for(0)

    def point_at(self, title):
        """Puts the pointer on an entry of the last open menu."""
        self._screen.move(*self._reader.item(title).node.center)

    def enter_by_pointer(self, title):
        """Opens the submenu of an entry with the pointer and returns its items."""
        level = len(self._reader.menus())
        self.point_at(title)
        return self._reader.wait_for(level + 1)

    def choose_by_pointer(self, *titles):
        """Chooses the entry at the end of the path with the pointer."""
        for title in titles[:-1]:
            self.enter_by_pointer(title)
        self.point_at(titles[-1])
        self._screen.click()
        self._reader.wait_for(0)
