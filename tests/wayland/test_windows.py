# SPDX-License-Identifier: MIT
"""Tarnwick's own windows on Wayland itself, and what it does in the session besides the menu."""
import os
import signal
import statistics

from case import WaylandTest, main, wait_for
from harness.accessible import CHECKED, FOCUSED, SHOWING
from harness.popup import PopUpReader
from harness.portal import DARK, LIGHT, Portal
from harness.preferences import BUTTON, CHECK_BOX, stored
from harness.rest import wait_until_asleep
from harness.tarnwick import settings_text
from harness.tray import PublishedTray
from native import ACTIVE, NativeTarnwick
from wire import WRITTEN, sizes_of_last_window

FRAME = 23
TAB, SPACE, ESCAPE, W, CONTROL = 23, 65, 9, 25, 37


class OwnWindows(WaylandTest):
    """Each test starts Tarnwick with preferences open, as at a first start."""

    @classmethod
    def prepare(cls):
        cls.connect_accessibility().switch_on()

    def start(self, environment=(), **settings):
        self.settings_file = self.session.directory / "home/.config/Quorlane/Tarnwick.conf"
        self.settings_file.parent.mkdir(parents=True, exist_ok=True)
        self.settings_file.write_text(settings_text({"FirstRun": False, **settings}))
        self.run_tarnwick(environment)

    def run_tarnwick(self, environment=()):
        self.program = self.session.run(os.environ["TARNWICK_BINARY"], QT_QPA_PLATFORM="", **dict(environment))
        self.addCleanup(self.program.stop)
        self.application = self.bus.application(self.program.pid)

    def hot_key_switch(self):
        return self.control("Open the menu with a hot key", CHECK_BOX)

    def press(self, control):
        """Goes to it with the keyboard, and presses the bar."""
        self.wait_for_keyboard()
        while (focused := self.focused()) != control:
            self.input.tap(TAB)
            wait_for(lambda before=focused: self.focused() not in (None, before), "the next control focused", step=0.02)
        self.input.tap(SPACE)

    def wait_for_keyboard(self):
        wait_for(lambda: any(ACTIVE in window.states for window in self.application.children), "an active window", step=0.02)
        wait_for(lambda: self.focused() is not None, "a control with the focus", step=0.02)

    def focused(self):
        return next((node for node in self.application.descendants() if node.role != FRAME and FOCUSED in node.states), None)

    def second_start(self, **environment):
        """Starts it once more, and gives its exit status."""
        return self.session.run(os.environ["TARNWICK_BINARY"], QT_QPA_PLATFORM="", **environment).status()

    def control(self, name, role):
        def find():
            return next((node for node in self.application.descendants()
                         if node.name.startswith(name) and node.role == role and SHOWING in node.states), None)
        return wait_for(find, f"the control {name!r}; the program wrote {self.program.output!r}", step=0.05)


class TheSession(OwnWindows):
    def test_a_second_start_shows_the_preferences_of_the_first(self):
        self.start(FirstRun=True)
        for token in ({}, {"XDG_ACTIVATION_TOKEN": "a token"}):
            with self.subTest(token):
                self.assertEqual(self.second_start(**token), 0)
                switch = self.hot_key_switch()
                self.wait_for_keyboard()
                self.input.tap(W, CONTROL)
                wait_for(lambda: SHOWING not in switch.states, "no preferences", step=0.05)

    def test_ends_in_order_when_it_is_asked_to(self):
        self.start()
        self.press(self.hot_key_switch())
        os.kill(self.program.pid, signal.SIGTERM)
        self.assertEqual(self.program.status(), 0)
        self.assertEqual(self.program.output, "")

    def test_a_tray_gets_the_item_whose_menu_does_what_it_says(self):
        tray = PublishedTray(self.session.environment["DBUS_SESSION_BUS_ADDRESS"])
        self.addCleanup(tray.close)
        self.start(FirstRun=True)
        self.assertEqual([label for _, label in tray.menu() if label], ["About Tarnwick...", "Preferences...", "Quit"])
        reader = PopUpReader(self.bus, self.program.pid)
        self.addCleanup(reader.close)
        tray.activate()
        reader.wait_for(1)
        self.assertEqual(reader.titles(), ["About Tarnwick...", "Preferences...", "Quit"])
        self.input.tap(ESCAPE)
        reader.wait_for(0)
        tray.choose("Preferences...")
        self.hot_key_switch()
        tray.choose("Quit")
        self.assertEqual(self.program.status(), 0)


