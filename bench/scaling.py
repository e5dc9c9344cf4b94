# SPDX-License-Identifier: MIT
"""That the cost grows in step with the items that are shown, and with nothing else."""
from stage import Stage

from harness.applications import KITS

from line import fitted
from reading import in_turns
from table import Series, print_row

SIZES = {10: 40, 30: 30, 100: 20, 300: 12, 1000: 6, 3000: 4, 10000: 2}
LONGEST_LINE = 3000  # beyond, the time that GTK takes to tell the children grows with the square of their number
PATIENCE = 30  # times the half second that a reading may take
BARS = {5: 200, 10: 200, 20: 100, 40: 60, 60: 60}
DEEP = 300  # items in each menu of a bar of which nothing is opened
ENTRIES = 20
OFF = 0.25  # of the fitted line
OF_FLOOR = {"items": 1.25, "entries": 1.5}


def rows():
    for kit in KITS:
        _menus_row(kit)
    for kit in KITS:
        _bars_row(kit)
    for kit in KITS:
        _depth_row(kit)


def _menus_row(kit):
    """Beside the floor: an application may take longer for each of many items, whoever asks."""
    measured = {size: _both(kit, lambda stage, rounds=rounds: stage.floor(rounds),
                            lambda stage, rounds=rounds: stage.reading(rounds, patience=PATIENCE), "--grow", str(size))
                for size, rounds in SIZES.items()}
    _print_lines(f"reading submenus, {kit}", measured, "items")


def _bars_row(kit):
    measured = {entries: _both(kit, lambda stage, rounds=rounds: stage.bar_floor(rounds),
                               lambda stage, rounds=rounds: stage.rebuilding(rounds), text=_bar(entries, 1))
                for entries, rounds in BARS.items()}
    _print_lines(f"rebuilding the root, {kit}", measured, "entries")


def _depth_row(kit):
    deep, shallow = (_both(kit, None, lambda stage: stage.rebuilding(BARS[ENTRIES]), text=_bar(ENTRIES, items))
                     for items in (DEEP, 1))
    print_row(f"rebuilding the root, {kit}: {ENTRIES} entries, {ENTRIES * DEEP:,} items in their closed menus", deep,
              f"{ENTRIES} items", shallow, f"≤ {1 + OFF:g} ×", deep.median <= (1 + OFF) * shallow.median)


def _both(kit, floor, tarnwick, *options, text=None):
    """What both take on a stage of its own; without a floor the other alone."""
    stage = Stage(kit, *options, text=text)
    try:
        return in_turns(lambda: floor(stage), lambda: tarnwick(stage)) if floor else tarnwick(stage)
    finally:
        stage.close()


def _bar(entries, items):
    return "".join(f"Entry {entry}\n" + "".join(f"  Item {item}\n" for item in range(items))
                   for entry in range(entries))


def _print_lines(what, measured, of):
    points = {count: tarnwick.median for count, (_, tarnwick) in measured.items()}
    shares = {count: tarnwick.median / floor.median for count, (floor, tarnwick) in measured.items()}
    _print_line(what, {count: cost for count, cost in points.items() if count <= LONGEST_LINE}, of)
    each = ", ".join(f"{count:,}: {share:.2f}" for count, share in shares.items())
    most = OF_FLOOR[of]
    print_row(f"the same, of the floor ({each})", Series([max(shares.values())], "×"), "the floor", None,
              f"≤ {most:g} × at each", max(shares.values()) <= most, "–")


def _print_line(what, points, of):
    fixed, slope, off = fitted(points)
    each = ", ".join(f"{count:,}: {cost:.2f} ms" for count, cost in points.items())
    print_row(f"{what} ({each})", Series([1000 * slope], "µs"), f"one of the {of}, fitted; {1000 * fixed:.0f} µs besides",
              None, f"≤ {OFF:.0%} off a line", off <= OFF, f"{off:.0%} off at most")
