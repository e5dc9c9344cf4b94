# SPDX-License-Identifier: MIT
"""What each setting does: found in the settings file at the start, and changed while Tarnwick runs."""
from harness.accessible import FOCUSED, SHOWING, Item
from harness.applications import Fixture
from harness.case import DesktopTest, main
from harness.navigation import Navigation
from harness.over import OWN_ENTRY
from harness.preferences import BUTTON, CHECK_BOX, SPIN_BUTTON, Preferences, wait_until_stored
from harness.tarnwick import Tarnwick
from harness.tray import embedded_icon
from harness.waiting import holds_for, wait_for

ENTRY_HEIGHT = 16  # pixels, at least
OWN = [Item("", separator=True), Item(OWN_ENTRY, holds_menu=True)]


class Settings(DesktopTest):
    @classmethod
    def prepare(cls):
        cls.connect_accessibility()
        cls.application = Fixture(cls.session, "gtk3")
        cls.bar = cls.application.bar_items(cls.bus)
        cls.titles = [item.title for item in cls.bar]

    def start(self, **settings):
        """Starts Tarnwick over the fixture with these settings, and reads its menus."""
        self.tarnwick = Tarnwick(self.session, **settings)
        self.addCleanup(self.tarnwick.stop)
        self.tarnwick.wait_until_ready()
        self.read_back()

    def read_back(self):
        self.reader = self.tarnwick.reader(self.bus)
        self.addCleanup(self.reader.close)
        self.go = Navigation(self.screen, self.reader)

    def open_menu(self):
        self.tarnwick.open()
        return self.reader.wait_for(1)

    def shortcut_of(self, title):
        node = self.reader.item(title).node
        return (node.name.split("\t") + [node.key_binding])[1]

    def assert_shortcuts_show(self, show):
        self.open_menu()
        self.go.enter("File")
        self.assertEqual(self.shortcut_of("Save"), "Ctrl+S" if show else "")
        self.tarnwick.close_menu()


class ASetting(Settings):
    def test_the_first_menu_is_there_at_the_start(self):
        """Tarnwick came after the application here, and no switch has happened since."""
        self.start()
        self.assertEqual(self.open_menu(), self.bar + OWN)

    def test_key_equivalents_are_not_shown_by_default(self):
        self.start()
        self.open_menu()
        self.go.enter("File")
        self.assertEqual(self.shortcut_of("Save"), "")

    def test_key_equivalents_are_shown_in_the_way_of_the_desktop(self):
        self.start(ShowKeyEquivalents=True)
        self.open_menu()
        self.go.enter("File")
        self.assertEqual(self.shortcut_of("Save"), "Ctrl+S")
        self.assertEqual(self.shortcut_of("Save As..."), "Ctrl+Shift+S")
        self.assertEqual(self.shortcut_of("Open Recent"), "")
        self.go.leave()
        self.go.enter("Edit")
        self.go.enter("Find")
        self.assertEqual(self.shortcut_of("Find Previous"), "Shift+F3")

    def test_without_the_application_menu_only_our_own_entry_is_left(self):
        self.start(ShowApplicationMenu=False)
        self.assertEqual(self.open_menu(), OWN[1:])  # a separator at the top takes no room

    def test_the_font_size_is_that_of_the_menu(self):
        heights = []
        for size in (8, 24):
            self.start(FontSizeSmall=size)
            heights.append(self.tarnwick.open().frame[3])
            self.tarnwick.close_menu()
            self.reader.close()
            self.tarnwick.stop()
        self.assertGreater(heights[1], 1.5 * heights[0])


