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

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "desktop"))

from harness.processes import starved  # noqa: E402
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


def fair_time(*pids):
    """Seconds on a clock that stands still while others have the processor that these programs, or this one, could use."""
    return time.monotonic() - starved(os.getpid(), *pids)


_SWITCH = 24  # bytes of a line


class Absence(typing.NamedTuple):
    """A time when the main loop was away: two times of time.monotonic(), and the seconds in between of pauses, and those
    when other programs had the processor that it wanted."""

    begin: float
    end: float
    paused: float
    starved: float

    @property
    def unwanted(self):
        return max(0.0, self.end - self.begin - self.paused - self.starved)


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
        """Seconds besides the pauses that Tarnwick makes on purpose; 0 when there was none worth a line."""
        return max((absence.unwanted for absence in self.absences(since)), default=0.0)

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
        """KiB of memory that this process shares with nobody."""
        return sum(int(line.split()[1]) for line in self._proc("smaps_rollup").splitlines()
                   if line.startswith(("Private_Clean", "Private_Dirty")))

    def descriptors(self):
        return len(os.listdir(f"/proc/{self.pid}/fd"))

    def _proc(self, name):
        return pathlib.Path(f"/proc/{self.pid}/{name}").read_text()


__all__ = ["Absence", "SEED", "SHARE", "WatchedTarnwick", "dice", "fair_time", "note", "times", "wait_for"]
