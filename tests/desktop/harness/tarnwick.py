# SPDX-License-Identifier: MIT
"""The program under test."""
import os
import time

from .popup import PopUps, PopUpReader
from .waiting import LIMIT, TimedOut, wait_for

TRIGGER = 52  # the key to the left of X on a us keyboard, by its place and not by its letter
OPTION = "Alt_L"
PRESS = 0.05  # seconds that a person holds a key down; no program need be faster than that


def settings_text(settings):
    """The settings file of a run that has already asked what is asked once."""
    values = {"FirstRun": True, **settings}
    return "[General]\n" + "".join(f"{key}={_ini(value)}\n" for key, value in values.items())


def _ini(value):
    return str(value).lower() if isinstance(value, bool) else str(value)


class Tarnwick:
    """Tarnwick in a session. Its own menus can be read in any session; other programs are not helped like that.

    It finds `settings` in its file, or `content` as the file. `program` is another build of it, and `environment` what
    that needs.
    """

    always = {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}

    def __init__(self, session, content=None, program=None, environment=None, **settings):
        self._session = session
        self.settings_file = session.directory / "home/.config/Quorlane/Tarnwick.conf"
        self.settings_file.parent.mkdir(parents=True, exist_ok=True)
        self.settings_file.write_bytes(content or settings_text(settings).encode())
        self.program_file = program or os.environ["TARNWICK_BINARY"]
        self.program = session.run(self.program_file, **{**self.always, **(environment or {})})
        self.popups = PopUps(session.screen, self.pid)

    @property
    def pid(self):
        return self.program.pid

    def wait_until_ready(self):
        """Waits until the hot key opens the menu, and closes it again."""
        def answers():
            try:
                self.open(limit=0.3)
            except TimedOut:
                return False
            return True
        wait_for(answers, f"a menu; Tarnwick wrote: {self.program.output}")
        self.close_menu()

    def trigger(self):
        """Presses Option-Z and lets go of it after a moment."""
        self._hold_trigger_until(lambda: False, PRESS)

    def open(self, limit=LIMIT):
        """Opens the menu with the hot key, which is down until the menu is there, and returns its window."""
        self._hold_trigger_until(lambda: self.popups.count() == 1, limit)
        return self.popups.wait_for(1, limit)[0]

    def titles(self, reader):
        """What the menu shows at the top now; nothing when a switch of the application has closed it meanwhile."""
        try:
            self.open(limit=3.0)
            reader.wait_for(1, limit=3.0)
            return reader.titles()
        except (TimedOut, IndexError):
            return []
        finally:
            self.close_menu()

    def wait_for_titles(self, reader, titles):
        """Waits until the menu begins with `titles`: some time after another application has come to the front."""
        seen = [[]]

        def begins():
            seen[0] = self.titles(reader)
            return bool(seen[0]) and seen[0][:len(titles)] == titles
        try:
            wait_for(begins, f"a menu of {titles}", step=0.1)
        except TimedOut as error:
            raise TimedOut(f"{error}, last seen {seen[0]}; Tarnwick wrote: {self.program.output}") from None

    def _hold_trigger_until(self, condition, limit):
        self._session.screen.press(OPTION)
        self._session.screen.press(TRIGGER)
        end = time.monotonic() + limit
        while not condition() and time.monotonic() < end:
            time.sleep(0.002)
        self._session.screen.release(TRIGGER)
        self._session.screen.release(OPTION)

    def close_menu(self):
        """Presses Escape for each menu that is open, and never when none is: it might close something else."""
        end = time.monotonic() + LIMIT
        while (before := self.popups.count()) and time.monotonic() < end:
            self._session.screen.tap("Escape")
            try:
                wait_for(lambda count=before: self.popups.count() < count, "a menu closed", limit=1.0, step=0.002)
            except TimedOut:
                continue
        self.wait_until_closed()

    def wait_until_closed(self, limit=LIMIT):
        """Waits until no menu is open and the next key goes to the application: a moment later, as the server sees it."""
        self.popups.wait_for(0, limit)
        wait_for(lambda: self._session.screen.grabs_left() == [], "keyboard and pointer free", limit, step=0.002)

    def reader(self, bus):
        return PopUpReader(bus, self.pid)

    def stop(self):
        return self.program.stop()
