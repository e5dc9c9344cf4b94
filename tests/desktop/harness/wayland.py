# SPDX-License-Identifier: MIT
"""A private Wayland session: the compositor sway without a screen, XWayland, and a person's keys and pointer in it."""
import json
import os
import pathlib
import pwd
import socket
import struct
import subprocess
import tempfile
import time

from .processes import Program, adopt_orphans
from .screen import Screen
from .session import Session
from .waiting import wait_for

TOOLS = ("sway", "swaymsg", "Xwayland", "xhost", "grim", "setpriv", "dbus-daemon")
SIZE = 1280, 800
LEFT_BUTTON = 0x110
_X_KEY_OFFSET = 8  # between the codes of the X server and those of the kernel

_CONFIGURATION = """
output * resolution {size} position 0 0
xwayland force
default_border none
for_window [title=".*"] floating enable
exec xhost +local:
"""
_KEYMAP = """xkb_keymap {
  xkb_keycodes { include "evdev+aliases(qwerty)" };
  xkb_types { include "complete" };
  xkb_compat { include "complete" };
  xkb_symbols { include "pc+us+inet(evdev)" };
};
"""


class WaylandSession(Session):
    """Like a session with an X server of its own, but that is XWayland, and windows may be the compositor's alone."""

    def start(self):
        adopt_orphans()
        self.directory = pathlib.Path(tempfile.mkdtemp(prefix="tw"))
        self.directory.chmod(0o755)
        for part in ("run", "home", "out"):
            (self.directory / part).mkdir(mode=0o700)
        self.environment = self._own_environment()
        self.environment["XDG_SESSION_TYPE"] = "wayland"
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = self._start_bus()
        self._start_compositor()
        self.screen = Screen(self.environment["DISPLAY"])
        self.input = WaylandInput(self.environment["WAYLAND_DISPLAY"])
        return self

    def stop(self):
        if getattr(self, "input", None):
            self.input.close()
        super().stop()

    def screenshot(self, path):
        subprocess.run(["grim", str(path)], env=self.environment, timeout=20, check=False)

    def window_of(self, pid):
        """The compositor's window of a process as swaymsg describes it; nothing while there is none."""
        return next((node for node in _nodes(self._tree()) if node.get("pid") == pid), None)

    def focus(self, pid):
        """Brings the window of a process to the front, as a person does, and waits until it is there."""
        self._swaymsg(f"[pid={pid}]", "focus")
        wait_for(lambda: (self.window_of(pid) or {}).get("focused"), f"the window of {pid} in front")

    def _tree(self):
        return json.loads(self._swaymsg("-t", "get_tree"))

    def _swaymsg(self, *arguments):
        return subprocess.run(["swaymsg", *arguments], env=self.environment, timeout=60, check=True,
                              capture_output=True, text=True).stdout

    def _start_compositor(self):
        """sway does not run for root, so it has a folder of its own, which belongs to somebody else then."""
        folder = self.directory / "sway"
        folder.mkdir(mode=0o700)
        configuration = folder / "config"
        configuration.write_text(_CONFIGURATION.format(size="x".join(map(str, SIZE))))
        command = ["sway", "--config", str(configuration)]
        if os.geteuid() == 0:
            nobody = pwd.getpwnam("nobody")
            for path in (folder, configuration):
                os.chown(path, nobody.pw_uid, nobody.pw_gid)
            command = ["setpriv", "--reuid", "nobody", "--regid", str(nobody.pw_gid), "--clear-groups", *command]
        environment = {name: value for name, value in self.environment.items()
                       if name not in ("DISPLAY", "DBUS_SESSION_BUS_ADDRESS")}
        environment.update(XDG_RUNTIME_DIR=str(folder), HOME=str(folder), WLR_BACKENDS="headless",
                           WLR_LIBINPUT_NO_DEVICES="1", WLR_RENDERER="pixman")
        told = folder / "told"
        with open(configuration, "a", encoding="utf-8") as lines:
            lines.write(f'exec echo "$WAYLAND_DISPLAY $DISPLAY $SWAYSOCK" > {told}.new && mv {told}.new {told}\n')
        self._programs.append(Program(command, environment, self.directory / "out"))
        wait_for(told.exists, f"the compositor; it wrote {self._programs[-1].output}")
        display, x_display, sway_socket = told.read_text().split()
        self.environment.update(WAYLAND_DISPLAY=str(folder / display), DISPLAY=x_display, SWAYSOCK=sway_socket)
        wait_for(self._lets_us_in, "an X server that lets us in", step=0.05)

    def _lets_us_in(self):
        return subprocess.run(["xhost"], env=self.environment, timeout=60, check=False, capture_output=True).returncode == 0


