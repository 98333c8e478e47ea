"""A real file manager beside the program's window, from which files are dragged."""

import os

from pixels import grab
from pointer import window_of, xdotool
from session import wait_for

WIDTH, HEIGHT = 420, 500


class FileManager:
    """Shows the folder. Files are found by the colour of their thumbnails."""

    def __init__(self, session, folder):
        # A home of its own, so that the program's stays as empty as it was.
        home = os.path.join(session.folder, "file-manager")
        os.mkdir(home)
        session.start("pcmanfm", "--no-desktop", folder, env={**os.environ, "HOME": home})
        name = os.path.basename(folder)
        self.window = wait_for(lambda: window_of(f"^{name}$"), "the file manager's window")
        xdotool("windowsize", "--sync", self.window, WIDTH, HEIGHT)
        xdotool("windowmove", "--sync", self.window, 10, 40)

    def place_of(self, color):
        """The middle of the thumbnail of this colour on the screen."""

        def find():
            places = list(grab(self.window).places(color, tolerance=12))
            return places if len(places) > 200 else None

        places = wait_for(find, f"a thumbnail of the colour {color}")
        geometry = dict(line.split("=") for line in
                        xdotool("getwindowgeometry", "--shell", self.window).splitlines())
        x = sum(place[0] for place in places) // len(places)
        y = sum(place[1] for place in places) // len(places)
        return x + int(geometry["X"]), y + int(geometry["Y"])
