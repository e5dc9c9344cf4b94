# SPDX-License-Identifier: MIT
"""The menu at the pointer shows what the application's own menu bar shows, and what is chosen happens there."""
import re

from harness.accessible import Item
from harness.case import main
from harness.over import OWN_ENTRY, OverFeatherpad, OverGtk3, OverMousepad, OverQt5, OverQt6
from harness.screen import LEFT
from harness.waiting import holds_for, wait_for


class TheMenuOf:
    """What holds over every application."""

    def test_has_the_titles_of_the_bar_and_then_its_own_entry(self):
        self.read_back()
        self.open_menu()
        own = [Item("", separator=True), Item(OWN_ENTRY, holds_menu=True)]
        self.assertEqual(self.reader.items(), self.bar + own)

    def test_has_submenus_that_read_like_the_application_s(self):
        self.read_back()
        expected = {title: self.bar_entry(title).node.items() for title in self.titles}
        self.open_menu()
        for title in self.titles:
            with self.subTest(title):
                self.assertEqual(self.go.enter(title), expected[title])
                self.go.leave()

    def test_opens_submenus_under_the_pointer(self):
        self.read_back()
        expected = self.bar_entry("Edit").node.items()
        self.open_menu()
        self.assertEqual(self.go.enter_by_pointer("Edit"), expected)

    def test_opens_with_its_top_left_corner_at_the_pointer(self):
        for point in ((120, 90), (401, 203), (640, 17)):
            with self.subTest(point):
                self.screen.move(*point)
                self.assertEqual(self.tarnwick.open().frame[:2], point)
                self.tarnwick.close_menu()

    def test_turns_over_at_the_edges_of_the_screen(self):
        self.screen.move(1275, 795)
        x, y, width, height = self.tarnwick.open().frame
        self.assertLessEqual(x + width, 1280)
        self.assertLessEqual(y + height, 800)
        self.assertLess(x + width / 2, 1275)
        self.assertLess(y + height / 2, 795)

    def test_is_closed_by_escape_and_lets_go_of_everything(self):
        self.screen.move(200, 60)
        self.tarnwick.open()
        self.screen.tap("Escape")
        self.tarnwick.wait_until_closed()
        self.assert_next_key_arrives("k")
        self.assert_nothing_is_held()

    def test_is_closed_by_a_click_elsewhere_and_lets_go_of_everything(self):
        self.screen.move(200, 60)
        self.tarnwick.open()
        self.screen.click(LEFT, at=(1200, 20))
        self.tarnwick.wait_until_closed()
        self.assert_next_key_arrives("m")
        self.assert_nothing_is_held()

    def test_moves_to_the_entry_that_begins_with_a_typed_letter(self):
        self.read_back()
        self.open_menu()
        self.screen.tap("h")
        wait_for(lambda: self.reader.focused_title() == "Help", "Help highlighted")
        self.screen.tap("Return")
        self.assertEqual(self.reader.wait_for(2), self.bar_entry("Help").node.items())

    def assert_next_key_arrives(self, letter):
        before = self.application.text(self.bus)
        self.screen.type(letter)
        wait_for(lambda: self.application.text(self.bus) == before + letter, f"{letter!r} in the text")


