#!/usr/bin/python3
"""play.py <program folder>
Plays a whole game of each kind by what screen readers are told: names, roles, announcements."""

import re
import sys
from pathlib import Path

from reader import Reader

TITLE = r"What is the Title of this Song\?"
BETS = (r"I can name that MP3 in: 1: 1 Second, 140,000 Points\. 2: 2 Seconds, 70,000 Points\. "
        r"3: 3 Seconds, 35,000 Points\. 4: 5 Seconds, 25,000 Points\.")
ROW = r"(\d+)\. ([^,]+), (\d+)(, new)?\."

program = Path(sys.argv[1])
reader = Reader(program / "songrush")


def title_of(song):
    """From the tag at the song's end."""
    return song.read_bytes()[-125:-95].decode("cp1252").rstrip("\0 ")


# A playlist in which one song comes so often that some of the questions must be about it.
songs = sorted((program / "Music").glob("*.mp3"))[:5]
usual = title_of(songs[0])
playlist = program / "PlayList" / "Names.m3u"
playlist.write_text("".join(f"{song}\n" for song in [songs[0]] * 12 + songs[1:]), newline="\r\n")


def choose_game(players, mode):
    reader.press(players)
    reader.press(mode)
    reader.announced(r"Where do the songs come from\?")
    reader.press("PlayList (Select a playlist file)")
    assert players not in reader.buttons(), "a button of the screen before can still be read"
    reader.type("File name:", str(playlist))
    reader.press("Open")


def answer(score, hint=False, wrong=False, late=False):
    """Answers the question that was heard, and returns the score that is to be announced next."""
    reader.press("Play")
    choices = reader.announced(r"1: (.+)\. 2: (.+)\. 3: (.+)\. 4: (.+)\.").groups()
    assert set(choices) <= reader.buttons(), "the choices are other than announced"
    assert reader.has("label", r"TIME: \d\d\.\d\d"), "the clock cannot be read"
    if hint:
        reader.press("Hint")
        choices = reader.announced(r"\d: (.+)\. \d: (.+)\.").groups()
        score = max(score - 10000, 0)
    if late:
        reader.announced(r"The clip is over\.")
    fits = [choice for choice in choices if (choice == usual) != wrong]
    reader.press((fits or choices)[0])
    result = reader.announced(r"(?:You are|Player \d is) (?:Correct! .+\. (\d+) Points\.|"
                              r"Wrong! The Correct Answer Is: .+\.)")
    reader.press("Continue")
    return score + int(result[1] or 0)


def enter_names(announced_scores, prompt):
    """At the end of a game; returns the rows that the table must begin with."""
    reader.announced(r"SCORES\. " + " ".join(rf"{place}\. Player {player}, {score}\." for
                     place, (score, player) in enumerate(announced_scores, 1)))
    reader.press("Continue")
    rows = []
    for place, (score, player) in enumerate(announced_scores, 1):
        if score > 0:
            reader.announced(re.escape(prompt.format(place)))
            rows.append((f"Eva {player}", str(score)))
            reader.type("Name", rows[-1][0])
            reader.press("Continue")
    return rows


def expect_table(rows, file):
    table = re.findall(ROW, reader.announced(rf"HIGH SCORES\.( {ROW}){{10}}")[0])
    assert [row[1:3] for row in table if row[3]] == rows, f"the new rows are not {rows}: {table}"
    reader.press("Continue")
    reader.find("push button", "One player")
    lines = (program / file).read_text().splitlines()
    assert [row[1:3] for row in table] == list(zip(lines[0::3], lines[1::3])), \
        f"announced was another table than {lines}"


def normal_play(always_wrong=False):
    choose_game("One player", "Normal Play")
    score = 0
    for turn in range(1, 7):
        reader.announced(rf"Round {turn} of 6\. SCORE: {score}\. Single Player Mode\. {TITLE}")
        score = answer(score, hint=turn == 2, wrong=always_wrong or turn == 3)
    prompt = "You got a High Score! Please Enter your name below."
    expect_table(enter_names([(score, 1)], prompt), "H1.dat")


def betting():
    choose_game("Several players", "Betting")
    scores = [0, 0]
    for turn in range(1, 7):
        for player in (0, 1):
            reader.announced(rf"Round {turn} of 6\. SCORE: {scores[player]}\. Player {player + 1}\. "
                             + BETS)
            late = turn == 1
            reader.press("1 Second, 140,000 Points" if late else "5 Seconds, 25,000 Points")
            reader.announced(TITLE)
            scores[player] = answer(scores[player], late=late)
    prompt = "Player {} got a High Score! Please Enter Their name below."
    best_first = sorted(zip(scores, (1, 2)), key=lambda entry: -entry[0])
    expect_table(enter_names(best_first, prompt), "H2.dat")


normal_play(always_wrong=True)
normal_play()
betting()
reader.press("Close")
assert reader.end_status() == 0, "the program failed"
