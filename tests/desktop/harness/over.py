# SPDX-License-Identifier: MIT
"""Tests with Tarnwick and one application in front."""
from .applications import Fixture, featherpad, mousepad
from .case import DesktopTest
from .navigation import Navigation
from .tarnwick import Tarnwick
from .waiting import wait_for

OWN_ENTRY = "Tarnwick"


class OverAnApplication(DesktopTest):
    """Tarnwick was there first, as after a login; then came the application that `start_application` starts."""

    settings = {}

    @classmethod
    def start_application(cls):
        raise NotImplementedError

    @classmethod
    def prepare(cls):
        cls.start_programs()
        cls.bar = cls.application.bar_items(cls.bus)
        cls.titles = [item.title for item in cls.bar]
        cls.wait_for_titles(cls.titles)

    @classmethod
    def start_programs(cls):
        """Starts Tarnwick first: an application publishes its menus once somebody has switched accessibility on."""
        cls.connect_accessibility()
        cls.tarnwick = Tarnwick(cls.session, **cls.settings)
        wait_for(cls.bus.is_enabled, "accessibility switched on", step=0.05)
        cls.application = cls.start_application()

    @classmethod
    def wait_for_titles(cls, titles):
        """Waits until Tarnwick has time; then one press opens a menu that begins with `titles`."""
        reader = cls.tarnwick.reader(cls.bus)
        try:
            cls.tarnwick.wait_for_titles(reader, titles)
        finally:
            reader.close()

    def setUp(self):
        self.addCleanup(self.tarnwick.close_menu)
        self.screen.activate(self.application.window)
        self.tarnwick.wait_until_at_rest()

    def read_back(self):
        """From here to its end the test reads the menus of Tarnwick."""
        self.reader = self.tarnwick.reader(self.bus)
        self.addCleanup(self.reader.close)
        self.go = Navigation(self.screen, self.reader)

    def open_menu(self):
        self.tarnwick.open()
        self.reader.wait_for(1)

    def close_menu(self):
        self.tarnwick.close_menu()
        self.reader.wait_for(0)

    def bar_entry(self, title):
        return next(item for item in self.bar if item.title == title)

    def assert_does_nothing_at(self, holder, title):
        """Clicks on a greyed entry; closes the menu."""
        self.read_back()
        self.open_menu()
        self.go.enter_by_pointer(holder)
        self.go.point_at(title)
        self.screen.click()
        self.tarnwick.close_menu()
        self.assertEqual(self.application.chosen(), [])

    def assert_nothing_is_held(self):
        self.assertEqual(self.screen.grabs_left(), [])


class OverMousepad(OverAnApplication):
    @classmethod
    def start_application(cls):
        return mousepad(cls.session)


class OverFeatherpad(OverAnApplication):
    @classmethod
    def start_application(cls):
        return featherpad(cls.session)


class OverFixture(OverAnApplication):
    kit = None
    fixture_options = ()

    @classmethod
    def start_application(cls):
        return Fixture(cls.session, cls.kit, *cls.fixture_options)

    def setUp(self):
        super().setUp()
        self.application.forget()


class OverGtk3(OverFixture):
    kit = "gtk3"


class OverQt5(OverFixture):
    kit = "qt5"


class OverQt6(OverFixture):
    kit = "qt6"
