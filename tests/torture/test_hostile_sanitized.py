# SPDX-License-Identifier: MIT
"""Hostile applications before a program that is built with the sanitizers: it reads nothing that is not there, and loses
nothing. How long it takes, and how much memory, is not held to limits here: it is several times slower than people's."""
import test_hostile_applications as plain
from test_soak import SANITIZER

from harness.case import main


class AHostileApplication(plain.AHostileApplication):
    @classmethod
    def prepare(cls):
        cls.session.environment.update(SANITIZER)
        super().prepare()

    @classmethod
    def tearDownClass(cls):
        """What was lost is told at the end, by the exit status, too."""
        status = cls.tarnwick.program.stop(limit=120)
        if status != 0 or cls.tarnwick.program.output:
            raise AssertionError(f"exit status {status}: {cls.tarnwick.program.output}")
        super().tearDownClass()

    def judge(self, what, scenario, *arguments):
        ordeal = plain.Ordeal(self.tarnwick)
        scenario(ordeal, *arguments)
        self.assertTrue(self.tarnwick.program.running(), self.tarnwick.program.output)
        self.assert_nothing_is_held()
        return ordeal

    def test_answers_when_nobody_waits_any_more(self):
        self.grown = []
        self.judge(f"answers {plain.LATE:.0f} s too late, which is waited for", self.wait_for_late_answers)


if __name__ == "__main__":
    main()
