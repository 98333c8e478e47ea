"""A plot of time against bytes, one panel for each source: lower left is better."""

import math

PANEL, GAP, MARGIN, LEFT = 300, 50, 46, 76
SMALL = ' font-size="10" fill="#555"'
COLOURS = {
    "Tessarine": "#d1495b", "sharp, adaptive filter": "#1b4965", "sharp": "#3d85c6",
    "sharp, all cores": "#8ab6d6", "Qt": "#5c9e31", "ImageMagick": "#8e6bbf", "libvips": "#e09f3e",
}


def axis(values):
    """Maps a value to 0..1 on a logarithmic axis with some room on both sides; and its marks."""
    low, high = math.log(min(values)) - 0.15, math.log(max(values)) + 0.15
    marks = [step * 10**power for power in range(-1, 7) for step in (1, 2, 5)]
    if high - low < 1.5:
        marks = [step / 10 * 10**power for power in range(-1, 7) for step in range(10, 100, 5)]
    position = lambda value: (math.log(value) - low) / (high - low)
    return position, [mark for mark in marks if 0 < position(mark) < 1]


def text(x, y, words, anchor="middle", extra=""):
    return f'<text x="{x:.0f}" y="{y:.0f}" text-anchor="{anchor}"{extra}>{words}</text>\n'


def line(x1, y1, x2, y2):
    return f'<line x1="{x1:.0f}" y1="{y1:.0f}" x2="{x2:.0f}" y2="{y2:.0f}" stroke="#ddd"/>\n'


def panel(left, title, runs):
    across, times = axis([one["clock"] / 1000 for one in runs.values()])
    up, sizes = axis([one["bytes"] / 1e6 for one in runs.values()])
    bottom, right = MARGIN + PANEL, left + PANEL
    out = f'<rect x="{left}" y="{MARGIN}" width="{PANEL}" height="{PANEL}" fill="#fff" stroke="#999"/>\n'
    out += text(left + PANEL / 2, MARGIN - 12, title, extra=' font-weight="bold"')
    for mark in times:
        x = left + PANEL * across(mark)
        out += line(x, MARGIN, x, bottom) + text(x, bottom + 16, f"{mark:g}", extra=SMALL)
    for mark in sizes:
        y = bottom - PANEL * up(mark)
        out += line(left, y, right, y) + text(left - 5, y + 4, f"{mark:g}", "end", SMALL)
    for name, one in runs.items():
        x = left + PANEL * across(one["clock"] / 1000)
        y = bottom - PANEL * up(one["bytes"] / 1e6)
        out += f'<circle cx="{x:.0f}" cy="{y:.0f}" r="6" fill="{COLOURS[name]}"/>\n'
    return out


def svg(sources, titles):
    width = LEFT + len(titles) * (PANEL + GAP)
    height = MARGIN + PANEL + 92
    out = f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}" '
    out += 'font-family="sans-serif" font-size="12">\n<rect width="100%" height="100%" fill="#f7f7f7"/>\n'
    for i, (source, title) in enumerate(titles.items()):
        out += panel(LEFT + i * (PANEL + GAP), title, sources[source])
    out += text(width / 2, MARGIN + PANEL + 36, "seconds for the 100 files, logarithmic")
    middle = MARGIN + PANEL / 2
    out += text(24, middle, "MB written, logarithmic", extra=f' transform="rotate(-90 24 {middle:.0f})"')
    x = LEFT
    for name, colour in COLOURS.items():
        out += f'<circle cx="{x:.0f}" cy="{height - 26}" r="6" fill="{colour}"/>\n'
        out += text(x + 11, height - 22, name, anchor="start")
        x += 46 + 7 * len(name)
    return out + "</svg>\n"
