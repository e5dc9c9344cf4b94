# SPDX-License-Identifier: MIT
"""Keys in the menu over native programs."""
from case import main, wait_for
from native import COMMAND, DOWN, LEFT, OPTION, RETURN, RIGHT, TITLES, E, MenuTest, R, T, V


class TheKeyboard(MenuTest):
    def enter(self, title):
        """Opens the menu that the highlighted entry holds."""
        self.wait_until_highlighted(title)
        before = len(self.reader.menus())
        self.input.tap(RIGHT)
        self.reader.wait_for(before + 1)

    def test_menus_in_menus(self):
        def check(fixture):
            self.open()
            self.input.tap(DOWN)
            self.enter("File")
            for title in ("New", "Open..."):
                self.wait_until_highlighted(title)
                self.input.tap(DOWN)
            self.enter("Open Recent")
            self.input.tap(LEFT)
            self.reader.wait_for(2)
            self.enter("Open Recent")
            self.input.tap(T)
            self.wait_until_highlighted("todo.txt")
            self.input.tap(RETURN)
            self.wait_until_closed()
            self.wait_until_chosen(fixture, "File > Open Recent > todo.txt")
            self.assert_keys_arrive(fixture)
        self.each(check)

    def test_letters_go_to_the_entries_that_begin_with_them(self):
        def check(fixture):
            self.open()
            self.input.tap(V)
            self.wait_until_highlighted("View")
            self.input.tap(RETURN)
            self.reader.wait_for(2)
            self.input.tap(R)
            self.wait_until_highlighted("R&D_Notes")
            self.input.tap(RETURN)
            self.wait_until_closed()
            self.wait_until_chosen(fixture, "View > R&D_Notes")
            self.assert_keys_arrive(fixture)
        self.each(check)

    def test_a_key_that_is_held_goes_on(self):
        def check(fixture):
            self.open()
            self.input.press(DOWN)
            seen = set()

            def went_on():
                seen.add(self.reader.focused_title())
                return {"Edit", "View", "Help"} <= seen
            try:
                wait_for(went_on, "the entries one after the other")
            finally:
                self.input.release(DOWN)
            self.close()
            self.assert_keys_arrive(fixture)
        self.each(check)

    def test_modifiers_of_the_hot_key_that_are_still_held_do_not_matter(self):
        def check(_fixture):
            for held in (OPTION, COMMAND):
                self.input.press(held)
                try:
                    self.assertEqual(self.open(), TITLES)
                finally:
                    self.input.release(held)
                self.input.tap(E)
                self.wait_until_highlighted("Edit")
                self.close()
        self.each(check)


if __name__ == "__main__":
    main()
