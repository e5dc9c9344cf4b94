# SPDX-License-Identifier: MIT
"""Search in the open menu over native programs: what is typed goes into the field, and Return chooses."""
from case import main, wait_for
from native import E, RETURN, MenuTest

SLASH = 61
N, W = 57, 25


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


if __name__ == "__main__":
    main()
