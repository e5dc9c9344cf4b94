# SPDX-License-Identifier: MIT
"""How an application can misbehave: one class for each way, by the name that it is asked for with."""
import itertools
import os
import signal
import time

from . import exports, outside, tree
from .tree import Answer, Node
from .wire import body_of

LARGE = 16 << 20


class Behaviour:
    """The good one, which answers every call at once and rightly. `argument` is what stands behind the name."""

    toolkit = "gtk"
    title = b"Hostile"  # of its window
    process = None  # that its window tells; the true one without

    def __init__(self, application, argument=""):
        self.application = application
        self.argument = argument
        self.nodes = self.tree()
        self.menus = self.exported()
        self.entries = self.exported_outside()
        self._begin = time.monotonic()

    def tree(self):
        return tree.menu_bar()

    def exported(self):
        return exports.menu_bar()

    def exported_outside(self):
        return outside.menu_bar()

    def answer_to(self, call):
        if call.interface.startswith("org.gtk."):
            return exports.right_answer(call, self.menus)
        if call.interface == outside.INTERFACE or call.member == "Introspect":
            return outside.right_answer(call, self.entries)
        return tree.right_answer(call, self.nodes, self.application.service, self.toolkit)

    def receive(self, call):
        self.send(call, self.answer_to(call))

    def send(self, call, answer):
        if answer is None:
            call.connection.refuse(call, "org.freedesktop.DBus.Error.UnknownMethod")
        else:
            call.connection.reply(call, answer.signature, answer.values)


class Never(Behaviour):
    def receive(self, call):
        pass


class After(Behaviour):
    """Every answer comes so many seconds after its call."""

    def receive(self, call):
        self.application.later(float(self.argument), lambda: self.send(call, self.answer_to(call)))


class InTurn(Behaviour):
    """Every answer takes so many seconds, one after the other."""

    def receive(self, call):
        self._begin = max(self._begin, time.monotonic()) + float(self.argument)
        self.application.later(self._begin - time.monotonic(), lambda: self.send(call, self.answer_to(call)))


class Busy(Behaviour):
    """Does something else for so many seconds, its window included."""

    def __init__(self, application, argument):
        super().__init__(application, argument)
        self._idle = True

    def receive(self, call):
        if self._idle:
            self._idle = False
            end = time.monotonic() + float(self.argument)
            while time.monotonic() < end:
                pass
        super().receive(call)


class Only(Behaviour):
    """Answers only the calls of these names, joined by commas."""

    def receive(self, call):
        if call.member in self.argument.split(","):
            super().receive(call)


class EveryOther(Behaviour):
    _number = 0

    def receive(self, call):
        self._number += 1
        if self._number % 2:
            super().receive(call)


class Errors(Behaviour):
    def receive(self, call):
        call.connection.refuse(call)


_NESTED = ("s", "deep")
for _ in range(30):
    _NESTED = ("v", _NESTED)


class WrongTypes(Behaviour):
    """Answers what nobody asked for, each time something else."""

    _ANSWERS = itertools.cycle([
        Answer("", []), Answer("s", ["text"]), Answer("i", [-1]), Answer("v", [_NESTED]), Answer("as", [["a", "b"]]),
        Answer("a{sv}", [[("a", ("i", 1))]]), Answer("(so)", [("x", "/")]), Answer("au", [[]]), Answer("d", [1e308]),
        Answer("v", [("as", ["Name"])]), Answer("a(so)", [[]]), Answer("ay", [bytes(100000)]), Answer("o", ["/"]),
        Answer("v", [("i", -(1 << 31))]), Answer("v", [("d", float("nan"))]), Answer("a(ss)", [[("x", "y")]]),
        Answer("au", [[1, 2, 3, 4]]), Answer("uuuu", [1, 2, 3, 4])])

    def receive(self, call):
        self.send(call, next(self._ANSWERS))


class WrongTypesOf(Behaviour):
    """Answers only the calls of one name with something else."""

    def receive(self, call):
        self.send(call, Answer("a{sv}", [[]]) if call.member == self.argument else self.answer_to(call))


