# SPDX-License-Identifier: MIT
"""How long the root menu takes to be rebuilt once a real application has come to the front, the pauses left out."""
import statistics

from stage import WARM_UP, messages, run

import chosen

from reading import in_turns
from real_stage import RealStage
from table import Series, print_row

ROUNDS = 100
FIRST_ROUNDS = 10
OF_FLOOR, MOST = 1.5, 30.0  # times, milliseconds


def rows():
    for application in chosen.applications():
        _row_of(application)


def _row_of(application):
    stage = RealStage(application)
    try:
        bar = stage.bar
        kind = "qt-bar" if application["toolkit"].startswith("Qt") else "gtk-bar"
        floor, rebuilding = in_turns(
            lambda: _parsed(run(stage.session, "bench_floor", stage.address, bar.name_on_bus, bar.path, kind,
                                ROUNDS + WARM_UP)),
            lambda: _parsed(run(stage.session, "bench_rebuilding", ROUNDS + WARM_UP)))
        firsts = [run(stage.session, "bench_rebuilding", 1) for _ in range(FIRST_ROUNDS)]
    finally:
        stage.close()
    met = rebuilding.median <= min(MOST, OF_FLOOR * floor.median)
    title = f"rebuilding the root, {application['name']} ({application['toolkit']})"
    print_row(title, rebuilding, "the floor", floor, f"≤ {OF_FLOOR:g} ×, ≤ {MOST:g} ms", met)
    first = Series([int(each.split()[0]) / 1000 for each in firsts], messages=firsts[0].split("first ")[1].split()[0])
    print_row("the same, for the first time: the bar is looked for", first, "", None, f"≤ {MOST:g} ms",
              statistics.median(first.values) <= MOST)


def _parsed(output):
    return Series([int(line) / 1000 for line in output.splitlines() if line.isdigit()][WARM_UP:],
                  messages=messages(output))
