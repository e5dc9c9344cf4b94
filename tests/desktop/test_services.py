# SPDX-License-Identifier: MIT
"""Tarnwick among the services of a desktop: its one instance, its end, the tray, what starts at login."""
import os
import pathlib
import signal
import tempfile

from harness.case import DesktopTest, main
from harness.screen import Window
from harness.session_manager import SessionManager
from harness.tarnwick import Tarnwick
from harness.tray import PublishedTray, embedded_icon, icon_at_rest
from harness.waiting import holds_for, wait_for
from harness.xsettings import XSettings

MENU = ["About Tarnwick...", "Preferences...", "Quit"]


def start(session, **environment):
    return session.run(os.environ["TARNWICK_BINARY"], **environment)


class Starts(DesktopTest):
    @classmethod
    def prepare(cls):
        cls.tarnwick = Tarnwick(cls.session)
        cls.tarnwick.wait_until_ready()

    def test_a_second_start_asks_the_first_to_show_itself_and_ends(self):
        self.assertEqual(start(self.session).status(), 0)
        window = self.screen.window_titled("Hot Key")
        self.assertEqual(window.pid, self.tarnwick.pid)
        self.screen.wait_until_active(window)
        self.screen.tap("w", "Control_L")
        wait_for(lambda: not self.screen.windows(), "no window")
        self.assertTrue(self.tarnwick.program.running())

    def test_a_second_start_does_not_wait_for_a_first_that_is_busy(self):
        os.kill(self.tarnwick.pid, signal.SIGSTOP)
        self.addCleanup(os.kill, self.tarnwick.pid, signal.SIGCONT)
        self.assertEqual(start(self.session).status(limit=5.0), 0)

    def test_without_a_display_a_start_says_so(self):
        program = start(self.session, DISPLAY=":9999", DBUS_SESSION_BUS_ADDRESS="unix:path=/nowhere")
        self.assertEqual(program.status(), 1)
        self.assertIn("needs an X display", program.output)


class AStartWhileTheFirstStillAsks(DesktopTest):
    session_options = {"accessibility": False}

    def test_is_answered_once_the_first_runs(self):
        first = Tarnwick(self.session)
        alert = self.screen.window_titled("Tarnwick")
        self.screen.wait_until_active(alert)
        self.assertEqual(start(self.session).status(), 0)
        self.assertEqual(len(self.screen.windows()), 1)
        self.screen.tap("Escape")  # Continue Anyway
        self.assertEqual(self.screen.window_titled("Hot Key").pid, first.pid)


class StartsAtOnce(DesktopTest):
    def test_leave_one(self):
        programs = [start(self.session) for _ in range(4)]
        wait_for(lambda: sum(program.running() for program in programs) == 1, "three ends")
        self.assertEqual([program.status() for program in programs if not program.running()], [0, 0, 0])


class TheEnd(DesktopTest):
    def test_comes_in_order_on_each_signal_that_asks_for_it(self):
        for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            with self.subTest(number):
                tarnwick = Tarnwick(self.session)
                tarnwick.wait_until_ready()
                tarnwick.open()
                os.kill(tarnwick.pid, number)
                self.assertEqual(tarnwick.program.status(), 0)
                self.assertEqual(tarnwick.program.output, "")
                wait_for(lambda: self.screen.grabs_left() == [], "keyboard and pointer free")

    def test_frees_the_name_for_the_next_start(self):
        for _ in range(2):
            tarnwick = Tarnwick(self.session)
            tarnwick.wait_until_ready()
            tarnwick.stop()


class TheEndOfTheSession(DesktopTest):
    """As a desktop's own session manager brings it about."""

    def begin(self):
        directory = pathlib.Path(tempfile.mkdtemp(dir=self.session.directory))
        manager = SessionManager(directory)
        self.addCleanup(manager.close)
        self.tarnwick = Tarnwick(self.session, environment=manager.environment, FontSizeSmall=17)
        manager.wait_for_client()
        self.tarnwick.wait_until_ready()
        return manager

    def assert_ended_with_settings(self):
        self.assertEqual(self.tarnwick.program.status(), 0)
        self.assertIn("FontSizeSmall=17", self.tarnwick.settings_file.read_text())
        wait_for(lambda: self.screen.grabs_left() == [], "keyboard and pointer free")

    def test_ends_the_program_without_a_question_and_never_to_be_started_by_the_session(self):
        manager = self.begin()
        self.tarnwick.open()
        said = manager.save()
        never = rb"\x03"
        self.assertRegex(said, rb"(?s)RestartStyleHint.*CARD8.*\x04\x00\x00\x00" + never)
        manager.end_client()
        self.assert_ended_with_settings()
        self.assertEqual(self.tarnwick.program.output, "")

    def test_that_was_saved_only_leaves_the_program_running(self):
        manager = self.begin()
        manager.save(shutdown=False)
        self.tarnwick.wait_until_ready()

    def test_whose_manager_goes_first_ends_the_program_in_order(self):
        self.begin().close()
        self.assert_ended_with_settings()


