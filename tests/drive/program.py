"""The program, used by hand: the bus tells where to point the mouse."""

import os
import re
import subprocess
import sys
from contextlib import contextmanager
from pathlib import Path

import hand
from files import copy_program
from reader import LIMIT, Reader, box_of, children, has_state, is_active, text_of
from stage import open_stage
from windows import Windows

FRAME = (255, 221, 120)  # around the control that has the keyboard focus


class Program(Reader):
    def __init__(self, stage, folder, data=None):
        """What it writes lies in `data`, which is the same folder unless it is installed."""
        self.stage = stage
        self.screen = stage.screen
        self.data = data or folder
        self.windows = Windows()
        # From elsewhere, as nothing may depend on the current folder.
        super().__init__(lambda: subprocess.Popen([folder / "songrush"], cwd="/"))

    def __exit__(self, error, *_):
        if error and self.stage.failure:
            self.screen.image().save(self.stage.failure)
            print(f"The display then: {self.stage.failure}", file=sys.stderr)
        super().__exit__(error, *_)

    def place(self, item):
        return box_of(item).scaled(self.scale())

    def scale(self):
        """Pixels of the screen for one of the program's, which the bus counts in."""
        shown = [w for top in self.tops() for w in children(top) if has_state(w, "SHOWING")]
        return self.windows.widest() / max(box_of(window).width for window in shown)

    def ready(self, name, role="push button"):
        """The place of a control that takes mouse and keys and looks as it will."""
        def active():
            item = self.seen(name, role)
            return item and is_active(item) and self.windows.widest() and self.place(item)
        place = self.wait(f"the active {role} {name!r}", active)
        self.screen.settle(place)
        return place

    def changes(self, place, act):
        """Does what must change the look of a place."""
        before = self.screen.pixels(place)
        act()
        self.wait("another look", lambda: (self.screen.pixels(place) != before).any())
        self.screen.settle(place)

    def hover(self, name, role="push button"):
        place = self.ready(name, role)
        self.changes(place, lambda: hand.move_to(*place.aside))
        return place

    def click(self, name, role="push button"):
        hand.click_at(self.ready(name, role))

    def focused(self, name, role="push button"):
        """Waits until a control has the keyboard focus, in sight."""
        def framed():
            item = self.seen(name, role)
            return (item and has_state(item, "FOCUSED")
                    and (self.screen.pixels(self.place(item)) == FRAME).all(2).any())
        self.wait(f"the frame of {name!r}", framed)

    def tab_to(self, name, role="push button"):
        self.ready(name, role)
        for _ in range(16):
            if has_state(self.find(name, role), "FOCUSED"):
                return
            hand.key("Tab")
            self.screen.settle()
        raise AssertionError(f"the Tab key does not lead to {name}")

    def move_away(self):
        """To where the mouse disturbs no button."""
        hand.move_to(*(round(value * self.scale()) for value in (60, 300)))

    def places_of_texts(self):
        """With the texts and their roles."""
        texts = []
        for item in self.texts():
            place = self.place(item)
            texts.append({"text": text_of(item), "role": item.get_role_name(), "box": place})
            if item.get_role_name() == "table column header" and item.get_description():
                below = place._replace(top=place.top + place.height, height=place.height * 3 // 4)
                texts.append({**texts[-1], "text": item.get_description(), "box": below})
        return texts

    # The editor's list of songs.

    def song_lines(self):
        return self.find("Songs", "table").get_table_iface().get_n_rows()

    def click_on_line(self, line, times=1):
        """Counted from 0; it must be in sight."""
        self.ready("Songs", "table")
        cell = self.find("Songs", "table").get_table_iface().get_accessible_at(line, 0)
        hand.click_at(self.place(cell), times)

    def click_on_header(self, name):
        table = self.find("Songs", "table")
        columns = range(table.get_table_iface().get_n_columns())
        header = next(h for h in map(table.get_child_at_index, columns) if h.get_name() == name)
        hand.click_at(self.place(header))

    # Messages and dialogs.

    def message(self, pattern, title="Songrush"):
        """Waits for a message with that title and text."""
        self.ready(title, "alert")
        return self.find(re.compile(pattern, re.DOTALL), "label")

    def answer(self, pattern, key="Return", title="Songrush"):
        """Waits for a message and closes it by a key."""
        self.message(pattern, title)
        hand.key(key)
        self.gone(title, "alert")

    def enter_path(self, title, path):
        """Types a path, or cancels without one, in the system's dialog of that title."""
        self.ready(title, "dialog")
        if path:
            hand.write(str(path))
        hand.key("Return" if path else "Escape")

    def choose_file(self, title, path=None):
        """The same, and waits for the dialog's end."""
        self.enter_path(title, path)
        self.gone(title, "dialog")

    # The process.

    def ended(self, status=0):
        """Waits for the program's end."""
        assert self.process.wait(LIMIT) == status, f"the program ended with {self.process.returncode}"

    def playing(self):
        """The song that the program has open."""
        def songs():
            files = {Path(os.readlink(link)) for link in
                     Path(f"/proc/{self.process.pid}/fd").iterdir() if link.is_symlink()}
            return [file for file in files if file.suffix == ".mp3"]
        return self.wait("the song", lambda: songs() if len(songs()) == 1 else None)[0]


@contextmanager
def open_program(folder, *display, scale=1, with_songs=False, failure=None):
    """A copy of the one in that folder, on a stage of its own, where the system has that scale."""
    with open_stage(*display, failure=failure) as stage:
        if scale != 1:
            os.environ["QT_SCALE_FACTOR"] = str(scale)
        copy = copy_program(Path(folder).resolve(), stage.folder / "program", with_songs)
        with Program(stage, copy) as program:
            yield program
