# SPDX-License-Identifier: MIT
"""What a process holds: memory of its own, things in the X server, descriptors."""
import os
import pathlib
import statistics
import typing

from Xlib.ext import res


class Resources(typing.NamedTuple):
    """`memory` is KiB that the process alone has written to, `in_server` how many things it has in the X server."""

    memory: int
    in_server: int
    descriptors: int

    @classmethod
    def of(cls, screen, pid):
        return cls(private_memory(pid), _in_server(screen.display, pid), len(os.listdir(f"/proc/{pid}/fd")))


def growth(values):
    """How much values that were taken at even distances grow from the first to the last.

    It goes by the medians of the first and of the last quarter: a value taken while a window was being made anew tilts
    no line, and a step late in the row is seen.
    """
    quarter = len(values) // 4
    more = statistics.median(values[-quarter:]) - statistics.median(values[:quarter])
    return more * (len(values) - 1) / (len(values) - quarter)  # what lies between the middles of the two


def private_memory(pid):
    """What comes from files is not in it: it becomes private when another program that has it, too, ends."""
    lines = pathlib.Path(f"/proc/{pid}/smaps_rollup").read_text().splitlines()
    return sum(int(line.split()[1]) for line in lines if line.startswith(("Private_Dirty:", "Swap:")))


def _in_server(display, pid):
    count = 0
    for client in display.res_query_clients().clients:
        ids = display.res_query_client_ids([{"client": client.resource_base, "mask": res.LocalClientPIDMask}]).ids
        if any(value.value and value.value[0] == pid for value in ids):
            count += sum(kind.count for kind in display.res_query_client_resources(client.resource_base).types)
    return count
