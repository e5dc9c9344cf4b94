# SPDX-License-Identifier: MIT
"""From what a person does to the first paint, seen by a client of the X server that nobody else knows of."""
from stage import MANY, PROGRAMS, WARM_UP, PlainTarnwick, Stage, milliseconds, run

from harness.applications import KITS
from harness.tarnwick import OPTION, TRIGGER
from harness.waiting import wait_for

from reading import in_turns
from table import Series, print_row

POINTER = (900, 20)  # over nothing, so that only the menu is drawn there
BARE_KEY = "F9"
POP_UP_ROUNDS = 40
SUBMENU_ROUNDS = {30: 20, 2000: 5}
READING_ROUNDS = {30: 60, 2000: 5}
OF_BARE, MEDIAN, LATE = 1.5, 10.0, 20.0  # times, milliseconds, milliseconds
BESIDES_READING = 8.0  # milliseconds
OF_READING = 1.5


class Painting:
    """A stage with Tarnwick on it, which has mirrored the fixture and waits for its hot key."""

    def __init__(self, kit, size):
        self._stage = Stage(kit, "--grow", str(size))
        self.session = self._stage.session
        self.screen = self.session.screen
        try:
            self.screen.move(*POINTER)
            self.tarnwick = PlainTarnwick(self.session)
            self.tarnwick.wait_until_mirrored(len(self._stage.titles))
        except BaseException:
            self.close()
            raise

    def close(self):
        self._stage.close()

    def start_bare(self):
        program = self.session.run(PROGRAMS / "bench_bare", self.screen.key_code(BARE_KEY), 0)
        wait_for(lambda: "ready" in program.output, "the bare program")

    def pop_up(self, rounds):
        return self._first_paint(rounds, self.screen.key_code(OPTION), TRIGGER)

    def bare(self, rounds):
        return self._first_paint(rounds, 0, self.screen.key_code(BARE_KEY))

    def submenu(self, rounds):
        return self._first_paint(rounds, self.screen.key_code(OPTION), TRIGGER, self.screen.key_code(MANY[0].lower()))

    def reading(self, rounds):
        return self._stage.reading(rounds)

    def _first_paint(self, rounds, *arguments):
        return Series(milliseconds(run(self.session, "bench_first_paint", rounds + WARM_UP, *POINTER, *arguments)))


def _pop_up_row(kit):
    painting = Painting(kit, 30)
    try:
        painting.start_bare()
        bare, pop_up = in_turns(lambda: painting.bare(POP_UP_ROUNDS), lambda: painting.pop_up(POP_UP_ROUNDS))
    finally:
        painting.close()
    met = pop_up.median <= min(MEDIAN, OF_BARE * bare.median) and pop_up.late <= LATE
    print_row("key press to first paint of the pop-up", pop_up, "an empty QMenu popped up by a bare grab", bare,
              f"≤ {OF_BARE:g} ×, median ≤ {MEDIAN:g} ms, 95th ≤ {LATE:g} ms", met)


def _submenu_row(kit, size):
    painting = Painting(kit, size)
    try:
        reading, painted = in_turns(lambda: painting.reading(READING_ROUNDS[size]),
                                    lambda: painting.submenu(SUBMENU_ROUNDS[size]))
    finally:
        painting.close()
    if size == 30:
        target, most = f"≤ reading + {BESIDES_READING:g} ms", reading.median + BESIDES_READING
    else:
        target, most = f"≤ {OF_READING:g} × reading", OF_READING * reading.median
    print_row(f"pointer on an entry to first paint of its submenu of {size} items, {kit}", painted, "reading it",
              reading, target, painted.median <= most)


def pop_up_rows():
    _pop_up_row(KITS[0])


def submenu_rows():
    for kit in KITS:
        _submenu_row(kit, 30)


def large_submenu_rows():
    for kit in KITS:
        _submenu_row(kit, 2000)
