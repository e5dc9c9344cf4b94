# SPDX-License-Identifier: MIT
"""Search in the open menu over native programs: what is typed goes into the field, and Return chooses."""
from case import main, wait_for
from native import CONTROL, E, RETURN, MenuTest

SLASH = 61
F, N, W = 41, 57, 25
ACUTE = 21  # a dead key of the German layout
TEXT = 61  # a role


class Search(MenuTest):
    def test_return_chooses_what_was_found(self):
        def check(fixture):
            self.open()
            self.input.tap(SLASH)
            for letter in (N, E, W):
                self.input.tap(letter)
            wait_for(lambda: (self.reader.focused_title() or "").startswith("New, File"), "the entry found")
            self.input.tap(RETURN)
            self.wait_until_closed()
            self.wait_until_chosen(fixture, "File > New")
            self.assert_keys_arrive(fixture)
        self.each(check)

    def test_dead_keys_go_into_the_letters_after_them(self):
        self.session.set_layouts("de")
        self.addCleanup(self.session.set_layouts, "us")

        def check(fixture):
            self.open()
            self.input.tap(F, CONTROL)
            wait_for(lambda: self.reader.focused_title() == "Search the menus", "the search")
            for key in (N, ACUTE, E, W):
                self.input.tap(key)
            wait_for(lambda: self.typed() == "n\u00e9w", "the letter with its accent in the field")
            self.input.tap(RETURN)
            self.wait_until_closed()
            self.wait_until_chosen(fixture, "File > New")
            self.assert_keys_arrive(fixture)
        self.each(check, ("qt6",))

    def typed(self):
        """What is in the field."""
        return next((node.text() for node in self.reader.menus()[0].descendants() if node.role == TEXT), None)


if __name__ == "__main__":
    main()
