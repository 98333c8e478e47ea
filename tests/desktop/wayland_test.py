"""A start without an X server: wayland_test.py PROGRAM"""

import os
import sys
import unittest

from pixels import read_png
from session import WaylandSession, wait_for

executable = os.path.abspath(sys.argv.pop(1))
window_color = (0xF6, 0xF6, 0xF8)


class Wayland(unittest.TestCase):
    def test_the_window_shows_and_its_button_leads_to_the_other_screen(self):
        with WaylandSession(size="1000x700") as session:
            from program import Program  # which looks for the session at once

            program = Program(session, executable)
            program.get("No picture yet")
            wait_for(lambda: read_png(session.picture()).count(window_color) > 100_000, "the painted window")
            self.assertFalse(program.enabled("iOS"))
            program.press_from_within("Custom sizes")
            program.get("File name 8")
            self.assertFalse(program.enabled("Generate icons"))
            self.assertEqual(program.left_behind(), [])
            program.process.terminate()
            program.ended()
            self.assertEqual(program.printed(), [])


if __name__ == "__main__":
    unittest.main(verbosity=2, warnings="ignore")
