"""The player's hand: real mouse buttons and keys, and the window manager's close button."""

import subprocess
import time
from contextlib import contextmanager

from Xlib import X
from Xlib.display import Display
from Xlib.protocol.event import ClientMessage


DOUBLE_PRESS = 0.45  # seconds; two presses within them may be taken for one
pressed = {}  # when each key or place was pressed pressed


def xdotool(*words):
    subprocess.run(["xdotool", *map(str, words)], check=True)


def apart(what):
    """Waits as long as a press would be taken for the second half of a double one."""
    time.sleep(max(pressed.get(what, 0) + DOUBLE_PRESS - time.monotonic(), 0))
    pressed[what] = time.monotonic()


def move_to(x, y):
    xdotool("mousemove", x, y)


def move_away():
    """Moves the mouse to where it is on no button."""
    move_to(4, 300)


def click(place, times=1):
    move_to(*place.middle)
    apart(place.middle)
    xdotool("click", "--repeat", times, "--delay", 20, 1)


def press():
    xdotool("mousedown", 1)


def release():
    xdotool("mouseup", 1)


@contextmanager
def held(name):
    """Holds the key of that name."""
    xdotool("keydown", name)
    try:
        yield
    finally:
        xdotool("keyup", name)


def key(*names):
    for name in names:
        apart(name)
        xdotool("key", name)


def write(text):
    xdotool("type", "--delay", 1, text)


def ask_to_close(title):
    """Asks the window of that title to close."""
    display = Display()
    window = next(window for window in display.screen().root.query_tree().children
                  if window.get_wm_name() == title
                  and window.get_attributes().map_state == X.IsViewable)
    delete, protocols = map(display.get_atom, ("WM_DELETE_WINDOW", "WM_PROTOCOLS"))
    window.send_event(ClientMessage(window=window, client_type=protocols,
                                    data=(32, [delete, X.CurrentTime, 0, 0, 0])))
    display.flush()
