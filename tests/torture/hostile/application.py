# SPDX-License-Identifier: MIT
"""An application without a toolkit: a window of its own, and on the accessibility bus whatever it is told to be.

    application.py ADDRESS LOG BEHAVIOUR

It writes `typed X` for a key and `pressed PATH` for an action into LOG, and `thrown out` when the bus has closed the
connection. The call "Behave" on the object "/control" gives it another behaviour, "Asked" tells how many calls there were.
"""
import heapq
import itertools
import os
import pathlib
import select
import sys
import time

from Xlib import X, XK, Xutil, display

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent))

from hostile.behaviours import behaviour  # noqa: E402
from hostile.tree import ROOT  # noqa: E402
from hostile.wire import CALL, Connection  # noqa: E402


class Log:
    def __init__(self, path):
        self._file = open(path, "a", encoding="utf-8")

    def write(self, line):
        self._file.write(line + "\n")
        self._file.flush()


class ItsWindow:
    """A plain window that takes the focus and notes keys."""

    def __init__(self, title, log):
        self._log = log
        self._display = display.Display()
        screen = self._display.screen()
        self._window = screen.root.create_window(
            60, 60, 320, 200, 0, screen.root_depth, background_pixel=screen.white_pixel,
            event_mask=X.KeyPressMask | X.StructureNotifyMask)
        self._window.set_wm_name(title)
        self._window.set_wm_class("hostile", "Hostile")
        self._window.set_wm_hints(flags=Xutil.InputHint, input=True)
        self._set("_NET_WM_NAME", self._display.intern_atom("UTF8_STRING"), 8, title.encode())
        self._set("_NET_WM_PID", self._display.intern_atom("CARDINAL"), 32, [os.getpid()])
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
        self._delayed = []
        self._order = itertools.count()
        self._asked = 0
        self._next = text
        self._behaviour = None
        self._registered = False

    @property
    def service(self):
        return self.bus.name

    def later(self, seconds, call):
        heapq.heappush(self._delayed, (time.monotonic() + seconds, next(self._order), call))

    def run(self):
        window = None
        while True:
            if self._registered and window is None:
                window = ItsWindow("Hostile", self.log)
            try:
                self._turn(window)
            except EOFError:
                self.log.write("thrown out")
                self.bus.close()
                self._stay(window)

    def _turn(self, window):
        limit = max(0, self._delayed[0][0] - time.monotonic()) if self._delayed else None
        writers = [self.bus] if self.bus.wants_to_write else []
        select.select([self.bus, *([window] if window else [])], writers, [], limit)
        for message in self.bus.receive():
            self._take(message)
        while self._delayed and self._delayed[0][0] <= time.monotonic():
            heapq.heappop(self._delayed)[2]()
        self.bus.flush()
        if window:
            window.receive()

    @staticmethod
    def _stay(window):
        """The window is all that is left."""
        while window:
            select.select([window], [], [])
            window.receive()
        sys.exit(1)

    def _take(self, message):
        if message.kind != CALL:
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

    def _take_reply(self, message):
        if not self.bus.name and message.reply_serial == 1:
            self.bus.name, = message.arguments
            self._behaviour = behaviour(self, self._next)
            self.bus.call("org.a11y.atspi.Registry", ROOT, "org.a11y.atspi.Socket", "Embed", "(so)",
                          [(self.service, ROOT)])
        elif message.reply_serial == 2:
            self._registered = True

    def _control(self, message):
        if message.member == "Behave":
            self._behaviour = behaviour(self, message.arguments[0])
            self.bus.reply(message, "b", [1])
        else:
            self.bus.reply(message, "u", [self._asked])


def main():
    address, path, text = sys.argv[1:]
    Application(address, Log(path), text).run()


if __name__ == "__main__":
    main()
