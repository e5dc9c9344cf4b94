# SPDX-License-Identifier: MIT
"""The hostile application as the tests see it."""
import pathlib
import sys
import time

from gi.repository import GLib
from harness.applications import Application
from harness.waiting import LIMIT, wait_for

_PROGRAM = pathlib.Path(__file__).resolve().parent / "application.py"
_PATIENCE = 60_000  # milliseconds: 100,000 entries are not made in a moment


class HostileApplication(Application):
    """In front once it is made, if it lives so long; what it is asked, only Tarnwick asks."""

    def __init__(self, session, bus, behaviour="well"):
        self._bus = bus
        self._log_file = session.directory / "out" / f"hostile.{time.monotonic_ns()}.log"
        super().__init__(session, [sys.executable, _PROGRAM, bus.address, self._log_file, behaviour], "Hostile")

    def is_in_front(self):
        front = self._session.screen.active_window()
        return not self.program.running() or front is not None and front.id == self.window.id

    def _first_window(self, title):
        """By the class that it has given the window: of title and process it may not tell the truth."""
        screen = self._session.screen
        own = f"hostile{self.pid}".encode()

        def find():
            return not self.program.running() or next(
                (window for window in screen.windows()
                 if own in bytes(screen.property_of(window.handle, "WM_CLASS") or b"").split(b"\0")), None)
        return wait_for(find, f"the {title} application's window")

    def lines(self, kind):
        """What it has written after `kind`, oldest first."""
        content = self._log_file.read_text() if self._log_file.exists() else ""
        return [line.removeprefix(kind).strip() for line in content.splitlines() if line.startswith(kind)]

    def thrown_out(self):
        """Whether the bus has closed its connection."""
        return bool(self.lines("thrown out"))

    def behave(self, behaviour):
        assert self._call("Behave", GLib.Variant("(s)", (behaviour,))), self.program.output

    def asked(self):
        """How many calls it has got; nothing when it does not say."""
        return self._call("Asked")

    def owes(self):
        """How many of its answers are still to come."""
        return self._call("Owed")

    def _call(self, method, arguments=None):
        name = self._name()
        return name and self._bus.call(name, "/control", "org.tarnwick.Hostile", method, arguments, limit=_PATIENCE)

    def _name(self):
        if not self._accessible:
            self._accessible = self._bus.application(self.pid)
        return self._accessible.name_on_bus

    def wait_until_typed(self, text, limit=LIMIT):
        wait_for(lambda: text in self.lines("typed"), f"{text!r} typed", limit)
