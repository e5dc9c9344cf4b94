# SPDX-License-Identifier: MIT
"""Menu bars that programs export for a place outside their windows, and who collects them."""
import pathlib
import sys

from .applications import Application
from .waiting import wait_for

REGISTRAR = "com.canonical.AppMenu.Registrar"
MENUS = "com.canonical.dbusmenu"
_HERE = pathlib.Path(__file__).resolve().parent


class Exporting(Application):
    """A program with a window and an exported menu bar; made when it is in front."""

    def __init__(self, session, *options):
        super().__init__(session, [sys.executable, _HERE / "exporter.py", *options], "Exporter")

    def lines(self, kind):
        """The rest of the lines that begin with `kind`, oldest first."""
        return [line[len(kind) + 1:] for line in self.program.output.splitlines() if line.startswith(kind + " ")]

    def chosen(self):
        return self.lines("clicked")


class Registrar:
    """Collects the menu bars of all windows, as the panels of some desktops do, from when it is made to stop(). Programs of
    Qt that start meanwhile export theirs, and show none in their windows. `menus` are known to it from the beginning:
    windows with the service and path of each."""

    def __init__(self, session, menus=()):
        known = [str(part) for menu in menus for part in menu]
        self._program = session.run(sys.executable, _HERE / "registrar.py", *known)
        wait_for(lambda: "collecting" in self._program.output, "a collector of menu bars")

    def stop(self):
        self._program.stop()
