"""A program as a screen reader sees it: what the accessibility bus says of it, and presses."""

import os
import re
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib

LIMIT = 60  # seconds that a single step may take; programs under sanitizers are slow
# Announced only if it takes long enough.
PASSING = ("Loading...", "The clip is over.")


class Reader:
    """Reads the process that `start` starts. Waits by looking again and again, up to a limit."""

    def __init__(self, start):
        os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        self.heard = []  # announcements not yet asked for
        Atspi.init()
        self.listener = Atspi.EventListener.new(self._hear)
        self.listener.register("object:state-changed:showing")
        self.process = start()

    def stop(self):
        self.listener.deregister("object:state-changed:showing")
        self.process.kill()
        self.process.wait()

    def _hear(self, event):
        try:
            source = event.source
            if (event.detail1 == 1 and source.get_role() == Atspi.Role.NOTIFICATION
                    and source.get_process_id() == self.process.pid):
                source.clear_cache()
                self.heard.append(source.get_name())
        except GLib.Error:
            pass  # gone already

    def wait(self, what, condition):
        """Waits for `condition` to return something true, and returns that."""
        end = time.monotonic() + LIMIT
        while time.monotonic() < end:
            while GLib.MainContext.default().iteration(False):
                pass
            try:
                value = condition()
                if value:
                    return value
            except GLib.Error:
                pass  # what was looked at has gone meanwhile
            assert self.process.poll() is None, \
                f"the program ended with status {self.process.returncode} before {what}"
            time.sleep(0.02)
        shown = "\n".join(f"{item.get_role_name()} {item.get_name()!r}" for item in self.showing())
        raise AssertionError(f"waited in vain for {what}; heard: {self.heard}; there are:\n{shown}")

    def announced(self, pattern, skip=False):
        """The match of the next announcement, or with `skip` of the first one that matches."""
        while True:
            text = self.wait(f"the announcement {pattern!r}",
                             lambda: self.heard and self.heard.pop(0))
            match = re.fullmatch(pattern, text)
            if match:
                return match
            assert skip or text in PASSING, f"announced was {text!r} instead of {pattern!r}"

    def showing(self):
        """All objects of the program that are shown, but not what the dialogs' folders hold."""
        waiting = [program for program in children(Atspi.get_desktop(0))
                   if program.get_process_id() == self.process.pid]
        for program in waiting:
            program.clear_cache()
        while waiting:
            item = waiting.pop()
            yield item
            if item.get_role() not in (Atspi.Role.TREE, Atspi.Role.LIST):
                waiting += reversed([c for c in children(item) if has_state(c, "SHOWING")])

    def all(self, role):
        return [item for item in self.showing() if item.get_role_name() == role]

    def seen(self, name, role="push button"):
        """The control of that name, or that matches a compiled pattern, if it is shown. Of several,
        preferably one that can be used, and of these the one in front."""
        matches = name.fullmatch if isinstance(name, re.Pattern) else name.__eq__
        found = [item for item in self.all(role) if matches(item.get_name())]
        return max(reversed(found), key=is_usable, default=None)

    def find(self, name, role="push button"):
        return self.wait(f"the {role} {name!r}", lambda: self.seen(name, role))

    def gone(self, name, role="push button"):
        self.wait(f"the end of the {role} {name!r}", lambda: not self.seen(name, role))

    def press(self, name, role="push button"):
        """Presses a button as a screen reader does."""
        button = self.find(name, role)
        actions = [button.get_action_name(i) for i in range(button.get_n_actions())]
        assert button.do_action(actions.index("Press")), f"{name} cannot be pressed"


def has_state(item, name):
    return item.get_state_set().contains(getattr(Atspi.StateType, name))


def children(item):
    return [c for c in (item.get_child_at_index(i) for i in range(item.get_child_count())) if c]


def above(item):
    """The objects that it lies in, up to its window."""
    parents = []
    while (item := item.get_parent()) and item.get_role() != Atspi.Role.APPLICATION:
        parents.append(item)
    return parents


def is_usable(item):
    """Whether nothing lies in front that must be answered first."""
    return has_state([item, *above(item)][-1], "ACTIVE") and has_state(item, "ENABLED")
