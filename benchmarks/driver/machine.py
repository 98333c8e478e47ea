"""What the measurements were made on."""

import json
import os
import platform

from tools import output_of

MODULES = {
    "Qt": "Qt6Gui", "libvips": "vips", "ImageMagick": "MagickWand", "libdeflate": "libdeflate",
    "libpng": "libpng", "Highway": "libhwy",
}


def processor():
    with open("/proc/cpuinfo") as file:
        return next(line.split(":")[1].strip() for line in file if line.startswith("model name"))


def instruction_sets():
    with open("/proc/cpuinfo") as file:
        flags = next(line.split() for line in file if line.startswith("flags"))
    return [name for name in ("sse4_1", "avx2", "avx512bw") if name in flags]


def description():
    with open("node_modules/sharp/package.json") as file:
        sharp = json.load(file)["version"]
    versions = {"sharp": f"{sharp} on Node.js {output_of('node', '--version').strip()[1:]}"}
    for name, module in MODULES.items():
        versions[name] = output_of("pkg-config", "--modversion", module).strip()
    memory = os.sysconf("SC_PAGE_SIZE") * os.sysconf("SC_PHYS_PAGES") / 2**30
    return {
        "processor": f"{processor()}, {os.cpu_count()} cores ({', '.join(instruction_sets())})",
        "memory": f"{memory:.0f} GB",
        "system": f"{platform.freedesktop_os_release()['PRETTY_NAME']}, kernel {platform.release()}",
        "versions": versions,
        "load": os.getloadavg()[0],
    }
