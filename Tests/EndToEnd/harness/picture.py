# SPDX-License-Identifier: MIT
"""Pixels as the X server sends them: compared, probed, and written as PNG."""
import pathlib
import struct
import zlib


class Picture:
    """An opaque image of `width` × `height` pixels, four bytes (blue, green, red, unused) each."""

    def __init__(self, width, height, data):
        self.width, self.height = width, height
        self.data = bytes(data)

    def __eq__(self, other):
        return self.data == other.data

    def pixel(self, x, y):
        """(red, green, blue) at a place."""
        offset = 4 * (int(y) * self.width + int(x))
        return self.data[offset + 2], self.data[offset + 1], self.data[offset]

    def mean(self, x, y, reach=2):
        """The mean colour of the square of side 2 × `reach` + 1 around a place."""
        square = [
            self.pixel(column, row)
            for row in range(int(y) - reach, int(y) + reach + 1)
            for column in range(int(x) - reach, int(x) + reach + 1)
        ]
        return tuple(sum(channel) / len(square) for channel in zip(*square))

    def share_unlike(self, other):
        """The share of pixels, from 0 to 1, that differ from another picture of the same size."""
        mine, theirs = memoryview(self.data).cast("I"), memoryview(other.data).cast("I")
        return sum(a != b for a, b in zip(mine, theirs)) / max(1, len(mine))

    def save(self, path):
        rgb = bytearray(3 * self.width * self.height)
        rgb[0::3], rgb[1::3], rgb[2::3] = self.data[2::4], self.data[1::4], self.data[0::4]
        write_png(path, self.width, self.height, bytes(rgb), channels=3)


def write_png(path, width, height, pixels, channels):
    """Writes 8-bit RGB (3 channels) or RGBA (4 channels) pixels, rows from top to bottom."""

    def chunk(kind, body):
        return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))

    stride = width * channels
    rows = b"".join(b"\0" + pixels[row * stride:(row + 1) * stride] for row in range(height))
    header = struct.pack(">IIBBBBB", width, height, 8, {3: 2, 4: 6}[channels], 0, 0, 0)
    path = pathlib.Path(path)
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(
        b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(rows, 3)) + chunk(b"IEND", b""))


def colour_distance(one, other):
    return max(abs(a - b) for a, b in zip(one, other))
