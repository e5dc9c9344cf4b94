# SPDX-License-Identifier: MIT
"""Where no desktop gives keys: the lines that the preferences show, put into the compositor's configuration as they stand."""
import re

from case import NativeFixture, main, wait_for
from harness.accessible import SHOWING
from harness.preferences import LABEL
from native import OPTION, TITLES, MenuTest, NativeTarnwick

Z = 52
SIDE_BUTTON = 0x113
COMMAND = "gapplication action "
WORKS, DOES_NOT = "It works: the menu has been asked for this way.", "It has not asked for the menu yet."


class TheLines(MenuTest):
    @classmethod
    def prepare(cls):
        """The preferences are open."""
        cls.connect_accessibility().switch_on()
        cls.session.tell_what_compositor_it_is()
        cls.tarnwick = NativeTarnwick(cls.session, FirstRun=False, EnableMouseButton=True)
        cls.addClassCleanup(cls.tarnwick.stop)
        cls.tarnwick.wait_until_at_rest()
        cls.reader = cls.tarnwick.reader(cls.bus)
        cls.addClassCleanup(cls.reader.close)

    def shown(self, part):
        """The texts of the preferences that hold this, from top to bottom."""
        application = self.bus.application(self.tarnwick.pid)
        nodes = [node for node in application.descendants() if node.role == LABEL and SHOWING in node.states]
        return [node.name for node in nodes if part in node.name]

    def wait_until_said(self, *results):
        """The preferences say this of the key's line and of the button's."""
        wait_for(lambda: [text for text in self.shown("") if text in (WORKS, DOES_NOT)] == list(results),
                 f"{results} in the preferences", step=0.05)

    def open_by(self, act):
        self.tarnwick.wait_until_at_rest()
        act()
        self.reader.wait_for(1)
        self.assertEqual(self.reader.titles(), TITLES)
        self.assertEqual(self.reader.menus()[0].frame[:2], self.pointer)

    def press_the_keys(self):
        self.input.press(OPTION)
        self.input.tap(Z)
        self.input.release(OPTION)

    def test_open_the_menu_by_key_and_by_button_and_are_known_to(self):
        lines = wait_for(lambda: (found := self.shown(COMMAND)) and len(found) == 2 and found, "two lines", step=0.05)
        places = [re.search("Put this into (.*):", text)[1] for text in self.shown("Put this into ")]
        self.session.configure(*zip(lines, places))
        self.wait_until_said(DOES_NOT, DOES_NOT)
        fixture = NativeFixture(self.session, "gtk3")
        self.addCleanup(fixture.program.stop)
        self.wait_until_readable(fixture)

        self.open_by(lambda: self.input.click(button=SIDE_BUTTON))
        self.wait_until_said(DOES_NOT, WORKS)
        x, y = self.pointer
        self.input.click((x - 60, y))  # the keys are the application's
        self.wait_until_closed()
        self.input.move(x, y)

        self.open_by(self.press_the_keys)
        self.close()
        self.wait_until_said(WORKS, WORKS)

        self.assert_keys_arrive(fixture)
        self.assertEqual(fixture.lines("button"), [])


if __name__ == "__main__":
    main()
