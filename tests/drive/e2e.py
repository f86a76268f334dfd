#!/usr/bin/python3
"""e2e.py <program folder> [case]
Runs the real program on virtual displays. Every case has its own display, home and copy of the
program folder; two cases run at a time."""

import re
import shutil
import signal
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import hand
import numpy
from files import copy_program, played, song_count, table_of
from game import CREATE, PLAYLIST, QUICKPLAY, Game, Keys, choose_game, choose_list
from program import Program
from sound import Sound
from stage import open_stage

CASES = {}


def case(*arguments, display=(1024, 768)):
    """Makes a function a case, or several of it, one for each tuple of arguments; the first of them
    tells it from the others."""
    def add(function):
        for given in arguments or [()]:
            name = "_".join([function.__name__, *given[:1]])
            CASES[name] = (lambda scene, given=given: function(scene, *given), display)
        return function
    return add


class Scene:
    """Where a case plays."""

    def __init__(self, stage, original):
        self.stage = stage
        self.original = original
        self.folder = copy_program(original, stage.folder / "program")
        self.list = self.folder / "PlayList/Sample.m3u"
        self.table = self.folder / "H1.dat"

    def start(self):
        return self.stage.enter_context(Program(self.stage, self.folder))

    def go_to(self, screen):
        program = self.start()
        program.ready("One player")
        if screen == "editor":
            program.click("Playlist editor")
            program.ready("Songs", "table")
        elif screen != "menu":
            next(reached for reached in self.way(program) if reached == screen)
        return program

    def way(self, program):
        """Through the screens of a game, one after the other."""
        program.click("One player")
        program.ready("Betting")
        yield "second_stage"
        program.click("Normal Play")
        program.ready(CREATE)
        yield "chooser"
        choose_list(program, program.click, self.list)
        self.game = Game(program, program.click)
        for turn in self.game.turns():
            program.ready("Play")
            yield f"question_{turn + 1}"
            self.game.start_clip()
            yield f"clip_{turn + 1}"
            self.game.answer()
            program.ready("Continue")
            yield f"result_{turn + 1}"
            self.game.go_on()
        self.game.see_scores()
        yield "scores"
        self.game.enter_names()
        program.ready("Continue")
        yield "high_scores"

    def close(self, program):
        program.click("Close")
        program.ended()

    def expect(self, marks, has_table):
        """The songs marked as played, and whether the game's score is in the table."""
        assert played(self.list) == marks, f"{played(self.list)} songs are marked as played"
        assert self.table.exists() == has_table, "the table should" + " not" * (not has_table)
        if has_table:
            assert table_of(self.table)[0][1] == self.game.scores[0], table_of(self.table)


# What leaves the program at a screen: songs then marked as played, and whether there is a table of
# high scores.

@case(("menu", 0, False), ("editor", 0, False), ("second_stage", 0, False), ("chooser", 0, False),
      ("question_1", 1, False), ("clip_1", 1, False), ("result_1", 1, False), ("scores", 6, False),
      ("high_scores", 6, True))
def the_close_button_ends(scene, screen, marks, has_table):
    scene.close(scene.go_to(screen))
    scene.expect(marks, has_table)


@case(("menu", 0, False), ("chooser", 0, False), ("clip_1", 1, False), ("high_scores", 6, True))
def a_window_manager_closes(scene, screen, marks, has_table):
    program = scene.go_to(screen)
    program.windows.ask_to_close("Songrush")
    program.ended()
    scene.expect(marks, has_table)


@case(("editor", 0, False), ("clip_1", 1, False), ("scores", 6, False), ("high_scores", 6, True))
def a_termination_ends(scene, screen, marks, has_table):
    program = scene.go_to(screen)
    program.process.send_signal(signal.SIGTERM)
    program.ended()
    scene.expect(marks, has_table)


@case()
def a_termination_ends_an_open_message(scene):
    program = scene.go_to("chooser")
    program.click(PLAYLIST)
    program.choose_file("Load Playlist")
    program.message("No Playlist was selected.*")
    program.process.send_signal(signal.SIGTERM)
    program.ended()


@case()
def what_is_typed_ahead_of_the_title_dialog_stays_out_of_the_list(scene):
    def leave_title_dialog():
        program.ready("Song Title", "text")
        hand.key("Escape")
        program.gone("Song Title", "text")
    program = scene.go_to("editor")
    program.click("Load PlayList")
    program.choose_file("Load Playlist", scene.list)
    program.click_on_line(1)
    program.ready("Songs", "table")
    program.process.send_signal(signal.SIGSTOP)
    hand.key("Return", "Delete")
    program.process.send_signal(signal.SIGCONT)
    leave_title_dialog()
    program.click_on_line(2, times=2)
    leave_title_dialog()
    program.click("Save PlayList")
    copy = scene.folder / "PlayList/All.m3u"
    program.choose_file("Save Playlist", copy)
    program.wait("the copy", lambda: copy.exists() and song_count(copy) == song_count(scene.list))
    scene.close(program)


@case()
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


@case()
def a_killed_copy_does_not_stop_the_next(scene):
    program = scene.go_to("clip_1")
    program.process.kill()
    program.ended(-signal.SIGKILL)
    assert not scene.go_to("menu").all("alert"), "there is a message"


@case()
def a_moved_program_is_remembered(scene):
    scene.close(scene.go_to("menu"))
    scene.folder = scene.folder.rename(scene.stage.folder / "moved here, to a longer name")
    scene.go_to("menu")
    settings = scene.stage.settings.read_text()
    assert re.search(f"^AppPath=.*{scene.folder}", settings, re.M), f"another folder: {settings}"


