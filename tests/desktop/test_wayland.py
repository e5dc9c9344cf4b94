# SPDX-License-Identifier: MIT
"""Tarnwick in a Wayland session: over applications on XWayland as on X11, over others by the action on the bus."""
import pathlib

from harness.applications import DATA, fixture_program
from harness.case import DesktopTest, main
from harness.inspecting import Inspects, menu_lines
from harness.over import OWN_ENTRY
from harness.tarnwick import Tarnwick
from harness.waiting import holds_for, wait_for
from harness.wayland import TOOLS, WaylandSession

OPTION, TRIGGER, DOWN, RETURN, ESCAPE = 64, 52, 116, 36, 9
NATIVE = {"gtk3": {"GDK_BACKEND": "wayland"}, "qt6": {"QT_QPA_PLATFORM": "wayland"}}
ON_XWAYLAND = {"gtk3": {"GDK_BACKEND": "x11"}, "qt6": {"QT_QPA_PLATFORM": "xcb"}}
TITLES = ["File", "Edit", "View", "Help", "", OWN_ENTRY]


class WaylandApplication:
    """A fixture program as the compositor knows it; made when its window is in front."""

    def __init__(self, session, kit, environment):
        self._session = session
        self.log_file = session.directory / "out" / f"{kit}.{len(list((session.directory / 'out').iterdir()))}.log"
        self.program = session.run(fixture_program(kit), DATA / "editor.menu", "--log", self.log_file, "--title",
                                   f"Fixture {kit}", **environment)
        wait_for(lambda: session.window_of(self.pid), f"the window of {kit}")
        session.focus(self.pid)

    @property
    def pid(self):
        return self.program.pid

    @property
    def shell(self):
        return self._session.window_of(self.pid)["shell"]

    @property
    def center(self):
        rect = self._session.window_of(self.pid)["rect"]
        return rect["x"] + rect["width"] // 2, rect["y"] + rect["height"] // 2

    def chosen(self):
        lines = pathlib.Path(self.log_file).read_text().splitlines() if self.log_file.exists() else []
        return [line.removeprefix("chosen ") for line in lines if line.startswith("chosen ")]


class AWaylandSession(DesktopTest):
    session_class = WaylandSession
    tools = (*TOOLS, "gapplication")

    @classmethod
    def prepare(cls):
        cls.connect_accessibility().switch_on()
        cls.tarnwick = Tarnwick(cls.session, ToldWhatIsMissing=True)
        cls.session.call("gdbus", "wait", "--session", "--timeout", "15", "example.quorlane.Tarnwick")
        cls.reader = cls.tarnwick.reader(cls.bus)
        cls.addClassCleanup(cls.reader.close)

    def setUp(self):
        self.input = self.session.input

    def start(self, kit, environment):
        application = WaylandApplication(self.session, kit, environment)
        self.addCleanup(application.program.stop)
        wait_for(self.bus.application(application.pid).menu_bar, "its menu bar", step=0.05)
        return application

    def pop_up(self):
        self.session.call("gapplication", "action", "example.quorlane.Tarnwick", "pop-up")

    def titles_after(self, trigger):
        """What the menu shows after a trigger, once Tarnwick has time; the menu is left open."""
        self.tarnwick.wait_until_at_rest()
        trigger()
        self.reader.wait_for(1)
        return self.reader.titles()

    def open_menu(self, trigger):
        self.assertEqual(self.titles_after(trigger), TITLES)


class OverAnApplicationOnXWayland(AWaylandSession):
    def check(self, kit):
        application = self.start(kit, ON_XWAYLAND[kit])
        self.assertEqual(application.shell, "xwayland")
        x, y = application.center
        self.input.move(x - 5, y)
        self.input.move(x, y)
        wait_for(lambda: self.screen.pointer() == (x, y), "the pointer on the window")
        for trigger in (lambda: self.input.tap(TRIGGER, OPTION), self.pop_up):
            self.open_menu(trigger)
            self.assertEqual(self.tarnwick.popups.windows()[0].frame[:2], (x, y))
            self.input.tap(DOWN)
            self.input.tap(RETURN)
            self.reader.wait_for(2)
            self.input.tap(RETURN)  # the first entry of the first menu
            self.tarnwick.popups.wait_for(0)
        wait_for(lambda: application.chosen() == ["File > New", "File > New"], "both choices carried out")

    def test_of_gtk_it_works_as_on_x11(self):
        self.check("gtk3")

    def test_of_qt_it_works_as_on_x11(self):
        self.check("qt6")


