# SPDX-License-Identifier: MIT
"""The pointer and the menu over native programs: where it opens, and what a click beside does."""
from case import main, wait_for
from harness.wayland_input import SIZE
from native import TITLES, MenuTest


class ThePointer(MenuTest):
    def open_at(self, x, y):
        """Opens the menu with the pointer there, and gives its frame."""
        self.pointer = x, y
        self.input.move(x, y)
        self.assertEqual(self.open(), TITLES)
        return self.reader.menus()[0].frame

    def assert_on_the_screen(self, frame):
        x, y, width, height = frame
        self.assertTrue(0 <= x and 0 <= y and x + width <= SIZE[0] and y + height <= SIZE[1], frame)

    def test_at_the_edges_the_menu_stays_on_the_screen(self):
        def check(_fixture):
            right, bottom = SIZE[0] - 1, SIZE[1] - 1
            for corner in ((0, 0), (right, 0), (0, bottom), (right, bottom)):
                frame = self.open_at(*corner)
                self.assert_on_the_screen(frame)
                near = [abs(corner[axis] - edge) <= 1 for axis in (0, 1)
                        for edge in (frame[axis], frame[axis] + frame[axis + 2])]
                self.assertTrue(any(near[:2]) and any(near[2:]), (corner, frame))
                self.close()
        self.each(check)

    def test_at_the_edge_a_menu_in_it_opens_to_the_other_side(self):
        def check(_fixture):
            self.open_at(SIZE[0] - 1, SIZE[1] // 2)
            self.click_at("Edit")
            self.reader.wait_for(2)
            first, second = [menu.frame for menu in self.reader.menus()]
            self.assert_on_the_screen(second)
            self.assertLess(second[0], first[0])
        self.each(check)

    def test_a_click_beside_closes_and_does_not_reach_the_application(self):
        def check(fixture):
            x, y = self.pointer
            self.open()
            self.input.click((x - 60, y))
            self.wait_until_closed()
            self.tarnwick.wait_until_told()  # until it has taken its stage away, too
            self.input.wait_until_heard()
            self.input.click((x - 90, y))
            wait_for(lambda: fixture.lines("button"), "the click after that")
            self.assertEqual(fixture.lines("button"), ["1"])
            self.assertEqual(fixture.lines("chosen"), [])
            self.assert_keys_arrive(fixture)
        self.each(check)


if __name__ == "__main__":
    main()
