# SPDX-License-Identifier: MIT
"""KWin tells of windows whoever has a desktop entry that asks for it. The one that is installed with the program does."""
import pathlib
import shutil
import sys

from case import UnseenFixture, WaylandTest, main
from compositors import KWin
from windows import PROBE, Windows

_TEMPLATE = pathlib.Path(__file__).resolve().parents[2] / "packaging/linux/example.quorlane.Tarnwick.desktop.in"
_ENTRIES = "home/.local/share/applications"
_HANDS = """[Desktop Entry]
Type=Application
Name=Hands
Exec={}
X-KDE-Wayland-Interfaces=org_kde_kwin_fake_input
"""


class GuardedKWin(KWin):
    """As a person has it: it asks who wants to know of windows, or to press keys, as the tests do. It looks for programs in the
    menu of the desktop, which Plasma brings along. `installed` is one that has the entry of Tarnwick."""

    _ENVIRONMENT = {name: value for name, value in KWin._ENVIRONMENT.items() if "PERMISSION" not in name}
    _MENU = "<Menu><Name>Applications</Name><DefaultAppDirs/><Include><All/></Include></Menu>"

    def _start_compositor(self):
        self._write("home/.config/menus/applications.menu", self._MENU)
        program = pathlib.Path(sys.executable).resolve()
        # In the place of the one that the system has for it: KWin takes any of several.
        self._write(f"{_ENTRIES}/{program.name}.desktop", _HANDS.format(program))
        self.installed = pathlib.Path(shutil.copy(PROBE, self.directory / "home/installed"))
        text = _TEMPLATE.read_text(encoding="utf-8")
        for name in ("TARNWICK_EXEC", "TARNWICK_PROGRAM"):
            text = text.replace(f"@{name}@", str(self.installed))
        self._write(f"{_ENTRIES}/example.quorlane.Tarnwick.desktop", text)
        return super()._start_compositor()


class ThePermission(WaylandTest):
    session_class = GuardedKWin

    def test_is_given_to_the_program_that_the_installed_entry_names_and_to_no_other(self):
        fixture = UnseenFixture(self.session, "gtk3")
        self.addCleanup(fixture.end)
        for program, process in ((self.session.installed, fixture.pid), (PROBE, 0)):
            with self.subTest(program.name):
                windows = Windows(self.session, program)
                self.addCleanup(windows.stop)
                self.assertEqual(windows.active()[1], process)


if __name__ == "__main__":
    main()