class LargeTexts(Behaviour):
    """Each name and each key binding has 16 MiB."""

    size = LARGE

    def __init__(self, application, argument=""):
        super().__init__(application, argument)
        text = b"x" * self.size
        self._name = body_of("v", [("s", text)])
        self._binding = body_of("s", [text])

    def receive(self, call):
        if call.member == "GetKeyBinding":
            call.connection.reply(call, "s", body=self._binding)
        elif call.member == "Get" and call.arguments[1] == "Name":
            call.connection.reply(call, "v", body=self._name)
        else:
            super().receive(call)


class LargeTextsLate(LargeTexts):
    """The same when the time for it is over."""

    size = 4 << 20

    def receive(self, call):
        self.application.later(1.0, lambda: super(LargeTextsLate, self).receive(call))


class LargeReferences(Behaviour):
    """Children with a bus name of 16 MiB."""

    def receive(self, call):
        if call.member == "GetChildren" and call.path in ("/bar", "/File"):
            self.send(call, Answer("a(so)", [[(":1." + "9" * LARGE, "/x")]]))
        else:
            super().receive(call)


class Fds(Behaviour):
    """Sends an open file with every answer."""

    def receive(self, call):
        answer = self.answer_to(call)
        reader, writer = os.pipe()
        if answer:
            call.connection.reply(call, answer.signature + "h", [*answer.values, 0], descriptors=[reader, writer])
            call.connection.flush()
        os.close(reader)
        os.close(writer)


class Cut(Behaviour):
    """The content is shorter than the text in it says."""

    def receive(self, call):
        call.connection.reply(call, "s", body=b"\xff\xff\0\0cut")


class InvalidUtf8(Behaviour):
    def receive(self, call):
        call.connection.reply(call, "v", [("s", b"\xc3\x28 \xed\xa0\x80")])


class Half(Behaviour):
    """Begins a message that never ends."""

    _begun = False

    def receive(self, call):
        if not self._begun:
            self._begun = True
            call.connection.reply(call, "s", body=body_of("s", ["x" * 1000]), length=1 << 20)


class Controls(Behaviour):
    """Texts that are valid and still no titles."""

    _TEXTS = ["\x01\x1b[2J\x7f", "\u202egnp.exe\u2066", "\n\r\n", "\t\tonly a tab", " ", "\ufeff\ufffe\U0010ffff",
              "a\u0300" * 5000, "&&&%s%n%d\\", "<b>bold</b><img src='file:///dev/zero'>"]

    def tree(self):
        nodes = super().tree()
        nodes["/bar"] = Node("", tree.MENU_BAR, [f"/t{i}" for i in range(len(self._TEXTS))])
        for i, text in enumerate(self._TEXTS):
            nodes[f"/t{i}"] = Node(text, tree.MENU, [f"/t{i}/{j}" for j in range(len(self._TEXTS))])
            for j, inner in enumerate(self._TEXTS):
                nodes[f"/t{i}/{j}"] = Node(inner, tree.MENU_ITEM, binding=inner)
        return nodes


class _Made(dict):
    """Nodes that are made when they are asked for."""

    def __init__(self, nodes, make):
        super().__init__(nodes)
        self._make = make

    def get(self, path, default=None):
        return super().get(path) or self._make(path) or default


class Children(Behaviour):
    """So many entries in the bar, and as many in each menu."""

    def tree(self):
        count = int(self.argument)
        paths = [f"/m{i}" for i in range(count)]
        self._body = body_of("a(so)", [[(self.application.service, path) for path in paths]])
        nodes = super().tree()
        nodes["/bar"] = Node("", tree.MENU_BAR, paths)

        def made(path):
            return Node(f"Menu {path[2:]}", tree.MENU, paths) if path.startswith("/m") else None
        return _Made(nodes, made)

    def receive(self, call):
        if call.member == "GetChildren" and (call.path in ("/bar", "/File") or call.path.startswith("/m")):
            call.connection.reply(call, "a(so)", body=self._body)
        else:
            super().receive(call)