class TheirSizes(OwnWindows):
    """They are as large as they have to be, with the frame that they draw themselves where the compositor draws none."""

    def assert_whole(self):
        self.session.picture_at_rest()
        wait_until_asleep([self.program.pid])
        least, now = sizes_of_last_window(self.program.output)
        self.assertIsNotNone(now)
        self.assertEqual(now, least)

    def test_are_kept(self):
        tray = PublishedTray(self.session.environment["DBUS_SESSION_BUS_ADDRESS"])
        self.addCleanup(tray.close)
        self.session.put_pointer_away()
        self.start(WRITTEN)
        self.hot_key_switch()
        self.wait_for_keyboard()
        self.assert_whole()
        tray.choose("About Tarnwick...")
        self.control("Ostravane Home Page", BUTTON)
        self.assert_whole()


class LightAndDark(OwnWindows):
    def lightness(self, empty):
        """The median of what has come onto the screen."""
        picture = self.session.picture()
        left, top, right, bottom = picture.changed_from(empty) or (0, 0, 1, 1)
        return statistics.median(sum(picture.at(x, y)) / 3 for x in range(left, right, 3) for y in range(top, bottom, 3))

    def wait_for_look(self, scheme, empty):
        def is_as():
            lightness = self.lightness(empty)
            return 30 < lightness < 90 if scheme == DARK else lightness > 160
        wait_for(is_as, "dark" if scheme == DARK else "light", step=0.05)

    def test_are_as_the_portal_says(self):
        portal = Portal(self.session.environment["DBUS_SESSION_BUS_ADDRESS"], LIGHT)
        self.addCleanup(portal.close)
        self.session.put_pointer_away()
        empty = self.session.picture_at_rest()
        self.start()
        self.hot_key_switch()
        for scheme in (LIGHT, DARK, LIGHT):
            with self.subTest(scheme):
                portal.set(scheme)
                self.wait_for_look(scheme, empty)

    def test_a_menu_is_so_too(self):
        portal = Portal(self.session.environment["DBUS_SESSION_BUS_ADDRESS"], LIGHT)
        self.addCleanup(portal.close)
        self.input.move(300, 200)
        empty = self.session.picture_at_rest()
        tarnwick = NativeTarnwick(self.session)
        self.addCleanup(tarnwick.stop)
        tarnwick.wait_until_at_rest()
        reader = tarnwick.reader(self.bus)
        self.addCleanup(reader.close)
        for scheme in (LIGHT, DARK):
            with self.subTest(scheme):
                portal.set(scheme)
                tarnwick.pop_up()
                reader.wait_for(1)
                self.wait_for_look(scheme, empty)
                self.input.tap(ESCAPE)
                reader.wait_for(0)


class TheCompositorsEnd(OwnWindows):
    """Where the toolkit would wait for another compositor, as Plasma asks it to, the program ends all the same."""

    def test_leaves_what_was_set_and_one_sentence_and_the_next_start_is_as_usual(self):
        for environment in ({}, {"QT_WAYLAND_RECONNECT": "1"}):
            with self.subTest(environment):
                self.start(environment, EnableHotkey=True)
                switch = self.hot_key_switch()
                self.press(switch)
                wait_for(lambda: CHECKED not in switch.states, "the hot key switched off", step=0)
                self.session.end_compositor()
                self.assertEqual(self.program.status(), 0)
                self.assertEqual(self.program.output.splitlines(), ["Tarnwick ends: the Wayland compositor has gone."])
                self.assertEqual(stored(self)["EnableHotkey"], "false")
                self.session.begin_compositor()
                self.input = self.session.input
                self.run_tarnwick()
                self.assertEqual(self.second_start(), 0)  # has it show its preferences
                self.assertNotIn(CHECKED, self.hot_key_switch().states)
                self.program.stop()


if __name__ == "__main__":
    main()
