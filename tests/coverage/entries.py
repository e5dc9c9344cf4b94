# SPDX-License-Identifier: MIT
"""Menus as plain data, whoever has read them."""
import dataclasses
import re
import typing

# Why a submenu was not read.
GREYED = "it is greyed"
EMPTY = "it is empty"
SHUT = "it did not open"


@dataclasses.dataclass
class Entry:
    """One entry of a menu or of a menu bar."""

    title: str = ""
    separator: bool = False
    enabled: bool = True
    checked: bool = False
    shortcut: typing.Optional[str] = None
    apart: typing.Optional[str] = None  # why the menu that mirrors this one cannot show its shortcut
    holds_menu: bool = False
    entries: typing.Optional[list] = None  # of its submenu; nothing when that was not read
    unread: typing.Optional[str] = None  # why not
    node: typing.Any = dataclasses.field(default=None, compare=False, repr=False)

    @property
    def key(self):
        """What tells it from its neighbours."""
        return "---" if self.separator else self.title


def without_idle_separators(entries):
    """As a menu is drawn: no separator at an end, and one where several follow each other."""
    kept = []
    for entry in entries:
        if entry.separator and (not kept or kept[-1].separator):
            continue
        kept.append(entry)
    while kept and kept[-1].separator:
        kept.pop()
    return kept


def without_home(entries, home):
    """The same entries, changed: where a title names the home there is a tilde. Titles eat underscores, all or some of them."""
    pattern = re.compile(re.escape(home).replace("_", "_?"))
    for entry in entries:
        entry.title = pattern.sub("~", entry.title)
        without_home(entry.entries or [], home)
    return entries


# Stands in place of what an application makes when the menu opens.
UNMADE = "Open this menu in the application once"


def shown_entries(objects):
    """What `tarnwick-inspect --all --json` has printed for one menu."""
    if [each.get("title") for each in objects] == [UNMADE]:
        return []
    return without_idle_separators([_shown_entry(each) for each in objects])


def _shown_entry(each):
    if each.get("separator"):
        return Entry(separator=True)
    entries = each.get("entries")
    return Entry(title=each["title"], enabled=each["enabled"], checked=each["checked"],
                 shortcut=each.get("keyEquivalent"), holds_menu=each.get("submenu", False),
                 entries=None if entries is None else shown_entries(entries))
