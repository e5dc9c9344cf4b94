# SPDX-License-Identifier: MIT
"""Instructions of a pop-up on the fakes, and of a search, beside a yardstick in the same binary. They are the same in every run."""
import json
import os
import pathlib
import re
import subprocess
import sys

from table import Series, print_row

RECORD = pathlib.Path(__file__).with_name("instructions.json")
ROUNDS = 200
ROOM = 1.10  # how far above the record a ratio may be
YARDSTICK = "bench_reference"
WHAT = {"pop-up": "instructions of a pop-up of an unchanged root, on fakes",
        "submenu": "the same, with a submenu of 30 items opened in it",
        "search": "instructions of a query typed letter by letter among 6,000 entries"}
FUNCTIONS = {"pop-up": "bench_pop_up", "submenu": "bench_pop_up", "search": "bench_search_entries"}


def counted(function, what):
    """Instructions of one call of a function of bench_instructions."""
    program = pathlib.Path(os.environ["TARNWICK_BENCH"]) / "bench_instructions"
    result = subprocess.run(["valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null",
                             f"--toggle-collect={function}", program, str(ROUNDS), what],
                            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=True, timeout=100, text=True)
    return int(re.search(r"Collected : (\d+)", result.stdout)[1]) // (ROUNDS + 1)


def rows():
    record = json.loads(RECORD.read_text(encoding="utf-8"))
    for what, title in WHAT.items():
        measured, yardstick = counted(FUNCTIONS[what], what), counted(YARDSTICK, what)
        share = measured / yardstick
        print_row(title, Series([measured], ""), "a fixed loop in the same binary", Series([yardstick], ""),
                  f"≤ {ROOM:.2f} × {record[what]}, the recorded ratio", share <= ROOM * record[what], f"{share:.4f}")


def check(record_anew=False):
    """The status of the test: 1 when a ratio is too high."""
    ratios = {what: round(counted(FUNCTIONS[what], what) / counted(YARDSTICK, what), 4) for what in WHAT}
    if record_anew:
        RECORD.write_text(json.dumps(ratios, indent=1) + "\n", encoding="utf-8")
    record = json.loads(RECORD.read_text(encoding="utf-8"))
    for what, ratio in ratios.items():
        print(f"{what}: {ratio} times the yardstick, recorded {record[what]}")
    high = [what for what, ratio in ratios.items() if ratio > ROOM * record[what]]
    if high:
        print(f"More than {ROOM:.0%} of what is recorded: {', '.join(high)}. Where they go: callgrind_annotate. When it "
              "is meant to be so: scripts/bench --record, and say why in the commit.")
    return 1 if high else 0


if __name__ == "__main__":
    sys.exit(check())
