# SPDX-License-Identifier: MIT
"""Pictures of a screen."""
import struct
import zlib


class Picture:
    """Pixels of red, green and blue, a byte each, row by row."""

    def __init__(self, width, height, pixels):
        self.width = width
        self.height = height
        self._pixels = pixels

    def __eq__(self, other):
        return (self.width, self.height, self._pixels) == (other.width, other.height, other._pixels)

    @classmethod
    def from_ppm(cls, data):
        kind, width, height, most, pixels = data.split(maxsplit=4)
        if (kind, most) != (b"P6", b"255"):
            raise ValueError(f"a picture of the kind {kind} {most}")
        return cls(int(width), int(height), data[-int(width) * int(height) * 3:])

    def at(self, x, y):
        begin = (y * self.width + x) * 3
        return tuple(self._pixels[begin:begin + 3])

    def row(self, y):
        return self._pixels[y * self.width * 3:(y + 1) * self.width * 3]

    def changed_from(self, other):
        """The smallest (left, top, right, bottom) with all that is not as in another one; nothing when all is."""
        rows = [y for y in range(self.height) if self.row(y) != other.row(y)]
        columns = [x for y in rows for x in self._ends(self.row(y), other.row(y))]
        return (min(columns), rows[0], max(columns) + 1, rows[-1] + 1) if rows else None

    @staticmethod
    def _ends(row, other):
        """The first and the last pixel in which two rows differ."""
        different = [x for x in range(0, len(row), 3) if row[x:x + 3] != other[x:x + 3]]
        return different[0] // 3, different[-1] // 3

    def png(self):
        rows = b"".join(b"\0" + self.row(y) for y in range(self.height))
        header = struct.pack(">IIBBBBB", self.width, self.height, 8, 2, 0, 0, 0)
        return b"\x89PNG\r\n\x1a\n" + b"".join(
            _chunk(*part) for part in ((b"IHDR", header), (b"IDAT", zlib.compress(rows, 1)), (b"IEND", b"")))


def _chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
