#!/usr/bin/python3
"""e2e.py <program folder> [case...]
Runs the real program on virtual displays. Every case has its own display, home and copy of the
program folder, and a process of its own; two run at a time."""

import os
import re
import shutil
import signal
import sys
import traceback
from functools import partial
from multiprocessing import Pool
from pathlib import Path
from threading import Event, Thread

import hand
import numpy
from files import copy_program, played, song_count, table_of
from game import CREATE, PLAYLIST, Game, KeysGame, ReadersGame
from program import Program
from reader import Atspi
from screen import Box
from stage import Stage

CASES = {}


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
        self.table = self.folder / "H1.dat"

    def start(self):
        return Program(self.stage, self.folder)

    def go_to(self, screen):
        program = self.start()
        next(reached for reached in self.screens(program) if reached == screen)
        return program

    def screens(self, program):
        """Goes through all screens, one after the other, and yields their names."""
        program.ready("One player")
        yield "menu"
        program.click("Playlist editor")
        program.ready("Songs", "table")
        yield "editor"
        program.click("Exit Editor")
        program.click("One player")
        program.ready("Betting")
        yield "second stage"
        program.click("Normal Play")
        program.ready(CREATE)
        yield "chooser"
        program.click(PLAYLIST)
        program.choose_file("Load Playlist")
        program.message("No Playlist was selected.*")
        yield "message"
        hand.key("Return")
        self.game = Game(program)
        self.game.choose_list(self.list)
        yield from self.game.moments()

    def close(self, program):
        program.click("Close")
        program.ended()


LEAVE = {
    "its button": lambda program: program.click("Close"),
    "the window manager": lambda program: hand.ask_to_close("Songrush"),
    "termination": lambda program: program.process.terminate()}


def leave(way, screen, marks, has_table, scene):
    program = scene.go_to(screen)
    LEAVE[way](program)
    program.ended()
    assert played(scene.list) == marks, f"{played(scene.list)} songs are marked as played"
    assert scene.table.exists() == has_table, "the table should" + " not" * (not has_table)
    assert not has_table or table_of(scene.table)[0][1] == scene.game.scores[0]


# How the program is left and where, how many songs are then marked as played, and whether there is
# a table of high scores.
for leaving in (("the window manager", "menu", 0, False),
                ("termination", "editor", 0, False),
                ("its button", "second stage", 0, False),
                ("the window manager", "chooser", 0, False),
                ("termination", "message", 0, False),
                ("its button", "question 1", 1, False),
                ("the window manager", "clip 1", 1, False),
                ("termination", "clip 1", 1, False),
                ("its button", "result 1", 1, False),
                ("termination", "scores", 6, False),
                ("its button", "table", 6, True),
                ("termination", "table", 6, True)):
    CASES["{} ends it at {}".format(*leaving).replace(" ", "_")] = partial(leave, *leaving)


@case
def the_desktops_dialog_is_used_and_ended_by_a_termination(scene):
    os.environ["QT_QPA_PLATFORMTHEME"] = "gtk3"
    program = scene.go_to("editor")

    def open_dialog():
        program.click("Load PlayList")
        program.find("Load Playlist", "file chooser")
        program.screen.settle()
    open_dialog()
    hand.key("Return")  # the first file, the only one, is selected
    program.announced(rf"{song_count(scene.list)} songs\.", skip=True)
    open_dialog()
    program.process.terminate()
    program.ended()


@case
def what_is_typed_ahead_of_the_title_dialog_stays_out_of_the_list(scene):
    program = scene.go_to("editor")
    program.click("Load PlayList")
    program.choose_file("Load Playlist", scene.list)
    program.click("Canon in D", "table cell")
    program.process.send_signal(signal.SIGSTOP)
    hand.key("Return", "Delete")
    program.process.send_signal(signal.SIGCONT)
    program.ready("Song Title", "text")
    hand.key("Escape")
    program.click("Save PlayList")
    copy = scene.folder / "PlayList/All.m3u"
    program.choose_file("Save Playlist", copy)
    program.wait("the copy", lambda: copy.exists() and song_count(copy) == song_count(scene.list))


@case
def the_song_list_is_a_table_to_a_screen_reader(scene):
    def titles(rows):
        cells = [table.get_accessible_at(row, 1) for row in rows]
        return [cell.get_name() for cell in cells]
    program = scene.go_to("editor")
    program.click("Load PlayList")
    program.choose_file("Load Playlist", scene.list)
    count = song_count(scene.list)
    program.announced(rf"{count} songs\.", skip=True)
    table = program.find("Songs", "table")
    assert (table.get_n_rows(), table.get_n_columns()) == (count, 3)
    program.click("Canon in D", "table cell")
    with hand.held("ctrl"):
        program.click("Lullaby", "table cell")
    program.wait("two chosen lines", lambda: titles(table.get_selected_rows()) ==
                 ["Canon in D", "Lullaby"])
    program.press("Song Title", "table column header")
    program.announced("Sorted by Song Title, ascending\\.")
    assert program.find("Song Title", "table column header").get_description() == "sorted ascending"
    before = program.wait("sorted titles", lambda: titles(range(count)))
    assert before == sorted(before, key=str.casefold)
    hand.key("alt+Up")
    at = before.index("Canon in D") - 1
    program.wait("both moved", lambda: table.get_selected_rows() == [at, at + 1])
    assert titles([at, at + 1]) == ["Canon in D", "Lullaby"]
    assert not program.find("Song Title", "table column header").get_description()


