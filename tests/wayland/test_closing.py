# SPDX-License-Identifier: MIT
"""What closes the menu without a hand on it: another window, another workspace, a locked screen. Afterwards keys and pointer
are free, and the next menu opens."""
import os
import signal

from case import NativeFixture, UnseenFixture, main, wait_for
from harness.wayland_input import SIZE
from native import OWN_ENTRY, TITLES, A, MenuTest

LOCKED = 0x11, 0x22, 0x33  # the colour of the screen then


class WhatClosesTheMenu(MenuTest):
    def begin(self):
        fixture = NativeFixture(self.session, "gtk3")
        self.addCleanup(fixture.end)
        self.wait_until_readable(fixture)
        return fixture

    def lock(self):
        self.locker = self.session.run("swaylock", "--color", bytes(LOCKED).hex())
        wait_for(self.is_locked, f"the screen locked; swaylock wrote {self.locker.output!r}", step=0.05)

    def is_locked(self):
        return self.session.picture().at(1, 1) == LOCKED

    def unlock(self):
        os.kill(self.locker.pid, signal.SIGUSR1)
        self.locker.status()

    def assert_all_is_free(self, fixture):
        """Keys and clicks go to the application, and the next menu opens."""
        self.assert_keys_arrive(fixture)
        self.input.click(self.pointer)
        wait_for(lambda: fixture.lines("button"), "the click in the application")
        self.assertEqual(self.open(), TITLES)
        self.close()

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

    def test_the_screen_is_locked(self):
        fixture = self.begin()
        self.assertEqual(self.open(), TITLES)
        self.lock()
        try:
            self.wait_until_closed()
            self.input.tap(A)  # into the password
        finally:
            self.unlock()
        wait_for(lambda: fixture.lines("focus")[-1] == "in", "the focus in the application again")
        self.assertEqual(fixture.lines("typed"), [])
        self.assert_all_is_free(fixture)

    def test_the_screen_is_locked_where_no_window_is_active(self):
        self.input.move(SIZE[0] // 2, SIZE[1] // 2)
        self.assertEqual(self.open(), [OWN_ENTRY])
        self.lock()
        try:
            self.wait_until_closed()
        finally:
            self.unlock()
        self.assertEqual(self.open(), [OWN_ENTRY])
        self.close()


if __name__ == "__main__":
    main()
