# SPDX-License-Identifier: MIT
"""What ends while the menu is open: the program, the compositor; and an application that does not answer."""
import os
import signal

from case import NativeFixture, main, wait_for
from native import KITS, OWN_ENTRY, MenuTest, NativeTarnwick


class EachWithATarnwickOfItsOwn(MenuTest):
    @classmethod
    def prepare(cls):
        cls.connect_accessibility().switch_on()

    def setUp(self):
        super().setUp()
        self.start()

    def start(self):
        self.tarnwick = NativeTarnwick(self.session)
        self.addCleanup(self.tarnwick.stop)
        self.tarnwick.wait_until_at_rest()
        self.reader = self.tarnwick.reader(self.bus)
        self.addCleanup(self.reader.close)


class TheEnd(EachWithATarnwickOfItsOwn):
    def test_killed_with_the_menu_open_it_leaves_keys_and_pointer_free(self):
        for kit in KITS:
            with self.subTest(kit):
                fixture = NativeFixture(self.session, kit)
                self.wait_until_readable(fixture)
                self.open()
                self.tarnwick.program.kill()
                self.input.click(self.pointer)
                wait_for(lambda: fixture.lines("button"), "the click in the application")
                self.assert_keys_arrive(fixture)
                fixture.end()
                self.start()


class AnApplicationThatStops(EachWithATarnwickOfItsOwn):
    def test_its_menu_opens_and_closes_all_the_same(self):
        for kit in KITS:
            with self.subTest(kit):
                fixture = NativeFixture(self.session, kit)
                self.wait_until_readable(fixture)
                self.open()
                self.close()
                os.kill(fixture.pid, signal.SIGSTOP)
                try:
                    self.assertEqual(self.open()[-1], OWN_ENTRY)
                    self.close()
                finally:
                    os.kill(fixture.pid, signal.SIGCONT)
                self.assert_keys_arrive(fixture)
                fixture.end()


class TheCompositorsEnd(EachWithATarnwickOfItsOwn):
    def test_ends_the_program_too(self):
        fixture = NativeFixture(self.session, "gtk3")
        self.wait_until_readable(fixture)
        self.open()
        self.session.end_compositor()
        self.tarnwick.program.status()


if __name__ == "__main__":
    main()