def _nodes(node):
    yield node
    for child in node.get("nodes", []) + node.get("floating_nodes", []):
        yield from _nodes(child)


class WaylandInput:
    """Keys and a pointer, plugged into the compositor."""

    _DISPLAY, _REGISTRY = 1, 2

    def __init__(self, path):
        self._socket = socket.socket(socket.AF_UNIX)
        self._socket.connect(path)
        self._last_id = self._REGISTRY
        self._buffer = b""
        self._globals = {}
        self._send(self._DISPLAY, 1, struct.pack("=I", self._REGISTRY))
        self._round_trip()
        seat = self._bind("wl_seat", 1)
        pointers = self._bind("zwlr_virtual_pointer_manager_v1", 1)
        self._pointer = self._made_by(pointers, seat)
        keyboards = self._bind("zwp_virtual_keyboard_manager_v1", 1)
        self._keyboard = self._made_by(keyboards, seat)
        self._give_keymap()
        self._round_trip()

    def close(self):
        self._socket.close()

    def move(self, x, y):
        self._send(self._pointer, 1, struct.pack("=IIIII", _now(), x, y, *SIZE))
        self._send(self._pointer, 4)
        self._round_trip()

    def click(self, at=None):
        if at:
            self.move(*at)
        for state in (1, 0):
            self._send(self._pointer, 2, struct.pack("=III", _now(), LEFT_BUTTON, state))
            self._send(self._pointer, 4)
            self._round_trip()

    def press(self, code):
        """Presses a key by its code of the X server."""
        self._key(code, 1)

    def release(self, code):
        self._key(code, 0)

    def tap(self, code, *held):
        for modifier in held:
            self.press(modifier)
        self.press(code)
        time.sleep(0.02)  # nobody is quicker
        self.release(code)
        for modifier in reversed(held):
            self.release(modifier)

    def _key(self, code, state):
        self._send(self._keyboard, 1, struct.pack("=III", _now(), code - _X_KEY_OFFSET, state))
        self._round_trip()

    def _give_keymap(self):
        keymap = _KEYMAP.encode() + b"\0"
        with tempfile.TemporaryFile() as file:
            file.write(keymap)
            file.flush()
            message = _message(self._keyboard, 0, struct.pack("=II", 1, len(keymap)))
            socket.send_fds(self._socket, [message], [file.fileno()])

    def _made_by(self, manager, seat):
        made = self._new_id()
        self._send(manager, 0, struct.pack("=II", seat, made))
        return made

    def _bind(self, interface, version):
        name = self._globals[interface]
        bound = self._new_id()
        text = interface.encode() + b"\0"
        padded = text + b"\0" * (-len(text) % 4)
        self._send(self._REGISTRY, 0,
                   struct.pack("=II", name, len(text)) + padded + struct.pack("=II", version, bound))
        return bound

    def _new_id(self):
        self._last_id += 1
        return self._last_id

    def _send(self, target, opcode, arguments=b""):
        self._socket.sendall(_message(target, opcode, arguments))

    def _round_trip(self):
        """Waits until the compositor has dealt with all that was sent."""
        callback = self._new_id()
        self._send(self._DISPLAY, 0, struct.pack("=I", callback))
        while True:
            while len(self._buffer) < 8 or len(self._buffer) < struct.unpack_from("=IHH", self._buffer)[2]:
                received = self._socket.recv(65536)
                if not received:
                    raise RuntimeError("the compositor has hung up")
                self._buffer += received
            target, opcode, size = struct.unpack_from("=IHH", self._buffer)
            arguments, self._buffer = self._buffer[8:size], self._buffer[size:]
            if target == callback:
                return
            if (target, opcode) == (self._DISPLAY, 0):
                raise RuntimeError(f"the compositor refuses: {arguments!r}")
            if (target, opcode) == (self._REGISTRY, 0):
                name, length = struct.unpack_from("=II", arguments)
                self._globals[arguments[8:8 + length - 1].decode()] = name


def _message(target, opcode, arguments):
    return struct.pack("=IHH", target, opcode, 8 + len(arguments)) + arguments


def _now():
    return int(time.monotonic() * 1000) & 0xffffffff
