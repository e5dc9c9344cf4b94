# SPDX-License-Identifier: MIT
"""A session manager of the X kind (XSMP over ICE), as desktops have one: it asks its clients to save and to end."""
import os
import socket
import struct

from .waiting import wait_for

_ICE, _XSMP = 0, 1

# Of ICE
_BYTE_ORDER, _SETUP, _ACCEPTED, _PROTOCOL_SETUP, _PROTOCOL_ACCEPTED = 1, 2, 6, 7, 8
# Of XSMP
_REGISTER, _REGISTERED, _SAVE_YOURSELF, _SAVED, _DIE, _PROPERTIES = 1, 2, 3, 8, 9, 12


def _padded(data, unit):
    return data + bytes(-len(data) % unit)


def _text(text):
    """As ICE writes it."""
    return _padded(struct.pack("<H", len(text)) + text.encode(), 4)


class SessionManager:
    """Takes one client. Set `environment` for it before it starts."""

    def __init__(self, directory):
        path = str(directory / "session-manager")
        self.environment = {"SESSION_MANAGER": f"local/{socket.gethostname()}:{path}",
                            "ICEAUTHORITY": str(directory / "no-authority")}
        self._listener = socket.socket(socket.AF_UNIX)
        self._listener.bind(path)
        self._listener.listen()
        self._listener.setblocking(False)
        self._client = None
        self._received = b""
        self.requests = []

    def close(self):
        """The session manager is gone, whatever its client is doing."""
        for end in (self._client, self._listener):
            if end:
                end.close()

    def wait_for_client(self):
        wait_for(lambda: self._has(_XSMP, _REGISTER), "a client of the session manager")
        self._send(_XSMP, _REGISTERED, bytes(2), struct.pack("<I", 8) + b"tarnwick" + bytes(4))

    def save(self, shutdown=True):
        """Asks to save and waits until the client has; what it says of itself by then."""
        local, no_interaction = 1, 0
        self._send(_XSMP, _SAVE_YOURSELF, bytes(2), bytes([local, shutdown, no_interaction, False]) + bytes(4))
        wait_for(lambda: self._has(_XSMP, _SAVED), "the client saved")
        return b"".join(data for major, minor, data in self.requests if (major, minor) == (_XSMP, _PROPERTIES))

    def end_client(self):
        self._send(_XSMP, _DIE, bytes(2), b"")

    def _has(self, major, minor):
        self._read()
        return any(request[:2] == (major, minor) for request in self.requests)

    def _read(self):
        try:
            if not self._client:
                self._client = self._listener.accept()[0]
                self._client.setblocking(False)
                self._send(_ICE, _BYTE_ORDER, b"\0\0", b"")
            self._received += self._client.recv(65536)
        except BlockingIOError:
            pass
        while len(self._received) >= 8:
            length = 8 + 8 * struct.unpack_from("<I", self._received, 4)[0]
            if len(self._received) < length:
                return
            message, self._received = self._received[:length], self._received[length:]
            self._answer(message[0], message[1], message[8:])

    def _answer(self, major, minor, data):
        self.requests.append((major, minor, data))
        if (major, minor) == (_ICE, _SETUP):
            self._send(_ICE, _ACCEPTED, b"\0\0", _text("Tests") + _text("1"))
        elif (major, minor) == (_ICE, _PROTOCOL_SETUP):
            self._send(_ICE, _PROTOCOL_ACCEPTED, bytes([0, _XSMP]), _text("Tests") + _text("1"))

    def _send(self, major, minor, head, data):
        data = _padded(data, 8)
        self._client.sendall(struct.pack("<BB2sI", major, minor, head, len(data) // 8) + data)
