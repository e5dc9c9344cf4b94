# SPDX-License-Identifier: MIT
"""A private session with one real application in front."""
from stage import assert_nobody_listens

import chosen  # noqa: F401: it knows where the modules of tests/coverage are
from running import Running, write_files

from harness.accessible import AccessibilityBus
from harness.session import Session


class RealStage:
    """The application has come to rest, and nothing listens once this is made."""

    def __init__(self, application):
        self.session = Session(size="1600x1200").start()
        try:
            bus = AccessibilityBus(self.session.environment["DBUS_SESSION_BUS_ADDRESS"])
            bus.switch_on()
            write_files(application.get("files", {}), self.session)
            running = Running(application, self.session, bus)
            running.settle()
            assert_nobody_listens(bus)
            self.address, self.bar = bus.address, running.bar
            self.entries = len(self.bar.children)
            bus.close()
        except BaseException:
            self.close()
            raise

    def close(self):
        self.session.stop()
