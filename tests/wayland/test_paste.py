# SPDX-License-Identifier: MIT
"""A choice that an application offers only while its text has the keyboard: as often as it is made, it does what it does from
the application's own bar."""
from case import main, wait_for
from native import MenuTest

TIMES = 10


class Paste(MenuTest):
    def test_each_time_it_is_offered_and_carried_out(self):
        def check(fixture):
            self.copy_letter(fixture)
            for letters in range(3, 3 + TIMES):
                self.choose("Edit", "Paste")
                wait_for(lambda count=letters: fixture.lines("text")[-1:] == ["x" * count], f"{letters} letters")
            self.assertEqual(fixture.lines("chosen")[-TIMES:], ["Edit > Paste"] * TIMES)
        self.each(check)


if __name__ == "__main__":
    main()
