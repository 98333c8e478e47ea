"""The pointer and the keyboard, by way of the X server."""

import subprocess
import time


def xdotool(*arguments):
    return subprocess.run(["xdotool", *map(str, arguments)], check=True, capture_output=True,
                          text=True).stdout.strip()


def move(x, y):
    xdotool("mousemove", x, y)


def click(x, y):
    xdotool("mousemove", x, y, "sleep", 0.05, "click", 1)


def press_key(*keys):
    xdotool("key", *keys)


def type_text(text):
    xdotool("type", "--delay", 15, text)


def window_of(name):
    """The number of the visible window with this title; empty when there is none."""
    found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", name],
                           capture_output=True, text=True).stdout.split()
    return found[-1] if found else ""


class Drag:
    """From one place towards others; drag sources want to see the pointer on its way."""

    def __init__(self, start):
        self.place = start
        xdotool("mousemove", *start)
        xdotool("mousedown", 1)

    def over(self, place, steps=12):
        (x0, y0), (x1, y1) = self.place, place
        for step in range(1, steps + 1):
            xdotool("mousemove", x0 + (x1 - x0) * step // steps, y0 + (y1 - y0) * step // steps)
            time.sleep(0.02)
        self.place = place

    def tremble(self):
        """For a source or a target that was too busy to see how the pointer came here."""
        x, y = self.place
        xdotool("mousemove", x + 1, y, "mousemove", x, y)

    def drop(self):
        xdotool("mouseup", 1)