class Counts(Behaviour):
    """Says another number of children than there are: -1, none, 2^31 - 1."""

    def tree(self):
        nodes = super().tree()
        return {path: node._replace(count=count) for (path, node), count in
                zip(nodes.items(), itertools.cycle([-1, 0, (1 << 31) - 1]))}


class FalseCounts(Behaviour):
    """Says that there are 100 children of everything, and names none, or the same one 1000 times."""

    def tree(self):
        nodes = {path: node._replace(count=100) for path, node in super().tree().items()}
        nodes["/Edit"] = nodes["/Edit"]._replace(children=[])
        nodes["/File"] = nodes["/File"]._replace(children=["/File/New"] * 1000)
        return nodes


class Cycle(Behaviour):
    """Everything is its own child, its parent's parent, and so on."""

    def tree(self):
        nodes = super().tree()
        nodes[tree.ROOT] = nodes[tree.ROOT]._replace(children=["/frame", tree.ROOT])
        nodes["/frame"] = nodes["/frame"]._replace(children=["/frame", tree.ROOT, "/panel", "/bar"])
        nodes["/panel"] = Node("", tree.PANEL, ["/panel", "/panel", "/frame", "/panel"])
        nodes["/bar"] = nodes["/bar"]._replace(children=["/bar", "/File", "/frame", "/File"])
        nodes["/File"] = nodes["/File"]._replace(children=["/File", "/bar", "/File/New", "/frame"])
        return nodes


class Deep(Behaviour):
    """10,000 panels in each other, and 10,000 menus."""

    DEPTH = 10000

    def tree(self):
        nodes = super().tree()
        nodes["/frame"] = nodes["/frame"]._replace(children=["/panel/0", "/bar"])
        nodes["/bar"] = nodes["/bar"]._replace(children=["/deep/0"])

        def made(path):
            kind, _, number = path[1:].partition("/")
            if kind not in ("panel", "deep") or int(number) >= self.DEPTH:
                return None
            below = f"/{kind}/{int(number) + 1}"
            return Node(f"Deep {number}", tree.MENU if kind == "deep" else tree.PANEL, [below])
        return _Made(nodes, made)


class BarTooDeep(Deep):
    """The bar stands at the end of 10,000 panels."""

    def tree(self):
        nodes = super().tree()
        nodes["/frame"] = nodes["/frame"]._replace(children=["/panel/0"])
        return nodes


class Foreign(Behaviour):
    """The bar and a menu are somebody else's: "NAME PATH"."""

    def somebody(self, _call):
        return tuple(self.argument.split(" ", 1))

    def receive(self, call):
        if call.member == "GetChildren" and call.path == "/bar":
            self.send(call, Answer("a(so)", [[self.somebody(call), (self.application.service, "/File")]]))
        elif call.member == "GetChildren" and call.path == "/File":
            self.send(call, Answer("a(so)", [[self.somebody(call)] * 3]))
        else:
            super().receive(call)


class ForeignWindow(Foreign):
    """The whole window is somebody else's."""

    def receive(self, call):
        if call.member == "GetChildren" and call.path == tree.ROOT:
            self.send(call, Answer("a(so)", [[self.somebody(call)]]))
        else:
            Behaviour.receive(self, call)


class Asker(Foreign):
    """The children are those of whoever asks."""

    def somebody(self, call):
        return call.sender, tree.ROOT


class AskersWindow(ForeignWindow):
    def somebody(self, call):
        return call.sender, tree.ROOT


class Nobody(Foreign):
    """References to nobody, and some that cannot be one."""

    _NAMES = itertools.cycle([":1.999999", "", "no name", "org.a11y.atspi.Nobody", ":", "\u00e9.\u00e9"])

    def somebody(self, _call):
        return next(self._NAMES), "/x"


