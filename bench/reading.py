# SPDX-License-Identifier: MIT
"""How long a submenu takes to be read, beside the fewest calls that could do it and beside the usual way of asking; of what
programs export, up to where its entries are there, and up to where its menu is built."""
from exported import ForOutside, OfAWindow
from stage import Stage

from harness.applications import KITS
from table import Series, print_compared, print_row

ROUNDS = {30: 200, 300: 50, 2000: 15}
OF_EXPORTS = {30: 200, 300: 100}
TURNS = 3
OF_THE_USUAL_WAY = {"gtk3": 3, "qt5": 6, "qt6": 6}


def rows():
    for kit in KITS:
        for size, rounds in ROUNDS.items():
            _rows_of(kit, size, rounds)
    for kind, name in ((ForOutside, "com.canonical.dbusmenu of qt6"), (OfAWindow, "org.gtk.Menus of gtk4")):
        for size, rounds in OF_EXPORTS.items():
            _row_of_export(kind, name, size, rounds)


def in_turns(*ways, turns=TURNS):
    """Measures all of them again and again, so that a slow moment of the machine meets each."""
    results = [tuple(way() for way in ways) for _ in range(turns)]
    return [Series([value for one in each for value in one.values], each[0].unit, each[0].messages)
            for each in zip(*results)]


def _row_of_export(kind, name, size, rounds):
    stage = kind(size)
    try:
        floor, entries, reading = in_turns(*(lambda way=way: way(rounds) for way in (
            stage.floor, stage.entries, stage.reading)))
    finally:
        stage.close()
    if floor.messages != entries.messages:
        raise RuntimeError(f"the floor of {name} sends {floor.messages} messages, Tarnwick {entries.messages}")
    print_compared(f"reading a submenu of {size} items, {name}", entries, "the floor", floor, 1.25)
    print_row("the same, and its menu is built", reading, "the floor", floor, "", None)


def _rows_of(kit, size, rounds):
    stage = Stage(kit, "--grow", str(size))
    try:
        floor, reading = in_turns(lambda: stage.floor(rounds), lambda: stage.reading(rounds))
        usual = stage.one_by_one(max(5, rounds // 10))
    finally:
        stage.close()
    print_compared(f"reading a submenu of {size} items, {kit}", reading, "the floor", floor, 1.25)
    parts = usual.median / reading.median
    least = OF_THE_USUAL_WAY[kit]
    print_row("the same", reading, "libatspi, one call after another", usual, f"≤ 1/{least}", parts >= least,
              f"1/{parts:.1f}")
