# SPDX-License-Identifier: MIT
"""The same menu bar as it is exported for a place outside the window: entries by their numbers, 0 being the bar."""
import typing

from .tree import ENTRIES, Answer

PATH = "/com/canonical/menu/0"
INTERFACE = "com.canonical.dbusmenu"
LAYOUT = "(ia{sv}av)"


class Entry(typing.NamedTuple):
    label: object
    holds: list = []  # numbers


def menu_bar():
    entries, number = {0: Entry("", [])}, 0
    for title, below in ENTRIES.items():
        holder = number + 1
        entries[0].holds.append(holder)
        entries[holder] = Entry(title, list(range(holder + 1, holder + 1 + len(below))))
        entries.update({holder + 1 + place: Entry(label) for place, label in enumerate(below)})
        number = holder + len(below)
    return entries


def layout(number, entry, below=()):
    properties = [("label", ("s", entry.label))] + [("children-display", ("s", "submenu"))] * bool(entry.holds)
    return (number, properties, [(LAYOUT, one) for one in below])


def right_answer(call, entries):
    """What a good application with these entries would say; None for an error."""
    if call.member == "Introspect":
        return Answer("s", ['<node><node name="0"/></node>' if call.path == "/com/canonical/menu" else "<node/>"])
    if call.interface != INTERFACE:
        return None
    if call.member == "GetLayout" and (menu := entries.get(call.arguments[0])):
        below = [layout(number, entries[number]) for number in menu.holds]
        return Answer("u" + LAYOUT, [1, layout(call.arguments[0], menu, below)])
    if call.member == "GetGroupProperties":
        return Answer("a(ia{sv})", [[layout(number, entries[number])[:2] for number in call.arguments[0] if number in entries]])
    return None
