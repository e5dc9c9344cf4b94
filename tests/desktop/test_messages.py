# SPDX-License-Identifier: MIT
"""How little Tarnwick asks an application when the user comes back to it."""
from gi.repository import GLib

from harness.applications import KITS, Fixture
from harness.case import DesktopTest, main
from harness.monitor import BusMonitor
from harness.over import OWN_ENTRY
from harness.tarnwick import Tarnwick
from harness.waiting import wait_for

AN_ENTRY = {"gtk3": ["Get", "GetRole", "GetState"]}  # its name, its role, its states
AN_ENTRY["qt5"] = AN_ENTRY["qt6"] = [*AN_ENTRY["gtk3"], "GetChildAtIndex"]  # what opens below it tells what it is


class ComingBackToAWindow(DesktopTest):
    """The menu bar of a window is looked for once. Later it is asked whether it is still one, then for its entries."""

    @classmethod
    def prepare(cls):
        bus = cls.connect_accessibility()
        cls.tarnwick = Tarnwick(cls.session)
        wait_for(bus.is_enabled, "accessibility switched on", step=0.05)
        cls.applications = {kit: Fixture(cls.session, kit, title=f"Editor {kit}") for kit in KITS}
        reader = cls.tarnwick.reader(bus)
        for application in cls.applications.values():
            cls.titles = [item.title for item in application.bar_items(bus)]
            cls.screen.activate(application.window)
            cls.tarnwick.wait_for_titles(reader, cls.titles + ["", OWN_ENTRY])
        reader.close()
        cls.monitor = BusMonitor(cls.session, bus.address)

    def asked(self, application, since):
        """The calls from Tarnwick to an application, apart from the first `since` on the bus."""
        return [call for call in self.monitor.calls()[since:]
                if self.process_of(call.sender) == self.tarnwick.pid
                and self.process_of(call.destination) == application.pid]

    def process_of(self, name):
        return self.monitor.ask_bus("GetConnectionUnixProcessID", GLib.Variant("(s)", (name,)))

    def test_costs_one_message_and_those_of_the_bar(self):
        for kit, application in self.applications.items():
            with self.subTest(kit):
                expected = sorted(["GetRole", "GetChildren", *AN_ENTRY[kit] * len(self.titles)])
                self.assertEqual(self.asked_on_coming_to(kit), expected)

    def asked_on_coming_to(self, kit):
        """What is asked when the application comes to the front."""
        other = next(other for name, other in self.applications.items() if name != kit)
        self.screen.activate(other.window)
        self.tarnwick.wait_until_at_rest()
        since = len(self.monitor.calls())
        self.screen.activate(self.applications[kit].window)
        self.tarnwick.wait_until_at_rest()
        return sorted(call.member for call in self.asked(self.applications[kit], since))


if __name__ == "__main__":
    main()
