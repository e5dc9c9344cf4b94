# SPDX-License-Identifier: MIT
"""The menu that a mouse button opens, by a line for the compositor."""
from case import main
from native import TITLES, ButtonTest


class AButton(ButtonTest):
    def test_a_click_opens_the_menu_at_the_pointer_and_leaves_it_open(self):
        def check(fixture):
            self.tarnwick.wait_until_at_rest()
            self.input.click(button=self.button)
            self.reader.wait_for(1)
            self.assertEqual(self.reader.titles(), TITLES)
            self.assertEqual(self.reader.menus()[0].frame[:2], self.pointer)
            self.click_through("File", "Open...")
            self.wait_until_chosen(fixture, "File > Open...")
            self.assertEqual(fixture.lines("button"), [], "clicks that were meant for the menu")
        self.each(check)


if __name__ == "__main__":
    main()
