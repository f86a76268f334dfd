#!/usr/bin/python3
"""e2e.py <program folder> [case...]
Runs the real program on virtual displays. Every case has its own display, home and copy of the
program folder, and a process of its own; two run at a time."""

import os
import re
import signal
import sys
import traceback
from configparser import ConfigParser
from functools import partial
from multiprocessing import Pool
from pathlib import Path

import hand
import numpy
import walk
from files import copy_program, played, song_count, table_of
from game import Game, ReadersGame
from program import Program
from reader import Atspi
from stage import Stage

CASES = {}
# Written when the program is left in order, which it is not where a signal's alarm must end it.
WRITTEN_AT_END = {"Window/place", "Window/fullscreen", "Sound/volume", "Sound/muted"}
TEMPORARY = re.compile(r"\.(tmp|new|lock)$|/\.played-|^tmp/")


def case(function):
    CASES[function.__name__] = function
    return function


class Scene:
    """What a case works with."""

    def __init__(self, stage):
        self.stage = stage
        self.original = Path(sys.argv[1]).resolve()
        self.folder = copy_program(self.original, stage.folder / "program")
        self.list = self.folder / "PlayList/Sample.m3u"
        self.game = None  # that is being played

    def start(self):
        return Program(self.stage, self.folder)

    def menu(self):
        program = self.start()
        program.ready("One player")
        return program

    def stops(self, program, way):
        """All screens on a way."""
        yield "menu"
        if way == "playing":
            self.game = Game(program)
        elif way == "betting":
            self.game = Game(program, betting=True, players=2)
        else:
            yield from getattr(walk, way)(program)
        if self.game:
            self.game.choose(self.list)
            yield from self.game.moments()

    def contents(self):
        """Every setting of the program, and the size and time of every file."""
        settings = ConfigParser(interpolation=None)
        settings.read(self.stage.settings)
        files = (file for name in ("program", "second", "tmp")
                 for file in (self.stage.folder / name).rglob("*") if file.is_file())
        return {**{f"{section}/{key}": value for section, values in settings.items()
                   for key, value in values.items()},
                **{str(file.relative_to(self.stage.folder)):
                   (file.stat().st_size, file.stat().st_mtime_ns) for file in files}}

    def end_session(self, program, unsaved=0):
        """Ends the program as the desktop does. It keeps the songs asked so far, the names entered
        and a copy of an unsaved list with so many songs, but invents and leaves nothing."""
        game = self.game or Game(program)  # one that has not begun
        program.wait("notes of all turns", lambda: len(program.noted()) == game.turn)
        noted, before = program.noted(), self.contents()
        os.sync()  # a disk that is still busy could hold up the end for longer than is waited
        program.process.terminate()
        program.ended()
        after = self.contents()
        assert WRITTEN_AT_END <= after.keys(), "it did not end in time"
        changed = {name for name, _ in before.items() ^ after.items()} - WRITTEN_AT_END
        expected = (r"program/(\.unsaved.m3u|.*\.tmp"
                    + r"|H[12].dat|PlayList/(Sample.m3u|\.played-.*)" * bool(game.turn) + ")")
        strange = [name for name in changed if not re.fullmatch(expected, name)]
        strange += filter(TEMPORARY.search, after)
        assert not strange, f"changed or left: {strange}"
        marked = played(self.list)
        assert sorted(marked) == sorted(noted), f"marked are {marked} instead of {noted}"
        rows = [row for name in ("H1.dat", "H2.dat") for row in table_of(self.folder / name)]
        assert [row for row in rows if row[1]] == game.entered, f"{rows}, not {game.entered}"
        copy = self.folder / ".unsaved.m3u"
        assert (song_count(copy) if copy.exists() else 0) == unsaved, "another list is kept"


def end_at(way, stop, unsaved, scene):
    program = scene.menu()
    stops = scene.stops(program, way)
    while next(stops) != stop:
        pass
    if stop.startswith("name"):
        hand.write("Half a name")
    scene.end_session(program, unsaved)


# Where the desktop's session ends, on which way, and how many songs are kept of an unsaved list.
for ending in (
        ("second_stage", "menu", 0), ("second_stage", "second stage", 0),
        ("second_stage", "list of players", 0), ("chooser", "chooser", 0),
        ("chooser", "file dialog", 0), ("chooser", "no playlist selected", 0),
        ("chooser", "searching", 0), ("chooser", "no song titles", 0), ("chooser", "loading", 0),
        ("editor", "editor", 0), ("editor", "editor filled", 23), ("editor", "editor's menu", 23),
        ("editor", "title dialog with a long text", 18), ("editor", "preview wound", 18),
        ("editor", "not saved", 18), ("editor", "editor's save dialog", 18),
        ("editor", "editor saved", 0), ("playing", "question 1", 0), ("playing", "clip 1", 0),
        ("playing", "result 1", 0), ("playing", "name 1", 0), ("betting", "bet 1", 0),
        ("betting", "scores", 0), ("betting", "name 2", 0), ("betting", "table", 0),
        ("high_scores", "high scores", 0)):
    CASES[re.sub("[^a-z0-9]", "_", f"the session ends at {ending[1]}")] = partial(end_at, *ending)


