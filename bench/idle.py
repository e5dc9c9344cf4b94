# SPDX-License-Identifier: MIT
"""What Tarnwick takes while nobody uses it, and of the memory however long it is used."""
import os
import pathlib
import time

from stage import PROGRAMS, PlainTarnwick, assert_nobody_listens, run

from harness.accessible import AccessibilityBus
from harness.applications import KITS, Fixture
from harness.session import Session
from harness.tarnwick import OPTION, TRIGGER
from harness.waiting import wait_for

from painting import BARE_KEY, POINTER
from table import Series, print_row

SECONDS = 60
APPLICATIONS = ((KITS[0], "editor.menu"), (KITS[1], "editor.menu"), (KITS[2], "editor.menu"),
                (KITS[0], "viewer.menu"), (KITS[2], "viewer.menu"))
SWITCH_IS_HEARD = 1.0  # seconds
FEW, MANY = 100, 5000  # pop-ups
WAKE_UPS, CPU = 1.0, 0.05  # a second; per cent, what is shown as 0.0
OF_BARE, GROWTH = 1.5, 1.0  # times, MiB


class Desk:
    """A session with five applications, Tarnwick and the bare program."""

    def __init__(self):
        self.session = Session().start()
        self.screen = self.session.screen
        bus = AccessibilityBus(self.session.environment["DBUS_SESSION_BUS_ADDRESS"])
        bus.switch_on()
        self.applications = [Fixture(self.session, kit, menu=menu, title=f"Fixture {number}")
                             for number, (kit, menu) in enumerate(APPLICATIONS)]
        entries = len(self.applications[-1].bar_items(bus))
        assert_nobody_listens(bus)
        bus.close()
        self.screen.move(*POINTER)
        self.tarnwick = PlainTarnwick(self.session)
        self.bare = self.session.run(PROGRAMS / "bench_bare", self.screen.key_code(BARE_KEY), 0)
        wait_for(lambda: "ready" in self.bare.output, "the bare program")
        self.tarnwick.wait_until_mirrored(entries)

    def close(self):
        self.session.stop()

    def pop_up(self, count):
        """So many pop-ups of Tarnwick, over each application the same number."""
        for application in self.applications:
            self.screen.activate(application.window)
            time.sleep(SWITCH_IS_HEARD)  # later it would close a menu
            self.tarnwick.wait_until_ready()
            self._press(count // len(self.applications), self.screen.key_code(OPTION), TRIGGER)

    def pop_up_bare(self, count):
        self._press(count, 0, self.screen.key_code(BARE_KEY))

    def _press(self, count, held, key):
        run(self.session, "bench_first_paint", "--hurry", count, *POINTER, held, key)


def wake_ups(pid):
    """How often its threads have been given a processor so far."""
    text = "".join(path.read_text() for path in pathlib.Path(f"/proc/{pid}/task").glob("*/status"))
    return sum(int(line.split()[1]) for line in text.splitlines() if "ctxt_switches" in line)


def processor_seconds(pid):
    fields = pathlib.Path(f"/proc/{pid}/stat").read_text().rsplit(") ", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def private_memory(pid):
    """MiB that only this process uses and that cannot be read again from a file. Pages of a program that was just built
    count as dirty until they are on the disk."""
    lines = pathlib.Path(f"/proc/{pid}/smaps_rollup").read_text().splitlines()
    return sum(int(line.split()[1]) for line in lines if line.startswith(("Anonymous:", "Swap:"))) / 1024


def _idle_rows(desk):
    programs = (desk.tarnwick.pid, desk.bare.pid)
    time.sleep(2)  # what has just been done is over
    before = [(wake_ups(pid), processor_seconds(pid)) for pid in programs]
    time.sleep(SECONDS)
    after = [(wake_ups(pid), processor_seconds(pid)) for pid in programs]
    (wakes, seconds), (bare_wakes, bare_seconds) = [
        [(now - then) / SECONDS for now, then in zip(*pair)] for pair in zip(after, before)]
    print_row(f"idle for {SECONDS} s: wake-ups a second", Series([wakes], ""), "a bare Qt program",
              Series([bare_wakes], ""), f"≤ {WAKE_UPS:g}", wakes <= WAKE_UPS, "–")
    print_row(f"idle for {SECONDS} s: processor", Series([100 * seconds], "%"), "a bare Qt program",
              Series([100 * bare_seconds], "%"), "0.0 %", 100 * seconds < CPU, "–")


def _memory_rows(desk):
    desk.pop_up(FEW)
    desk.pop_up_bare(FEW)
    first, bare = private_memory(desk.tarnwick.pid), private_memory(desk.bare.pid)
    desk.pop_up(MANY - FEW)
    last = private_memory(desk.tarnwick.pid)
    for count, memory in ((FEW, first), (MANY, last)):
        print_row(f"private memory after {count:,} pop-ups over {len(APPLICATIONS)} applications",
                  Series([memory], "MiB"), "a bare Qt program", Series([bare], "MiB"), f"≤ {OF_BARE:g} ×",
                  memory <= OF_BARE * bare)
    print_row("growth in between", Series([last - first], "MiB"), "", None, f"≤ {GROWTH:g} MiB", last - first <= GROWTH)


def rows():
    desk = Desk()
    try:
        _idle_rows(desk)
        _memory_rows(desk)
    finally:
        desk.close()
