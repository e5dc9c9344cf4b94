# SPDX-License-Identifier: MIT
"""The windows as the compositor tells of them, and a person's way of changing between them."""
import os
import pathlib
import subprocess

from harness.waiting import wait_for

PROBE = pathlib.Path(os.environ["TARNWICK_FIXTURES"]) / "windows_probe"


class Windows:
    """Hears which window is the active one, and makes one active as a task switcher does."""

    def __init__(self, session, probe=PROBE):
        self._file = session.directory / "out" / "windows"
        with open(self._file, "wb") as output:
            self._program = subprocess.Popen(["setpriv", "--pdeathsig", "KILL", probe], env=session.environment,
                                             stdin=subprocess.PIPE, stdout=output)
        wait_for(self.told, "the active window at the start")

    def stop(self):
        self._program.stdin.close()
        self._program.wait()

    def told(self):
        """(number, process, title) of each window that was the active one, oldest first; 0 for what is not told."""
        lines = [line.split(" ", 3) for line in self._file.read_text(encoding="utf-8").splitlines()]
        return [(int(number), int(process), " ".join(title)) for _, number, process, *title in lines]

    def active(self):
        return self.told()[-1]

    def activate(self, number):
        """Makes a window the active one, and waits until it is told so."""
        self._program.stdin.write(f"{number}\n".encode())
        self._program.stdin.flush()
        wait_for(lambda: self.active()[0] == number, f"window {number} as the active one; {self.told()}")
