# SPDX-License-Identifier: MIT
"""An extra button opens the menu, and the click goes on to the application."""
import sys

from harness import display_relay
from harness.case import DesktopTest, main
from harness.over import OverGtk3, OverQt5, OverQt6
from harness.preferences import Preferences
from harness.screen import LEFT, MIDDLE, RIGHT
from harness.tarnwick import OPTION, TRIGGER, Tarnwick
from harness.waiting import holds_for, wait_for

EXTRA_BUTTONS = (MIDDLE, 8, 9)


class AnExtraButtonOver:
    settings = {"EnableMouseButton": True}

    def menus(self):
        return self.tarnwick.popups.count()

    def setUp(self):
        super().setUp()
        x, y, width, height = self.application.window.frame
        self.here = (x + 40, y + 60)
        self.elsewhere = (x + width - 20, y + height - 20)  # not the desktop: a click there opens its own menu
        self.screen.move(*self.here)

    def test_opens_the_menu_once_and_it_stays(self):
        for button in EXTRA_BUTTONS:
            with self.subTest(button=button):
                self.application.forget()
                pointer = self.screen.pointer()
                self.screen.click(button)
                self.assertEqual(self.tarnwick.popups.wait_for(1)[0].frame[:2], pointer)
                holds_for(lambda: self.menus() == 1, 0.3, "the menu did not stay")
                self.screen.tap("Escape")
                self.tarnwick.wait_until_closed()
                holds_for(lambda: self.menus() == 0, 0.3, "the menu came back")
                wait_for(lambda: self.application.lines("button") == [str(button)], "the click in the application")
                self.assert_nothing_is_held()

    def test_held_for_a_while_opens_a_menu_that_stays_after_the_release(self):
        self.screen.press_button(MIDDLE)
        holds_for(lambda: True, 0.15, "")
        self.screen.release_button(MIDDLE)
        self.tarnwick.popups.wait_for(1)
        holds_for(lambda: self.menus() == 1, 0.3, "the menu did not stay")

    def test_elsewhere_closes_the_menu_and_does_not_open_it_again(self):
        for button in EXTRA_BUTTONS:
            with self.subTest(button=button):
                self.tarnwick.open()
                self.screen.click(button, at=self.elsewhere)
                self.tarnwick.wait_until_closed()
                holds_for(lambda: self.menus() == 0, 0.4, "the menu came back")
                self.assert_nothing_is_held()
                self.screen.move(*self.here)

    def test_chooses_with_the_menu_that_it_opened(self):
        self.screen.click(8)
        self.tarnwick.popups.wait_for(1)
        for key in ("h", "Right", "c", "Return"):
            self.screen.tap(key)
        self.application.wait_for_line("chosen", "Help > Contents")
        self.assertEqual(self.application.chosen(), ["Help > Contents"])

    def test_primary_and_secondary_do_not_open_it(self):
        for button in (LEFT, RIGHT):
            self.screen.click(button)
        holds_for(lambda: self.menus() == 0, 0.4, "a menu opened")
        self.screen.tap("Escape")  # the menu that the text field has at the secondary button
        wait_for(lambda: self.screen.grabs_left() == [], "that menu closed")

    def test_hot_key_while_the_menu_is_open_does_nothing_more(self):
        self.screen.click(MIDDLE)
        self.tarnwick.popups.wait_for(1)
        self.screen.tap(TRIGGER, OPTION)
        holds_for(lambda: self.menus() == 1, 0.3, "the menu did not stay alone")
        self.screen.tap("Escape")
        self.tarnwick.wait_until_closed()
        holds_for(lambda: self.menus() == 0, 0.3, "the menu came back")


class AnExtraButtonOverGtk3(AnExtraButtonOver, OverGtk3):
    pass


class AnExtraButtonOverQt5(AnExtraButtonOver, OverQt5):
    pass


class AnExtraButtonOverQt6(AnExtraButtonOver, OverQt6):
    pass


class AnExtraButtonOverTheProgramsOwnWindow(DesktopTest):
    def test_opens_a_menu_that_stays(self):
        self.connect_accessibility().switch_on()
        tarnwick = Tarnwick(self.session, FirstRun=False, EnableMouseButton=True)
        window = Preferences(self.session, self.bus, tarnwick).window
        tarnwick.wait_until_ready()
        x, y, _, height = window.frame
        for button in EXTRA_BUTTONS * 2:
            self.screen.click(button, at=(x + 20, y + height - 10))
            tarnwick.popups.wait_for(1)
            holds_for(lambda: tarnwick.popups.count() == 1, 0.3, f"the menu of button {button} did not stay")
            tarnwick.close_menu()


class AnotherButtonCode(OverGtk3):
    """The code is the kind of the event, 25 for every extra button, and not the number of the button."""

    settings = {"EnableMouseButton": True, "MouseButton": 26}

    def test_opens_the_menu_with_no_button(self):
        for button in EXTRA_BUTTONS:
            self.screen.click(button, at=self.application.window.center)
        holds_for(lambda: self.tarnwick.popups.count() == 0, 0.6, "a menu opened")
        self.tarnwick.open()


class TheMouseTriggerSwitchedOff(OverGtk3):
    def test_opens_the_menu_with_no_button(self):
        for button in EXTRA_BUTTONS:
            self.screen.click(button, at=self.application.window.center)
        holds_for(lambda: self.tarnwick.popups.count() == 0, 0.6, "a menu opened")
        self.tarnwick.open()


class ADisplayWhoseExtraButtonsCannotBeWatched(DesktopTest):
    def without_input_extension(self):
        """The name of a display that is the session's, but for that extension."""
        server = self.screen.display.get_display_name().lstrip(":").split(".")[0]
        number = str(int(server) + 6000)
        relay = self.session.run(sys.executable, display_relay.__file__, number, server, "XInputExtension")
        wait_for(lambda: "ready" in relay.output, "a relay for the display")
        return f":{number}"

    def test_ends_the_program_with_a_word_and_a_status_that_tells_of_it(self):
        tarnwick = Tarnwick(self.session, environment={"DISPLAY": self.without_input_extension()})
        self.assertEqual(tarnwick.program.status(), 1)
        self.assertEqual(tarnwick.program.output, "failed to create event tap\n")


if __name__ == "__main__":
    main()
