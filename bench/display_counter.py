# SPDX-License-Identifier: MIT
"""Stands between a program and the X server, hands everything on, and counts what the program is answered.

Each answer is one round trip at most: what asks for several at once waits for them together.
"""
import collections
import pathlib
import socket
import struct
import sys
import threading

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "tests/desktop"))

from harness.display_relay import pump  # noqa: E402

_OFFSET = 7000  # of the display that is listened at, so that each server has its own
_QUERY_EXTENSION = 98
_ANSWER, _WIDE_EVENT = 1, 35
_CORE = {3: "GetWindowAttributes", 14: "GetGeometry", 15: "QueryTree", 16: "InternAtom", 17: "GetAtomName",
         20: "GetProperty", 21: "ListProperties", 23: "GetSelectionOwner", 26: "GrabPointer", 31: "GrabKeyboard",
         38: "QueryPointer", 39: "GetMotionEvents", 40: "TranslateCoordinates", 43: "GetInputFocus",
         44: "QueryKeymap", 73: "GetImage", _QUERY_EXTENSION: "QueryExtension", 101: "GetKeyboardMapping",
         117: "GetPointerMapping", 119: "GetModifierMapping"}


class DisplayCounter:
    """A display of the session `screen` belongs to; `answers()` are counted over all who came in here."""

    def __init__(self, screen):
        server = int(screen.display.get_display_name().lstrip(":").split(".")[0])
        self.display = f":{server + _OFFSET}"
        self._connections = []
        self._upstream = f"/tmp/.X11-unix/X{server}"
        self._listening = socket.socket(socket.AF_UNIX)
        self._listening.bind(f"\0/tmp/.X11-unix/X{server + _OFFSET}")  # leaves no file behind
        self._listening.listen()
        threading.Thread(target=self._serve, daemon=True).start()

    def answers(self):
        """How many answers the server has given so far, by the name of what was asked."""
        return sum((connection.answers for connection in list(self._connections)), collections.Counter())

    def close(self):
        self._listening.shutdown(socket.SHUT_RDWR)  # wakes who waits for the next one
        self._listening.close()

    def _serve(self):
        while True:
            try:
                client, _ = self._listening.accept()
            except OSError:
                return
            server = socket.socket(socket.AF_UNIX)
            server.connect(self._upstream)
            connection = Connection()
            self._connections.append(connection)
            for source, sink, look in ((client, server, connection.sent), (server, client, connection.received)):
                threading.Thread(target=pump, args=(source, sink, _seen_by(look)), daemon=True).start()


def _seen_by(look):
    def passed(data):
        look(data)
        return data
    return passed


class Connection:
    """One connection to the server as its bytes go by, in pieces of any size."""

    def __init__(self):
        self.answers = collections.Counter()
        self._requests = _Pieces(self._length_of_setup)
        self._packets = _Pieces(self._length_of_welcome)
        self._order = "<"
        self._sequence = 0
        self._asked = {}  # what each request wants to know, by the last 16 bits of its number
        self._extensions = {}  # their names, by number

    def sent(self, data):
        for request in self._requests.of(data):
            if self._requests.length_of == self._length_of_setup:
                self._requests.length_of = self._length_of_request
            else:
                self._sequence = (self._sequence + 1) & 0xffff
                self._asked[self._sequence] = request[:64]

    def received(self, data):
        for packet in self._packets.of(data):
            if self._packets.length_of == self._length_of_welcome:
                self._packets.length_of = self._length_of_packet
            elif packet[0] == _ANSWER:
                self._on_answer(packet)

    def _on_answer(self, packet):
        request = self._asked[self._number("H", packet, 2)]
        self.answers[self._name_of(request)] += 1
        if request[0] == _QUERY_EXTENSION and packet[8]:
            length = self._number("H", request, 4)
            self._extensions[packet[9]] = request[8:8 + length].decode()

    def _name_of(self, request):
        opcode, minor = request[:2]
        if opcode < 128:
            return _CORE.get(opcode, f"request {opcode}")
        return f"{self._extensions.get(opcode, f'extension {opcode}')} {minor}"

    def _length_of_setup(self, data):
        if len(data) < 12:
            return 12
        self._order = ">" if data[:1] == b"B" else "<"
        return 12 + sum(_padded(self._number("H", data, place)) for place in (6, 8))

    def _length_of_request(self, data):
        """A length of nothing stands for a longer one behind it."""
        if len(data) < 4:
            return 4
        words = self._number("H", data, 2)
        if words == 0 and len(data) >= 8:
            words = self._number("I", data, 4)
        return 4 * words or 8

    def _length_of_welcome(self, data):
        return 8 + 4 * self._number("H", data, 6) if len(data) >= 8 else 8

    def _length_of_packet(self, data):
        if len(data) < 32:
            return 32
        return 32 + 4 * self._number("I", data, 4) if data[0] & 0x7f in (_ANSWER, _WIDE_EVENT) else 32

    def _number(self, kind, data, place):
        return struct.unpack_from(self._order + kind, data, place)[0]


class _Pieces:
    """Cuts a stream up. `length_of` tells of its beginning how long the first piece is, or what it has to see first."""

    def __init__(self, length_of):
        self.length_of = length_of
        self._left = bytearray()

    def of(self, data):
        self._left += data
        while True:
            length = self.length_of(self._left)
            if len(self._left) < length:
                return
            piece = bytes(self._left[:length])
            del self._left[:length]
            yield piece


def _padded(length):
    return (length + 3) & ~3
