# SPDX-License-Identifier: MIT
"""The menu on two outputs with scales of their own, which come, go and change."""
from case import UnseenFixture, main, wait_for
from native import ACTIVE, OWN_ENTRY, TITLES, MenuTest
from wire import WRITTEN, size_of_last_popup


class TwoOutputs(MenuTest):
    """`scales` are those of the outputs at the start."""

    @classmethod
    def prepare(cls):
        super().prepare(**WRITTEN)

    def point_into(self, number):
        """Moves the pointer into an output, and gives its place (x, y, width, height)."""
        x, y, width, height = self.session.outputs[number]
        self.pointer = x + width // 2, y + height // 3
        self.input.move(*self.pointer)
        return x, y, width, height

    def begin_on(self, number):
        """A fixture on this output, in front; with the pointer there, which counts for where windows open."""
        self.point_into(number)
        fixture = UnseenFixture(self.session, "gtk3")
        self.addCleanup(fixture.end)
        application = self.bus.application(fixture.pid)
        wait_for(application.menu_bar, "its menu bar", step=0.05)
        wait_for(lambda: any(ACTIVE in window.states for window in application.children), "an active window", step=0.05)
        return fixture

    def each_output(self, check):
        for number in range(len(self.session.outputs)):
            with self.subTest(output=number):
                fixture = self.begin_on(number)
                try:
                    check(number, fixture)
                finally:
                    self.close()
                    fixture.end()

    def assert_opens_at_the_pointer(self):
        self.assertEqual(self.open(), TITLES)
        self.assertEqual(self.reader.menus()[0].frame[:2], self.pointer)

    def assert_sharp(self, scale):
        """It has as many pixels as the output has there."""
        *_, width, height = self.reader.menus()[0].frame
        wanted = round(scale * width), round(scale * height)
        wait_for(lambda: size_of_last_popup(self.tarnwick.program.output) == wanted, f"a menu of {wanted} pixels", step=0.05)


class Half(TwoOutputs):
    scales = 1, 1.5
    session_options = {"scales": scales}

    def test_the_menu_opens_at_the_pointer_and_is_sharp(self):
        def check(number, _fixture):
            self.assert_opens_at_the_pointer()
            self.assert_sharp(self.scales[number])
        self.each_output(check)

    def test_at_the_edges_it_stays_on_the_output(self):
        def check(number, _fixture):
            left, top, width, height = self.session.outputs[number]
            right, bottom = left + width - 1, top + height - 1
            for corner in ((left, top), (right, top), (left, bottom), (right, bottom)):
                self.pointer = corner
                self.input.move(*corner)
                self.open()
                x, y, menu_width, menu_height = self.reader.menus()[0].frame
                self.assertTrue(left <= x and top <= y and x + menu_width <= right + 1 and y + menu_height <= bottom + 1,
                                (corner, self.reader.menus()[0].frame))
                self.close()
        self.each_output(check)

    def test_a_choice_by_keyboard_is_carried_out(self):
        def check(_number, fixture):
            self.choose("File", "New")
            self.wait_until_chosen(fixture, "File > New")
            self.assert_keys_arrive(fixture)
        self.each_output(check)

    def test_a_choice_by_pointer_is_carried_out(self):
        def check(_number, fixture):
            self.open()
            self.click_through("File", "Open...")
            self.wait_until_chosen(fixture, "File > Open...")
            self.assert_keys_arrive(fixture)
        self.each_output(check)


    def test_over_an_application_on_the_other_output_a_choice_by_keyboard_is_carried_out(self):
        def check(number, fixture):
            self.point_into(1 - number)
            if self.session.pointer_takes_focus:
                self.assertEqual(self.open(), [OWN_ENTRY])
                return
            self.assert_opens_at_the_pointer()
            self.choose_in_open_menu("File", "New")
            self.wait_until_chosen(fixture, "File > New")
            self.assert_keys_arrive(fixture)
        self.each_output(check)


class Twice(Half):
    scales = 1, 2
    session_options = {"scales": scales}


class TheyChange(TwoOutputs):
    session_options = {"scales": (1, 2)}

    def setUp(self):
        super().setUp()
        self.arrange(1, 2)

    def arrange(self, *scales):
        """Has the outputs so, and waits until Tarnwick knows."""
        before = self.session.outputs
        told = len(self.tarnwick.program.output)
        self.session.arrange(*scales)
        if self.session.outputs == before:
            return
        *_, width, height = self.session.outputs[-1]
        news = f"logical_size({width}, {height})" if len(self.session.outputs) >= len(before) else "global_remove("
        wait_for(lambda: news in self.tarnwick.program.output[told:], f"{news} told", step=0.05)
        self.tarnwick.wait_until_at_rest()

    def test_unplugged_under_the_menu_it_closes_and_the_next_one_opens_on_the_other(self):
        fixture = self.begin_on(1)
        self.assert_opens_at_the_pointer()
        self.session.arrange(1, None)
        self.wait_until_closed()
        self.arrange(1, None)
        self.assert_keys_arrive(fixture)
        self.point_into(0)
        self.assert_opens_at_the_pointer()
        self.assert_sharp(1)
        self.close()

    def test_plugged_in_beside_the_menu_nothing_breaks_and_the_next_one_opens_there(self):
        self.arrange(1, None)
        fixture = self.begin_on(0)
        self.assert_opens_at_the_pointer()
        self.arrange(1, 2)
        self.close()
        self.assert_keys_arrive(fixture)
        fixture.end()
        self.begin_on(1)
        self.assert_opens_at_the_pointer()
        self.assert_sharp(2)
        self.close()

    def test_with_other_scales_the_next_one_is_sharp_again(self):
        for scales in ((2, 1), (1.5, 2)):
            self.arrange(*scales)
            for number, scale in enumerate(scales):
                fixture = self.begin_on(number)
                self.assert_opens_at_the_pointer()
                self.assert_sharp(scale)
                self.close()
                fixture.end()


if __name__ == "__main__":
    main()
