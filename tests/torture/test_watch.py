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
        wait_for(lambda: tarnwick.absences(begin), "an absence")
        absence = tarnwick.absences(begin)[0]
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
        self.assertAlmostEqual(absence.paused, 0.13, delta=0.05)


if __name__ == "__main__":
    main()
