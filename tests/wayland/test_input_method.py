# SPDX-License-Identifier: MIT
"""The keys of the menu beside an input method, of which a seat has one: whoever came first, both have their keys."""
from case import main, wait_for
from harness.rest import wait_until_asleep
from native import MenuTest


class BesideAnInputMethod(MenuTest):
    tools = ("fcitx5",)

    def start_method(self):
        method = self.session.run("fcitx5", "--disable=all", "--enable=wayland,waylandim,dbus,keyboard")
        self.addCleanup(method.stop)
        wait_for(lambda: "org.fcitx.Fcitx5" in method.output, f"the input method; it wrote {method.output!r}")
        wait_until_asleep([method.pid])
        return method

    def check_choice(self, fixture):
        self.choose_in_open_menu("File", "New")
        self.wait_until_chosen(fixture, "File > New")
        self.assert_keys_arrive(fixture)

    def check_alone(self, fixture):
        self.open()
        self.check_choice(fixture)
        if self.session.has_input_methods:  # the keys of the menu come past the window
            self.assertNotIn("out", fixture.lines("focus"))

    def check_beside_it(self, fixture):
        self.open()
        wait_for(lambda: "out" in fixture.lines("focus"), "the keyboard taken from the window")
        self.check_choice(fixture)

    def test_that_comes_later_and_goes_again(self):
        self.each(self.check_alone, ("gtk3",))
        method = self.start_method()
        self.each(self.check_beside_it)
        method.stop()
        self.each(self.check_alone, ("qt6",))

    def test_that_comes_while_the_menu_is_open(self):
        def check(fixture):
            self.open()
            self.start_method()
            self._go_to("File")
            self.close()
            self.assert_keys_arrive(fixture)
        self.each(check, ("gtk3",))


if __name__ == "__main__":
    main()
