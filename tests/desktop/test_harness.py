# SPDX-License-Identifier: MIT
"""The private desktop and the fixture programs themselves."""
import os
import signal
import subprocess
import threading
import time
import unittest

from Xlib import X, error

from harness.accessible import Item
from harness.applications import DATA, Fixture, KITS
from harness.case import DesktopTest, main
from harness.fair import FairTime, FairTimer, TooBusy, TooSlow
from harness.popup import PopUpReader
from harness.processes import children_of
from harness.rest import wait_until_asleep
from harness.screen import PRESS, Screen
from harness.tarnwick import Tarnwick
from harness.waiting import TimedOut, wait_for


class AFixtureOf:
    """Run for each toolkit."""

    kit = None

    @classmethod
    def prepare(cls):
        cls.connect_accessibility().switch_on()
        cls.application = Fixture(cls.session, cls.kit)

    def entries(self, title):
        holder = next(item for item in self.application.bar_items(self.bus) if item.title == title)
        return holder.node.items()

    def test_shows_the_bar_of_its_file(self):
        titles = [item.title for item in self.application.bar_items(self.bus)]
        expected = [line.strip() for line in (DATA / "editor.menu").read_text().splitlines()
                    if line and line[0] not in " #"]
        self.assertEqual(titles, expected)

    def test_shows_checked_and_disabled_entries(self):
        self.assertEqual(self.entries("View"), [
            Item("Word Wrap", checked=True), Item("Line Numbers"), Item("Status Bar", enabled=False, checked=True),
            Item("", separator=True), Item("Previous Page"), Item("R&D_Notes")])

    def test_writes_down_what_is_chosen(self):
        self.entries("Help")[1].node.press()
        self.application.wait_for_line("chosen", "Help > About Editor")

    def test_writes_down_what_is_typed(self):
        self.screen.type("xy")
        self.application.wait_for_line("typed", "y")
        self.assertIn("x", self.application.typed())

    def test_offers_cut_and_copy_with_a_selection_only(self):
        def enabled(title):
            return next(item.enabled for item in self.entries("Edit") if item.title == title)
        self.screen.type("xyz")
        self.screen.tap("Right")
        wait_for(lambda: not enabled("Cut") and not enabled("Copy"), "nothing to cut or copy")
        self.screen.tap("a", "Control_L")
        wait_for(lambda: enabled("Cut") and enabled("Copy"), "something to cut and to copy")

    def test_its_open_menu_can_be_read_in_qt(self):
        if self.kit == "gtk3":
            self.skipTest("what is read back are menus of Qt")
        reader = PopUpReader(self.bus, self.application.pid)
        self.addCleanup(reader.close)
        self.application.wait_until_placed(self.bus)
        bar = self.application.accessible(self.bus).menu_bar()
        self.screen.click(at=bar.items()[0].node.center)
        self.assertEqual(reader.wait_for(1)[0], Item("New"))
        self.screen.tap("Escape")
        reader.wait_for(0)
        self.screen.tap("Escape")  # the bar itself had the keyboard still


for _kit in KITS:
    globals()[f"AFixtureOf{_kit}"] = type(f"AFixtureOf{_kit}", (AFixtureOf, DesktopTest), {"kit": _kit})


class APrivateDesktop(DesktopTest):
    def test_has_a_clipboard(self):
        self.session.set_clipboard("one")
        self.assertEqual(self.session.clipboard(), "one")

    def another_person(self):
        """Another client of the display: what one client holds itself it may take again."""
        other = Screen(self.session.environment["DISPLAY"])
        self.addCleanup(other.close)
        return other

    def test_tells_whether_somebody_holds_the_keyboard(self):
        other = self.another_person()
        self.assertEqual(self.screen.grabs_left(), [])
        release = other.hold_key("a", 0)
        self.screen.press("a")
        self.assertEqual(self.screen.grabs_left(), ["keyboard"])
        self.screen.release("a")
        self.assertEqual(self.screen.grabs_left(), [])
        release()

    def test_tells_whether_somebody_holds_the_pointer(self):
        other = self.another_person()
        other.root.grab_pointer(False, 0, X.GrabModeAsync, X.GrabModeAsync, 0, 0, X.CurrentTime)
        other.display.sync()
        self.assertEqual(self.screen.grabs_left(), ["pointer"])
        other.display.ungrab_pointer(X.CurrentTime)
        other.display.sync()
        self.assertEqual(self.screen.grabs_left(), [])

    def test_does_not_take_a_key_that_somebody_holds(self):
        other = self.another_person()
        release = other.hold_key("a", X.Mod1Mask)
        with self.assertRaises(error.BadAccess):
            self.screen.hold_key("a", X.Mod1Mask)
        self.screen.hold_key("a", 0)()
        release()
        self.screen.hold_key("a", X.Mod1Mask)()

    def test_has_chords_that_let_go_of_the_key_first(self):
        self.screen.root.grab_keyboard(False, X.GrabModeAsync, X.GrabModeAsync, X.CurrentTime)
        self.addCleanup(self.screen.display.ungrab_keyboard, X.CurrentTime)
        self.screen.chord("z", "Alt_L")
        seen = []
        while len(seen) < 4:
            if (event := self.screen.display.next_event()).type in (X.KeyPress, X.KeyRelease):
                seen.append(event)
        alt, key = self.screen.key_code("Alt_L"), self.screen.key_code("z")
        self.assertEqual([(event.type, event.detail) for event in seen],
                         [(X.KeyPress, alt), (X.KeyPress, key), (X.KeyRelease, key), (X.KeyRelease, alt)])
        self.assertGreaterEqual(seen[2].time - seen[1].time, 1000 * PRESS - 1)


