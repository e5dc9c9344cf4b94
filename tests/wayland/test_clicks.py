# SPDX-License-Identifier: MIT
"""The main job over native programs: the menu bar at the pointer, and a choice by pointer."""
from case import main
from late import LateWindows
from native import TITLES, MenuTest

LATE = 0.2  # seconds; well beyond those for which no window may be the active one without being missed


class AChoiceByPointer(MenuTest):
    def choose_open(self, fixture):
        """Opens the menu, and clicks through it."""
        self.assertEqual(self.open(), TITLES)
        self.assertEqual(self.reader.menus()[0].frame[:2], self.pointer)
        self.click_through("File", "Open...")
        self.wait_until_chosen(fixture, "File > Open...")

    def test_is_carried_out(self):
        def check(fixture):
            self.choose_open(fixture)
            self.assertEqual(fixture.lines("button"), [], "clicks that were meant for the menu")
        self.each(check)

    def test_leaves_the_keys_to_the_application(self):
        def check(fixture):
            self.choose_open(fixture)
            self.assert_keys_arrive(fixture)
        self.each(check)


class ToldLate(AChoiceByPointer):
    """The compositor tells of other windows long before it tells of ours, as on a busy machine: that the click on our menu has
    taken the keyboard from the application comes before the click."""

    @classmethod
    def prepare(cls):
        late = LateWindows(cls.session, LATE)
        cls.addClassCleanup(late.close)
        super().prepare(WAYLAND_DISPLAY=str(late.path))

    def each(self, check, kits=("gtk3",)):
        super().each(check, kits)


class AfterOneMotion(MenuTest):
    """The pointer jumps, as on a touchpad: there is one motion, and none within the entry. Nothing was done with the menu
    before."""

    def jump_to(self, title):
        """Moves the pointer to an entry of the last menu at once, and waits until that is highlighted."""
        self.pointer = self.reader.item(title, -1).node.center
        self.input.move(*self.pointer)
        self.wait_until_highlighted(title)

    def test_clicks_open_menus_and_choose(self):
        def check(fixture):
            self.assertEqual(self.open(), TITLES)
            self.jump_to("File")
            self.input.click()
            self.reader.wait_for(2)
            self.jump_to("Open...")
            self.input.click()
            self.wait_until_closed()
            self.wait_until_chosen(fixture, "File > Open...")
            self.assertEqual(fixture.lines("button"), [], "clicks that were meant for the menu")
        self.each(check)


if __name__ == "__main__":
    main()
