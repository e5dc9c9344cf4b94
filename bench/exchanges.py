# SPDX-License-Identifier: MIT
"""What a pop-up, a submenu and a search ask of others: answers of the X server and messages on the buses, counted.

The keys come one after another, each when everybody has done with the one before: so they are the same in every run, and
one more is a growth.
"""
import collections
import itertools
import json
import pathlib
import re
import sys

from stage import AFTER_START, MANY, Stage, wait_for_rest

from gi.repository import Gio, GLib
from Xlib import X

from harness.accessible import connect
from harness.applications import KITS
from harness.tarnwick import OPTION, TRIGGER, Tarnwick
from harness.waiting import wait_for

from display_counter import DisplayCounter
from table import Series, print_row

RECORD = pathlib.Path(__file__).with_name("exchanges.json")
ITEMS = 30
ROUNDS = 3
WHAT = "answers of the X server", "messages"
# How often the caret of a search is drawn depends on the time that it takes: of that only the messages are counted.
STEPS = {"pop-up": WHAT, "submenu": WHAT, "search": WHAT[1:]}
COUNTED = [(step, what) for step, counted in STEPS.items() for what in counted]
AT_REST = 0.3  # seconds
SEARCHED = "sa"
_SENT = re.compile(r"^(?P<kind>method call|method return|signal|error) .*?sender=(?P<sender>\S+) ")
_MEMBER = re.compile(r"member=(\S+)$")


class Messages:
    """The messages that a process sends on one bus, also answers and signals."""

    def __init__(self, session, address, pid):
        self._pid = pid
        self._program = session.run("dbus-monitor", "--address", address)
        self._connection = connect(address)
        self._marks = (f"mark.of.messages.n{number}" for number in itertools.count())
        self._names = {}
        wait_for(self._is_up_to_date, "a bus monitor", step=0.1)

    def count(self):
        """How many so far, by what they are called."""
        wait_for(self._is_up_to_date, "the monitor up to date", step=0.05)
        counted = collections.Counter()
        for line in self._program.output.splitlines():
            message = _SENT.match(line)
            if message and self._is_ours(message["sender"]):
                member = _MEMBER.search(line)
                counted[member[1] if member else message["kind"]] += 1
        return counted

    def _is_up_to_date(self):
        mark = next(self._marks)
        self._ask("NameHasOwner", mark)
        return f'"{mark}"' in self._program.output

    def _is_ours(self, sender):
        if sender not in self._names:
            self._names[sender] = self._ask("GetConnectionUnixProcessID", sender) == self._pid
        return self._names[sender]

    def _ask(self, method, name):
        try:
            return self._connection.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                                              method, GLib.Variant("(s)", (name,)), None, Gio.DBusCallFlags.NONE, 30000,
                                              None).unpack()[0]
        except GLib.Error:  # who sent it has gone
            return None


class UnreadTarnwick(Tarnwick):
    """As a person starts it: nobody reads its menus."""

    always = {}


class Counting:
    """A stage with Tarnwick on it, whose every exchange is seen."""

    def __init__(self, kit):
        self._stage = Stage(kit, "--grow", str(ITEMS))
        self._session = self._stage.session
        self._screen = self._session.screen
        self._screen.display.change_keyboard_control(auto_repeat_mode=X.AutoRepeatModeOff)
        self._display = DisplayCounter(self._screen)
        try:
            self._tarnwick = UnreadTarnwick(self._session, environment={"DISPLAY": self._display.display})
            session_bus = self._session.environment["DBUS_SESSION_BUS_ADDRESS"]
            self._buses = [Messages(self._session, address, self._tarnwick.pid)
                           for address in (session_bus, self._stage.address)]
            wait_for_rest(AFTER_START, [self._tarnwick.pid])  # longer than it ever waits for an application's menus
        except BaseException:
            self.close()
            raise

    def close(self):
        self._stage.close()
        self._display.close()

    def one_round(self):
        """What each step costs: answers and messages, by name."""
        self._do(self._screen.press, OPTION)
        costs = [self._cost_of(self._pop_up)]
        self._do(self._screen.release, TRIGGER)
        self._do(self._screen.release, OPTION)
        self._do(self._screen.tap, MANY[0].lower())
        costs.append(self._cost_of(self._open_submenu))
        self._do(self._screen.tap, "Escape")
        costs.append(self._cost_of(self._search))
        self._do(self._screen.tap, "Escape")
        self._do(self._tarnwick.close_menu)
        return dict(zip(STEPS, costs))

    @staticmethod
    def _do(what, *key):
        """One after another: what meets what is not left to chance."""
        what(*key)
        wait_for_rest(AT_REST)

    def _cost_of(self, step):
        before = self._so_far()
        step()
        wait_for_rest(AT_REST)
        return [after - so_far for after, so_far in zip(self._so_far(), before)]

    def _so_far(self):
        return self._display.answers(), sum((bus.count() for bus in self._buses), collections.Counter())

    def _pop_up(self):
        self._screen.press(TRIGGER)
        self._tarnwick.popups.wait_for(1)

    def _open_submenu(self):
        self._screen.tap("Right")
        self._tarnwick.popups.wait_for(2)

    def _search(self):
        """All menus are read in it, since none is open."""
        self._screen.tap("slash")
        for letter in SEARCHED:
            self._do(self._screen.tap, letter)


def measured(kit):
    """The cost of each step, by name, of each round: [{step: {what: {name: number}}}]; of what is counted in it."""
    counting = Counting(kit)
    try:
        return [{step: {what: dict(sorted(cost.items())) for what, cost in zip(WHAT, costs) if (step, what) in COUNTED}
                 for step, costs in counting.one_round().items()} for _ in range(ROUNDS)]
    finally:
        counting.close()


def _record():
    return json.loads(RECORD.read_text(encoding="utf-8"))


def rows():
    for kit in KITS:
        rounds = measured(kit)
        for step, what in COUNTED:
            most = sum(_record()[kit][step][what].values())
            counts = Series([sum(each[step][what].values()) for each in rounds], "")
            print_row(f"{what} of a {step}, {kit}", counts, "as recorded", Series([most], ""), "no more",
                      max(counts.values) <= most)


def check(record_anew=False):
    """The status of the test: 1 when something has grown in a round."""
    found = {kit: measured(kit) for kit in KITS}
    if record_anew:
        RECORD.write_text(json.dumps({kit: rounds[0] for kit, rounds in found.items()}, indent=1) + "\n",
                          encoding="utf-8")
    record = _record()
    grown = 0
    for kit, (step, what) in itertools.product(KITS, COUNTED):
        recorded = record[kit][step][what]
        counts = [sum(each[step][what].values()) for each in found[kit]]
        print(f"{kit}, {step}, {what}: {counts}, recorded {sum(recorded.values())}")
        if set(counts) != {sum(recorded.values())}:
            worst = max((each[step][what] for each in found[kit]), key=lambda cost: sum(cost.values()))
            print("  " + ", ".join(_changes(recorded, worst)))
        grown += max(counts) > sum(recorded.values())
    if grown:
        print("There are more than recorded. When it is meant to be so: scripts/bench --record, and say why in the commit.")
    return 1 if grown else 0


def _changes(recorded, found):
    for name in sorted({*recorded, *found}):
        if recorded.get(name, 0) != found.get(name, 0):
            yield f"{name}: {found.get(name, 0)} instead of {recorded.get(name, 0)}"


if __name__ == "__main__":
    sys.exit(check())
