# SPDX-License-Identifier: MIT
"""Prints the rows of scripts/bench wayland; runs in the newer system.

Tarnwick and the baseline are one process (bare_layer_main.cpp). The clock is a relay between it and its compositor
(wayland_relay.c): neither side has to tell anything, and it costs both menus the same. The first frame of a menu is over when
the compositor answers the question that came with the menu's first picture: when to draw the next one (wl_surface.frame). It
has drawn that picture then. It draws 60 frames a second, also without a screen.
"""
import contextlib
import ctypes
import math
import os
import pathlib
import select
import sys
import time
import traceback

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "tests/wayland"))

from case import COMPOSITORS, NativeFixture, wait_for  # noqa: E402
from gi.repository import Gio, GLib  # noqa: E402
from native import ACTIVE, DOWN, ESCAPE, RETURN, RIGHT, X, NativeTarnwick  # noqa: E402

from harness.accessible import AccessibilityBus, connect  # noqa: E402
from harness.waiting import LIMIT  # noqa: E402
from harness.wayland_input import LEFT_BUTTON  # noqa: E402

from relay import Relay  # noqa: E402
from stage import (AFTER_START, PROGRAMS, WARM_UP, assert_nobody_listens, messages, milliseconds, run,  # noqa: E402
                   wait_for_rest)
from table import Series, print_row  # noqa: E402

ROUNDS = 50
OF_BARE = 1.25
PRESS = 30.0  # milliseconds
KITS = ("gtk3", "qt6")
BARE = "an empty QMenu on a bare layer of the same process"
OFFICE = "LibreOffice Writer"
AHEAD = {"gtk3": 80.0, "qt6": 80.0, OFFICE: 250.0}  # milliseconds
AT_REST = 0.1  # seconds
TYPING = 0.3  # seconds
BETWEEN_KEYS = 0.002  # seconds
STEPS = 12  # in which a hand moves the pointer to an entry
_IN_MODIFY = 2


class NotWritten(RuntimeError):
    """What was to come into a file did not."""


class Writing:
    """When a file grows."""

    def __init__(self, path):
        self._path = path
        libc = ctypes.CDLL(None, use_errno=True)
        self._watch = libc.inotify_init()
        libc.inotify_add_watch(self._watch, os.fsencode(path), _IN_MODIFY)
        self._seen = path.stat().st_size

    def close(self):
        os.close(self._watch)

    def wait_for(self, word):
        """When the next line with it came."""
        while True:
            if not select.select([self._watch], [], [], LIMIT)[0]:
                raise NotWritten(f"no {word!r} in {LIMIT} s")
            os.read(self._watch, 4096)
            when = time.monotonic()
            content = self._path.read_text(encoding="utf-8")
            begin, self._seen = self._seen, len(content)
            if word in content[begin:]:
                return when


