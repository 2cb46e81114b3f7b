"""Pictures in grey, from the display and from a page, and how unlike two of them are."""

import struct
import subprocess

COLUMNS, ROWS = 64, 48  # what a picture is shrunk to before it is compared
TILE = 8  # squares of the shrunk picture on each side of a tile


class Picture:
    """Rows of bytes, 0 black to 255 white."""

    def __init__(self, rows):
        self.rows = rows

    @property
    def size(self):
        return len(self.rows[0]), len(self.rows)

    def cut(self, left, top, width, height):
        return Picture([row[left : left + width] for row in self.rows[top : top + height]])

    def ink(self):
        """Left, top, width and height of what isn't white."""
        lines = [y for y, row in enumerate(self.rows) if min(row) < 255]
        left = min(len(row) - len(row.lstrip(b"\xff")) for row in self.rows)
        right = max(len(row.rstrip(b"\xff")) for row in self.rows)
        return left, lines[0], right - left, lines[-1] + 1 - lines[0]

    def whitened(self, left, top, width, height):
        """The same with a white patch."""
        rows = list(self.rows)
        for y in range(top, min(top + height, len(rows))):
            row = bytearray(rows[y])
            row[left : left + width] = b"\xff" * len(row[left : left + width])
            rows[y] = bytes(row)
        return Picture(rows)

    def shrunk(self):
        """The mean of each square, row by row."""
        width, height = self.size
        xs = [i * width // COLUMNS for i in range(COLUMNS + 1)]
        ys = [i * height // ROWS for i in range(ROWS + 1)]
        means = []
        for top, bottom in zip(ys, ys[1:]):
            band = self.rows[top:bottom]
            for left, right in zip(xs, xs[1:]):
                total = sum(sum(row[left:right]) for row in band)
                means.append(total / ((right - left) * (bottom - top)))
        return means


def unlikeness(one, other):
    """The mean difference of grey in the tile where the two differ most, 0 to 255."""
    differences = [abs(a - b) for a, b in zip(one.shrunk(), other.shrunk())]

    def tile(column, row):
        squares = [
            differences[y * COLUMNS + x]
            for y in range(row, row + TILE)
            for x in range(column, column + TILE)
        ]
        return sum(squares) / len(squares)

    return max(tile(x, y) for y in range(0, ROWS, TILE) for x in range(0, COLUMNS, TILE))


def of_display(path):
    """The display's frame buffer, a window dump of 32 bits a pixel, blue first."""
    with open(path, "rb") as opened:
        data = opened.read()
    header = struct.unpack(">25I", data[:100])
    size, width, height, line, colors = header[0], header[4], header[5], header[12], header[19]
    assert header[11] == 32 and header[7] == 0, "32 bits a pixel, low byte first"
    start = size + colors * 12
    rows = []
    for y in range(height):
        row = data[start + y * line : start + y * line + 4 * width]
        colors_of_row = zip(row[::4], row[1::4], row[2::4])
        rows.append(bytes((29 * b + 150 * g + 77 * r) >> 8 for b, g, r in colors_of_row))
    return Picture(rows)


def of_page(path, dots_per_inch):
    """The first page of a document, rendered."""
    command = ["pdftoppm", "-r", str(dots_per_inch), "-gray", "-f", "1", "-l", "1", path]
    data = subprocess.run(command, capture_output=True, check=True).stdout
    kind, width, height, most = data.split(None, 4)[:4]
    assert (kind, most) == (b"P5", b"255")
    width, height = int(width), int(height)
    pixels = data[-width * height :]
    return Picture([pixels[y * width : (y + 1) * width] for y in range(height)])
