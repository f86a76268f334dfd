"""The player's hand: real mouse buttons and keys."""

import subprocess
from contextlib import contextmanager


def xdotool(*words):
    subprocess.run(["xdotool", *map(str, words)], check=True)


def move_to(x, y):
    xdotool("mousemove", x, y)


def move_away():
    """To where the mouse disturbs no button."""
    move_to(4, 300)


def click(place, times=1):
    move_to(*place.middle)
    xdotool("click", "--repeat", times, "--delay", 20, 1)


def press():
    xdotool("mousedown", 1)


def release():
    xdotool("mouseup", 1)


@contextmanager
def held(name):
    """The key of that name."""
    xdotool("keydown", name)
    try:
        yield
    finally:
        xdotool("keyup", name)


def key(*names):
    xdotool("key", *names)


def write(text):
    xdotool("type", "--delay", 1, text)