@case
def a_second_copy_only_says_so(scene):
    def snapshot():
        return {file: (file.stat().st_size, file.stat().st_mtime_ns)
                for name in ("config", "program", "second")
                for file in (scene.stage.folder / name).rglob("*")}
    first = scene.go_to("menu")
    scene.folder = copy_program(scene.original, scene.stage.folder / "second")
    before = snapshot()
    second = scene.start()
    second.answer("Songrush is already running")
    second.ended()
    assert snapshot() == before, "the second copy changed settings or files"
    assert first.seen("One player"), "the menu of the first copy is gone"


@case
def a_killed_copy_does_not_stop_the_next(scene):
    program = scene.go_to("clip 1")
    program.process.kill()
    program.ended(-signal.SIGKILL)
    assert not scene.go_to("menu").all("alert"), "there is a message"


@case
def a_moved_program_is_remembered(scene):
    scene.close(scene.go_to("menu"))
    scene.folder = scene.folder.rename(scene.stage.folder / "moved here, to a longer name")
    scene.go_to("menu")
    settings = scene.stage.settings.read_text()
    assert re.search(f"^AppPath=.*{scene.folder}", settings, re.M), f"another folder: {settings}"


@case
def size_and_full_screen_are_changed_at_once_and_kept(scene):
    def width():
        shown = numpy.flatnonzero(program.screen.pixels().any((0, 2)))
        return shown[-1] - shown[0] + 1 if shown.size else 0

    def shown_at(pixels):
        program.wait(f"a width of {pixels}", lambda: width() == pixels)
        program.ready("One player")
    program = scene.go_to("menu")
    program.click("100 %")
    shown_at(800)
    hand.key("ctrl+plus")
    shown_at(1000)
    scene.close(program)
    program = scene.start()
    shown_at(1000)
    hand.key("F11")
    shown_at(1600)
    scene.close(program)
    program = scene.start()
    shown_at(1600)
    program.click("Full screen")
    shown_at(1000)


@case
def missing_pictures_are_told_once(scene):
    shutil.rmtree(scene.folder / "Images")
    program = scene.start()
    program.answer(".*Back.bmp.*")
    program.click("One player")
    program.click("Back")
    program.ready("One player")
    assert not program.all("alert"), "there is another message"


@case
def a_clip_is_heard_until_it_is_over(scene):
    def samples():
        """The frames, each a row of left and right from -1 to 1."""
        values = numpy.fromfile(sound, numpy.float32) if sound.exists() else numpy.zeros(0)
        return values[:len(values) // 2 * 2].reshape(-1, 2)
    sound = scene.stage.folder / "sound"
    os.environ.update(SDL_AUDIODRIVER="disk", SDL_DISKAUDIOFILE=str(sound))
    program = scene.go_to("menu")
    game = Game(program, betting=True, players=2)
    game.choose(scene.list)
    for moment in game.moments(late=[1]):
        if moment == "question 1":
            assert not samples().any(), "something is heard before the clip"
        elif moment == "late 1":
            break
    program.wait("silence", lambda: not samples()[-100:].any())
    heard = abs(samples()).max(1)
    assert heard.max() > 0.1, f"the loudest sample is {heard.max()}"
    assert numpy.diff(numpy.flatnonzero(heard > 0.01)).max() < 40000, "the clip has a hole"


@case
def a_game_needs_no_mouse(scene):
    program = scene.go_to("menu")
    hand.move_to(1500, 1100)
    game = KeysGame(program)
    game.choose(scene.list)
    game.play(wrong=[2, 5], hints=[3])
    hand.key("Escape")
    program.ended()


def refuse_to_edit_nothing(program):
    program.press("Playlist editor")
    program.press("Edit Title/Artist")
    program.answer("No songs in list")


@case
def the_desktop_never_shows_through(scene):
    """From the menu through a game and the editor and back, the window always covers it."""
    display = hand.Display()
    root = display.screen().root
    magenta = (255, 0, 255)
    root.change_attributes(background_pixel=0xFF00FF)
    root.clear_area()
    display.sync()
    program = scene.go_to("menu")
    looks = []
    over = Event()

    def watch():
        middle = Box(780, 160, 40, 880)
        while not over.wait(0.005):
            looks.append(bool((program.screen.pixels(middle) == magenta).all(2).any()))
    watcher = Thread(target=watch)
    watcher.start()
    game = ReadersGame(program)
    game.choose(scene.list)
    game.play(wrong=[2])
    refuse_to_edit_nothing(program)
    program.press("Exit Editor")
    program.ready("One player")
    over.set()
    watcher.join()
    windows = [window for window in root.query_tree().children
               if window.get_attributes().map_state == hand.X.IsViewable]
    assert len(windows) == 1, f"{len(windows)} windows are open"
    assert not any(looks), f"bare in {sum(looks)} of {len(looks)} looks"


@case
def wayland_is_as_good(scene):
    scene.stage.start_compositor()
    program = scene.start()
    game = ReadersGame(program, players=2)
    game.choose(scene.list)
    game.play(wrong=[2])
    refuse_to_edit_nothing(program)
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


@case
def games_need_no_more_than_a_screen_reader(scene):
    program = scene.go_to("menu")
    for kind, turns in (({}, {"wrong": [2, 4], "hints": [3]}),
                        ({"betting": True, "players": 2}, {"wrong": [4], "late": [1, 2]})):
        game = ReadersGame(program, **kind)
        game.choose(scene.list)
        game.play(**turns)
    program.press("Close")
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
