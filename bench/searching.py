# SPDX-License-Identifier: MIT
"""The search in the menu: what it takes to find, to show and to read, and what is left of it in memory."""
import os
import pathlib
import subprocess
import time

from stage import PROGRAMS, PlainTarnwick, Stage, run

import chosen

from harness.applications import KITS
from harness.tarnwick import OPTION, TRIGGER

from idle import private_memory
from painting import POINTER
from real_stage import RealStage
from table import Series, print_row

ENTRIES, ROUNDS = 6000, 100
MOST = 1.0  # milliseconds, at the 95th percentile of all queries
MENUS = pathlib.Path(__file__).resolve().parents[1] / "tests/data/search/libreoffice-writer.menu"
WHAT = {"whole": "matching and ranking {entries} entries, the query typed at once",
        "grown": "the same, after one more letter"}
BAR, SUBMENUS, ITEMS = 12, 10, 49  # entries of the bar, submenus in each, items in each
WORD = "insert"
PAINTED = 16.0  # milliseconds, at the 95th percentile
SEARCHES = 10
OFFICE_READ = 300.0  # milliseconds
KEPT = 0.2  # MiB


def rows():
    _matching_rows()
    for kit in KITS:
        _many_rows(kit)
    _office_row()


def _matching_rows():
    program = pathlib.Path(os.environ["TARNWICK_BENCH"]) / "bench_search"
    output = subprocess.run([program, MENUS, str(ENTRIES), str(ROUNDS)], stdout=subprocess.PIPE,
                            stderr=subprocess.DEVNULL, check=True, timeout=300, text=True).stdout
    lines = [line.split() for line in output.splitlines()]
    entries = int(next(line[1] for line in lines if line[0] == "entries"))
    assert entries >= ENTRIES, f"only {entries} entries"
    for what, title in WHAT.items():
        search = Series([int(line[1]) / 1e6 for line in lines if line[0] == what])
        plain = Series([int(line[2]) / 1e6 for line in lines if line[0] == what])
        print_row(title.format(entries=f"{entries:,}"), search, "`QString::contains` over the titles", plain,
                  f"≤ {MOST:g} ms", search.late <= MOST)


def _many_entries():
    """A menu bar with so many entries, called what those of a real application are."""
    titles = [line.split("\t")[0].strip() for line in MENUS.read_text(encoding="utf-8").splitlines()[1:]]
    titles = [title for title in titles if title.strip("-")]
    following = iter(titles * (1 + ENTRIES // len(titles)))
    lines = []
    for entry in range(BAR):
        lines.append(f"Menu {entry}")
        for submenu in range(SUBMENUS):
            lines.append(f"  Submenu {submenu}")
            lines += [f"    {next(following)}" for _ in range(ITEMS)]
    return "\n".join(lines) + "\n"


def _searched(session, rounds):
    """What is measured in as many searches, by what it is of."""
    screen = session.screen
    keys = [screen.key_code(key) for key in ("Down", "slash", *WORD)]
    output = run(session, "bench_first_paint", "--search", rounds, *POINTER, screen.key_code(OPTION), TRIGGER, *keys)
    lines = [line.split() for line in output.splitlines()]
    return {what: Series([int(value) / 1000 for name, value in lines if name == what])
            for what in ("highlight", "read", "letter")}


def _many_rows(kit):
    stage = Stage(kit, text=_many_entries())
    try:
        tarnwick = PlainTarnwick(stage.session)
        tarnwick.wait_until_mirrored(BAR)
        unused = private_memory(tarnwick.pid)
        _searched(stage.session, 1)
        first = private_memory(tarnwick.pid)
        times = _searched(stage.session, SEARCHES)
        last = private_memory(tarnwick.pid)
    finally:
        stage.close()
    entries = f"{BAR * (1 + SUBMENUS * (1 + ITEMS)):,}"
    print_row(f"key press to first paint of what is found among {entries} entries, {kit}", times["letter"],
              "key press to first paint of the next entry highlighted in the menu", times["highlight"],
              f"95th ≤ {PAINTED:g} ms", times["letter"].late <= PAINTED)
    print_row(f"key press to the last paint of what is found while {entries} entries are read, {kit}", times["read"],
              "", None, "", None)
    print_row(f"private memory after the first search of them, the menu closed, {kit}", Series([first - unused], "MiB"),
              "before it", Series([unused], "MiB"), "", None, "–")
    print_row(f"the same after {SEARCHES} more", Series([last - first], "MiB"), "after the first",
              Series([first], "MiB"), f"≤ {KEPT:g} MiB", last - first <= KEPT, "–")


def _office_row():
    stage = RealStage(chosen.office())
    try:
        session = stage.session
        session.screen.move(*POINTER)
        PlainTarnwick(session).wait_until_mirrored(stage.entries)
        read = _searched(session, SEARCHES)["read"]
        inspected = Series([_inspected(session) for _ in range(SEARCHES)])
    finally:
        stage.close()
    print_row("key press to the last paint of what is found in all menus of LibreOffice Writer", read,
              "`tarnwick-inspect --all`", inspected, f"≤ {OFFICE_READ:g} ms", read.median <= OFFICE_READ)


def _inspected(session):
    begin = time.monotonic()
    subprocess.run([PROGRAMS / "tarnwick-inspect", "--all"], env=session.environment, stdout=subprocess.DEVNULL,
                   check=True, timeout=60)
    return 1000 * (time.monotonic() - begin)