class Changing(Behaviour):
    """Another tree after each look at the children."""

    _round = 0

    def tree(self):
        nodes = super().tree()
        for number in range(1000):
            nodes[f"/c{number}"] = Node(f"Changing {number}", tree.MENU if number % 2 else tree.MENU_ITEM)
        return nodes

    def receive(self, call):
        if call.member == "GetChildren" and (call.path == "/bar" or call.path in self.nodes and "/c" in call.path):
            self._round += 1
            several = range(self._round % 7 * 10, self._round % 7 * 10 + 5)
            self.nodes["/bar"] = self.nodes["/bar"]._replace(children=[f"/c{number}" for number in several])
            for number in several:
                self.nodes[f"/c{number}"] = Node(f"Changing {number}", self._round % 60, [f"/c{number + 1}"])
        super().receive(call)


class Vanish(Behaviour):
    """Dies when the call with this number comes, 1 being the first."""

    _calls = 0

    def receive(self, call):
        self._calls += 1
        if self._calls == int(self.argument):
            self.go()
        super().receive(call)

    def go(self):
        os.kill(os.getpid(), signal.SIGKILL)


class Leave(Vanish):
    """Leaves the bus at the call with this number; the window stays."""

    def go(self):
        raise EOFError


class Twice(Behaviour):
    """Answers each call several times, and calls that nobody made."""

    def receive(self, call):
        for _ in range(3):
            super().receive(call)
        call.connection.reply(call, "s", ["to nothing"], serial=call.serial + 100000)


class Flood(Behaviour):
    """Sends 2,000 messages that nobody asked for with each answer."""

    _BODY = body_of("s", ["x" * 2000])

    def receive(self, call):
        for _ in range(2000):
            call.connection.tell(call.sender, "s", self._BODY)
        super().receive(call)


class Qt(Behaviour):
    """As Qt publishes menus; the first child of everything is the bar."""

    toolkit = "Qt"

    def receive(self, call):
        if call.member == "GetChildAtIndex":
            self.send(call, Answer("(so)", [(self.application.service, "/bar")]))
        else:
            super().receive(call)


class ToolkitOf(Behaviour):
    """A toolkit nobody knows."""

    toolkit = "\u2603" * 100000


class WithoutABar(Behaviour):
    """Has none in its tree, as one has that exports it."""

    def tree(self):
        nodes = super().tree()
        nodes["/frame"] = nodes["/frame"]._replace(children=[])
        return nodes


class Unmade(Behaviour):
    """Has nothing in the menus of its tree, as one has that makes them when they open."""

    def tree(self):
        nodes = super().tree()
        return {path: node._replace(children=[]) if node.role == tree.MENU else node for path, node in nodes.items()}


class LargeLabels(Behaviour):
    """Each exported label has 16 MiB."""

    def exported_outside(self):
        return {number: entry._replace(label=b"x" * LARGE, holds=entry.holds[:1])
                for number, entry in super().exported_outside().items()}

    def exported(self):
        return {number: [exports.entry(b"x" * LARGE, **{":submenu": (1, 0)})] for number in super().exported()}


class ManyEntries(Behaviour):
    """So many exported entries in each menu, each of which holds one."""

    def exported(self):
        entries = [exports.entry(f"Entry {number}", **{":submenu": (1, 0)}) for number in range(int(self.argument))]
        self._body = body_of("a(uuaa{sv})", [[(0, 0, entries), (1, 0, entries)]])
        return {}

    def exported_outside(self):
        entries = {number: outside.Entry(f"Entry {number}", [1]) for number in range(1, int(self.argument) + 1)}
        below = [outside.layout(*one) for one in entries.items()]
        self._layout = body_of("u" + outside.LAYOUT, [1, outside.layout(0, outside.Entry("", [1]), below)])
        return entries

    def receive(self, call):
        if call.member == "Start":
            call.connection.reply(call, "a(uuaa{sv})", body=self._body)
        elif call.member == "GetLayout":
            call.connection.reply(call, "u" + outside.LAYOUT, body=self._layout)
        else:
            super().receive(call)


