# SPDX-License-Identifier: MIT
"""An application that hangs, changes or quits while its menus are searched: the person keeps the search, or loses it with the
menu, and nothing else is chosen."""
import os
import signal

from harness.applications import Fixture
from harness.case import main
from harness.over import OverGtk3
from harness.searching import Searching
from harness.waiting import wait_for

KITS = ("gtk3", "qt6")
PREVIOUS = "Find Previous, Edit, Find"
CHOSEN = "Edit > Find > Find Previous"


class WhileItIsSearched(Searching, OverGtk3):
    """In front of the application of the class, which is still there afterwards, each test has one of its own."""

    def in_front(self, kit, *options):
        """Brings an application to the front and waits until its menu is read."""
        searched = Fixture(self.session, kit, *options, title=f"Searched {kit}")
        self.addCleanup(searched.program.kill)
        searched.bar_items(self.bus)
        self.wait_for_titles(self.titles)
        return searched

    def stop(self, application):
        os.kill(application.pid, signal.SIGSTOP)
        self.addCleanup(self.go_on, application)

    @staticmethod
    def go_on(application):
        if application.program.running():
            os.kill(application.pid, signal.SIGCONT)

    def wait_until_over(self):
        """The menu has closed, and keyboard and pointer are the application's again."""
        self.reader.wait_for(0)
        self.tarnwick.wait_until_closed()
        self.reader.close()

    def assert_search_works(self, application):
        application.forget()
        self.search("find prev", PREVIOUS)
        self.screen.tap("Return")
        self.wait_until_over()
        application.wait_for_line("chosen", CHOSEN)
        self.assertEqual(application.typed(), [])

    def test_one_that_hangs_before_it_leaves_the_search_to_the_person(self):
        searched = self.in_front("gtk3")
        self.stop(searched)
        self.search("edi", "Edit")
        self.go_back_to_menu("File")
        self.screen.tap("Escape")
        self.wait_until_over()
        self.go_on(searched)
        self.tarnwick.wait_until_at_rest()
        self.assert_search_works(searched)

    def test_one_that_hangs_under_it_keeps_nobody(self):
        for kit in KITS:
            with self.subTest(kit):
                searched = self.in_front(kit)
                self.search("find prev", PREVIOUS)
                self.stop(searched)
                self.screen.tap("Return")
                self.wait_until_over()
                self.assertEqual(searched.chosen(), [])
                self.go_on(searched)
                searched.wait_for_line("chosen", CHOSEN)
                self.tarnwick.wait_until_at_rest()
                self.assertEqual(searched.chosen(), [CHOSEN])
                searched.program.kill()

    def test_one_that_quits_under_it_takes_the_search_along(self):
        for kit in KITS:
            with self.subTest(kit):
                searched = self.in_front(kit)
                self.search("find prev", PREVIOUS)
                searched.program.kill()
                self.wait_until_over()
                self.tarnwick.wait_until_at_rest()
                self.assert_search_works(self.application)

    def test_one_that_quits_while_it_is_read_takes_the_search_along(self):
        searched = self.in_front("qt6")
        self.stop(searched)
        self.search("edi", "Edit")
        searched.program.kill()
        self.wait_until_over()
        self.tarnwick.wait_until_at_rest()
        self.assert_search_works(self.application)

    def with_another_bar(self):
        """An application that has another menu bar by now, under a search for what the first one held."""
        searched = self.in_front("qt6", "--new-bar")
        self.search("find prev", PREVIOUS)
        os.kill(searched.pid, signal.SIGUSR1)
        wait_for(lambda: self.titles_in(searched) == ["Second"], "the other bar")
        return searched

    def titles_in(self, application):
        """Those of its menu bar, of which there is none for a moment."""
        bar = application.accessible(self.bus).menu_bar()
        return bar and [item.title for item in bar.items()]

    def test_what_is_gone_is_not_chosen_and_what_came_is_found(self):
        searched = self.with_another_bar()
        self.screen.tap("Return")
        self.wait_until_over()
        self.assertEqual(searched.chosen(), [])
        for window in (self.application.window, searched.window):  # a bar is looked for at a switch
            self.tarnwick.wait_until_at_rest()
            self.assertEqual(searched.chosen(), [])
            self.screen.activate(window)
        self.tarnwick.wait_until_at_rest()
        self.search("below", "Below, Second")
        self.screen.tap("Return")
        self.wait_until_over()
        searched.wait_for_line("chosen", "Second > Below")
        self.assertEqual(searched.chosen(), ["Second > Below"])

    def test_what_is_gone_cannot_be_shown_in_its_menu(self):
        searched = self.with_another_bar()
        self.screen.tap("Right")
        wait_for(lambda: self.reader.titles(0)[:1] == ["File"], "the menu, as it was opened")
        self.screen.tap("Return")
        self.tarnwick.close_menu()
        self.assertEqual(searched.chosen(), [])


if __name__ == "__main__":
    main()
