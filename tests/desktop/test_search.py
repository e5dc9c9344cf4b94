# SPDX-License-Identifier: MIT
"""Search in the open menu: an entry is found by typing, wherever it is."""
from gi.repository import Gio

from harness.accessible import (CHECKED, ENABLED, FOCUSED, POPUP_MENU, SENSITIVE, SHOWING, VISIBLE, Accessible)
from harness.case import main
from harness.over import OverGtk3, OverMousepad, OverQt6
from harness.screen import MIDDLE
from harness.searching import Searching
from harness.waiting import dispatch_events, wait_for

EDITABLE, FOCUSABLE = 7, 11
LIST, LIST_ITEM, TEXT, NOTIFICATION = 31, 32, 61, 101
APOSTROPHE = 48  # the code of the key; a dead acute on the layout that is used
SEARCH = ("gapplication", "action", "example.quorlane.Tarnwick", "search")


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


class AsAScreenReaderReadsIt(Searching, OverGtk3):
    def setUp(self):
        super().setUp()
        self.begin_search()
        self.addCleanup(self.end_search)
        self.menu = self.reader.menus()[0]

    def end_search(self):
        self.screen.tap("Escape")
        self.screen.tap("Escape")
        self.reader.wait_for(0)

    def nodes(self, role):
        return [node for node in self.menu.descendants() if node.role == role]

    def node(self, role):
        return wait_for(lambda: next(iter(self.nodes(role)), None), f"a node of the role {role} below the menu")

    def rows(self):
        return [(row.role, row.name) for row in self.node(LIST).children]

    def test_the_menu_leads_to_the_field(self):
        self.assertEqual((self.menu.role, self.menu.name), (POPUP_MENU, "Search the menus"))
        field = self.node(TEXT)
        self.assertEqual(field.name, "Search the menus")
        self.assertEqual(field, self.reader.focused)
        self.assertTrue({EDITABLE, FOCUSABLE, FOCUSED, SHOWING, VISIBLE} <= field.states, sorted(field.states))
        self.screen.type("find")
        self.wait_for_told("Find, Edit")
        self.assertEqual(field.text(), "find")
        self.assertNotIn(FOCUSED, field.states)

    def test_and_to_the_rows_each_in_its_place_with_its_states(self):
        self.screen.type("find")
        self.wait_for_told("Find, Edit")
        wait_for(lambda: self.rows() == [(LIST_ITEM, "Find, Edit"), (LIST_ITEM, "Find Next, Edit, Find"),
                                         (LIST_ITEM, "Find Previous, Edit, Find")], "the three rows")
        self.screen.tap("Down")
        self.wait_for_told("Find Next, Edit")
        rows = self.node(LIST).children
        self.assertEqual(self.reader.focused, rows[1])
        self.assertEqual([row.index_in_parent for row in rows], [0, 1, 2])
        self.assertEqual([FOCUSED in row.states for row in rows], [False, True, False])
        self.assertTrue(all({SHOWING, VISIBLE, ENABLED, SENSITIVE} <= row.states for row in rows))

    def test_what_is_checked_and_what_is_greyed_is_told_as_such(self):
        for title, is_checked, is_greyed in (("Word Wrap", True, False), ("Line Numbers", False, False),
                                             ("Save As...", False, True)):
            self.screen.tap("a", "Control_L")
            self.screen.type(title.lower())
            self.wait_for_told(f"{title}, ")
            self.assertEqual(CHECKED in self.reader.focused.states, is_checked, title)
            self.assertEqual(SENSITIVE not in self.reader.focused.states, is_greyed, title)

    def test_the_number_of_results_is_announced(self):
        announced = self.announcements()
        self.screen.type("find")
        wait_for(lambda: dispatch_events() or "Results: 3" in announced, f"the number announced, not {announced}")
        self.screen.type(" next")
        wait_for(lambda: dispatch_events() or "Results: 1" in announced, f"the new number announced, not {announced}")
        self.assertEqual([node.name for node in self.nodes(NOTIFICATION)], ["Results: 1"])

    def announcements(self):
        """What is read aloud from now on: a notification that comes to show, or what newer toolkits say outright."""
        told = []

        def on_event(_connection, sender, path, _interface, signal, arguments):
            detail, on, _rest, value = arguments.unpack()[:4]
            node = Accessible(self.bus, sender, path)
            if signal == "Announcement":
                told.append(value)
            elif detail == "showing" and on and node.role == NOTIFICATION:
                told.append(node.name)
        for signal in ("StateChanged", "Announcement"):
            subscription = self.bus.connection.signal_subscribe(
                None, "org.a11y.atspi.Event.Object", signal, None, None, Gio.DBusSignalFlags.NONE, on_event)
            self.addCleanup(self.bus.connection.signal_unsubscribe, subscription)
        return told

    def test_the_entries_are_there_again_after_it(self):
        self.go_back_to_menu("File")
        self.assertEqual(self.reader.titles()[:len(self.titles)], self.titles)
        self.screen.tap("slash")
        self.wait_for_told("Search the menus")


class InQt6(FindsAndChooses, OverQt6):
    pass


class Typing(Searching, OverGtk3):
    def setUp(self):
        super().setUp()
        self.begin_search()
        self.addCleanup(self.end_search)

    def end_search(self):
        self.screen.tap("Escape")
        self.screen.tap("Escape")
        self.reader.wait_for(0)

    def field(self):
        return next(node for node in self.reader.menus()[0].descendants() if node.role == TEXT)

    def wait_for_text(self, text):
        wait_for(lambda: self.field().text() == text, f"{text!r} in the field")

    def test_dead_keys_go_into_the_letters_after_them(self):
        self.session.call("setxkbmap", "us", "intl")
        self.addCleanup(self.session.call, "setxkbmap", "us")
        self.screen.type("wo")
        self.screen.tap(APOSTROPHE)
        self.screen.type("erd")
        self.wait_for_text("wo\u00e9rd")

    def test_compose_makes_one_character_of_several_keys(self):
        self.session.call("setxkbmap", "us", "-option", "compose:menu")
        self.addCleanup(self.session.call, "setxkbmap", "us", "-option", "")
        self.screen.tap("Multi_key")
        self.screen.type("ss")
        self.wait_for_text("\u00df")


    def test_text_is_pasted_with_the_keys_and_the_button_for_it(self):
        self.session.set_clipboard("find ")
        self.screen.tap("v", "Control_L")
        self.wait_for_text("find ")
        self.screen.tap("Insert", "Shift_L")
        self.wait_for_text("find find ")
        self.session.set_clipboard("next", "primary")
        self.screen.click(button=MIDDLE, at=self.field().center)
        wait_for(lambda: "next" in self.field().text(), "the selected text, too")

    def test_text_is_selected_copied_and_cut(self):
        self.screen.type("find")
        self.wait_for_text("find")
        self.screen.tap("a", "Control_L")
        self.screen.tap("c", "Control_L")
        wait_for(lambda: self.session.clipboard() == "find", "the copy")
        self.screen.type("cutter")
        self.wait_for_text("cutter")
        for _ in "ter":
            self.screen.tap("Left", "Shift_L")
        self.screen.tap("x", "Control_L")
        self.wait_for_text("cut")
        wait_for(lambda: self.session.clipboard() == "ter", "what was cut")


class InMousepad(Searching, OverMousepad):
    def test_save_as_opens_its_dialog(self):
        self.begin_search()
        self.screen.type("save as")
        self.wait_for_told("Save As..., File")
        self.screen.tap("Return")
        self.screen.window_titled("Save As")
        self.screen.tap("Escape")


if __name__ == "__main__":
    main()
