# SPDX-License-Identifier: MIT
"""Applications that hang, lie, flood and die while Tarnwick reads them."""
import contextlib
import os
import signal
import sys
import time
import typing

from torture import SHARE, WatchedTarnwick, dice, note, times, wait_for

from harness import office
from harness.applications import Fixture, featherpad, mousepad
from harness.case import main
from harness.fair import FairTime, FairTimer
from harness.over import OverAnApplication
from harness.waiting import LIMIT, TimedOut
from hostile.program import HostileApplication
from hostile.tree import ROOT, TITLES

AWAY = 0.6  # seconds that the main loop may be away besides its pauses
CLOSING = 0.2  # seconds from Escape to the menu's end when the main loop is back
GROWTH = 64 << 10  # KiB of private memory more than after the first menus
HURRY = 0.1  # the pauses at a switch are so much of their length
MENUS = 3  # are open at most
LATE = 60.0 if SHARE >= 1 else 5.0  # seconds until answers come that are waited for
LATE_GROWTH = 1024  # KiB more than before those answers
BUSY = 10.0  # seconds that a real program is stopped for


class Case(typing.NamedTuple):
    what: str
    behaviour: str
    takes_keys: bool = True
    brief: bool = True  # is there also where little time is
    lingers: bool = False  # something comes of it later


