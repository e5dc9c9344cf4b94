# SPDX-License-Identifier: MIT
"""The real applications that rebuilding the root is measured with, and the one whose menus are searched."""
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "tests/coverage"))

import catalogue  # noqa: E402

NAMES = ("mousepad", "geany", "pluma", "caja", "atril", "gnumeric", "abiword", "featherpad", "speedcrunch",
         "sqlitebrowser")
OFFICE = "libreoffice-writer"


def office():
    return catalogue.applications()[OFFICE]


def applications():
    known = catalogue.applications()
    return [known[name] for name in NAMES]


if __name__ == "__main__":
    print("\n".join(catalogue.packages([*applications(), office()])))
