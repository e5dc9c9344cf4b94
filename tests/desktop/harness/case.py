# SPDX-License-Identifier: MIT
"""What all desktop tests begin with."""
import os
import pathlib
import shutil
import sys
import unittest

from .accessible import AccessibilityBus
from .session import Session
from .tools import require

_TOOLS = ("Xvfb", "openbox", "dbus-daemon", "dbus-monitor", "setxkbmap", "setpriv", "xclip", "import")


def _failures(result):
    return len(result.failures) + len(result.errors)


class DesktopTest(unittest.TestCase):
    """A test with a session of its own class; `prepare` starts what all its tests need."""

    session_class = Session
    session_options = {}
    usual_tools = _TOOLS
    tools = ()

    @classmethod
    def setUpClass(cls):
        require(*cls.usual_tools, *cls.tools)
        cls.session = cls.session_class(**cls.session_options)
        cls.addClassCleanup(cls.session.stop)
        cls.session.start()
        cls.screen = cls.session.screen
        cls.bus = None
        try:
            cls.prepare()
        except BaseException:
            cls._keep_evidence(f"{cls.__name__}.prepare")
            raise

    @classmethod
    def prepare(cls):
        """Starts what the tests of the class share."""

    @classmethod
    def connect_accessibility(cls):
        """The accessibility bus of the session, from now on in `cls.bus`."""
        if cls.bus is None:
            cls.bus = AccessibilityBus(cls.session.environment["DBUS_SESSION_BUS_ADDRESS"])
            cls.addClassCleanup(cls.bus.close)
        return cls.bus

    def doCleanups(self):
        """What a failed test leaves is kept first: the clean-up ends the programs that it is about."""
        if self._result and _failures(self._result) > self._failures_before:
            self._keep_evidence(self.id().split(".", 1)[-1])
        return super().doCleanups()

    def run(self, result=None):
        self._result = result
        self._failures_before = _failures(result) if result else 0
        super().run(result)
        if getattr(self, "screen", None):
            self.screen.release_everything()
        return result

    @classmethod
    def _keep_evidence(cls, name):
        """Leaves for the person who looks into the failure: a picture of the screen, and what the programs wrote."""
        directory = pathlib.Path(os.environ.get("TARNWICK_TEST_OUTPUT", "desktop-failures")) / name
        shutil.rmtree(directory, ignore_errors=True)
        shutil.copytree(cls.session.directory / "out", directory)
        cls.session.screenshot(directory / "screen.png")
        print(f"what was left: {directory}", file=sys.stderr)


def main():
    """Runs the tests of the calling file; the status is 77 when a missing tool has kept all of them from running."""
    program = unittest.main(verbosity=2, exit=False)
    result = program.result
    nothing_ran = result.wasSuccessful() and result.testsRun == 0
    sys.exit(77 if nothing_ran else not result.wasSuccessful())
