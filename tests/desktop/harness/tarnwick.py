# SPDX-License-Identifier: MIT
"""The program under test."""
import os
import time

from gi.repository import Gio, GLib

from .accessible import connect
from .popup import PopUps, PopUpReader
from .rest import wait_until_asleep
from .waiting import LIMIT, TimedOut, wait_for

TRIGGER = 52  # the key to the left of X on a us keyboard, by its place and not by its letter
OPTION = "Alt_L"
NONE_COUNTS_AFTER = 0.21  # seconds, and a little, that no window is in front until Tarnwick believes it
_NAME = "example.quorlane.Tarnwick"
_PATH = "/example/quorlane/Tarnwick"


def settings_text(settings):
    """The settings file of a run that has already asked what is asked once."""
    values = {"FirstRun": True, **settings}
    return "[General]\n" + "".join(f"{key}={_ini(value)}\n" for key, value in values.items())


def _ini(value):
    return str(value).lower() if isinstance(value, bool) else str(value)


class Tarnwick:
    """Tarnwick in a session, as a person starts it.

    It finds `settings` in its file, or `content` as the file. `program` is another build of it, and `environment` what
    that needs.
    """

    always = {}

    def __init__(self, session, content=None, program=None, environment=None, **settings):
        self._session = session
        self.settings_file = session.directory / "home/.config/Quorlane/Tarnwick.conf"
        self.settings_file.parent.mkdir(parents=True, exist_ok=True)
        self.settings_file.write_bytes(content or settings_text(settings).encode())
        self.program_file = program or os.environ["TARNWICK_BINARY"]
        self.program = session.run(self.program_file, **{**self.always, **(environment or {})})
        self.popups = PopUps(session.screen, self.pid)
        self.presses = 0  # of a hot key, all in all

    @property
    def pid(self):
        return self.program.pid

    # Whether it has time

    def wait_until_at_rest(self):
        """Waits until it has dealt with all that has happened so far, with the pauses after a switch; nothing is pressed.

        What the display server and the window manager have told has come to it when they and it have slept at the same
        time. What it has told itself is over when its main thread has answered, which is asked for what means nothing:
        twice, since a switch goes to the end of its queue once more.
        """
        if not self._session.bus_answers:
            self.wait_until_told()
            return
        bus = connect(self._session.environment["DBUS_SESSION_BUS_ADDRESS"])
        try:
            wait_for(lambda: self._owner_of_its_name(bus) == self.pid, f"{_NAME} on the bus; it wrote: {self.program.output}")
            self._wait_for_answer(bus)  # so long it may still be starting
            self.wait_until_told()
            self._wait_for_answer(bus)
            self._wait_for_answer(bus)
        except GLib.Error as error:
            raise AssertionError(f"no answer: {error.message}; Tarnwick wrote: {self.program.output}") from error
        finally:
            bus.close_sync(None)

    def wait_until_told(self):
        """Waits until it has heard of all that has happened on the screen; it may be in the pause that it makes for that."""
        screen = self._session.screen
        told = (self._session.display_server_pid, screen.window_manager_pid(), self.pid)
        screen.display.sync()
        wait_until_asleep([pid for pid in told if pid])
        if not screen.active_window():
            time.sleep(NONE_COUNTS_AFTER)  # then it is believed, which is a switch, too
            wait_until_asleep([pid for pid in told if pid])

    @staticmethod
    def _wait_for_answer(bus):
        bus.call_sync(_NAME, _PATH, "org.freedesktop.Application", "Open", GLib.Variant("(asa{sv})", ([], {})), None,
                      Gio.DBusCallFlags.NO_AUTO_START, round(1000 * LIMIT), None)

    @staticmethod
    def _owner_of_its_name(bus):
        try:
            return bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                                 "GetConnectionUnixProcessID", GLib.Variant("(s)", (_NAME,)), None,
                                 Gio.DBusCallFlags.NONE, round(1000 * LIMIT), None).unpack()[0]
        except GLib.Error:
            return None

    def wait_until_ready(self):
        """Waits until it has time; then one press of the hot key opens the menu, which is closed again."""
        self.wait_until_at_rest()
        self.open()
        self.close_menu()

    # Its menu

    def press(self, key, *held):
        """Presses a hot key once."""
        self.presses += 1
        self._session.screen.chord(key, *held)

    def trigger(self):
        """Presses Option-Z, which need not open anything."""
        self.press(TRIGGER, OPTION)

    def open(self, limit=LIMIT):
        """Opens the menu with Option-Z and returns its window."""
        return self.open_with(TRIGGER, OPTION, limit=limit)

    def open_with(self, key, *held, limit=LIMIT):
        """Opens the menu by one press of this hot key and returns its window."""
        self.press(key, *held)
        try:
            return self.popups.wait_for(1, limit)[0]
        except TimedOut as error:
            raise TimedOut(f"{error}; Tarnwick wrote: {self.program.output}") from None

    def titles(self, reader):
        """What the menu shows at the top, once Tarnwick has time."""
        self.wait_until_at_rest()
        self.open()
        reader.wait_for(1)
        try:
            return reader.titles()
        finally:
            self.close_menu()

    def wait_for_titles(self, reader, titles):
        """Waits until Tarnwick has time; then one press opens a menu that begins with `titles`."""
        shown = self.titles(reader)
        if shown[:len(titles)] != titles:
            raise AssertionError(f"not a menu of {titles} but of {shown}; Tarnwick wrote: {self.program.output}")

    def close_menu(self):
        """Presses Escape once for each menu that is open, and never when none is: it might close something else."""
        if self.popups.count():
            self.wait_until_at_rest()  # a menu may be on its way
        while before := self.popups.count():
            self._session.screen.tap("Escape")
            wait_for(lambda count=before: self.popups.count() < count, "a menu closed", step=0.002)
        self.wait_until_closed()

    def wait_until_closed(self, limit=LIMIT):
        """Waits until no menu is open and the next key goes to the application: a moment later, as the server sees it."""
        self.popups.wait_for(0, limit)
        wait_for(lambda: self._session.screen.grabs_left() == [], "keyboard and pointer free", limit, step=0.002)

    def reader(self, bus):
        return PopUpReader(bus, self.pid)

    def stop(self):
        return self.program.stop()
