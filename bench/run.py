# SPDX-License-Identifier: MIT
"""Measures how fast Tarnwick is, each figure beside its baseline of the same run, as a Markdown table."""
import argparse
import importlib
import sys

import table

# What each group is about; a group is a module with rows().
GROUPS = {
    "reading": "reading and building a submenu",
    "painting": "from a key or the pointer to the first paint",
    "instructions": "instructions of a pop-up",
}


def main():
    parser = argparse.ArgumentParser(prog="scripts/bench", description=__doc__,
                                     epilog="; ".join(f"{name}: {what}" for name, what in GROUPS.items()))
    parser.add_argument("groups", nargs="*", metavar="GROUP", help=f"{', '.join(GROUPS)}; all without")
    parser.add_argument("--record", action="store_true", help="record the ratios of instructions anew")
    arguments = parser.parse_args()
    unknown = [group for group in arguments.groups if group not in GROUPS]
    if unknown:
        parser.error(f"no such group: {', '.join(unknown)}")
    if arguments.record:
        return importlib.import_module("instructions").check(record_anew=True)
    table.print_head()
    for group in arguments.groups or GROUPS:
        importlib.import_module(group).rows()
    return 0


if __name__ == "__main__":
    sys.exit(main())
