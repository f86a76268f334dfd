"""Where the program runs: a display, a session bus and a home, all gone at the end."""

import os
import re
import shutil
import signal
import sys
import time
from contextlib import ExitStack
from pathlib import Path
from subprocess import DEVNULL, PIPE, Popen
from tempfile import mkdtemp

import numpy

OUTER = re.compile("PATH|.*SAN_OPTIONS")  # what the environment keeps
FOLDERS = {"HOME": "home", "XDG_CONFIG_HOME": "config", "TMPDIR": "tmp",
           "XDG_RUNTIME_DIR": "runtime"}


class Screen:
    """The display's memory, from the server's file. A place has left and top, width and height."""

    def __init__(self, file, width, height):
        self.place = 0, 0, width, height
        header = file.stat().st_size - width * height * 4
        self.memory = numpy.memmap(file, numpy.uint8, "r", header, (height, width, 4))

    def pixels(self, place=None):
        """The present pixels: red, green and blue by row and column."""
        left, top, width, height = place or self.place
        return self.memory[top:top + height, left:left + width, 2::-1].copy()


class Stage(ExitStack):
    """Only one at a time per process. It has a folder of its own, with the home in it."""

    def __init__(self, width=1024, height=768, *options):
        super().__init__()
        signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
        self.folder = Path(mkdtemp(prefix="songrush-"))
        # A portal of the desktop may have mounted something there, which cannot be removed.
        self.callback(shutil.rmtree, self.folder, ignore_errors=True)
        outer = {name: value for name, value in os.environ.items() if OUTER.fullmatch(name)}
        os.environ.clear()
        for variable, name in FOLDERS.items():
            (self.folder / name).mkdir(mode=0o700)
            os.environ[variable] = str(self.folder / name)
        os.environ.update(outer, LC_ALL="C.UTF-8", GSETTINGS_BACKEND="memory",
                          QT_QPA_PLATFORM="xcb", SDL_AUDIODRIVER="dummy")
        # The server keeps the screen in a file, which is quick to read. By default it would reset
        # when the last program leaves, and refuse connections meanwhile.
        display = self.start("Xvfb", "-screen", "0", f"{width}x{height}x24", "-nolisten", "tcp",
                             "-noreset", "-nocursor", *options, "-fbdir", self.folder,
                             "-displayfd", "1")
        os.environ["DISPLAY"] = f":{display.stdout.readline().strip()}"
        bus = self.start("dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address")
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()
        self.screen = Screen(self.folder / "Xvfb_screen0", width, height)

    def start(self, *command):
        """Starts a server that runs for as long as the stage stands."""
        server = self.enter_context(Popen(command, stdout=PIPE, stderr=DEVNULL, text=True))
        self.callback(server.terminate)
        return server

    def start_compositor(self):
        """Makes programs that start later run under Wayland, in a window that fills the display."""
        socket = self.folder / "runtime/wayland-test"
        width, height = self.screen.place[2:]
        compositor = self.start("weston", "--backend=x11-backend.so", f"--socket={socket.name}",
                                "--no-config", "--idle-time=0", f"--width={width}",
                                f"--height={height}")
        while not socket.exists():
            assert compositor.poll() is None, "no compositor comes up"
            time.sleep(0.02)
        # What the libraries of Wayland leave behind cannot be told from leaks of the program, since
        # they are unloaded before the end; it is looked for under X11.
        os.environ.update(WAYLAND_DISPLAY=socket.name, QT_QPA_PLATFORM="wayland",
                          ASAN_OPTIONS="detect_leaks=0")
