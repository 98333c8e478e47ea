"""The tools that are measured, and how one run of one of them is measured."""

import glob
import os
import subprocess
from dataclasses import dataclass

PROGRAMS = "benchmarks"
SHARP = ["node", "../../benchmarks/peers/sharp_run.mjs"]


@dataclass(frozen=True)
class Tool:
    name: str
    command: list
    options: list
    # The kernels that the tool shrinks and enlarges with, for the reference.
    kernels: tuple
    cores: int = 1


TOOLS = [
    Tool("Tessarine", [f"{PROGRAMS}/tessarine_run"], [], ("catmull-rom", "catmull-rom")),
    Tool("sharp, adaptive filter", SHARP, ["adaptive"], ("lanczos3", "catmull-rom")),
    Tool("sharp", SHARP, [], ("lanczos3", "catmull-rom")),
    Tool("sharp, all cores", SHARP, ["parallel"], ("lanczos3", "catmull-rom"), os.cpu_count()),
    Tool("Qt", [f"{PROGRAMS}/qt_run"], [], ("box", "triangle")),
    Tool("ImageMagick", [f"{PROGRAMS}/magick_run"], [], ("mitchell", "mitchell")),
    Tool("libvips", [f"{PROGRAMS}/vips_run"], [], ("lanczos3", "catmull-rom")),
]


def folder_of(tool):
    return "out/" + tool.name.replace(", ", "-").replace(" ", "-")


def run(tool, rows, source, folder):
    """One run: milliseconds by the clock and of the processor, and the most memory in MB."""
    command = tool.command + [rows, source, folder] + tool.options
    # The last cores: the first one serves most interrupts.
    cores = sorted(os.sched_getaffinity(0))[-tool.cores:]
    with subprocess.Popen(command, stdout=subprocess.PIPE, text=True,
                          preexec_fn=lambda: os.sched_setaffinity(0, cores)) as process:
        output = process.stdout.read()
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode != 0:
        raise SystemExit(f"{tool.name} failed: {' '.join(command)}")
    clock, processor = map(float, output.split())
    return {"clock": clock, "processor": processor, "peak": usage.ru_maxrss / 1024}


def bytes_of(folder):
    return sum(os.path.getsize(file) for file in glob.glob(f"{folder}/*/*.png"))


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout
