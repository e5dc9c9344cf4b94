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

Of GTK 4 there is one program only, an example of the toolkit: no other with a menu bar was found in Debian 12. pcb-rnd with its
interface of GTK 4 has buttons that hold menus instead, and gsequencer published no bar; the rest, nearly all of it GNOME's with
its header bars, was not tried.

Some programs decide only when a menu opens what is in it and what is greyed. Tarnwick does not open menus in order to
read them: that would show on the screen and act in the program. It shows what such a menu was the last time.

- **bar**: entries of the menu bar that are right, of all.
- **items**: all that can be seen in the opened menus, separators included. An entry too many counts as one that is
  wrong; what lies below an entry that is greyed or empty on one side only counts as missing or as too many. Of separators
  next to each other one counts, and none at the end of a menu: so the pop-up draws them.
- **read from**: which of the [sources](debugging-menus.md) Tarnwick took, as `tarnwick-inspect --sources` tells.
- **with the module**: the same comparison for a program that has [the module of GTK](empty-menus.md#the-module-of-gtk), where
  its toolkit takes it; in the last line the others count as they are. The program is started once more for it.
- **with shortcuts**: the same for those who have shortcuts shown: an item that has one in the program and shows none counts
  as wrong, whatever the reason.
- **once opened**: the same comparison for what Tarnwick shows after each menu has been open in the program once.
- **pop-up**: the same comparison, after each menu has been open in the program once, for Tarnwick's pop-up itself: it is opened
  with the hot key, each submenu in it with the pointer, and read over the accessibility bus. The other columns are for what
  `tarnwick-inspect` prints, which reads as Tarnwick does and draws nothing.
- **apart**: shortcuts that Tarnwick's tables have no code for. It shows none rather than a wrong one, and the item
  counts as right.
"""


def row(application, result, opened, popup):
    """What one application has come to; without `opened` where none of its menus was opened."""
    once_opened = {"right_once_opened": opened.right, "items_once_opened": opened.items} if opened else {}
    return {"name": application["name"], "toolkit": application["toolkit"], "bar": result.bar,
            "bar_right": result.bar_right, "items": result.items, "right": result.right,
            "right_with_shortcuts": result.right_with_shortcuts, **once_opened,
            "bar_in_popup": popup.bar, "bar_right_in_popup": popup.bar_right,
            "right_in_popup": popup.right, "items_in_popup": popup.items,
            "wrong_by_kind": result.wrong_by_kind(), "apart": dict(result.apart),
            "differences": [dataclasses.asdict(each) for each in result.differences],
            "differences_once_opened": [dataclasses.asdict(each) for each in opened.differences] if opened else [],
            "differences_in_popup": [dataclasses.asdict(each) for each in popup.differences],
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


_DOORS = """# What can be switched on, measured

Programs whose menus are not in the accessibility tree before they open, or not at all, as they are installed and with what
[makes them publish their menus](empty-menus.md). The columns are those of [the other table](coverage.md). Where nothing is told
of the menus on the screen, they were opened in another run of the same program, and there is no figure for once opened. An entry
that has no title counts as missing, as Thunar's last one in the bar and HexChat's lines.
"""
_DOORS_COMMAND = "Measured, and this page written, by `scripts/coverage --doors`.\n"


def write_doors(table, rows, switched_on):
    """The same for programs with what can be switched on, which is told by their names."""
    rows = [_shortened(each) for each in rows]
    table.with_suffix(".json").write_text(json.dumps(rows, ensure_ascii=False, indent=1) + "\n", encoding="utf-8")
    table.write_text(doors(rows, switched_on), encoding="utf-8")


def _shortened(one):
    """Without the lists of what is different that say the same once more, or of each entry that it is missing."""
    left_out = {"differences_once_opened", "differences_in_popup"} | ({"differences"} if one.get("source") == "nothing" else set())
    return {key: value for key, value in one.items() if key not in left_out}


def doors(rows, switched_on):
    """That page."""
    measured = [each for each in rows if "failed" not in each]
    lines = [_line(["application", "version", "toolkit", "switched on", "read from", "bar", "items", "right", "",
                    "with shortcuts", "wrong, by kind", "once opened", "pop-up"]), "|" + "---|" * 13]
    lines += [_line([each["name"], each.get("version", ""), each["toolkit"], switched_on[each["name"]], each["source"],
                     f"{each['bar_right']}/{each['bar']}", each["items"], each["right"],
                     _percent(each["right"], each["items"]), _percent(each["right_with_shortcuts"], each["items"]),
                     _kinds(each["wrong_by_kind"]), _percent(*_once_opened(each)),
                     _percent(each["right_in_popup"], each["items_in_popup"])])
              for each in measured]
    parts = [_DOORS, _commits(measured), _DOORS_COMMAND, "\n".join(lines) + "\n", _failures([each for each in rows if "failed" in each])]
    return "\n".join(part for part in parts if part)


def _once_opened(one):
    return one.get("right_once_opened", 0), one.get("items_once_opened", 0)


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
            f"{_sum(measured, 'bar')}; items {right} of {items} ({_percent(right, items)}), with shortcuts "
            f"{_percent(_sum(measured, 'right_with_shortcuts'), items)}, once opened "
            f"{_percent(_sum(measured, 'right_once_opened'), _sum(measured, 'items_once_opened'))}, in the pop-up "
            f"{_percent(_sum(measured, 'right_in_popup'), _sum(measured, 'items_in_popup'))}")


def told_elsewhere(rows):
    """What the README has to say of these rows, word for word."""
    items, opened = _sum(rows, "items"), _sum(rows, "items_once_opened")
    return [f"Of {items} entries in the menus of {len(rows)} real programs {_percent(_sum(rows, 'right'), items)} are right "
            f"at once", f"{_percent(_sum(rows, 'right_once_opened'), opened)} once each menu was opened in its program",
            f"{_percent(_sum(rows, 'right_in_popup'), _sum(rows, 'items_in_popup'))} in the pop-up itself",
            f"{_percent(_sum(rows, 'right_with_shortcuts'), items)} where an item that does not show its shortcut is wrong"]


# What two measurements of the same version have alike, whatever the machine.
_SAME = ("bar", "bar_right", "items", "right", "right_with_shortcuts", "items_once_opened", "right_once_opened",
         "items_in_popup", "right_in_popup", "differences", "differences_once_opened", "differences_in_popup")


def unlike(one, other):
    """What two rows of one application tell differently, as texts."""
    if "failed" in one or "failed" in other:
        return [str(each["failed"]) for each in (one, other) if "failed" in each]
    return [f"{field}: {one.get(field)} instead of {other.get(field)}" for field in _SAME
            if one.get(field) != other.get(field)]


def is_explained(one, known):
    """Whether an application was measured, all of it, and each difference in it has its explanation."""
    return "failed" not in one and not _unexplained(one, known) and SHUT not in [each["why"] for each in one["unread"]]


def markdown(rows, known):
    """The page."""
    measured = [each for each in rows if "failed" not in each]
    parts = [_HEAD, _commits(measured), _table(measured), _apart(measured), _exceptions(measured, known), _unopened(measured),
             _failures([each for each in rows if "failed" in each])]
    return "\n".join(part for part in parts if part)


def _commits(rows):
    """At which commit each was measured."""
    names = collections.defaultdict(list)
    for each in rows:
        names[each.get("commit", "one that was not written down")].append(each["name"])
    if len(names) == 1:
        return f"All of them were measured at commit {next(iter(names))}.\n"
    return "\n".join(f"Measured at commit {commit}: {', '.join(those)}.\n" for commit, those in names.items())


def _table(rows):
    lines = [_line(["application", "version", "toolkit", "read from", "bar", "items", "right", "", "with the module",
                    "with shortcuts", "wrong, by kind", "apart", "once opened", "pop-up"]), "|" + "---|" * 14]
    for each in rows:
        lines.append(_line([
            each["name"], each.get("version", ""), each["toolkit"], each.get("source", ""),
            f"{each['bar_right']}/{each['bar']}", each["items"], each["right"], _percent(each["right"], each["items"]),
            _of_module(each), _percent(each["right_with_shortcuts"], each["items"]), _kinds(each["wrong_by_kind"]),
            sum(each["apart"].values()) or "", _percent(each["right_once_opened"], each["items_once_opened"]),
            _percent(each["right_in_popup"], each["items_in_popup"])]))
    lines.append(_line([value and f"**{value}**" for value in _totals(rows)]))
    return "\n".join(lines) + "\n"


def _of_module(one):
    """What is right with the module of GTK, and what is read then where that is something else."""
    if "with_module" not in one:
        return ""
    other = one["with_module"]
    source = f", {other['source']}" if other["source"] != one.get("source") else ""
    return _percent(other["right"], other["items"]) + source


def _best(rows):
    """With the module where the toolkit takes it: what is right, and of how many."""
    chosen = [each.get("with_module", each) for each in rows]
    return _sum(chosen, "right"), _sum(chosen, "items")


def _totals(rows):
    items, right = _sum(rows, "items"), _sum(rows, "right")
    kinds = collections.Counter()
    for each in rows:
        kinds.update(each["wrong_by_kind"])
    opened = _percent(_sum(rows, "right_once_opened"), _sum(rows, "items_once_opened"))
    return [f"all {len(rows)}", "", "", "", f"{_sum(rows, 'bar_right')}/{_sum(rows, 'bar')}", items, right,
            _percent(right, items), _percent(*_best(rows)), _percent(_sum(rows, "right_with_shortcuts"), items), _kinds(kinds),
            sum(sum(each["apart"].values()) for each in rows) or "", opened,
            _percent(_sum(rows, "right_in_popup"), _sum(rows, "items_in_popup"))]


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
    """Those that are there once the menu has been open in the program, or in the pop-up only, too, each once."""
    found = []
    for each in [*one["differences"], *one["differences_once_opened"], *one["differences_in_popup"]]:
        if each not in found:
            found.append(each)
    return found


def _when(difference, one):
    opened = difference in one["differences_once_opened"]
    popup = difference in one["differences_in_popup"]
    if difference in one["differences"]:
        return "; once opened too" if opened else "; in the pop-up too" if popup else ""
    return "; only once opened" if opened else "; only in the pop-up"


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
    return sum(each.get(field, 0) for each in rows)


def _percent(part, whole):
    return f"{100 * part / whole:.1f} %" if whole else "–"
