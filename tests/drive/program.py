"""The program as a screen reader sees it, used by hand where the accessibility bus tells its
controls to be; and its files."""

import os
import re
import shutil
import subprocess
import time
from contextlib import suppress

import gi
import hand

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib

LIMIT = 60  # seconds that a single step may take; programs under sanitizers are slow
PASSING = ("Loading...", "The clip is over.")  # announced only if it takes long enough
FRAME = (255, 221, 120)  # around the button that has the keyboard focus
TEXT_ROLES = ("label", "push button", "text", "combo box", "table cell", "table column header")


class Program:
    """Waits by looking again and again, up to a limit."""

    def __init__(self, stage, folder, data=None):
        """Runs until its stage ends. It writes into `data`, by default its own folder."""
        self.stage = stage
        self.screen = stage.screen
        self.data = data or folder
        self.heard = []  # announcements not yet asked for
        Atspi.init()
        listener = Atspi.EventListener.new(self._hear)
        listener.register("object:state-changed:showing")
        stage.callback(listener.deregister, "object:state-changed:showing")
        os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        # Started from elsewhere: nothing may depend on the current folder.
        self.process = stage.enter_context(subprocess.Popen([folder / "songrush"], cwd="/"))
        stage.callback(self.process.kill)

    def _hear(self, event):
        with suppress(GLib.Error):  # gone already
            if event.detail1 == 1 and event.source.get_role() == Atspi.Role.NOTIFICATION:
                event.source.clear_cache()
                self.heard.append(event.source.get_name())

    def wait(self, what, condition):
        """Waits for `condition` to return something true, and returns that."""
        end = time.monotonic() + LIMIT
        while time.monotonic() < end:
            while GLib.MainContext.default().iteration(False):
                pass
            with suppress(GLib.Error):  # what was looked at has gone meanwhile
                if value := condition():
                    return value
            status = self.process.poll()
            assert status is None, f"the program ended with status {status} before {what}"
            time.sleep(0.02)
        shown = "\n".join(f"{item.get_role_name()} {item.get_name()!r}" for item in self.showing())
        raise AssertionError(f"waited in vain for {what}; heard: {self.heard}; there are:\n{shown}")

    def announced(self, pattern, skip=False):
        """The match of the next announcement, or with `skip` of the first one that matches."""
        while True:
            text = self.wait(f"the announcement {pattern!r}",
                             lambda: self.heard and self.heard.pop(0))
            if match := re.fullmatch(pattern, text):
                return match
            assert skip or text in PASSING, f"announced was {text!r} instead of {pattern!r}"

    def settle(self, place=None):
        """Waits for three looks that are the same, but not for long: a clock may be running. The
        program answers before each, so that one held up in the middle of a movement has moved on."""
        looks = []
        for _ in range(20):
            next(self.showing()).get_name()
            looks.append(self.screen.pixels(place).tobytes())
            if looks[-3:] == looks[-1:] * 3:
                break
            time.sleep(0.05)

    def showing(self, within=()):
        """All objects that are shown in some, by default in the program, but not what the dialogs'
        folders hold."""
        waiting = within or [program for program in children(Atspi.get_desktop(0))
                             if program.get_process_id() == self.process.pid]
        for item in waiting:
            item.clear_cache()
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

    def ready(self, name, role="push button"):
        """The place of a control, once it takes mouse and keys and has its final look."""
        place = self.wait(f"the usable {role} {name!r}", lambda: (
            (item := self.seen(name, role)) and is_usable(item) and place_of(item)))
        self.settle(place)
        return place

    def press(self, name, role="push button"):
        """Presses a button as a screen reader does."""
        button = self.find(name, role)
        actions = [button.get_action_name(i) for i in range(button.get_n_actions())]
        assert button.do_action(actions.index("Press")), f"{name} cannot be pressed"

    def click(self, name, role="push button", times=1):
        hand.click(self.ready(name, role), times)

    def changes(self, place, act):
        """Does something that must change the look of a place."""
        before = self.screen.pixels(place)
        act()
        self.wait("another look", lambda: (self.screen.pixels(place) != before).any())
        self.settle(place)

    def focus(self):
        """The name of the control that visibly has the keyboard focus."""
        for item in self.showing():
            if has_state(item, "FOCUSED") and (
                    item.get_role() != Atspi.Role.PUSH_BUTTON
                    or (self.screen.pixels(place_of(item)) == FRAME).all(2).any()):
                return item.get_name()
        return None

    def tab_to(self, name):
        """Presses the Tab key until a control has the focus."""
        self.ready(name)
        passed = {None}
        while name not in (at := self.wait(f"a focus not on {passed}",
                                           lambda: {self.focus()} - passed)):
            passed |= at
            hand.key("Tab")

    def message(self, pattern):
        """Waits for a message with that text."""
        self.find(re.compile(pattern, re.DOTALL), "label")
        self.ready(re.compile(".*"), "alert")

    def answer(self, pattern, key="Return"):
        """Waits for a message and closes it by a key."""
        self.message(pattern)
        hand.key(key)
        self.gone(re.compile(".*"), "alert")

    def choose_file(self, title, path=None):
        """Types a path, or cancels without one, in the file dialog of that title."""
        self.ready(title, "dialog")
        if path:
            hand.write(str(path))
        hand.key("Return" if path else "Escape")

    def ended(self):
        """Waits for the program's end in order."""
        assert self.process.wait(LIMIT) == 0, f"it ended with status {self.process.returncode}"

    def noted(self):
        """The songs of the present game, as they are noted until it ends."""
        journals = (self.data / "PlayList").glob(".played-*")
        return [song for journal in journals for song in played(journal)]

    def texts(self):
        """The texts in front, with their roles and places. The facts in a header's text, except the
        sort order, are shown below it."""
        texts = []
        for item in filter(is_usable, self.showing(self.all("dialog"))):
            role, place, name = item.get_role_name(), place_of(item), item.get_name()
            text = Atspi.Text.get_text(item, 0, -1) if role == "text" else name
            if text and role in TEXT_ROLES:
                texts.append((text, role, place))
            facts = re.sub("(^|, )sorted .*", "", item.get_description() or "")
            if facts and role == "table column header":
                left, top, width, height = place
                texts.append((facts, "label", (left, top + height, width, height * 4 // 5)))
        return texts


def has_state(item, name):
    return item.get_state_set().contains(getattr(Atspi.StateType, name))


def children(item):
    return [c for c in (item.get_child_at_index(i) for i in range(item.get_child_count())) if c]


def place_of(item):
    box = item.get_extents(Atspi.CoordType.SCREEN)
    return box.x, box.y, box.width, box.height


def is_usable(item):
    """Whether nothing lies in front that must be answered first."""
    window = item
    while (above := window.get_parent()) and above.get_role() != Atspi.Role.APPLICATION:
        window = above
    return has_state(window, "ACTIVE") and has_state(item, "ENABLED")


def copy_program(folder, copy):
    """Copies the program with no song played and without score tables."""
    shutil.copytree(folder, copy, ignore=shutil.ignore_patterns("*.dat"))
    playlist = copy / "PlayList/Sample.m3u"
    playlist.write_bytes(playlist.read_bytes().replace(b"#Songrush:1", b"#Songrush:0"))
    return copy


def played(playlist):
    """The songs that are marked as played."""
    marked = re.findall(rb"#Songrush:1\r\n(.*)\r\n", playlist.read_bytes())
    return [(playlist.parent / os.fsdecode(song)).resolve() for song in marked]


def song_count(playlist):
    return playlist.read_bytes().count(b".mp3") if playlist.exists() else 0


def table_of(file):
    """The names and scores of a table, best first."""
    lines = file.read_text(encoding="cp1252").splitlines() if file.exists() else []
    return [(name, int(score)) for name, score in zip(lines[0::3], lines[1::3])]
