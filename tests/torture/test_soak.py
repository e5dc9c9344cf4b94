# SPDX-License-Identifier: MIT
"""Thousands of switches and pop-ups on end: nothing grows, nothing is left open, and with the sanitizers nothing leaks.

Environment, besides that of torture.py:
  TARNWICK_SOAK_ROUNDS   so many switches and as many pop-ups, instead of the share of 1,000
  TARNWICK_SANITIZED     the program is built with the sanitizers, and shall tell of what was lost
"""
import os
import select
import time

from Xlib import X, display
from Xlib.error import BadDrawable
from Xlib.ext import xtest
from Xlib.protocol import event
from resources import Resources, growth
from torture import WatchedTarnwick, note, times

from harness.applications import KITS, Fixture
from harness.case import DesktopTest, main
from harness.over import OWN_ENTRY
from harness.rest import wait_until_asleep
from harness.tarnwick import OPTION, TRIGGER
from harness.waiting import Patience, TimedOut, wait_for

WHOLE = 1_000  # rounds, in the time that scripts/torture has
FEW = 80  # at least
ROUNDS = int(os.environ.get("TARNWICK_SOAK_ROUNDS", times(WHOLE, least=FEW)))
WARM_UP = 150  # rounds, at least
HURRY = 0.001  # of the pauses at a switch, which are 0.65 s
SAMPLES = 50
SEARCHED = "sa"
INTO_A_SUBMENU = 4  # every so many pop-ups
INTO_A_SEARCH = 4  # the same, but others; every other time until all is read
ENTRIES = 4  # of the bars, each with a submenu

MEMORY = 1024  # KiB, of the program as people have it: the allocator keeps pages for later

SANITIZED = "TARNWICK_SANITIZED" in os.environ
# KiB: caches that fill are allowed, 16 bytes lost each time are not over 20,000 rounds, and LOST is not over a few.
ALLOCATED_OVER_FEW = 48
ALLOCATED = 128 if ROUNDS >= WHOLE else ALLOCATED_OVER_FEW
LOST = 1000  # bytes at each switch, on purpose
# What the sanitizers add must not look like growth: what is freed stays in a quarantine.
SANITIZER = {"ASAN_OPTIONS": "detect_leaks=1:malloc_context_size=10:quarantine_size_mb=0:"
                             "thread_local_quarantine_size_kb=0",
             "UBSAN_OPTIONS": "print_stacktrace=1"}


