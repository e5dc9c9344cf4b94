# SPDX-License-Identifier: MIT
"""An application whose menus are read thousands of times does not grow, is not slowed down, and looks as before.

`menu_reader` reads with Tarnwick's own code: the pop-up would spend most of the time on itself. Nothing listens on a
bus while times are taken; what goes over it is looked at afterwards, over fewer reads.

Environment, besides that of torture.py:
  TARNWICK_HARM_READS   so many reads of each application, instead of the share of 1,000
"""
import collections
import os
import pathlib
import re
import select
import statistics
import time
import typing
import unittest

from gi.repository import GLib
from Xlib import X, display
from Xlib.protocol import event
from resources import Resources
from torture import note, times

from test_never_list import FORBIDDEN

from harness import office
from harness.applications import Fixture
from harness.case import DesktopTest, main
from harness.fair import FairTimer
from harness.monitor import BusMonitor
from harness.tools import require
from harness.waiting import TimedOut, wait_for

WHOLE = 1_000  # in the time that scripts/torture has
READS = int(os.environ.get("TARNWICK_HARM_READS", times(WHOLE, least=150)))
WARM_UP = max(50, READS // 20)
APART = 5  # a fifth of the reads are done while the application's own events are timed, the others by themselves
LISTENED = 50  # reads that the bus is looked at for
BLOCKS = 10  # of the timed reads; the application rests after each
PINGS = 100  # before, after, and while it rests
APART_FOR = 0.3  # seconds between blocks of pings afterwards
LOOKS = 9  # at what it holds
LOOK = 1.5  # seconds: a caret has been there and gone

# KiB, with room for what an allocator keeps for later: less than 64 bytes a read in 10,000, 1.1 KiB in the share of CI.
MEMORY = 512 if READS >= WHOLE else 128
LATER = 0.010  # seconds that the median may be later; a machine that does something else meanwhile makes as much
A_PICTURE = 0.016  # how much later the median may be while it is read on end: one picture of the screen

# What a read may ask of an application.
QUESTIONS = {"org.a11y.atspi.Accessible.GetRole", "org.a11y.atspi.Accessible.GetState",
             "org.a11y.atspi.Accessible.GetChildren", "org.a11y.atspi.Accessible.GetChildAtIndex",
             "org.a11y.atspi.Action.GetKeyBinding",
             "org.a11y.atspi.Component.GetExtents", "org.freedesktop.DBus.Properties.Get",
             "org.gtk.Menus.Start", "org.gtk.Menus.End", "org.gtk.Actions.DescribeAll", "org.gtk.Actions.Describe"}


class Ping:
    """Asks a window whether its program is alive, as a window manager does: the answer waits for what that is doing."""

    def __init__(self, name, window, server):
        self._server = server
        self._display = display.Display(name)
        self._root = self._display.screen().root
        self._root.change_attributes(event_mask=X.SubstructureNotifyMask)
        self._window = self._display.create_resource_object("window", window.id)
        self._protocols = self._display.intern_atom("WM_PROTOCOLS")
        self._ping = self._display.intern_atom("_NET_WM_PING")
        self._number = 0

    def close(self):
        self._display.close()

    def seconds(self, limit=30.0):
        """Until the answer has come; when others had the processor that we or the server could use does not count."""
        self._number += 1
        timer = FairTimer(self._server)
        self._window.send_event(event.ClientMessage(window=self._window, client_type=self._protocols,
                                                    data=(32, [self._ping, self._number, self._window.id, 0, 0])))
        self._display.flush()
        while not self._answered():
            if timer.read().passed > limit:
                raise TimedOut("no answer to a ping")
            select.select([self._display], [], [], 1.0)
        return timer.read()

    def _answered(self):
        answered = False
        for _ in range(self._display.pending_events()):
            seen = self._display.next_event()
            answered |= (seen.type == X.ClientMessage and seen.client_type == self._protocols and
                         seen.data[1][0] == self._ping and seen.data[1][1] == self._number)
        return answered


class Escape:
    """The key that changes nothing, until a fixture has written it down: those of Qt do not answer our pings."""

    def __init__(self, screen, fixture, server):
        self._server = server
        self._screen = screen
        self._code = screen.key_code("Escape")
        self._log = fixture.log_file

    def close(self):
        self._screen.release_everything()

    def seconds(self, limit=30.0):
        """Until the line is there; when others had the processor that we or the server could use does not count."""
        size = self._log.stat().st_size
        timer = FairTimer(self._server)
        self._screen.tap(self._code)
        while self._log.stat().st_size == size:
            if timer.read().passed > limit:
                raise TimedOut("a key has not arrived")
            time.sleep(0.0002)
        return timer.read()


def late(values):
    return sorted(values)[round(0.95 * (len(values) - 1))]


class Look(typing.NamedTuple):
    """What can be seen of a program."""

    focus: int
    windows: tuple
    log: list
    pictures: set


class ReadAgainAndAgain:
    """What is true of every application that is read; `kit` names it."""

    kit = ""
    writes_down = True
    keeps_notes_beyond = None  # reads; GTK 3 keeps each child that it has told of for half a minute

    @classmethod
    def prepare(cls):
        cls.connect_accessibility().switch_on()
        cls.application = cls.start_application()
        cls.ping = cls.probe()
        cls.addClassCleanup(cls.ping.close)
        cls.warm_up()
        cls.before = cls.look()
        cls.times = {"before": cls.pings(PINGS), "while it is read": [], "between the reads": []}
        cls.read_by_themselves()
        cls.read_and_time()
        cls.times["after"] = cls.pings_after()
        cls.after = cls.look()
        note(f"{cls.kit}: reads, of a bar and a menu each", READS)

    @classmethod
    def warm_up(cls):
        """Where notes are kept, two readers at once make it keep more than it does later: they would look like growth."""
        cls.read(WARM_UP)
        if cls.keeps_notes_beyond is not None and READS > cls.keeps_notes_beyond:
            readers = [cls.start_reading(READS) for _ in range(2)]
            wait_for(lambda: not any(reader.running() for reader in readers), "the reads", limit=1200, step=0.05)

    @classmethod
    def read_by_themselves(cls):
        """What it holds then is the reads' alone: keys leave something in a program, too."""
        cls.held = [cls.holds()]
        reads = READS * (APART - 1) // APART
        seconds = cls.read(reads)
        cls.held.append(cls.holds())
        note(f"{cls.kit}: one read", round(1000 * seconds / reads, 2), unit="ms")

    @classmethod
    def read_and_time(cls):
        for _ in range(BLOCKS):
            reader = cls.start_reading(READS // APART // BLOCKS)
            while reader.running():
                cls.times["while it is read"] += cls.pings(1)
            cls.seconds_of(reader, READS // APART // BLOCKS)
            cls.times["between the reads"] += cls.pings(PINGS // BLOCKS)

    @classmethod
    def pings_after(cls):
        """As far apart as those between the reads: others may need the machine for a second or two."""
        found = []
        for _ in range(BLOCKS):
            found += cls.pings(PINGS // BLOCKS)
            time.sleep(APART_FOR)
        return found

    @classmethod
    def probe(cls):
        return Ping(cls.session.environment["DISPLAY"], cls.application.window, cls.session.display_server_pid)

    @classmethod
    def start_reading(cls, reads):
        program = pathlib.Path(os.environ["TARNWICK_FIXTURES"]) / "menu_reader"
        require(program)
        return cls.session.run(program, cls.application.pid, reads)

    @classmethod
    def read(cls, reads):
        reader = cls.start_reading(reads)
        wait_for(lambda: not reader.running(), "the reads", limit=600, step=0.05)
        return cls.seconds_of(reader, reads)

    @classmethod
    def seconds_of(cls, reader, reads):
        """How long the reads have taken, after a look at whether there was something to read each time."""
        found = re.search(r"(\d+) reads, (\d+) items, (\d+) different, ([\d.]+) seconds", reader.output)
        if not found or int(found[1]) != reads or int(found[2]) < 2 * reads:  # a busy machine cuts some reads short
            raise AssertionError(f"not read: {reader.output}")
        return float(found[4])

    @classmethod
    def pings(cls, count):
        found = []
        for _ in range(count):
            time.sleep(0.004)
            found.append(cls.ping.seconds())
        return found

    @classmethod
    def holds(cls):
        """The middle of several looks: a program that is just painting holds more for a moment."""
        looks = []
        for _ in range(LOOKS):
            looks.append(Resources.of(cls.screen, cls.application.pid))
            time.sleep(0.05)
        return Resources(*(statistics.median(values) for values in zip(*looks)))

    @classmethod
    def look(cls):
        return Look(cls.screen.focused_window_id(), cls.open_windows(), cls.log(), cls.pictures())

    @classmethod
    def log(cls):
        """What has happened in it besides the keys of this test."""
        kinds = ("chosen", "text", "button", "focus", "bar")
        return [line for kind in kinds for line in cls.application.lines(kind)] if cls.writes_down else []

    @classmethod
    def open_windows(cls):
        return len(cls.screen.unmanaged_windows()), len(cls.screen.windows())

    @classmethod
    def pictures(cls):
        """All that the window gives: the caret blinks in it."""
        seen = set()
        end = time.monotonic() + LOOK
        _, _, width, height = cls.application.window.frame
        while time.monotonic() < end:
            seen.add(cls.application.window.handle.get_image(0, 0, width, height, X.ZPixmap, 0xFFFFFFFF).data)
            time.sleep(0.05)
        return seen

    def test_does_not_make_it_grow(self):
        before, after = self.held
        for what, unit, limit in (("memory", "KiB", MEMORY), ("in_server", "", 0), ("descriptors", "", 0)):
            with self.subTest(what):
                more = getattr(after, what) - getattr(before, what)
                note(f"{self.kit}: {what.replace('_', ' ')}, more after the reads", more, limit, unit)
                self.assertLessEqual(more, limit)

    def test_does_not_slow_it_down(self):
        for when, values in self.times.items():
            values = [time.fair for time in values]
            for name, value in (("median", statistics.median(values)), ("95th percentile", late(values))):
                note(f"{self.kit}: its answer to an event {when}, {name}", round(1000 * value, 2), unit="ms")
        usual = max(self.middle("before").fair, self.middle("between the reads").fair)
        self.middle("after").assert_within(usual + LATER, "its answer after the reads")
        self.middle("while it is read").assert_within(usual + A_PICTURE, "its answer while it is read")

    def middle(self, when):
        return sorted(self.times[when], key=lambda time: time.fair)[len(self.times[when]) // 2]

    def test_leaves_focus_and_windows_and_looks_alone(self):
        self.assertEqual(self.after.focus, self.before.focus)
        self.assertEqual(self.after.windows, self.before.windows)
        self.assertEqual(self.after.log, self.before.log)
        self.assertTrue(self.after.pictures <= self.before.pictures, "it looks different")

    def test_asks_only_what_does_no_harm(self):
        """All times have been taken by now: here somebody listens."""
        buses = [self.bus.address, self.session.environment["DBUS_SESSION_BUS_ADDRESS"]]
        monitors = [BusMonitor(self.session, address) for address in buses]
        self.read(LISTENED)
        asked = collections.Counter()
        for monitor in monitors:
            calls = monitor.calls()
            to_it = {name for name in {call.destination for call in calls} if self.is_its(name, monitor)}
            asked.update(call.method for call in calls if call.destination in to_it)
            if monitor is monitors[0]:
                self.assertEqual([call for call in calls if call.method in FORBIDDEN], [])
        self.assertLessEqual(set(asked), QUESTIONS)
        self.assertGreater(sum(asked.values()), 2 * LISTENED)
        self.assertEqual(asked["org.gtk.Menus.Start"], asked["org.gtk.Menus.End"])
        note(f"{self.kit}: messages a read", round(sum(asked.values()) / LISTENED, 1))

    def is_its(self, name, monitor):
        process = monitor.ask_bus("GetConnectionUnixProcessID", GLib.Variant("(s)", (name,)))
        return process == self.application.pid


class Gtk3(ReadAgainAndAgain, DesktopTest):
    kit = "GTK 3"
    keeps_notes_beyond = WHOLE

    @classmethod
    def start_application(cls):
        return Fixture(cls.session, "gtk3")


class Qt5(ReadAgainAndAgain, DesktopTest):
    kit = "Qt 5"

    @classmethod
    def start_application(cls):
        return Fixture(cls.session, "qt5")

    @classmethod
    def probe(cls):
        return Escape(cls.screen, cls.application, cls.session.display_server_pid)


class Qt6(ReadAgainAndAgain, DesktopTest):
    kit = "Qt 6"

    @classmethod
    def start_application(cls):
        return Fixture(cls.session, "qt6")

    @classmethod
    def probe(cls):
        return Escape(cls.screen, cls.application, cls.session.display_server_pid)


class Gtk4(ReadAgainAndAgain, DesktopTest):
    kit = "GTK 4, an exported bar"

    @classmethod
    def start_application(cls):
        settings = cls.session.directory / "home/.config/gtk-4.0/settings.ini"
        settings.parent.mkdir(parents=True)
        settings.write_text("[Settings]\ngtk-cursor-blink=0\n")  # else it fades, and there are too many pictures
        return Fixture(cls.session, "gtk4", menu="exported.menu")


@unittest.skipUnless(office.PROGRAM and READS >= WHOLE, "LibreOffice is not installed, or there is no time for it")
class LibreOffice(ReadAgainAndAgain, DesktopTest):
    kit = "LibreOffice Writer"
    writes_down = False
    keeps_notes_beyond = 0  # its menus are large

    @classmethod
    def start_application(cls):
        writer = office.Writer(cls.session)
        writer.bar_items(cls.bus)
        return writer


if __name__ == "__main__":
    main()
