"""The windows on the display, as a window manager has them."""

from Xlib import X
from Xlib.display import Display
from Xlib.error import BadDrawable, BadWindow
from Xlib.protocol.event import ClientMessage


class Windows:
    def __init__(self):
        self.display = Display()

    def shown(self):
        """The windows with their widths in pixels."""
        for window in self.display.screen().root.query_tree().children:
            try:
                if window.get_attributes().map_state == X.IsViewable:
                    yield window, window.get_geometry().width
            except (BadWindow, BadDrawable):
                pass  # gone meanwhile

    def widest(self):
        """Its width in pixels, 0 if there is no window."""
        return max((width for _, width in self.shown()), default=0)

    def ask_to_close(self, title):
        window = next(window for window, _ in self.shown() if window.get_wm_name() == title)
        delete, protocols = map(self.display.get_atom, ("WM_DELETE_WINDOW", "WM_PROTOCOLS"))
        window.send_event(ClientMessage(window=window, client_type=protocols,
                                        data=(32, [delete, X.CurrentTime, 0, 0, 0])))
        self.display.flush()
