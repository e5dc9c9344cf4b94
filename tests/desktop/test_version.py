# SPDX-License-Identifier: MIT
"""--version says what this build can do, and on what it would run here."""
import os
import subprocess

from harness.case import DesktopTest, main

BUILT = "Built with LayerShellQt" if os.environ["TARNWICK_HAS_LAYERS"] == "1" else "Built without LayerShellQt"


class TheVersion(DesktopTest):
    def printed(self, without=(), **environment):
        inherited = {name: value for name, value in self.session.environment.items() if name not in without}
        result = subprocess.run([os.environ["TARNWICK_BINARY"], "--version"], env={**inherited, **environment},
                                timeout=60, check=True, capture_output=True, text=True)
        self.assertEqual(result.stderr, "")
        return result.stdout.splitlines()

    def test_is_told_with_what_the_build_can_do(self):
        version, desktop = self.printed()
        self.assertRegex(version, r"^Tarnwick \d+\.\d+\.\d+$")
        self.assertEqual(desktop, f"{BUILT}, runs here on X11.")

    def test_tells_where_it_would_run(self):
        for expected, without, environment in (
                ("runs here on XWayland.", (), {"XDG_SESSION_TYPE": "wayland"}),
                ("runs here on XWayland.", (), {"WAYLAND_DISPLAY": "nobody-listens"}),
                ("finds no display here to run on.", ("DISPLAY",), {})):
            with self.subTest(expected):
                self.assertEqual(self.printed(without, **environment)[1], f"{BUILT}, {expected}")

    def test_needs_no_bus_and_starts_nothing(self):
        self.printed(("DBUS_SESSION_BUS_ADDRESS", "DISPLAY"))
        self.assertFalse((self.session.directory / "home/.config/Quorlane").exists())


if __name__ == "__main__":
    main()
