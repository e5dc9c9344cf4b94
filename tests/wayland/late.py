# SPDX-License-Identifier: MIT
"""A compositor that is late with what it tells of a program's own windows, as on a busy machine."""
import contextlib
import os
import pathlib
import queue
import socket
import threading
import time

_CHUNK = 65536  # bytes
_MOST_DESCRIPTORS = 28  # in one message, as the libraries have it
_WINDOWS = b"xdg_wm_base\0"  # what a connection asks for that is about windows


class LateWindows:
    """Between the compositor of a session and the programs that are told `path`: of what it tells them on connections that are
    about windows each piece comes `seconds` after it was told, all else at once."""

    def __init__(self, session, seconds):
        self.path = session.directory / "run" / "late"
        self._compositor = pathlib.Path(session.environment["XDG_RUNTIME_DIR"]) / session.environment["WAYLAND_DISPLAY"]
        self._seconds = seconds
        self._listener = socket.socket(socket.AF_UNIX)
        self._listener.bind(os.fspath(self.path))
        self._listener.listen()
        threading.Thread(target=self._take_in, daemon=True).start()

    def close(self):
        self._listener.shutdown(socket.SHUT_RDWR)

    def _take_in(self):
        with self._listener, contextlib.suppress(OSError):  # shut down
            while True:
                _Pair(self._listener.accept()[0], self._compositor, self._seconds)


class _Pair:
    """A program and the compositor."""

    def __init__(self, program, compositor, seconds):
        self._program = program
        self._compositor = socket.socket(socket.AF_UNIX)
        self._compositor.connect(os.fspath(compositor))
        self._seconds = seconds
        self._is_late = False
        self._told = queue.SimpleQueue()
        threading.Thread(target=self._hand_on, daemon=True).start()

    def _hand_on(self):
        """Returns when both sides have hung up."""
        with self._program, self._compositor:
            others = [threading.Thread(target=work, daemon=True) for work in (self._hear, self._tell)]
            for thread in others:
                thread.start()
            self._hand_on_requests()
            for thread in others:
                thread.join()

    def _hand_on_requests(self):
        for data, descriptors in _pieces(self._program):
            self._is_late = self._is_late or _WINDOWS in data
            _send(self._compositor, data, descriptors)
        _hang_up(self._compositor)

    def _hear(self):
        for piece in _pieces(self._compositor):
            self._told.put((time.monotonic() + self._seconds * self._is_late, piece))
        self._told.put(None)

    def _tell(self):
        while told := self._told.get():
            due, piece = told
            time.sleep(max(0, due - time.monotonic()))
            _send(self._program, *piece)
        _hang_up(self._program)


def _pieces(connection):
    """What comes, with its descriptors, until the other side hangs up."""
    with contextlib.suppress(OSError):
        while True:
            data, descriptors, *_ = socket.recv_fds(connection, _CHUNK, _MOST_DESCRIPTORS)
            if not data:
                return
            yield data, descriptors


def _send(connection, data, descriptors):
    with contextlib.suppress(OSError):  # the other side has hung up, which is noticed where it is read
        sent = socket.send_fds(connection, [data], descriptors)
        connection.sendall(data[sent:])
    for descriptor in descriptors:
        os.close(descriptor)


def _hang_up(connection):
    with contextlib.suppress(OSError):
        connection.shutdown(socket.SHUT_RDWR)
