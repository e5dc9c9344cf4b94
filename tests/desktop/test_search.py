# SPDX-License-Identifier: MIT
"""Search in the open menu: an entry is found by typing, wherever it is."""
import os
import signal

from harness.case import main
from harness.over import OverAnApplication, OverGtk3, OverMousepad, OverQt6
from harness.applications import Fixture
from harness.waiting import dispatch_events, wait_for

SEARCH = ("gapplication", "action", "example.quorlane.Tarnwick", "search")


class Searching:
    """What is typed goes into the field; the highlighted row is what a screen reader is told of."""

    def begin_search(self):
        self.read_back()
        self.screen.move(500, 300)
        self.open_menu()
        self.screen.tap("slash")
        self.wait_for_told("Search the menus")

    def wait_for_told(self, text):
        """Waits until the screen reader is told that what begins so has the focus; toolkits differ in the shortcuts they tell."""
        wait_for(lambda: (dispatch_events() or self.reader.focused) and self.reader.focused.name.startswith(text),
                 f"{text!r} told, not {self.reader.focused and self.reader.focused.name!r}")

    def go_back_to_menu(self, first):
        self.screen.tap("Escape")
        self.screen.tap("Down")
        wait_for(lambda: self.reader.focused_title() == first, "the menu again, with its first entry highlighted")


class FindsAndChooses(Searching):
    def test_return_chooses_what_was_found(self):
        self.begin_search()
        self.screen.type("find prev")
        self.wait_for_told("Find Previous, Edit, Find")
        self.screen.tap("Return")
        self.reader.wait_for(0)
        wait_for(lambda: self.application.chosen() == ["Edit > Find > Find Previous"], "the choice in the application")
        self.assertEqual(self.application.typed(), [])
        self.assert_nothing_is_held()

    def test_right_shows_it_in_its_menu_and_it_is_pressed_there(self):
        self.begin_search()
        self.screen.type("find prev")
        self.wait_for_told("Find Previous, Edit, Find")
        self.screen.tap("Right")
        self.reader.wait_for(3)
        wait_for(lambda: self.reader.focused_title() == "Find Previous", "the entry highlighted in its menu")
        self.assertEqual(self.application.chosen(), [])
        self.screen.tap("Return")
        self.reader.wait_for(0)
        wait_for(lambda: self.application.chosen() == ["Edit > Find > Find Previous"], "the choice in the application")

    def test_escape_goes_back_and_a_second_one_closes(self):
        self.begin_search()
        self.screen.type("cut")
        self.wait_for_told("Cut, Edit")
        self.go_back_to_menu("File")
        self.screen.tap("Escape")
        self.reader.wait_for(0)
        wait_for(lambda: self.screen.grabs_left() == [], "keyboard and pointer given back")
        self.assertEqual(self.application.typed(), [])
        self.assertEqual(self.application.chosen(), [])

    def test_control_and_f_begin_it(self):
        self.read_back()
        self.open_menu()
        self.screen.tap("f", "Control_L")
        self.wait_for_told("Search the menus")
        self.screen.type("contents")
        self.wait_for_told("Contents, Help")
        self.screen.tap("Return")
        wait_for(lambda: self.application.chosen() == ["Help > Contents"], "the choice in the application")
        self.assertEqual(self.application.typed(), [])

    def test_the_action_opens_the_menu_in_search(self):
        self.read_back()
        self.session.call(*SEARCH)
        self.reader.wait_for(1)
        self.wait_for_told("Search the menus")
        self.screen.type("contents")
        self.wait_for_told("Contents, Help")
        self.screen.tap("Return")
        wait_for(lambda: self.application.chosen() == ["Help > Contents"], "the choice in the application")
        self.assertEqual(self.application.typed(), [])


class InGtk3(FindsAndChooses, OverGtk3):
    pass


class InQt6(FindsAndChooses, OverQt6):
    pass


class InMousepad(Searching, OverMousepad):
    def test_save_as_opens_its_dialog(self):
        self.begin_search()
        self.screen.type("save as")
        self.wait_for_told("Save As..., File")
        self.screen.tap("Return")
        self.screen.window_titled("Save As")
        self.screen.tap("Escape")


class OfAnApplication(Searching, OverAnApplication):
    @classmethod
    def start_application(cls):
        return Fixture(cls.session, "gtk3", title="Searched")

    def test_that_hangs_leaves_the_search_to_the_person(self):
        self.begin_search()
        self.screen.type("cut")
        self.wait_for_told("Cut, Edit")
        self.screen.tap("Escape")
        self.close_menu()
        os.kill(self.application.pid, signal.SIGSTOP)
        self.addCleanup(os.kill, self.application.pid, signal.SIGCONT)
        self.open_menu()
        self.screen.tap("slash")
        self.wait_for_told("Search the menus")
        self.screen.type("edi")
        self.wait_for_told("Edit")
        self.go_back_to_menu("File")
        self.screen.tap("Escape")
        self.reader.wait_for(0)
        wait_for(lambda: self.screen.grabs_left() == [], "keyboard and pointer given back")


if __name__ == "__main__":
    main()
