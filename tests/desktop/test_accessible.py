# SPDX-License-Identifier: MIT
"""Tarnwick itself for those who hear it or use it with the keyboard alone: read by a client that knows nothing of it."""

from harness.accessible import (CHECKED, ENABLED, FOCUSED, MENU_ITEM, POPUP_MENU, SENSITIVE, SEPARATOR, SHOWING,
                                VISIBLE)
from harness.applications import Fixture
from harness.case import DesktopTest, main
from harness.navigation import Navigation
from harness.over import OWN_ENTRY
from harness.preferences import BUTTON, CHECK_BOX, LABEL, SPIN_BUTTON, Preferences, wait_until_stored
from harness.tarnwick import Tarnwick
from harness.waiting import TimedOut, wait_for

FOCUSABLE = 11
NO_ROLES = {0, 67}  # invalid, unknown
# What stands around the things that mean something.
FILLER, FRAME = 20, 23
CONTAINERS = {FILLER, SEPARATOR}
PANES = ("Hot Key", "General", "About")


class ThePreferences(DesktopTest):
    @classmethod
    def prepare(cls):
        cls.connect_accessibility().switch_on()
        cls.opened = cls.session.directory / "opened"
        cls.session.replace_program("xdg-open", f'echo "$1" >>{cls.opened}')
        cls.tarnwick = Tarnwick(cls.session, FirstRun=False)
        cls.preferences = Preferences(cls.session, cls.bus, cls.tarnwick)

    def showing(self):
        return [node for node in self.preferences.application.descendants() if SHOWING in node.states]

    def focused(self):
        return next((node for node in self.showing() if FOCUSED in node.states), None)

    def picture(self):
        """The pixels of the screen, row by row."""
        frame = self.screen.root.get_geometry()
        pixels = self.screen.pixels((0, 0, frame.width, frame.height))
        row = 4 * frame.width
        return [pixels[start:start + row] for start in range(0, len(pixels), row)]

    @staticmethod
    def part(picture, frame):
        """A part of a picture, with a little of what is around it."""
        x, y, width, height = frame
        return [row[4 * (x - 4):4 * (x + width + 4)] for row in picture[y - 4:y + height + 4]]

    def comes_to_look_otherwise(self, frame, before):
        """Waits for it: the focus is told of before it is drawn."""
        try:
            wait_for(lambda: self.part(self.picture(), frame) != self.part(before, frame), "another look", limit=5.0)
        except TimedOut:
            return False
        return True

    def next_with_tab(self, before):
        self.screen.tap("Tab")

        def moved():
            now = self.focused()
            return now if now and now != before else None
        return wait_for(moved, "another control with the focus", step=0.02)

    def test_have_a_role_a_name_and_states_in_every_pane(self):
        for pane in PANES:
            self.preferences.show_pane(pane)
            nodes = self.showing()
            self.assertGreater(len(nodes), 6)
            self.assertIn((FRAME, pane), [(node.role, node.name) for node in nodes])
            for node in nodes:
                with self.subTest(pane=pane, role=node.role, name=node.name):
                    self.check(node)

    def check(self, node):
        role, states = node.role, node.states
        self.assertNotIn(role, NO_ROLES)
        self.assertTrue({VISIBLE, ENABLED, SENSITIVE} <= states, sorted(states))
        if role not in CONTAINERS:
            self.assertTrue(node.name.strip())

    def test_give_every_control_the_keyboard_and_show_where_it_is(self):
        for pane in PANES:
            self.preferences.show_pane(pane)
            wanted = {(node.role, node.name) for node in self.showing() if self.takes_keys(node)}
            with self.subTest(pane):
                reached, unseen = self.round_with_tab()
                self.assertEqual(wanted - reached, set(), "not reached with Tab")
                self.assertEqual(unseen, [], "looks the same with and without the focus")

    @staticmethod
    def takes_keys(node):
        """Text that can only be selected is not among the stops of Tab."""
        return FOCUSABLE in node.states and (node.role != LABEL or node.name.startswith("Mouse button, "))

    def round_with_tab(self):
        """What had the focus on a way round the window, and what of it did not look so."""
        reached, unseen = set(), []
        before = self.picture()
        node = self.next_with_tab(self.focused())
        while (node.role, node.name) not in reached:
            reached.add((node.role, node.name))
            if not self.comes_to_look_otherwise(node.frame, before):
                unseen.append(node.name)
            before = self.picture()
            node = self.next_with_tab(node)
        return reached, unseen

    def stops_of_tab(self):
        """All that has the focus on one way round the window, each while it has it."""
        reached = set()
        node = self.next_with_tab(self.focused())
        while (node.role, node.name) not in reached:
            reached.add((node.role, node.name))
            yield node
            node = self.next_with_tab(node)

    def throw(self, box):
        """Presses Space and waits until the box with the focus is switched over."""
        before = CHECKED in box.states
        self.screen.tap("space")
        wait_for(lambda: (CHECKED in box.states) != before, f"{box.name!r} switched over", step=0.02)

    def test_let_every_switch_be_thrown_with_the_keyboard_alone(self):
        thrown = []
        for pane in PANES:
            self.preferences.show_pane(pane)
            for node in self.stops_of_tab():
                if node.role == CHECK_BOX and node.name not in PANES:
                    self.throw(node)
                    self.throw(node)
                    thrown.append(node.name)
        self.assertEqual(len(thrown), 5, thrown)

    def test_let_every_button_be_pressed_with_the_keyboard_alone(self):
        """Each by Space and by Return when it has the focus, and by its letter from wherever that is."""
        self.preferences.show_pane("General")
        for press in (self.press_by("Reset", "space"), self.press_by("Reset", "Return"),
                      lambda: self.screen.tap("r", "Alt_L")):
            next(node for node in self.stops_of_tab() if node.role == SPIN_BUTTON)
            self.screen.tap("Up")
            wait_until_stored(self.tarnwick, FontSizeSmall=12)
            press()
            wait_until_stored(self.tarnwick, FontSizeSmall=11)

    def test_opens_both_pages_with_the_keyboard_alone(self):
        self.preferences.show_pane("About")
        for letter, name in (("q", "Quorlane"), ("s", "Ostravane")):
            for press in (self.press_by(name, "space"), self.press_by(name, "Return"),
                          lambda key=letter: self.screen.tap(key, "Alt_L")):
                before = len(self.opened_pages())
                press()
                wait_for(lambda count=before: len(self.opened_pages()) == count + 1, f"the page of {name}")

    def opened_pages(self):
        return self.opened.read_text().splitlines() if self.opened.exists() else []

    def press_by(self, name, key):
        def press():
            next(node for node in self.stops_of_tab() if node.role == BUTTON and node.name.startswith(name))
            self.screen.tap(key)
        return press

    def test_let_the_text_size_be_changed_with_the_keyboard_alone(self):
        self.preferences.show_pane("General")
        next(node for node in self.stops_of_tab() if node.role == SPIN_BUTTON)
        for key, size in (("Up", 12), ("Down", 11)):
            self.screen.tap(key)
            wait_until_stored(self.tarnwick, FontSizeSmall=size)

    def test_let_every_pane_be_opened_with_the_keyboard_alone(self):
        self.preferences.show_pane(PANES[0])
        next(node for node in self.stops_of_tab() if node.name == PANES[0])
        for key, panes in (("Right", PANES[1:]), ("Left", PANES[-2::-1])):
            for pane in panes:
                self.screen.tap(key)
                wait_for(lambda wanted=pane: self.preferences.window.title == wanted, f"the pane {pane!r}")
        for letter, pane in (("g", "General"), ("u", "About"), ("o", "Hot Key")):
            self.screen.tap(letter, "Alt_L")
            wait_for(lambda wanted=pane: self.preferences.window.title == wanted, f"the pane {pane!r}")

    def test_tell_the_state_of_what_is_switched(self):
        self.preferences.show_pane("General")
        name = "Show keyboard shortcuts beside the menu items"
        box = self.preferences.control(name, CHECK_BOX)
        self.assertNotIn(CHECKED, box.states)
        self.screen.tap("k", "Alt_L")
        wait_for(lambda: CHECKED in box.states, "the box checked by its key")
        self.screen.tap("k", "Alt_L")
        wait_for(lambda: CHECKED not in box.states, "the box not checked")


