"""A plot of time against bytes, one panel for each source: lower left is better."""

import math

PANEL, GAP, MARGIN, LEFT = 300, 40, 46, 56
COLOURS = {
    "Tessarine": "#d1495b", "sharp, adaptive filter": "#1b4965", "sharp": "#3d85c6",
    "sharp, all cores": "#8ab6d6", "Qt": "#5c9e31", "ImageMagick": "#8e6bbf", "libvips": "#e09f3e",
}


def axis(values):
    """Maps a value to 0..1 on a logarithmic axis with some room on both sides."""
    low, high = math.log(min(values)) - 0.15, math.log(max(values)) + 0.15
    return lambda value: (math.log(value) - low) / (high - low)


def text(x, y, words, anchor="middle", extra=""):
    return f'<text x="{x:.0f}" y="{y:.0f}" text-anchor="{anchor}"{extra}>{words}</text>\n'


def panel(left, title, runs):
    across = axis([one["clock"] for one in runs.values()])
    up = axis([one["bytes"] for one in runs.values()])
    out = f'<rect x="{left}" y="{MARGIN}" width="{PANEL}" height="{PANEL}" fill="#fff" stroke="#999"/>\n'
    out += text(left + PANEL / 2, MARGIN - 12, title, extra=' font-weight="bold"')
    for name, one in runs.items():
        x = left + PANEL * across(one["clock"])
        y = MARGIN + PANEL * (1 - up(one["bytes"]))
        out += f'<circle cx="{x:.0f}" cy="{y:.0f}" r="6" fill="{COLOURS[name]}"/>\n'
        out += text(x, y - 9, f"{one['clock']:.0f} ms, {one['bytes'] / 1e6:.1f} MB",
                    extra=' font-size="9" fill="#555"')
    return out


def svg(sources, titles):
    width = LEFT + len(titles) * (PANEL + GAP)
    height = MARGIN + PANEL + 84
    out = f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}" '
    out += 'font-family="sans-serif" font-size="12">\n<rect width="100%" height="100%" fill="#f7f7f7"/>\n'
    for i, (source, title) in enumerate(titles.items()):
        out += panel(LEFT + i * (PANEL + GAP), title, sources[source])
    out += text(width / 2, MARGIN + PANEL + 24, "time by the clock for 100 files, logarithmic")
    middle = MARGIN + PANEL / 2
    out += text(24, middle, "bytes written, logarithmic", extra=f' transform="rotate(-90 24 {middle:.0f})"')
    step = (width - LEFT) / len(COLOURS)
    for i, (name, colour) in enumerate(COLOURS.items()):
        x = LEFT + i * step
        out += f'<circle cx="{x:.0f}" cy="{height - 26}" r="6" fill="{colour}"/>\n'
        out += text(x + 11, height - 22, name, anchor="start")
    return out + "</svg>\n"
