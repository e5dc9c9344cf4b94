# SPDX-License-Identifier: MIT
"""The menu is that of the application in front, and follows it."""
import sys
import time

from harness import display_relay
from harness.accessible import Item
from harness.applications import Fixture
from harness.case import DesktopTest, main
from harness.navigation import Navigation
from harness.over import OWN_ENTRY, OverAnApplication
from harness.screen import LEFT
from harness.tarnwick import Tarnwick
from harness.waiting import holds_for, wait_for

EDITOR = ["File", "Edit", "View", "Help"]
VIEWER = ["File", "Image", "Go"]
UNMADE = [Item("Open this menu in the application once", enabled=False)]
OURS = ["", OWN_ENTRY]
PAUSE = 0.65  # seconds, at least, from a switch to its being dealt with
NOTHING_BUT_OURS = [OWN_ENTRY]  # a separator before it takes no room


class SeveralApplications(OverAnApplication):
    """An editor in GTK 3, then others, each test with its own."""

    @classmethod
    def start_application(cls):
        return Fixture(cls.session, "gtk3", title="Editor")

    def start(self, kit, *options, **more):
        application = Fixture(self.session, kit, *options, **more)
        self.addCleanup(application.program.stop)
        return application

    def bring_to_front(self, window, titles):
        self.screen.activate(window)
        self.wait_for_titles(titles + OURS if titles else NOTHING_BUT_OURS)

    def test_follow_each_other_in_the_menu(self):
        viewers = [self.start(kit, menu="viewer.menu", title=f"Viewer {kit}") for kit in ("qt5", "qt6")]
        for viewer in viewers:
            viewer.accessible(self.bus)
            self.bring_to_front(viewer.window, VIEWER)
            self.bring_to_front(self.application.window, EDITOR)

    def test_are_told_apart_when_a_choice_is_made(self):
        viewer = self.start("qt6", menu="viewer.menu", title="Viewer")
        viewer.accessible(self.bus)
        self.bring_to_front(viewer.window, VIEWER)
        self.read_back()
        self.open_menu()
        self.go.choose("Image", "Flip", "Vertical")
        viewer.wait_for_line("chosen", "Image > Flip > Vertical")
        self.assertEqual(self.application.chosen(), [])

    def test_without_a_menu_bar_leave_only_our_own_entry(self):
        for kit in ("gtk3", "qt6"):
            with self.subTest(kit):
                bare = self.start(kit, "--no-bar", title="Bare")
                self.bring_to_front(bare.window, [])
                bare.program.stop()

    def test_with_an_empty_menu_bar_leave_only_our_own_entry(self):
        for kit in ("gtk3", "qt5", "qt6"):
            with self.subTest(kit):
                empty = self.start(kit, menu="empty.menu", title="Empty")
                self.bring_to_front(empty.window, [])
                empty.program.stop()

    def test_with_a_dialog_in_front_show_the_bar_of_the_window_behind(self):
        for kit in ("gtk3", "qt5", "qt6"):
            with self.subTest(kit):
                viewer = self.start(kit, "--dialog", menu="viewer.menu", title="Viewer")
                dialog = self.screen.window_titled("Viewer Dialog")
                self.screen.activate(dialog)
                viewer.accessible(self.bus)
                self.wait_for_titles(VIEWER + OURS)
                viewer.program.stop()

    def test_with_two_windows_show_the_bar_of_the_one_in_front(self):
        for kit in ("gtk3", "qt6"):
            with self.subTest(kit):
                viewer = self.start(kit, "--windows", "2", menu="viewer.menu", title="Viewer")
                viewer.accessible(self.bus)
                self.bring_to_front(self.screen.window_titled("Viewer 2"), VIEWER + ["Window 2"])
                self.bring_to_front(self.screen.window_titled("Viewer"), VIEWER)
                viewer.program.stop()

    def test_with_a_late_menu_bar_are_asked_twice(self):
        late = self.start("gtk3", "--late", "1500", menu="viewer.menu", title="Late")
        self.bring_to_front(late.window, VIEWER)

    def test_close_the_menu_when_another_comes_to_the_front(self):
        viewer = self.start("qt6", menu="viewer.menu", title="Viewer")
        viewer.accessible(self.bus)
        self.bring_to_front(self.application.window, EDITOR)
        self.tarnwick.open()
        self.screen.activate(viewer.window)
        self.tarnwick.wait_until_closed()
        self.wait_for_titles(VIEWER + OURS)
        self.assert_nothing_is_held()

    def test_that_all_have_ended_leave_only_our_own_entry(self):
        viewer = self.start("qt6", menu="viewer.menu", title="Viewer")
        viewer.accessible(self.bus)
        self.bring_to_front(viewer.window, VIEWER)
        viewer.program.stop()
        self.wait_for_titles(EDITOR + OURS)


