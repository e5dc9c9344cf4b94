# SPDX-License-Identifier: MIT
"""What each setting does, found in the settings file at the start."""
from harness.accessible import Item
from harness.applications import Fixture
from harness.case import DesktopTest, main
from harness.navigation import Navigation
from harness.over import OWN_ENTRY
from harness.tarnwick import Tarnwick

OWN = [Item("", separator=True), Item(OWN_ENTRY, holds_menu=True)]


class ASetting(DesktopTest):
    @classmethod
    def prepare(cls):
        cls.connect_accessibility()
        cls.application = Fixture(cls.session, "gtk3")
        cls.bar = cls.application.bar_items(cls.bus)

    def start(self, **settings):
        """Starts Tarnwick over the fixture with these settings, and reads its menus."""
        self.tarnwick = Tarnwick(self.session, **settings)
        self.addCleanup(self.tarnwick.stop)
        self.reader = self.tarnwick.reader(self.bus)
        self.addCleanup(self.reader.close)
        self.go = Navigation(self.screen, self.reader)
        self.tarnwick.wait_until_ready()

    def open_menu(self):
        self.tarnwick.open()
        return self.reader.wait_for(1)

    def shortcut_of(self, title):
        node = self.reader.item(title).node
        return (node.name.split("\t") + [node.key_binding])[1]

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
        self.assertEqual(self.open_menu(), OWN)

    def test_the_font_size_is_that_of_the_menu(self):
        heights = []
        for size in (8, 24):
            self.start(FontSizeSmall=size)
            heights.append(self.tarnwick.open().frame[3])
            self.tarnwick.close_menu()
            self.reader.close()
            self.tarnwick.stop()
        self.assertGreater(heights[1], 1.5 * heights[0])


if __name__ == "__main__":
    main()
