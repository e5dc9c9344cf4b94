# SPDX-License-Identifier: MIT
"""Waiting for what a desktop will show sooner or later."""
import sys
import time

from gi.repository import GLib

LIMIT = 30.0  # seconds; generous, since a slow or busy machine is no failure


class TimedOut(AssertionError):
    """What was waited for did not come."""


class Patience:
    """So many seconds in which this program ran: while it is stopped with all it waits for, nothing can come."""

    _LONGEST_TURN = 1.0

    def __init__(self, seconds):
        self._left = seconds
        self._last = time.monotonic()

    def is_over(self):
        now = time.monotonic()
        self._left -= min(now - self._last, self._LONGEST_TURN)
        self._last = now
        return self._left < 0


def dispatch_events():
    """Delivers the bus signals that have arrived."""
    context = GLib.MainContext.default()
    while context.iteration(False):
        pass


def wait_for(condition, what, limit=LIMIT, step=0.005):
    """Waits until `condition()` is true and returns its value; after `limit` seconds fails with `what`."""
    patience = Patience(limit)
    while True:
        dispatch_events()
        value = condition()
        if value:
            return value
        if patience.is_over():
            raise TimedOut(f"after {limit} s still not: {what}")
        time.sleep(step)


def try_until(attempt, what, most):
    """For what others overlook now and then: `attempt()` is made until it is true, and it is told how often that was."""
    for number in range(1, most + 1):
        if value := attempt():
            if number > 1:
                print(f"{what}: try {number} of {most} did it", file=sys.stderr)
            return value
    raise TimedOut(f"in {most} tries not: {what}")


def holds_for(condition, seconds, what):
    """Fails with `what` as soon as `condition()` is false within `seconds`: for what must not happen."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        dispatch_events()
        if not condition():
            raise AssertionError(what)
        time.sleep(0.005)
