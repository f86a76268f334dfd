"""A program as a screen reader has it: what the accessibility bus tells of it, and its presses."""

import re
import subprocess
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, Gio, GLib

LIMIT = 60  # seconds that a single step may take


def switch_accessibility_on():
    """As the desktop does when a screen reader starts; programs that start later join in."""
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    switch = GLib.Variant("(ssv)", ("org.a11y.Status", "IsEnabled", GLib.Variant("b", True)))
    bus.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.freedesktop.DBus.Properties", "Set",
                  switch, None, Gio.DBusCallFlags.NONE, -1, None)


class Reader:
    """Starts a program and reads it. What is waited for is looked for up to the limit."""

    def __init__(self, command):
        switch_accessibility_on()
        self.heard = []  # announcements not yet asked for
        Atspi.init()
        self.listener = Atspi.EventListener.new(self._hear)
        self.listener.register("object:state-changed:showing")
        self.program = subprocess.Popen([command], cwd="/")

    def _hear(self, event):
        try:
            if event.detail1 == 1 and event.source.get_role() == Atspi.Role.NOTIFICATION:
                event.source.clear_cache()
                text = event.source.get_name()
                if text != "Loading...":  # shown for moments only, and so told or not
                    self.heard.append(text)
        except GLib.Error:
            pass  # gone already

    def wait(self, what, condition):
        """The first value of the condition that is true."""
        end = time.monotonic() + LIMIT
        while time.monotonic() < end:
            while GLib.MainContext.default().iteration(False):
                pass
            try:
                value = condition()
                if value:
                    return value
            except GLib.Error:
                pass  # what was looked at went away meanwhile
            if self.program.poll() is not None:
                raise AssertionError(f"the program ended before {what}")
            time.sleep(0.01)
        raise AssertionError(f"waited in vain for {what}; there are:\n" + "\n".join(self.texts())
                             + "\nheard: " + str(self.heard))

    def announced(self, pattern):
        """The match of the next announcement, which must be this one."""
        text = self.wait(f"the announcement {pattern!r}", lambda: self.heard and self.heard.pop(0))
        match = re.fullmatch(pattern, text)
        assert match, f"announced was {text!r} instead of {pattern!r}"
        return match

    def showing(self):
        """All objects of the program that are shown, but not what folders hold."""
        desktop = Atspi.get_desktop(0)
        programs = (desktop.get_child_at_index(i) for i in range(desktop.get_child_count()))
        waiting = [p for p in programs if p and p.get_process_id() == self.program.pid]
        for program in waiting:
            program.clear_cache()
        while waiting:
            item = waiting.pop()
            yield item
            if item.get_role() in (Atspi.Role.TREE, Atspi.Role.LIST):
                continue
            children = (item.get_child_at_index(i) for i in range(item.get_child_count()))
            waiting += [c for c in children
                        if c and c.get_state_set().contains(Atspi.StateType.SHOWING)]

    def texts(self):
        return sorted(f"{item.get_role_name()} {item.get_name()!r}" for item in self.showing())

    def has(self, role, pattern):
        return any(item.get_role_name() == role and re.fullmatch(pattern, item.get_name())
                   for item in self.showing())

    def find(self, role, name):
        def found():
            return next((item for item in self.showing()
                         if item.get_role_name() == role and item.get_name() == name), None)
        return self.wait(f"the {role} {name!r}", found)

    def buttons(self):
        return {item.get_name() for item in self.showing() if item.get_role_name() == "push button"}

    def press(self, name):
        button = self.find("push button", name)
        actions = [button.get_action_name(i) for i in range(button.get_n_actions())]
        assert button.do_action(actions.index("Press")), f"{name} cannot be pressed"

    def type(self, name, text):
        assert self.find("text", name).set_text_contents(text), f"{name} cannot be typed into"

    def end_status(self):
        return self.program.wait(LIMIT)
