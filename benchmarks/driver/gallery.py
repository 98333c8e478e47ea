"""Cuts vector icons with every tool and writes docs/gallery.md and docs/gallery.png.

Runs in the benchmark's build folder; see scripts/gallery."""

import os
import random
import statistics

from report import table
from run import write_rows
from tools import PROGRAMS, TOOLS, output_of, run

DOCUMENT = "../../docs/gallery.md"
SHEET = "../../docs/gallery.png"
TEMPLATE = "../../benchmarks/driver/gallery.md.in"
TANGO = "packages/usr/share/icons/Tango/scalable"
ICONS = {
    "icon": "../../app/icon.svg",
    "internet-web-browser": f"{TANGO}/apps/internet-web-browser.svg",
    "accessories-calculator": f"{TANGO}/apps/accessories-calculator.svg",
    "utilities-terminal": f"{TANGO}/apps/utilities-terminal.svg",
    "camera-photo": f"{TANGO}/devices/camera-photo.svg",
}
SIDES = [16, 24, 36, 48]
SOURCE_SIDE = 1024
FINER = 16
FOLDER = "gallery"
SHOWN = ("Tessarine", "sharp", "Qt", "ImageMagick", "libvips")


def lettered():
    """The tools in an order that is not ours, and yet the same each time."""
    tools = [tool for tool in TOOLS if tool.name in SHOWN]
    random.Random(2).shuffle(tools)
    return dict(zip("ABCDE", tools))


def draw(icon, side):
    path = f"{FOLDER}/{icon}-{side}.png"
    output_of("rsvg-convert", "-w", str(side), "-h", str(side), ICONS[icon], "-o", path)
    return path


def cut(icon, tools):
    """The icon by each tool, from the same large picture."""
    source = f"{FOLDER}/{icon}.tif"
    output_of(f"{PROGRAMS}/hold", draw(icon, SOURCE_SIDE), source)
    rows = write_rows(f"{FOLDER}/rows.tsv", [(f"{icon}/{side}", side, side) for side in SIDES])
    for letter, tool in tools.items():
        run(tool, rows, source, f"{FOLDER}/{letter}")


def score(icon, side, tools):
    """PSNR, SSIM, overshoot and ring pixels by letter; writes the true picture."""
    pictures = [f"{FOLDER}/{letter}/{icon}/{side}.png" for letter in tools]
    text = output_of(f"{PROGRAMS}/likeness", draw(icon, side * FINER),
                     f"{FOLDER}/true/{icon}/{side}.png", *pictures)
    return {letter: tuple(map(float, line.split())) for letter, line in zip(tools, text.splitlines())}


def summary(scores, letters):
    def row(letter):
        psnr, ssim, overshoot, ring = zip(*(one[letter] for one in scores.values()))
        by_side = [
            statistics.mean(one[letter][0] for (_, at), one in scores.items() if at == side)
            for side in SIDES
        ]
        return [letter, *(f"{value:.1f}" for value in [*by_side, statistics.mean(psnr)]),
                f"{statistics.mean(ssim):.4f}", f"{statistics.mean(overshoot):.1f}",
                f"{max(overshoot):.0f}", f"{sum(ring):.0f}"]

    return table(["", *(f"PSNR at {side}" for side in SIDES), "PSNR, all", "SSIM",
                  "overshoot, mean", "most", "ring pixels"], [row(letter) for letter in letters])


def by_icon(scores, letters):
    def cell(icon, letter):
        psnr, ssim, _, _ = zip(*(one[letter] for (name, _), one in scores.items() if name == icon))
        return f"{statistics.mean(psnr):.1f} dB, {statistics.mean(ssim):.4f}"

    return table(["", *letters], [[icon, *(cell(icon, letter) for letter in letters)]
                                  for icon in ICONS])


def main():
    tools = lettered()
    for icon in ICONS:
        os.makedirs(f"{FOLDER}/true/{icon}", exist_ok=True)
        cut(icon, tools)
    scores = {(icon, side): score(icon, side, tools) for icon in ICONS for side in SIDES}
    output_of("node", "../../benchmarks/sheet.mjs", FOLDER, ",".join(["true", *tools]),
              ",".join(f"{icon}/{side}" for icon in ICONS for side in SIDES), SHEET)
    output_of("optipng", "-quiet", "-o2", "-strip", "all", SHEET)
    parts = {
        "summary": summary(scores, tools), "by_icon": by_icon(scores, tools),
        "key": table(["", "Tool"], [[letter, tool.name] for letter, tool in tools.items()]),
    }
    with open(TEMPLATE) as file:
        text = file.read()
    for name, part in parts.items():
        text = text.replace("{" + name + "}\n", part.rstrip("\n") + "\n")
    with open(DOCUMENT, "w") as file:
        file.write(text)
    print(text)


if __name__ == "__main__":
    main()
