# SPDX-License-Identifier: MIT
"""Menu bars that are exported for a place outside the window are mirrored and pressed as those in it are."""
import os
import signal

from gi.repository import GLib

from harness.accessible import Item
from harness.applications import Fixture
from harness.case import main
from harness.monitor import BusMonitor
from harness.outside import MENUS, REGISTRAR, Exporting, Registrar
from harness.over import OWN_ENTRY, OverAnApplication
from harness.waiting import holds_for, wait_for

SEPARATOR = Item("", separator=True)


class OverMenusOutside(OverAnApplication):
    """Tarnwick with a monitor of the session bus, and an application whose menus are in no tree."""

    titles = []

    @classmethod
    def prepare(cls):
        cls.monitor = BusMonitor(cls.session, cls.session.environment["DBUS_SESSION_BUS_ADDRESS"])
        cls.start_programs()
        cls.wait_for_titles(cls.titles)

    def assert_chosen_once(self, *what):
        wait_for(lambda: list(what) == self.application.chosen(), f"{what} chosen")
        holds_for(lambda: list(what) == self.application.chosen(), 0.2, "it was chosen more than once")
        self.assert_nothing_is_held()

    def own_calls(self):
        calls = self.monitor.calls()
        senders = {call.sender for call in calls}
        own = {name for name in senders if self.monitor.ask_bus(
            "GetConnectionUnixProcessID", GLib.Variant("(s)", (name,))) == self.tarnwick.pid}
        return [call for call in calls if call.sender in own]

    def assert_does_no_harm(self, allowed, events=("clicked",)):
        calls = self.own_calls()
        members = [call.member for call in calls if call.interface == MENUS]
        self.assertIn("GetLayout", members, "else the silence of the others proves nothing")
        self.assertLessEqual(set(members), {"GetLayout", "GetGroupProperties", "Event", *allowed})
        self.assertEqual([call for call in calls if call.member == "Event" and call.interface == MENUS and
                          not set(events) & set(call.texts)], [])
        self.assertLessEqual({call.member for call in calls if call.interface == REGISTRAR}, {"GetMenuForWindow"})
        self.assertEqual([call for call in calls if REGISTRAR in call.texts and call.member == "RequestName"], [])


class TheOnlyBarOfAProgram(OverMenusOutside):
    """Nobody collects it; all numbers change with each choice."""

    titles = ["File", "View", "Help"]

    @classmethod
    def start_application(cls):
        return Exporting(cls.session, "--renumbers")

    def test_is_shown_with_its_marks_and_pressed(self):
        self.read_back()
        self.open_menu()
        self.assertEqual(self.reader.items(), [Item(title, holds_menu=True) for title in self.titles] +
                         [SEPARATOR, Item(OWN_ENTRY, holds_menu=True)])
        self.assertEqual(self.go.enter("View"), [Item("Word Wrap", checked=True), Item("Small"), Item("Large", checked=True)])
        self.go.leave()
        self.assertEqual(self.go.enter("File"),
                         [Item("New"), Item("Open Recent", holds_menu=True), SEPARATOR, Item("Save", enabled=False)])
        self.go.choose("Open Recent", "notes_1.txt")
        self.assert_chosen_once("File > Open Recent > notes_1.txt at")
        self.open_menu()
        self.go.choose_by_pointer("Help", "About")
        self.assert_chosen_once("File > Open Recent > notes_1.txt at", "Help > About at")
        self.assert_does_no_harm(allowed=())
        self.assertEqual(self.application.lines("asked").count("AboutToShow"), 0)


class WhileAMenuIsOpen(OverMenusOutside):
    """What the program does to its menus then."""

    titles = ["File", "View", "Help"]

    @classmethod
    def start_application(cls):
        return Exporting(cls.session)

    def tell(self, number, done):
        os.kill(self.application.program.pid, number)
        wait_for(lambda: self.application.lines(done), f"the program {done}")

    def test_other_numbers_and_then_none(self):
        """In this order, since there is no way back from the second."""
        self.read_back()
        self.open_menu()
        self.go.enter("File")
        self.tell(signal.SIGUSR1, "renumbered")
        self.go.choose("Open Recent", "notes_1.txt")
        self.assert_chosen_once("File > Open Recent > notes_1.txt at")
        self.open_menu()
        self.go.enter("File")
        self.tell(signal.SIGUSR2, "left")
        self.go.choose("New")
        self.tarnwick.wait_until_closed()
        self.open_menu()
        self.assertEqual(self.reader.items()[-1], Item(OWN_ENTRY, holds_menu=True))
        self.close_menu()
        self.assertEqual(self.application.chosen(), ["File > Open Recent > notes_1.txt at"])


class TheCollectedBarOfQt(OverMenusOutside):
    """Somebody collects menu bars, and the program is not in the accessibility tree."""

    titles = ["File", "Edit", "View", "Help"]

    @classmethod
    def start_application(cls):
        cls.registrar = Registrar(cls.session)
        return Fixture(cls.session, "qt6", AT_SPI_BUS_ADDRESS="unix:path=/nowhere")

    def test_is_shown_and_pressed_also_when_its_collector_has_ended(self):
        self.read_back()
        self.open_menu()
        # The last one has an underscore, which Qt exports as if it stood for a mnemonic.
        self.assertEqual(self.go.enter("View")[:-1], [
            Item("Word Wrap", checked=True), Item("Line Numbers"), Item("Status Bar", enabled=False, checked=True),
            SEPARATOR, Item("Previous Page")])
        self.go.leave()
        self.go.choose("File", "Open Recent", "Older", "2019.txt")
        self.assert_chosen_once("File > Open Recent > Older > 2019.txt")
        self.open_menu()
        self.go.choose_by_pointer("Help", "About Editor")
        self.assert_chosen_once("File > Open Recent > Older > 2019.txt", "Help > About Editor")
        self.assert_does_no_harm(allowed=("AboutToShow",), events=("clicked", "closed"))
        self.registrar.stop()
        self.open_menu()
        self.go.choose("Help", "Contents")
        self.assert_chosen_once("File > Open Recent > Older > 2019.txt", "Help > About Editor", "Help > Contents")


if __name__ == "__main__":
    main()
