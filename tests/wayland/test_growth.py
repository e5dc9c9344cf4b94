# SPDX-License-Identifier: MIT
"""Pop-ups on end: nothing grows.

Environment:
  TARNWICK_GROWTH_POP_UPS   so many of them instead of 400
"""
import os
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "torture"))

from case import NativeFixture, main
from native import ESCAPE, MenuTest
from resources import growth, private_memory

WARM_UP = 100  # pop-ups: caches fill, and the heap finds its size
MANY = int(os.environ.get("TARNWICK_GROWTH_POP_UPS", "400"))
EVERY = 5  # so many pop-ups it is looked at
# KiB: 500 pop-ups add 4 to 16 of them, and one page more here and there; the heap takes 132 at once when it has to. What
# is lost at each pop-up is seen from 2.5 KiB on with 150 of them, and from 1 KiB on with 400.
MEMORY = 300


class ManyPopUps(MenuTest):
    def pop_up(self):
        self.tarnwick.pop_up()
        self.reader.wait_for(1)
        self.input.tap(ESCAPE)
        self.wait_until_closed()

    def descriptors(self):
        return len(os.listdir(f"/proc/{self.tarnwick.pid}/fd"))

    def test_neither_memory_nor_descriptors_grow(self):
        fixture = NativeFixture(self.session, "gtk3")
        self.addCleanup(fixture.end)
        self.wait_until_readable(fixture)
        for _ in range(WARM_UP):
            self.pop_up()
        memory, descriptors = [], []
        for number in range(MANY):
            if number % EVERY == 0:
                self.tarnwick.wait_until_told()
                memory.append(private_memory(self.tarnwick.pid))
                descriptors.append(self.descriptors())
            self.pop_up()
        print(f"memory {memory} KiB, descriptors {descriptors}", file=sys.stderr)
        self.assertLess(growth(memory), MEMORY, memory)
        self.assertLess(growth(descriptors), 1, descriptors)


if __name__ == "__main__":
    main()