class Ground:
    """A session of a compositor with accessibility switched on; nothing listens there while something is measured."""

    def __init__(self, compositor):
        self.session = COMPOSITORS[compositor]().start()
        self.input = self.session.input
        self.bus = AccessibilityBus(self.session.environment["DBUS_SESSION_BUS_ADDRESS"])
        self.bus.switch_on()
        self.session_bus = connect(self.session.environment["DBUS_SESSION_BUS_ADDRESS"])
        self._closing = []

    def close(self):
        for close in reversed(self._closing):
            close()
        self.session_bus.close_sync(None)
        self.bus.close()
        self.session.stop()

    def start(self):
        """Tarnwick, with the bare layer in its process, behind a relay."""
        self.relay = Relay(self.session, "tarnwick")
        self._closing.append(self.relay.close)
        self.tarnwick = NativeTarnwick(self.session, program=PROGRAMS / "bench_bare_layer",
                                       environment={"WAYLAND_DISPLAY": str(self.relay.path)})
        self._closing.append(self.tarnwick.stop)
        self.tarnwick.wait_until_at_rest()

    @contextlib.contextmanager
    def fixture(self, kit):
        """A fixture in front, with the pointer in its middle."""
        fixture = NativeFixture(self.session, kit)
        self.wait_until_readable(self.bus.application(fixture.pid))
        left, top, right, bottom = fixture.frame()
        self.pointer = (left + right) // 2, (top + bottom) // 2
        self.input.move(*self.pointer)
        try:
            yield fixture
        finally:
            fixture.end()

    @contextlib.contextmanager
    def office(self):
        """LibreOffice Writer in front, with the pointer in its middle."""
        program = self.session.run("soffice", "--writer", "--norestore", "--nologo", "--nofirststartwizard",
                                   SAL_USE_VCLPLUGIN="gtk3")

        wait_for(lambda: any(application.name == "soffice" for application in self.bus.applications()), "Writer", limit=120.0,
                 step=0.1)
        self.wait_until_readable(next(application for application in self.bus.applications()
                                      if application.name == "soffice"))
        self.input.move(640, 400)
        wait_for_rest(AFTER_START, [program.pid])
        try:
            yield
        finally:
            program.stop()

    @staticmethod
    def wait_until_readable(application):
        wait_for(lambda: application.menu_bar() and any(ACTIVE in window.states for window in application.children),
                 "an active window with a menu bar", step=0.05)

    def frames(self, rounds):
        """(until the first frame, until its picture was handed over) of Tarnwick's menu and of the bare one, which take turns
        in each round, so that a slow moment of the machine meets both."""
        self.tarnwick.wait_until_at_rest()
        assert_nobody_listens(self.bus)
        turns = [(self._menu(), self._bare_menu()) for _ in range(rounds + WARM_UP)][WARM_UP:]
        return [[Series(column) for column in zip(*of_one)] for of_one in zip(*turns)]

    def _menu(self):
        values = self._milliseconds(self.trigger())
        self.rest()
        self._close_by_key()
        return values

    def _close_by_key(self):
        self.input.tap(ESCAPE)
        self.relay.wait_for("closed")
        self.rest()

    def _bare_menu(self):
        values = self._milliseconds(self._call_bare("PopUp"))
        self.rest()
        self._call_bare("Close")
        self.relay.wait_for("closed")
        self.rest()
        return values

    def _milliseconds(self, begin):
        handed_over = self.relay.wait_for("handed-over")
        return 1000 * (self.relay.wait_for("shown") - begin), 1000 * (handed_over - begin)

    def trigger(self, action="pop-up"):
        """Asks for the menu as a line of a compositor does; when that was."""
        return self._send("example.quorlane.Tarnwick", "/example/quorlane/Tarnwick", "org.freedesktop.Application",
                          "ActivateAction", GLib.Variant("(sava{sv})", (action, [], {})))

    def _call_bare(self, method):
        return self._send("example.quorlane.Bare", "/bare", "example.quorlane.Bare", method, None)

    def _send(self, *call):
        self.relay.forget()
        begin = time.monotonic()
        self.session_bus.call(*call, None, Gio.DBusCallFlags.NO_AUTO_START, -1, None, None)
        self.session_bus.flush_sync(None)
        return begin

    def rest(self):
        wait_for_rest(AT_REST)

    def choices(self, fixture, rounds):
        """From the press of Return on the first item of the first menu until the application has done it; endless where it
        has not."""
        return self._choices(fixture, rounds, self._highlight_by_key, lambda: self.input.press(RETURN),
                             lambda: self.input.release(RETURN))

    def clicks(self, fixture, rounds):
        """The same from the press of the mouse button on it, of which the release follows at once."""
        holder, item = self._places()
        return self._choices(fixture, rounds, lambda: self._highlight_by_pointer(holder, item), self._click, lambda: None)

    def _choices(self, fixture, rounds, highlight, choose, finish):
        written = Writing(fixture.log)

        def one():
            highlight()
            self.rest()
            begin = time.monotonic()
            choose()
            try:
                took = written.wait_for("chosen") - begin
            except NotWritten:
                took = math.inf
            finish()
            if took == math.inf:  # the menu may be open still, and the keyboard elsewhere
                self.input.click(self.pointer)
            self.rest()
            return 1000 * took
        try:
            return Series([one() for _ in range(rounds)])
        finally:
            written.close()

    def _highlight_by_key(self):
        self.trigger()
        self.relay.wait_for("handed-over")
        self.rest()
        self.input.tap(DOWN)
        self.rest()
        self.input.tap(RIGHT)
        self.relay.wait_for("handed-over")

    def _highlight_by_pointer(self, holder, item):
        self.input.move(*self.pointer)
        self.rest()
        self.trigger("pop-up-by-pointer")
        self.relay.wait_for("handed-over")
        self.rest()
        self._slide(self.pointer, (holder[0], self.pointer[1]), holder)
        self.relay.wait_for("handed-over")
        self.rest()
        self._slide(holder, (item[0], holder[1]), item)

    def _slide(self, begin, *places):
        """Moves the pointer as a hand does."""
        for end in places:
            for step in range(1, STEPS + 1):
                self.input.move(*(first + (last - first) * step // STEPS for first, last in zip(begin, end)))
            begin = end

    def _click(self):
        self.input.hold_button(LEFT_BUTTON, True)
        self.input.hold_button(LEFT_BUTTON, False)

    def _places(self):
        """Of the first menu's entry, and of its first item: as a screen reader is told; nobody listens afterwards."""
        reader = self.tarnwick.reader(self.bus)
        try:
            self.trigger()
            holder = reader.wait_for(1)[0].node.center
            self.rest()
            self.input.tap(DOWN)
            self.rest()
            self.input.tap(RIGHT)
            item = reader.wait_for(2)[0].node.center
            for left in (1, 0):
                self.input.tap(ESCAPE)
                reader.wait_for(left)
        finally:
            reader.close()
        self.rest()
        assert_nobody_listens(self.bus)
        return holder, item

    def time_until_keys_go_to_the_menu(self, fixture, rounds):
        """From the trigger until a key that is typed does not come to the application any more."""
        return Series([self._time_of_last_key(fixture) for _ in range(rounds + WARM_UP)][WARM_UP:])

    def _time_of_last_key(self, fixture):
        before = len(fixture.lines("typed"))
        begin = self.trigger()
        sent = []
        while not sent or sent[-1] < 1000 * TYPING:
            sent.append(1000 * (time.monotonic() - begin))
            self.input.press(X)
            self.input.release(X)
            time.sleep(BETWEEN_KEYS)
        self.relay.wait_for("handed-over")
        self.rest()
        came = len(fixture.lines("typed")) - before
        if came >= len(sent):
            raise RuntimeError(f"none of {came} keys within {TYPING} s came to the menu")
        self._close_by_key()
        return sent[came]

    def reading_ahead(self):
        """How long all menus of the application in front take to be read."""
        output = run(self.session, "bench_reading_ahead", ROUNDS + WARM_UP)
        return Series(milliseconds(output), messages=messages(output))


def frame_rows(ground, compositor):
    with ground.fixture("gtk3"):
        ours, bare = ground.frames(ROUNDS)
    print_frames(f"trigger to the menu's first frame, {compositor}", ours[0], bare[0], f"≤ {OF_BARE:g} ×, 95th, too",
                 ours[0].median <= OF_BARE * bare[0].median and ours[0].late <= OF_BARE * bare[0].late)
    print_frames(f"the same, to its picture handed to the compositor, {compositor}", ours[1], bare[1], "", None)


def print_frames(figure, ours, bare, target, met):
    print_row(figure, ours, BARE, bare, target, met, f"{ours.median / bare.median:.2f}, 95th {ours.late / bare.late:.2f}")


def choice_rows(ground, compositor, kit):
    with ground.fixture(kit) as fixture:
        ground.tarnwick.wait_until_at_rest()
        for how, took in (("Return", ground.choices(fixture, ROUNDS)), ("a click", ground.clicks(fixture, ROUNDS))):
            lost = took.values.count(math.inf)
            told = f", {lost} of {ROUNDS} not carried out" if lost else ""
            print_row(f"{how} to its press in the application, {kit}, {compositor}{told}", took, "", None, f"≤ {PRESS:g} ms",
                      took.median <= PRESS and not lost)


def key_row(ground, compositor):
    with ground.fixture("gtk3") as fixture:
        ground.tarnwick.wait_until_at_rest()
        took = ground.time_until_keys_go_to_the_menu(fixture, ROUNDS)
    print_row(f"trigger until keys no longer go to the application, {compositor}", took, "", None, "", None)


def ahead_row(ground, compositor, name):
    took = ground.reading_ahead()
    print_row(f"reading all menus ahead, {name}, {compositor}", took, "", None, f"≤ {AHEAD[name]:g} ms",
              took.median <= AHEAD[name])


def office_rows(ground, compositor):
    """The menu over it may wait for the reading, but not for longer."""
    with ground.office():
        ahead_row(ground, compositor, OFFICE)
        ours, bare = ground.frames(ROUNDS)
    most = AHEAD[OFFICE]
    print_frames(f"trigger to the menu's first frame, {OFFICE}, {compositor}", ours[0], bare[0],
                 f"≤ the baseline + {most:g} ms, 95th, too",
                 ours[0].median <= bare[0].median + most and ours[0].late <= bare[0].late + most)


def rows(compositor):
    ground = Ground(compositor)
    try:
        for kit in KITS:
            with ground.fixture(kit):
                ahead_row(ground, compositor, kit)
        ground.start()
        frame_rows(ground, compositor)
        for kit in KITS:
            choice_rows(ground, compositor, kit)
        key_row(ground, compositor)
        office_rows(ground, compositor)
    finally:
        ground.close()


def main(compositors):
    """The others are measured, too, where one of them fails."""
    failed = []
    for compositor in compositors:
        try:
            rows(compositor)
        except Exception:  # whatever it is, it is told
            traceback.print_exc()
            failed.append(compositor)
    if failed:
        sys.exit(f"scripts/bench wayland: not all could be measured in {', '.join(failed)}; what was wrong is above")


if __name__ == "__main__":
    main(sys.argv[1:] or COMPOSITORS)
