"""Writes docs/performance.md and its plot from the results of a run."""

import json
import sys

import plot
from goals import GOALS, QUALITY_GOALS, verdict

DOCUMENT = "../../docs/performance.md"
PLOT = "../../docs/performance.svg"
TITLES = {"icon1024": "1024² icon", "icon64": "64² icon", "photo4096": "4096² photo"}
LEVELS = range(1, 8)


def table(head, rows):
    lines = [head, ["---"] + ["---:"] * (len(head) - 1)] + rows
    return "".join("| " + " | ".join(map(str, line)) + " |\n" for line in lines) + "\n"


def conditions(results):
    machine = results["machine"]
    repetitions = results["sources"]["icon1024"]["Tessarine"]["repetitions"]
    versions = ", ".join(f"{name} {version}" for name, version in machine["versions"].items())
    return table(["", ""], [
        ["Processor", machine["processor"]], ["Memory", machine["memory"]],
        ["System", machine["system"]], ["Versions", versions],
        ["Load of the machine at the start", f"{machine['load']:.1f}"],
        ["Runs", f"medians of {repetitions}, interleaved"]])


def goals(results):
    rows = [[name] + [verdict(measure(results["sources"][source]), at_least, goal)
                      for source, goal in zip(TITLES, values)]
            for name, measure, at_least, values in GOALS]
    rows.append(["decibels to the reference"] + [
        verdict(results["quality"][source]["Tessarine"], True, goal)
        for source, goal in zip(TITLES, QUALITY_GOALS)])
    return table(["Tessarine is / takes", *TITLES.values()], rows)


def runs(results, source):
    ours = results["sources"][source]["Tessarine"]
    return table(
        ["Tool", "ms (clock)", "times ours", "ms (processor)", "MB written", "peak MB"],
        [[name, f"{one['clock']:.0f}", f"{one['clock'] / ours['clock']:.2f}",
          f"{one['processor']:.0f}", f"{one['bytes'] / 1e6:.2f}", f"{one['peak']:.0f}"]
         for name, one in results["sources"][source].items()])


def quality(results):
    return table(
        ["Tool", *(f"{title}, dB" for title in TITLES.values()), "overshoot, %", "ring pixels",
         "shift, pixels"],
        [[name, *(f"{results['quality'][source][name]:.1f}" for source in TITLES), *probes]
         for name, probes in results["probes"].items()])


def phase_rows(results):
    def cells(value):
        return [value(results["phases"][source], results["sources"][source]) for source in TITLES]

    def milliseconds(phase):
        return lambda phases, _: f"{phases[phase]['processor']:.1f}"

    def floor(phases):
        parts = ("read", "filter", "deflate", "write")
        return sum(phases[part]["processor"] for part in parts)

    names = {"view": "view of the held picture", "scale": "scale", "filter": "filter",
             "deflate": "deflate", "encode": "encode (filter, deflate, check sums)",
             "write": "write", "read": "read the source at memory bandwidth"}
    rows = [[title, *cells(milliseconds(phase))] for phase, title in names.items()]
    rows.append(["floor: read + filter + deflate + write", *cells(lambda p, _: f"{floor(p):.0f}")])
    rows.append(["whole run / floor (≤ 1.5)", *cells(
        lambda p, s: verdict(s["Tessarine"]["processor"] / floor(p), False, 1.5))])
    return table(["Milliseconds for the 100 files", *TITLES.values()], rows)


def libpng(results):
    def cells(key, at_least, goal):
        values = []
        for source in TITLES:
            ours, theirs = (results["phases"][source][name][key] for name in ("encode", "libpng"))
            value = theirs / ours if at_least else ours / theirs
            values.append(verdict(value, at_least, goal))
        return values
    return table(["Same pixels through libpng, level 6, adaptive filters", *TITLES.values()], [
        ["times faster", *cells("processor", True, 2.5)],
        ["of its bytes", *cells("bytes", False, 1.02)]])


def levels(results):
    def cell(phases, level):
        one = phases[f"deflate/{level}"]
        return f"{one['processor']:.0f} ms, {one['bytes'] / 1e6:.2f} MB"
    return table(["Level", *TITLES.values()], [
        [level, *(cell(results["phases"][source], level) for source in TITLES)]
        for level in LEVELS])


def growth(results, axis, head):
    return table([head, "ms (processor)", "peak MB"], [
        [size, f"{one['processor']:.0f}", f"{one['peak']:.0f}"]
        for size, one in results["growth"][axis].items()])


def drops(results):
    names = {"srgb": "sRGB", "p3": "Display P3", "turned": "sRGB, turned by its orientation"}
    return table(["JPEG of 48 megapixels", "seconds"], [
        [names[photo], verdict(milliseconds / 1000, False, 2.5)]
        for photo, milliseconds in results["drops"].items()])


def write(path):
    with open(path) as file:
        results = json.load(file)
    with open("../../benchmarks/driver/performance.md.in") as file:
        text = file.read()
    parts = {
        "conditions": conditions(results), "goals": goals(results), "quality": quality(results),
        "phases": phase_rows(results), "libpng": libpng(results), "levels": levels(results),
        "drops": drops(results),
        "by_source": growth(results, "source", "Megapixels of the source (100 files)"),
        "by_side": growth(results, "side", "Side of one square file, pixels"),
        "runs": "".join(f"### {title}\n\n{runs(results, source)}" for source, title in TITLES.items()),
    }
    for name, part in parts.items():
        text = text.replace("{" + name + "}\n", part.rstrip("\n") + "\n")
    with open(DOCUMENT, "w") as file:
        file.write(text)
    with open(PLOT, "w") as file:
        file.write(plot.svg(results["sources"], TITLES))
    print(text)


if __name__ == "__main__":
    write(*sys.argv[1:])
