# SPDX-License-Identifier: MIT
"""Tarnwick on Wayland itself, and what a person does with its menu there."""
import os

from gi.repository import Gio, GLib

from case import NativeFixture, WaylandTest, wait_for
from harness.accessible import connect
from harness.over import OWN_ENTRY
from harness.rest import wait_until_asleep
from harness.tarnwick import Tarnwick
from harness.waiting import LIMIT

DOWN, LEFT, RIGHT, RETURN, ESCAPE = 116, 113, 114, 36, 9
CONTROL, OPTION, COMMAND = 37, 64, 133
A, C, E, R, T, V, X = 38, 54, 26, 27, 28, 55, 53
KITS = ("gtk3", "gtk4", "qt6")
_STEPS = 12  # in which a hand moves the pointer somewhere
TITLES = ["File", "Edit", "View", "Help", "", OWN_ENTRY]
ACTIVE = 1  # the state of a window
_NAME = "example.quorlane.Tarnwick"
_PATH = "/example/quorlane/Tarnwick"


class NativeTarnwick(Tarnwick):
    """Tarnwick in the session of a compositor; its menu is asked for on the bus, as a line for the compositor does it."""

    def __init__(self, session, **settings):
        super().__init__(session, ToldWhatIsMissing=True, **settings)
        self._bus = connect(session.environment["DBUS_SESSION_BUS_ADDRESS"])

    def pop_up(self, action="pop-up"):
        """Asks for the menu; returns at once."""
        self._call("ActivateAction", GLib.Variant("(sava{sv})", (action, [], {})))

    def _call(self, method, arguments):
        self._bus.call(_NAME, _PATH, "org.freedesktop.Application", method, arguments, None,
                       Gio.DBusCallFlags.NO_AUTO_START, round(1000 * LIMIT), None, None)
        self._bus.flush_sync(None)

    def show_preferences(self):
        """As another start of it does."""
        self._call("Activate", GLib.Variant("(a{sv})", ({},)))

    def wait_until_told(self):
        """Waits until it has dealt with what the compositor and the programs have told it."""
        wait_until_asleep([self.pid])

    def stop(self):
        self._bus.close_sync(None)
        return super().stop()


