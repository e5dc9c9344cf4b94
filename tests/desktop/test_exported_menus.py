# SPDX-License-Identifier: MIT
"""Windows that export their menu bar as a model are mirrored and pressed as those with a bar of widgets are."""
import os

from harness.accessible import Item
from harness.applications import Application, Fixture
from harness.case import DesktopTest, main
from harness.monitor import BusMonitor
from harness.navigation import Navigation
from harness.over import OWN_ENTRY, OverAnApplication
from harness.tarnwick import Tarnwick
from harness.waiting import holds_for, wait_for

TITLES = ["File", "View", "Help"]
SEPARATOR = Item("", separator=True)
FILE = [Item("New"), Item("Open Recent", holds_menu=True), SEPARATOR, Item("Save As..."), Item("R&D_x")]
VIEW = [Item("Word Wrap", checked=True), Item("Status Bar", enabled=False), SEPARATOR, Item("Small"),
        Item("Medium", checked=True), Item("Large"), SEPARATOR, Item("Previous Page")]


class OverAnExport(OverAnApplication):
    """An application whose menus are not in the accessibility tree: what they hold is known from elsewhere."""

    titles = TITLES

    @classmethod
    def prepare(cls):
        cls.start_programs()
        cls.wait_for_titles(cls.titles)


class TheMenuOfGtk4(OverAnExport):
    options = ()

    @classmethod
    def start_application(cls):
        return Fixture(cls.session, "gtk4", *cls.options, menu="exported.menu")

    def setUp(self):
        super().setUp()
        self.application.forget()

    def assert_chosen_once(self, path):
        self.application.wait_for_line("chosen", path)
        holds_for(lambda: self.application.chosen() == [path], 0.2, "it was chosen more than once")
        self.assert_nothing_is_held()

    def test_has_the_titles_of_the_model_and_then_its_own_entry(self):
        self.read_back()
        self.open_menu()
        self.assertEqual(self.reader.items(), [Item(title, holds_menu=True) for title in TITLES] +
                         [SEPARATOR, Item(OWN_ENTRY, holds_menu=True)])

    def test_has_sections_marks_and_greyed_entries(self):
        self.read_back()
        self.open_menu()
        self.assertEqual(self.go.enter("File"), FILE)
        self.assertEqual(self.go.enter("Open Recent"),
                         [Item("notes.txt", enabled=False), Item("Older", holds_menu=True)])
        self.go.leave()
        self.go.leave()
        self.assertEqual(self.go.enter("View"), VIEW)

    def test_has_the_shortcuts_of_the_model(self):
        self.screen.activate(self.application.window)
        report = self.session.call(os.environ["TARNWICK_INSPECT"], "--all")
        for line in ("New\tCtrl+N", "Save As...\tCtrl+Shift+S", "Large\tCtrl+3", "Previous Page\tAlt+Left",
                     "Contents\tShift+F1"):
            self.assertIn(line, report)

    def test_chooses_once_with_the_keyboard(self):
        self.read_back()
        self.open_menu()
        self.go.choose("File", "Open Recent", "Older", "2019.txt")
        self.assert_chosen_once("File > Open Recent > Older > 2019.txt")

    def test_chooses_once_with_the_pointer(self):
        self.read_back()
        self.open_menu()
        self.go.choose_by_pointer("Help", "About Editor")
        self.assert_chosen_once("Help > About Editor")

    def test_shows_the_check_that_a_choice_has_changed(self):
        self.read_back()
        for checked in (True, False):
            self.open_menu()
            self.assertIn(Item("Word Wrap", checked=checked), self.go.enter("View"))
            self.go.choose("Word Wrap")
            self.assert_chosen_once("View > Word Wrap")
            self.application.forget()

    def test_shows_the_one_of_several_that_was_chosen(self):
        self.read_back()
        for title, path in (("Large", "View > Large"), ("Medium", "View > Medium")):
            self.open_menu()
            self.go.choose("View", title)
            self.assert_chosen_once(path)
            self.application.forget()
            self.open_menu()
            marks = {item.title: item.checked for item in self.go.enter("View") if item.title}
            self.assertEqual([mark for mark in ("Small", "Medium", "Large") if marks[mark]], [title])
            self.close_menu()

    def test_leaves_a_greyed_entry_alone(self):
        self.assert_does_nothing_at("View", "Status Bar")


class TheMenuOfGtk4WithABarInTheWindow(TheMenuOfGtk4):
    """Its bar is in the accessibility tree then, but without what its closed menus hold."""

    options = ("--show-bar",)


