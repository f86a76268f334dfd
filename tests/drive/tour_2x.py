#!/usr/bin/python3
"""tour_2x.py <program folder> <output folder>
Chooses windows of twice the size on the menu and plays a short game in them, by keys, on a virtual
display; leaves a few pictures named "...-2x.png" in the output folder."""

import sys
from pathlib import Path

import hand
from album import Album
from game import Game, Keys, choose_game, choose_list
from program import open_program

output = Path(sys.argv[2])
with open_program(sys.argv[1], 1700, 1300, failure=output / "failure-2x.png") as program:
    album = Album(program, output, 2)
    program.click("Window size 200 %")
    program.wait("the larger menu", lambda: program.windows.widest() == 1600)
    program.ready("One player")
    program.move_away()
    album.shot("menu-2x", counted=False)

    program.click("Playlist editor")
    program.click("Load PlayList")
    songs = program.data / "PlayList/Sample.m3u"
    program.choose_file("Load Playlist", songs)
    program.wait("the songs", program.song_lines)
    program.click_on_line(3)
    album.shot("editor-2x", counted=False)
    program.click("Exit Editor")

    choose_game(program.click)
    choose_list(program, program.click, songs)
    keys = Keys(program)
    game = keys.game = Game(program, keys)
    for turn in game.turns():
        game.start_clip()
        if turn == 0:
            album.shot("board-2x", counted=False)
        game.answer()
        game.go_on()
    game.see_scores()
    game.enter_names()
    album.shot("table-2x", counted=False)
    hand.key("Escape")
    program.ended()
