# SPDX-License-Identifier: MIT
"""From the press of the hot key on, no key does anything in the application, whatever Tarnwick is doing meanwhile."""
import os
import signal
import time

from harness.applications import Fixture
from harness.case import main
from harness.over import OverAnApplication
from harness.tarnwick import OPTION, TRIGGER
from harness.waiting import holds_for, wait_for

# After a switch Tarnwick pauses 0.65 s, and 1.8 s more when there is no menu yet.
AFTER_A_SWITCH = ((0, 0.03), (0.1, 0.05), (0.3, 0.08), (0.6, 0.05), (0.7, 0.03), (2.5, 0.05))  # seconds: until the chord, its length
IN_THE_SECOND_PAUSE = 1.3
MENU_BAR_IS_LATE = 1800  # milliseconds
MENUS_STAY = 0.3
STOPPED = 1.2


class TypingAheadOf:
    """A person does not wait: the chord is let go long before the menu is there, and keys follow it."""

    kit = None
    menu = "editor.menu"
    focus_lines = ([],)

    @classmethod
    def start_application(cls):
        return Fixture(cls.session, "gtk3", title="Other")

    @classmethod
    def prepare(cls):
        super().prepare()
        cls.focus_of = {cls.application: cls.screen.focus_at_rest()}
        cls.typed_into = Fixture(cls.session, cls.kit, title="Typed Into", menu=cls.menu)
        cls.wait_until_shown(cls.typed_into)
        cls.focus_of[cls.typed_into] = cls.screen.focus_at_rest()

    @classmethod
    def wait_until_shown(cls, fixture):
        cls.screen.activate(fixture.window)
        cls.wait_for_titles([item.title for item in fixture.bar_items(cls.bus)])

    def setUp(self):
        super().setUp()
        self.tarnwick.wait_until_at_rest()

    def switch(self, fixture):
        """Brings it to the front and waits until its toolkit has put the focus where it belongs: a late one takes it back."""
        self.screen.activate(fixture.window)
        wait_for(lambda: self.screen.focused_window_id() == self.focus_of[fixture], f"the focus in {fixture.window.title!r}")
        fixture.forget()

    def assert_one_menu_came(self, fixture):
        self.tarnwick.popups.wait_for(1)
        # The hot key's own grab is told to the application, and at once that it is over; some toolkits hand that on.
        told = fixture.lines("focus")
        came = told[:1] == ["in"]  # by the switch, which it may have been slow to hear of
        self.assertIn(told[came:], self.focus_lines, "the focus went away for longer")
        self.tarnwick.close_menu()
        holds_for(lambda: self.tarnwick.popups.count() == 0, MENUS_STAY, "another menu opened")

    def assert_nothing_happened_in(self, fixture):
        """No key came, the bar did not open, and what is typed now is text."""
        self.screen.tap("x")
        fixture.wait_for_line("typed", "x")
        self.assertEqual(fixture.typed(), ["x"])
        self.assertEqual(fixture.lines("bar"), [], "the menu bar took the keyboard")

    def leave(self):
        """Brings the other application to the front, and waits until that has been dealt with."""
        self.switch(self.application)
        self.tarnwick.wait_until_at_rest()

    def test_a_chord_does_nothing_in_the_application(self):
        for delay, length in AFTER_A_SWITCH:
            with self.subTest(f"{delay} s after the switch, {length} s long"):
                self.leave()
                self.switch(self.typed_into)
                time.sleep(delay)
                self.screen.chord(TRIGGER, OPTION, length=length)
                self.assert_one_menu_came(self.typed_into)
                self.assert_nothing_happened_in(self.typed_into)

    def test_keys_after_the_chord_go_into_the_menu(self):
        for delay in (0.1, 2.5):
            with self.subTest(f"{delay} s after the switch"):
                self.leave()
                self.switch(self.typed_into)
                time.sleep(delay)
                self.tarnwick.trigger()
                self.screen.tap("Down")
                self.screen.tap("Right")
                self.tarnwick.popups.wait_for(2)
                self.tarnwick.close_menu()
                self.assert_nothing_happened_in(self.typed_into)

    def test_a_second_chord_opens_no_second_menu(self):
        self.leave()
        self.switch(self.typed_into)
        time.sleep(0.1)
        self.tarnwick.trigger()
        self.tarnwick.trigger()
        self.assert_one_menu_came(self.typed_into)
        self.assert_nothing_happened_in(self.typed_into)

    def test_a_chord_while_a_late_menu_is_waited_for_does_nothing(self):
        late = Fixture(self.session, self.kit, "--late", MENU_BAR_IS_LATE, title="Late", menu=self.menu)
        self.addCleanup(late.program.stop)
        wait_for(lambda: "in" in late.lines("focus"), "the focus in its text")
        late.forget()
        time.sleep(IN_THE_SECOND_PAUSE)
        self.tarnwick.trigger()
        self.assert_one_menu_came(late)
        self.assert_nothing_happened_in(late)

    def test_a_chord_over_an_application_that_is_stopped_does_nothing(self):
        self.leave()
        self.switch(self.typed_into)
        time.sleep(0.1)
        os.kill(self.typed_into.pid, signal.SIGSTOP)
        self.addCleanup(os.kill, self.typed_into.pid, signal.SIGCONT)
        self.tarnwick.trigger()
        time.sleep(STOPPED)
        os.kill(self.typed_into.pid, signal.SIGCONT)
        self.assert_one_menu_came(self.typed_into)
        self.assert_nothing_happened_in(self.typed_into)


