# SPDX-License-Identifier: MIT
"""What one pop-up asks of the compositor: it is the same each time, and one more is a growth."""
import os
import pathlib
import sys

from case import main
from native import MenuTest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "bench"))

from relay import Relay  # noqa: E402

ROUNDS = 5
SURFACES = 2  # the stage, and the menu on it
# Answers that are waited for: which window is active, and whether the keys can be had as an input method has them. KWin, which
# has nothing of that, is asked for the window after the menu, too, and the toolkit has two questions of its own there.
MOST_ANSWERS = {"sway": 2, "labwc": 2, "kwin": 4}


class Exchanges(MenuTest):
    most_answers = MOST_ANSWERS[os.environ.get("TARNWICK_COMPOSITOR", "sway")]

    @classmethod
    def prepare(cls):
        cls.relay = Relay(cls.session, "tarnwick")
        cls.addClassCleanup(cls.relay.close)
        super().prepare(WAYLAND_DISPLAY=str(cls.relay.path))

    def test_of_a_pop_up_are_few(self):
        def check(_fixture):
            for _ in range(ROUNDS):
                self.tarnwick.wait_until_at_rest()
                before = self.relay.counts()
                self.open()
                self.close()
                self.tarnwick.wait_until_at_rest()
                answers, surfaces = (after - first for after, first in zip(self.relay.counts(), before))
                self.assertEqual(surfaces, SURFACES)
                self.assertLessEqual(answers, self.most_answers)
        self.each(check, ("gtk3",))


if __name__ == "__main__":
    main()