CASES = [
    Case("answers as it should", "well", brief=False),
    Case("never answers", "never"),
    Case("answers after 0.1 s", "after 0.1"),
    Case("answers after 0.4 s", "after 0.4", brief=False),
    Case("answers after 5 s", "after 5", lingers=True),
    Case("answers after 60 s", "after 60", brief=False, lingers=True),
    Case("takes 0.1 s for each answer", "in-turn 0.1"),
    Case("is busy for 10 s", "busy 10", takes_keys=False, lingers=True),
    Case("answers every other call", "every-other"),
    Case("answers what its children are, nothing else", "only GetChildren"),
    Case("answers all but its children", "only Get,GetRole,GetState,GetKeyBinding", brief=False),
    Case("answers with errors", "errors"),
    Case("answers with other types", "wrong-types"),
    Case("answers with another type: children", "wrong-types-of GetChildren"),
    Case("answers with another type: names and counts", "wrong-types-of Get", brief=False),
    Case("answers with another type: roles", "wrong-types-of GetRole", brief=False),
    Case("answers with another type: states", "wrong-types-of GetState", brief=False),
    Case("sends texts of 16 MiB", "large-texts"),
    Case("sends texts of 4 MiB a second too late", "large-texts-late", brief=False, lingers=True),
    Case("sends references of 16 MiB", "large-references"),
    Case("sends open files with its answers", "files"),
    Case("sends texts that are cut", "cut"),
    Case("sends invalid UTF-8", "invalid-utf8"),
    Case("sends half a message", "half"),
    Case("sends control characters", "controls"),
    Case("has 3,000 children everywhere", "children 3000", brief=False),
    Case("has 100,000 children everywhere", "children 100000"),
    Case("tells counts below 0 and of 2^31 - 1", "counts"),
    Case("tells counts that do not fit", "false-counts"),
    Case("is a tree with cycles", "cycle"),
    Case("is 10,000 deep", "deep"),
    Case("has its bar 10,000 deep", "bar-too-deep"),
    Case("refers to another application", "foreign {survivor}"),
    Case("refers to another application's window", "foreign-window {survivor}", brief=False),
    Case("refers to Tarnwick", "foreign {tarnwick}"),
    Case("refers to Tarnwick as its window", "foreign-window {tarnwick}", brief=False),
    Case("refers to whoever asks", "asker"),
    Case("refers to whoever asks as its window", "askers-window", brief=False),
    Case("refers to the registry", "foreign {registry}"),
    Case("refers to the registry as its window", "foreign-window {registry}", brief=False),
    Case("refers to nobody", "nobody"),
    Case("changes between two reads", "changing"),
    Case("answers several times", "twice"),
    Case("sends 2,000 messages with each answer", "flood"),
    Case("loops as a Qt program", "qt"),
    Case("names a toolkit that is too long", "toolkit", brief=False),
    Case("tells the process of another application, and a title that is none", "disguised {survivor_process}"),
    Case("tells the process of Tarnwick, and a title that is none", "disguised {tarnwick_process}", brief=False),
    Case("tells a process that cannot be, and a title that is none", "disguised 4294967295", brief=False),
    Case("exports its bar and answers as it should", "exported well", brief=False),
    Case("exports its bar and never answers", "exported never"),
    Case("exports its bar and answers after 0.4 s", "exported after 0.4", brief=False),
    Case("exports its bar and takes 0.1 s for each answer", "exported in-turn 0.1", brief=False),
    Case("exports its bar and answers every other call", "exported every-other", brief=False),
    Case("exports its bar and answers with errors", "exported errors", brief=False),
    Case("exports its bar and answers with other types", "exported wrong-types"),
    Case("exports its bar and sends half a message", "exported half", brief=False),
    Case("exports its bar and sends 2,000 messages with each answer", "exported flood", brief=False),
    Case("exports labels of 16 MiB", "exported large-labels", brief=False),
    Case("exports 100,000 entries everywhere", "exported entries 100000"),
    Case("exports menus that hold themselves", "exported links-in-circles"),
    Case("exports sections of sections of sections", "exported sections-elsewhere", brief=False),
    Case("exports attributes of other types", "exported wrong-links", brief=False),
    Case("exports another bar each time", "exported changing-exports"),
    Case("exports its bar for outside and answers as it should", "outside well", brief=False),
    Case("exports its bar for outside and never answers", "outside never"),
    Case("exports its bar for outside and answers after 0.4 s", "outside after 0.4", brief=False),
    Case("exports its bar for outside and takes 0.1 s for each answer", "outside in-turn 0.1", brief=False),
    Case("exports its bar for outside and answers every other call", "outside every-other", brief=False),
    Case("exports its bar for outside and answers with errors", "outside errors", brief=False),
    Case("exports its bar for outside and answers with other types", "outside wrong-types", brief=False),
    Case("exports its bar for outside and sends half a message", "outside half", brief=False),
    Case("exports its bar for outside and sends 2,000 messages with each answer", "outside flood", brief=False),
    Case("exports labels of 16 MiB for outside", "outside large-labels", brief=False),
    Case("exports 100,000 entries everywhere for outside", "outside entries 100000", brief=False),
    Case("exports menus that hold themselves for outside", "outside links-in-circles", brief=False),
    Case("gives its entries for outside other numbers each time", "outside changing-exports"),
    Case("exports its bar for outside and leaves the bus", "outside leave 3", brief=False),
    Case("has a module that exports its bar and never answers", "by-module never"),
    Case("has a module that takes 0.1 s for each answer", "by-module in-turn 0.1", brief=False),
    Case("has a module that answers with other types", "by-module wrong-types", brief=False),
    Case("has a module that exports 100,000 entries everywhere", "by-module entries 100000", brief=False),
    Case("has a module that exports menus that hold themselves", "by-module links-in-circles", brief=False),
    Case("has a module that exports another bar each time", "by-module changing-exports", brief=False),
]


class Ordeal:
    """What Tarnwick went through in one case, and the figures."""

    def __init__(self, tarnwick):
        self._tarnwick = tarnwick
        self._begin = time.monotonic()
        self.closings = []
        self.next_menu = 0.0
        self.memory = 0

    @property
    def closing(self):
        """The longest."""
        return max(self.closings, key=lambda time: time.fair, default=FairTime(0.0))

    @property
    def away(self):
        return self._tarnwick.longest_absence(self._begin)

    def end(self, what, memory_before):
        """Holds the figures to their limits."""
        self.memory = self._tarnwick.private_memory() - memory_before
        print(f"{what}: away {self.away}; closing {self.closing}; memory {self.memory:+} KiB; "
              f"next menu after {self.next_menu:.2f} s", file=sys.stderr)
        note(f"an application that {what}: the main loop was away", round(self.away.fair, 3), AWAY, "s")
        note(f"an application that {what}: the menu closed after", round(self.closing.fair, 3), CLOSING, "s")
        self._tarnwick.assert_away_at_most(AWAY, what, self._begin)
        for closing in self.closings:
            closing.assert_within(CLOSING, f"{what}: closing")
        if self.memory > GROWTH:
            raise AssertionError(f"{what}: {self.memory} KiB more than before, at most {GROWTH}")


