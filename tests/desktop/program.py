"""The program under test, seen as an assistive tool sees it."""

import os
import tempfile

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from pixels import grab  # noqa: E402
from pointer import click, window_of, xdotool  # noqa: E402
from session import wait_for  # noqa: E402

FRAME = ((0x4A, 0x57, 0xC8), (0x5B, 0x6B, 0xDC))  # in light and in dark colours


class Program:
    """Started anew, with an empty home, right of the place for a file manager."""

    def __init__(self, session, executable, scale=1):
        self.scale = scale
        self.home = tempfile.mkdtemp(dir=session.folder)
        self.output = os.path.join(session.folder, "output")
        environment = {**os.environ, "HOME": self.home, "QT_SCALE_FACTOR": str(scale)}
        self.process = session.start(executable, output=self.output, cwd=self.home, env=environment)
        if session.has_pointer:
            self.window = wait_for(lambda: window_of("^Tessarine$"), "the program's window")
            xdotool("windowmove", "--sync", self.window, 470, 40)
        self.root = wait_for(self._find_root, "the program's accessible tree")

    def _find_root(self):
        desktop = Atspi.get_desktop(0)
        for index in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(index)
            if child is not None and child.get_process_id() == self.process.pid:
                # Without a loop of events a cache would never hear of a change.
                child.set_cache_mask(Atspi.Cache.NONE)
                return child
        return None

    def all(self):
        """Every object that is on the screen now, from the top."""
        def walk(node):
            try:
                yield node
                for index in range(node.get_child_count()):
                    child = node.get_child_at_index(index)
                    if child is not None:
                        yield from walk(child)
            except GLib.Error:
                return  # gone meanwhile

        for node in walk(self.root):
            try:
                if node.get_state_set().contains(Atspi.StateType.SHOWING):
                    yield node
            except GLib.Error:
                continue

    def find(self, name, role=None):
        """The object of this name, or none."""
        for node in self.all():
            if node.get_name() == name and (role is None or node.get_role() == role):
                return node
        return None

    def get(self, name, role=None):
        return wait_for(lambda: self.find(name, role), name)

    def enabled(self, name):
        node = self.get(name, Atspi.Role.PUSH_BUTTON)
        return node.get_state_set().contains(Atspi.StateType.SENSITIVE)

    def focused(self):
        """The name of the object that has the keyboard, or none."""
        for node in self.all():
            if node.get_state_set().contains(Atspi.StateType.FOCUSED):
                return node.get_name()
        return None

    def box(self, name, role=None):
        """x, y, width, height on the screen."""
        extents = self.get(name, role).get_extents(Atspi.CoordType.SCREEN)
        # Told in points.
        return [length * self.scale for length in (extents.x, extents.y, extents.width, extents.height)]

    def middle(self, name, role=None):
        x, y, width, height = self.box(name, role)
        return x + width // 2, y + height // 2

    def press(self, name):
        """With the pointer."""
        wait_for(lambda: self.enabled(name), name + " to be enabled")
        click(*self.middle(name, Atspi.Role.PUSH_BUTTON))

    def press_from_within(self, name):
        """Without a pointer."""
        node = self.get(name, Atspi.Role.PUSH_BUTTON)
        for action in range(node.get_n_actions()):
            if node.get_action_name(action) == "Press":
                return node.do_action(action)
        raise AssertionError(name + " cannot be pressed")

    def framed(self):
        """Whether the frame of an acceptable drag stands around the screen."""
        picture = grab(self.window)
        middle = picture.height // 2
        return all(picture.at(x, middle) in FRAME for x in (0, 1, picture.width - 2, picture.width - 1))

    def printed(self):
        with open(self.output) as file:
            return file.read().splitlines()

    def left_behind(self):
        """Everything in the home folder that was empty at the start."""
        return [os.path.join(folder, name) for folder, folders, files in os.walk(self.home)
                for name in folders + files]

    def ended(self):
        """The exit status, once there is one; minus the signal's number where one was the cause."""
        wait_for(lambda: self.process.poll() is not None, "the program's end")
        return self.process.returncode