class TheEndOfTheDisplay(DesktopTest):
    def test_ends_the_program_in_order_and_without_a_word(self):
        tarnwick = Tarnwick(self.session)
        tarnwick.wait_until_ready()
        type(self).screen = None
        self.session.end_display()
        self.assertEqual(tarnwick.program.status(), 0)
        self.assertEqual(tarnwick.program.output, "")


class WithoutASessionBus(DesktopTest):
    def test_it_asks_and_runs(self):
        program = start(self.session, DBUS_SESSION_BUS_ADDRESS="unix:path=/nowhere")
        alert = self.screen.window_titled("Tarnwick")
        self.screen.wait_until_active(alert)
        self.screen.tap("Escape")  # Continue Anyway
        wait_for(lambda: not any(window.title == "Tarnwick" for window in self.screen.windows()), "no alert")
        holds_for(program.running, 0.5, "it has ended")
        os.kill(program.pid, signal.SIGTERM)
        self.assertEqual(program.status(), 0)


class AtLogin(DesktopTest):
    def entry(self):
        return self.session.directory / "home/.config/autostart/example.quorlane.Tarnwick.desktop"

    def test_it_starts_or_not_as_the_setting_says(self):
        tarnwick = Tarnwick(self.session, LaunchOnLogin=True)
        wait_for(self.entry().exists, "an entry")
        self.assertIn(os.path.realpath(os.environ["TARNWICK_BINARY"]), self.entry().read_text())
        tarnwick.stop()
        tarnwick = Tarnwick(self.session, LaunchOnLogin=False)
        wait_for(lambda: not self.entry().exists(), "no entry")
        tarnwick.stop()


class ATrayThatTakesWindowsIn(DesktopTest):
    tools = ("tint2",)

    @classmethod
    def prepare(cls):
        cls.connect_accessibility().switch_on()
        cls.tarnwick = Tarnwick(cls.session)
        cls.tarnwick.wait_until_ready()

    def icon(self):
        return wait_for(lambda: embedded_icon(self.screen, self.tarnwick.pid), "an icon in the tray")

    def click(self, button):
        icon = icon_at_rest(self.screen, self.tarnwick.pid)
        self.screen.click(button, at=Window(self.screen, icon).center)

    def test_shows_the_item_when_it_comes_and_when_it_comes_back(self):
        tray = self.session.run("tint2")
        self.icon()
        tray.stop()
        wait_for(lambda: not embedded_icon(self.screen, self.tarnwick.pid), "no icon")
        tray = self.session.run("tint2")
        self.icon()
        tray.stop()
        self.assertEqual(self.tarnwick.program.output, "")

    def test_leaves_a_menu_open_when_it_comes(self):
        self.tarnwick.wait_until_at_rest()
        self.tarnwick.open()
        tray = self.session.run("tint2")
        self.addCleanup(tray.stop)
        selection = self.screen.display.intern_atom("_NET_SYSTEM_TRAY_S0")
        wait_for(lambda: self.screen.display.get_selection_owner(selection), "a tray")
        holds_for(lambda: self.tarnwick.popups.count() == 1, 0.5, "the menu has been closed")
        self.tarnwick.close_menu()
        self.icon()

    def test_the_menu_opens_at_a_click_and_does_what_it_says(self):
        tray = self.session.run("tint2")
        self.addCleanup(tray.stop)
        for button in (1, 3):
            reader = self.tarnwick.reader(self.bus)
            self.addCleanup(reader.close)
            self.click(button)
            self.assertEqual([item.title for item in reader.wait_for(1)], MENU)
            self.tarnwick.close_menu()
        self.assertEqual(self.screen.grabs_left(), [])


class ATrayOnTheBus(DesktopTest):
    @classmethod
    def prepare(cls):
        cls.tarnwick = Tarnwick(cls.session)
        cls.tarnwick.wait_until_ready()

    def test_gets_the_item_and_its_menu_when_it_comes(self):
        tray = PublishedTray(self.session.environment["DBUS_SESSION_BUS_ADDRESS"])
        self.addCleanup(tray.close)
        self.assertEqual(tray.item_property("Title"), "Tarnwick")
        self.assertEqual(tray.item_property("IconName"), "")
        self.assertTrue(tray.item_property("IconPixmap"))
        self.assertEqual([label for _, label in tray.menu()], MENU)
        tray.choose("Quit")
        self.assertEqual(self.tarnwick.program.status(), 0)


