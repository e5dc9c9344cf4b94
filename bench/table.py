# SPDX-License-Identifier: MIT
"""The one table that everything measured goes into: each figure beside its baseline of the same run."""
import statistics

HEAD = ("figure", "median", "95th percentile", "messages", "baseline", "its median", "its 95th percentile",
        "its messages", "of the baseline", "target", "met")


def late(values):
    """The 95th percentile."""
    values = sorted(values)
    return values[round(0.95 * (len(values) - 1))]


class Series:
    """Values of one thing that was measured again and again, in one unit."""

    def __init__(self, values, unit="ms", messages=""):
        self.values = list(values)
        self.unit = unit
        self.messages = messages

    @property
    def median(self):
        return statistics.median(self.values)

    @property
    def late(self):
        return late(self.values)

    def cells(self):
        """Median, 95th percentile, messages; one value has no percentile."""
        return (self._text(self.median), self._text(self.late) if len(self.values) > 1 else "", self.messages)

    def _text(self, value):
        digits = 0 if isinstance(value, int) or abs(value) >= 1000 else 1 if abs(value) >= 100 else 2
        return f"{value:.{digits}f} {self.unit}".strip()


def print_head():
    print("| " + " | ".join(HEAD) + " |\n|" + "---|" * len(HEAD), flush=True)


def print_row(figure, measured, baseline, against, target, met, ratio=None):
    """`baseline` names what `against` was measured of; without a target a row only tells."""
    share = measured.median / against.median if against and against.median else None
    cells = (figure, *measured.cells(), baseline, *(against.cells() if against else ("", "", "")),
             ratio or (f"{share:.2f}" if share is not None else ""), target,
             "" if met is None else "yes" if met else "**no**")
    print("| " + " | ".join(map(str, cells)) + " |", flush=True)


def print_compared(figure, measured, baseline, against, most):
    """A row whose median may be `most` times that of the baseline."""
    print_row(figure, measured, baseline, against, f"≤ {most:g} ×", measured.median <= most * against.median)