class TheMenuOfAProgramWithTheModule(OverAnExport):
    """A program of GTK 3 that makes menus when they open. The module of GTK has it make them."""

    titles = ["File", "View", "Keys", "Late"]

    @classmethod
    def start_application(cls):
        return Fixture(cls.session, "gtk3", "--module", menu="kinds.menu")

    def setUp(self):
        super().setUp()
        self.application.forget()

    def assert_chosen_once(self, path):
        self.application.wait_for_line("chosen", path)
        holds_for(lambda: self.application.chosen() == [path], 0.2, "it was chosen more than once")
        self.assert_nothing_is_held()

    def test_has_what_was_never_open_in_it(self):
        self.read_back()
        self.open_menu()
        self.assertEqual(self.go.enter("Late"), [Item("Only Then")])
        self.go.leave()
        self.go.enter("File")
        self.assertEqual(self.go.enter("Open Recent"), [Item("one.txt"), Item("two.txt")])

    def test_chooses_once_with_the_keyboard(self):
        self.read_back()
        self.open_menu()
        self.go.choose("File", "Open Recent", "two.txt")
        self.assert_chosen_once("File > Open Recent > two.txt")

    def test_chooses_once_with_the_pointer(self):
        self.read_back()
        self.open_menu()
        self.go.choose_by_pointer("Late", "Only Then")
        self.assert_chosen_once("Late > Only Then")


class TheMenuOfGucharmap(OverAnExport):
    """A program of GTK 3 on a desktop that shows menu bars itself: then none is in the window."""

    tools = ("gucharmap",)
    titles = ["File", "View", "Search", "Go", "Help"]

    @classmethod
    def start_application(cls):
        settings = cls.session.directory / "home/.config/gtk-3.0/settings.ini"
        settings.parent.mkdir(parents=True)
        settings.write_text("[Settings]\ngtk-shell-shows-menubar=1\n")
        return Application(cls.session, ["gucharmap"], "Character Map")

    def setUp(self):
        super().setUp()
        self.assertIsNone(self.bus.application(self.application.pid).menu_bar())

    def marked(self):
        self.open_menu()
        marked = [item.title for item in self.go.enter("View") if item.checked]
        self.close_menu()
        return marked

    def test_has_what_the_program_exports(self):
        self.read_back()
        self.open_menu()
        self.assertEqual(self.go.enter("View"), [
            Item("By Script", checked=True), Item("By Unicode Block"), SEPARATOR,
            Item("Show only glyphs from this font"), Item("Snap Columns to Power of Two"), SEPARATOR, Item("Zoom In"),
            Item("Zoom Out"), Item("Normal Size")])

    def test_changes_what_was_chosen(self):
        self.read_back()
        self.assertEqual(self.marked(), ["By Script"])
        for title in ("By Unicode Block", "By Script"):
            self.open_menu()
            self.go.choose("View", title)
            wait_for(lambda chosen=title: self.marked() == [chosen], f"{title} chosen", step=0.1)

    def test_opens_a_window_that_comes_to_the_front(self):
        self.read_back()
        self.open_menu()
        self.go.choose("Search", "Find")
        dialog = self.screen.window_titled("Find")
        self.screen.wait_until_active(dialog)
        self.screen.tap("Escape")
        self.screen.wait_until_active(self.application.window)


class TheMenuOfGtk4OnTheBus(DesktopTest):
    """What an exporter gets to see."""

    def test_is_looked_at_and_left_again(self):
        bus = self.connect_accessibility()
        monitor = BusMonitor(self.session, self.session.environment["DBUS_SESSION_BUS_ADDRESS"])
        tarnwick = Tarnwick(self.session)
        wait_for(bus.is_enabled, "accessibility switched on", step=0.05)
        fixture = Fixture(self.session, "gtk4", menu="exported.menu")
        reader = tarnwick.reader(bus)
        go = Navigation(self.screen, reader)
        tarnwick.wait_for_titles(reader, TITLES)
        tarnwick.open()
        reader.wait_for(1)
        for title in TITLES:
            go.enter(title)
            go.leave()
        go.choose("Help", "Contents")
        fixture.wait_for_line("chosen", "Help > Contents")
        reader.close()

        def asked():
            return [call.member for call in monitor.calls() if call.interface in ("org.gtk.Menus", "org.gtk.Actions")]
        wait_for(lambda: asked().count("Start") == asked().count("End"), "each look ended", step=0.1)
        members = asked()
        self.assertGreaterEqual(members.count("Start"), 4)
        self.assertEqual(members.count("Activate"), 1)
        self.assertLessEqual(set(members), {"Start", "End", "DescribeAll", "Describe", "Activate"})


if __name__ == "__main__":
    main()
