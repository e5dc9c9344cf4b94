# SPDX-License-Identifier: MIT
"""The application in front keeps its focus, as far as it can tell, while the menu is open."""
from Xlib import X, display
from Xlib.ext import xtest

from harness.case import main
from harness.over import OverFeatherpad, OverGtk3, OverMousepad, OverQt5, OverQt6
from harness.tarnwick import OPTION, TRIGGER
from harness.waiting import wait_for


class EditingThroughTheMenuOf:
    """Cut, Copy and Paste are enabled by what is selected and by what is in the clipboard, while the text has the focus."""

    def setUp(self):
        super().setUp()
        self.screen.tap("a", "Control_L")
        self.screen.tap("Delete")
        wait_for(lambda: self.application.text(self.bus).strip("\n") == "", "an empty text")

    def text(self):
        return self.application.text(self.bus).strip("\n")

    def select_a_letter(self, letter):
        """One only: a GTK program that has once been watched may mix up letters that come too fast."""
        self.screen.type(letter)
        wait_for(lambda: self.text() == letter, f"{letter!r} in the text")
        self.screen.tap("a", "Control_L")

    def assert_enabled_in_the_menu(self, title):
        wait_for(lambda: next(item.enabled for item in self.bar_entry("Edit").node.items() if item.title == title),
                 f"{title} enabled in the application")
        self.read_back()
        self.open_menu()
        self.go.enter("Edit")
        self.assertTrue(self.reader.item(title).enabled, f"{title} is greyed")
        self.close_menu()

    def with_keyboard(self, title):
        self.open_menu()
        self.go.choose("Edit", title)
        self.reader.close()

    def with_pointer(self, title):
        self.open_menu()
        self.go.choose_by_pointer("Edit", title)
        self.reader.close()

    def test_paste(self):
        for way in (self.with_keyboard, self.with_pointer):
            with self.subTest(way.__name__):
                self.screen.tap("a", "Control_L")
                self.screen.tap("Delete")
                self.session.set_clipboard("from elsewhere")
                self.assert_enabled_in_the_menu("Paste")
                way("Paste")
                wait_for(lambda: self.text() == "from elsewhere", f"the text pasted once, not {self.text()!r}")

    def test_copy(self):
        for way in (self.with_keyboard, self.with_pointer):
            with self.subTest(way.__name__):
                self.session.set_clipboard("old")
                self.select_a_letter("s")
                self.assert_enabled_in_the_menu("Copy")
                way("Copy")
                wait_for(lambda: self.session.clipboard() == "s", "the letter in the clipboard")
                self.assertEqual(self.text(), "s")

    def test_cut(self):
        for way in (self.with_keyboard, self.with_pointer):
            with self.subTest(way.__name__):
                self.session.set_clipboard("old")
                self.select_a_letter("o")
                self.assert_enabled_in_the_menu("Cut")
                way("Cut")
                wait_for(lambda: self.text() == "", "the letter gone")
                self.assertEqual(self.session.clipboard(), "o")

    def test_nothing_to_cut_or_copy_without_a_selection(self):
        self.screen.type("x")
        self.screen.tap("Right")
        wait_for(lambda: not any(item.enabled for item in self.bar_entry("Edit").node.items()
                                 if item.title in ("Cut", "Copy")), "nothing to cut or copy in the application")
        self.read_back()
        self.read_back()
        self.open_menu()
        self.go.enter("Edit")
        self.assertFalse(self.reader.item("Cut").enabled)
        self.assertFalse(self.reader.item("Copy").enabled)


class EditingThroughTheMenuOfGtk3(EditingThroughTheMenuOf, OverGtk3):
    pass


class EditingThroughTheMenuOfQt5(EditingThroughTheMenuOf, OverQt5):
    pass


class EditingThroughTheMenuOfQt6(EditingThroughTheMenuOf, OverQt6):
    pass


class EditingThroughTheMenuOfMousepad(EditingThroughTheMenuOf, OverMousepad):
    pass


class EditingThroughTheMenuOfFeatherpad(EditingThroughTheMenuOf, OverFeatherpad):
    pass


class FocusTold:
    """What a window manager hears of the focus of a window."""

    def __init__(self, server, window):
        self._server = server
        self._told = []
        server.create_resource_object("window", window).change_attributes(event_mask=X.FocusChangeMask)
        server.sync()

    def _listen(self):
        self._server.sync()
        self._told += [self._server.next_event() for _ in range(self._server.pending_events())]
        return self._told

    def wait_for_grab(self, do, detail, what):
        before = len(self._listen())
        do()
        wait_for(lambda: any(event.type == X.FocusOut and event.mode == X.NotifyGrab and event.detail == detail
                             for event in self._listen()[before:]), what)

    def losses(self):
        """How the focus went away other than for a grab."""
        return [event.mode for event in self._listen() if event.type == X.FocusOut and event.mode != X.NotifyGrab
                and event.detail != X.NotifyPointer]