class BesideAGoodOne(OverAnApplication):
    """One Tarnwick, and one good application, through all tests."""

    @classmethod
    def start_programs(cls):
        cls.connect_accessibility()
        cls.tarnwick = WatchedTarnwick(cls.session, hurry=HURRY)
        wait_for(cls.bus.is_enabled, "accessibility switched on", step=0.05)
        cls.application = Fixture(cls.session, "gtk3", title="Survivor")

    @classmethod
    def prepare(cls):
        super().prepare()
        cls.screen.move(640, 200)
        for _ in range(5):  # what the toolkit keeps from its first menus counts for none of the cases
            cls.wait_for_titles(cls.titles)
        cls.memory = cls.tarnwick.private_memory()

    def wait_for_pause(self, begin, limit=LIMIT):
        """Waits until Tarnwick has handled a switch."""
        wait_for(lambda: any(absence.paused for absence in self.tarnwick.absences(begin)), "a switch noticed", limit)

    def open_a_submenu(self, between=lambda: None, limit=LIMIT):
        self.tarnwick.open(limit)
        between()
        for key in ("Down", "Right", "Right", "Down"):
            self.screen.tap(key)

    def close_all(self, ordeal):
        """Escape closes one menu after the other; one that is left over goes to the application, which does not mind."""
        timer = FairTimer(self.tarnwick.pid, self.session.display_server_pid)
        pressed = time.monotonic()
        for _ in range(MENUS):
            self.screen.tap("Escape")
        seen = self._last_seen()
        self.tarnwick.wait_until_closed()
        end = time.monotonic() + 1.0
        while seen - self._back_after(pressed) > CLOSING and time.monotonic() < end:
            time.sleep(0.01)
        took = max(0.0, seen - self._back_after(pressed))
        starved = min(took, timer.read().starved)
        ordeal.closings.append(FairTime(took, starved, starved))

    def _last_seen(self, limit=5.0):
        """The last time that a look at a menu was begun: a slow one makes nobody else slow."""
        seen = begin = looked = time.monotonic()
        while self.tarnwick.popups.count() and looked - begin < limit:
            seen, looked = looked, time.monotonic()
        return seen

    def _back_after(self, moment):
        """When the main loop was back for good; it writes that down when it is."""
        return max([moment, *(absence.end for absence in self.tarnwick.absences(moment))])

    def go_on_with_the_good_one(self, ordeal):
        begin = time.monotonic()
        if self._front() != self.application.window.id:
            self.screen.activate(self.application.window)
            self.wait_for_pause(begin)
        self.wait_for_titles(self.titles)
        ordeal.next_menu = max(ordeal.next_menu, time.monotonic() - begin)
        self.application.forget()
        self.screen.tap("y")
        self.application.wait_for_line("typed", "y")

    def _front(self):
        """Which window is in front, whatever it says of itself."""
        front = self.screen.active_window()
        return front and front.id

    def judge(self, what, scenario, *arguments):
        """Plays the scenario and holds its figures to the limits."""
        ordeal = Ordeal(self.tarnwick)
        scenario(ordeal, *arguments)
        self.assertTrue(self.tarnwick.program.running(), self.tarnwick.program.output)
        self.assert_nothing_is_held()
        ordeal.end(what, self.memory)
        return ordeal


