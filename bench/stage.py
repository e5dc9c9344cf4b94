# SPDX-License-Identifier: MIT
"""A private session with one program in front, and the measuring programs run in it."""
import os
import pathlib
import subprocess
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "tests/desktop"))

from harness.accessible import POPUP_MENU, AccessibilityBus  # noqa: E402
from harness.applications import Fixture  # noqa: E402
from harness.processes import descendants_of  # noqa: E402
from harness.session import Session  # noqa: E402
from harness.tarnwick import Tarnwick  # noqa: E402
from harness.waiting import wait_for  # noqa: E402

from table import Series  # noqa: E402

PROGRAMS = pathlib.Path(os.environ["TARNWICK_BENCH"])
WARM_UP = 3  # rounds that do not count
AFTER_START = 3.0  # seconds; a program at rest for so long has started, and waits for no application's menus
MANY = "Many"  # the entry that --grow gives a fixture


def run(session, program, *arguments, limit=300):
    """What a measuring program has written."""
    result = subprocess.run([PROGRAMS / program, *map(str, arguments)], env=session.environment, capture_output=True,
                            check=False, timeout=limit, text=True)
    if result.returncode != 0:
        raise RuntimeError(f"{program} {arguments}: {result.stderr.strip()}")
    return result.stdout


def milliseconds(output, warm_up=WARM_UP):
    """The times that a measuring program has written, those of the warm-up left out."""
    return [int(line) / 1000 for line in output.splitlines() if line.isdigit()][warm_up:]


def messages(output):
    """How many messages one round has sent."""
    return int(output.split("messages ")[1].split()[0])


def assert_nobody_listens(bus):
    """What an application is asked to tell costs it time, and its answers come later."""
    listeners = bus.call("org.a11y.atspi.Registry", "/org/a11y/atspi/registry", "org.a11y.atspi.Registry",
                         "GetRegisteredEvents")
    if listeners != []:
        raise RuntimeError(f"somebody listens on the accessibility bus: {listeners}")


def wait_for_rest(seconds, pids=None):
    """Waits until none of these processes, or of the session, has had anything to do for so long.

    Who waits for a processor has something to do. The caret of a text field blinks every half second.
    """
    since, last = time.monotonic(), None

    def rests():
        nonlocal since, last
        turns = [_turns(pid) for pid in pids or descendants_of(os.getpid())]
        if turns != last or None in turns:
            since, last = time.monotonic(), turns
        return time.monotonic() - since > seconds
    wait_for(rests, "a session at rest", limit=120, step=0.02)


def _turns(pid):
    """How often the threads of a process have been given a processor; nothing while one of them wants it."""
    turns = 0
    for status in pathlib.Path(f"/proc/{pid}/task").glob("*/status"):
        try:
            lines = dict(line.split(":", 1) for line in status.read_text().splitlines())
        except OSError:
            return None
        if lines["State"].strip()[0] not in "SZ":
            return None
        turns += sum(int(value) for name, value in lines.items() if name.endswith("ctxt_switches"))
    return turns


class PlainTarnwick(Tarnwick):
    """Tarnwick as a person starts it, nobody reads its menus; but a submenu opens without the delay of menus."""

    always = {"QT_STYLE_OVERRIDE": "bench-no-delay", "QT_PLUGIN_PATH": str(PROGRAMS / "bench-plugins")}

    def wait_until_mirrored(self, entries):
        """Waits until it has time; then its menu is as high as one with so many entries must be."""
        self.wait_until_at_rest()
        height = self.open().frame[3]
        self.close_menu()
        if height <= 15 * entries:
            raise RuntimeError(f"a menu of {height} pixels for {entries} entries")


class _Fixture(Fixture):
    starts_in = 60.0  # thousands of items take their time


class Stage:
    """A session with accessibility switched on and a fixture in front. Nothing listens once it is made."""

    def __init__(self, kit, *options, text=None):
        """`text` is the menu bar, written as in tests/data, instead of the editor's."""
        self.session = Session().start()
        self.kit = kit
        menu = "editor.menu"
        if text:
            menu = self.session.directory / "bench.menu"
            menu.write_text(text, encoding="utf-8")
        bus = AccessibilityBus(self.session.environment["DBUS_SESSION_BUS_ADDRESS"])
        bus.switch_on()
        self.address = bus.address
        self.fixture = _Fixture(self.session, kit, *options, menu=menu)
        self._bar = self.fixture.accessible(bus).menu_bar()
        self._menus = {item.title: _contents(item.node) for item in self._bar.items()}
        assert_nobody_listens(bus)
        bus.close()

    @property
    def titles(self):
        """Of the entries of the bar."""
        return list(self._menus)

    def close(self):
        self.session.stop()

    def floor(self, rounds, title=MANY):
        """The fewest calls that carry the facts of a submenu."""
        return self._floor(self._menus[title], "", rounds)

    def bar_floor(self, rounds):
        """The fewest calls that carry the facts of the bar."""
        return self._floor(self._bar, "-bar", rounds)

    def _floor(self, node, kind, rounds):
        output = run(self.session, "bench_floor", self.address, node.name_on_bus, node.path,
                     ("qt" if self.kit.startswith("qt") else "gtk") + kind, rounds + WARM_UP)
        return Series(milliseconds(output), messages=messages(output))

    def rebuilding(self, rounds):
        """Tarnwick's rebuilding of the root."""
        output = run(self.session, "bench_rebuilding", rounds + WARM_UP)
        return Series(milliseconds(output), messages=messages(output))

    def reading(self, rounds, title=MANY, patience=1):
        """Tarnwick's reading of a submenu, without its window; `patience` times half a second for all of it."""
        output = run(self.session, "bench_reading", self.fixture.pid, title, rounds + WARM_UP, patience)
        return Series(milliseconds(output), messages=messages(output))

    def one_by_one(self, rounds, title=MANY):
        return Series(milliseconds(run(self.session, "bench_one_by_one", self.fixture.pid, title, rounds + WARM_UP)))


def _contents(holder):
    """Qt puts a menu of its own between an entry and its items."""
    inner = holder.children
    return inner[0] if inner and inner[0].role == POPUP_MENU else holder
