# SPDX-License-Identifier: MIT
"""The private desktop and the fixture programs themselves."""
from harness.accessible import Item
from harness.applications import DATA, Fixture, KITS
from harness.case import DesktopTest, main
from harness.popup import PopUpReader
from harness.waiting import wait_for


class AFixtureOf:
    """Run for each toolkit."""

    kit = None

    @classmethod
    def prepare(cls):
        cls.connect_accessibility().switch_on()
        cls.application = Fixture(cls.session, cls.kit)

    def entries(self, title):
        holder = next(item for item in self.application.bar_items(self.bus) if item.title == title)
        return holder.node.items()

    def test_shows_the_bar_of_its_file(self):
        titles = [item.title for item in self.application.bar_items(self.bus)]
        expected = [line.strip() for line in (DATA / "editor.menu").read_text().splitlines()
                    if line and line[0] not in " #"]
        self.assertEqual(titles, expected)

    def test_shows_checked_and_disabled_entries(self):
        self.assertEqual(self.entries("View"), [
            Item("Word Wrap", checked=True), Item("Line Numbers"), Item("Status Bar", enabled=False, checked=True),
            Item("", separator=True), Item("Previous Page"), Item("R&D_Notes")])

    def test_writes_down_what_is_chosen(self):
        self.entries("Help")[1].node.press()
        self.application.wait_for_line("chosen", "Help > About Editor")

    def test_writes_down_what_is_typed(self):
        self.screen.type("xy")
        self.application.wait_for_line("typed", "y")
        self.assertIn("x", self.application.typed())

    def test_offers_cut_and_copy_with_a_selection_only(self):
        def enabled(title):
            return next(item.enabled for item in self.entries("Edit") if item.title == title)
        self.screen.type("xyz")
        self.screen.tap("Right")
        wait_for(lambda: not enabled("Cut") and not enabled("Copy"), "nothing to cut or copy")
        self.screen.tap("a", "Control_L")
        wait_for(lambda: enabled("Cut") and enabled("Copy"), "something to cut and to copy")

    def test_its_open_menu_can_be_read_in_qt(self):
        if self.kit == "gtk3":
            self.skipTest("what is read back are menus of Qt")
        reader = PopUpReader(self.bus, self.application.pid)
        self.addCleanup(reader.close)
        self.application.wait_until_placed(self.bus)
        bar = self.application.accessible(self.bus).menu_bar()
        self.screen.click(at=bar.items()[0].node.center)
        self.assertEqual(reader.wait_for(1)[0], Item("New"))
        self.screen.tap("Escape")
        reader.wait_for(0)
        self.screen.tap("Escape")  # the bar itself had the keyboard still


for _kit in KITS:
    globals()[f"AFixtureOf{_kit}"] = type(f"AFixtureOf{_kit}", (AFixtureOf, DesktopTest), {"kit": _kit})


class APrivateDesktop(DesktopTest):
    def test_has_a_clipboard(self):
        self.session.set_clipboard("one")
        self.assertEqual(self.session.clipboard(), "one")

    def test_tells_whether_somebody_holds_the_keyboard(self):
        self.assertEqual(self.screen.grabs_left(), [])
        release = self.screen.hold_key("a", 0)
        self.screen.press("a")
        self.screen.release("a")
        release()
        self.assertEqual(self.screen.grabs_left(), [])


if __name__ == "__main__":
    main()