class MenuTest(WaylandTest):
    """A test of the menu over native programs; `pointer` is where the pointer was moved to."""

    @classmethod
    def prepare(cls, **environment):
        """`environment`: more of it for Tarnwick."""
        cls.connect_accessibility().switch_on()
        cls.tarnwick = NativeTarnwick(cls.session, environment=environment)
        cls.addClassCleanup(cls.tarnwick.stop)
        cls.tarnwick.wait_until_at_rest()
        cls.reader = cls.tarnwick.reader(cls.bus)
        cls.addClassCleanup(cls.reader.close)

    environment_of = {}  # of a fixture, by its toolkit, where it is not that of the session

    def each(self, check, kits=KITS):
        """`check` with a fixture of each toolkit, with the pointer in the middle of its window."""
        for kit in kits:
            with self.subTest(kit):
                fixture = NativeFixture(self.session, kit, **self.environment_of.get(kit, {}))
                try:
                    self.wait_until_readable(fixture)
                    check(fixture)
                finally:
                    self.close()
                    fixture.end()

    def wait_until_readable(self, fixture):
        """Waits until it is the one in front and can be read, and points into the middle of its window."""
        application = self.bus.application(fixture.pid)
        if fixture.kit != "gtk4":  # which exports its menu bar beside its tree
            wait_for(application.menu_bar, "its menu bar", step=0.05)
        wait_for(lambda: any(ACTIVE in window.states for window in application.children), "an active window", step=0.05)
        left, top, right, bottom = fixture.frame()
        self.pointer = (left + right) // 2, (top + bottom) // 2
        self.input.move(*self.pointer)

    def open(self):
        """Opens the menu and gives the titles that it shows."""
        self.tarnwick.wait_until_at_rest()
        self.tarnwick.pop_up()
        self.reader.wait_for(1)
        return self.reader.titles()

    def choose(self, *titles):
        """Opens the menu and chooses an entry by keyboard."""
        self.open()
        self.choose_in_open_menu(*titles)

    def choose_in_open_menu(self, *titles):
        for level, title in enumerate(titles, 1):
            self._go_to(title)
            if level < len(titles):
                self.input.tap(RIGHT)
                self.reader.wait_for(level + 1)
                wait_for(lambda: self.reader.focused_title() in self.reader.titles(-1), f"an entry below {title!r}")
        self.input.tap(RETURN)
        self.wait_until_closed()

    def _go_to(self, title):
        """Goes down in the last open menu until that entry is highlighted; fails when it cannot be."""
        seen = set()
        while (now := self.reader.focused_title()) != title:
            self.assertNotIn(now, seen, f"{title!r} cannot be chosen")
            seen.add(now)
            self.input.tap(DOWN)
            wait_for(lambda before=now: self.reader.focused_title() != before, f"what is below {now!r}")

    def point_at(self, title, level=-1):
        """Moves the pointer to an entry of an open menu, as a hand does: along its own entry into a menu that this holds."""
        x, y = self.reader.item(title, level).node.center
        self._slide(x, self.pointer[1])
        self._slide(x, y)

    def _slide(self, x, y):
        begin, self.pointer = self.pointer, (x, y)
        for step in range(1, _STEPS + 1):
            self.input.move(*(start + (end - start) * step // _STEPS for start, end in zip(begin, self.pointer)))

    def click_at(self, title):
        """Clicks on an entry of the last open menu."""
        self.point_at(title)
        self.wait_until_highlighted(title)
        self.input.click()

    def click_through(self, *titles):
        """Chooses an entry of the open menu by clicks on those that lead to it, and on it."""
        for level, title in enumerate(titles, 1):
            self.reader.wait_for(level)
            self.click_at(title)
        self.wait_until_closed()

    def close(self):
        """Presses Escape for each menu that is open."""
        while count := len(self.reader.menus()):
            self.input.tap(ESCAPE)
            wait_for(lambda most=count: len(self.reader.menus()) < most, "a menu closed")

    def wait_until_closed(self):
        self.reader.wait_for(0)

    def assert_keys_arrive(self, fixture):
        """The next key goes to the application, and none has come to it before."""
        self.input.tap(A)
        wait_for(lambda: fixture.lines("typed"), "the key in the application")
        self.assertEqual(fixture.lines("typed"), ["a"])

    def copy_letter(self, fixture):
        """Copies the only letter in the text, and pastes it once with keys: the application offers that now."""
        self.input.tap(X)
        wait_for(lambda: fixture.lines("typed"), "the letter")
        self.input.tap(A, CONTROL)
        self.input.tap(C, CONTROL)
        self.input.tap(RIGHT)
        self.input.tap(V, CONTROL)
        wait_for(lambda: fixture.lines("text")[-1:] == ["xx"], "the letter twice")

    def wait_until_chosen(self, fixture, *entries):
        """Waits for a choice; it must be the only one."""
        wait_for(lambda: len(fixture.lines("chosen")) >= len(entries), f"{entries} carried out")
        self.assertEqual(fixture.lines("chosen"), list(entries))

    def wait_until_highlighted(self, title):
        wait_for(lambda: self.reader.focused_title() == title, f"{title!r} highlighted")


class ButtonTest(MenuTest):
    """A line for the compositor has the menu opened by a mouse button."""

    button = 0x113
    _COMMAND = f"gapplication action {_NAME} pop-up-by-pointer"
    _LINES = {"sway": (f"bindsym --whole-window button8 exec {_COMMAND}", ""),
              "labwc": (f'<context name="All"><mousebind button="Side" action="Press"><action name="Execute" '
                        f'command="{_COMMAND}"/></mousebind></context>', "rc.xml, <mouse>")}

    @classmethod
    def prepare(cls):
        super().prepare()
        cls.session.configure(cls._LINES[os.environ.get("TARNWICK_COMPOSITOR", "sway")])
