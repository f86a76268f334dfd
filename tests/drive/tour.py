#!/usr/bin/python3
"""tour.py <program folder> <output folder> [percent]
Plays a whole game of each kind with the real program, by mouse and by keys, on a virtual display,
and leaves a picture of every screen in the output folder, and beside it what is written there.
The percentage is the scale of the system, for which there must be a set of pictures: 100, 150, 200
or 300."""

import re
import sys
import time
from pathlib import Path

import hand
import numpy
from album import Album
from files import song_count
from game import CREATE, PLAYLIST, QUICKPLAY, Game, Keys, choose_game
from PIL import Image
from program import Program, open_program
from screen import Box

PLAYERS = re.compile(r"\d+")  # how many, as the list of them shows


class Tour:
    def __init__(self, program, album):
        self.program = program
        self.album = album
        self.shot = album.shot

    def take(self):
        self.menu()
        self.editor()
        self.second_stage()
        self.chooser()
        self.short_playlist()
        self.normal_play()
        self.betting()
        hand.key("Escape")
        self.program.ended()

    # A step with its picture.

    def calm(self, name, picture, role="push button"):
        """With the mouse away, as soon as a control is there."""
        self.program.ready(name, role)
        self.program.move_away()
        self.shot(picture)

    def hovered(self, name, picture, counted=True):
        self.program.hover(name)
        self.shot(picture, counted=counted)

    def pressed(self, name, picture, counted=True, leave=False):
        """Holds the mouse button on a control, and moves away with it or lets it be a click."""
        place = self.program.ready(name)
        hand.move_to(*place.aside)
        self.program.screen.settle(place)
        with hand.held():
            self.program.screen.settle(place)
            self.album.shot_at_once(picture, counted=counted)
            if leave:
                self.program.changes(place, self.program.move_away)

    def message(self, picture, pattern, key="Return", title="Songrush"):
        self.program.message(pattern, title)
        self.shot(picture)
        self.program.answer(pattern, key, title)

    def choose_file(self, title, picture, path=None):
        """Cancels without a path."""
        self.program.ready(title, "dialog")
        self.album.shot_of_display(picture)
        self.program.choose_file(title, path)

    # The screens.

    def menu(self):
        self.calm("One player", "menu")
        self.hovered("Several players", "menu-hover")
        self.pressed("Several players", "menu-pressed", leave=True)
        self.program.tab_to("One player")
        self.shot("menu-keyboard-focus")
        with Program(self.program.stage, self.program.data) as second:
            second.message("Songrush is already running")
            self.shot("already-running")
            second.answer("Songrush is already running")
            second.ended()
        self.program.windows.focus("Songrush")

    def editor(self):
        """A list made of the sample songs, corrected, heard and saved."""
        program = self.program
        program.click("Playlist editor")
        self.calm("Songs", "editor-empty", "table")
        self.hovered("Play", "editor-hover")
        self.pressed("Play", "editor-pressed")
        self.message("no-songs-in-list", "No songs in list", title="Mp3 Editor")
        program.click("Add Directory")
        self.choose_file("Add Folder", "editor-folder-dialog", program.data / "Music")
        program.announced(r"\d+ songs\.", skip=True)
        self.calm("Songs", "editor-filled", "table")
        program.click_on_header("Artist")
        self.shot("editor-sorted-by-artist")
        program.click_on_line(2)
        with hand.held("shift"):
            program.click_on_line(5)
        with hand.held("ctrl"):
            program.click_on_line(8)
        self.shot("editor-marked")
        songs = program.song_lines() - 5
        program.click("Remove")
        self.shot("editor-removed")
        assert program.song_lines() == songs, "the marked lines should be gone"
        self.title_dialog()
        self.preview()
        program.click("Save PlayList")
        self.choose_file("Save Playlist", "editor-save-dialog", "Mine")
        mine = program.data / "PlayList/Mine.m3u"
        program.wait("the saved list", lambda: mine.exists() and song_count(mine) == songs)
        program.click("Exit Editor")

    def title_dialog(self):
        program = self.program
        program.click_on_line(1)
        program.click("Edit Title/Artist")
        program.ready("Song Title", "text")
        self.shot("title-dialog")
        hand.key("ctrl+a")
        hand.write("An artist - A title of some length: of the tour")
        self.shot("title-dialog-typed")
        hand.key("alt+t")
        self.shot("title-dialog-taken-apart")
        hand.key("alt+p")
        program.gone("Song Title", "text")
        self.shot("editor-after-edit")
        song = program.data / "Music/An artist - A title of some length of the tour.mp3"
        assert song.is_file(), "the song should have its new name"

    def preview(self):
        program = self.program
        program.click_on_line(1)
        program.click("Play")
        wind = program.ready("Fast forward")
        self.album.shot_of_display("preview")
        program.click("Play")
        program.playing()
        time.sleep(1)
        self.album.shot_at_once("preview-playing")
        hand.move_to(*wind.middle)
        with hand.held():
            time.sleep(1)
            self.album.shot_at_once("preview-fast-forward")
        program.click("Pause")
        self.shot("preview-paused")
        program.click("Close")
        program.gone("Fast forward")

    def second_stage(self):
        program = self.program
        self.glide(program.ready("One player"), program.hover("Several players"))
        self.calm("Betting", "second-stage-several-players")
        program.click(PLAYERS, "combo box")
        self.shot("players-list-open")
        hand.key("Down", "Down", "Return")
        self.shot("players-chosen")
        assert program.seen("4", "combo box"), "there should be four players"
        self.hovered("Back", "second-stage-hover")
        self.pressed("Back", "second-stage-pressed")
        self.calm("One player", "menu-after-back")
        program.click("One player")
        self.calm("Betting", "second-stage-one-player")
        program.click("Normal Play")

    def glide(self, first, second):
        """Each frame of it beside the other, in one picture."""
        way = Box(first.left, first.top - first.height, first.width,
                  second.top + second.height - first.top + first.height)
        looks, frames = [], []
        hand.click()
        end = time.monotonic() + 1
        while time.monotonic() < end:
            looks.append(self.program.screen.pixels(way))
        for last, now in zip(looks, looks[1:]):
            # Seen twice, or it may have been read while it was being drawn.
            if numpy.array_equal(last, now) and (not frames or (now != frames[-1]).any()):
                frames.append(now)
        width, height = way.width // 2, way.height // 2
        sheet = Image.new("RGB", (5 * width, -(-len(frames) // 5) * height))
        for index, frame in enumerate(frames):
            sheet.paste(Image.fromarray(frame).resize((width, height)),
                        (index % 5 * width, index // 5 * height))
        self.album.picture("glide", sheet)

    def chooser(self):
        """Everything that it refuses, the editor on the way to a game, and the waiting window."""
        program = self.program
        self.calm(CREATE, "chooser")
        self.hovered(QUICKPLAY, "chooser-hover")
        self.pressed(PLAYLIST, "chooser-pressed")
        self.choose_file("Load Playlist", "file-dialog")
        self.message("no-playlist-selected", "No Playlist was selected.*")
        program.click(CREATE)
        program.click("Load PlayList")
        self.choose_file("Load Playlist", "editor-load-dialog", "Mine.m3u")
        program.wait("the songs", program.song_lines)
        self.shot("editor-loaded-on-the-way-to-a-game")
        program.click("Play Game")
        program.click(QUICKPLAY)
        self.choose_file("Add Folder", "folder-dialog")
        self.message("no-directory-selected", "No directory was selected.*")
        program.click(QUICKPLAY)
        self.choose_file("Add Folder", "folder-with-few-songs", self.folder_of_songs("few", 3))
        self.message("too-few-mp3s", "Songrush Requires atleast 10 MP3's to play.*")
        program.click(QUICKPLAY)
        self.album.shot_of_display("folder-without-titles")
        program.enter_path("Add Folder", self.folder_of_songs("untitled", 20000))
        program.announced(r"Searching for MP3s\.", skip=True)
        program.wait("something to see", lambda: program.screen.pixels().any(2).mean() > 0.03)
        self.album.picture("searching", program.screen.image(self.album.window))
        self.message("no-song-titles", "Warning playlist contains .* no song titles.*", key="n")
        program.ready(CREATE)

    def folder_of_songs(self, name, count):
        folder = self.program.stage.memory / name
        folder.mkdir()
        for number in range(count):
            (folder / f"{number:05}.mp3").touch()
        return folder

    def short_playlist(self):
        """A list that the game refuses; back from the menu to the chooser."""
        program = self.program
        (program.data / "PlayList/Short.m3u").write_text("#EXTM3U\none.mp3\n", newline="\r\n")
        program.click(PLAYLIST)
        self.choose_file("Load Playlist", "file-dialog-short-list", "Short.m3u")
        self.message("too-few-songs", "Songrush Requires atleast 10 songs in a playlist.*")
        choose_game(program.click)
        program.ready(CREATE)

    def normal_play(self):
        """The second answer is wrong."""
        program = self.program
        program.click(PLAYLIST)
        self.choose_file("Load Playlist", "file-dialog-own-list", "Mine.m3u")
        game = Game(program, program.click)
        for turn in game.turns():
            if turn == 0:
                self.calm("Play", "question")
                self.hovered("Play", "question-hover")
            game.start_clip()
            if turn == 0:
                self.playing(game.choices[2])
            else:
                game.take_hint()
            if turn == 1:
                self.album.shot_at_once("hint-taken")
            self.answer(game, turn != 1, "normal-play")
        self.end_of_game(game, "normal-play")

    def playing(self, choice):
        program = self.program
        program.move_away()
        program.ready(choice)
        self.album.shot_at_once("playing")
        program.hover(choice)
        self.album.shot_at_once("playing-choice-hover")
        self.pressed(choice, "playing-choice-pressed", leave=True)
        self.hovered("Hint", "hint-hover", counted=False)
        self.pressed("Hint", "hint-pressed", counted=False, leave=True)

    def answer(self, game, right, name):
        game.answer(right)
        if game.turn < 2:
            self.shot(f"{name}-{'right' if right else 'wrong'}")
        game.go_on()

    def end_of_game(self, game, name):
        game.see_scores()
        self.calm("Continue", f"{name}-scores")
        game.enter_names(before=lambda place: self.shot(f"{name}-name-{place}"))
        self.calm("Continue", f"{name}-table")
        self.hovered("Continue", "continue-hover", counted=False)
        self.pressed("Continue", "continue-pressed", counted=False, leave=True)
        game.leave()
        print(f"{name}: {game.kept()[:len(game.scores)]}")

    def betting(self):
        """Three players, by keys; the first answer is late and wrong."""
        program = self.program
        program.tab_to("Several players")
        hand.key("Return")
        program.ready(PLAYERS, "combo box")
        hand.key("Home", "Down")  # in the list of players, three of them
        program.tab_to("Betting")
        self.shot("second-stage-keys")
        hand.key("Return")
        program.tab_to(QUICKPLAY)
        self.shot("chooser-keys")
        hand.key("Return")
        self.choose_file("Add Folder", "folder-dialog-music", program.data / "Music")
        keys = Keys(program)
        game = keys.game = Game(program, keys, betting=True, players=3)
        for turn in game.turns():
            if turn < 2:
                self.shot(f"bet-player-{turn + 1}")
            game.bet("1" if turn else "5")
            if turn == 0:
                self.shot("question-player-1")
            game.start_clip()
            if turn == 0:
                self.album.shot_at_once("betting-playing")
                program.announced(r"The clip is over\.")
                program.find("TIME: 05.00", "label")
                self.shot("clock-stopped-at-the-bet")
            elif turn < 6:
                game.take_hint()
            self.answer(game, turn % 4 != 0, "betting")
        self.end_of_game(game, "betting")


def main(source, folder, percent=100):
    output = Path(folder)
    output.mkdir(parents=True, exist_ok=True)
    for old in [*output.glob("*.png"), *output.glob("*.json")]:
        old.unlink()
    scale = int(percent) / 100
    with open_program(source, round(1024 * scale), round(768 * scale), scale=scale,
                      with_songs=True, failure=output / "failure.png") as program:
        album = Album(program, output, scale)
        Tour(program, album).take()
    print(f"{album.count} pictures lie in {output}.")


main(*sys.argv[1:])
