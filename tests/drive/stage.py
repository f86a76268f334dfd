"""Where the program runs: a display, a session bus, a home and settings that are gone at the end."""

import os
import signal
import subprocess
import sys
from contextlib import ExitStack, contextmanager
from pathlib import Path
from tempfile import TemporaryDirectory

from screen import Screen


class Stage(ExitStack):
    """Its folder, with the home in it, a folder for what is made quickly, its screen, and the file
    that gets a picture of that if something fails. What enters its context leaves first."""

    def __init__(self, folder, memory, screen, failure):
        super().__init__()
        self.failure = failure
        self.folder = folder
        self.memory = memory
        self.screen = screen
        self.settings = folder / "config/Songrush/Songrush.conf"


@contextmanager
def open_stage(width=1024, height=768, failure=None):
    """Only one at a time."""
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    with TemporaryDirectory(prefix="songrush-") as folder, in_memory() as memory:
        use_folder(Path(folder))
        with open_display(memory, width, height) as screen, open_bus():
            with Stage(Path(folder), memory, screen, failure) as stage:
                yield stage


@contextmanager
def in_memory():
    """A folder in memory, where there is such a thing."""
    memory = "/dev/shm" if Path("/dev/shm").is_dir() else None
    with TemporaryDirectory(prefix="songrush-", dir=memory) as folder:
        yield Path(folder)


def use_folder(folder):
    for variable in ("WAYLAND_DISPLAY", "QT_SCALE_FACTOR", "XDG_DATA_HOME", "XDG_CURRENT_DESKTOP"):
        os.environ.pop(variable, None)
    for variable, name in (("HOME", "home"), ("XDG_CONFIG_HOME", "config"),
                           ("XDG_RUNTIME_DIR", "runtime")):
        (folder / name).mkdir(mode=0o700)
        os.environ[variable] = str(folder / name)
    os.environ.setdefault("SDL_AUDIODRIVER", "dummy")
    os.environ.update(QT_QPA_PLATFORM="xcb", GSETTINGS_BACKEND="memory", LC_ALL="C.UTF-8")


@contextmanager
def open_display(memory, width, height):
    # The server keeps what is on the screen in a file, where it is quickly read. It would begin
    # anew whenever the last program leaves, and refuse who comes just then.
    server = ["Xvfb", "-screen", "0", f"{width}x{height}x24", "-nolisten", "tcp", "-noreset",
              "-fbdir", str(memory), "-displayfd"]
    with serve(server) as number:
        os.environ["DISPLAY"] = f":{number}"
        yield Screen(memory / "Xvfb_screen0", width, height)


@contextmanager
def open_bus():
    with serve(["dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address"]) as bus:
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = bus
        yield


@contextmanager
def serve(command):
    """Starts a server; gives what it writes, as soon as it is ready, to the number of a file that
    is appended to its command."""
    reader, writer = os.pipe()
    server = subprocess.Popen([*command, str(writer)], pass_fds=[writer],
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    os.close(writer)
    try:
        with open(reader, encoding="ascii") as ready:
            told = ready.readline().strip()
        if not told:
            raise RuntimeError(f"{command[0]} does not start")
        yield told
    finally:
        server.terminate()
        server.wait()
