# SPDX-License-Identifier: MIT
"""Buses, the registry and trays go and come back; Tarnwick goes on, without a busy loop."""
import os
import pathlib
import signal
import time

from gi.repository import Gio, GLib

from torture import note, times, wait_for

from harness.accessible import AccessibilityBus, connect
from harness.applications import KITS, Fixture
from harness.case import DesktopTest, main
from harness.tarnwick import Tarnwick
from harness.tray import PublishedTray

NAME = "example.quorlane.Tarnwick"
MENU = ["About Tarnwick...", "Preferences...", "Quit"]
BACK_WITHIN = 10.0  # seconds from the bus's return until everything works again
WAKE_UPS = 20  # a second, at most, while a bus is away
CPU = 2.0  # per cent of one processor, at most, meanwhile
LAUNCHER, REGISTRY, DAEMON = "at-spi-bus-launcher", "at-spi2-registryd", "accessibility.conf"


class Buses(DesktopTest):
    """Each test has a session of its own: what lives on a bus may not live without it."""

    def setUp(self):
        self.mine = type(self).session_class()
        self.mine.start()
        self.addCleanup(self.mine.stop)
        self.connect()
        self.accessible.switch_on()
        self.tarnwick = Tarnwick(self.mine)
        self.tarnwick.wait_until_ready()

    def connect(self):
        self.address = self.mine.environment["DBUS_SESSION_BUS_ADDRESS"]
        self.accessible = wait_for(self._answering_bus, "the accessibility bus")
        self.addCleanup(self.close, self.accessible)

    def _answering_bus(self):
        """What starts it may just have been killed, and the session bus not know of that yet."""
        try:
            return AccessibilityBus(self.address)
        except GLib.Error:
            return None

    @staticmethod
    def close(connection):
        """Closes what may have broken long ago."""
        try:
            connection.close()
        except GLib.Error:
            pass

    def tray(self):
        tray = PublishedTray(self.address)
        self.addCleanup(self.close, tray)
        return tray

    def kill(self, *names):
        victims = self.mine.services(*names)
        self.assertTrue(victims, names)
        for pid in victims:
            os.kill(pid, signal.SIGKILL)

    def application(self, kit="gtk3", title=None):
        application = Fixture(self.mine, kit, title=title)
        self.addCleanup(application.program.kill)
        return application

    # What has to work

    def assert_opens_and_closes(self):
        self.tarnwick.open()
        self.tarnwick.close_menu()

    def assert_reads(self, application):
        """Without asking Tarnwick what it shows: the entry is chosen, and the application tells."""
        self.mine.screen.activate(application.window)
        self.tarnwick.wait_until_at_rest()
        self.tarnwick.open()
        for key in ("Down", "Right"):
            self.mine.screen.tap(key)
        self.tarnwick.popups.wait_for(2)
        self.mine.screen.tap("Return")
        application.wait_for_line("chosen", "File > New")
        self.tarnwick.wait_until_closed()

    def owner_of_the_name(self):
        bus = connect(self.address)
        try:
            return bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                                 "GetConnectionUnixProcessID", GLib.Variant("(s)", (NAME,)), None,
                                 Gio.DBusCallFlags.NONE, 3000, None).unpack()[0]
        except GLib.Error:
            return None
        finally:
            bus.close_sync(None)

    def assert_asked_by_name_opens_the_menu(self):
        wait_for(lambda: self.owner_of_the_name() == self.tarnwick.pid, f"{NAME} on the bus", BACK_WITHIN, step=0.05)
        self.mine.call("gdbus", "call", "--session", "--timeout", "10", "--dest", NAME, "--object-path",
                       "/example/quorlane/Tarnwick", "--method", "org.freedesktop.Application.ActivateAction", "pop-up",
                       "[]", "{}")
        self.tarnwick.popups.wait_for(1)
        self.tarnwick.close_menu()

    def assert_is_in(self, tray):
        self.assertEqual([label for _, label in tray.menu()], MENU)

    def assert_is_accessible(self):
        """Reads its own menu, with the events that tell of it, as a screen reader does."""
        self.assertEqual(self.accessible.application(self.tarnwick.pid).name, "Tarnwick")
        reader = self.tarnwick.reader(self.accessible)
        try:
            self.tarnwick.open()
            self.assertTrue(reader.wait_for(1))
        finally:
            reader.close()
            self.tarnwick.close_menu()

    def assert_rests(self, what, seconds=None):
        """Looks for some time how much Tarnwick does while it is left alone."""
        seconds = seconds or max(2.0, times(10))
        before = self._work()
        self.assert_opens_and_closes()
        self.assertGreater(self._work(), before, "the measure sees nothing")
        wait_for(lambda: self._is_little(*self._work_in(0.5)), f"rest, {what}")  # after what the loss itself causes
        wake_ups, cpu = self._work_in(seconds)
        self.assertTrue(self.tarnwick.program.running(), self.tarnwick.program.output)
        note(f"wake-ups a second, {what}", round(wake_ups, 1), WAKE_UPS)
        note(f"processor time, {what}", round(cpu, 2), CPU, "%")
        self.assertLess(wake_ups, WAKE_UPS, what)
        self.assertLess(cpu, CPU, what)

    @staticmethod
    def _is_little(wake_ups, cpu):
        return wake_ups < WAKE_UPS and cpu < CPU

    def _work_in(self, seconds):
        """Wake-ups a second, and per cent of a processor."""
        before = self._work()
        time.sleep(seconds)
        after = self._work()
        return (after[0] - before[0]) / seconds, 100 * (after[1] - before[1]) / seconds

    def _work(self):
        """How often its threads were given a processor, and for how many seconds in all."""
        rounds, seconds = 0, 0.0
        for task in pathlib.Path(f"/proc/{self.tarnwick.pid}/task").iterdir():
            running, _, count = (int(number) for number in (task / "schedstat").read_text().split())
            rounds += count
            seconds += running / 1e9
        return rounds, seconds


