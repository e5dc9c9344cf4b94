# SPDX-License-Identifier: MIT
"""The hot key that a desktop gives by its portal: what it grants counts, and is shown."""
import os
import pathlib

from case import NativeFixture, WaylandTest, main, wait_for
from harness.accessible import SHOWING
from harness.preferences import LABEL
from native import TITLES, MenuTest, NativeTarnwick
from portal import Desktop, install

PORTAL = "/usr/libexec/xdg-desktop-portal"
ENTRY = "example.quorlane.Tarnwick.desktop"
GIVEN = "Keys given by the desktop: "


class WithAPortal(WaylandTest.session_class):
    """The session bus starts the portal of the system when it is called; Tarnwick is installed, as its desktop entry says."""

    tools = (*WaylandTest.session_class.tools, PORTAL)

    def _own_environment(self):
        environment = super()._own_environment()
        install(self.directory, environment)
        entries = pathlib.Path(environment["XDG_DATA_HOME"], "applications")
        entries.mkdir(parents=True)
        (entries / ENTRY).write_text("[Desktop Entry]\nType=Application\nName=Tarnwick\n"
                                     f"Exec={os.environ['TARNWICK_BINARY']}\n")
        return environment


class ThePortal(MenuTest):
    session_class = WithAPortal

    @classmethod
    def prepare(cls):
        cls.connect_accessibility().switch_on()

    def setUp(self):
        super().setUp()
        self.desktop = Desktop(self.session.environment["DBUS_SESSION_BUS_ADDRESS"])
        self.addCleanup(self.desktop.close)

    def start(self, **settings):
        self.tarnwick = NativeTarnwick(self.session, **settings)
        self.addCleanup(self.tarnwick.stop)
        self.reader = self.tarnwick.reader(self.bus)
        self.addCleanup(self.reader.close)

    def wait_until_bound(self, times=1):
        wait_for(lambda: len(self.desktop.wanted) == times, "the portal asked for keys")

    def wait_until_shown(self, text):
        application = self.bus.application(self.tarnwick.pid)
        def shown():
            return [node.name for node in application.descendants() if node.role == LABEL and SHOWING in node.states]
        wait_for(lambda: text in shown(), f"{text!r}, not {shown()}", step=0.05)

    def open(self):
        """Opens the menu with the keys that the desktop has given: the whole one, at the pointer."""
        self.tarnwick.wait_until_at_rest()
        self.desktop.press()
        self.reader.wait_for(1)
        self.assertEqual(self.reader.titles(), TITLES)
        self.assertEqual(self.reader.menus()[0].frame[:2], self.pointer)

    def test_the_desktops_keys_open_the_menu_at_the_pointer(self):
        self.start()
        self.wait_until_bound()
        self.assertEqual(self.desktop.programs, ["example.quorlane.Tarnwick"])
        self.assertEqual(self.desktop.wanted, [("pop-up", "ALT+z")])

        def check(fixture):
            self.choose("File", "Open...")
            self.wait_until_chosen(fixture, "File > Open...")
            self.assert_keys_arrive(fixture)
        self.each(check)

    def test_other_keys_than_those_asked_for_are_shown(self):
        self.start(FirstRun=False)
        self.wait_until_shown(GIVEN + "Super+F12. Others can be chosen in its settings.")
        self.desktop.change("Super+F11")
        self.wait_until_shown(GIVEN + "Super+F11. Others can be chosen in its settings.")

    def test_a_refusal_is_shown(self):
        self.desktop.grants = None
        self.start(FirstRun=False)
        self.wait_until_shown("The desktop has not given these keys. Record others, or allow them in its settings.")

    def test_keys_that_the_desktop_takes_back_are_missed_and_had_again_at_the_next_start(self):
        self.start(FirstRun=False)
        self.wait_until_shown(GIVEN + "Super+F12. Others can be chosen in its settings.")
        self.desktop.end_session()
        self.wait_until_shown("The desktop has not given these keys. Record others, or allow them in its settings.")
        self.assertEqual(self.desktop.sessions, [])
        self.tarnwick.program.stop()
        self.start()
        self.wait_until_bound(2)

    def test_a_portal_that_is_started_anew_is_asked_again(self):
        self.start()
        self.wait_until_bound()
        first, = self.portals()
        next_one = self.session.run(PORTAL, "--replace")
        self.addCleanup(next_one.stop)
        self.wait_until_bound(2)
        wait_for(lambda: first not in self.portals(), "the former portal gone")
        fixture = NativeFixture(self.session, "gtk3")
        self.addCleanup(fixture.end)
        self.wait_until_readable(fixture)
        self.open()
        self.close()

    def portals(self):
        return self.session.services(PORTAL)

    def test_at_the_end_the_keys_are_given_back(self):
        self.start()
        self.wait_until_bound()
        self.tarnwick.program.stop()
        wait_for(lambda: not self.desktop.sessions, "no session")


if __name__ == "__main__":
    main()
