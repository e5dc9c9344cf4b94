# SPDX-License-Identifier: MIT
"""Applications that end, hang or publish strange menus, and settings that make no sense."""
import os
import signal

from harness.applications import Fixture
from harness.case import DesktopTest, main
from harness.fair import FairTimer
from harness.over import OWN_ENTRY, OverAnApplication
from harness.tarnwick import Tarnwick
from harness.waiting import wait_for


class AnApplicationThat(OverAnApplication):
    """Every test has an application of its own over this one."""

    @classmethod
    def start_application(cls):
        return Fixture(cls.session, "gtk3", title="Survivor")

    def in_front(self, kit, *options, **more):
        application = Fixture(self.session, kit, *options, **more)
        self.addCleanup(application.program.kill)
        titles = [item.title for item in application.bar_items(self.bus)]
        self.wait_for_titles(titles)
        return application

    def assert_all_is_well(self):
        self.assertTrue(self.tarnwick.program.running(), self.tarnwick.program.output)
        self.tarnwick.close_menu()
        self.assert_nothing_is_held()
        self.screen.activate(self.application.window)
        self.wait_for_titles(self.titles)

    def test_ends_while_its_menu_is_open(self):
        for kit in ("gtk3", "qt5", "qt6"):
            with self.subTest(kit):
                victim = self.in_front(kit, title="Victim")
                self.tarnwick.open()
                victim.program.kill()
                self.screen.tap("Down")
                self.screen.tap("Right")
                self.assert_all_is_well()

    def test_ends_while_a_submenu_is_open(self):
        victim = self.in_front("qt6", title="Victim")
        self.read_back()
        self.open_menu()
        self.go.enter("File")
        self.go.highlight("Save")
        victim.program.kill()
        self.screen.tap("Return")
        self.assert_all_is_well()

    def test_does_not_answer_delays_nobody(self):
        for kit in ("gtk3", "qt6"):
            with self.subTest(kit):
                victim = self.in_front(kit, title="Victim")
                os.kill(victim.pid, signal.SIGSTOP)
                self.tarnwick.open()
                timer = FairTimer(self.tarnwick.pid, self.session.display_server_pid)
                self.screen.tap("Down")
                self.screen.tap("Right")  # its submenu cannot be read
                self.tarnwick.close_menu()
                timer.read().assert_within(2.0, "closing the menu")
                victim.program.kill()
                self.assert_all_is_well()

    def test_publishes_strange_titles_is_shown_as_it_is(self):
        """An entry has one line, so a line break is a blank."""
        for kit in ("gtk3", "qt5", "qt6"):
            with self.subTest(kit):
                strange = self.in_front(kit, menu="hostile.menu", title="Strange")
                expected = [item.title.replace("\n", " ") for item in strange.bar_items(self.bus)[0].node.items()]
                self.read_back()
                self.open_menu()
                self.assertEqual([item.title for item in self.go.enter("Fi|le")], expected)
                self.tarnwick.close_menu()
                self.reader.close()
                strange.program.kill()
                self.assert_all_is_well()

    def test_has_a_title_of_ten_thousand_characters(self):
        menu = self.session.directory / "long.menu"
        menu.write_text("File\n  " + "long " * 2000 + "\n  Short\nEdit\n  Undo\n")
        for kit in ("gtk3", "qt6"):
            with self.subTest(kit):
                strange = self.in_front(kit, menu=str(menu), title="Long")
                self.read_back()
                self.open_menu()
                titles = [item.title for item in self.go.enter("File")]
                self.assertEqual(len(titles), 2)
                self.assertTrue(titles[0].startswith("long long"))
                self.go.choose("Short")
                strange.wait_for_line("chosen", "File > Short")
                self.reader.close()
                strange.program.kill()
                self.assert_all_is_well()

    def test_has_a_menu_that_is_longer_than_the_screen(self):
        for kit in ("gtk3", "qt6"):
            with self.subTest(kit):
                long = self.in_front(kit, "--grow", "300", title="Long")
                self.read_back()
                self.open_menu()
                self.assertEqual(len(self.go.enter("Many")), 300)
                self.screen.tap("End")
                wait_for(lambda: self.reader.focused_title() == "Item 300", "the last item highlighted")
                self.screen.tap("Return")
                long.wait_for_line("chosen", "Many > Item 300")
                self.reader.close()
                long.program.kill()
                self.assert_all_is_well()

    def test_opens_a_menu_of_its_own_meanwhile(self):
        """Then somebody else holds keyboard and pointer, and no menu of ours may hang about without them."""
        other = self.in_front("gtk3", title="Other")
        self.screen.tap("F10")
        wait_for(lambda: any(window.pid == other.pid for window in self.screen.unmanaged_windows()), "its own menu")
        self.tarnwick.trigger()
        self.screen.tap("Escape")
        self.screen.tap("Escape")
        self.tarnwick.close_menu()
        wait_for(lambda: self.screen.grabs_left() == [], "nothing held")
        other.program.kill()
        self.assert_all_is_well()


class SettingsThatMakeNoSense(DesktopTest):
    @classmethod
    def prepare(cls):
        cls.connect_accessibility()
        cls.application = Fixture(cls.session, "gtk3")

    def test_are_neutral_and_the_others_are_kept(self):
        tarnwick = Tarnwick(self.session, EnableHotkey="banana", TriggerModifiers="@Invalid()", MouseButton="-3.7e99",
                            FontSizeSmall="@ByteArray(\\x1)", ShowApplicationMenu=False)
        self.addCleanup(tarnwick.stop)
        tarnwick.wait_until_ready()
        reader = tarnwick.reader(self.bus)
        self.addCleanup(reader.close)
        tarnwick.wait_for_titles(reader, [OWN_ENTRY])  # a separator before it takes no room

    def test_may_be_no_settings_at_all(self):
        garbage = b"FirstRun=true\n\x00\xff\xfe[[[\n=\n[General\nEnableHotkey\n" + bytes(range(256)) * 40
        tarnwick = Tarnwick(self.session, content=garbage)
        self.addCleanup(tarnwick.stop)
        tarnwick.wait_until_ready()
        self.assertTrue(tarnwick.program.running())


if __name__ == "__main__":
    main()