class AChange(Settings):
    """Made in the preferences window of the running program."""

    tools = ("tint2",)

    def start_with_window(self, pane, **settings):
        self.tarnwick = Tarnwick(self.session, FirstRun=False, **settings)
        self.addCleanup(self.tarnwick.stop)
        self.preferences = Preferences(self.session, self.bus, self.tarnwick)
        self.assert_own_menus()
        if pane:
            self.preferences.show_pane(pane)

    def assert_own_menus(self):
        """Over Tarnwick's own window. Nothing is read back there: keys in its windows would take a detour meanwhile."""
        self.assertGreater(self.height(), 4 * ENTRY_HEIGHT)

    def switch(self, box, **expected):
        self.preferences.click(box, CHECK_BOX)
        wait_until_stored(self.tarnwick, **expected)

    def bring_application_to_front(self, titles):
        self.screen.activate(self.application.window)
        self.read_back()
        self.tarnwick.wait_for_titles(self.reader, titles + ["", OWN_ENTRY] if titles else [OWN_ENTRY])

    def bring_window_to_front(self):
        self.bring_preferences_to_front()
        self.assert_own_menus()

    def set_text_size(self, points):
        size = self.preferences.control("Text size of the menu", SPIN_BUTTON)
        self.screen.click(at=size.center)
        wait_for(lambda: FOCUSED in size.states, "the field with the keyboard")
        self.screen.tap("a", "Control_L")
        self.screen.type(f"{points}\t")
        wait_until_stored(self.tarnwick, FontSizeSmall=points)

    def height(self):
        self.tarnwick.wait_until_at_rest()
        height = self.tarnwick.open().frame[3]
        self.tarnwick.close_menu()
        return height

    def test_of_the_shortcuts_shows_in_the_menus_that_open_next(self):
        self.start_with_window("General")
        self.switch("Show keyboard shortcuts", ShowKeyEquivalents="true")
        self.bring_application_to_front(self.titles)
        self.assert_shortcuts_show(True)
        self.bring_window_to_front()
        self.switch("Show keyboard shortcuts", ShowKeyEquivalents="false")
        self.bring_application_to_front(self.titles)
        self.assert_shortcuts_show(False)

    def test_that_would_empty_the_menu_is_not_offered_and_a_reset_takes_it_back(self):
        """Nor is what would change nothing. All three have their effect where menu bars begin with a menu of the system."""
        self.tarnwick = Tarnwick(self.session, FirstRun=False, ShowApplicationMenu=False)
        self.addCleanup(self.tarnwick.stop)
        self.preferences = Preferences(self.session, self.bus, self.tarnwick)
        self.preferences.show_pane("General")
        boxes = [node.name for node in self.preferences.application.descendants()
                 if node.role == CHECK_BOX and SHOWING in node.states]
        self.assertEqual([box for box in boxes if box.startswith(("Include", "Show al"))], [])
        self.assertIn("Show keyboard shortcuts beside the menu items", boxes)
        self.bring_application_to_front([])
        self.bring_preferences_to_front()
        self.preferences.click("Reset to Defaults", BUTTON)
        wait_until_stored(self.tarnwick, ShowApplicationMenu="true")
        self.bring_application_to_front(self.titles)

    def bring_preferences_to_front(self):
        self.reader.close()
        self.screen.activate(self.preferences.window)

    def test_of_the_font_size_waits_for_the_next_application(self):
        self.start_with_window("General")
        own = self.height()
        self.bring_application_to_front(self.titles)
        application = self.height()
        self.bring_window_to_front()
        self.set_text_size(30)
        self.assertEqual(self.height(), own)
        self.bring_application_to_front(self.titles)
        self.assertGreater(self.height(), 1.5 * application)

    def test_of_the_mouse_button_acts_at_once(self):
        self.start_with_window(None)
        self.screen.click(8)
        holds_for(lambda: self.tarnwick.popups.count() == 0, 0.4, "a menu opened")
        self.switch("Open the menu with an extra mouse button", EnableMouseButton="true")
        self.screen.click(8)
        self.tarnwick.popups.wait_for(1)
        self.tarnwick.close_menu()

    def test_of_the_status_item_acts_at_once(self):
        tray = self.session.run("tint2")
        self.addCleanup(tray.stop)
        self.start_with_window("General")
        wait_for(lambda: embedded_icon(self.screen, self.tarnwick.pid), "an icon in the tray")
        self.switch("Show Tarnwick's icon", ShowStatusBarIcon="false")
        wait_for(lambda: not embedded_icon(self.screen, self.tarnwick.pid), "no icon in the tray")
        self.switch("Show Tarnwick's icon", ShowStatusBarIcon="true")
        wait_for(lambda: embedded_icon(self.screen, self.tarnwick.pid), "a new icon in the tray")


if __name__ == "__main__":
    main()
