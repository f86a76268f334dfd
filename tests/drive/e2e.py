#!/usr/bin/python3
"""e2e.py <program folder> [case...]
Runs the real program on virtual displays. Every case has its own display, home and copy of the
program folder, and a process of its own; two run at a time."""

import os
import re
import signal
import sys
import traceback
from functools import partial
from multiprocessing import Pool
from pathlib import Path

import hand
import numpy
import walk
from game import Game
from program import Program, copy_program, place_of, played, song_count, table_of
from stage import Stage

ORIGINAL = Path(sys.argv[1]).resolve()
# Written when the program is left in order, which it is not where a signal's alarm must end it.
WRITTEN_AT_END = {"Place", "FullScreen", "Volume", "Muted"}
TEMPORARY = re.compile(r"\.(tmp|new|lock)$|/\.played-|^tmp/")
# Where the desktop's session ends, by ways, and how many songs are kept of an unsaved list.
ENDINGS = {
    "second_stage": {"menu": 0, "second stage": 0, "list of players": 0},
    "chooser": {"chooser": 0, "file dialog": 0, "no playlist selected": 0, "searching": 0,
                "no song titles": 0, "loading": 0},
    "editor": {"editor": 0, "editor filled": 23, "editor's menu": 23,
               "title dialog with a long text": 18, "preview wound": 18, "not saved": 18,
               "editor's save dialog": 18, "editor saved": 0},
    "playing": {"question 1": 0, "clip 1": 0, "result 1": 0, "name 1": 0},
    "betting": {"bet 1": 0, "scores": 0, "name 2": 0, "table": 0},
    "high_scores": {"high scores": 0}}


class Scene:
    """What a case works with."""

    def __init__(self, stage):
        self.stage = stage
        self.folder = copy_program(ORIGINAL, stage.folder / "program")
        self.list = self.folder / "PlayList/Sample.m3u"

    def start(self):
        program = Program(self.stage, self.folder)
        self.game = Game(program)  # not begun
        program.ready("One player")
        return program

    def stops(self, program, way):
        """All screens on a way."""
        yield "menu"
        if way in ("playing", "betting"):
            betting = way == "betting"
            self.game = Game(program, betting, players=1 + betting)
            self.game.choose(self.list)
            yield from self.game.moments()
        else:
            yield from getattr(walk, way)(program)

    def contents(self):
        """Every setting of the program, and the size and time of every file."""
        settings = self.stage.folder / "config/Songrush/Songrush.conf"
        contents = dict(re.findall("(.+?)=(.*)", settings.read_text()))
        for name in ("program", "second", "tmp"):
            for file in filter(Path.is_file, (self.stage.folder / name).rglob("*")):
                stat = file.stat()
                contents[str(file.relative_to(self.stage.folder))] = stat.st_size, stat.st_mtime_ns
        return contents

    def end_session(self, program, unsaved=0):
        """Ends the program as the desktop does. It keeps the songs asked so far, the names entered
        and a copy of an unsaved list with so many songs, but invents and leaves nothing."""
        turn = self.game.turn
        program.wait("notes of all turns", lambda: len(program.noted()) == turn)
        program.process.send_signal(signal.SIGSTOP)  # it must not go on while it is looked at
        noted, before = program.noted(), self.contents()
        os.sync()  # a disk that is still busy could hold up the end for longer than is waited
        program.process.terminate()
        program.process.send_signal(signal.SIGCONT)
        program.ended()
        after = self.contents()
        assert WRITTEN_AT_END <= after.keys(), "it did not end in time"
        changed = {name for name, _ in before.items() ^ after.items()} - WRITTEN_AT_END
        expected = (r"program/(\.unsaved.m3u|.*\.tmp"
                    + r"|H[12].dat|PlayList/(Sample.m3u|\.played-.*)" * bool(turn) + ")")
        strange = [name for name in changed if not re.fullmatch(expected, name)]
        strange += filter(TEMPORARY.search, after)
        assert not strange, f"changed or left: {strange}"
        marked = played(self.list)
        assert sorted(marked) == sorted(noted), f"marked are {marked} instead of {noted}"
        rows = table_of(self.folder / "H1.dat") + table_of(self.folder / "H2.dat")
        assert [row for row in rows if row[1]] == self.game.entered, f"there are {rows}"
        assert song_count(self.folder / ".unsaved.m3u") == unsaved, "another list is kept"


def end_at(way, stop, unsaved, scene):
    program = scene.start()
    stops = scene.stops(program, way)
    assert stop in stops, f"the way does not lead to {stop}"
    if stop.startswith("name"):
        hand.write("Half a name")
    scene.end_session(program, unsaved)


