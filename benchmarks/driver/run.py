"""Runs every measurement, interleaved, and writes results.json and docs/performance.md.

Runs in the benchmark's build folder; see scripts/bench."""

import argparse
import functools
import json
import os
import statistics
import time

import machine
import report
from tools import PROGRAMS, TOOLS, bytes_of, folder_of, output_of, run

SOURCES = ["icon1024", "icon64", "photo4096"]
REFERENCE_SIZES = [(16, 16), (29, 29), (48, 48), (87, 87), (180, 180), (310, 150), (512, 512), (620, 300),
                   (1024, 1024)]
DROPS = ["srgb", "p3", "turned"]
GROWTH_SOURCES = [1, 4, 16, 64]
GROWTH_SIDES = [16, 64, 256, 1024, 2048, 4096, 8192]
TESSARINE = TOOLS[0]
RESULTS = "results.json"


def write_rows(path, rows):
    with open(path, "w") as file:
        file.writelines(f"{name}\t{width}\t{height}\n" for name, width, height in rows)
    return path


def medians(runs):
    return {key: statistics.median(one[key] for one in runs) for key in runs[0]}


@functools.cache
def hold(source):
    """The source as the held picture of the program that was just built."""
    tiff = f"sources/{source}.tif"
    output_of(f"{PROGRAMS}/hold", f"sources/{source}.png", tiff)
    return tiff


def whole_runs(source, rows, repetitions):
    """Every tool in turn, again and again, so that a busy moment of the machine meets them all."""
    runs = {tool.name: [] for tool in TOOLS}
    for repetition in range(repetitions):
        for tool in TOOLS:
            print(f"{source}: {repetition + 1} of {repetitions}: {tool.name}", flush=True)
            runs[tool.name].append(run(tool, rows, hold(source), folder_of(tool)))
    return {
        tool.name: medians(runs[tool.name])
        | {"bytes": bytes_of(folder_of(tool)), "repetitions": repetitions} for tool in TOOLS
    }


def quality(source):
    """The least distance to the reference of each tool's kernel, in decibels."""
    rows = write_rows("reference.tsv", [(f"r/{width}x{height}", width, height)
                                        for width, height in REFERENCE_SIZES])
    result = {}
    for tool in TOOLS:
        folder = folder_of(tool) + "-reference"
        run(tool, rows, hold(source), folder)
        answer = output_of(f"{PROGRAMS}/quality", "reference", rows, hold(source), folder, *tool.kernels)
        result[tool.name] = float(answer)
    return result


def probes():
    """Overshoot in percent, ring pixels and shift in pixels, of each tool."""
    output_of(f"{PROGRAMS}/quality", "draw", "sources")
    result = {}
    for tool in TOOLS:
        folder = folder_of(tool) + "-probes"
        for probe, side in (("edge", 48), ("disc", 48), ("blob", 512)):
            rows = write_rows("probe.tsv", [(f"{probe}/{side}", side, side)])
            run(tool, rows, f"sources/{probe}.tif", folder)
        result[tool.name] = output_of(f"{PROGRAMS}/quality", "probes", folder).split()
    return result


def phases(source, rows, repetitions):
    os.makedirs("out/phases", exist_ok=True)
    text = output_of(
        f"{PROGRAMS}/phases", rows, hold(source), "out/phases", "--benchmark_format=json",
        f"--benchmark_repetitions={max(2, repetitions)}", "--benchmark_min_time=0.05",
        "--benchmark_enable_random_interleaving=true", "--benchmark_report_aggregates_only=true")
    return {
        one["run_name"]: {"processor": one["cpu_time"], "bytes": one.get("bytes")}
        for one in json.loads(text)["benchmarks"] if one["aggregate_name"] == "median"
    }


def drops(repetitions):
    """Milliseconds by the clock to read a large photo, as after a drop, and cut one small file."""
    def once(photo):
        start = time.monotonic()
        output_of("headless/tessarine-headless", "custom", f"sources/drop-{photo}.jpg", "out/drop",
                  "Icon", "16", "16")
        return (time.monotonic() - start) * 1000
    return {photo: statistics.median(once(photo) for _ in range(repetitions)) for photo in DROPS}


def growth(rows, repetitions):
    def measured(rows_path, source):
        folder = "out/growth"
        return medians([run(TESSARINE, rows_path, source, folder) for _ in range(repetitions)])

    by_source = {size: measured(rows, hold(f"growth{size}")) for size in GROWTH_SOURCES}
    by_side = {}
    for side in GROWTH_SIDES:
        one = write_rows("growth.tsv", [(f"g/{side}", side, side)])
        by_side[side] = measured(one, hold("icon1024"))
    return {"source": by_source, "side": by_side}


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("--repetitions", type=int, default=7)
    arguments.add_argument("--stages", nargs="+", metavar="STAGE",
                           help="measure these anew and keep the rest of the last results")
    options = arguments.parse_args()

    rows = "rows.tsv"
    with open(rows, "w") as file:
        file.write(output_of(f"{PROGRAMS}/list_files"))
    times = options.repetitions
    stages = {
        "machine": machine.description,
        "sources": lambda: {source: whole_runs(source, rows, times) for source in SOURCES},
        "phases": lambda: {source: phases(source, rows, times) for source in SOURCES},
        "quality": lambda: {source: quality(source) for source in SOURCES},
        "probes": probes,
        "growth": lambda: growth(rows, times),
        "drops": lambda: drops(times),
    }
    results = {}
    if options.stages and os.path.exists(RESULTS):
        with open(RESULTS) as file:
            results = json.load(file)
    for stage in options.stages or stages:
        results[stage] = stages[stage]()
        with open(RESULTS, "w") as file:
            json.dump(results, file, indent=1)
    report.write(RESULTS)


if __name__ == "__main__":
    main()
