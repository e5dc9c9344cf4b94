# SPDX-License-Identifier: MIT
"""Measures how fast Tarnwick is, each figure beside its baseline of the same run, as a Markdown table."""
import argparse
import importlib
import sys

import table

# What each group is about, and the function that prints its rows.
GROUPS = {
    "reading": ("reading and building a submenu", "reading.rows"),
    "rebuilding": ("rebuilding the root for ten real applications", "rebuilding.rows"),
    "pop-up": ("from the hot key to the first paint of the pop-up", "painting.pop_up_rows"),
    "first-use": ("the same, and a submenu, the first time after the start", "painting.first_rows"),
    "submenu": ("from the pointer to the first paint of a submenu of 30 items", "painting.submenu_rows"),
    "large-submenu": ("the same with 2,000 items", "painting.large_submenu_rows"),
    "starting": ("from the start of the process to the hot key", "starting.rows"),
    "idle": ("while nobody uses it, and memory", "idle.rows"),
    "scaling": ("the cost grows with the items that are shown, and with nothing else", "scaling.rows"),
    "search": ("finding entries by what is typed", "searching.rows"),
    "instructions": ("instructions of a pop-up", "instructions.rows"),
    "wayland": ("the menu on Wayland itself, in each compositor of a newer system", "wayland.rows"),
    "exchanges": ("answers of the X server and messages on the buses", "exchanges.rows"),
}


def main():
    parser = argparse.ArgumentParser(prog="scripts/bench", description=__doc__,
                                     epilog="; ".join(f"{name}: {what}" for name, (what, _) in GROUPS.items()))
    parser.add_argument("groups", nargs="*", metavar="GROUP", help=f"{', '.join(GROUPS)}; all without")
    parser.add_argument("--record", action="store_true", help="record instructions and exchanges anew")
    arguments = parser.parse_args()
    unknown = [group for group in arguments.groups if group not in GROUPS]
    if unknown:
        parser.error(f"no such group: {', '.join(unknown)}")
    if arguments.record:
        return max(importlib.import_module(module).check(record_anew=True) for module in ("instructions", "exchanges"))
    table.print_head()
    for group in arguments.groups or GROUPS:
        module, function = GROUPS[group][1].split(".")
        getattr(importlib.import_module(module), function)()
    return 0


if __name__ == "__main__":
    sys.exit(main())
