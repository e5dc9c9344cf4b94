# SPDX-License-Identifier: MIT
"""Compares the menus of an application with the menus that mirror them."""
import collections
import dataclasses
import difflib
import typing

from entries import EMPTY, Entry

KINDS = ("missing", "extra", "order", "title", "separator", "submenu", "enabled", "checked", "shortcut")
_LOOKS = (("title", "title"), ("submenu", "holds_menu"), ("enabled", "enabled"), ("checked", "checked"),
          ("shortcut", "shortcut"))


@dataclasses.dataclass
class Difference:
    """One thing that is not as it should be, and where."""

    path: str  # titles, joined by " > "; a separator has the entry before it in brackets
    kind: str
    expected: str = ""
    shown: str = ""


@dataclasses.dataclass
class Result:
    """What a comparison has come to. Separators are items; the entries of the bar are counted by themselves.

    Something extra is one item more, which is wrong. So is what lies below an entry that is greyed or empty on one side
    only. Whoever wants to see the shortcuts counts an item as wrong that has one and shows none.
    """

    bar: int = 0
    bar_right: int = 0
    items: int = 0
    right: int = 0
    right_with_shortcuts: int = 0
    differences: list = dataclasses.field(default_factory=list)
    apart: collections.Counter = dataclasses.field(default_factory=collections.Counter)
    unread: list = dataclasses.field(default_factory=list)

    def wrong_by_kind(self):
        found = collections.Counter(difference.kind for difference in self.differences)
        return {kind: found[kind] for kind in KINDS if found[kind]}


@dataclasses.dataclass
class _Pair:
    """An entry of the application and the one that mirrors it; either may be missing."""

    truth: typing.Optional[Entry]
    shown: typing.Optional[Entry]
    moved: bool = False
    before: str = ""  # the title in front of it

    def name(self):
        entry = self.truth or self.shown
        return f"--- [{self.before}]" if entry.separator else entry.title


def compare(truth, shown):
    """Compares two menu bars."""
    result = Result()
    _compare_menu(truth, shown, (), result)
    return result


def _compare_menu(truth, shown, path, result):
    for pair in _pairs(truth, shown):
        name = pair.name()
        found = list(_differences(pair, " > ".join((*path, name))))
        result.differences += found
        if path:
            result.items += 1
            result.right += not found
            result.right_with_shortcuts += not found and not (pair.truth and pair.truth.apart)
        else:
            result.bar += 1
            result.bar_right += not found
        if pair.truth is not None:
            _go_deeper(pair, (*path, name), result)


def _go_deeper(pair, path, result):
    if pair.truth.apart:
        result.apart[pair.truth.apart] += 1
    if pair.truth.unread:
        result.unread.append({"path": " > ".join(path), "why": pair.truth.unread})
    truth, shown = _reachable(pair.truth, pair.shown), _reachable(pair.shown, pair.truth)
    if truth is not None:
        _compare_menu(truth, shown or [], path, result)


def _reachable(entry, other):
    """What can be opened below an entry; nothing when that is not known, as where it is greyed on both sides."""
    if entry is None or entry.unread == EMPTY:
        return []
    if not entry.enabled and other is not None and other.enabled:
        return []
    return entry.entries


def _differences(pair, path):
    one, other = pair.truth, pair.shown
    if one is None:
        yield Difference(path, "separator" if other.separator else "extra", "", other.key)
    elif other is None:
        yield Difference(path, "separator" if one.separator else "missing", one.key, "")
    elif not one.separator:
        if pair.moved:
            yield Difference(path, "order")
        for kind, attribute in _LOOKS:
            expected, shown = getattr(one, attribute), getattr(other, attribute)
            if expected != shown:
                yield Difference(path, kind, _text(expected), _text(shown))


def _text(value):
    if value is None:
        return "none"
    return {True: "yes", False: "no"}.get(value, value) if isinstance(value, bool) else value


def _pairs(truth, shown):
    """Same keys in the same order first; then what has moved; then what stands in the place of something else."""
    pairs = []  # (place, pair)
    gaps = []
    matcher = difflib.SequenceMatcher(None, [e.key for e in truth], [e.key for e in shown], autojunk=False)
    for tag, start, end, other_start, other_end in matcher.get_opcodes():
        if tag == "equal":
            for offset in range(end - start):
                pairs.append((start + offset, _Pair(truth[start + offset], shown[other_start + offset])))
        else:
            gaps.append((list(range(start, end)), shown[other_start:other_end], start))
    _pair_moved(truth, gaps, pairs)
    for places, others, start in gaps:
        _pair_gap(truth, places, others, start, pairs)
    pairs.sort(key=lambda placed: placed[0])
    before = ""
    for _, pair in pairs:
        pair.before = before
        before = before if (pair.truth or pair.shown).separator else pair.name()
    return [pair for _, pair in pairs]


def _pair_moved(truth, gaps, pairs):
    for places, _, _ in gaps:
        for place in list(places):
            for _, others, _ in gaps:
                found = next((o for o in others if not o.separator and o.key == truth[place].key), None)
                if found is not None:
                    pairs.append((place, _Pair(truth[place], found, moved=True)))
                    places.remove(place)
                    _remove(others, found)
                    break


def _pair_gap(truth, places, others, start, pairs):
    named = [place for place in places if not truth[place].separator]
    named_others = [other for other in others if not other.separator]
    if len(named) == len(named_others):
        for place, other in zip(named, named_others):
            pairs.append((place, _Pair(truth[place], other)))
            places.remove(place)
            _remove(others, other)
    pairs += [(place, _Pair(truth[place], None)) for place in places]
    pairs += [(start - 0.5, _Pair(None, other)) for other in others]


def _remove(entries, entry):
    """By identity: others may look the same."""
    entries[:] = [each for each in entries if each is not entry]
