"""Pictures of the program's window: screenshots.py PROGRAM FOLDER [NAME ...]"""

import os
import shutil
import sys
import time

from file_manager import FileManager
from pixels import grab
from pointer import Drag, click, move, press_key, type_text
from services import Services
from session import Session, wait_for

executable, folder = os.path.abspath(sys.argv[1]), sys.argv[2]
icon = os.path.join(os.path.dirname(executable), "icon", "256px.png")
tile_color = (0xFF, 0xB8, 0x4D)
dark, light = 1, 2


def settled(grab_again):
    """The picture once two in a row are alike: repaints come when they come."""
    last = grab_again()
    while True:
        time.sleep(0.4)
        now = grab_again()
        if now.rows == last.rows:
            return now
        last = now


def take(name, scale, scheme, steps):
    """One picture of a new program in a new session, after the steps."""
    with Session(size=f"{470 + 930 * scale}x{700 * scale}") as session:
        from program import Program  # which looks for the session at once

        services = Services()
        services.color_scheme = scheme
        pictures = os.path.join(session.folder, "pictures")
        os.mkdir(pictures)
        shutil.copy(icon, pictures)
        manager = FileManager(session, pictures)
        program = Program(session, executable, scale)
        steps(program, manager)
        settled(lambda: grab(program.window)).write_png(os.path.join(folder, name + ".png"))


def empty(program, manager):
    pass


def hover(program, manager):
    drag = Drag(manager.place_of(tile_color))
    drag.over(program.middle("Picture"))
    wait_for(program.framed, "the frame")
    return drag


def filled(program, manager):
    hover(program, manager).drop()
    wait_for(lambda: program.find("256 × 256 pixels"), "the dropped picture")
    move(5, 5)


def pointed_at(program, manager):
    filled(program, manager)
    move(*program.middle("iOS"))


def custom(program, manager):
    press_key("alt+c")
    program.get("File name 1")


def custom_filled(program, manager):
    custom(program, manager)
    filled(program, manager)
    click(*program.middle("File name 1"))
    for name, width, height in (("Banner", "1600", "400"), ("Store", "512", "512")):
        for text in (name, width, height):
            type_text(text)
            press_key("Tab")


shots = {
    "main": (1, light, empty),
    "main-dark": (1, dark, empty),
    "main-hover": (1, light, hover),
    "main-hover-dark": (1, dark, hover),
    "main-filled": (1, light, filled),
    "main-filled-dark": (1, dark, filled),
    "main-pointed-at": (1, light, pointed_at),
    "custom": (1, light, custom),
    "custom-filled": (1, light, custom_filled),
    "custom-filled-dark": (1, dark, custom_filled),
    "main-200": (2, light, filled),
    "custom-200": (2, dark, custom_filled),
}
if sys.argv[3:]:  # only those named
    shots = {name: shots[name] for name in sys.argv[3:]}
for name, (scale, scheme, steps) in shots.items():
    if os.fork() == 0:  # each desktop wants connections of its own
        take(name, scale, scheme, steps)
        os._exit(0)
    if os.wait()[1] != 0:
        sys.exit(f"screenshots: {name} failed")
