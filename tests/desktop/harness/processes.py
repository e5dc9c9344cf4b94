# SPDX-License-Identifier: MIT
"""Programs of a session, and their certain end."""
import ctypes
import os
import pathlib
import signal
import subprocess
import time

from .waiting import LIMIT, wait_for

_PR_SET_CHILD_SUBREAPER = 36


def adopt_orphans():
    """Makes services that detach themselves children of this process, so that none outlives the tests."""
    ctypes.CDLL(None, use_errno=True).prctl(_PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0)


def children_of(pid):
    """The process ids of the direct children of `pid`."""
    found = []
    try:
        tasks = list(pathlib.Path(f"/proc/{pid}/task").glob("*/children"))
    except OSError:  # it has ended
        return found
    for task in tasks:
        try:
            found += [int(child) for child in task.read_text().split()]
        except OSError:
            continue
    return found


def descendants_of(pid):
    """The process ids of everything that `pid` has started, directly or not."""
    for child in children_of(pid):
        yield child
        yield from descendants_of(child)


def environment_of(pid):
    """The environment that `pid` was started with, as one string; empty when it has ended."""
    try:
        return pathlib.Path(f"/proc/{pid}/environ").read_bytes().decode(errors="replace")
    except OSError:
        return ""


def command_line_of(pid):
    """The command line of `pid`, as one string; empty when it has ended."""
    try:
        return pathlib.Path(f"/proc/{pid}/cmdline").read_bytes().replace(b"\0", b" ").decode(errors="replace")
    except OSError:
        return ""


def end_all_with(marker, limit=5.0):
    """Ends what we have started, directly or not, with `marker` in its environment: kindly first."""
    end = time.monotonic() + limit
    asked = set()
    while left := [pid for pid in descendants_of(os.getpid()) if pid in asked or marker in environment_of(pid)]:
        for pid in left:
            if pid not in asked or time.monotonic() > end:
                _signal(pid, signal.SIGTERM if time.monotonic() < end else signal.SIGKILL)
            asked.add(pid)
        _take_statuses(asked & set(children_of(os.getpid())))
        time.sleep(0.005)


def _signal(pid, number):
    try:
        os.kill(pid, number)
    except ProcessLookupError:
        pass


def _take_statuses(children):
    for pid in children:
        os.waitpid(pid, os.WNOHANG)


class Program:
    """A program that runs in a session; what it writes goes to a file there."""

    def __init__(self, command, environment, directory, **options):
        self.name = os.path.basename(command[0])
        self.output_file = directory / f"{self.name}.{time.monotonic_ns()}.out"
        command = ["setpriv", "--pdeathsig", "KILL", *command]  # it must not outlive tests that are killed
        with open(self.output_file, "wb") as output:
            self._process = subprocess.Popen(command, env=environment, cwd=directory, stdin=subprocess.DEVNULL,
                                             stdout=output, stderr=subprocess.STDOUT, **options)

    @property
    def pid(self):
        return self._process.pid

    @property
    def output(self):
        return self.output_file.read_text(errors="replace")

    def running(self):
        return self._process.poll() is None

    def status(self, limit=LIMIT):
        """Waits for the end and returns the exit status, negative for a signal."""
        wait_for(lambda: not self.running(), f"the end of {self.name}", limit)
        return self._process.returncode

    def stop(self, limit=10.0):
        """Asks the program to end, then makes it."""
        if self.running():
            self._process.terminate()
            try:
                self._process.wait(limit)
            except subprocess.TimeoutExpired:
                self.kill()
        return self._process.returncode

    def kill(self):
        self._process.kill()
        self._process.wait()
