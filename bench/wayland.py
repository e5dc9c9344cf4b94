# SPDX-License-Identifier: MIT
"""On Wayland itself: from the trigger to the first frame of the menu, from the choice to the press, and reading ahead; in
each compositor of the newer system."""
import pathlib
import subprocess

_IN_ROOT = (str(pathlib.Path(__file__).resolve().parents[1] / "scripts/in-root"), "trixie")
_BUILD = "/tarnwick/build/trixie"
_TARGETS = ("tarnwick", "bench", "menu_fixture_gtk3", "menu_fixture_qt6")
_ENVIRONMENT = (f"TARNWICK_BINARY={_BUILD}/tarnwick", f"TARNWICK_BENCH={_BUILD}", f"TARNWICK_FIXTURES={_BUILD}/tests",
                f"TARNWICK_RELAY={_BUILD}/bench_wayland_relay", "PYTHONDONTWRITEBYTECODE=1")


def rows():
    """Has the newer system build and measure; that prints the rows."""
    for command in (("cmake", "--preset", "trixie"), ("cmake", "--build", "--preset", "trixie", "--target", *_TARGETS)):
        subprocess.run((*_IN_ROOT, *command), check=True, stdout=subprocess.DEVNULL)
    subprocess.run((*_IN_ROOT, "env", *_ENVIRONMENT, "python3", "bench/wayland_measuring.py"), check=True)
