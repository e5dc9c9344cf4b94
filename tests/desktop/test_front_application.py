# SPDX-License-Identifier: MIT
"""The menu is that of the application in front, and follows it."""
from harness.applications import Fixture
from harness.case import DesktopTest, main
from harness.over import OWN_ENTRY, OverAnApplication
from harness.tarnwick import Tarnwick
from harness.waiting import holds_for, wait_for

EDITOR = ["File", "Edit", "View", "Help"]
VIEWER = ["File", "Image", "Go"]
NOTHING_BUT_OURS = ["", OWN_ENTRY]


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
        self.wait_for_titles(titles + NOTHING_BUT_OURS)

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

    def test_with_a_dialog_in_front_show_the_bar_of_the_window_behind(self):
        for kit in ("gtk3", "qt5", "qt6"):
            with self.subTest(kit):
                viewer = self.start(kit, "--dialog", menu="viewer.menu", title="Viewer")
                dialog = self.screen.window_titled("Viewer Dialog")
                self.screen.activate(dialog)
                viewer.accessible(self.bus)
                self.wait_for_titles(VIEWER + NOTHING_BUT_OURS)
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
        self.wait_for_titles(VIEWER + NOTHING_BUT_OURS)
        self.assert_nothing_is_held()

    def test_that_all_have_ended_leave_only_our_own_entry(self):
        viewer = self.start("qt6", menu="viewer.menu", title="Viewer")
        viewer.accessible(self.bus)
        self.bring_to_front(viewer.window, VIEWER)
        viewer.program.stop()
        self.wait_for_titles(EDITOR + NOTHING_BUT_OURS)


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
        tarnwick.wait_for_titles(reader, EDITOR + NOTHING_BUT_OURS)
        viewer = Fixture(self.session, "gtk3", title="Viewer", menu="viewer.menu")
        holds_for(lambda: tarnwick.popups.count() == 0, 0.2, "a menu without a trigger")  # now the pause has begun
        tarnwick.trigger()  # waits in the queue for its end
        holds_for(lambda: tarnwick.popups.count() == 0, 0.2, "a menu in the pause")
        wait_for(lambda: tarnwick.popups.count() == 1, "the menu after the pause")
        reader.wait_for(1)
        self.assertEqual(reader.titles(), VIEWER + NOTHING_BUT_OURS)
        tarnwick.close_menu()
        viewer.program.stop()


if __name__ == "__main__":
    main()
