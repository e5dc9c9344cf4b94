# SPDX-License-Identifier: MIT
"""Searches in the open menu, for tests over an application."""
from .waiting import dispatch_events, wait_for


class Searching:
    """What is typed goes into the field; the highlighted row is what a screen reader is told of."""

    def begin_search(self):
        self.read_back()
        self.screen.move(500, 300)
        self.open_menu()
        self.screen.tap("slash")
        self.wait_for_told("Search the menus")

    def search(self, text, entry):
        """Begins a search for `text` and waits until that entry is highlighted."""
        self.begin_search()
        self.screen.type(text)
        self.wait_for_told(entry)

    def wait_for_told(self, text):
        """Waits until the screen reader is told that what begins so has the focus; toolkits differ in the shortcuts they tell."""
        wait_for(lambda: (dispatch_events() or self.reader.focused) and self.reader.focused.name.startswith(text),
                 f"{text!r} told, not {self.reader.focused and self.reader.focused.name!r}")

    def go_back_to_menu(self, first):
        self.screen.tap("Escape")
        self.screen.tap("Down")
        wait_for(lambda: self.reader.focused_title() == first, "the menu again, with its first entry highlighted")
