// Asks a window to close, as a window manager does.

#include <X11/Xlib.h>
#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
    Display* display = XOpenDisplay(nullptr);
    if (argc != 2 || display == nullptr) {
        std::fputs("Usage: songrush_ask_to_close <window>, with a display\n", stderr);
        return 2;
    }
    XEvent request{};
    request.xclient.type = ClientMessage;
    request.xclient.window = std::strtoul(argv[1], nullptr, 0);
    request.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
    request.xclient.format = 32;
    request.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
    request.xclient.data.l[1] = CurrentTime;
    XSendEvent(display, request.xclient.window, False, NoEventMask, &request);
    XCloseDisplay(display);
    return 0;
}
