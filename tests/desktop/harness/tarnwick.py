# SPDX-License-Identifier: MIT
"""The program under test."""
import os

from .popup import PopUps, PopUpReader
from .waiting import TimedOut, wait_for

TRIGGER = 52  # the key to the left of X on a us keyboard, by its place and not by its letter
OPTION = "Alt_L"


def write_settings(session, **settings):
    """What a former run has left behind: `settings` over the answer to the question of the first run."""
    directory = session.directory / "home/.config/Quorlane"
    directory.mkdir(parents=True, exist_ok=True)
    lines = [f"{key}={_ini(value)}" for key, value in {"FirstRun": True, **settings}.items()]
    (directory / "Tarnwick.conf").write_text("[General]\n" + "\n".join(lines) + "\n")


def _ini(value):
    return str(value).lower() if isinstance(value, bool) else str(value)


class Tarnwick:
    """Tarnwick in a session, started as a session starts it: a command without arguments."""

    def __init__(self, session, **settings):
        write_settings(session, **settings)
        self._session = session
        self.program = session.run(os.environ["TARNWICK_BINARY"])
        self.popups = PopUps(session.screen, self.pid)

    @property
    def pid(self):
        return self.program.pid

    def wait_until_ready(self):
        """Waits until the hot key opens the menu, and closes it again."""
        def answers():
            self.trigger()
            try:
                self.popups.wait_for(1, limit=0.3)
            except TimedOut:
                return False
            return True
        wait_for(answers, f"a menu; Tarnwick wrote: {self.program.output}", limit=15.0)
        self.close_menu()

    def trigger(self):
        """Presses and releases Option-Z."""
        self._session.screen.tap(TRIGGER, OPTION)

    def open(self, limit=5.0):
        """Opens the menu with the hot key and returns its window."""
        self.trigger()
        return self.popups.wait_for(1, limit)[0]

    def close_menu(self):
        """Presses Escape until no menu is open."""
        def closed():
            if self.popups.count() == 0:
                return True
            self._session.screen.tap("Escape")
            return False
        wait_for(closed, "the menu closed", step=0.02)

    def reader(self, bus):
        return PopUpReader(bus, self.pid)

    def stop(self):
        return self.program.stop()