class TypingAheadOfGtk3(TypingAheadOf, OverAnApplication):
    kit = "gtk3"
    focus_lines = ([], ["out", "in"])


class TypingAheadOfGtk4(TypingAheadOf, OverAnApplication):
    kit = "gtk4"
    menu = "exported.menu"
    focus_lines = ([], ["out", "in"])

    @classmethod
    def wait_until_shown(cls, fixture):
        """Its bar is not in the tree."""
        cls.screen.activate(fixture.window)
        cls.wait_for_titles(["File"])

    test_a_chord_while_a_late_menu_is_waited_for_does_nothing = None


class TypingAheadOfQt5(TypingAheadOf, OverAnApplication):
    kit = "qt5"


class TypingAheadOfQt6(TypingAheadOf, OverAnApplication):
    kit = "qt6"


class WhenTarnwickIsGone(OverAnApplication):
    """Keys that are held for a menu become everybody's again."""

    @classmethod
    def start_application(cls):
        return Fixture(cls.session, "gtk3", title="Editor")

    def test_killed_in_the_pause_leaves_the_keyboard(self):
        other = Fixture(self.session, "qt6", title="Other")
        self.addCleanup(other.program.stop)
        time.sleep(0.2)
        self.tarnwick.trigger()
        wait_for(lambda: "keyboard" in self.screen.grabs_left(), "the keyboard held for the menu")
        os.kill(self.tarnwick.pid, signal.SIGKILL)
        wait_for(lambda: self.screen.grabs_left() == [], "keyboard and pointer free", limit=1.0)


class WhenTarnwickIsStopped(OverAnApplication):
    @classmethod
    def start_application(cls):
        return Fixture(cls.session, "gtk3", title="Editor")

    def test_before_the_chord_leaves_the_keyboard(self):
        self.addCleanup(os.kill, self.tarnwick.pid, signal.SIGCONT)
        os.kill(self.tarnwick.pid, signal.SIGSTOP)
        self.tarnwick.trigger()
        wait_for(lambda: self.screen.grabs_left() == [], "keyboard and pointer free", limit=1.0)
        self.screen.type("x")
        self.application.wait_for_line("typed", "x")
        os.kill(self.tarnwick.pid, signal.SIGCONT)
        self.tarnwick.popups.wait_for(1)  # the press was kept for it


if __name__ == "__main__":
    main()
