# SPDX-License-Identifier: MIT
"""Prints the rows of scripts/bench wayland; runs in the newer system.

The clock is a relay between a program and its compositor (wayland_relay.c): neither side has to tell anything, and it costs
both programs the same. The first frame of the menu is over when the compositor answers the question that came with the menu's
first picture: when to draw the next one (wl_surface.frame). It has drawn that picture then. It draws 60 frames a second,
also without a screen.
"""
import contextlib
import ctypes
import os
import pathlib
import select
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "tests/wayland"))

from case import COMPOSITORS, NativeFixture, wait_for  # noqa: E402
from gi.repository import Gio, GLib  # noqa: E402
from native import ACTIVE, DOWN, ESCAPE, RETURN, RIGHT, NativeTarnwick  # noqa: E402

from harness.accessible import AccessibilityBus, connect  # noqa: E402
from harness.waiting import LIMIT  # noqa: E402

from relay import Relay  # noqa: E402
from stage import (AFTER_START, PROGRAMS, WARM_UP, assert_nobody_listens, messages, milliseconds, run,  # noqa: E402
                   wait_for_rest)
from table import Series, print_compared, print_row  # noqa: E402

ROUNDS = 50
OF_BARE = 1.25
PRESS = 30.0  # milliseconds
KITS = ("gtk3", "qt6")
BARE = "an empty QMenu on a bare layer"
OFFICE = "LibreOffice Writer"
AHEAD = {"gtk3": 80.0, "qt6": 80.0, OFFICE: 250.0}  # milliseconds
AT_REST = 0.1  # seconds
_IN_MODIFY = 2


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
                raise RuntimeError(f"no {word!r} in {self._path.read_text()!r}")
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
        """Tarnwick and the bare program, each behind a relay."""
        self.relay = self._relay("tarnwick")
        self.tarnwick = NativeTarnwick(self.session, environment={"WAYLAND_DISPLAY": str(self.relay.path)})
        self._closing.append(self.tarnwick.stop)
        self._bare_relay = self._relay("bare")
        self._bare = self.session.run(PROGRAMS / "bench_bare_layer", WAYLAND_DISPLAY=str(self._bare_relay.path))
        wait_for(lambda: "ready" in self._bare.output, "the bare program")

    def _relay(self, name):
        relay = Relay(self.session, name)
        self._closing.append(relay.close)
        return relay

    @contextlib.contextmanager
    def fixture(self, kit):
        """A fixture in front, with the pointer in its middle."""
        fixture = NativeFixture(self.session, kit)
        self.wait_until_readable(self.bus.application(fixture.pid))
        left, top, right, bottom = fixture.frame()
        self.input.move((left + right) // 2, (top + bottom) // 2)
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
        """(until the first frame, until its picture was handed over) of Tarnwick's menu and of the bare program's, which
        take turns in each round, so that a slow moment of the machine meets both."""
        self.tarnwick.wait_until_at_rest()
        assert_nobody_listens(self.bus)
        turns = [(self._menu(), self._bare_menu()) for _ in range(rounds + WARM_UP)][WARM_UP:]
        return [[Series(column) for column in zip(*of_one)] for of_one in zip(*turns)]

    def _menu(self):
        values = self._milliseconds(self.relay, self.trigger())
        self.rest()
        self.input.tap(ESCAPE)
        self.relay.wait_for("closed")
        self.rest()
        return values

    def _bare_menu(self):
        values = self._milliseconds(self._bare_relay, self._call_bare("PopUp"))
        self.rest()
        self._call_bare("Close")
        self._bare_relay.wait_for("closed")
        self.rest()
        return values

    @staticmethod
    def _milliseconds(relay, begin):
        handed_over = relay.wait_for("handed-over")
        return 1000 * (relay.wait_for("shown") - begin), 1000 * (handed_over - begin)

    def trigger(self):
        """Asks for the menu as a line of a compositor does; when that was."""
        return self._send("example.quorlane.Tarnwick", "/example/quorlane/Tarnwick", "org.freedesktop.Application",
                          "ActivateAction", GLib.Variant("(sava{sv})", ("pop-up", [], {})))

    def _call_bare(self, method):
        return self._send("example.quorlane.Bare", "/bare", "example.quorlane.Bare", method, None)

    def _send(self, *call):
        begin = time.monotonic()
        self.session_bus.call(*call, None, Gio.DBusCallFlags.NO_AUTO_START, -1, None, None)
        self.session_bus.flush_sync(None)
        return begin

    def rest(self):
        wait_for_rest(AT_REST)

    def choices(self, fixture, rounds):
        """From the press of Return on the first item of the first menu until the application has done it."""
        written = Writing(fixture.log)
        try:
            return Series([self._one_choice(written) for _ in range(rounds)])
        finally:
            written.close()

    def _one_choice(self, written):
        self.trigger()
        self.relay.wait_for("shown")
        self.rest()
        self.input.tap(DOWN)
        self.rest()
        self.input.tap(RIGHT)
        self.relay.wait_for("shown")
        self.rest()
        begin = time.monotonic()
        self.input.press(RETURN)
        took = written.wait_for("chosen") - begin
        self.input.release(RETURN)
        self.rest()
        return 1000 * took

    def reading_ahead(self):
        """How long all menus of the application in front take to be read."""
        output = run(self.session, "bench_reading_ahead", ROUNDS + WARM_UP)
        return Series(milliseconds(output), messages=messages(output))


def frame_rows(ground, compositor):
    with ground.fixture("gtk3"):
        ours, bare = ground.frames(ROUNDS)
    print_compared(f"trigger to the menu's first frame, {compositor}", ours[0], BARE, bare[0], OF_BARE)
    print_row(f"the same, to its picture handed to the compositor, {compositor}", ours[1], BARE, bare[1], "", None)


def choice_row(ground, compositor, kit):
    with ground.fixture(kit) as fixture:
        ground.tarnwick.wait_until_at_rest()
        took = ground.choices(fixture, ROUNDS)
    print_row(f"Return to its press in the application, {kit}, {compositor}", took, "", None, f"≤ {PRESS:g} ms",
              took.median <= PRESS)


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
    print_row(f"trigger to the menu's first frame, {OFFICE}, {compositor}", ours[0], BARE, bare[0],
              f"≤ the baseline + {most:g} ms, 95th, too", ours[0].late <= bare[0].late + most)


def rows(compositor):
    ground = Ground(compositor)
    try:
        for kit in KITS:
            with ground.fixture(kit):
                ahead_row(ground, compositor, kit)
        ground.start()
        frame_rows(ground, compositor)
        for kit in KITS:
            choice_row(ground, compositor, kit)
        office_rows(ground, compositor)
    finally:
        ground.close()


if __name__ == "__main__":
    for one in sys.argv[1:] or COMPOSITORS:
        rows(one)
