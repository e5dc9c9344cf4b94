# SPDX-License-Identifier: MIT
"""How long something took, without the time when other programs had the processor that it needed."""
import os
import pathlib
import time
import typing

MOST_STARVED = 0.5  # of a time; where it was more, nobody knows how long it would have taken


class TooSlow(AssertionError):
    """Something took longer than it may."""


class TooBusy(TooSlow):
    """It did, and others had the processor for too much of the time: the machine was too busy to tell."""


class FairTime(typing.NamedTuple):
    """Seconds. `starved` are those when one program at least had to wait for a processor, never more than `passed`;
    `waits` counts programs that waited at the same time several times."""

    passed: float
    starved: float = 0.0
    waits: float = 0.0

    @property
    def fair(self):
        return self.passed - self.starved

    @property
    def machine_was_too_busy(self):
        return max(self.starved, self.waits) > MOST_STARVED * self.passed

    def is_within(self, limit):
        """As it was, or without what others had, unless that was too much."""
        return self.passed <= limit or self.starved <= MOST_STARVED * self.passed and self.fair <= limit

    def assert_within(self, limit, what="it"):
        if not self.is_within(limit):
            kind, why = (TooBusy, ": the machine was too busy") if self.machine_was_too_busy else (TooSlow, "")
            raise kind(f"{what} took {self}, at most {limit} s{why}")

    def __str__(self):
        return f"{self.passed:.3f} s, {self.starved:.3f} of them without a processor"


class FairTimer:
    """Counts from its making on. Besides this program, `pids` are those that have to do something meanwhile.

    How long each of them had to wait for a processor is known, but not when. Those that waited longest are what is sure:
    what two waited for at the same time is not added up.
    """

    def __init__(self, *pids):
        self._before = {pid: seconds_starved(pid) for pid in (os.getpid(), *pids)}
        self._begin = time.monotonic()

    def read(self):
        passed = time.monotonic() - self._begin
        waits = [max(0.0, seconds_starved(pid) - before) for pid, before in self._before.items()]
        return FairTime(passed, min(passed, max(waits)), sum(waits))


def seconds_starved(pid):
    """Of the first thread of a program, since its start: when it was ready to run and others had the processor."""
    try:
        return int(pathlib.Path(f"/proc/{pid}/schedstat").read_text().split()[1]) / 1e9
    except OSError:  # it has ended
        return 0.0