@case(display=(1700, 1300))
def a_chosen_window_size_is_kept(scene):
    def shown_at(percent):
        program.wait(f"{percent} %", lambda: program.windows.widest() == 8 * percent)
        program.ready("One player")
    program = scene.go_to("menu")
    program.click("Window size 200 %")
    shown_at(200)
    program.click("One player")
    program.click("Back")
    program.click("Window size 150 %")
    shown_at(150)
    hand.key("ctrl+plus")
    shown_at(200)
    for percent in (200, 100):
        program.click(f"Window size {percent} %")
        shown_at(percent)
        scene.close(program)
        program = scene.go_to("menu")
        shown_at(percent)


@case()
def a_window_size_that_does_not_fit_is_reduced(scene):
    scene.stage.settings.parent.mkdir()
    scene.stage.settings.write_text("[Window]\nSize=200\nLastSize=200\n")
    program = scene.go_to("menu")
    assert program.windows.widest() == 800
    scene.close(program)
    settings = scene.stage.settings.read_text()
    assert "\nSize=200" in settings, f"the choice is lost: {settings}"
    assert "\nLastSize=100" in settings, "the next start takes a detour"


@case(display=(3840, 2160))
def a_large_screen_gets_large_windows(scene):
    program = scene.go_to("menu")
    assert program.windows.widest() == 1600
    scene.close(program)


@case()
def missing_pictures_are_told_once(scene):
    shutil.rmtree(scene.folder / "Images")
    program = scene.start()
    program.answer(".*Back.bmp.*")
    program.click("One player")
    program.click("Back")
    program.ready("One player")
    assert not program.all("alert"), "there is another message"
    scene.close(program)


@case()
def a_table_that_cannot_be_written_is_told_once(scene):
    scene.table.symlink_to("no such folder/H1.dat")
    program = scene.go_to("high_scores")
    program.click("Continue")
    program.answer("Error Writing High Scores.")
    program.ready("One player")
    program.screen.settle(looks=3)
    assert not program.all("alert"), "there is another message"
    scene.close(program)
    scene.expect(6, has_table=False)


@case()
def a_clip_is_heard_until_it_is_over(scene):
    sound = Sound(scene.stage)
    program = scene.go_to("menu")
    choose_game(program.click, players=2, betting=True)
    choose_list(program, program.click, scene.list)
    game = Game(program, program.click, betting=True, players=2)
    game.begin()
    game.bet("2")
    assert not sound.samples().any(), "something is heard before the clip"
    game.start_clip()
    program.announced(r"The clip is over\.")
    program.wait("silence", lambda: not sound.samples()[-4000:].any())
    heard = abs(sound.samples()).max(1)
    assert heard.max() > 0.1, f"the loudest sample is {heard.max()}"
    assert numpy.diff(numpy.flatnonzero(heard > 0.01)).max() < 40000, "the clip has a hole"


# Whole games by keys alone; the mouse is out of the window all the time. The first bet and answer
# are given on their buttons, the others by digits.

def play_by_keys(scene, program, **kind):
    program.focused(QUICKPLAY)
    hand.key("Down")
    program.focused(PLAYLIST)
    hand.key("Return")
    program.choose_file("Load Playlist", scene.list)
    keys = Keys(program)
    game = keys.game = Game(program, keys, **kind)
    for turn in game.turns():
        keys.by_digits = turn > 0
        if game.betting:
            game.bet("5" if turn else "2")
        game.start_clip()
        program.focused(game.choices[1])
        game.answer(right=turn % 3 != 1)
        game.go_on()
    game.end()
    program.focused("One player")
    hand.key("Escape")
    program.ended()


@case()
def normal_play_needs_no_mouse(scene):
    program = scene.go_to("menu")
    hand.move_to(1000, 740)
    hand.key("Tab")
    for button, key in (("One player", "Return"), ("Normal Play", "Down"), ("Betting", "Up"),
                        ("Normal Play", "space")):
        program.focused(button)
        hand.key(key)
    play_by_keys(scene, program)


@case()
def betting_needs_no_mouse(scene):
    program = scene.go_to("menu")
    hand.move_to(1000, 740)
    hand.key("Tab")
    for button, key in (("One player", "Down"), ("Several players", "Return")):
        program.focused(button)
        hand.key(key)
    program.ready(re.compile(r"\d+"), "combo box")
    hand.key("Down", "Up", "Tab")  # in the list of players, back to two, and on
    for button, key in (("Normal Play", "Down"), ("Betting", "Return")):
        program.focused(button)
        hand.key(key)
    play_by_keys(scene, program, betting=True, players=2)


def run_case(name):
    function, display = CASES[name]
    with open_stage(*display) as stage:
        function(Scene(stage, Path(sys.argv[1]).resolve()))


def run_alone(name):
    """In a process of its own."""
    run = subprocess.run([sys.executable, *sys.argv, name], capture_output=True, text=True,
                         check=False)
    print("FAILED" if run.returncode else "passed", name, flush=True)
    if run.returncode:
        print(run.stdout + run.stderr, flush=True)
    return run.returncode == 0


if len(sys.argv) == 3:
    run_case(sys.argv[2])
else:
    with ThreadPoolExecutor(2) as pool:
        results = list(pool.map(run_alone, CASES))
    print(f"{results.count(True)} passed, {results.count(False)} failed")
    sys.exit(not all(results))