@case
def the_desktops_dialog_loads_a_list_that_keys_typed_ahead_leave_alone(scene):
    def open_dialog():
        program.click("Load PlayList")
        program.find("Load Playlist", "file chooser")
        program.screen.settle()
    os.environ["QT_QPA_PLATFORMTHEME"] = "gtk3"
    program = scene.menu()
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


@case
def the_session_ends_at_the_offer_of_an_unsaved_list(scene):
    (scene.folder / ".unsaved.m3u").write_bytes(scene.list.read_bytes())
    program = scene.menu()
    program.click("Playlist editor")
    program.message("A new list was not saved.*")
    scene.end_session(program, unsaved=song_count(scene.list))


@case
def a_second_copy_only_says_so_and_a_killed_one_stops_no_other(scene):
    first = scene.menu()
    scene.folder = copy_program(scene.original, scene.stage.folder / "second")
    before = scene.contents()
    second = scene.start()
    second.answer("Songrush is already running")
    second.ended()
    assert scene.contents() == before, "the second copy changed settings or files"
    assert first.seen("One player"), "the menu of the first copy is gone"
    first.process.kill()
    first.ended(-signal.SIGKILL)
    assert not scene.menu().all("alert"), "there is a message"


@case
def size_full_screen_and_place_are_kept(scene):
    def width():
        shown = numpy.flatnonzero(program.screen.pixels().any((0, 2)))
        return shown[-1] - shown[0] + 1 if shown.size else 0

    def shown_at(pixels):
        program.wait(f"a width of {pixels}", lambda: width() == pixels)
        program.ready("One player")

    def restarted():
        program.click("Close")
        program.ended()
        scene.folder = scene.folder.rename(scene.folder.with_name(f"{scene.folder.name} moved"))
        return scene.start()
    program = scene.menu()
    program.click("100 %")
    shown_at(800)
    program = restarted()
    shown_at(800)
    hand.key("F11")
    shown_at(1600)
    program = restarted()
    shown_at(1600)
    assert str(scene.folder) in scene.contents()["Dirs/apppath"], "it has not seen that it moved"
    program.click("Full screen")
    shown_at(800)


@case
def a_clip_is_heard_until_it_is_over(scene):
    def samples():
        """The frames, each a row of left and right from -1 to 1."""
        values = numpy.fromfile(sound, numpy.float32) if sound.exists() else numpy.zeros(0)
        return values[:len(values) // 2 * 2].reshape(-1, 2)
    sound = scene.stage.folder / "sound"
    os.environ.update(SDL_AUDIODRIVER="disk", SDL_DISKAUDIOFILE=str(sound))
    game = Game(scene.menu(), betting=True, players=2)
    game.choose(scene.list)
    for moment in game.moments(late=[1]):
        if moment == "question 1":
            assert not samples().any(), "something is heard before the clip"
        elif moment == "late 1":
            break
    game.program.wait("silence", lambda: not samples()[-100:].any())
    heard = abs(samples()).max(1)
    assert heard.max() > 0.1, f"the loudest sample is {heard.max()}"
    assert numpy.diff(numpy.flatnonzero(heard > 0.01)).max() < 40000, "the clip has a hole"


@case
def wayland_and_a_screen_reader_are_enough(scene):
    scene.stage.start_compositor()
    program = scene.start()
    game = ReadersGame(program, betting=True, players=2)
    game.choose(scene.list)
    game.play(wrong=[2, 4], hints=[3], late=[1])
    program.press("Playlist editor")
    program.press("Edit Title/Artist")
    program.answer("No songs in list")
    program.press("Load PlayList")
    program.choose_file("Load Playlist", scene.list)
    program.press("Für Elise", "table cell")
    program.ready("Song Title", "text")
    hand.key("F11")
    program.wait("the full screen", lambda: program.find("Songs", "table").get_extents(
        Atspi.CoordType.SCREEN).width > 1200)
    hand.key("Escape")
    program.gone("Song Title", "text")
    hand.key("Escape")
    program.ended()


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
