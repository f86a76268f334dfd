"""The program, used by hand: the bus tells where to point the mouse."""

import re
import subprocess

import hand
from files import played
from reader import LIMIT, Atspi, Reader, above, has_state, is_usable
from screen import Box

FRAME = (255, 221, 120)  # around the control that has the keyboard focus
TEXT_ROLES = ("label", "push button", "text", "combo box", "table cell", "table column header")


class Program(Reader):
    def __init__(self, stage, folder, data=None):
        """Runs until its stage ends. It writes into `data`, by default its own folder."""
        self.stage = stage
        self.screen = stage.screen
        self.data = data or folder
        # Started from elsewhere: nothing may depend on the current folder.
        super().__init__(lambda: subprocess.Popen([folder / "songrush"], cwd="/"))
        stage.callback(self.stop)

    def place(self, item):
        box = item.get_extents(Atspi.CoordType.SCREEN)
        return Box(box.x, box.y, box.width, box.height)

    def places_of_texts(self):
        """The texts that can be read, with their roles and places, without those that a dialog may
        cover. The facts in a header's text, except the sort order, are shown below it."""
        texts = []
        dialogs = [(dialog, self.place(dialog)) for dialog in self.all("dialog")]
        for item in self.showing():
            role, box, name = item.get_role_name(), self.place(item), item.get_name()
            text = Atspi.Text.get_text(item, 0, -1) if role == "text" else name
            if role not in TEXT_ROLES or not text or not is_usable(item) or any(
                    place.meets(box) for dialog, place in dialogs if dialog not in above(item)):
                continue
            texts.append((text, role, box))
            facts = re.sub("(^|, )sorted .*", "", item.get_description() or "")
            if role == "table column header" and facts:
                below = box._replace(top=box.top + box.height, height=box.height * 4 // 5)
                texts.append((facts, "label", below))
        return texts

    def ready(self, name, role="push button"):
        """The place of a control, once it takes mouse and keys and has its final look."""
        def usable():
            item = self.seen(name, role)
            return item and is_usable(item) and self.place(item)
        place = self.wait(f"the usable {role} {name!r}", usable)
        self.screen.settle(place)
        return place

    def changes(self, place, act):
        """Does something that must change the look of a place."""
        before = self.screen.pixels(place)
        act()
        self.wait("another look", lambda: (self.screen.pixels(place) != before).any())
        self.screen.settle(place)

    def click(self, name, role="push button", times=1):
        hand.click(self.ready(name, role), times)

    def focus(self):
        """The name of the control that visibly has the keyboard focus."""
        def framed():
            for item in self.showing():
                if has_state(item, "FOCUSED") and (
                        item.get_role() != Atspi.Role.PUSH_BUTTON
                        or (self.screen.pixels(self.place(item)) == FRAME).all(2).any()):
                    return item.get_name() or "nameless"
            return None
        return self.wait("the frame of the focus", framed)

    def tab_to(self, name):
        self.ready(name)
        for _ in range(16):
            at = self.focus()
            if at == name:
                return
            hand.key("Tab")
            self.wait(f"the focus beyond {at!r}", lambda: self.focus() != at)
        raise AssertionError(f"the Tab key does not lead to {name}")

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

    def ended(self, status=0):
        """Waits for the program's end."""
        ended = self.process.wait(LIMIT)
        assert ended == status, f"the program ended with {ended}"

    def noted(self):
        """The songs of the present game, as they are noted until it ends."""
        journals = (self.data / "PlayList").glob(".played-*")
        newest = max(journals, key=lambda journal: journal.stat().st_mtime, default=None)
        return played(newest) if newest else []
