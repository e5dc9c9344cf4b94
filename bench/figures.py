# SPDX-License-Identifier: MIT
"""How long a person waits for a menu, and what Tarnwick takes of the memory.

Nothing is read back while something is measured: what counts is what the X server reports as drawn.
"""
import pathlib
import statistics
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "tests/desktop"))

from Xlib import display  # noqa: E402
from Xlib.ext import damage  # noqa: E402

from harness.accessible import AccessibilityBus  # noqa: E402
from harness.applications import KITS, Fixture  # noqa: E402
from harness.session import Session  # noqa: E402
from harness.tarnwick import OPTION, TRIGGER, Tarnwick  # noqa: E402
from harness.waiting import wait_for  # noqa: E402

POINTER = (900, 80)  # over nothing, so that only the menu is drawn there
ROUNDS = 50
ITEMS = 30


class Drawing:
    """Notes when something is drawn, and where."""

    def __init__(self, name):
        self._display = display.Display(name)
        self._display.damage_query_version()
        self._display.screen().root.damage_create(damage.DamageReportRawRectangles)
        self._display.sync()
        self._seen = []

    def forget(self):
        self._collect()
        self._seen.clear()

    def first_in(self, frame):
        """When something was first drawn whose middle is inside `frame`; nothing so far gives None."""
        self._collect()
        x, y, width, height = frame
        return next((when for when, (left, top) in self._seen
                     if x <= left < x + width and y <= top < y + height), None)

    def quiet_for(self, seconds):
        self._collect()
        return not self._seen or time.monotonic() - self._seen[-1][0] > seconds

    def _collect(self):
        while self._display.pending_events():
            event = self._display.next_event()
            if hasattr(event, "area"):
                area = event.area
                middle = (area.x + area.width // 2, area.y + area.height // 2)
                self._seen.append((time.monotonic(), middle))


class Figures:
    """A session with Tarnwick and one program in front."""

    def __init__(self, kit):
        self.session = Session().start()
        self.screen = self.session.screen
        self.drawing = Drawing(self.session.environment["DISPLAY"])
        bus = AccessibilityBus(self.session.environment["DBUS_SESSION_BUS_ADDRESS"])
        self.tarnwick = Tarnwick(self.session)
        wait_for(bus.is_enabled, "accessibility switched on", step=0.05)
        fixture = Fixture(self.session, kit, "--grow", str(ITEMS))
        entries = len(fixture.bar_items(bus))
        bus.close()
        self.screen.move(*POINTER)
        self.tarnwick.wait_until_ready()
        wait_for(lambda: self._height() > 20 * entries, "the menu of the program", step=0.2)

    def close(self):
        self.session.stop()

    def _height(self):
        height = self.tarnwick.open().frame[3]
        self._end()
        return height

    def _end(self):
        self.tarnwick.close_menu()
        wait_for(lambda: self.drawing.quiet_for(0.05), "a quiet screen")
        self.drawing.forget()

    def key_to_menu(self, key, level, *held):
        """Seconds from the press of a key to the first drawing of the menu at `level` (1 is the pop-up)."""
        for modifier in held:
            self.screen.press(modifier)
        self.drawing.forget()
        begin = time.monotonic()
        self.screen.press(key)
        frame = None

        def drawn():
            nonlocal frame
            if frame is None:
                windows = self.tarnwick.popups.windows()
                frame = self._own_area(windows) if len(windows) == level else None
            return frame and self.drawing.first_in(frame)
        when = self._watch(drawn)
        self.screen.release(key)
        for modifier in reversed(held):
            self.screen.release(modifier)
        return when - begin

    def _watch(self, drawn):
        end = time.monotonic() + 5
        while time.monotonic() < end:
            self.drawing.quiet_for(0)  # takes the time of what has come
            if when := drawn():
                return when
        raise AssertionError("no menu was drawn")

    @staticmethod
    def _own_area(windows):
        """The part of the last menu that the one before it does not cover."""
        x, y, width, height = windows[-1].frame
        if len(windows) > 1:
            left, _, covered, _ = windows[-2].frame
            right = max(x, left + covered)
            return right, y, x + width - right, height
        return x, y, width, height

    def pop_up(self):
        seconds = self.key_to_menu(TRIGGER, 1, OPTION)
        self._end()
        return seconds

    def submenu(self):
        self.tarnwick.open()
        self.screen.tap("m")
        wait_for(lambda: self.drawing.quiet_for(0.08), "a quiet screen")
        seconds = self.key_to_menu("Right", 2)
        self._end()
        return seconds

    def private_memory(self):
        """Bytes that only this process uses and that cannot be read again from a file."""
        lines = pathlib.Path(f"/proc/{self.tarnwick.pid}/smaps_rollup").read_text().splitlines()
        return sum(int(line.split()[1]) * 1024 for line in lines if line.startswith(("Private_Dirty:", "Swap:")))


def row(what, seconds):
    seconds = sorted(seconds)
    median = statistics.median(seconds) * 1000
    late = seconds[round(0.95 * (len(seconds) - 1))] * 1000
    print(f"| {what} | {median:.1f} ms | {late:.1f} ms |", flush=True)


def main():
    print(f"| of {ROUNDS} | median | 95th percentile |\n|---|---|---|")
    memory = []
    for kit in KITS:
        figures = Figures(kit)
        try:
            memory.append(figures.private_memory())
            if kit == KITS[0]:
                row("key press to first paint of the menu", [figures.pop_up() for _ in range(ROUNDS)])
            row(f"opening a submenu of {ITEMS} items, {kit}", [figures.submenu() for _ in range(ROUNDS)])
            if kit == KITS[0]:
                memory.append(figures.private_memory())  # two rounds: 100 pop-ups
        finally:
            figures.close()
    before, after = (value / 2**20 for value in memory[:2])
    print(f"\nPrivate memory after {2 * ROUNDS} pop-ups: {after:.1f} MiB ({before:.1f} MiB after the first).")


if __name__ == "__main__":
    main()
