# SPDX-License-Identifier: MIT
"""The menu that a mouse button opens, by a line for the compositor, and what that button does while it is held, where the
compositor tells of it."""
from case import main
from native import ButtonTest


class AButtonThatIsHeld(ButtonTest):
    def press(self):
        self.tarnwick.wait_until_at_rest()
        self.input.hold_button(self.button, True)

    def release(self):
        self.input.hold_button(self.button, False)

    def test_released_after_the_menu_is_there_it_does_nothing(self):
        def check(fixture):
            self.press()
            self.reader.wait_for(1)
            self.release()
            self.click_at("File")
            self.reader.wait_for(2)
            self.click_at("New")
            self.wait_until_closed()
            self.wait_until_chosen(fixture, "File > New")
        self.each(check, kits=("gtk3",))

    def test_dragged_to_an_entry_and_released_there_it_chooses_that(self):
        def check(fixture):
            self.press()
            self.reader.wait_for(1)
            self.point_at("File")
            self.reader.wait_for(2)
            self.point_at("New")
            self.wait_until_highlighted("New")
            self.release()
            self.wait_until_closed()
            self.wait_until_chosen(fixture, "File > New")
            self.assertEqual(fixture.lines("button"), [])
        self.each(check, kits=("gtk3",))

if __name__ == "__main__":
    main()