class OverAnApplicationOfTheCompositorAlone(Inspects, AWaylandSession):
    """Such a window is unknown to the X server. The action finds it; the menu obeys the pointer."""

    def close(self):
        self.input.move(5, 5)
        self.input.click((8, 8))

    def open(self, kit):
        application = self.start(kit, NATIVE[kit])
        self.assertEqual(application.shell, "xdg_shell")
        self.open_menu(self.pop_up)
        return application

    def check(self, kit):
        application = self.open(kit)
        self.assertTrue(self.session.window_of(application.pid)["focused"], "the focus stays where it is")
        with self.subTest("a choice by the pointer is carried out"):
            x, y, width, _ = self.tarnwick.popups.windows()[0].frame
            self.input.move(x + width // 2, y + 8)
            self.input.click((x + width // 2, y + 10))
            self.reader.wait_for(2)
            x, y, width, _ = self.tarnwick.popups.windows()[1].frame
            self.input.move(x + width // 2, y + 8)
            self.input.click((x + width // 2, y + 10))
            self.tarnwick.popups.wait_for(0)
            wait_for(lambda: application.chosen() == ["File > New"], "the choice carried out")
        with self.subTest("a click beside it closes it"):
            self.open_menu(self.pop_up)
            self.close()
            self.tarnwick.popups.wait_for(0)
        with self.subTest("so does the action"):
            self.open_menu(self.pop_up)
            self.pop_up()
            self.tarnwick.popups.wait_for(0)
        with self.subTest("no window is left in the way"):
            nothing_large = lambda: not [window for window in self.screen.unmanaged_windows() if window.frame[2] > 500]
            wait_for(nothing_large, "what caught the clicks gone")
            holds_for(nothing_large, 0.3, "a large window")
        self.assertEqual(application.chosen(), ["File > New"])

    def test_tarnwick_inspect_sees_its_menus_too(self):
        for kit, environment in NATIVE.items():
            with self.subTest(kit):
                application = self.start(kit, environment)
                self.assertEqual(self.printed("--all"), menu_lines())
                application.program.stop()

    def test_of_gtk_the_action_opens_its_menu(self):
        self.check("gtk3")

    def test_of_qt_the_action_opens_its_menu(self):
        self.check("qt6")

    def test_the_hot_key_does_nothing(self):
        self.start("gtk3", NATIVE["gtk3"])
        self.input.tap(TRIGGER, OPTION)
        holds_for(lambda: self.tarnwick.popups.count() == 0, 0.5, "a menu")


class ASwitchBetweenTheTwoKinds(AWaylandSession):
    def test_is_noticed_at_the_next_request(self):
        native = self.start("gtk3", NATIVE["gtk3"])
        self.open_menu(self.pop_up)
        self.pop_up()
        self.tarnwick.popups.wait_for(0)
        program = self.session.run(fixture_program("qt6"), DATA / "viewer.menu", "--title", "Viewer",
                                   **ON_XWAYLAND["qt6"])
        self.addCleanup(program.stop)
        wait_for(lambda: self.session.window_of(program.pid), "the viewer")
        self.session.focus(program.pid)
        wait_for(self.bus.application(program.pid).menu_bar, "its menu bar", step=0.05)
        self.assertEqual(self.titles_after(self.pop_up)[:2], ["File", "Image"])
        self.input.tap(ESCAPE)
        self.tarnwick.popups.wait_for(0)
        self.session.focus(native.pid)
        self.open_menu(self.pop_up)
        self.pop_up()
        self.tarnwick.popups.wait_for(0)


class ThePreferences(DesktopTest):
    session_class = WaylandSession
    tools = TOOLS

    @classmethod
    def prepare(cls):
        cls.connect_accessibility().switch_on()

    def texts(self, pid):
        return [node.name for node in self.bus.application(pid).descendants()]

    def tells(self, tarnwick):
        return any("XWayland" in text for text in self.texts(tarnwick.pid))

    def test_tell_once_what_is_missing(self):
        tarnwick = Tarnwick(self.session, FirstRun=False)
        self.screen.window_titled("Hot Key")
        wait_for(lambda: self.tells(tarnwick), "a word about XWayland", step=0.1)
        settings = tarnwick.settings_file
        wait_for(lambda: "ToldWhatIsMissing=true" in settings.read_text(), "that it was told, stored")
        tarnwick.stop()
        again = Tarnwick(self.session, FirstRun=False, ToldWhatIsMissing=True)
        self.screen.window_titled("Hot Key")
        holds_for(lambda: not self.tells(again), 0.5, "it is told once more")


if __name__ == "__main__":
    main()
