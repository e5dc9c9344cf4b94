# SPDX-License-Identifier: MIT
"""The table: as data, and as a page to read."""
import collections
import dataclasses
import json

from catalogue import explanation_of
from comparison import KINDS
from entries import SHUT

_HEAD = """# Coverage

How well Tarnwick mirrors the menus of real programs, as Debian has them. Measured, and this page written, by
`scripts/coverage`: it starts each program on a private display as an ordinary user, lets Tarnwick read its menus
while all of them are closed, then opens each menu in the program with the pointer, reads it over the accessibility
bus while it is on the screen, and compares: entries, titles, order, greyed, checked, separators, shortcuts, submenus.

Some programs decide only when a menu opens what is in it and what is greyed. Tarnwick does not open menus in order to
read them: that would show on the screen and act in the program. It shows what such a menu was the last time.

- **bar**: entries of the menu bar that are right, of all.
- **items**: all that can be seen in the opened menus, separators included. An entry too many counts as one that is
  wrong. Of separators next to each other one counts, and none at the end of a menu: so the pop-up draws them.
- **once opened**: the same comparison for what Tarnwick shows after each menu has been open in the program once.
- **apart**: shortcuts that Tarnwick's tables have no code for. It shows none rather than a wrong one, and the item
  counts as right.
- **time**: from the start of `tarnwick-inspect --all` to its end, every submenu read; the median of five.
"""


def row(application, result, seconds, opened):
    """What one application has come to."""
    return {"name": application["name"], "toolkit": application["toolkit"], "bar": result.bar,
            "bar_right": result.bar_right, "items": result.items, "right": result.right,
            "right_once_opened": opened.right, "items_once_opened": opened.items,
            "wrong_by_kind": result.wrong_by_kind(), "apart": dict(result.apart),
            "milliseconds": round(seconds * 1000),
            "differences": [dataclasses.asdict(each) for each in result.differences],
            "differences_once_opened": [dataclasses.asdict(each) for each in opened.differences],
            "unread": result.unread}


def failed(application, reason):
    """An application that could not be measured."""
    return {"name": application["name"], "toolkit": application["toolkit"], "failed": reason}


def load(path):
    """The rows of an earlier run; none when there was none."""
    return json.loads(path.read_text(encoding="utf-8")) if path.exists() else []


def merged(old, new, order):
    """The rows of a new run over those of an old one, in the order of the list."""
    rows = {each["name"]: each for each in [*old, *new]}
    return [rows[name] for name in order if name in rows]


def write(table, rows, known):
    """Both files, the one to read and the one for programs."""
    table.with_suffix(".json").write_text(json.dumps(rows, ensure_ascii=False, indent=1) + "\n", encoding="utf-8")
    table.write_text(markdown(rows, known), encoding="utf-8")


def one_line(one):
    """For the terminal."""
    if "failed" in one:
        return f"failed: {one['failed']}"
    return f"bar {one['bar_right']}/{one['bar']}, items {one['right']}/{one['items']}, wrong {one['wrong_by_kind']}"


def summary(rows):
    """The last line on the terminal."""
    measured = [each for each in rows if "failed" not in each]
    items, right = _sum(measured, "items"), _sum(measured, "right")
    return (f"{len(measured)} of {len(rows)} applications; bars {_sum(measured, 'bar_right')} of "
            f"{_sum(measured, 'bar')}; items {right} of {items} ({_percent(right, items)})")


def is_explained(one, known):
    """Whether an application was measured, all of it, and each difference in it has its explanation."""
    return "failed" not in one and not _unexplained(one, known) and SHUT not in [each["why"] for each in one["unread"]]


def markdown(rows, known):
    """The page."""
    measured = [each for each in rows if "failed" not in each]
    parts = [_HEAD, _table(measured), _apart(measured), _exceptions(measured, known), _unopened(measured),
             _failures([each for each in rows if "failed" in each])]
    return "\n".join(part for part in parts if part)