def test_the_desktops_dialog_loads_a_list_that_keys_typed_ahead_leave_alone(scene):
    def open_dialog():
        program.click("Load PlayList")
        program.find("Load Playlist", "file chooser")
        program.settle()
    os.environ["QT_QPA_PLATFORMTHEME"] = "gtk3"
    program = scene.start()
    program.click("Playlist editor")
    open_dialog()
    hand.key("Return")  # the first file, the only one, is selected
    program.announced(rf"{song_count(scene.list)} songs\.", skip=True)
    program.click("Canon in D", "table cell")
    program.process.send_signal(signal.SIGSTOP)
    hand.key("Return", "Delete")
    program.process.send_signal(signal.SIGCONT)
    program.ready("Song Title", "text")
    hand.key("Escape")
    program.gone("Song Title", "text")
    open_dialog()
    scene.end_session(program)


def test_the_session_ends_at_the_offer_of_an_unsaved_list(scene):
    (scene.folder / ".unsaved.m3u").write_bytes(scene.list.read_bytes())
    program = scene.start()
    program.click("Playlist editor")
    program.message("A new list was not saved.*")
    scene.end_session(program, unsaved=song_count(scene.list))


def test_a_second_copy_only_says_so_and_a_killed_one_stops_no_other(scene):
    first = scene.start()
    second_folder = copy_program(ORIGINAL, scene.stage.folder / "second")
    before = scene.contents()
    second = Program(scene.stage, second_folder)
    second.answer("Songrush is already running")
    second.ended()
    assert scene.contents() == before, "the second copy changed settings or files"
    assert first.seen("One player"), "the menu of the first copy is gone"
    first.process.kill()
    first.process.wait()
    assert not scene.start().all("alert"), "there is a message"


def test_size_and_full_screen_are_kept_in_a_folder_that_moves(scene):
    def shown_at(width):
        program.wait(f"a width of {width}",
                     lambda: program.screen.pixels().any((0, 2)).sum() == width)
        program.ready("One player")
    program = scene.start()
    program.click("100 %")
    shown_at(800)
    hand.key("F11")
    shown_at(1600)
    program.click("Close")
    program.ended()
    scene.folder = scene.folder.rename(scene.stage.folder / "moved")
    program = scene.start()
    shown_at(1600)
    assert scene.contents()["AppPath"] == str(scene.folder), "it has not seen that it moved"
    program.click("Full screen")
    shown_at(800)


def test_a_clip_is_heard_until_it_is_over(scene):
    def samples():
        return abs(numpy.fromfile(sound, numpy.float32))
    sound = scene.stage.folder / "sound"
    sound.touch()
    os.environ.update(SDL_AUDIODRIVER="disk", SDL_DISKAUDIOFILE=str(sound))
    game = Game(scene.start(), betting=True, players=2)
    game.choose(scene.list)
    moments = game.moments(late=[1])
    assert "question 1" in moments and not samples().any(), "something is heard before the clip"
    assert "late 1" in moments
    game.program.wait("silence", lambda: not samples()[-200:].any())
    heard = samples()
    assert heard.max() > 0.1, f"the loudest sample is {heard.max()}"
    assert numpy.diff(numpy.flatnonzero(heard > 0.01)).max() < 80000, "the clip has a hole"


def test_wayland_and_a_screen_reader_are_enough(scene):
    scene.stage.start_compositor()
    program = scene.start()
    game = Game(program, betting=True, players=2)
    game.use = program.press
    game.choose(scene.list)
    game.play(wrong=[2, 4], hints=[3], late=[1])
    program.press("Playlist editor")
    program.press("Load PlayList")
    program.choose_file("Load Playlist", scene.list)
    program.press("Für Elise", "table cell")
    program.ready("Song Title", "text")
    hand.key("F11")
    program.wait("the full screen", lambda: place_of(program.find("Songs", "table"))[2] > 1200)
    hand.key("Escape")
    program.gone("Song Title", "text")
    hand.key("Escape")
    program.ended()


CASES = {re.sub(r"\W", "_", f"the session ends at {stop}"): partial(end_at, way, stop, unsaved)
         for way, stops in ENDINGS.items() for stop, unsaved in stops.items()}
CASES.update((name.removeprefix("test_"), function) for name, function in list(globals().items())
             if name.startswith("test_"))


def run(name):
    try:
        with Stage(1600, 1200) as stage:
            CASES[name](Scene(stage))
    except Exception:
        print(f"FAILED {name}\n{traceback.format_exc()}", flush=True)
        return False
    print(f"passed {name}", flush=True)
    return True


with Pool(2, maxtasksperchild=1) as pool:
    sys.exit(not all(pool.map(run, sys.argv[2:] or CASES, chunksize=1)))
