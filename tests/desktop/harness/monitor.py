# SPDX-License-Identifier: MIT
"""Writes down every call that goes over a bus."""
import itertools
import re

from gi.repository import Gio, GLib

from .accessible import connect
from .waiting import wait_for

_CALL = re.compile(r"^method call .*sender=(?P<sender>\S+) -> destination=(?P<destination>\S+) .*"
                   r"path=(?P<path>\S+); interface=(?P<interface>\S+); member=(?P<member>\S+)")
_SENT = re.compile(r"^(method (call|return)|signal|error) ")
_TEXT = re.compile(r'^\s+string "(.*)"$')


class Call:
    """A method call: who asked whom for what, with its text arguments."""

    def __init__(self, match):
        self.sender = match["sender"]
        self.destination = match["destination"]
        self.path = match["path"]
        self.interface = match["interface"]
        self.member = match["member"]
        self.texts = []

    @property
    def method(self):
        return f"{self.interface}.{self.member}"

    def is_mark(self):
        return bool(self.texts) and self.texts[0].startswith("mark.of.monitor.")

    def __repr__(self):
        return f"{self.sender} -> {self.destination}: {self.method}({', '.join(self.texts)})"


class BusMonitor:
    """Sees the calls on one bus from its making on."""

    def __init__(self, session, address):
        self._program = session.run("dbus-monitor", "--address", address, "type=method_call")
        self._connection = connect(address)
        self._marks = itertools.count(1)
        wait_for(self._sees_calls, "a bus monitor")

    def calls(self):
        """All calls so far, also those that the monitor has yet to write down: a mark is sent after them and waited for."""
        mark = f"mark.of.monitor.n{next(self._marks)}"
        self.ask_bus("NameHasOwner", GLib.Variant("(s)", (mark,)))
        wait_for(lambda: f'"{mark}"' in self._program.output, "the monitor up to date")
        return [call for call in self._written() if not call.is_mark()]

    def _written(self):
        found = []
        for line in self._program.output.splitlines():
            if match := _CALL.match(line):
                found.append(Call(match))
            elif _SENT.match(line):
                found.append(None)
            elif found and found[-1] and (text := _TEXT.match(line)):
                found[-1].texts.append(text[1])
        return [call for call in found if call]

    def ask_bus(self, method, arguments=None):
        """What the bus itself answers; nothing when it refuses."""
        try:
            return self._connection.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                                              method, arguments, None, Gio.DBusCallFlags.NONE, 30000, None).unpack()[0]
        except GLib.Error:
            return None

    def _sees_calls(self):
        self.ask_bus("GetId")
        return bool(self._written())
