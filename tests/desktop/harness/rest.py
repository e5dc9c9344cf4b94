# SPDX-License-Identifier: MIT
"""Whether programs have come to rest, seen from outside: none of them notices that somebody looks."""
import pathlib
import time

from .waiting import LIMIT, wait_for

MORE_LOOKS = 2
IDLE = 0.1  # seconds


def wait_until_asleep(pids, limit=LIMIT):
    """Waits until programs that wake each other all sleep at the same time: nothing is on its way between them then.

    Whoever is told something can run from that moment on. So two looks without any run in between have seen such a moment.
    Who is just about to fall asleep looks as if it slept, hence one look more. They take a millisecond each: a program may
    wake itself now and then.
    """
    def all_sleep():
        first = _runs_of(pids)
        return first is not None and all(_runs_of(pids) == first for _ in range(MORE_LOOKS))
    wait_for(all_sleep, f"processes {pids} at rest", limit)


def wait_until_idle(pids, limit=LIMIT):
    """Waits until none of them has run, or wanted to, for a while: who does something in short steps is busy between them."""
    since, last = time.monotonic(), None

    def are_idle():
        nonlocal since, last
        runs = _runs_of(pids)
        if runs is None or runs != last:
            since, last = time.monotonic(), runs
        return time.monotonic() - since > IDLE
    wait_for(are_idle, f"processes {pids} idle", limit)


def _runs_of(pids):
    """How often each of their threads has begun to run; nothing while one of them could run now."""
    runs = {}
    for pid in pids:
        for task in _threads_of(pid):
            try:
                runs[task.name] = (task / "schedstat").read_text().split()[2]
                state = (task / "stat").read_text().rpartition(") ")[2][0]
            except OSError:  # it has ended
                continue
            if state in "RD":
                return None
    return runs


def _threads_of(pid):
    try:
        return list(pathlib.Path(f"/proc/{pid}/task").iterdir())
    except OSError:  # it has ended
        return []
