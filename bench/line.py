# SPDX-License-Identifier: MIT
"""The line through what was measured at several sizes."""


def fitted(points):
    """(fixed cost, cost of one, greatest deviation from the line, as a part of it) of {count: cost}.

    Each point counts by its part, not by its size: otherwise the largest would decide alone.
    """
    weights = [(count, cost, 1 / cost ** 2) for count, cost in points.items()]
    total = sum(weight for *_, weight in weights)
    middle = sum(count * weight for count, _, weight in weights) / total
    mean = sum(cost * weight for _, cost, weight in weights) / total
    slope = (sum((count - middle) * (cost - mean) * weight for count, cost, weight in weights) /
             sum((count - middle) ** 2 * weight for count, _, weight in weights))
    fixed = mean - slope * middle
    return fixed, slope, max(abs(cost / (fixed + slope * count) - 1) for count, cost in points.items())
