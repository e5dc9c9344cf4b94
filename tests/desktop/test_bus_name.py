# SPDX-License-Identifier: MIT
"""What other programs can have done by Tarnwick's one name on the session bus."""
import os
import pathlib

from harness.applications import Fixture
from harness.case import DesktopTest, main
from harness.over import OWN_ENTRY
from harness.tarnwick import Tarnwick, settings_text
from harness.waiting import holds_for, wait_for

NAME = "example.quorlane.Tarnwick"
POINTER = 330, 260


class OtherPrograms(DesktopTest):
    tools = ("gdbus",)

    def ask(self, method, *arguments):
        """Asks as a desktop does; fails when there is no answer."""
        self.session.call("gdbus", "call", "--session", "--timeout", "10", "--dest", NAME, "--object-path",
                          "/example/quorlane/Tarnwick", "--method", f"org.freedesktop.Application.{method}", *arguments)

    def pop_up(self):
        self.ask("ActivateAction", "pop-up", "[]", "{}")


class ThatBindAKey(OtherPrograms):
    @classmethod
    def prepare(cls):
        cls.connect_accessibility().switch_on()
        cls.tarnwick = Tarnwick(cls.session, EnableHotkey=False)
        cls.session.call("gdbus", "wait", "--session", "--timeout", "15", NAME)
        cls.reader = cls.tarnwick.reader(cls.bus)
        cls.addClassCleanup(cls.reader.close)

    def test_open_the_menu_at_the_pointer_even_without_a_hot_key(self):
        fixture = Fixture(self.session, "gtk3")
        self.addCleanup(fixture.program.stop)
        titles = [item.title for item in fixture.bar_items(self.bus)]
        self.screen.move(*POINTER)
        self.assertEqual(self.titles_after_popping_up(), titles + ["", OWN_ENTRY])
        self.assertEqual(self.tarnwick.popups.windows()[0].frame[:2], POINTER)
        with self.subTest("while a menu is open nothing more happens"):
            self.pop_up()
            holds_for(lambda: self.tarnwick.popups.count() == 1, 0.3, "another number of menus")
        self.tarnwick.close_menu()
        holds_for(lambda: self.tarnwick.popups.count() == 0, 0.3, "a menu came late")

    def test_have_a_switch_announced_before_the_menu(self):
        first = Fixture(self.session, "gtk3", title="First")
        self.addCleanup(first.program.stop)
        first.accessible(self.bus)
        second = Fixture(self.session, "gtk3", menu="viewer.menu", title="Second")
        self.addCleanup(second.program.stop)
        titles = [item.title for item in second.bar_items(self.bus)]
        self.screen.activate(first.window)
        self.assertEqual(self.titles_after_popping_up()[0], "File")
        self.tarnwick.close_menu()
        self.screen.activate(second.window)
        self.tarnwick.wait_until_told()
        self.pop_up()  # the program sleeps yet
        self.reader.wait_for(1)
        self.assertEqual(self.reader.titles(), titles + ["", OWN_ENTRY])
        self.tarnwick.close_menu()

    def titles_after_popping_up(self):
        """The menu is left open."""
        self.tarnwick.wait_until_at_rest()
        self.pop_up()
        self.reader.wait_for(1)
        return self.reader.titles()

    def test_can_ask_for_the_preferences(self):
        self.ask("Activate", "{}")
        window = self.screen.window_titled("Hot Key")
        self.assertEqual(window.pid, self.tarnwick.pid)
        self.screen.wait_until_active(window)
        self.screen.tap("w", "Control_L")
        wait_for(lambda: not self.screen.windows(), "no window")

    def test_get_no_answer_but_yes_to_what_means_nothing(self):
        self.ask("Open", "['file:///etc/hostname']", "{}")
        self.ask("ActivateAction", "no-such-action", "[<1>]", "{}")
        holds_for(lambda: not self.screen.windows() and self.tarnwick.popups.count() == 0, 0.3, "something happened")
        self.assertTrue(self.tarnwick.program.running())


class ThatFindItNotRunning(OtherPrograms):
    """The bus starts it where its service file is installed."""

    @classmethod
    def prepare(cls):
        cls.home = cls.session.directory / "home"
        services = cls.home / ".local/share/dbus-1/services"
        services.mkdir(parents=True)
        program = pathlib.Path(os.environ["TARNWICK_BINARY"]).resolve()
        (services / f"{NAME}.service").write_text(f"[D-BUS Service]\nName={NAME}\nExec={program}\n")
        settings = cls.home / ".config/Quorlane/Tarnwick.conf"
        settings.parent.mkdir(parents=True)
        settings.write_text(settings_text({}))
        environment = {key: cls.session.environment[key]
                       for key in ("DISPLAY", "HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR")}
        listed = "{" + ", ".join(f"'{key}': '{value}'" for key, value in environment.items()) + "}"
        cls.session.call("gdbus", "call", "--session", "--dest", "org.freedesktop.DBus", "--object-path",
                         "/org/freedesktop/DBus", "--method", "org.freedesktop.DBus.UpdateActivationEnvironment", listed)
        cls.session.call("gdbus", "call", "--session", "--dest", "org.freedesktop.DBus", "--object-path",
                         "/org/freedesktop/DBus", "--method", "org.freedesktop.DBus.ReloadConfig")

    def test_start_it_with_what_they_ask_for(self):
        self.screen.move(*POINTER)
        self.pop_up()
        wait_for(lambda: self.screen.unmanaged_window_at(POINTER), "a menu at the pointer")
        self.screen.tap("Escape")
        wait_for(lambda: not self.screen.unmanaged_window_at(POINTER), "no menu")
        self.assertEqual(self.screen.windows(), [])
        self.ask("Activate", "{}")
        self.screen.wait_until_active(self.screen.window_titled("Hot Key"))


if __name__ == "__main__":
    main()