def _table(rows):
    lines = [_line(["application", "version", "toolkit", "bar", "items", "right", "", "wrong, by kind", "apart",
                    "once opened", "time"]), "|" + "---|" * 11]
    for each in rows:
        lines.append(_line([
            each["name"], each.get("version", ""), each["toolkit"], f"{each['bar_right']}/{each['bar']}",
            each["items"], each["right"], _percent(each["right"], each["items"]), _kinds(each["wrong_by_kind"]),
            sum(each["apart"].values()) or "", _percent(each["right_once_opened"], each["items_once_opened"]),
            f"{each['milliseconds']} ms"]))
    lines.append(_line([value and f"**{value}**" for value in _totals(rows)]))
    return "\n".join(lines) + "\n"


def _totals(rows):
    items, right = _sum(rows, "items"), _sum(rows, "right")
    kinds = collections.Counter()
    for each in rows:
        kinds.update(each["wrong_by_kind"])
    opened = _percent(_sum(rows, "right_once_opened"), _sum(rows, "items_once_opened"))
    return [f"all {len(rows)}", "", "", f"{_sum(rows, 'bar_right')}/{_sum(rows, 'bar')}", items, right,
            _percent(right, items), _kinds(kinds), sum(sum(each["apart"].values()) for each in rows) or "", opened, ""]


def _line(cells):
    return "| " + " | ".join(map(str, cells)) + " |"


def _apart(rows):
    causes = collections.Counter()
    for each in rows:
        causes.update(each["apart"])
    if not causes:
        return ""
    lines = ["## Shortcuts without a code", "", "| cause | shortcuts |", "|---|---|"]
    lines += [f"| {cause} | {count} |" for cause, count in causes.most_common()]
    return "\n".join(lines) + "\n"


def _exceptions(rows, known):
    lines = ["## What is not as it should be, and why", ""]
    for each in rows:
        if not _all_differences(each):
            continue
        lines += [f"### {each['name']}", ""]
        for reason, differences in _by_reason(each, known).items():
            lines.append(f"- {reason or '**Not explained.**'}")
            lines += [f"  - {_difference(one)}{_when(one, each)}" for one in differences]
        lines.append("")
    return "\n".join(lines) if len(lines) > 2 else ""


def _all_differences(one):
    """Those that are there once the menu has been open in the program, too, each once."""
    return one["differences"] + [each for each in one["differences_once_opened"] if each not in one["differences"]]


def _when(difference, one):
    if difference not in one["differences"]:
        return "; only once opened"
    return "; once opened too" if difference in one["differences_once_opened"] else ""


def _by_reason(one, known):
    reasons = collections.defaultdict(list)
    for difference in _all_differences(one):
        found = explanation_of(difference, one["name"], known)
        reasons[found["why"] if found else ""].append(difference)
    return reasons


def _unexplained(one, known):
    return [each for each in _all_differences(one) if not explanation_of(each, one["name"], known)]


def _difference(difference):
    path = " ".join(difference["path"].split()).replace("`", "'")
    text = f"{difference['kind']}: `{path}`"
    if difference["kind"] in ("missing", "extra", "separator", "order"):
        return text + (" is missing" if difference["kind"] == "separator" and not difference["shown"] else
                       " is too many" if difference["kind"] == "separator" else "")
    return f"{text}: {difference['expected']}, shown: {difference['shown']}"


def _unopened(rows):
    lines = [f"- {each['name']}, `{one['path']}`: {one['why']}" for each in rows for one in each["unread"]]
    return "\n".join(["## Submenus that were not opened, and so not compared", "", *lines, ""]) if lines else ""


def _failures(rows):
    lines = [f"- {each['name']}: {each['failed']}" for each in rows]
    return "\n".join(["## Not measured", "", *lines, ""]) if lines else ""


def _kinds(counts):
    return ", ".join(f"{counts[kind]} {kind}" for kind in KINDS if counts.get(kind))


def _sum(rows, field):
    return sum(each[field] for each in rows)


def _percent(part, whole):
    return f"{100 * part / whole:.1f} %" if whole else "–"
