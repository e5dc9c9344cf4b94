# SPDX-License-Identifier: MIT
"""The hot key that Plasma gives: pressed over native programs, recorded anew, and what is left of it after the program's end."""
from case import NativeFixture, main, wait_for
from harness.accessible import SHOWING
from harness.preferences import BUTTON
from native import A, CONTROL, OPTION, TITLES, MenuTest, NativeTarnwick, X

Z, W = 52, 25
OVER = ("gtk3", "gtk4", "qt6")


class TheHotKey(MenuTest):
    """Each test starts a Tarnwick of its own."""

    keys = (Z, OPTION)  # what opens the menu

    @classmethod
    def prepare(cls):
        cls.connect_accessibility().switch_on()

    def start(self, **settings):
        self.tarnwick = NativeTarnwick(self.session, **settings)
        self.addCleanup(self.tarnwick.stop)
        self.tarnwick.wait_until_at_rest()
        self.reader = self.tarnwick.reader(self.bus)
        self.addCleanup(self.reader.close)

    def end(self, how):
        self.reader.close()
        how()

    def open(self):
        """Opens the menu with the hot key: the whole one, at the pointer."""
        self.tarnwick.wait_until_at_rest()
        key, *held = self.keys
        for modifier in held:
            self.input.press(modifier)
        self.input.tap(key)
        self.reader.wait_for(1)
        for modifier in reversed(held):
            self.input.release(modifier)
        self.assertEqual(self.reader.titles(), TITLES)
        self.assertEqual(self.reader.menus()[0].frame[:2], self.pointer)

    def open_and_close(self, fixture, how=None):
        """Returns when the application has the keyboard again."""
        before = fixture.lines("focus").count("in")
        self.open()
        (how or self.close)()
        wait_for(lambda: fixture.lines("focus").count("in") > before, "the focus in the application")

    def assert_free(self, fixture):
        """Option-Z goes to the application."""
        before = fixture.lines("typed")
        self.input.tap(Z, OPTION)
        wait_for(lambda: len(fixture.lines("typed")) > len(before), "the key in the application")
        self.assertEqual(fixture.lines("typed"), [*before, "z"])

    def test_opens_the_menu_at_the_pointer_and_a_choice_is_carried_out(self):
        def check(fixture):
            self.choose("File", "Open...")
            self.wait_until_chosen(fixture, "File > Open...")
            self.assert_keys_arrive(fixture)
        self.start()
        self.each(check, OVER)

    def test_recorded_anew_it_is_the_new_keys_and_no_more_the_former(self):
        self.start(FirstRun=False)  # so the preferences are open
        recorder = self.control("Shortcut, Alt+Z")
        recorder.press()
        wait_for(lambda: recorder.name.startswith("Shortcut, recording"), "recording")
        self.input.tap(X, CONTROL, OPTION)
        wait_for(lambda: recorder.name.startswith("Shortcut, Ctrl+Alt+X"), "the new keys")
        self.input.tap(W, CONTROL)
        wait_for(lambda: SHOWING not in recorder.states, "no window", step=0.05)
        fixture = NativeFixture(self.session, "gtk3")
        self.addCleanup(fixture.end)
        self.wait_until_readable(fixture)
        self.keys = (X, CONTROL, OPTION)
        self.open_and_close(fixture)
        self.assert_free(fixture)

    def control(self, name):
        application = self.bus.application(self.tarnwick.pid)
        return wait_for(lambda: next((node for node in application.descendants() if node.name.startswith(name)
                                      and node.role == BUTTON and SHOWING in node.states), None), name, step=0.05)

    def test_after_the_end_the_keys_are_the_applications_until_the_next_start(self):
        def check(fixture):
            self.start()
            self.open_and_close(fixture)
            self.end(self.tarnwick.program.stop)
            self.assert_free(fixture)
            self.start()
            self.open_and_close(fixture)
            self.end(self.tarnwick.program.stop)
        self.each(check, OVER)

    def test_after_a_kill_the_next_start_has_them_again(self):
        def check(fixture):
            self.start()
            self.open_and_close(fixture, lambda: self.end(self.tarnwick.program.kill))
            self.start()
            self.open_and_close(fixture)
            self.end(self.tarnwick.program.stop)
        self.each(check, ("gtk3",))


if __name__ == "__main__":
    main()
