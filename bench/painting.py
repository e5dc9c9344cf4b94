# SPDX-License-Identifier: MIT
"""From what a person does to the first paint, seen by a client of the X server that nobody else knows of."""
import contextlib

from stage import AFTER_START, MANY, PROGRAMS, WARM_UP, PlainTarnwick, Stage, milliseconds, run, wait_for_rest

from harness.applications import KITS
from harness.tarnwick import OPTION, TRIGGER
from harness.waiting import wait_for

from reading import in_turns
from table import Series, print_row

POINTER = (900, 20)  # over nothing, so that only the menu is drawn there
BARE_KEY = "F9"
POP_UP_ROUNDS = 40
FIRST_ROUNDS = 10
SUBMENU_ROUNDS = {30: 20, 2000: 5}
READING_ROUNDS = {30: 60, 2000: 5}
OF_BARE, MEDIAN, LATE = 1.5, 10.0, 20.0  # times, milliseconds, milliseconds
BESIDES_READING = 8.0  # milliseconds
OF_READING = 1.5
FIRST = 50.0  # milliseconds


class Painting:
    """A stage for Tarnwick and the bare program, one that has mirrored the fixture and waits for its hot key."""

    def __init__(self, kit, size):
        self._stage = Stage(kit, "--grow", str(size))
        self.session = self._stage.session
        self.screen = self.session.screen
        self.screen.move(*POINTER)

    def close(self):
        self._stage.close()

    def start(self):
        tarnwick = PlainTarnwick(self.session)
        tarnwick.wait_until_mirrored(len(self._stage.titles))

    def start_unused(self):
        """Nothing has opened its menu when this returns."""
        tarnwick = PlainTarnwick(self.session)
        wait_for_rest(AFTER_START, [tarnwick.pid])
        return tarnwick

    def start_bare(self):
        program = self.session.run(PROGRAMS / "bench_bare", self.screen.key_code(BARE_KEY), 0)
        wait_for(lambda: "ready" in program.output, "the bare program")
        return program

    def pop_up(self, rounds, warm_up=WARM_UP):
        return self._first_paint(rounds, warm_up, *self._trigger())

    def bare(self, rounds, warm_up=WARM_UP):
        return self._first_paint(rounds, warm_up, 0, self.screen.key_code(BARE_KEY))

    def submenu(self, rounds, warm_up=WARM_UP):
        return self._first_paint(rounds, warm_up, *self._trigger(), self.screen.key_code(MANY[0].lower()))

    def reading(self, rounds):
        return self._stage.reading(rounds)

    def _trigger(self):
        return self.screen.key_code(OPTION), TRIGGER

    def _first_paint(self, rounds, warm_up, *arguments):
        return Series(milliseconds(run(self.session, "bench_first_paint", rounds + warm_up, *POINTER, *arguments), warm_up))


@contextlib.contextmanager
def painting(kit, size):
    stage = Painting(kit, size)
    try:
        yield stage
    finally:
        stage.close()


def _pop_up_row(kit):
    with painting(kit, 30) as stage:
        stage.start()
        stage.start_bare()
        bare, pop_up = in_turns(lambda: stage.bare(POP_UP_ROUNDS), lambda: stage.pop_up(POP_UP_ROUNDS))
    met = pop_up.median <= min(MEDIAN, OF_BARE * bare.median) and pop_up.late <= LATE
    print_row(f"key press to first paint of the pop-up, {kit}", pop_up, "an empty QMenu popped up by a bare grab", bare,
              f"≤ {OF_BARE:g} ×, median ≤ {MEDIAN:g} ms, 95th ≤ {LATE:g} ms", met)


def _first_rows(kit):
    """Each program is started anew for each value."""
    with painting(kit, 30) as stage:
        bare, pop_up = in_turns(lambda: _first(stage.start_bare, stage.bare),
                                lambda: _first(stage.start_unused, stage.pop_up), turns=FIRST_ROUNDS)
        reading, submenu = in_turns(lambda: stage.reading(1), lambda: _first(stage.start_unused, stage.submenu),
                                    turns=FIRST_ROUNDS)
    for what, first, baseline, against in (
            ("key press to first paint of the pop-up", pop_up, "the first empty QMenu of a bare program", bare),
            ("pointer on an entry to first paint of its submenu of 30 items", submenu, "reading it", reading)):
        print_row(f"{what}, the first after the start, {kit}", first, baseline, against, f"≤ {FIRST:g} ms",
                  first.median <= FIRST)


def _first(start, measure):
    program = start()
    try:
        return measure(1, warm_up=0)
    finally:
        program.stop()


def _submenu_row(kit, size):
    with painting(kit, size) as stage:
        stage.start()
        reading, painted = in_turns(lambda: stage.reading(READING_ROUNDS[size]),
                                    lambda: stage.submenu(SUBMENU_ROUNDS[size]))
    if size == 30:
        target, most = f"≤ reading + {BESIDES_READING:g} ms", reading.median + BESIDES_READING
    else:
        target, most = f"≤ {OF_READING:g} × reading", OF_READING * reading.median
    print_row(f"pointer on an entry to first paint of its submenu of {size} items, without the delay that menus wait on "
              f"purpose, {kit}", painted, "reading it", reading, target, painted.median <= most)


def pop_up_rows():
    for kit in KITS:
        _pop_up_row(kit)


def first_rows():
    for kit in KITS:
        _first_rows(kit)


def submenu_rows():
    for kit in KITS:
        _submenu_row(kit, 30)


def large_submenu_rows():
    for kit in KITS:
        _submenu_row(kit, 2000)
