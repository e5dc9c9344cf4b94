# SPDX-License-Identifier: MIT
"""Search in the menu of a large program of others: LibreOffice Writer."""
from harness.case import main
from harness.office import Writer
from harness.over import OverAnApplication
from harness.searching import Searching
from harness.tarnwick import Tarnwick
from harness.waiting import wait_for


class InWriter(Searching, OverAnApplication):
    tools = ("libreoffice",)

    @classmethod
    def start_programs(cls):
        """Writer is there first: its entries come long after its window."""
        cls.connect_accessibility().switch_on()
        cls.application = Writer(cls.session)
        cls.application.bar_items(cls.bus)
        cls.tarnwick = Tarnwick(cls.session)

    def wait_for_dialog(self):
        """Waits for the dialog of the choice, and leaves it."""
        self.reader.wait_for(0)
        wait_for(lambda: len(self.application.windows()) == 2, "the dialog of Save As")
        dialog = next(window for window in self.application.windows() if window.id != self.application.window.id)
        self.assertIn("Save", dialog.title)
        self.screen.wait_until_active(dialog)
        self.screen.tap("Escape")
        wait_for(lambda: len(self.application.windows()) == 1, "the dialog gone")
        self.assert_nothing_is_held()

    def test_save_as_opens_its_dialog(self):
        self.search("save as", "Save As..., File")
        self.screen.tap("Return")
        self.wait_for_dialog()

    def test_right_shows_it_in_its_menu_and_it_is_pressed_there(self):
        self.search("save as", "Save As..., File")
        self.screen.tap("Right")
        self.reader.wait_for(2)
        wait_for(lambda: self.reader.focused_title() == "Save As...", "the entry highlighted in its menu")
        self.assertEqual(len(self.application.windows()), 1)
        self.screen.tap("Return")
        self.wait_for_dialog()


if __name__ == "__main__":
    main()
