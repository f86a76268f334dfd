#!/usr/bin/python3
"""tour.py <program folder> <output folder> [width height]
Goes through all screens and plays a whole game of each kind with the real program, by mouse and by
keys, on a virtual display. Leaves a picture of every screen and kind of button in the output
folder, and beside it what is written there. On a display of another size than 800 x 600 the program
takes the full screen. The desktop must never show through."""

import json
import re
import sys
import time
from pathlib import Path
from threading import Thread

import hand
import walk
from game import PLAYERS, QUICKPLAY, Game
from PIL import Image
from program import Program, copy_program
from stage import Stage

# Gone before its texts could be looked for, or not known to the accessibility bus.
PICTURE_ONLY = ("searching", "loading", "editor's menu")


class Tour(Program):
    """The first button of each size to be clicked is pictured under the mouse, and pressed."""

    def __init__(self, stage, folder, output):
        self.output = output
        self.count = 0
        self.known = set()  # sizes
        self.bare = []
        super().__init__(stage, folder)

    def see(self, name):
        """Takes a picture with its texts, once nothing moves."""
        self.count += 1
        file = self.output / f"{self.count:02}-{re.sub('[^a-z0-9]+', '-', name.lower())}"
        if name not in PICTURE_ONLY:
            self.settle()
            texts = self.wait("texts", self.texts)
            file.with_suffix(".json").write_text(json.dumps(texts, indent=1))
        Image.fromarray(self.screen.pixels()).save(file.with_suffix(".png"))

    def click(self, name, role="push button", times=1):
        place = self.ready(name, role)
        size = place[2:]
        if role != "push button" or size in self.known:
            return super().click(name, role, times)
        self.known.add(size)
        self.changes(place, lambda: hand.move_to(place))
        self.see(f"{name} hover")
        hand.press(place, "mousedown", 1)
        self.see(f"{name} pressed")
        hand.xdotool("mouseup", 1)

    def shows_desktop(self):
        return (self.screen.memory[:, ::50, :3] == 255).all((1, 2)).any()

    def watch(self):
        """Notes after how many pictures the desktop, which is white, shows through."""
        while True:
            if self.shows_desktop():
                self.bare.append(self.count)
            time.sleep(0.005)

    def visit(self, stops, prefix=""):
        """Takes pictures on a way, but not of all turns of a game."""
        for stop in stops:
            if stop != "preview wound":
                hand.move_away()
            if not re.search("[3-9]$|1.$", stop):
                self.see(prefix + stop)

    def take(self):
        self.see("menu")
        for way in (walk.editor, walk.second_stage, walk.chooser):
            self.visit(way(self))
        game = Game(self)
        game.choose_list(self.data / "PlayList/Mine.m3u")
        self.visit(game.moments(wrong=[2], hints=[2]), "normal ")
        self.betting()
        self.visit(walk.high_scores(self))
        self.ready("High scores")

    def betting(self):
        """Three players, by keys; the first answer is late and wrong."""
        game = Game(self, betting=True, players=3)
        game.use = lambda name: self.use_keys(game, name)
        hand.key("Tab")  # shows where the focus is
        self.tab_to("Several players")
        self.see("menu keys")
        game.use("Several players")
        self.ready(PLAYERS, "combo box")
        hand.key("Home", "Down")
        game.use("Betting")
        self.tab_to(QUICKPLAY)
        self.ready("Start over")
        self.see("chooser keys")
        game.use(QUICKPLAY)
        self.choose_file("Add Folder", self.data / "Music")
        self.visit(game.moments(wrong=[1, 5], late=[1], hints=[4]), "betting ")

    def use_keys(self, game, name):
        """Presses a button by keys: in odd turns by digits, else with the focus on it."""
        self.ready(name)
        keys = {"Hint": "h"}
        if game.turn % 2:
            keys.update((choice, str(digit)) for digit, choice in game.choices.items())
        if name not in keys:
            self.tab_to(name)
        hand.key(keys.get(name, "space" if name == "Play" else "Return"))


def main(source, folder, width="800", height="600"):
    output = Path(folder)
    output.mkdir(parents=True, exist_ok=True)
    for old in [*output.glob("*.png"), *output.glob("*.json")]:
        old.unlink()
    with Stage(int(width), int(height), "-wr") as stage:
        tour = Tour(stage, copy_program(Path(source).resolve(), stage.folder / "program"), output)
        tour.ready("One player")
        if (width, height) != ("800", "600"):
            hand.key("F11")
            tour.wait("the full screen", lambda: not tour.shows_desktop())
        Thread(target=tour.watch, daemon=True).start()
        tour.take()
        assert not tour.bare, f"the desktop shows through after so many pictures: {tour.bare}"
        assert len(tour.all("frame")) == 1, "there are other windows"
        hand.key("Escape")
        tour.ended()
    print(f"{tour.count} pictures lie in {output}.")


main(*sys.argv[1:])
