# SPDX-License-Identifier: MIT
"""What one pop-up asks of the compositor: it is the same each time, and one more is a growth."""
import pathlib
import sys

from case import main
from native import MenuTest, NativeTarnwick

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "bench"))

from relay import Relay  # noqa: E402

ROUNDS = 5
SURFACES = 2  # the stage, and the menu on it
MOST_ANSWERS = 4  # that are waited for: which window is active, before and after, and the toolkit's own two


class Exchanges(MenuTest):
    @classmethod
    def prepare(cls):
        cls.relay = Relay(cls.session, "tarnwick")
        cls.addClassCleanup(cls.relay.close)
        NativeTarnwick.always = {"WAYLAND_DISPLAY": str(cls.relay.path)}
        super().prepare()

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
                self.assertLessEqual(answers, MOST_ANSWERS)
        self.each(check, ("gtk3",))


if __name__ == "__main__":
    main()
