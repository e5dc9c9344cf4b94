# SPDX-License-Identifier: MIT
"""What the tests of this folder have in common: how long they may take, their seed, and their figures.

Environment:
  TARNWICK_TORTURE_SHARE   how much of the whole to do, 1 for all of it; less in CI
  TARNWICK_TORTURE_SEED    repeats the random steps of an earlier run
  TARNWICK_TORTURE_OUTPUT  a directory for the figures, one file of JSON lines for each test file
"""
import json
import os
import pathlib
import random
import sys
import time
import typing

from resources import private_memory

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "desktop"))

from harness.fair import FairTime  # noqa: E402
from harness.tarnwick import Tarnwick  # noqa: E402
from harness.waiting import wait_for  # noqa: E402

SHARE = float(os.environ.get("TARNWICK_TORTURE_SHARE", "0.02"))
SEED = int(os.environ.get("TARNWICK_TORTURE_SEED", time.time_ns() % 1_000_000))


def times(whole, least=1):
    """How often to do what the whole run does `whole` times."""
    return max(least, round(whole * SHARE))


def dice(name):
    """Random numbers of their own for each test; the seed is told, so that a failure can be repeated."""
    print(f"TARNWICK_TORTURE_SEED={SEED} ({name})", file=sys.stderr)
    return random.Random(f"{SEED} {name}")


def note(what, value, limit=None, unit=""):
    """Keeps a figure for the table; `limit` is what it may be at most."""
    line = {"part": pathlib.Path(sys.argv[0]).stem.removeprefix("test_"), "what": what, "value": value,
            "limit": limit, "unit": unit, "share": SHARE, "seed": SEED}
    directory = os.environ.get("TARNWICK_TORTURE_OUTPUT")
    if directory:
        with open(pathlib.Path(directory) / f"{line['part']}.jsonl", "a", encoding="utf-8") as file:
            file.write(json.dumps(line, ensure_ascii=False) + "\n")


_SWITCH = 24  # bytes of a line


class Absence(typing.NamedTuple):
    """A time when the main loop was away: two times of time.monotonic(), and the seconds in between of pauses, and those
    when other programs had the processor that it wanted."""

    begin: float
    end: float
    paused: float
    starved: float
    pauses: float

    @property
    def unwanted(self):
        """The time that was no pause; after each pause an application is read again, with as much time as before."""
        readings = max(1.0, self.pauses)
        passed = max(0.0, self.end - self.begin - self.paused) / readings
        starved = min(passed, self.starved / readings)
        return FairTime(passed, starved, starved)


class WatchedTarnwick(Tarnwick):
    """Tarnwick that tells when its main loop was away; with `hurry` its pauses are that much of their length.

    With `leak` it loses so many bytes at each switch of the front application.
    """

    def __init__(self, session, hurry=None, leak=None, **settings):
        self.watch_file = session.directory / "out" / f"away.{time.monotonic_ns()}"
        self.switches_file = session.directory / "out" / f"switches.{time.monotonic_ns()}"
        environment = {"TARNWICK_WATCH": str(self.watch_file), "TARNWICK_SWITCHES": str(self.switches_file)}
        if hurry is not None:
            environment["TARNWICK_HURRY"] = str(hurry)
        if leak is not None:
            environment["TARNWICK_LEAK"] = str(leak)
        super().__init__(session, program=os.environ["TARNWICK_WATCHED"], environment=environment, **settings)

    def absences(self, since=0.0):
        """When the main loop was away for longer than 50 ms; those that ended after `since`, a time.monotonic()."""
        try:
            lines = self.watch_file.read_text().splitlines(keepends=True)
        except OSError:
            return []
        found = [Absence(*(float(number) for number in line.split())) for line in lines if line.endswith("\n")]
        return [absence for absence in found if absence.end >= since]

    def longest_absence(self, since=0.0):
        """For one reading, besides the pauses that Tarnwick makes on purpose; no time when there was none worth a line."""
        times = [absence.unwanted for absence in self.absences(since)]
        return max(times, key=lambda time: (time.fair, time.passed), default=FairTime(0.0))

    def assert_away_at_most(self, limit, what, since=0.0):
        """The pauses are not meant."""
        for absence in self.absences(since):
            absence.unwanted.assert_within(limit, f"{what}: away from the main loop, which")

    def switches(self):
        """How many switches of the front application it has dealt with."""
        try:
            return self.switches_file.stat().st_size // _SWITCH
        except OSError:
            return 0

    def dealt_with(self):
        """The process that was in front at the last of them; 0 while there was none."""
        return self._last_switch()[1]

    def allocated(self):
        """Bytes that it had allocated when it had dealt with the last switch."""
        return self._last_switch()[0]

    def _last_switch(self):
        """In whole lines: the next one may be on its way."""
        count = self.switches()
        if not count:
            return [0, 0]
        with open(self.switches_file, "rb") as file:
            file.seek((count - 1) * _SWITCH)
            return [int(number) for number in file.read(_SWITCH).split()]

    def private_memory(self):
        """KiB of memory that this process alone has written to."""
        return private_memory(self.pid)

    def descriptors(self):
        return len(os.listdir(f"/proc/{self.pid}/fd"))


__all__ = ["Absence", "SEED", "SHARE", "WatchedTarnwick", "dice", "note", "times", "wait_for"]
