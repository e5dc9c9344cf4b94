# SPDX-License-Identifier: MIT
"""The ground of the tests in Wayland compositors: that keys and the pointer arrive, pictures show what there is, and programs
are on the accessibility bus."""
from case import NativeFixture, WaylandTest, main, wait_for
from harness.accessible import FOCUSED
from harness.wayland_input import SIZE

A, SHIFT = 38, 50
ACTIVE = 1  # the state of a window
WIDER_THAN_A_CURSOR = 12
MARGIN_OF_A_POINTER = 8
KITS = ("gtk3", "gtk4", "qt6")


class TheGround(WaylandTest):
    @classmethod
    def prepare(cls):
        cls.connect_accessibility().switch_on()

    def each(self, check):
        for kit in KITS:
            with self.subTest(kit):
                fixture = NativeFixture(self.session, kit)
                try:
                    check(fixture)
                finally:
                    fixture.end()

    def test_the_screen_has_the_size_that_the_pointer_counts_by(self):
        picture = self.session.picture()
        self.assertEqual((picture.width, picture.height), SIZE)

    def test_keys_arrive_once(self):
        def check(fixture):
            self.input.tap(A)
            self.input.tap(A, SHIFT)
            wait_for(lambda: len(fixture.lines("typed")) > 1, "the keys")
            self.input.tap(A)
            wait_for(lambda: len(fixture.lines("typed")) > 2, "the last one")
            self.assertEqual(fixture.lines("typed"), ["a", "A", "a"])
        self.each(check)

    def test_the_pointer_shows_where_it_is_moved(self):
        self.session.put_pointer_away()
        away = self.session.picture()
        self.input.move(300, 200)
        left, top, *_ = wait_for(lambda: self.session.picture().changed_from(away), "the pointer in the picture", step=0.05)
        self.assertLess(max(abs(left - 300), abs(top - 200)), MARGIN_OF_A_POINTER)

    def test_clicks_arrive_where_they_are_made(self):
        def check(fixture):
            left, top, right, bottom = fixture.frame()
            x, y = (left + right) // 2, (top + bottom) // 2
            self.input.click((x, y))
            self.input.click((x + 40, y + 30))
            wait_for(lambda: len(fixture.lines("place")) > 1, "both clicks")
            self.assertEqual(fixture.lines("button"), ["1", "1"])
            (first_x, first_y), second = [tuple(map(int, place.split())) for place in fixture.lines("place")]
            self.assertEqual(second, (first_x + 40, first_y + 30))
            self.assertTrue(0 < first_x < right - left and 0 < first_y < bottom - top, (first_x, first_y))
        self.each(check)

    def test_a_click_beside_the_window_does_not(self):
        def check(fixture):
            left, top, right, bottom = fixture.frame()
            beside = (left // 2, top // 2) if left > 8 and top > 8 else ((right + SIZE[0]) // 2, (bottom + SIZE[1]) // 2)
            self.input.click(beside)
            self.input.click(((left + right) // 2, (top + bottom) // 2))
            wait_for(lambda: fixture.lines("button"), "the click inside")
            self.assertEqual(fixture.lines("button"), ["1"])
        self.each(check)

    def test_a_picture_shows_the_window_and_what_is_typed(self):
        def check(fixture):
            left, top, right, bottom = fixture.frame()
            before = self.session.picture()
            self.assertEqual(before.at((left + right) // 2, (top + bottom) // 2), (255, 255, 255), "its text field")
            for _ in range(4):
                self.input.tap(A)

            def changed():
                place = self.session.picture().changed_from(before)
                return place and place[2] - place[0] > WIDER_THAN_A_CURSOR and place
            place = wait_for(changed, "the letters in the picture", step=0.05)
            self.assertTrue(left <= place[0] < place[2] <= right and top <= place[1] < place[3] <= bottom, place)
        self.each(check)

    def test_the_window_is_the_active_one_on_the_accessibility_bus(self):
        def check(fixture):
            application = self.bus.application(fixture.pid)

            def has_focus():
                return any(FOCUSED in node.states for node in application.descendants(12))
            wait_for(lambda: any(ACTIVE in window.states for window in application.children), "an active window", step=0.05)
            wait_for(has_focus, "what has the focus", step=0.05)
        self.each(check)


if __name__ == "__main__":
    main()
