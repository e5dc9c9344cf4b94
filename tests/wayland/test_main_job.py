# SPDX-License-Identifier: MIT
"""The main job over native programs: the menu bar, and a choice by keyboard and by pointer."""
from case import main
from native import TITLES, MenuTest


class TheMainJob(MenuTest):
    def test_by_keyboard(self):
        def check(fixture):
            self.assertEqual(self.open(), TITLES)
            self.choose_in_open_menu("File", "New")
            self.wait_until_chosen(fixture, "File > New")
            self.assert_keys_arrive(fixture)
        self.each(check)

    def test_by_pointer(self):
        def check(fixture):
            self.open()
            self.point_at("File")
            self.reader.wait_for(2)
            self.click_at("Open...")
            self.wait_until_closed()
            self.wait_until_chosen(fixture, "File > Open...")
            self.assert_keys_arrive(fixture)
        self.each(check)


if __name__ == "__main__":
    main()