class AHostileApplication(BesideAGoodOne):
    @classmethod
    def prepare(cls):
        super().prepare()
        nodes = {"survivor": cls.application.accessible(cls.bus), "tarnwick": cls.bus.application(cls.tarnwick.pid)}
        cls.references = {name: f"{node.name_on_bus} {node.path}" for name, node in nodes.items()}
        cls.references |= {"survivor_process": cls.application.pid, "tarnwick_process": cls.tarnwick.pid}
        cls.references["registry"] = f"org.a11y.atspi.Registry {ROOT}"

    def start_hostile(self, behaviour):
        begin = time.monotonic()
        hostile = HostileApplication(self.session, self.bus, behaviour)
        self.addCleanup(hostile.program.kill)
        if hostile.program.running():
            self.wait_for_pause(begin)
        return hostile

    def is_bad_from_the_start(self, behaviour, ordeal):
        hostile = self.start_hostile(behaviour)
        self.open_a_submenu()
        self.close_all(ordeal)
        return hostile

    def goes_bad_under_its_menu(self, behaviour, ordeal):
        hostile = self.good_at_first(behaviour)
        self.open_a_submenu(lambda: hostile.behave(behaviour))
        self.close_all(ordeal)
        return hostile

    def goes_bad_under_a_search(self, behaviour, ordeal):
        hostile = self.good_at_first(behaviour)
        menu = self.tarnwick.open()
        frame = menu.frame
        hostile.behave(behaviour)
        self.screen.tap("slash")
        wait_for(lambda: menu.frame != frame, "the search in the menu")
        self.screen.type("e")  # and its menus are being read
        self.close_all(ordeal)
        return hostile

    def good_at_first(self, behaviour):
        way = next((way for way in ("exported", "outside", "by-module") if behaviour.startswith(way)), "")
        hostile = self.start_hostile(f"{way} well".strip())
        self.wait_for_titles(TITLES)
        return hostile

    def test_delays_and_confuses_nobody(self):
        ways = (self.is_bad_from_the_start, self.goes_bad_under_its_menu, self.goes_bad_under_a_search)
        choose = dice("hostile applications").choice
        ordeals = []
        for case in CASES:
            if SHARE < 1 and not case.brief:
                continue
            for way in ways if SHARE >= 1 else [choose(ways)]:
                with self.subTest(case.what, way=way.__name__):
                    ordeals.append(self.judge(f"{case.what} ({way.__name__})", self.go_through, case, way))
        note("the menu of the next application was there after", round(max(one.next_menu for one in ordeals), 2), unit="s")
        note("private memory more than before", max(one.memory for one in ordeals), GROWTH, "KiB")

    def go_through(self, ordeal, case, way):
        hostile = way(case.behaviour.format(**self.references), ordeal)
        if case.takes_keys:
            self.screen.tap("x")
            hostile.wait_until_typed("x")
        self.go_on_with_the_good_one(ordeal)
        if not case.lingers:
            hostile.program.kill()

    def test_answers_when_nobody_waits_any_more(self):
        """That changes nothing: neither what is in front by then, nor how much is remembered.

        What an allocator keeps for later it takes once, what is remembered would come each time: so the second time counts.
        """
        self.grown = []
        for _ in range(2):
            self.judge(f"answers {LATE:.0f} s too late, which is waited for", self.wait_for_late_answers)
        note(f"private memory more after answers that came {LATE:.0f} s too late", self.grown[-1], LATE_GROWTH, "KiB")
        self.assertLessEqual(self.grown[-1], LATE_GROWTH, self.grown)

    def wait_for_late_answers(self, ordeal):
        hostile = self.goes_bad_under_its_menu(f"after {LATE}", ordeal)
        self.go_on_with_the_good_one(ordeal)
        memory = self.tarnwick.private_memory()
        self.assertGreater(hostile.owes(), 0)
        wait_for(lambda: hostile.owes() == 0, "the last answer", limit=LATE + 30.0, step=0.1)
        self.go_on_with_the_good_one(ordeal)
        self.grown.append(self.tarnwick.private_memory() - memory)
        self.assertEqual(hostile.lines("pressed"), [])
        hostile.behave("well")
        self.screen.activate(hostile.window)
        self.wait_for_titles(TITLES)
        hostile.program.kill()
        self.go_on_with_the_good_one(ordeal)

    def test_is_thrown_out_by_the_bus_when_its_messages_are_none(self):
        """So what is cut, or no UTF-8, never comes to Tarnwick."""
        for behaviour in ("cut", "invalid-utf8"):
            hostile = self.start_hostile(behaviour)
            wait_for(hostile.thrown_out, f"{behaviour} thrown out")
            hostile.program.kill()

    def test_disappears_at_any_call(self):
        """With its window, or from the bus only."""
        self.judge("answers and ends", self.count_calls)
        # The last ones need not come each time, and a few behaviours have none to spare.
        certain = self.calls if SHARE >= 1 else int(0.9 * self.calls)
        some = sorted(dice("disappearing").sample(range(1, certain + 1), times(self.calls)))
        self.gone = 0
        behaviours = [*(f"vanish {number}" for number in some), *(f"leave {number}" for number in some[::3])]
        for behaviour in behaviours:
            with self.subTest(behaviour):
                self.judge(f"disappears ({behaviour})", self.disappear, behaviour)
        self.assertGreaterEqual(self.gone, 0.9 * len(behaviours))

    def count_calls(self, ordeal):
        hostile = self.is_bad_from_the_start("well", ordeal)
        self.calls = hostile.asked()
        hostile.program.kill()
        self.go_on_with_the_good_one(ordeal)

    def disappear(self, ordeal, behaviour):
        hostile = self.start_hostile(behaviour)
        self.open_a_submenu_if_there_is_time()
        self.close_all(ordeal)
        self.gone += hostile.thrown_out() or not hostile.program.running()
        hostile.program.kill()
        self.go_on_with_the_good_one(ordeal)

    def open_a_submenu_if_there_is_time(self):
        try:
            self.open_a_submenu(limit=2.0)
        except TimedOut:  # the window went, and the menu with it
            pass


