"""A desktop of its own for the program: X server, window manager, session bus, empty home."""

import os
import re
import shutil
import subprocess
import tempfile
import time

patience = 60  # seconds; only reached when something is wrong


def wait_for(condition, what):
    """The first true value that the condition gives."""
    end = time.monotonic() + patience
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise AssertionError("waited in vain for " + what)
        time.sleep(0.05)


class Session:
    """An X server. Started by `with`; everything that it has started ends with it."""

    has_pointer = True

    def __init__(self, size="1400x900"):
        self.size = size
        self.processes = []

    def __enter__(self):
        self.folder = tempfile.mkdtemp(prefix="tessarine-desktop-")
        self.home = os.path.join(self.folder, "home")
        os.mkdir(self.home)
        runtime = os.path.join(self.folder, "run")
        os.mkdir(runtime, 0o700)
        for name in [each for each in os.environ if each.startswith(("QT_", "XDG_", "GTK_"))]:
            del os.environ[name]
        os.environ.pop("WAYLAND_DISPLAY", None)
        os.environ.update(HOME=self.home, XDG_RUNTIME_DIR=runtime, LC_ALL="C.UTF-8", NO_AT_BRIDGE="0")
        # Assistive tools are asked for by the session and not by the program.
        os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        try:
            self._start_bus(runtime)
            self._start_display()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for process in reversed(self.processes):
            process.terminate()
        for process in reversed(self.processes):
            try:
                process.wait(10)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)

    def start(self, *command, output=None, **options):
        """A program whose output goes to the file, or nowhere."""
        with open(output or os.devnull, "wb") as stream:
            process = subprocess.Popen(command, stdout=stream, stderr=subprocess.STDOUT, **options)
        self.processes.append(process)
        return process

    def _start_bus(self, runtime):
        bus = os.path.join(runtime, "bus")
        self.start("dbus-daemon", "--session", "--nofork", "--nopidfile", f"--address=unix:path={bus}")
        wait_for(lambda: os.path.exists(bus), "the session bus")
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={bus}"

    def _start_display(self):
        log = os.path.join(self.folder, "display")
        # Without -noreset the server begins anew, and drops everybody, whenever its last client goes.
        self.start("Xvfb", "-displayfd", "1", "-screen", "0", self.size + "x24", "-nolisten", "tcp",
                   "-noreset", output=log)
        number = wait_for(lambda: re.search(r"^\d+$(?=\n)", text_of(log), re.MULTILINE), "the X server")
        os.environ["DISPLAY"] = ":" + number.group()
        self.start("openbox")
        wait_for(lambda: "window id" in output_of("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"),
                 "the window manager")


class WaylandSession(Session):
    """A compositor without a screen, which has no pointer either."""

    has_pointer = False

    def _start_display(self):
        name = "tessarine"
        width, height = self.size.split("x")
        # The debugging protocol is the one that pictures of the screen are taken by.
        self.start("weston", "--backend=headless-backend.so", "--use-pixman", "--debug",
                   f"--width={width}", f"--height={height}", f"--socket={name}", "--idle-time=0")
        wait_for(lambda: os.path.exists(os.path.join(os.environ["XDG_RUNTIME_DIR"], name)),
                 "the compositor")
        os.environ.pop("DISPLAY", None)
        os.environ.update(WAYLAND_DISPLAY=name, QT_QPA_PLATFORM="wayland")

    def picture(self):
        """A PNG file of the whole screen."""
        folder = tempfile.mkdtemp(dir=self.folder)
        subprocess.run(["weston-screenshooter"], cwd=folder, check=True, capture_output=True)
        return os.path.join(folder, os.listdir(folder)[0])


def text_of(path):
    with open(path) as file:
        return file.read()


def output_of(*command):
    return subprocess.run(command, capture_output=True, text=True).stdout
