# SPDX-License-Identifier: MIT
"""Tarnwick starts on every kind of desktop: an empty one, one without services, one that is not ready yet."""
import contextlib
import os
import signal
import time

from Xlib import X

from harness.applications import Fixture
from harness.case import DesktopTest, main
from harness.over import OWN_ENTRY
from harness.screen import LEFT, Window
from harness.tarnwick import TRIGGER, Tarnwick
from harness.tray import embedded_icon, icon_at_rest
from harness.waiting import holds_for, wait_for


SLOW = 0.1  # seconds of a window manager until it says who comes after a window; from 0.2 on nobody is in front meanwhile
ROUNDS = 3  # the start may be slower than the window manager


class AnEmptyDesktop(DesktopTest):
    """As at login: nothing is open yet, and nobody has asked for the accessibility bus."""

    tools = ("tint2",)

    def test_gets_a_menu_and_a_tray_icon_as_soon_as_there_is_something_to_show(self):
        tarnwick = Tarnwick(self.session)
        bus = self.connect_accessibility()
        wait_for(bus.is_enabled, "accessibility switched on", step=0.05)
        reader = tarnwick.reader(bus)
        self.addCleanup(reader.close)
        tarnwick.wait_until_ready()
        with self.subTest("nothing open"):
            tarnwick.open()
            reader.wait_for(1)
            self.assertEqual(reader.titles(), [OWN_ENTRY])
            tarnwick.close_menu()
        with self.subTest("a program that publishes only where accessibility is on at its start"):
            fixture = Fixture(self.session, "qt6")
            titles = [item.title for item in fixture.bar_items(bus)]
            tarnwick.wait_for_titles(reader, titles + ["", OWN_ENTRY])
        with self.subTest("a tray that comes late"):
            self.assertIsNone(embedded_icon(self.screen, tarnwick.pid))
            self.session.run("tint2")
            icon = icon_at_rest(self.screen, tarnwick.pid)
            self.screen.click(LEFT, at=Window(self.screen, icon).center)
            reader.wait_for(1)
            self.assertEqual(reader.titles(), ["About Tarnwick...", "Preferences...", "Quit"])
        with self.subTest("its Quit"):
            self.screen.click(LEFT, at=reader.item("Quit").node.center)
            self.assertEqual(tarnwick.program.status(), 0)


class NoAccessibility(DesktopTest):
    """A session whose bus knows no accessibility service: Tarnwick asks what to do."""

    session_options = {"accessibility": False}
    tools = ("tint2",)

    def start(self):
        tarnwick = Tarnwick(self.session)
        self.addCleanup(tarnwick.stop)
        self.alert = wait_for(lambda: next((window for window in self.screen.windows()
                                            if window.pid == tarnwick.pid), None), "the alert")
        wait_for(lambda: self.screen.focused_window_id() == self.alert.id, "the alert with the keyboard")
        return tarnwick

    @contextlib.contextmanager
    def window_manager_asleep(self):
        pid = self.screen.window_manager_pid()
        os.kill(pid, signal.SIGSTOP)
        try:
            yield
        finally:
            os.kill(pid, signal.SIGCONT)

    def alert_is_up(self):
        return self.alert.id in [window.id for window in self.screen.windows()]

    def start_tray(self):
        self.addCleanup(self.session.run("tint2").stop)

    def test_is_asked_about_before_any_hot_key_or_tray_icon_exists(self):
        self.start_tray()
        tarnwick = self.start()
        tarnwick.trigger()
        holds_for(lambda: tarnwick.popups.count() == 0 and not embedded_icon(self.screen, tarnwick.pid), 0.6,
                  "a menu or an icon")
        self.assertTrue(self.alert_is_up())

    def test_is_no_hindrance_when_one_continues_anyway(self):
        tarnwick = self.start()
        self.screen.tap("Escape")
        wait_for(lambda: not self.alert_is_up(), "the alert closed")
        tarnwick.wait_until_ready()
        width, height = tarnwick.open().frame[2:]
        self.assertGreater(width, 40)
        self.assertGreater(height, 10)
        tarnwick.close_menu()
        self.start_tray()  # it comes late, and finds the icon
        icon = icon_at_rest(self.screen, tarnwick.pid)
        self.screen.click(LEFT, at=Window(self.screen, icon).center)
        tarnwick.popups.wait_for(1)
        tarnwick.close_menu()
        self.assertTrue(tarnwick.program.running())

    def test_leaves_the_menu_to_the_application_in_front_when_one_continues_anyway(self):
        """Some programs tell their menus without that service. What was in front before the alert is so again after it."""
        viewer = Fixture(self.session, "gtk4", menu="viewer.menu", title="Viewer")
        self.addCleanup(viewer.program.stop)
        for _ in range(ROUNDS):
            viewer.forget()
            self.continue_anyway_over(viewer)

    def continue_anyway_over(self, viewer):
        tarnwick = self.start()
        with self.window_manager_asleep():
            for key in ("Tab", "space"):  # from the first button to "Continue Anyway"
                self.screen.tap(key)
            wait_for(lambda: self.alert.pid is None, "the server without the alert")
            time.sleep(SLOW)
        wait_for(viewer.is_in_front, "the application in front again")
        tarnwick.wait_until_at_rest()
        tarnwick.open()
        for key in ("Down", "Right", "Return"):
            self.screen.tap(key)
        viewer.wait_for_line("chosen", "File > Open Image...")
        tarnwick.stop()

    def test_ends_the_program_at_quit_before_anything_exists(self):
        tarnwick = self.start()
        for key in ("Tab", "Tab", "space"):  # from the first button over "Continue Anyway" to "Quit Tarnwick"
            self.screen.tap(key)
        self.assertEqual(tarnwick.program.status(), 0)
        self.assertEqual(tarnwick.popups.count(), 0)
        self.screen.hold_key(TRIGGER, X.Mod1Mask)()


if __name__ == "__main__":
    main()
