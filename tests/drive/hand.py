"""The player's hand: real mouse buttons and keys."""

import subprocess
import time
from contextlib import contextmanager

DOUBLE_PRESS = 0.45  # seconds; two presses within them may be taken for one
pressed = {}  # when each key or place was pressed last


def xdotool(*words):
    subprocess.run(["xdotool", *map(str, words)], check=True)


def apart(what):
    """Waits as long as a press would be taken for the second half of a double one."""
    time.sleep(max(pressed.get(what, 0) + DOUBLE_PRESS - time.monotonic(), 0))


def press(what, *words):
    apart(what)
    xdotool(*words)
    pressed[what] = time.monotonic()  # not before: on a busy machine it takes a while


def move_to(x, y):
    xdotool("mousemove", x, y)


def move_away():
    """Moves the mouse to where it is on no button."""
    move_to(4, 300)


def click(place, times=1):
    move_to(*place.middle)
    press(place.middle, "click", "--repeat", times, "--delay", 20, 1)


@contextmanager
def held(name):
    """Holds the key of that name, or the mouse's button 1."""
    device = "mouse" if name == 1 else "key"
    xdotool(f"{device}down", name)
    try:
        yield
    finally:
        xdotool(f"{device}up", name)


def key(*names):
    for name in names:
        press(name, "key", name)


def write(text):
    xdotool("type", "--delay", 1, text)