class Hand:
    """Keys and windows as fast as the server takes them. What opens and closes is seen from the server's own events."""

    def __init__(self, screen, name):
        self._screen = screen
        self._display = display.Display(name)
        self._root = self._display.screen().root
        self._root.change_attributes(event_mask=X.SubstructureNotifyMask)
        self._activate = self._display.intern_atom("_NET_ACTIVE_WINDOW")
        self._codes = {key: screen.key_code(key) for key in ("Escape", "Down", "Right", "slash", *SEARCHED)}
        self._open = []
        self._sizes = {}
        self.opened = 0  # menus, ever

    def close(self):
        self._display.close()

    def bring_to_front(self, window):
        request = event.ClientMessage(window=window.handle, client_type=self._activate,
                                      data=(32, [2, X.CurrentTime, 0, 0, 0]))
        self._root.send_event(request, event_mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self._display.flush()

    def tap(self, *keys):
        for key in keys:
            for kind in (X.KeyPress, X.KeyRelease):
                xtest.fake_input(self._display, kind, self._codes[key])
        self._display.sync()

    def forget(self):
        """What has opened and closed before is no longer of interest."""
        self._display.sync()
        self._menus()
        self._open.clear()
        self._sizes.clear()

    def wait_for_menus(self, *counts, limit=20.0):
        """Waits until so many are open, one of the counts, and returns how many."""
        patience = Patience(limit)
        while len(self._menus()) not in counts:
            if patience.is_over():
                raise TimedOut(f"after {limit} s not {counts} but {len(self._open)} open menus")
            select.select([self._display], [], [], 0.1)
        return len(self._open)

    def wait_for_another_menu(self, before, limit=20.0):
        """Waits until one has opened since there were `before`, and returns how many are open still."""
        patience = Patience(limit)
        while not self._menus() and self.opened == before:
            if patience.is_over():
                raise TimedOut(f"after {limit} s no menu")
            select.select([self._display], [], [], 0.1)
        return len(self._open)

    def size(self):
        """Of the menu that is open alone; nothing when it has just gone."""
        menus = self._menus()
        return self._sizes.get(menus[0]) if menus else None

    def wait_for_size(self, is_it, limit=20.0):
        """Waits until that menu has such a size, or has gone; returns the size."""
        patience = Patience(limit)
        while (size := self.size()) and not is_it(size):
            if patience.is_over():
                raise TimedOut(f"after {limit} s a menu of {size}")
            select.select([self._display], [], [], 0.1)
        return size

    def wait_until_free(self, limit=10.0):
        patience = Patience(limit)
        while self._screen.grabs_left():
            if patience.is_over():
                raise TimedOut(f"after {limit} s still held: {self._screen.grabs_left()}")
            time.sleep(0.001)

    def _menus(self):
        for _ in range(self._display.pending_events()):
            seen = self._display.next_event()
            if seen.type == X.MapNotify and seen.override and self._is_menu(seen.window):
                self._open.append(seen.window.id)
                self._sizes[seen.window.id] = self._size_of(seen.window)
                self.opened += 1
            elif seen.type == X.ConfigureNotify and seen.window.id in self._open:
                self._sizes[seen.window.id] = seen.width, seen.height
            elif seen.type in (X.UnmapNotify, X.DestroyNotify) and seen.window.id in self._open:
                self._open.remove(seen.window.id)
        return self._open

    @staticmethod
    def _size_of(window):
        try:
            geometry = window.get_geometry()
        except BadDrawable:  # it has just gone
            return None
        return geometry.width, geometry.height

    def _is_menu(self, window):
        return self._screen.property_of(self._screen.display.create_resource_object("window", window.id),
                                        "_NET_WM_WINDOW_TYPE") is not None


class OverThreeApplications(DesktopTest):
    """Tarnwick with pauses of next to nothing, and applications to switch between."""

    @classmethod
    def prepare(cls):
        cls.connect_accessibility()
        cls.session.environment.update(SANITIZER)
        cls.applications = []
        cls.cut_short = []
        cls.searched = 0
        cls.hand = Hand(cls.screen, cls.session.environment["DISPLAY"])
        cls.addClassCleanup(cls.hand.close)

    def start(self, leak=None):
        tarnwick = WatchedTarnwick(self.session, hurry=HURRY, leak=leak)
        self.addCleanup(tarnwick.stop)
        wait_for(self.bus.is_enabled, "accessibility switched on", step=0.05)
        if not self.applications:
            self.applications.extend(Fixture(self.session, kit) for kit in KITS)
        self.screen.activate(self.applications[-1].window)
        tarnwick.wait_until_ready()
        self.hand.forget()
        return tarnwick

    def switch(self, tarnwick, number):
        """Until it is dealt with: while a busy window manager is at it, nobody may be in front, which is a switch, too."""
        before = tarnwick.switches()
        application = self.applications[number % len(self.applications)]
        self.hand.bring_to_front(application.window)
        wait_for(lambda: tarnwick.switches() > before and tarnwick.dealt_with() == application.pid,
                 "the switch dealt with", step=0.001)

    def pop_up(self, tarnwick, number):
        """Opens the menu and closes it; now and then it opens one of its submenus, or searches in it."""
        before = self.hand.opened
        self.screen.chord(TRIGGER, OPTION)
        left = self.hand.wait_for_another_menu(before)
        if left and number % INTO_A_SUBMENU == 0:
            left = self._look_into_a_submenu(number)
        elif left and number % INTO_A_SEARCH == 1:
            left = self._search(tarnwick, number)
        if left:
            self.hand.tap("Escape")
            self.hand.wait_for_menus(0)
        else:  # a switch that came late has closed it
            self.cut_short.append(number)
        self.hand.wait_until_free()

    def _look_into_a_submenu(self, number):
        """Returns how many menus are open afterwards."""
        self.hand.tap(*["Down"] * (number // INTO_A_SUBMENU % ENTRIES + 1), "Right")
        if self.hand.wait_for_menus(2, 0) == 0:
            return 0
        self.hand.tap("Escape")
        return self.hand.wait_for_menus(1, 0)

    def _search(self, tarnwick, number):
        """Searches in the menu and goes back to it. Returns how many menus are open afterwards."""
        menu = self.hand.size()
        self.hand.tap("slash")
        empty = self.hand.wait_for_size(lambda size: size != menu)
        self.hand.tap(*SEARCHED)
        self.hand.wait_for_size(lambda size: size != empty)
        if number // INTO_A_SEARCH % 2:
            wait_until_asleep([tarnwick.pid])
        self.hand.tap("Escape")
        if self.hand.wait_for_size(lambda size: size == menu):
            self.searched += 1
        return self.hand.wait_for_menus(0, 1)

    def live(self, tarnwick, rounds):
        """Switches and opens the menu, `rounds` times after a warm-up; returns what was looked at meanwhile."""
        warm_up = max(WARM_UP, rounds // 20) // len(KITS) * len(KITS)  # the last is in front now
        pace = max(1, rounds // SAMPLES)
        samples = []
        for number in range(-warm_up, rounds + 1):
            self.switch(tarnwick, number)
            self.pop_up(tarnwick, number)
            if number >= 0 and number % pace == 0:
                samples.append((tarnwick.allocated() / 1024, Resources.of(self.screen, tarnwick.pid)))
        return samples


class ALongDay(OverThreeApplications):
    def test_leaves_nothing_behind(self):
        tarnwick = self.start()
        begin = time.monotonic()
        samples = self.live(tarnwick, ROUNDS)
        note("switches, and as many pop-ups", ROUNDS)
        note("time for one of each", round(1000 * (time.monotonic() - begin) / ROUNDS), unit="ms")
        self.assert_no_growth("allocated", [allocated for allocated, _ in samples], ALLOCATED, "KiB")
        if not SANITIZED:
            self.assert_no_growth("memory", [now.memory for _, now in samples], MEMORY, "KiB")
        self.assert_no_growth("things in the X server", [now.in_server for _, now in samples], 0)
        self.assert_no_growth("descriptors", [now.descriptors for _, now in samples], 0)
        note("searches in them", self.searched)
        self.assertGreater(self.searched, ROUNDS // INTO_A_SEARCH // 2)
        note("pop-ups closed by a switch that came late", len(self.cut_short), ROUNDS // 100)
        self.assertLessEqual(len(self.cut_short), ROUNDS // 100)
        self.assert_shows_the_menu_in_front(tarnwick)
        self.assertEqual(tarnwick.program.stop(limit=120), 0, tarnwick.program.output)

    def assert_no_growth(self, what, values, limit, unit=""):
        more = round(growth(values), 1)
        note(f"{what}, more at the end", more, limit, unit)
        with self.subTest(what):
            self.assertLessEqual(more, limit, values)

    def assert_shows_the_menu_in_front(self, tarnwick):
        reader = tarnwick.reader(self.bus)
        for application in self.applications:
            self.screen.activate(application.window)
            tarnwick.wait_for_titles(reader, [item.title for item in application.bar_items(self.bus)] + ["", OWN_ENTRY])
        reader.close()


class WhatIsLost(OverThreeApplications):
    """A leak that is made on purpose is seen: else the silence above proves nothing."""

    def test_is_growth(self):
        tarnwick = self.start(leak=LOST)
        samples = self.live(tarnwick, FEW)
        more = growth([allocated for allocated, _ in samples])
        note(f"allocated, more at the end of {FEW} rounds with {LOST} bytes lost in each", round(more, 1), unit="KiB")
        self.assertGreater(more, ALLOCATED_OVER_FEW)
        status = tarnwick.program.stop(limit=120)
        if SANITIZED:
            self.assertNotEqual(status, 0)
            self.assertIn("detected memory leaks", tarnwick.program.output)


if __name__ == "__main__":
    main()
