# SPDX-License-Identifier: MIT
"""Pixels as the X server sends them: compared, probed, and written as PNG."""
import pathlib

from PIL import Image


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
        pathlib.Path(path).parent.mkdir(parents=True, exist_ok=True)
        Image.frombytes("RGB", (self.width, self.height), self.data, "raw", "BGRX").save(path, compress_level=3)


def colour_distance(one, other):
    return max(abs(a - b) for a, b in zip(one, other))
