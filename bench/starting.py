# SPDX-License-Identifier: MIT
"""From the start of the process to the hot key, the accessibility bus already running."""
import os

from stage import PROGRAMS, WARM_UP, Stage, milliseconds, run

from harness.applications import KITS
from harness.tarnwick import TRIGGER, settings_text

from reading import in_turns
from table import Series, print_compared

ROUNDS = 10
OF_BARE = 1.5
ALT = 8  # a bit of the X state
BARE_KEY = 75  # F9


def rows():
    stage = Stage(KITS[0])
    try:
        settings = stage.session.directory / "home/.config/Quorlane/Tarnwick.conf"
        settings.parent.mkdir(parents=True)
        settings.write_text(settings_text({}), encoding="utf-8")

        def series(*arguments):
            return Series(milliseconds(run(stage.session, "bench_start", ROUNDS + WARM_UP, *arguments)))
        bare, tarnwick = in_turns(lambda: series("tray", PROGRAMS / "bench_bare", BARE_KEY, 0),
                                  lambda: series("key", TRIGGER, ALT, os.environ["TARNWICK_BINARY"]))
    finally:
        stage.close()
    print_compared("process start to the hot key, accessibility bus running", tarnwick,
                   "a bare Qt program, to its tray icon", bare, OF_BARE)