class ATrayInAnotherLanguage(DesktopTest):
    def test_gets_the_menu_in_it(self):
        tray = PublishedTray(self.session.environment["DBUS_SESSION_BUS_ADDRESS"])
        self.addCleanup(tray.close)
        Tarnwick(self.session, environment={"LANGUAGE": "de", "LC_ALL": "", "LC_MESSAGES": "C.UTF-8"})
        self.assertEqual([label for _, label in tray.menu()], ["Über Tarnwick...", "Einstellungen...", "Beenden"])


class ATrayOnTheBusAfterOneThatTakesWindowsIn(DesktopTest):
    """The toolkit has decided for windows by then."""

    tools = ("tint2",)

    @classmethod
    def prepare(cls):
        cls.connect_accessibility().switch_on()
        cls.tarnwick = Tarnwick(cls.session)
        cls.tarnwick.wait_until_ready()
        tray = cls.session.run("tint2")
        wait_for(lambda: embedded_icon(cls.screen, cls.tarnwick.pid), "an icon in the tray")
        tray.stop()
        wait_for(lambda: not embedded_icon(cls.screen, cls.tarnwick.pid), "no icon")

    def tray(self):
        return PublishedTray(self.session.environment["DBUS_SESSION_BUS_ADDRESS"])

    def test_gets_the_item_and_its_menu(self):
        for _ in range(2):  # the second in place of the first
            tray = self.tray()
            for name, value in (("Category", "ApplicationStatus"), ("Id", "Tarnwick"), ("Title", "Tarnwick"),
                                ("Status", "Active"), ("ItemIsMenu", False), ("ToolTip", ("", [], "Tarnwick", ""))):
                self.assertEqual(tray.item_property(name), value, name)
            pictures = tray.item_property("IconPixmap")
            self.assertTrue(pictures)
            for width, height, pixels in pictures:
                self.assertEqual(len(pixels), 4 * width * height)
                self.assertTrue(any(pixels))
            self.assertEqual([label for _, label in tray.menu()], MENU)
            tray.close()

    def test_opens_the_menu_at_a_click_and_does_what_is_chosen(self):
        tray = self.tray()
        self.addCleanup(tray.close)
        reader = self.tarnwick.reader(self.bus)
        self.addCleanup(reader.close)
        tray.activate()
        self.assertEqual([item.title for item in reader.wait_for(1)], MENU)
        self.tarnwick.close_menu()
        tray.choose("Quit")
        self.assertEqual(self.tarnwick.program.status(), 0)


class ATrayThatShowsThePicture(DesktopTest):
    def test_gets_another_one_when_the_desktop_becomes_dark(self):
        settings = XSettings(self.session.environment["DISPLAY"])
        self.addCleanup(settings.close)
        settings.set({"Net/ThemeName": "Adwaita"})
        tray = PublishedTray(self.session.environment["DBUS_SESSION_BUS_ADDRESS"])
        self.addCleanup(tray.close)
        Tarnwick(self.session)
        light = tray.item_property("IconPixmap")
        settings.set({"Net/ThemeName": "Adwaita-dark"})
        wait_for(lambda: tray.item_property("IconPixmap") != light, "another picture")
        settings.set({"Net/ThemeName": "Adwaita"})
        wait_for(lambda: tray.item_property("IconPixmap") == light, "the first picture")


class ATrayThatKnowsTheIcon(DesktopTest):
    def test_is_told_its_name_besides_the_picture_where_it_colours_icons(self):
        theme = pathlib.Path(__file__).resolve().parents[2] / "packaging/linux/icons"
        shared = self.session.directory / "home/.local/share"
        shared.mkdir(parents=True)
        (shared / "icons").symlink_to(theme)
        for desktop, name in (("ubuntu:GNOME", "example.quorlane.Tarnwick-symbolic"),
                              ("KDE", "example.quorlane.Tarnwick-symbolic"),
                              ("XFCE", "")):  # draws a symbolic icon as it is, and be it dark on dark
            with self.subTest(desktop):
                tray = PublishedTray(self.session.environment["DBUS_SESSION_BUS_ADDRESS"])
                tarnwick = Tarnwick(self.session, environment={"XDG_CURRENT_DESKTOP": desktop})
                self.assertEqual(tray.item_property("IconName"), name)
                self.assertTrue(tray.item_property("IconPixmap"))
                tarnwick.stop()
                tray.close()


class TheStatusItem(DesktopTest):
    tools = ("tint2",)

    def test_is_not_there_when_the_setting_says_so(self):
        self.session.run("tint2")
        tarnwick = Tarnwick(self.session, ShowStatusBarIcon=False)
        tarnwick.wait_until_ready()
        holds_for(lambda: not embedded_icon(self.screen, tarnwick.pid), 0.3, "an icon is there")


if __name__ == "__main__":
    main()
