# SPDX-License-Identifier: MIT
"""The same menu bar as an exported model: entries by the group and the number of their menu."""
from .tree import ENTRIES, Answer

PATH = "/org/hostile/menubar"


def entry(label, **attributes):
    """An entry with links to the menus that attributes named ":submenu" tell."""
    return [("label", ("s", label)), *((name, ("(uu)", number)) for name, number in attributes.items())]


def section(number):
    return [(":section", ("(uu)", number))]


def menu_bar():
    menus = {(0, 0): [entry(title, **{":submenu": (group, 0)}) for group, title in enumerate(ENTRIES, 1)]}
    for group, entries in enumerate(ENTRIES.values(), 1):
        menus[group, 0] = [[*entry(label), ("action", ("s", "win.act"))] for label in entries]
    return menus


def right_answer(call, menus):
    """What a good application with this model would say; None for an error."""
    if call.member == "Start":
        groups = call.arguments[0]
        return Answer("a(uuaa{sv})", [[(*number, entries) for number, entries in menus.items() if number[0] in groups]])
    action = (1, "", [])
    return {
        "DescribeAll": Answer("a{s(bgav)}", [[("act", action)]]),
        "Describe": Answer("(bgav)", [action]),
        "End": Answer("", []),
        "Activate": Answer("", []),
    }.get(call.member)
