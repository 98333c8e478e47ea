"""The program as its users meet it: end_to_end_test.py PROGRAM"""

import os
import signal
import sys
import unittest

from file_manager import FileManager
from pixels import grab, plain_png
from pointer import Drag, press_key, type_text, window_of, xdotool
from services import Services
from session import Session, wait_for

executable = os.path.abspath(sys.argv.pop(1))
panel_title = "Choose directory to save new app icons"
generation_buttons = ("iOS", "macOS", "Apple Watch", "Windows 10")
light_ground, dark_ground = (0xF6, 0xF6, 0xF8), (0x1F, 0x1F, 0x24)
magenta, green = (230, 0, 126), (0, 160, 60)


def setUpModule():
    global session, services, pictures, picture, picture_to_break
    session = Session()
    unittest.addModuleCleanup(session.__exit__)
    session.__enter__()
    services = Services()
    pictures = os.path.join(session.folder, "pictures")
    os.mkdir(pictures)
    plain_png(os.path.join(pictures, "a picture.png"), 300, 200, magenta)
    plain_png(os.path.join(pictures, "later broken.png"), 200, 200, green)
    manager = FileManager(session, pictures)
    # Found once: the file manager darkens what has been dragged.
    picture, picture_to_break = manager.place_of(magenta), manager.place_of(green)


class EndToEnd(unittest.TestCase):
    def setUp(self):
        from program import Program  # which looks for the session at once

        services.shown.clear()
        self.program = Program(session, executable)
        self.addCleanup(self.end)

    def end(self):
        self.program.process.terminate()
        self.program.ended()

    def drag_in(self, place, target="Picture"):
        drag = Drag(place)
        # A button that stays down would spoil the tests that follow.
        self.addCleanup(drag.drop)
        drag.over(self.program.middle(target))
        wait_for(lambda: drag.tremble() or self.program.framed(), "the frame of the drag")
        return drag

    def drop_picture(self, target="Picture"):
        self.drag_in(picture, target).drop()
        self.program.get("300 × 200 pixels")
        wait_for(lambda: not self.program.framed(), "the frame to go")

    def answer_panel(self, folder):
        """With the keyboard."""

        wait_for(lambda: window_of(panel_title), "the folder panel")
        if folder is None:
            press_key("Escape")
        else:
            type_text(folder)
            press_key("Return")
        wait_for(lambda: not window_of(panel_title), "the folder panel to go")

    def new_folder(self, name):
        folder = os.path.join(session.folder, name)
        os.mkdir(folder)
        return folder

    def enabled(self):
        return [name for name in generation_buttons if self.program.enabled(name)]

    def close(self):
        self.assertEqual(self.program.left_behind(), [])
        xdotool("windowactivate", "--sync", self.program.window, "key", "ctrl+q")
        self.assertEqual(self.program.ended(), 0)

    def test_starts_with_every_generation_button_disabled(self):
        self.assertEqual(self.enabled(), [])
        self.program.press("Custom sizes")
        self.assertFalse(self.program.enabled("Generate icons"))
        self.close()

    def test_a_dragged_picture_is_framed_shown_and_cut(self):
        self.drop_picture()
        self.assertEqual(self.enabled(), list(generation_buttons))
        folder = self.new_folder("all the icons")
        self.program.press("iOS")
        self.answer_panel(folder)
        wait_for(lambda: services.shown, "the reveal")
        self.assertEqual(services.shown, [("ShowFolders", ["file://" + folder.replace(" ", "%20")])])
        self.assertEqual(len(os.listdir(folder)), 24)
        self.assertEqual(os.path.getsize(os.path.join(folder, "Contents.json")), 2921)
        self.assertEqual(self.program.printed(), [])
        self.close()

    def test_follows_the_desktop_into_dark_colours_and_back(self):
        def ground():
            return grab(self.program.window).at(4, 300)

        self.addCleanup(services.set_color_scheme, 0)
        wait_for(lambda: ground() == light_ground, "the painted window")
        services.set_color_scheme(1)
        wait_for(lambda: ground() == dark_ground, "dark colours")
        services.set_color_scheme(0)
        wait_for(lambda: ground() == light_ground, "light colours")
        self.close()

    def test_a_drag_that_leaves_changes_nothing(self):
        drag = self.drag_in(picture)
        drag.over((700, 850))
        wait_for(lambda: not self.program.framed(), "the frame to go")
        drag.drop()
        self.program.get("No picture yet")
        self.assertEqual(self.enabled(), [])
        self.close()

    def test_a_cancelled_panel_prints_a_line_for_each_file(self):
        self.drop_picture()
        self.program.press("Apple Watch")
        self.answer_panel(None)
        lines = wait_for(lambda: len(self.program.printed()) >= 12 and self.program.printed(), "12 lines")
        self.assertEqual(len(lines), 12)
        for line in lines:
            self.assertTrue(line.startswith("error saving: "), line)
        self.assertEqual(self.enabled(), list(generation_buttons))
        self.assertEqual(services.shown, [])
        self.close()

    def test_the_custom_screen_alerts_then_cuts_its_own_picture(self):
        self.program.press("Custom sizes")
        self.drop_picture(target="File name 3")  # typed into by no drop
        self.program.press("Generate icons")
        self.program.get('Please type in a name for "AppIcon01" text field and try again.')
        press_key("Return")
        wait_for(lambda: self.program.focused() == "File name 1", "the focus on row 1's name")
        for text in ("Banner", "64", "32"):
            type_text(text)
            press_key("Tab")
        folder = self.new_folder("banners")
        press_key("Return")
        self.answer_panel(folder)
        wait_for(lambda: services.shown, "the reveal")
        self.assertEqual(os.listdir(folder), ["Banner.png"])
        with open(os.path.join(folder, "Banner.png"), "rb") as file:
            self.assertEqual(file.read(24)[16:], bytes([0, 0, 0, 64, 0, 0, 0, 32]))
        press_key("Escape")
        self.program.get("No picture yet")  # the main screen has none of its own
        self.assertEqual(self.enabled(), [])
        self.assertEqual(self.program.printed(), [])
        self.close()

    def test_a_broken_picture_first_ends_the_program_silently(self):
        with open(os.path.join(pictures, "later broken.png"), "w") as file:
            file.write("no longer a picture")
        self.drag_in(picture_to_break).drop()
        wait_for(lambda: self.enabled() == list(generation_buttons), "the buttons")
        self.program.get("No picture yet")
        self.program.press("macOS")
        self.answer_panel(self.new_folder("none"))
        self.assertEqual(self.program.ended(), -signal.SIGABRT)
        self.assertEqual(self.program.printed(), [])


if __name__ == "__main__":
    unittest.main(verbosity=2, warnings="ignore")
