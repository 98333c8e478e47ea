"""The goals of whole runs: one row each, with a goal for each of the three sources."""

ADAPTIVE = "sharp, adaptive filter"


def times(tool):
    """How many times faster than the tool."""
    return lambda runs: runs[tool]["clock"] / runs["Tessarine"]["clock"]


def share(tool, key):
    """Our part of what the tool takes."""
    return lambda runs: runs["Tessarine"][key] / runs[tool][key]


# Name, measure, whether the measure is to be at least the goal, the goals.
GOALS = [
    ("times faster than sharp with adaptive filter", times(ADAPTIVE), True, (3, 2.5, 2.2)),
    ("times faster than sharp as it comes", times("sharp"), True, (2.5, 1.5, 2)),
    ("times faster than sharp on all cores", times("sharp, all cores"), True, (1.5, 1, 2)),
    ("times faster than Qt", times("Qt"), True, (3, 2.5, 5)),
    ("times faster than ImageMagick", times("ImageMagick"), True, (5, 4, 20)),
    ("times faster than libvips", times("libvips"), True, (None, None, None)),
    ("of the bytes of sharp with adaptive filter", share(ADAPTIVE, "bytes"), False, (1, 1.15, 1)),
    ("of the bytes of sharp as it comes", share("sharp", "bytes"), False, (None, 0.6, None)),
    ("of the memory of sharp", share("sharp", "peak"), False, (0.6, None, None)),
]
# Decibels to the reference, at least.
QUALITY_GOALS = (60, 60, 57)


def verdict(value, at_least, goal):
    """The value in words, with the goal and whether it is met."""
    if goal is None:
        return f"{value:.2f}"
    met = value >= goal if at_least else value <= goal
    return f"{value:.2f} ({'≥' if at_least else '≤'} {goal}{'' if met else ', **missed**'})"
