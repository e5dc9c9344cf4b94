# SPDX-License-Identifier: MIT
"""tarnwick-inspect, run in a session."""
import os
import subprocess

from .applications import DATA


def menu_lines():
    """The editor's menu as it is when nothing is selected and nothing is in the clipboard, with what is greyed then.

    What cannot be told is left out: that an entry could be checked, and a key that is a shortcut all by itself.
    """
    lines = [line for line in (DATA / "editor.menu").read_text().splitlines() if line and not line.startswith("#")]
    for command in ("Cut", "Copy", "Paste"):
        lines = [line.replace(f"  {command}\t", f"  -{command}\t") for line in lines]
    lines = [line.removesuffix("\tF3") for line in lines]
    return [line.replace("+", "", 1) if line.strip().startswith("+") else line for line in lines]


class Inspects:
    """What tests have that run it in `self.session`."""

    def inspect(self, *options, **environment):
        return subprocess.run([os.environ["TARNWICK_INSPECT"], *options], env={**self.session.environment, **environment},
                              timeout=60, check=False, capture_output=True, text=True)

    def printed(self, *options):
        """The lines of the menu."""
        result = self.inspect(*options)
        self.assertEqual(result.returncode, 0, result.stderr)
        return [line for line in result.stdout.splitlines() if not line.startswith("#")]