class ARealProgram(BesideAGoodOne):
    """Stopped, it looks from outside like one that is busy."""

    PROGRAMS = {"mousepad": mousepad, "featherpad": featherpad, "LibreOffice Writer": office.Writer}

    def in_front(self, name):
        if name == "LibreOffice Writer" and not office.PROGRAM:
            self.skipTest(f"{name}: not installed")
        program = self.PROGRAMS[name](self.session)
        self.addCleanup(self.end, program)
        titles = [item.title for item in program.bar_items(self.bus)]
        # The shortened pauses may have been over before its menu bar was there.
        self.screen.activate(self.application.window)
        self.screen.activate(program.window)
        self.wait_for_titles(titles)
        return program, titles

    @staticmethod
    def end(program):
        """The one that shows the window, and what may have started it."""
        with contextlib.suppress(ProcessLookupError):
            os.kill(program.pid, signal.SIGKILL)
        program.program.kill()

    def programs(self):
        """The last one takes its time to start."""
        return list(self.PROGRAMS)[:times(len(self.PROGRAMS))]

    def test_is_stopped_and_goes_on_after_a_while(self):
        for name in self.programs():
            with self.subTest(name):
                self.judge(f"is {name}, stopped", self.stop, name)

    def stop(self, ordeal, name):
        program, titles = self.in_front(name)
        os.kill(program.pid, signal.SIGSTOP)
        stopped = time.monotonic()
        self.open_a_submenu()
        self.close_all(ordeal)
        self.screen.tap("x")
        self.go_on_with_the_good_one(ordeal)
        time.sleep(max(0.0, times(BUSY) - (time.monotonic() - stopped)))
        os.kill(program.pid, signal.SIGCONT)
        wait_for(lambda: "x" in program.text(self.bus), "the key that was typed meanwhile")
        self.screen.activate(program.window)
        self.wait_for_titles(titles)
        self.end(program)
        self.go_on_with_the_good_one(ordeal)

    def test_is_killed_under_its_menu(self):
        for name in self.programs():
            with self.subTest(name):
                self.judge(f"is {name}, killed", self.kill, name)

    def kill(self, ordeal, name):
        program, _ = self.in_front(name)
        self.open_a_submenu(lambda: self.end(program))
        self.close_all(ordeal)
        self.go_on_with_the_good_one(ordeal)


if __name__ == "__main__":
    main()
