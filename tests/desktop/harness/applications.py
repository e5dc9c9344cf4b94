# SPDX-License-Identifier: MIT
"""The applications that the tests are run over."""
import os
import pathlib

from .tools import require
from .waiting import wait_for

DATA = pathlib.Path(__file__).resolve().parents[2] / "data"
KITS = ("gtk3", "qt5", "qt6")

_TEXT = 61


class Application:
    """A program with a window; made when one of its windows is in front."""

    starts_in = 60.0  # seconds: the first one of a kind on a machine finds nothing in any cache

    def __init__(self, session, command, title="", **extra_environment):
        self._session = session
        self._accessible = None
        self.program = session.run(*command, **extra_environment)
        self.window = self._first_window(title)
        wait_for(self.is_in_front, f"{self.program.name} in front")

    def is_in_front(self):
        front = self._session.screen.active_window()
        return front is not None and front.pid == self.pid

    def _first_window(self, title):
        def find():
            return next((window for window in self._session.screen.windows()
                         if window.pid == self.program.pid and title in window.title), None)
        return wait_for(find, f"the window of {self.program.name}", self.starts_in)

    @property
    def pid(self):
        return self.program.pid

    def windows(self):
        return [window for window in self._session.screen.windows() if window.pid == self.pid]

    def accessible(self, bus):
        """The application on the accessibility bus, once it is there with a menu bar."""
        if not self._accessible:
            self._accessible = bus.application(self.pid)
            wait_for(self._accessible.menu_bar, f"the menu bar of {self.program.name}", step=0.05)
        return self._accessible

    def wait_until_placed(self, bus):
        """Waits until the toolkit has heard where the window manager has put the window: places it tells are true."""
        wait_for(lambda: any(node.frame == self.window.frame for node in self.accessible(bus).children),
                 f"{self.program.name} knowing its place", step=0.02)

    def bar_items(self, bus):
        return self.accessible(bus).menu_bar().items()

    def text(self, bus):
        """What its text area holds."""
        area = wait_for(lambda: next((node for node in self.accessible(bus).descendants(12) if node.role == _TEXT), None),
                        f"the text area of {self.program.name}")
        return area.text()


class Fixture(Application):
    """One of our own programs with a menu bar made from a file of tests/data; it writes down what happens in it."""

    def __init__(self, session, kit, *options, menu="editor.menu", title=None, **extra_environment):
        title = title or f"Fixture {kit}"
        self.log_file = session.directory / "out" / f"{title}.log"
        self.log_file.unlink(missing_ok=True)
        self.menu_file = menu if os.path.isabs(menu) else DATA / menu
        super().__init__(session, [fixture_program(kit), self.menu_file, "--log", self.log_file, "--title", title,
                                   *options], title, **extra_environment)

    def lines(self, kind):
        """The rest of the lines that begin with `kind`, oldest first."""
        content = self.log_file.read_text() if self.log_file.exists() else ""
        return [line[len(kind) + 1:] for line in content.splitlines() if line.split(" ")[0] == kind]

    def chosen(self):
        return self.lines("chosen")

    def typed(self):
        return self.lines("typed")

    def content(self):
        return (self.lines("text") or [""])[-1]

    def forget(self):
        """Begins a new log."""
        with open(self.log_file, "w", encoding="utf-8"):
            pass

    def wait_for_line(self, kind, text):
        wait_for(lambda: text in self.lines(kind), f"{kind} {text!r}")


def fixture_program(kit):
    program = pathlib.Path(os.environ["TARNWICK_FIXTURES"]) / f"menu_fixture_{kit}"
    require(program)
    return program


def mousepad(session):
    require("mousepad")
    return Application(session, ["mousepad", "--disable-server"], "Mousepad")


def featherpad(session):
    require("featherpad")
    return Application(session, ["featherpad", "--standalone"])
