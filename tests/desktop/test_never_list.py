# SPDX-License-Identifier: MIT
"""What Tarnwick never does to other programs, because it would harm them."""
from gi.repository import GLib

from harness.applications import KITS, Fixture
from harness.case import DesktopTest, main
from harness.monitor import BusMonitor
from harness.navigation import Navigation
from harness.outside import REGISTRAR, Exporting
from harness.over import OWN_ENTRY
from harness.tarnwick import Tarnwick
from harness.waiting import wait_for

FORBIDDEN = {
    "org.freedesktop.DBus.Properties.GetAll": "it ends programs of Qt before 6.5",
    "org.a11y.atspi.Registry.RegisterEvent": "it makes every program send its keys over the bus",
    "org.a11y.atspi.Cache.GetItems": "it makes GTK programs watch their keys",
    "org.a11y.atspi.Collection.GetMatches": "it hangs spreadsheets",
    "org.a11y.atspi.Application.GetApplicationBusAddress": "it makes GTK programs watch their keys",
    "org.a11y.atspi.DeviceEventController.RegisterKeystrokeListener": "it makes every program send its keys over the bus",
    "org.a11y.atspi.DeviceEventController.RegisterDeviceEventListener": "the same",
}
# All that may be sent to who exports menus on the session bus. SetState tells that a submenu opens, or chooses something.
OF_EXPORTS = {"org.gtk.Menus.Start", "org.gtk.Menus.End", "org.gtk.Actions.DescribeAll", "org.gtk.Actions.Describe",
              "org.gtk.Actions.Activate",
              "com.canonical.dbusmenu.GetLayout", "com.canonical.dbusmenu.GetGroupProperties", "com.canonical.dbusmenu.Event"}
PRESS = "org.a11y.atspi.Action.DoAction"


class AWholeScenario(DesktopTest):
    @classmethod
    def prepare(cls):
        bus = cls.connect_accessibility()
        cls.monitors = [BusMonitor(cls.session, address)
                        for address in (bus.address, cls.session.environment["DBUS_SESSION_BUS_ADDRESS"])]
        cls.tarnwick = Tarnwick(cls.session, EnableMouseButton=True)
        wait_for(bus.is_enabled, "accessibility switched on", step=0.05)
        cls.tarnwick.wait_until_ready()
        cls.chosen = [cls.walk_through(kit) for kit in KITS]
        cls.look_at_what_a_module_exports()
        cls.choose_of_what_is_exported_for_outside()
        cls.calls = [cls.own_calls(monitor) for monitor in cls.monitors]

    @classmethod
    def walk_through(cls, kit):
        """Opens every menu of a program, by keyboard and by mouse, and chooses one entry; returns the program."""
        fixture = Fixture(cls.session, kit)
        titles = [item.title for item in fixture.bar_items(cls.bus)]
        reader = cls.tarnwick.reader(cls.bus)
        go = Navigation(cls.screen, reader)
        cls.tarnwick.wait_for_titles(reader, titles + ["", OWN_ENTRY])
        cls.tarnwick.open()
        reader.wait_for(1)
        for title in titles:
            go.enter(title)
            go.leave()
        cls.tarnwick.close_menu()
        reader.wait_for(0)
        cls.screen.click(8)
        reader.wait_for(1)
        go.choose("File", "Open Recent", "Older", "2018.txt")
        fixture.wait_for_line("chosen", "File > Open Recent > Older > 2018.txt")
        reader.close()
        return fixture

    @classmethod
    def look_at_what_a_module_exports(cls):
        fixture = Fixture(cls.session, "gtk3", "--module", menu="kinds.menu", title="Module")
        reader = cls.tarnwick.reader(cls.bus)
        go = Navigation(cls.screen, reader)
        cls.tarnwick.wait_for_titles(reader, [item.title for item in fixture.bar_items(cls.bus)] + ["", OWN_ENTRY])
        cls.tarnwick.open()
        reader.wait_for(1)
        for title in ("File", "Late"):
            go.enter(title)
            go.leave()
        cls.tarnwick.close_menu()
        reader.close()

    @classmethod
    def choose_of_what_is_exported_for_outside(cls):
        """As Firefox exports it: to tell it that a menu opens would bring its own bar back."""
        exporter = Exporting(cls.session)
        reader = cls.tarnwick.reader(cls.bus)
        go = Navigation(cls.screen, reader)
        cls.tarnwick.wait_for_titles(reader, ["File", "View", "Help", "", OWN_ENTRY])
        cls.tarnwick.open()
        reader.wait_for(1)
        for title in ("View", "Help"):
            go.enter(title)
            go.leave()
        go.choose("File", "Open Recent", "Older", "2019.txt")
        wait_for(exporter.chosen, "an entry of what is exported chosen")
        reader.close()

    @classmethod
    def own_calls(cls, monitor):
        """What the program under test has called, over all its connections to one bus."""
        own = {name for name in cls.names_on(monitor) if cls.process_of(monitor, name) == cls.tarnwick.pid}
        assert own, "the program under test is on neither bus"
        return [call for call in monitor.calls() if call.sender in own]

    @classmethod
    def names_on(cls, monitor):
        return {call.sender for call in monitor.calls()}

    @classmethod
    def process_of(cls, monitor, name):
        return monitor.ask_bus("GetConnectionUnixProcessID", GLib.Variant("(s)", (name,)))

    def test_was_seen(self):
        """Else the silence of the others proves nothing."""
        methods = {call.method for call in self.calls[0]}
        self.assertIn("org.a11y.atspi.Accessible.GetChildren", methods)
        self.assertIn("org.freedesktop.DBus.Properties.Get", methods)

    def test_holds_no_forbidden_call(self):
        for method, reason in FORBIDDEN.items():
            with self.subTest(method, reason=reason):
                self.assertEqual([call for call in self.calls[0] if call.method == method], [])

    def test_sends_exporters_of_menus_nothing_that_shows_or_changes_something(self):
        sent = {call.method for call in self.calls[1] if call.interface.startswith(("org.gtk.", "com.canonical."))}
        for method in ("org.gtk.Menus.Start", "com.canonical.dbusmenu.GetLayout"):
            self.assertIn(method, sent, "nothing was looked at")
        self.assertLessEqual(sent, OF_EXPORTS | {f"{REGISTRAR}.GetMenuForWindow"})

    def test_tells_exporters_of_menus_only_what_was_chosen(self):
        """No menu opens, closes or is hovered for them."""
        events = [call for call in self.calls[1] if call.method == "com.canonical.dbusmenu.Event"]
        self.assertEqual([call.texts for call in events], [["clicked"]])

    def test_leaves_the_screen_reader_off(self):
        self.assertEqual([call for call in self.calls[1] if "ScreenReaderEnabled" in call.texts and
                          call.member == "Set"], [])

    def test_leaves_the_application_menus_to_their_registrar(self):
        requests = [call for calls in self.calls for call in calls if call.member == "RequestName"]
        self.assertNotEqual(requests, [], "its own name is one")
        self.assertEqual([call for call in requests if REGISTRAR in call.texts], [])

    def test_presses_only_what_was_chosen(self):
        self.assertEqual(len([call for call in self.calls[0] if call.method == PRESS]), len(self.chosen))
        for fixture in self.chosen:
            self.assertEqual(fixture.chosen(), ["File > Open Recent > Older > 2018.txt"])


if __name__ == "__main__":
    main()
