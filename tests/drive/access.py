#!/usr/bin/python3
"""access.py <program folder>
Plays whole games by what screen readers are told and can do: names, roles, announcements,
presses."""

import sys

from game import PLAYLIST, Game, choose_game
from program import open_program


class ReadersGame(Game):
    def __init__(self, program, **kind):
        super().__init__(program, program.press, **kind)
        players = choose_game(program.press, **kind)
        program.announced(r"Where do the songs come from\?", skip=True)
        program.press(PLAYLIST)
        assert not program.seen(players), "a button of the screen before can still be read"
        program.fill_in("File name:", str(program.data / "PlayList/Sample.m3u"))
        program.press("Open")

    def enter(self, name):
        self.program.fill_in("Name", name)
        self.program.press("Continue")

    def play(self, wrong_turns, late_turns=()):
        for turn in self.turns():
            if self.betting:
                self.bet("1" if turn in late_turns else "5")
            self.start_clip()
            if turn == 2:
                self.take_hint()
            if turn in late_turns:
                self.program.announced(r"The clip is over\.")
            self.answer(right=turn not in wrong_turns)
            self.go_on()
        self.end()


with open_program(sys.argv[1]) as started:
    ReadersGame(started).play(wrong_turns=range(6))
    ReadersGame(started).play(wrong_turns=[1, 3])
    ReadersGame(started, betting=True, players=2).play(wrong_turns=[3], late_turns=[0, 1])
    started.press("Close")
    started.ended()