class TheMenuOfAFixture(TheMenuOf):
    """What can be seen because the fixtures write down what happens in them."""

    def assert_chosen_once(self, path):
        self.application.wait_for_line("chosen", path)
        holds_for(lambda: self.application.chosen() == [path], 0.2, "it was chosen more than once")
        self.assert_nothing_is_held()

    def test_shows_what_is_checked_and_greyed_and_separated(self):
        self.read_back()
        self.open_menu()
        self.assertEqual(self.go.enter("View")[2:], [
            Item("Status Bar", enabled=False, checked=True), Item("", separator=True), Item("Previous Page"),
            Item("R&D_Notes")])

    def test_chooses_once_with_the_keyboard(self):
        self.read_back()
        self.open_menu()
        self.go.choose("Help", "About Editor")
        self.assert_chosen_once("Help > About Editor")

    def test_chooses_once_with_the_pointer(self):
        self.read_back()
        self.open_menu()
        self.go.choose_by_pointer("Help", "Contents")
        self.assert_chosen_once("Help > Contents")

    def test_chooses_three_levels_deep_with_the_keyboard(self):
        self.read_back()
        self.open_menu()
        self.go.choose("File", "Open Recent", "Older", "2018.txt")
        self.assert_chosen_once("File > Open Recent > Older > 2018.txt")

    def test_chooses_three_levels_deep_with_the_pointer(self):
        self.read_back()
        self.open_menu()
        self.go.choose_by_pointer("File", "Open Recent", "Older", "2019.txt")
        self.assert_chosen_once("File > Open Recent > Older > 2019.txt")

    def test_shows_the_check_that_a_choice_has_changed(self):
        self.read_back()
        self.open_menu()
        before = self.reader_item_checked("View", "Word Wrap")
        self.go.choose("Word Wrap")
        self.application.wait_for_line("chosen", "View > Word Wrap")
        self.open_menu()
        self.assertEqual(self.reader_item_checked("View", "Word Wrap"), not before)

    def reader_item_checked(self, holder, title):
        return next(item.checked for item in self.go.enter(holder) if item.title == title)

    def test_does_nothing_at_a_greyed_entry(self):
        self.assert_does_nothing_at("View", "Status Bar")

    def test_opens_again_and_again_with_one_own_entry(self):
        self.read_back()
        for _ in range(3):
            self.open_menu()
            self.assertEqual(self.reader.titles(), self.titles + ["", OWN_ENTRY])
            self.tarnwick.close_menu()
            self.reader.wait_for(0)

    def test_has_its_own_commands_in_its_own_entry(self):
        self.read_back()
        self.open_menu()
        self.assertEqual([item.title for item in self.go.enter(OWN_ENTRY)],
                         ["About Tarnwick...", "Preferences...", "Quit"])


class TheMenuOfGtk3(TheMenuOfAFixture, OverGtk3):
    pass


class TheMenuOfQt5(TheMenuOfAFixture, OverQt5):
    pass


class TheMenuOfQt6(TheMenuOfAFixture, OverQt6):
    pass


class TheMenuOfMousepad(TheMenuOf, OverMousepad):
    def test_opens_one_window_when_new_window_is_chosen(self):
        self.assertEqual(len(self.application.windows()), 1)
        self.read_back()
        self.open_menu()
        self.go.choose("File", "New Window")
        wait_for(lambda: len(self.application.windows()) == 2, "a second window")
        holds_for(lambda: len(self.application.windows()) == 2, 0.3, "a third window")
        self.screen.wait_until_active(self.application.windows()[1])
        self.screen.tap("w", "Control_L")  # closes its only tab
        wait_for(lambda: len(self.application.windows()) == 1, "one window again")

    def test_changes_a_setting_when_that_is_chosen(self):
        setting = ("gsettings", "get", "org.xfce.mousepad.preferences.view", "word-wrap")
        self.assertEqual(self.session.call(*setting).strip(), "false")
        self.read_back()
        self.open_menu()
        self.go.choose("Document", "Word Wrap")
        wait_for(lambda: self.session.call(*setting).strip() == "true", "long lines wrapped")


class TheMenuOfFeatherpad(TheMenuOf, OverFeatherpad):
    def test_pastes_one_date_when_that_is_chosen(self):
        before = self.application.text(self.bus)
        self.read_back()
        self.open_menu()
        self.go.choose("Edit", "Paste Date and Time")
        wait_for(lambda: self.application.text(self.bus) != before, "a date in the text")
        holds_for(lambda: len(re.findall(r"\d\d:\d\d", self.application.text(self.bus)[len(before):])) == 1, 0.3,
                  "a second date in the text")

    def test_changes_a_setting_when_a_check_is_chosen(self):
        self.read_back()
        self.open_menu()
        self.assertIn(Item("Wrap Lines", checked=True), self.go.enter("Options"))
        self.go.choose("Wrap Lines")
        self.open_menu()
        self.assertIn(Item("Wrap Lines"), self.go.enter("Options"))


if __name__ == "__main__":
    main()
