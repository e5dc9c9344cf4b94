# SPDX-License-Identifier: MIT
"""An application without a toolkit: a window of its own, and on the accessibility bus whatever it is told to be.

    application.py ADDRESS LOG BEHAVIOUR

With "exported BEHAVIOUR" its tree is good, without a bar, and what BEHAVIOUR says is true of the one that it exports on
the session bus; with "outside BEHAVIOUR" of one that it exports there for a place outside its window. With "by-module BEHAVIOUR" its tree has a bar, too, whose menus have nothing in them, and the export is one
that a module of GTK makes. It writes `typed X` for a key and `pressed PATH` for an action into LOG, and `thrown out` when the bus has
closed the connection. The call "Behave" on the object "/control" gives it another behaviour, "Asked" tells how many calls
there were, "Owed" how many answers are still to come.
"""
import heapq
import itertools
import os
import pathlib
import select
import sys
import time

from Xlib import X, XK, Xatom, Xutil, display

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent))

from hostile import exports  # noqa: E402
from hostile.behaviours import behaviour  # noqa: E402
from hostile.tree import ROOT  # noqa: E402
from hostile.wire import CALL, RETURN, Connection  # noqa: E402

_EXPORTED = "exported "
_OUTSIDE = "outside "
_BY_MODULE = "by-module "


class Log:
    def __init__(self, path):
        self._file = open(path, "a", encoding="utf-8")

    def write(self, line):
        self._file.write(line + "\n")
        self._file.flush()


class ItsWindow:
    """A plain window that takes the focus and notes keys."""

    def __init__(self, log, properties):
        self._log = log
        self._display = display.Display()
        screen = self._display.screen()
        self._window = screen.root.create_window(
            60, 60, 320, 200, 0, screen.root_depth, background_pixel=screen.white_pixel,
            event_mask=X.KeyPressMask | X.StructureNotifyMask)
        self._window.set_wm_class(f"hostile{os.getpid()}", "Hostile")
        self._window.set_wm_hints(flags=Xutil.InputHint, input=True)
        for name, value in properties.items():
            self._set(name, self._display.intern_atom("UTF8_STRING"), 8, value.encode())

    def show_as(self, title, process):
        self._set("_NET_WM_NAME", self._display.intern_atom("UTF8_STRING"), 8, title)
        self._set("WM_NAME", Xatom.STRING, 8, title)
        self._set("_NET_WM_PID", Xatom.CARDINAL, 32, [process or os.getpid()])
        self._window.map()
        self._display.flush()

    def _set(self, name, kind, size, value):
        self._window.change_property(self._display.intern_atom(name), kind, size, value)

    def fileno(self):
        return self._display.fileno()

    def receive(self):
        while self._display.pending_events():
            event = self._display.next_event()
            if event.type == X.KeyPress:
                symbol = self._display.keycode_to_keysym(event.detail, 0)
                self._log.write(f"typed {XK.keysym_to_string(symbol) or symbol}")


class Application:
    def __init__(self, address, log, text):
        self.log = log
        self.bus = Connection(address)
        self._by_module = text.startswith(_BY_MODULE)
        self._outside = text.startswith(_OUTSIDE)
        exporting = self._by_module or self._outside or text.startswith(_EXPORTED)
        self._session_bus = Connection(os.environ["DBUS_SESSION_BUS_ADDRESS"]) if exporting else None
        self._delayed = []
        self._order = itertools.count()
        self._asked = 0
        self._next = text
        self._behaviour = None
        self._exports = None
        self._registered = False
        self._window = None

    @property
    def service(self):
        return self.bus.name

    def later(self, seconds, call):
        heapq.heappush(self._delayed, (time.monotonic() + seconds, next(self._order), call))

    def run(self):
        while True:
            if self._window is None and self._registered and (not self._session_bus or self._session_bus.name):
                self._window = ItsWindow(self.log, self._exported_properties())
                self._show()
            try:
                self._turn()
            except EOFError:
                self.log.write("thrown out")
                self.bus.close()
                if self._session_bus:
                    self._session_bus.close()
                self._stay()

    def _turn(self):
        limit = max(0, self._delayed[0][0] - time.monotonic()) if self._delayed else None
        buses = [bus for bus in (self.bus, self._session_bus) if bus]
        writers = [bus for bus in buses if bus.wants_to_write]
        select.select([*buses, *([self._window] if self._window else [])], writers, [], limit)
        for bus in buses:
            for message in bus.receive():
                self._take(message)
        while self._delayed and self._delayed[0][0] <= time.monotonic():
            heapq.heappop(self._delayed)[2]()
        for bus in buses:
            bus.flush()
        if self._window:
            self._window.receive()

    def _stay(self):
        """The window is all that is left."""
        while self._window:
            select.select([self._window], [], [])
            self._window.receive()
        sys.exit(1)

    def _exported_properties(self):
        """What tells everybody where the exported model is."""
        if not self._session_bus or self._outside:
            return {}
        actions = "_UNITY_OBJECT_PATH" if self._by_module else "_GTK_WINDOW_OBJECT_PATH"
        return {"_GTK_UNIQUE_BUS_NAME": self._session_bus.name, "_GTK_MENUBAR_OBJECT_PATH": exports.PATH,
                actions: exports.PATH}

    def _behave(self, text):
        if self._session_bus:
            self._behaviour = behaviour(self, "unmade" if self._by_module else "without-a-bar")
            self._exports = behaviour(self, text.removeprefix(_EXPORTED).removeprefix(_OUTSIDE).removeprefix(_BY_MODULE))
        else:
            self._behaviour = behaviour(self, text)
        if self._window:
            self._show()

    def _show(self):
        self._window.show_as(self._behaviour.title, self._behaviour.process)

    def _take(self, message):
        if message.connection is self._session_bus:
            self._take_from_session(message)
        elif message.kind != CALL:
            self._take_reply(message)
        elif message.path == "/control":
            self._control(message)
        elif message.member == "DoAction":
            self.log.write(f"pressed {message.path}")
        elif message.member == "Set":
            self.bus.reply(message)  # the registry gives us a number
        elif message.expects_reply:
            self._asked += 1
            self._behaviour.receive(message)

    def _take_from_session(self, message):
        if message.kind == RETURN and message.reply_serial == 1:
            self._session_bus.name, = message.arguments
        elif message.expects_reply and self._exports:
            self._exports.receive(message)

    def _take_reply(self, message):
        if not self.bus.name and message.reply_serial == 1:
            self.bus.name, = message.arguments
            self._behave(self._next)
            self.bus.call("org.a11y.atspi.Registry", ROOT, "org.a11y.atspi.Socket", "Embed", "(so)",
                          [(self.service, ROOT)])
        elif message.reply_serial == 2:
            self._registered = True

    def _control(self, message):
        if message.member == "Behave":
            self._behave(message.arguments[0])
            self.bus.reply(message, "b", [1])
        else:
            self.bus.reply(message, "u", [len(self._delayed) if message.member == "Owed" else self._asked])


def main():
    address, path, text = sys.argv[1:]
    Application(address, Log(path), text).run()


if __name__ == "__main__":
    main()
