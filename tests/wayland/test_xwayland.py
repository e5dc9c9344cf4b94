# SPDX-License-Identifier: MIT
"""Programs that run on XWayland, under a Tarnwick that runs on Wayland itself: the main job is as over native ones."""
from case import DATA, fixture_program, main, wait_for
from native import OWN_ENTRY, TITLES, MenuTest
from windows import Windows

TIMES = 3
VIEWER_TITLES = ["File", "Image", "Go", "", OWN_ENTRY]
ON_XWAYLAND = {"gtk3": {"GDK_BACKEND": "x11"}, "gtk4": {"GDK_BACKEND": "x11"}, "qt6": {"QT_QPA_PLATFORM": "xcb"}}


class OverProgramsOnXWayland(MenuTest):
    session_options = {"xwayland": True}
    environment_of = ON_XWAYLAND
    tools = ("Xwayland", "xprop", "xdotool")

    def each_on_xwayland(self, check):
        def checked(fixture):
            self.assertEqual(self.session.windows_on_xwayland(), [fixture.pid])
            check(fixture)
        self.each(checked, ON_XWAYLAND)

    def test_the_menu_opens_at_the_pointer_and_a_choice_by_keyboard_is_carried_out(self):
        def check(fixture):
            self.assertEqual(self.open(), TITLES)
            self.assertEqual(self.reader.menus()[0].frame[:2], self.pointer)
            self.close()
            self.choose("File", "New")
            self.wait_until_chosen(fixture, "File > New")
            self.assert_keys_arrive(fixture)
        self.each_on_xwayland(check)

    def test_a_choice_by_pointer_is_carried_out(self):
        def check(fixture):
            self.open()
            self.point_at("File")
            self.reader.wait_for(2)
            self.click_at("Open...")
            self.wait_until_closed()
            self.wait_until_chosen(fixture, "File > Open...")
            self.assert_keys_arrive(fixture)
        self.each_on_xwayland(check)

    def test_what_needs_the_focus_is_offered_and_carried_out(self):
        def check(fixture):
            self.copy_letter(fixture)
            for letters in range(3, 3 + TIMES):
                self.choose("Edit", "Paste")
                wait_for(lambda count=letters: fixture.lines("text")[-1:] == ["x" * count], f"{letters} letters")
        self.each_on_xwayland(check)

    def test_a_switch_between_the_two_kinds_shows_the_menu_of_each(self):
        self.session.put_pointer_away()
        windows = Windows(self.session)
        self.addCleanup(windows.stop)
        self.start("qt6", "viewer.menu")
        wait_for(lambda: windows.active()[0] == 1, "the native window")
        there = self.start("gtk3", "editor.menu", **ON_XWAYLAND["gtk3"])
        wait_for(lambda: windows.active()[0] == 2, "the window on XWayland")
        self.assertEqual(self.session.windows_on_xwayland(), [there.pid])
        for window, titles in ((1, VIEWER_TITLES), (2, TITLES), (1, VIEWER_TITLES)):
            windows.activate(window)
            self.assertEqual(self.open(), titles)
            self.close()

    def start(self, kit, menu, **environment):
        program = self.session.run(fixture_program(kit), DATA / menu, **environment)
        self.addCleanup(program.stop)
        wait_for(self.bus.application(program.pid).menu_bar, f"the menu bar of {kit}", step=0.05)
        return program


if __name__ == "__main__":
    main()
