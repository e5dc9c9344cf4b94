# SPDX-License-Identifier: MIT
"""How long a query takes among 6,000 entries, beside QString::contains over the same titles."""
import os
import pathlib
import subprocess

from table import Series, print_row

ENTRIES, ROUNDS = 6000, 100
MOST = 1.0  # milliseconds, at the 95th percentile of all queries
MENUS = pathlib.Path(__file__).resolve().parents[1] / "tests/data/search/libreoffice-writer.menu"
WHAT = {"whole": "matching and ranking {entries} entries, the query typed at once",
        "grown": "the same, after one more letter"}


def rows():
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
