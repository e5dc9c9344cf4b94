# SPDX-License-Identifier: MIT
"""What all tests in a Wayland compositor begin with."""
import os
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "desktop"))

from compositors import KWin, Labwc, Sway
from harness.applications import DATA, fixture_program
from harness.case import DesktopTest, main
from harness.waiting import wait_for

COMPOSITORS = {"sway": Sway, "labwc": Labwc, "kwin": KWin}


class WaylandTest(DesktopTest):
    """A test in a session of the compositor that TARNWICK_COMPOSITOR names, sway without it."""

    session_class = COMPOSITORS[os.environ.get("TARNWICK_COMPOSITOR", "sway")]
    usual_tools = session_class.tools

    def setUp(self):
        self.input = self.session.input


class UnseenFixture:
    """A fixture program that runs on Wayland itself, unless `environment` says otherwise, of which no pictures are needed; made
    when its text field has the keyboard. GTK 4 would have it before its window is there."""

    def __init__(self, session, kit, *options, name=None, **environment):
        self._session = session
        self.kit = kit
        self.log = session.directory / "out" / f"{name or kit}.log"
        self.program = session.run(fixture_program(kit), DATA / "editor.menu", "--log", self.log, *options, **environment)
        self._wait_for(lambda: self.lines("focus")[-1:] == ["in"], f"the focus in {kit}; it wrote {self.program.output!r}")

    def _wait_for(self, find, what):
        """What is only there once its window is."""
        return wait_for(lambda: find() or self._session.map_lost_windows(self.pid), what, step=0.05)

    @property
    def pid(self):
        return self.program.pid

    def lines(self, kind):
        """The rest of the lines that begin with `kind`, oldest first."""
        content = self.log.read_text(encoding="utf-8") if self.log.exists() else ""
        return [line[len(kind) + 1:] for line in content.splitlines() if line.split(" ")[0] == kind]

    def end(self):
        self.program.stop()
        self.log.unlink(missing_ok=True)


class NativeFixture(UnseenFixture):
    """The same, as it is seen on the screen."""

    def __init__(self, session, kit, *options, **environment):
        session.put_pointer_away()
        self._empty = session.picture_at_rest()
        super().__init__(session, kit, *options, **environment)
        self.frame()  # GTK 4 has the focus before its window is there

    def frame(self):
        """(left, top, right, bottom) of its window in the picture of the screen, once that is at rest; with its shadow."""
        return self._wait_for(lambda: self._session.picture_at_rest().changed_from(self._empty), "its window in the picture")

    def end(self):
        """Ends it, and waits until the screen is as it was before."""
        self._session.put_pointer_away()
        self.program.stop()
        wait_for(lambda: self._session.picture() == self._empty, "the screen without its window", step=0.05)
        super().end()
