# SPDX-License-Identifier: MIT
"""What a hostile application publishes, and the right answers about it."""
import typing

APPLICATION, FRAME, MENU, MENU_BAR, MENU_ITEM, PANEL, UNKNOWN = 75, 23, 33, 34, 35, 39, 0
ROOT = "/org/a11y/atspi/accessible/root"
NULL = "/org/a11y/atspi/null"
ACTIVE, ENABLED, SENSITIVE, SHOWING, VISIBLE = 1, 8, 24, 25, 30
USABLE = sum(1 << state for state in (ENABLED, SENSITIVE, SHOWING, VISIBLE))

TITLES = ["File", "Edit", "Help"]
ENTRIES = {"File": ["New", "Open", "Save"], "Edit": ["Undo", "Redo"], "Help": ["About"]}


class Node(typing.NamedTuple):
    """One object; its children are paths, or pairs of a name on the bus and a path."""

    name: object = ""
    role: int = UNKNOWN
    children: list = []
    states: int = USABLE
    binding: object = ""
    count: typing.Optional[int] = None  # as it is told; the true one without

    @property
    def told_count(self):
        return len(self.children) if self.count is None else self.count


def menu_bar():
    """A window with a menu bar of three menus, as GTK has them."""
    nodes = {ROOT: Node("Hostile", APPLICATION, ["/frame"]),
             "/frame": Node("Hostile", FRAME, ["/bar"], USABLE | 1 << ACTIVE),
             "/bar": Node("", MENU_BAR, [f"/{title}" for title in TITLES])}
    for title, entries in ENTRIES.items():
        nodes[f"/{title}"] = Node(title, MENU, [f"/{title}/{entry}" for entry in entries])
        for entry in entries:
            nodes[f"/{title}/{entry}"] = Node(entry, MENU_ITEM, binding=f";;<Primary>{entry[0].lower()}")
    return nodes


def reference(service, child):
    return (service, child) if isinstance(child, str) else child


class Answer(typing.NamedTuple):
    """The content of a reply."""

    signature: str
    values: list


def right_answer(call, nodes, service, toolkit):
    """What a good application with these nodes, some of which may be made when asked for, would say; None for an error."""
    node = nodes.get(call.path)
    if call.member == "Get" and call.arguments[1] == "ToolkitName":
        return Answer("v", [("s", toolkit)])
    if node is None:
        return None
    if call.member == "Get":
        name = call.arguments[1]
        return {"Name": Answer("v", [("s", node.name)]), "ChildCount": Answer("v", [("i", node.told_count)])}.get(name)
    first = reference(service, (list(node.children) or [(service, NULL)])[0]) if call.member == "GetChildAtIndex" else 0
    return {
        "GetChildren": lambda: Answer("a(so)", [[reference(service, child) for child in node.children]]),
        "GetChildAtIndex": lambda: Answer("(so)", [first]),
        "GetRole": lambda: Answer("u", [node.role]),
        "GetState": lambda: Answer("au", [[node.states & 0xFFFFFFFF, node.states >> 32]]),
        "GetKeyBinding": lambda: Answer("s", [node.binding]),
        "GetExtents": lambda: Answer("(iiii)", [(0, 0, 80, 20)]),
        "DoAction": lambda: Answer("b", [1]),
    }.get(call.member, lambda: None)()