class LinksInCircles(Behaviour):
    """Exported sections and submenus that hold themselves and each other."""

    def exported_outside(self):
        return {number: outside.Entry(f"Itself {number}", [0, 1, 2, number]) for number in range(3)}

    def exported(self):
        circle = [exports.entry("Itself", **{":submenu": number}) for number in ((0, 0), (0, 1), (1, 0))]
        sections = [exports.section(number) for number in ((0, 0), (0, 1), (1, 0), (1, 1), (0, 0))]
        return {(group, menu): circle + sections + circle for group in (0, 1) for menu in (0, 1)}


class SectionsElsewhere(Behaviour):
    """Each section's section is in another group, without an end, and 1000 others are nowhere."""

    def exported(self):
        nowhere = [exports.section((number, 7)) for number in range(5000, 6000)]
        return {(group, 0): [exports.entry(f"Group {group}", **{":submenu": (group + 1, 0)}),
                             exports.section((group + 1, 0)), *nowhere] for group in range(100)}


class WrongLinks(Behaviour):
    """Exports entries whose attributes have types of their own."""

    _ATTRIBUTES = [
        ("label", ("i", 1)), ("label", ("as", ["x"])), (":submenu", ("s", "File")), (":section", ("(uuu)", (1, 2, 3))),
        (":submenu", ("(uu)", (4294967295, 4294967295))), ("action", ("s", "." * 1000)), ("target", _NESTED),
        ("accel", ("s", "<Primary>" * 1000)), ("hidden-when", ("d", 0.5)), ("", ("v", ("s", "")))]

    def exported(self):
        wrong = [[("label", ("s", "Wrong")), attribute] for attribute in self._ATTRIBUTES]
        return {number: wrong + entries for number, entries in super().exported().items()}


class ChangingExports(Behaviour):
    """Another model each time that one asks; outside of windows all entries have other numbers each time."""

    _round = 0

    def receive(self, call):
        self._round += 1
        number = self._round * 7
        self.entries = {other and other + number: entry._replace(holds=[below + number for below in entry.holds])
                        for other, entry in self.exported_outside().items()}
        first = self._round % 7
        self.menus = {(group, 0): [exports.entry(f"Round {self._round}", **{":submenu": ((group + first) % 5, 0)}),
                                   exports.section(((group * first) % 5, 0))] * first for group in range(5)}
        super().receive(call)


class Disguised(Behaviour):
    """Its window tells another process, that of the argument, and has a title that is no text."""

    title = b"\xff\xfe\x1b[2J%s%n\xe2\x80\xae\0\xed\xa0\x80\r\n" * 8000

    @property
    def process(self):
        return int(self.argument)


BEHAVIOURS = {
    "well": Behaviour, "never": Never, "after": After, "in-turn": InTurn, "busy": Busy, "only": Only,
    "every-other": EveryOther, "errors": Errors, "wrong-types": WrongTypes, "wrong-types-of": WrongTypesOf,
    "large-texts": LargeTexts, "large-texts-late": LargeTextsLate, "large-references": LargeReferences, "files": Fds,
    "cut": Cut, "invalid-utf8": InvalidUtf8, "half": Half, "controls": Controls, "children": Children,
    "counts": Counts, "false-counts": FalseCounts, "cycle": Cycle, "deep": Deep, "bar-too-deep": BarTooDeep,
    "foreign": Foreign, "foreign-window": ForeignWindow, "asker": Asker, "askers-window": AskersWindow,
    "nobody": Nobody, "changing": Changing, "vanish": Vanish, "leave": Leave, "twice": Twice, "flood": Flood,
    "qt": Qt, "toolkit": ToolkitOf, "without-a-bar": WithoutABar, "unmade": Unmade,
    "large-labels": LargeLabels, "entries": ManyEntries,
    "links-in-circles": LinksInCircles, "sections-elsewhere": SectionsElsewhere, "wrong-links": WrongLinks,
    "changing-exports": ChangingExports, "disguised": Disguised,
}


def behaviour(application, text):
    """The one that "NAME" or "NAME ARGUMENT" stands for."""
    name, _, argument = text.partition(" ")
    return BEHAVIOURS[name](application, argument)
