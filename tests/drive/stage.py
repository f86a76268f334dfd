"""Where the program runs: a display, a session bus, a home and settings that are gone at the end."""

import os
import re
import shutil
import signal
import subprocess
import sys
import time
from contextlib import ExitStack
from pathlib import Path
from tempfile import mkdtemp

from screen import Screen

OUTER = re.compile("PATH|.*SAN_OPTIONS|SDL_AUDIODRIVER")  # what the environment keeps


class Stage(ExitStack):
    """Only one at a time per process. It has a folder of its own, with the home in it."""

    def __init__(self, width=1024, height=768, *options):
        super().__init__()
        signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
        self.folder = Path(mkdtemp(prefix="songrush-"))
        # A portal of the desktop may have mounted something there, which cannot be removed.
        self.callback(shutil.rmtree, self.folder, ignore_errors=True)
        self.settings = self.folder / "config/Songrush/Songrush.conf"
        self.set_environment()
        # The server keeps the screen in a file, which is quick to read. By default it would reset
        # when the last program leaves, and refuse connections meanwhile.
        display = self.serve("Xvfb", "-screen", "0", f"{width}x{height}x24", "-nolisten", "tcp",
                             "-noreset", "-nocursor", *options, "-fbdir", self.folder, "-displayfd")
        bus = self.serve("dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address")
        os.environ.update(DISPLAY=f":{display}", DBUS_SESSION_BUS_ADDRESS=bus)
        self.screen = Screen(self.folder / "Xvfb_screen0", width, height)

    def set_environment(self):
        for variable in [name for name in os.environ if not OUTER.fullmatch(name)]:
            del os.environ[variable]
        for variable, name in (("HOME", "home"), ("XDG_CONFIG_HOME", "config"), ("TMPDIR", "tmp"),
                               ("XDG_RUNTIME_DIR", "runtime")):
            (self.folder / name).mkdir(mode=0o700)
            os.environ[variable] = str(self.folder / name)
        os.environ.setdefault("SDL_AUDIODRIVER", "dummy")
        os.environ.update(QT_QPA_PLATFORM="xcb", GSETTINGS_BACKEND="memory", LC_ALL="C.UTF-8")

    def start(self, *command, **files):
        """Starts a program that runs for as long as the stage stands."""
        process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                   **files)
        self.callback(process.wait)
        self.callback(process.terminate)
        return process

    def serve(self, *command):
        """Starts a server; returns what it writes, as soon as it is ready, to the number of a file
        that is appended to its command."""
        reader, writer = os.pipe()
        self.start(*command, str(writer), pass_fds=[writer])
        os.close(writer)
        with open(reader, encoding="ascii") as ready:
            return ready.readline().strip()

    def start_compositor(self):
        """Makes programs that start later run under Wayland, in a window that fills the display."""
        socket = self.folder / "runtime/wayland-test"
        box = self.screen.box
        compositor = self.start("weston", "--backend=x11-backend.so", f"--socket={socket.name}",
                                "--no-config", "--idle-time=0", f"--width={box.width}",
                                f"--height={box.height}")
        end = time.monotonic() + 30
        while not socket.exists():
            assert time.monotonic() < end and compositor.poll() is None, "no compositor comes up"
            time.sleep(0.02)
        # What the libraries of Wayland leave behind cannot be told from leaks of the program, since
        # they are unloaded before the end; it is looked for under X11.
        os.environ.update(WAYLAND_DISPLAY=socket.name, QT_QPA_PLATFORM="wayland",
                          ASAN_OPTIONS="detect_leaks=0")
