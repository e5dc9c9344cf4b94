# SPDX-License-Identifier: MIT
"""Whether the watch that the other tests rely on sees what it should."""
import time

from torture import WatchedTarnwick, note, wait_for

from harness.applications import Fixture
from harness.case import DesktopTest, main


class TheWatch(DesktopTest):
    def absence_at_a_switch(self, hurry=None):
        tarnwick = WatchedTarnwick(self.session, hurry=hurry)
        self.addCleanup(tarnwick.stop)
        tarnwick.wait_until_ready()
        begin = time.monotonic()
        application = Fixture(self.session, "gtk3")
        self.addCleanup(application.program.kill)
        self.screen.activate(application.window)
        absence = wait_for(lambda: next((found for found in tarnwick.absences(begin) if found.paused), None),
                           "an absence with a pause in it")
        self.assertLess(absence.end, time.monotonic())
        self.assertGreater(tarnwick.private_memory(), 500)
        self.assertGreater(tarnwick.descriptors(), 5)
        return absence

    def test_sees_the_pause_at_a_switch_as_one(self):
        absence = self.absence_at_a_switch()
        self.assertGreaterEqual(absence.paused, 0.65)
        self.assertGreaterEqual(absence.end - absence.begin, 0.64)
        note("the pause at a switch, as the watch sees it", round(absence.paused, 3), unit="s")

    def test_sees_a_shorter_pause_of_a_hurried_clock(self):
        absence = self.absence_at_a_switch(hurry=0.2)
        self.assertGreaterEqual(absence.paused, 0.13 - 0.001)
        self.assertLess(absence.paused - absence.starved, 0.13 + 0.05)


if __name__ == "__main__":
    main()
