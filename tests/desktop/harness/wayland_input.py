# SPDX-License-Identifier: MIT
"""A person's keys and pointer, plugged into a Wayland compositor. It is spoken to in the bytes of its protocol."""
import socket
import struct
import tempfile
import time

SIZE = 1280, 800  # of the output that the pointer moves on
LEFT_BUTTON, MIDDLE_BUTTON = 0x110, 0x112
_X_KEY_OFFSET = 8  # between the codes of the X server and those of the kernel
_MODIFIERS = {50: 1, 62: 1, 37: 4, 105: 4, 64: 8, 133: 64, 134: 64}  # the bits of Shift, Control, Option and Command
_KEYMAP = """xkb_keymap {
  xkb_keycodes { include "evdev+aliases(qwerty)" };
  xkb_types { include "complete" };
  xkb_compat { include "complete" };
  xkb_symbols { include "pc+%s+inet(evdev)" };
};
"""


class WaylandClient:
    """A client of the compositor at a path; `names` are the interfaces that it offers."""

    _DISPLAY, _REGISTRY = 1, 2

    def __init__(self, path):
        self._socket = socket.socket(socket.AF_UNIX)
        self._socket.connect(path)
        self._last_id = self._REGISTRY
        self._buffer = b""
        self._globals = {}  # the numbers of those that are of an interface, oldest first
        self._send(self._DISPLAY, 1, struct.pack("=I", self._REGISTRY))
        self._round_trip()

    @property
    def names(self):
        return set(self._globals)

    def close(self):
        self._socket.close()

    def _bind(self, interface, version):
        return self._bind_one(self._globals[interface][-1], interface, version)

    def _bind_each(self, interface, version):
        """All that there are of an interface, oldest first."""
        return [self._bind_one(name, interface, version) for name in self._globals[interface]]

    def _bind_one(self, name, interface, version):
        bound = self._new_id()
        self._send(self._REGISTRY, 0, struct.pack("=I", name) + text(interface) + struct.pack("=II", version, bound))
        return bound

    def _new_id(self):
        self._last_id += 1
        return self._last_id

    def _send(self, target, opcode, arguments=b"", descriptors=()):
        message = struct.pack("=IHH", target, opcode, 8 + len(arguments)) + arguments
        if descriptors:
            socket.send_fds(self._socket, [message], descriptors)
        else:
            self._socket.sendall(message)

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
                self._globals.setdefault(arguments[8:8 + length - 1].decode(), []).append(name)
            else:
                self._told(target, opcode, arguments)

    def _told(self, target, opcode, arguments):
        """Takes an event of something that was bound or made."""


class Input(WaylandClient):
    """A keyboard and a pointer. Keys have the codes of the X server, places count from the corner of the first output."""

    extent = SIZE  # of all outputs together

    def click(self, at=None, button=LEFT_BUTTON):
        if at:
            self.move(*at)
        for state in (1, 0):
            self._button(button, state)
            self._round_trip()

    def hold_button(self, button, down):
        self._button(button, int(down))
        self._round_trip()

    def move(self, x, y):
        self._move(x, y)
        self._round_trip()

    def wait_until_heard(self):
        """Waits until the compositor has dealt with all that was done."""
        self._round_trip()

    def press(self, code):
        self._key(code - _X_KEY_OFFSET, 1)
        self._round_trip()

    def release(self, code):
        self._key(code - _X_KEY_OFFSET, 0)
        self._round_trip()

    def tap(self, code, *held):
        for modifier in held:
            self.press(modifier)
        self.press(code)
        time.sleep(0.02)  # nobody is quicker
        self.release(code)
        for modifier in reversed(held):
            self.release(modifier)

    def _move(self, x, y):
        raise NotImplementedError

    def _button(self, button, state):
        raise NotImplementedError

    def _key(self, code, state):
        raise NotImplementedError


class VirtualInput(Input):
    """For compositors that let a client be a keyboard and a pointer."""

    def __init__(self, path):
        super().__init__(path)
        seat = self._bind("wl_seat", 1)
        self._pointer = self._made_by(self._bind("zwlr_virtual_pointer_manager_v1", 1), seat)
        self._keyboard = self._made_by(self._bind("zwp_virtual_keyboard_manager_v1", 1), seat)
        self._held = []
        self._layout = 0
        self.set_layouts("us")

    def _move(self, x, y):
        self._send(self._pointer, 1, struct.pack("=IIIII", _now(), x, y, *self.extent))
        self._send(self._pointer, 4)

    def _button(self, button, state):
        self._send(self._pointer, 2, struct.pack("=III", _now(), button, state))
        self._send(self._pointer, 4)

    def _key(self, code, state):
        self._send(self._keyboard, 1, struct.pack("=III", _now(), code, state))
        if bit := _MODIFIERS.get(code + _X_KEY_OFFSET):  # the compositor does not look at the keys for them
            self._held.append(bit) if state else self._held.remove(bit)
            self._tell_modifiers()

    def _tell_modifiers(self):
        held = 0
        for each in self._held:
            held |= each
        self._send(self._keyboard, 2, struct.pack("=IIII", held, 0, 0, self._layout))

    def set_layouts(self, layouts):
        """The keyboard has these from now on ("us,ru"), and types on the first one."""
        first, *others = layouts.split(",")
        keymap = (_KEYMAP % "+".join([first, *(f"{name}:{group}" for group, name in enumerate(others, 2))])).encode() + b"\0"
        with tempfile.TemporaryFile() as file:
            file.write(keymap)
            file.flush()
            self._send(self._keyboard, 0, struct.pack("=II", 1, len(keymap)), [file.fileno()])
        self.choose_layout(0)

    def choose_layout(self, number):
        self._layout = number
        self._tell_modifiers()
        self._round_trip()

    def _made_by(self, manager, seat):
        made = self._new_id()
        self._send(manager, 0, struct.pack("=II", seat, made))
        return made


class FakeInput(Input):
    """For KWin, which has a protocol of its own for it."""

    def __init__(self, path):
        super().__init__(path)
        self._device = self._bind("org_kde_kwin_fake_input", 4)
        self._send(self._device, 0, text("tests") + text("a person's hands"))
        self._round_trip()

    def _move(self, x, y):
        self._send(self._device, 9, struct.pack("=ii", x << 8, y << 8))

    def _button(self, button, state):
        self._send(self._device, 2, struct.pack("=II", button, state))

    def _key(self, code, state):
        self._send(self._device, 10, struct.pack("=II", code, state))


def text(text):
    """A string as the protocol has it: with its length, and filled up to a word."""
    ended = text.encode() + b"\0"
    return struct.pack("=I", len(ended)) + ended + b"\0" * (-len(ended) % 4)


def _now():
    return int(time.monotonic() * 1000) & 0xffffffff