class TheSessionBus(Buses):
    def test_goes(self):
        self.assert_is_in(self.tray())
        self.assertEqual(self.owner_of_the_name(), self.tarnwick.pid)
        self.mine.end_bus()
        self.assert_rests("the session bus away")
        self.assert_opens_and_closes()

    def test_comes_back(self):
        self.assert_is_in(self.tray())
        for _ in range(times(3)):
            self.mine.end_bus()
            self.assert_opens_and_closes()
            self.mine.begin_bus()
            self.assert_is_back()
        self.assert_rests("the session bus back")

    def test_comes_back_before_there_was_a_tray(self):
        for _ in range(times(3)):
            self.mine.end_bus()
            self.assert_opens_and_closes()
            self.mine.begin_bus()
        self.assert_is_back()
        self.assert_rests("the session bus back, with a tray for the first time")

    def assert_is_back(self):
        begin = time.monotonic()
        self.connect()
        self.assert_is_in(self.tray())
        self.assert_asked_by_name_opens_the_menu()
        took = time.monotonic() - begin
        note("name and tray item back after the session bus", round(took, 1), BACK_WITHIN, "s")
        self.assertLess(took, BACK_WITHIN)
        self.assertEqual(self.tarnwick.program.output, "")

    def test_does_not_answer(self):
        """A bus that takes connections and says nothing holds Tarnwick up as little as one that is not there."""
        self.mine.stop_bus()
        self.assert_rests("the session bus stopped")
        self.assert_opens_and_closes()


class TheAccessibilityBus(Buses):
    def test_goes_and_is_started_again_by_somebody(self):
        for number in range(times(3)):
            self.kill(LAUNCHER, DAEMON)
            self.connect()
            self.accessible.switch_on()
            for kit in KITS:
                with self.subTest(kit):
                    application = self.application(kit, title=f"Later {kit} {number}")
                    self.assert_reads(application)
                    application.program.kill()
            self.assert_is_accessible()

    def test_does_not_answer_any_more(self):
        for pid in self.mine.services(LAUNCHER):
            os.kill(pid, signal.SIGSTOP)
        self.kill(DAEMON)
        self.assert_rests("the accessibility bus away")
        self.assert_opens_and_closes()


class TheRegistry(Buses):
    def test_starts_anew(self):
        applications = [self.application(kit, title=f"Before {kit}") for kit in KITS]
        for application in applications:
            application.accessible(self.accessible)
            self.assert_reads(application)
        for _ in range(times(5)):
            self.kill(REGISTRY)
            for application in applications:
                with self.subTest(application.window.title):
                    application.forget()
                    self.assert_reads(application)
            self.assert_is_accessible()
        self.assert_rests("the registry killed")


class Trays(Buses):
    def test_come_after_the_start_and_start_anew(self):
        for _ in range(times(10, least=3)):
            tray = self.tray()
            self.assert_is_in(tray)
            tray.close()
        self.assertEqual(self.tarnwick.program.output, "")


if __name__ == "__main__":
    main()
