# SPDX-License-Identifier: MIT
"""The example that README.md explains: one hot key, one menu, one choice."""
from harness.case import main
from harness.over import OverGtk3
from harness.waiting import wait_for


class AnEditor(OverGtk3):
    def test_does_what_was_chosen_in_the_menu_at_the_pointer(self):
        self.read_back()
        self.screen.move(500, 300)
        self.open_menu()
        self.assertEqual(self.reader.titles()[:2], ["File", "Edit"])
        self.go.choose("File", "Save")
        wait_for(lambda: self.application.chosen() == ["File > Save"], "the choice in the editor")
        self.assert_nothing_is_held()


if __name__ == "__main__":
    main()
