# SPDX-License-Identifier: MIT
"""Switches between windows: the compositor tells of them, the menu follows, and one that is open closes."""
import os
import signal

from case import DATA, fixture_program, main, wait_for
from harness.monitor import BusMonitor
from native import ACTIVE, OWN_ENTRY, TITLES, MenuTest
from windows import Windows

KITS = ("gtk3", "qt6")
WAYS = ("pop-up", "pop-up-by-pointer")


class SwitchTest(MenuTest):
    def setUp(self):
        super().setUp()
        self.session.put_pointer_away()
        self.windows = Windows(self.session)
        self.addCleanup(self.windows.stop)
        self.last = 0  # number of a window
        self.addCleanup(self.close)

    def start(self, kit, *options, windows=1):
        """Starts a fixture, whose `windows` have the next numbers, and returns it once the last one is the active one."""
        program = self.session.run(fixture_program(kit), DATA / "editor.menu", "--windows", windows, *options)
        self.addCleanup(program.stop)
        program.windows = range(self.last + 1, self.last + 1 + windows)
        self.last += windows
        wait_for(lambda: self.windows.active()[0] == self.last, f"window {self.last}; it wrote {program.output!r}")
        application = self.bus.application(program.pid)
        wait_for(lambda: any(ACTIVE in window.states for window in application.children), f"an active window of {kit}",
                 step=0.05)
        return program

    def titles(self):
        """Of the menu, which is closed again."""
        shown = self.open()
        self.close()
        return shown

    def open_by(self, action):
        self.tarnwick.wait_until_at_rest()
        self.tarnwick.pop_up(action)
        self.reader.wait_for(1)

    def each_way_to_open(self, check):
        for action in WAYS:
            with self.subTest(action):
                self.open_by(action)
                check()
                self.wait_until_closed()


class ASwitch(SwitchTest):
    def test_is_told_with_the_process_where_the_compositor_knows_it(self):
        first = self.start("gtk3", "--title", "First")
        second = self.start("qt6", "--title", "Second")
        self.windows.activate(first.windows[0])
        if self.session.tells_processes:
            told = {process: title for _, process, title in self.windows.told() if process}
            self.assertEqual(told, {first.pid: "First", second.pid: "Second"})
            self.assertEqual(self.windows.active(), (first.windows[0], first.pid, "First"))
        first.stop()
        wait_for(lambda: self.windows.active()[0] in (0, second.windows[0]), "the end told")

    def was_read(self, bar, monitor):
        """Whether somebody else than this test has asked for the entries of the bar."""
        own = self.bus.connection.get_unique_name()
        return any((call.destination, call.path, call.member) == (bar.name_on_bus, bar.path, "GetChildren")
                   for call in monitor.calls() if call.sender != own)

    def test_has_the_menu_read_before_it_is_asked_for(self):
        for kit in KITS:
            with self.subTest(kit):
                first = self.start(kit)
                second = self.start("qt6", "--no-bar")
                self.assertEqual(self.titles(), [OWN_ENTRY])
                bar = self.bus.application(first.pid).menu_bar()
                monitor = BusMonitor(self.session, self.bus.address)
                self.windows.activate(first.windows[0])
                wait_for(lambda: self.was_read(bar, monitor), "its menu bar read", step=0.1)
                self.assertEqual(self.titles(), TITLES)
                first.stop()
                second.stop()

    def test_closes_the_menu_that_is_open(self):
        first = self.start("gtk3")
        second = self.start("qt6", "--no-bar")

        def check():
            self.windows.activate(second.windows[0] if self.windows.active()[0] == first.windows[0] else first.windows[0])
        self.each_way_to_open(check)
        self.windows.activate(first.windows[0])
        self.assertEqual(self.titles(), TITLES)

    def test_where_there_was_none_only_the_program_in_front_is_asked(self):
        """Another one may be busy."""
        other = self.start("qt6", "--no-bar")
        self.start("gtk3")
        self.assertEqual(self.titles(), TITLES)
        self.tarnwick.wait_until_at_rest()
        name = self.bus.application(other.pid).name_on_bus
        monitor = BusMonitor(self.session, self.bus.address)
        self.assertEqual(self.titles(), TITLES)
        calls = monitor.calls()
        self.assertTrue(calls)
        self.assertEqual([call for call in calls if call.destination == name], [])

    def test_between_windows_of_one_program_shows_the_menu_of_each(self):
        for kit in KITS:
            with self.subTest(kit):
                program = self.start(kit, windows=2)
                first, second = program.windows
                self.assertEqual(self.titles(), [*TITLES[:-2], "Window 2", "", OWN_ENTRY])
                self.windows.activate(first)
                self.assertEqual(self.titles(), TITLES)

                def check(both=(second, first)):
                    self.windows.activate(both[self.windows.active()[0] == second])
                self.each_way_to_open(check)
                self.windows.activate(second)
                self.assertEqual(self.titles(), [*TITLES[:-2], "Window 2", "", OWN_ENTRY])
                program.stop()

    def test_to_another_workspace_closes_the_menu_too(self):
        first = self.start("gtk3")

        def check():
            self.session.go_to_workspace(2)
            self.wait_until_closed()
            wait_for(lambda: self.windows.active()[0] == 0, "no active window")
            self.assertEqual(self.titles(), [OWN_ENTRY])
            self.session.go_to_workspace(1)
            wait_for(lambda: self.windows.active()[0] == first.windows[0], "the window again")
        self.each_way_to_open(check)
        self.assertEqual(self.titles(), TITLES)

    def test_to_nothing_as_the_program_in_front_ends_closes_the_menu_too(self):
        for action in WAYS:
            with self.subTest(action):
                program = self.start("gtk3")
                self.open_by(action)
                program.kill()
                self.wait_until_closed()
                self.assertEqual(self.titles(), [OWN_ENTRY])

    def test_to_a_program_that_does_not_answer_yet_is_followed_by_its_menu(self):
        program = self.start("gtk3")
        self.start("qt6", "--no-bar")
        self.assertEqual(self.titles(), [OWN_ENTRY])
        bar = self.bus.application(program.pid).menu_bar()
        monitor = BusMonitor(self.session, self.bus.address)
        os.kill(program.pid, signal.SIGSTOP)
        try:
            self.windows.activate(program.windows[0])
            self.tarnwick.wait_until_at_rest()
        finally:
            os.kill(program.pid, signal.SIGCONT)
        wait_for(lambda: self.was_read(bar, monitor), "its menu bar read", step=0.1)
        self.assertEqual(self.titles(), TITLES)


class OwnWindows(SwitchTest):
    """Those of Tarnwick itself have its own menu, as any program's."""

    def test_have_a_menu_of_their_own(self):
        first = self.start("gtk3")
        self.assertEqual(self.titles(), TITLES)
        self.tarnwick.show_preferences()
        self.last += 1
        wait_for(lambda: self.windows.active()[0] == self.last, "the preferences in front")
        self.assertEqual(self.titles(), ["Application", "Edit", "Window", "", OWN_ENTRY])
        self.windows.activate(first.windows[0])
        self.assertEqual(self.titles(), TITLES)


if __name__ == "__main__":
    main()
