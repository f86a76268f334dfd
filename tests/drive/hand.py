"""The player's hand: real mouse buttons and keys, and the window manager's close button."""

import subprocess
from contextlib import contextmanager

from Xlib import X
from Xlib.display import Display
from Xlib.protocol.event import ClientMessage


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


def ask_to_close(title):
    """The window of that title."""
    display = Display()
    window = next(window for window in display.screen().root.query_tree().children
                  if window.get_wm_name() == title
                  and window.get_attributes().map_state == X.IsViewable)
    delete, protocols = map(display.get_atom, ("WM_DELETE_WINDOW", "WM_PROTOCOLS"))
    window.send_event(ClientMessage(window=window, client_type=protocols,
                                    data=(32, [delete, X.CurrentTime, 0, 0, 0])))
    display.flush()
