"""The player's hand: real mouse buttons and keys."""

import subprocess
from contextlib import contextmanager


def xdotool(*words):
    subprocess.run(["xdotool", *map(str, words)], check=True)


def move_to(x, y):
    xdotool("mousemove", x, y)


def click(button=1, times=1):
    xdotool("click", "--repeat", times, "--delay", 20, button)


def click_at(place, times=1):
    move_to(*place.middle)
    click(times=times)


@contextmanager
def held(button=1):
    """The mouse button, or the key of that name."""
    device = "mouse" if isinstance(button, int) else "key"
    xdotool(device + "down", button)
    try:
        yield
    finally:
        xdotool(device + "up", button)


def key(*names):
    xdotool("key", *names)


def write(text):
    xdotool("type", "--delay", 1, text)
