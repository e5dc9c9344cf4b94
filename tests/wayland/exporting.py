# SPDX-License-Identifier: MIT
"""A program with a window that is in no accessibility tree. It exports a menu bar and tells the compositor where,
as programs do where a panel of the desktop shows menu bars; with "late" only when it gets SIGUSR1. It writes down what is chosen,
a line each."""
import os
import pathlib
import signal
import struct
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "desktop"))

from gi.repository import Gio, GLib

from harness.exporter import Exporter
from harness.wayland_input import WaylandClient, text

PATH = "/program/menu_bar"  # where nobody looks for one unasked
WIDTH, HEIGHT = 400, 200
ROUND = 20  # milliseconds


class Window(WaylandClient):
    """A grey window, and what it is told from the event loop on."""

    def __init__(self):
        runtime, display = pathlib.Path(os.environ["XDG_RUNTIME_DIR"]), os.environ["WAYLAND_DISPLAY"]
        self._listening = {}
        super().__init__(str(runtime / display))
        self._surface = self._made_by(self._bind("wl_compositor", 1), 0)
        shell = self._bind("xdg_wm_base", 1)
        self._listening[shell, 0] = lambda serial: self._send(shell, 3, serial)  # a ping
        shown = self._made_by(shell, 2, struct.pack("=I", self._surface))
        self._listening[shown, 0] = lambda serial: self._configured(shown, serial)
        toplevel = self._made_by(shown, 1)
        self._send(toplevel, 2, text("Exporter"))
        self._buffer_of_window = self._grey()
        self._commit()
        self._listen()
        GLib.timeout_add(ROUND, self._listen)

    def tell_of_menu_bar(self, service, path):
        menu = self._made_by(self._bind("org_kde_kwin_appmenu_manager", 1), 0, b"", struct.pack("=I", self._surface))
        self._send(menu, 0, text(service) + text(path))
        self._round_trip()

    def _made_by(self, maker, opcode, before=b"", after=b""):
        made = self._new_id()
        self._send(maker, opcode, struct.pack("=I", made) + before + after)
        return made

    def _grey(self):
        memory = self._bind("wl_shm", 1)
        with tempfile.TemporaryFile() as file:
            file.write(b"\x80" * (4 * WIDTH * HEIGHT))
            file.flush()
            pool = self._new_id()
            self._send(memory, 0, struct.pack("=Ii", pool, 4 * WIDTH * HEIGHT), [file.fileno()])
        return self._made_by(pool, 0, b"", struct.pack("=iiiiI", 0, WIDTH, HEIGHT, 4 * WIDTH, 1))

    def _configured(self, shown, serial):
        self._send(shown, 4, serial)
        self._send(self._surface, 1, struct.pack("=Iii", self._buffer_of_window, 0, 0))
        self._commit()

    def _commit(self):
        self._send(self._surface, 6)

    def _told(self, target, opcode, arguments):
        if listener := self._listening.get((target, opcode)):
            listener(arguments)

    def _listen(self):
        """What came with the last answer is dealt with before the next one."""
        self._round_trip()
        return True


def main():
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    exporter = Exporter(bus, False, PATH)
    window = Window()

    def tell():
        window.tell_of_menu_bar(bus.get_unique_name(), PATH)
        print("told", flush=True)
        return True

    if "late" in sys.argv:
        GLib.unix_signal_add(GLib.PRIORITY_DEFAULT, signal.SIGUSR1, tell)
    else:
        tell()
    GLib.MainLoop().run()
    del exporter


if __name__ == "__main__":
    main()
