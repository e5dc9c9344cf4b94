# SPDX-License-Identifier: MIT
"""What closes the menu without a hand on it: another window, another workspace, a locked screen. Afterwards keys and pointer
are free, and the next menu opens."""
from case import NativeFixture, UnseenFixture, main, wait_for
from harness.rest import wait_until_asleep
from harness.wayland_input import SIZE
from native import OWN_ENTRY, TITLES, A, MenuTest


class ClosingTest(MenuTest):
    def begin(self, end=NativeFixture.end):
        fixture = NativeFixture(self.session, "gtk3")
        self.addCleanup(end, fixture)
        self.wait_until_readable(fixture)
        return fixture

    def assert_all_is_free(self, fixture):
        """Keys and clicks go to the application, and the next menu opens."""
        self.assert_keys_arrive(fixture)
        self.input.click(self.pointer)
        wait_for(lambda: fixture.lines("button"), "the click in the application")
        self.assertEqual(self.open(), TITLES)
        self.close()


class WhatClosesTheMenu(ClosingTest):
    def test_another_window_comes_to_the_front(self):
        first = self.begin()
        self.assertEqual(self.open(), TITLES)
        second = UnseenFixture(self.session, "qt6")
        self.addCleanup(second.end)
        self.wait_until_closed()
        self.assert_keys_arrive(second)
        self.assertEqual(first.lines("typed"), [])
        self.assertEqual(self.open(), TITLES)
        self.close()

    def test_another_workspace_comes(self):
        fixture = self.begin()
        self.assertEqual(self.open(), TITLES)
        self.session.go_to_workspace(2)
        self.wait_until_closed()
        self.assertEqual(self.open(), [OWN_ENTRY])
        self.session.go_to_workspace(1)
        self.wait_until_closed()
        wait_for(lambda: fixture.lines("focus")[-1] == "in", "the focus in the application again")
        self.assert_all_is_free(fixture)


class TheLock(ClosingTest):
    def test_closes_it_and_has_the_keys(self):
        fixture = self.begin(UnseenFixture.end)  # the screen shows no window any more, perhaps
        self.assertEqual(self.open(), TITLES)
        self.session.lock()
        self.wait_until_closed()
        self.input.tap(A)  # into the password
        if self.session.can_be_unlocked:
            self.session.unlock()
            wait_for(lambda: fixture.lines("focus")[-1] == "in", "the focus in the application again")
            self.assertEqual(fixture.lines("typed"), [])
            self.assert_all_is_free(fixture)
        else:
            self.input.wait_until_heard()
            wait_until_asleep([fixture.pid])
            self.assertEqual(fixture.lines("typed"), [])


class TheLockWhereNoWindowIsActive(ClosingTest):
    def test_closes_it(self):
        self.input.move(SIZE[0] // 2, SIZE[1] // 2)
        self.assertEqual(self.open(), [OWN_ENTRY])
        self.session.lock()
        self.wait_until_closed()
        if self.session.can_be_unlocked:
            self.session.unlock()
            self.assertEqual(self.open(), [OWN_ENTRY])
            self.close()


if __name__ == "__main__":
    main()