class InASandbox:
    """The server takes its windows for those of another process, one that is not on the accessibility bus."""

    kit = None

    def start_behind_relay(self):
        server = self.screen.display.get_display_name().lstrip(":").split(".")[0]
        number = str(int(server) + 5000)
        relay = self.session.run(sys.executable, display_relay.__file__, number, server)
        wait_for(lambda: "ready" in relay.output, "a relay for the display")
        return Fixture(self.session, self.kit, title="Sandboxed", menu="viewer.menu", DISPLAY=f":{number}")

    def test_has_its_menu_shown_and_chosen_from(self):
        self.connect_accessibility()
        tarnwick = Tarnwick(self.session)
        wait_for(self.bus.is_enabled, "accessibility switched on", step=0.05)
        fixture = self.start_behind_relay()
        fixture.accessible(self.bus)
        # The hot key takes the state "active" from the window, which is what tells it from others here.
        holds_for(lambda: tarnwick.popups.count() == 0, 1.5, "a menu without a trigger")
        reader = tarnwick.reader(self.bus)
        self.addCleanup(reader.close)
        tarnwick.open()
        reader.wait_for(1)
        self.assertEqual(reader.titles(), VIEWER + OURS)
        Navigation(self.screen, reader).choose("Image", "Flip", "Vertical")
        fixture.wait_for_line("chosen", "Image > Flip > Vertical")


class AProgramOfGtk3InASandbox(InASandbox, DesktopTest):
    kit = "gtk3"


class AProgramOfQt5InASandbox(InASandbox, DesktopTest):
    kit = "qt5"


class AProgramOfQt6InASandbox(InASandbox, DesktopTest):
    kit = "qt6"


class AMenuThatIsFilledWhenItOpens(OverAnApplication):
    """It cannot be read before somebody has opened it in the application, and Tarnwick never does."""

    def start_and_wait(self, kit):
        fixture = Fixture(self.session, kit, menu="kinds.menu", title=f"Late {kit}")
        self.addCleanup(fixture.program.stop)
        bar = fixture.bar_items(self.bus)
        self.wait_for_titles([item.title for item in bar] + OURS)
        return fixture, bar

    @classmethod
    def start_application(cls):
        return Fixture(cls.session, "gtk3", title="Editor")

    def menus_of(self, fixture):
        return [window for window in self.screen.unmanaged_windows() if window.pid == fixture.pid]

    def open_in_the_application(self, fixture, entry):
        self.screen.click(LEFT, at=entry.node.center)
        wait_for(lambda: self.menus_of(fixture), "the application's own menu")
        self.screen.tap("Escape")
        self.screen.tap("Escape")
        wait_for(lambda: not self.menus_of(fixture) and self.screen.grabs_left() == [], "that menu closed")

    def test_says_so_until_then_and_is_mirrored_afterwards(self):
        for kit in ("gtk3", "qt5", "qt6"):
            with self.subTest(kit):
                fixture, bar = self.start_and_wait(kit)
                self.read_back()
                self.open_menu()
                if kit == "gtk3":  # with Qt nobody knows whether it is not simply empty
                    self.assertEqual(self.go.enter("Late"), UNMADE)
                else:
                    self.go.highlight("Late")
                    self.screen.tap("Right")
                holds_for(lambda f=fixture: self.menus_of(f) == [], 0.3, "a menu of the application")
                self.tarnwick.close_menu()
                self.reader.wait_for(0)
                self.open_in_the_application(fixture, bar[-1])
                self.open_menu()
                self.assertEqual([item.title for item in self.go.enter("Late")], ["Only Then"])
                self.go.choose("Only Then")
                fixture.wait_for_line("chosen", "Late > Only Then")
                self.reader.close()
                fixture.program.stop()


class ASwitch(DesktopTest):
    """The pause after a switch gives the new application time to publish its menus."""

    def test_shows_after_the_pause_and_not_at_once(self):
        self.connect_accessibility()
        tarnwick = Tarnwick(self.session)
        wait_for(self.bus.is_enabled, "accessibility switched on", step=0.05)
        editor = Fixture(self.session, "gtk3", title="Editor")
        editor.accessible(self.bus)
        reader = tarnwick.reader(self.bus)
        self.addCleanup(reader.close)
        tarnwick.wait_for_titles(reader, EDITOR + OURS)
        viewer = Fixture(self.session, "gtk3", title="Viewer", menu="viewer.menu")
        self.screen.activate(editor.window)
        tarnwick.wait_for_titles(reader, EDITOR + OURS)
        before = time.monotonic()
        self.screen.activate(viewer.window)
        holds_for(lambda: tarnwick.popups.count() == 0, 0.2, "a menu without a trigger")  # now the pause has begun
        tarnwick.trigger()  # waits in the queue for its end
        wait_for(lambda: tarnwick.popups.count() == 1, "the menu after the pause")
        self.assertGreater(time.monotonic() - before, PAUSE)
        reader.wait_for(1)
        self.assertEqual(reader.titles(), VIEWER + OURS)
        tarnwick.close_menu()
        viewer.program.stop()


if __name__ == "__main__":
    main()
