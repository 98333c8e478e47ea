"""Pictures of the screen, read and written without a picture library."""

import struct
import subprocess
import zlib


class Pixels:
    """Rows of 32-bit pixels as the X server gives them: blue, green, red, unused."""

    def __init__(self, width, height, rows):
        self.width = width
        self.height = height
        self.rows = rows

    def at(self, x, y):
        blue, green, red = self.rows[y][4 * x : 4 * x + 3]
        return red, green, blue

    def count(self, color, tolerance=0):
        return sum(1 for _ in self.places(color, tolerance))

    def places(self, color, tolerance=0):
        """The places of all pixels that differ from the colour by no more than the tolerance."""
        for y in range(self.height):
            for x in range(self.width):
                if all(abs(a - b) <= tolerance for a, b in zip(self.at(x, y), color)):
                    yield x, y

    def write_png(self, path):
        def chunk(kind, data):
            return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

        lines = b""
        for row in self.rows:
            line = bytearray(3 * self.width)
            line[0::3], line[1::3], line[2::3] = row[2::4], row[1::4], row[0::4]
            lines += b"\0" + line
        header = struct.pack(">IIBBBBB", self.width, self.height, 8, 2, 0, 0, 0)
        with open(path, "wb") as file:
            file.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header))
            file.write(chunk(b"IDAT", zlib.compress(lines, 9)) + chunk(b"IEND", b""))


def grab(window="root"):
    """The screen, or the window of the given number."""
    which = ["-root"] if window == "root" else ["-id", str(window)]
    dump = subprocess.run(["xwd", "-silent", *which], check=True, capture_output=True).stdout
    fields = struct.unpack(">25I", dump[:100])
    header_size, width, height, bits, stride, colors = (fields[n] for n in (0, 4, 5, 11, 12, 19))
    start = header_size + 12 * colors
    size = bits // 8
    rows = []
    for y in range(height):
        line = dump[start + y * stride : start + y * stride + size * width]
        row = bytearray(4 * width)
        row[0::4], row[1::4], row[2::4] = line[0::size], line[1::size], line[2::size]
        rows.append(bytes(row))
    return Pixels(width, height, rows)


def read_png(path):
    """A picture of 8-bit red, green, blue, with or without alpha."""
    with open(path, "rb") as file:
        data = file.read()
    width, height, depth, kind = struct.unpack(">IIBB", data[16:26])
    size = {2: 3, 6: 4}[kind]
    packed, at = b"", 8
    while at < len(data):
        length, name = struct.unpack(">I4s", data[at : at + 8])
        packed += data[at + 8 : at + 8 + length] if name == b"IDAT" else b""
        at += length + 12
    lines, before, rows = zlib.decompress(packed), bytes(width * size), []
    for y in range(height):
        start = y * (width * size + 1)
        before = unfiltered(lines[start], lines[start + 1 : start + 1 + width * size], before, size)
        row = bytearray(4 * width)
        row[2::4], row[1::4], row[0::4] = before[0::size], before[1::size], before[2::size]
        rows.append(bytes(row))
    return Pixels(width, height, rows)


def unfiltered(kind, line, before, size):
    """A line of a PNG file; `before` is the one above it."""
    out = bytearray(line)
    for at in range(len(out)):
        left, above = out[at - size] if at >= size else 0, before[at]
        corner = before[at - size] if at >= size else 0
        near = left + above - corner
        paeth = min((left, above, corner), key=lambda value: abs(near - value))
        out[at] = (out[at] + (0, left, above, (left + above) // 2, paeth)[kind]) & 255
    return bytes(out)


def plain_png(path, width, height, color):
    """Writes a picture of one colour."""
    blue, green, red = reversed(color)
    row = bytes([blue, green, red, 0]) * width
    Pixels(width, height, [row] * height).write_png(path)