class TheMenu(DesktopTest):
    @classmethod
    def prepare(cls):
        cls.connect_accessibility().switch_on()
        cls.tarnwick = Tarnwick(cls.session)
        cls.tarnwick.wait_until_ready()
        cls.reader = cls.tarnwick.reader(cls.bus)
        cls.addClassCleanup(cls.reader.close)
        cls.fixture = Fixture(cls.session, "gtk3")
        titles = [item.title for item in cls.fixture.bar_items(cls.bus)]
        cls.tarnwick.wait_for_titles(cls.reader, titles)

    def check_level(self, level):
        menu = self.reader.menus()[level]
        self.assertEqual(menu.role, POPUP_MENU)
        self.assertIn(SHOWING, menu.states)
        for item in self.reader.items(level):
            self.assertNotIn(item.node.role, NO_ROLES, item)
            self.assertTrue(item.separator or item.node.name, item)
            self.assertTrue({VISIBLE, SHOWING} <= item.node.states, item)

    def test_has_a_role_a_name_and_states_for_each_entry_and_tells_the_highlighted_one(self):
        navigation = Navigation(self.screen, self.reader)
        self.tarnwick.open()
        self.reader.wait_for(1)
        self.check_level(0)
        navigation.enter("Edit")
        self.check_level(1)
        shown = {item.title: item.enabled for item in self.reader.items(1) if not item.separator}
        edit = next(item for item in self.fixture.bar_items(self.bus) if item.title == "Edit")
        theirs = {item.title: item.enabled for item in edit.node.items() if not item.separator}
        self.assertEqual(shown, theirs, "what is greyed in the application is told as such")
        self.assertIn(False, shown.values())
        self.screen.tap("Down")
        title = wait_for(self.reader.focused_title, "an entry that is told to be highlighted")
        self.assertIn(title, shown)
        navigation.leave()
        self.tarnwick.close_menu()

    def test_is_left_and_walked_with_the_keyboard_alone(self):
        navigation = Navigation(self.screen, self.reader)
        self.tarnwick.open()
        self.reader.wait_for(1)
        navigation.highlight(OWN_ENTRY)
        entries = [item.title for item in navigation.enter(OWN_ENTRY)]
        self.assertEqual(entries, ["About Tarnwick...", "Preferences...", "Quit"])
        self.assertEqual({item.node.role for item in self.reader.items(1)}, {MENU_ITEM})
        self.tarnwick.close_menu()


if __name__ == "__main__":
    main()
