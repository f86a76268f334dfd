#!/usr/bin/python3
"""tour.py <program folder> <output folder> [width height]
Plays a whole game of each kind with the real program, by mouse and by keys, on a virtual display,
and leaves a picture of every screen in the output folder, and beside it what is written there.
On a display of another size than 800 x 600 the program takes the full screen."""

import json
import sys
from pathlib import Path

import hand
from files import song_count
from game import CREATE, PLAYERS, PLAYLIST, QUICKPLAY, Game, KeysGame
from program import open_program


class Tour:
    def __init__(self, program, folder):
        self.program = program
        self.folder = folder
        self.count = 0

    def take(self):
        self.menu()
        self.editor()
        self.second_stage()
        self.chooser()
        self.normal_play()
        self.betting()
        self.high_scores()
        hand.key("Escape")
        self.program.ended()

    # A step with its picture.

    def picture(self, name):
        """Takes a picture of the screen; returns its file, without the ending."""
        self.count += 1
        file = f"{self.folder}/{self.count:02}-{name}"
        self.program.screen.image().save(f"{file}.png")
        return file

    def see(self, name):
        """Takes a picture with its texts, once nothing moves."""
        self.program.screen.settle()
        file = self.picture(name)
        Path(f"{file}.json").write_text(json.dumps(self.program.places_of_texts(), indent=1))

    def rest(self, picture, name, role="push button"):
        """A picture with the mouse away, as soon as a control is there."""
        self.program.ready(name, role)
        hand.move_away()
        self.see(picture)

    def hover(self, picture, name):
        self.program.hover(name)
        self.see(picture)

    def hold(self, picture, name):
        """A picture with the mouse button held, then released elsewhere, which only clicks plain
        buttons."""
        def leave():
            hand.move_away()
            hand.release()
        place = self.program.ready(name)
        hand.move_to(*place.middle)
        hand.press()
        self.see(picture)
        self.program.changes(place, leave)

    def message(self, picture, pattern, key="Return"):
        self.program.message(pattern)
        self.see(picture)
        self.program.answer(pattern, key)

    def choose_file(self, picture, title, path=None):
        """A picture of a file dialog, which is cancelled without a path."""
        self.program.ready(title, "dialog")
        self.see(picture)
        self.program.choose_file(title, path)

    # The screens.

    def menu(self):
        self.rest("menu", "One player")
        self.hover("menu-hover", "Several players")
        self.hold("menu-pressed", "Several players")
        hand.key("Tab")
        self.program.tab_to("Several players")
        self.see("menu-keyboard-focus")

    def editor(self):
        """Makes a list of the sample songs, corrects, plays and saves it."""
        program = self.program
        program.click("Playlist editor")
        self.rest("editor-empty", "Songs", "table")
        self.hover("editor-hover", "Play")
        self.hold("editor-pressed", "Play")
        self.message("no-songs-in-list", "No songs in list")
        program.click("Add Directory")
        self.choose_file("editor-folder-dialog", "Add Folder", program.data / "Music")
        program.announced(r"\d+ songs\.", skip=True)
        self.rest("editor-filled", "Songs", "table")
        program.click("Artist", "table column header")
        program.click("Silent Night", "table cell")
        with hand.held("shift"):
            program.click("Canon in D", "table cell")
        with hand.held("ctrl"):
            program.click("Für Elise", "table cell")
        self.see("editor-marked")
        place = program.ready("Songs", "table")
        program.changes(place, lambda: hand.key("shift+F10"))
        self.picture("editor-menu")
        program.changes(place, lambda: hand.key("Escape"))
        program.click("Remove")
        program.gone("Für Elise", "table cell")
        self.title_dialog()
        self.preview()
        hand.key("ctrl+f")
        hand.write("nothing")
        self.see("editor-find")
        hand.key("Escape")
        program.click("Exit Editor")
        self.message("not-saved", "The new list is not saved.*", key="c")
        program.click("Save PlayList")
        self.choose_file("editor-save-dialog", "Save Playlist", "Mine")
        mine = program.data / "PlayList/Mine.m3u"
        program.wait("the saved list", lambda: mine.exists() and song_count(mine) == 18)
        program.click("Exit Editor")

    def title_dialog(self):
        program = self.program
        program.click("Minuet in G", "table cell", times=2)
        program.ready("Song Title", "text")
        self.see("title-dialog")
        hand.key("ctrl+a")
        hand.write("An artist - A title of some length: of the tour")
        hand.key("alt+t")
        self.see("title-dialog-long-text")
        hand.key("alt+p")
        program.gone("Song Title", "text")
        program.find("An artist", "table cell")
        self.see("editor-after-edit")

    def preview(self):
        program = self.program
        program.click("An artist", "table cell")
        program.click("Play")
        wind = program.ready("Fast forward")
        self.see("preview")
        program.click("Play")
        program.playing()
        hand.move_to(*wind.middle)
        hand.press()
        self.see("preview-fast-forward")
        hand.release()
        program.click("Close")
        program.gone("Fast forward")

    def second_stage(self):
        program = self.program
        program.click("Several players")
        self.rest("second-stage-several-players", "Betting")
        program.click(PLAYERS, "combo box")
        self.see("players-list-open")
        hand.key("Down", "Down", "Return")
        program.find("4", "combo box")
        self.hover("second-stage-hover", "Back")
        self.hold("second-stage-pressed", "Back")
        program.click("One player")
        self.rest("second-stage-one-player", "Betting")
        program.click("Normal Play")

    def chooser(self):
        """Everything that the chooser refuses, and the waiting window."""
        program = self.program
        self.rest("chooser", CREATE)
        self.hover("chooser-hover", QUICKPLAY)
        self.hold("chooser-pressed", PLAYLIST)
        self.choose_file("file-dialog", "Load Playlist")
        self.message("no-playlist-selected", "No Playlist was selected.*")
        program.click(QUICKPLAY)
        self.choose_file("folder-dialog", "Add Folder")
        self.message("no-directory-selected", "No directory was selected.*")
        program.click(QUICKPLAY)
        program.choose_file("Add Folder", self.folder_of_songs("few", 3))
        self.message("too-few-mp3s", "Songrush Requires atleast 10 MP3's to play.*")
        program.click(QUICKPLAY)
        program.choose_file("Add Folder", self.folder_of_songs("untitled", 20000))
        program.announced(r"Searching for MP3s\.", skip=True)
        program.wait("something to see", lambda: program.screen.pixels().any(2).mean() > 0.03)
        self.picture("searching")
        self.message("no-song-titles", "Warning playlist contains .* no song titles.*", key="n")
        (program.data / "PlayList/Short.m3u").write_text("#EXTM3U\none.mp3\n", newline="\r\n")
        Game(program).choose_list("Short.m3u")
        self.message("too-few-songs", "Songrush Requires atleast 10 songs in a playlist.*")

    def folder_of_songs(self, name, count):
        folder = self.program.stage.folder / name
        folder.mkdir()
        for number in range(count):
            (folder / f"{number:05}.mp3").touch()
        return folder

    def moments(self, game, name, *pictures, **turns):
        """The moments of a game, with pictures of some and of all those after its last turn."""
        for moment in game.moments(**turns):
            if moment in pictures or moment.split()[0] in ("scores", "name", "table"):
                hand.move_away()
                self.see(f"{name}-{moment}".replace(" ", "-"))
            yield moment

    def normal_play(self):
        """The second answer is wrong."""
        game = Game(self.program)
        game.choose("Mine.m3u")
        for moment in self.moments(game, "normal", "question 1", "clip 1", "result 1", "hint 2",
                                   "result 2", wrong=[2], hints=[2]):
            if moment == "question 1":
                self.hover("question-hover", "Play")
            elif moment == "clip 1":
                self.hover("choice-hover", game.choices[2])
                self.hold("choice-pressed", game.choices[2])
                self.hover("hint-hover", "Hint")
                self.hold("hint-pressed", "Hint")
            elif moment == "table":
                self.hover("continue-hover", "Continue")
                self.hold("continue-pressed", "Continue")
        game.leave()

    def betting(self):
        """Three players, by keys; the first answer is late and wrong."""
        game = KeysGame(self.program, betting=True, players=3)
        game.choose_kind()
        self.hover("chooser-play-on", "Start over")
        self.program.tab_to(QUICKPLAY)
        self.see("chooser-keys")
        game.use(QUICKPLAY)
        self.program.choose_file("Add Folder", self.program.data / "Music")
        for _ in self.moments(game, "betting", "bet 1", "question 1", "clip 1", "late 1",
                              "result 1", "bet 2", "result 2", wrong=[1, 5], late=[1], hints=[4]):
            pass
        game.leave()

    def high_scores(self):
        """The scores of both games, from the menu and back to it."""
        self.program.click("High scores")
        self.rest("high-scores", "Betting")
        self.hover("high-scores-hover", "Betting")
        self.program.click("Betting")
        self.rest("high-scores-betting", "Normal Play")
        self.program.click("Close")
        self.program.ready("High scores")


def main(source, folder, width="800", height="600"):
    output = Path(folder)
    output.mkdir(parents=True, exist_ok=True)
    for old in [*output.glob("*.png"), *output.glob("*.json")]:
        old.unlink()
    with open_program(source, int(width), int(height)) as program:
        tour = Tour(program, output)
        if (width, height) != ("800", "600"):
            program.ready("One player")
            hand.key("F11")
            program.wait("the full screen", lambda: program.screen.pixels().any((1, 2)).all())
        tour.take()
    print(f"{tour.count} pictures lie in {output}.")


main(*sys.argv[1:])
