# SPDX-License-Identifier: MIT
"""What a program and its compositor say to each other, seen from in between (wayland_relay.c)."""
import os
import pathlib
import select
import subprocess

LIMIT = 30.0  # seconds


class Relay:
    """Between the compositor and the programs that are told its path; tells the moments that it sees, in seconds."""

    def __init__(self, session, name):
        self.path = session.directory / "run" / f"relay-{name}"
        self._program = subprocess.Popen(
            ["setpriv", "--pdeathsig", "KILL", os.environ["TARNWICK_RELAY"], self.path,
             pathlib.Path(session.environment["XDG_RUNTIME_DIR"]) / session.environment["WAYLAND_DISPLAY"]],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, bufsize=0)
        self._lines = []
        self._rest = b""
        self._next_line()

    def close(self):
        self._program.stdin.close()
        self._program.wait()
        self._program.stdout.close()

    def wait_for(self, moment):
        """When it was, the next time that it is told."""
        while True:
            told, when = self._next_line().split()
            if told == moment:
                return int(when) / 1e6

    def forget(self):
        """What was told so far is not waited for any more."""
        self.counts()
        self._lines.clear()

    def counts(self):
        """How many answers of the compositor were waited for so far, and how many surfaces were made."""
        self._program.stdin.write(b"\n")
        while (line := self._next_line().split())[0] != "asked":
            pass
        return int(line[1]), int(line[3])

    def _next_line(self):
        while not self._lines:
            if not select.select([self._program.stdout], [], [], LIMIT)[0]:
                raise RuntimeError(f"nothing happens between the program and the compositor for {LIMIT} s")
            *self._lines, self._rest = (self._rest + os.read(self._program.stdout.fileno(), 4096)).split(b"\n")
        return self._lines.pop(0).decode()
