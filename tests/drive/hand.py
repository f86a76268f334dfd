"""The player's hand: real mouse buttons and keys."""

import subprocess
import time

DOUBLE_PRESS = 0.45  # seconds; two presses within them may be taken for one
pressed = {}  # when each key or place was pressed last


def xdotool(*words):
    subprocess.run(["xdotool", *map(str, words)], check=True)


def press(what, *words):
    """Presses what may only be taken for a single press."""
    time.sleep(max(pressed.get(what, 0) + DOUBLE_PRESS - time.monotonic(), 0))
    xdotool(*words)
    pressed[what] = time.monotonic()  # not before: on a busy machine it takes a while


def move_to(place):
    """Moves the mouse to the middle of a place."""
    left, top, width, height = place
    xdotool("mousemove", left + width // 2, top + height // 2)


def move_away():
    """Moves the mouse to where it is on no button."""
    xdotool("mousemove", 4, 300)


def click(place, times=1):
    move_to(place)
    press(place, "click", "--repeat", times, "--delay", 20, 1)


def key(*names):
    for name in names:
        press(name, "key", name)


def write(text):
    xdotool("type", "--delay", 1, text)