class TheFocusOf:
    """Nobody reads the menus here: the programs behave as for a person at the screen."""

    def test_stays_while_the_menu_is_open(self):
        self.screen.type("a")
        self.application.wait_for_line("typed", "a")
        self.tarnwick.open()
        self.screen.tap("Down")
        self.screen.tap("Right")
        self.tarnwick.popups.wait_for(2)
        self.assertEqual(self.focus_lines()[-1:], self.focus_lines()[-1:] and ["in"])
        self.assertEqual(self.screen.focused_window_id(), self.focus_window)
        self.tarnwick.close_menu()
        self.assertEqual(self.screen.focused_window_id(), self.focus_window)

    def test_is_not_told_to_be_lost_when_the_menu_closes(self):
        """Window managers listen, too: KWin takes a window with such an event for one that is not in front any more."""
        told = self.watch_focus_as_kwin()
        self.tarnwick.open()
        self.screen.tap("Down")
        # A window manager might want what comes next: the menu lets go of each key, and takes the keyboard back.
        for key in ("Control_L", "F9"):
            told.wait_for_grab(lambda held=key: self.screen.press(held), X.NotifyAncestor, f"{key} let go of")
        told.wait_for_grab(self.screen.release_everything, X.NotifyNonlinear, "the keyboard taken back")
        self.tarnwick.close_menu()
        self.assertEqual(told.losses(), [])

    def test_is_not_told_to_be_lost_by_a_key_that_is_up_before_the_menu_hears_of_it(self):
        told = self.watch_focus_as_kwin()
        self.tarnwick.open()
        told.wait_for_grab(lambda: self.screen.press("Control_L"), X.NotifyAncestor, "Control let go of")
        for _ in range(5):
            told.wait_for_grab(lambda: self.tap_at_once("F9"), X.NotifyAncestor, "F9 come and gone")
        told.wait_for_grab(self.screen.release_everything, X.NotifyNonlinear, "the keyboard taken back")
        self.tarnwick.close_menu()
        self.assertEqual(told.losses(), [])

    def tap_at_once(self, key):
        """Without time for anybody to act on the press before the release."""
        for kind in (X.KeyPress, X.KeyRelease):
            xtest.fake_input(self.screen.display, kind, self.screen.key_code(key))
        self.screen.display.sync()

    def watch_focus_as_kwin(self):
        server = display.Display(self.session.environment["DISPLAY"])
        self.addCleanup(server.close)
        self.be_kwin(server)
        return FocusTold(server, self.focus_window)

    def be_kwin(self, server):
        """Until the end of the test the window manager bears that name."""
        root = server.screen().root
        check = root.get_full_property(server.get_atom("_NET_SUPPORTING_WM_CHECK"), X.AnyPropertyType).value[0]
        manager = server.create_resource_object("window", check)
        name, text = server.get_atom("_NET_WM_NAME"), server.get_atom("UTF8_STRING")
        before = manager.get_full_property(name, X.AnyPropertyType).value

        def call_it(value):
            manager.change_property(name, text, 8, value)
            server.sync()
        self.addCleanup(call_it, before)
        call_it(b"KWin")

    def test_survives_option_released_first(self):
        self.screen.press(OPTION)
        self.screen.press(TRIGGER)
        self.tarnwick.popups.wait_for(1)
        self.screen.release(OPTION)
        self.screen.release(TRIGGER)
        self.screen.tap("Escape")
        self.tarnwick.wait_until_closed()
        self.screen.type("q")
        self.application.wait_for_line("typed", "q")
        self.assertEqual(self.application.lines("bar"), [], "the menu bar took the keyboard")

    def test_survives_the_key_released_first(self):
        self.screen.press(OPTION)
        self.screen.press(TRIGGER)
        self.screen.release(TRIGGER)
        self.tarnwick.popups.wait_for(1)
        self.screen.release(OPTION)
        self.screen.tap("Escape")
        self.tarnwick.wait_until_closed()
        self.screen.type("w")
        self.application.wait_for_line("typed", "w")
        self.assertEqual(self.application.lines("bar"), [], "the menu bar took the keyboard")

    def test_keys_in_the_menu_do_not_reach_the_text(self):
        self.tarnwick.open()
        for key in ("Down", "Down", "f", "x", "1"):
            self.screen.tap(key)
        self.tarnwick.close_menu()
        self.screen.type("z")
        self.application.wait_for_line("typed", "z")
        self.assertEqual(self.application.typed(), ["z"])

    def setUp(self):
        super().setUp()
        self.focus_window = self.screen.focus_at_rest()

    def focus_lines(self):
        return self.application.lines("focus")


class TheFocusOfGtk3(TheFocusOf, OverGtk3):
    pass


class TheFocusOfQt5(TheFocusOf, OverQt5):
    pass


class TheFocusOfQt6(TheFocusOf, OverQt6):
    pass


class TheFocusOfFeatherpad(OverFeatherpad):
    def test_survives_option_released_first(self):
        before = self.application.text(self.bus)
        self.screen.press(OPTION)
        self.screen.press(TRIGGER)
        self.tarnwick.popups.wait_for(1)
        self.screen.release(OPTION)
        self.screen.release(TRIGGER)
        self.screen.tap("Escape")
        self.tarnwick.wait_until_closed()
        self.screen.type("q")
        wait_for(lambda: self.application.text(self.bus) == before + "q", "the letter in the text")


if __name__ == "__main__":
    main()
