# SPDX-License-Identifier: MIT
"""The outputs of KWin, as a person arranges them in the settings of the desktop."""
import struct

from harness.wayland_input import WaylandClient


class KWinOutputs(WaylandClient):
    """`arrange` may be called once of each."""

    _CREATE, _ENABLE, _POSITION, _SCALE, _APPLY = 0, 0, 3, 4, 5
    _APPLIED, _FAILED = 0, 1
    _changes = _answer = None

    def __init__(self, path):
        super().__init__(path)
        self._outputs = self._bind_each("kde_output_device_v2", 2)
        manager = self._bind("kde_output_management_v2", 2)
        self._changes = self._new_id()
        self._send(manager, self._CREATE, struct.pack("=I", self._changes))

    def arrange(self, wanted):
        """`wanted`: of each output where it begins, and its scale, None for one that is to be off. Returns when it is so."""
        for output, (x, scale) in zip(self._outputs, wanted, strict=True):
            self._change(self._ENABLE, output, "i", int(scale is not None))
            if scale is not None:
                self._change(self._POSITION, output, "ii", x, 0)
                self._change(self._SCALE, output, "i", round(256 * scale))
        self._send(self._changes, self._APPLY)
        self._round_trip()
        if self._answer != self._APPLIED:
            raise RuntimeError(f"KWin does not arrange its outputs as {wanted}")

    def _change(self, what, output, kinds, *values):
        self._send(self._changes, what, struct.pack(f"=I{kinds}", output, *values))

    def _told(self, target, opcode, arguments):
        if target == self._changes and opcode in (self._APPLIED, self._FAILED):
            self._answer = opcode