class Rest(DesktopTest):
    """Of programs, as it is waited for."""

    def test_has_come_when_all_sleep(self):
        wait_until_asleep([self.session.run("sleep", "60").pid, self.session.display_server_pid])

    def test_never_comes_to_one_that_works(self):
        busy = self.session.run("sh", "-c", "while :; do :; done")
        self.addCleanup(busy.kill)
        with self.assertRaises(TimedOut):
            wait_until_asleep([busy.pid], limit=0.5)

    def test_never_comes_to_two_that_wake_each_other(self):
        """At most moments one of them is asleep, but never both."""
        pair = self.session.run("sh", "-c", "cd $XDG_RUNTIME_DIR; mkfifo ping pong; "
                                            "(while read x; do echo $x; done <ping >pong) & "
                                            "exec 3>ping 4<pong; echo begun; while echo 1 >&3; do read x <&4; done")
        self.addCleanup(pair.kill)
        wait_for(lambda: "begun" in pair.output, "the other one")
        with self.assertRaises(TimedOut):
            wait_until_asleep([pair.pid, *children_of(pair.pid)], limit=0.5)


class TarnwickThatIsReady(DesktopTest):
    @classmethod
    def prepare(cls):
        cls.connect_accessibility().switch_on()
        cls.tarnwick = Tarnwick(cls.session)
        cls.applications = [Fixture(cls.session, "gtk3", title=title) for title in ("One", "Other")]

    def test_was_asked_for_by_one_press(self):
        before = self.tarnwick.presses
        self.tarnwick.wait_until_ready()
        self.assertEqual(self.tarnwick.presses, before + 1)

    def test_is_at_rest_after_the_pause_that_a_switch_brings(self):
        """Each time, without a press: and then the first one opens the menu."""
        self.tarnwick.wait_until_at_rest()
        for number in range(6):
            begin = time.monotonic()
            if number > 2:  # the news and the question come at the same time
                os.kill(self.tarnwick.pid, signal.SIGSTOP)
                threading.Timer(0.1, os.kill, (self.tarnwick.pid, signal.SIGCONT)).start()
            self.screen.activate(self.applications[number % 2].window)
            self.tarnwick.wait_until_at_rest()
            self.assertGreater(time.monotonic() - begin, 0.6)
            before = self.tarnwick.presses
            self.tarnwick.open(limit=2.0)
            self.tarnwick.close_menu()
            self.assertEqual(self.tarnwick.presses, before + 1)


class TheFairTimer(unittest.TestCase):
    """Times as (passed, starved, waits in all)."""

    def test_takes_off_what_others_had_up_to_half(self):
        for time_, limit, within in ((FairTime(1.0), 1.0, True), (FairTime(1.1), 1.0, False),
                                     (FairTime(1.5, 0.5, 0.5), 1.0, True), (FairTime(1.6, 0.5, 0.5), 1.0, False),
                                     (FairTime(2.0, 1.0, 1.0), 1.0, True), (FairTime(2.2, 1.2, 1.2), 1.0, False),
                                     (FairTime(0.9, 0.9, 2.7), 1.0, True)):
            with self.subTest(time_, limit=limit):
                self.assertEqual(time_.is_within(limit), within)

    def test_fails_on_a_machine_that_was_too_busy_and_says_so(self):
        FairTime(0.9, 0.9, 2.7).assert_within(1.0)
        for time_ in (FairTime(2.2, 1.2, 1.2), FairTime(2.0, 0.7, 1.4)):
            with self.assertRaisesRegex(TooBusy, "the machine was too busy"):
                time_.assert_within(1.0)
        with self.assertRaisesRegex(TooSlow, "^it took 1.600 s, 0.500 of them without a processor, at most 1.0 s$"):
            FairTime(1.6, 0.5, 0.5).assert_within(1.0)

    def crowd(self, programs):
        """So many that never rest, on one processor with this one."""
        processors = os.sched_getaffinity(0)
        self.addCleanup(os.sched_setaffinity, 0, processors)
        os.sched_setaffinity(0, {min(processors)})
        crowd = [subprocess.Popen(["sh", "-c", "while :; do :; done"]) for _ in range(programs)]
        for program in crowd:
            self.addCleanup(program.wait)
            self.addCleanup(program.kill)
        return [program.pid for program in crowd]

    def test_takes_off_no_more_than_has_passed_when_many_wait_at_the_same_time(self):
        timer = FairTimer(*self.crowd(5))
        time.sleep(1.0)
        time_ = timer.read()
        self.assertGreater(time_.waits, 1.5 * time_.passed)
        self.assertLessEqual(time_.starved, time_.passed)
        self.assertGreaterEqual(time_.fair, 0.0)
        with self.assertRaises(TooBusy):
            time_.assert_within(0.9)

    def test_takes_off_nothing_where_nobody_waited(self):
        timer = FairTimer()
        time.sleep(0.2)
        with self.assertRaises(TooSlow):
            timer.read().assert_within(0.05)


if __name__ == "__main__":
    main()
