"""Writes the small ICC profiles that the samples carry."""

import struct


def s15(value):
    return struct.pack(">i", round(value * 65536))


def xyz(values):
    return b"XYZ \0\0\0\0" + b"".join(s15(v) for v in values)


def gamma(value):
    return b"curv\0\0\0\0" + struct.pack(">IH", 1, round(value * 256)) + b"\0\0"


def description(text):
    data = text.encode() + b"\0"
    tag = b"desc\0\0\0\0" + struct.pack(">I", len(data)) + data + b"\0" * (4 + 4 + 2 + 1 + 67)
    return tag + b"\0" * (-len(tag) % 4)


D50 = (0.9642, 1.0, 0.8249)


def profile(kind, space, pcs, tags):
    tags = [(b"desc", description("sample")), (b"cprt", b"text\0\0\0\0CC0\0"), (b"wtpt", xyz(D50))] + tags
    offset = 128 + 4 + 12 * len(tags)
    table, body = struct.pack(">I", len(tags)), b""
    for name, data in tags:
        table += name + struct.pack(">II", offset + len(body), len(data))
        body += data + b"\0" * (-len(data) % 4)
    size = 128 + len(table) + len(body)
    header = struct.pack(">I4sI4s4s4s", size, b"\0\0\0\0", 0x02400000, kind, space, pcs)
    header += b"\0" * 12 + b"acsp" + b"\0" * 28 + b"".join(s15(v) for v in D50) + b"\0" * 48
    return header + table + body


def inverse(m):
    (a, b, c), (d, e, f), (g, h, i) = m
    det = a * (e * i - f * h) - b * (d * i - f * g) + c * (d * h - e * g)
    cof = [[e * i - f * h, c * h - b * i, b * f - c * e],
           [f * g - d * i, a * i - c * g, c * d - a * f],
           [d * h - e * g, b * g - a * h, a * e - b * d]]
    return [[v / det for v in row] for row in cof]


def times(m, v):
    return [sum(x * y for x, y in zip(row, v)) for row in m]


BRADFORD = [[0.8951, 0.2664, -0.1614], [-0.7502, 1.7135, 0.0367], [0.0389, -0.0685, 1.0296]]


def rgb(primaries, curve):
    """A matrix profile for primaries (x, y) under D65."""
    columns = [[x / y, 1, (1 - x - y) / y] for x, y in primaries]
    matrix = [list(row) for row in zip(*columns)]
    d65 = [0.3127 / 0.3290, 1, (1 - 0.3127 - 0.3290) / 0.3290]
    scale = times(inverse(matrix), d65)
    gain = [to / of for to, of in zip(times(BRADFORD, D50), times(BRADFORD, d65))]
    tags = []
    for name, column, factor in zip((b"rXYZ", b"gXYZ", b"bXYZ"), columns, scale):
        cone = times(BRADFORD, [v * factor for v in column])
        tags.append((name, xyz(times(inverse(BRADFORD), [v * g for v, g in zip(cone, gain)]))))
    tags += [(name, gamma(curve)) for name in (b"rTRC", b"gTRC", b"bTRC")]
    return profile(b"mntr", b"RGB ", b"XYZ ", tags)


def grey(curve):
    return profile(b"mntr", b"GRAY", b"XYZ ", [(b"kTRC", gamma(curve))])


def cmyk():
    """A printer's profile with a lookup table, made of plain multiplied inks."""
    inks = [(0.1, 0.55, 0.85), (0.85, 0.1, 0.45), (0.98, 0.9, 0.1), (0.1, 0.1, 0.1)]
    tables = b"".join(bytes(range(256)) for _ in range(4))
    grid = b""
    steps = (0, 0.5, 1)
    for amounts in ((c, m, y, k) for c in steps for m in steps for y in steps for k in steps):
        light = [1.0, 1.0, 1.0]
        for ink, amount in zip(inks, amounts):
            light = [v * (1 - amount + amount * i) for v, i in zip(light, ink)]
        linear = [v ** 2.2 for v in light]
        x, y, z = times([[0.4361, 0.3851, 0.1431], [0.2225, 0.7169, 0.0606], [0.0139, 0.0971, 0.7139]], linear)
        f = [(v / w) ** (1 / 3) if v / w > 0.008856 else 7.787 * v / w + 16 / 116
             for v, w in zip((x, y, z), D50)]
        lab = (116 * f[1] - 16, 500 * (f[0] - f[1]), 200 * (f[1] - f[2]))
        grid += bytes(max(0, min(255, round(v))) for v in (lab[0] * 2.55, lab[1] + 128, lab[2] + 128))
    identity = b"".join(s15(v) for v in (1, 0, 0, 0, 1, 0, 0, 0, 1))
    lut = b"mft1\0\0\0\0" + bytes([4, 3, 3, 0]) + identity + tables + grid + bytes(range(256)) * 3
    return profile(b"prtr", b"CMYK", b"Lab ", [(b"A2B0", lut)])


P3 = rgb([(0.680, 0.320), (0.265, 0.690), (0.150, 0.060)], 2.2)
ADOBE_RGB = rgb([(0.64, 0.33), (0.21, 0.71), (0.15, 0.06)], 2.19921875)
GREY = grey(1.8)
CMYK = cmyk()
