# SPDX-License-Identifier: MIT
"""--version says that this build runs on Wayland itself, and does so here."""
import os
import subprocess

from case import WaylandTest, main


class TheVersion(WaylandTest):
    def test_tells_of_wayland_itself(self):
        printed = subprocess.run([os.environ["TARNWICK_BINARY"], "--version"], env=self.session.environment, timeout=60,
                                 check=True, capture_output=True, text=True).stdout
        self.assertEqual(printed.splitlines()[1], "Built with LayerShellQt, runs here on Wayland itself.")


if __name__ == "__main__":
    main()
