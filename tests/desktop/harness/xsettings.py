# SPDX-License-Identifier: MIT
"""What a desktop's settings program tells to the applications of an X display."""
import struct

from Xlib import X, display
from Xlib.protocol import event

_LITTLE_ENDIAN = 0
_NUMBER, _TEXT = 0, 1


class XSettings:
    """The settings of a display, while it is there: names such as "Gtk/FontName" with numbers and texts."""

    def __init__(self, display_name):
        self._display = display.Display(display_name)
        self._values = {}
        self._serial = 0
        root = self._display.screen().root
        self._window = root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        self._write()
        selection = self._display.intern_atom("_XSETTINGS_S0")
        self._window.set_selection_owner(selection, X.CurrentTime)
        root.send_event(event.ClientMessage(window=root, client_type=self._display.intern_atom("MANAGER"),
                                            data=(32, [X.CurrentTime, selection, self._window.id, 0, 0])),
                        event_mask=X.StructureNotifyMask)
        self._display.sync()

    def close(self):
        self._display.close()

    def set(self, values):
        """Changes some of the settings at once."""
        self._values.update(values)
        self._write()

    def _write(self):
        self._serial += 1
        entries = b"".join(self._entry(name, value) for name, value in sorted(self._values.items()))
        header = struct.pack("<B3xII", _LITTLE_ENDIAN, self._serial, len(self._values))
        kind = self._display.intern_atom("_XSETTINGS_SETTINGS")
        self._window.change_property(kind, kind, 8, header + entries)
        self._display.sync()

    def _entry(self, name, value):
        kind = _TEXT if isinstance(value, str) else _NUMBER
        written = name.encode()
        head = struct.pack("<BxH", kind, len(written)) + _padded(written) + struct.pack("<I", self._serial)
        if kind == _NUMBER:
            return head + struct.pack("<i", value)
        text = value.encode()
        return head + struct.pack("<I", len(text)) + _padded(text)


def _padded(data):
    return data + bytes(-len(data) % 4)
