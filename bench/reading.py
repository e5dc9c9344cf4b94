# SPDX-License-Identifier: MIT
"""How long a submenu takes to be read, beside the fewest calls that could do it and beside the usual way of asking."""
import os
import pathlib
import statistics
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "tests/desktop"))

from harness.accessible import POPUP_MENU, AccessibilityBus  # noqa: E402
from harness.applications import KITS, Fixture  # noqa: E402
from harness.session import Session  # noqa: E402

SIZES = (30, 300, 2000)
ROUNDS = {30: 200, 300: 50, 2000: 15}
WARM_UP = 3  # rounds that do not count
MANY = "Many"
PROGRAMS = pathlib.Path(os.environ["TARNWICK_BENCH"])


class Menu:
    """A session with one program in it whose last menu has `size` items."""

    def __init__(self, kit, size):
        self.session = Session().start()
        self._kit = kit
        self._size = size
        bus = AccessibilityBus(self.session.environment["DBUS_SESSION_BUS_ADDRESS"])
        bus.switch_on()
        self._fixture = Fixture(self.session, kit, "--grow", str(size))
        holder = next(item for item in self._fixture.bar_items(bus) if item.title == MANY).node
        inner = holder.children
        self._menu = inner[0] if inner and inner[0].role == POPUP_MENU else holder
        self._address = bus.address
        bus.close()  # nothing listens while something is timed

    def close(self):
        self.session.stop()

    def floor(self):
        output = self._run("bench_floor", self._address, self._menu.name_on_bus, self._menu.path,
                           "qt" if self._kit.startswith("qt") else "gtk", self._rounds)
        return self._times(output), int(output.split("messages ")[1])

    def tarnwick(self):
        return self._times(self._run("bench_reading", self._fixture.pid, MANY, self._rounds))

    def one_by_one(self):
        rounds = max(WARM_UP + 5, ROUNDS[self._size] // 10)
        return self._times(self._run("bench_one_by_one", self._fixture.pid, MANY, rounds))

    @property
    def _rounds(self):
        return ROUNDS[self._size] + WARM_UP

    def _run(self, program, *arguments):
        command = [PROGRAMS / program, *map(str, arguments)]
        result = subprocess.run(command, env=self.session.environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                                check=True, timeout=300, text=True)
        return result.stdout

    @staticmethod
    def _times(output):
        """Milliseconds, those of the warm-up left out."""
        return [int(line) / 1000 for line in output.splitlines() if line.isdigit()][WARM_UP:]


def late(values):
    values = sorted(values)
    return values[round(0.95 * (len(values) - 1))]


def row(kit, size):
    menu = Menu(kit, size)
    try:
        # In turns, so that a slow moment of the machine meets both.
        floors, readings = [], []
        messages = 0
        for _ in range(3):
            times, messages = menu.floor()
            floors += times
            readings += menu.tarnwick()
        slow = menu.one_by_one()
    finally:
        menu.close()
    floor, reading, usual = map(statistics.median, (floors, readings, slow))
    print(f"| {kit} | {size} | {messages} | {floor:.2f} | {reading:.2f} | {late(readings):.2f} | "
          f"{reading / floor:.2f} | {usual:.1f} | 1/{usual / reading:.1f} |", flush=True)


def main():
    print("| toolkit | items | messages | floor, ms | Tarnwick, ms | 95th percentile, ms | of the floor | "
          "libatspi, ms | of libatspi |\n|---|---|---|---|---|---|---|---|---|")
    for kit in KITS:
        for size in SIZES:
            row(kit, size)


if __name__ == "__main__":
    main()
