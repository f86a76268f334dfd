#!/usr/bin/python3
"""idle.py <program folder> [seconds]
The share of a processor core that the waiting program takes: at the menu, at a question whose clip
has not begun and, for comparison, with the clip and the clock running. Below 1 % is wanted while it
only waits. A screen reader listens all the time, because the program is driven through one."""

import os
import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "tests/drive"))
import hand
from game import Game
from program import Program, copy_program
from stage import Stage


def used_seconds(program):
    """Processor time so far, in the program and in the system on its behalf."""
    stat = Path(f"/proc/{program.process.pid}/stat").read_text(encoding="ascii")
    fields = stat.rpartition(")")[2].split()  # the name before it may contain blanks
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def measure(program, name, seconds):
    program.settle()
    before = used_seconds(program)
    time.sleep(seconds)
    share = (used_seconds(program) - before) / seconds
    print(f"{name:20} {100 * share:5.2f} % of a core", flush=True)


def main(folder, seconds="10"):
    with Stage() as stage:
        program = Program(stage, copy_program(Path(folder).resolve(), stage.folder / "program"))
        program.ready("One player")
        measure(program, "menu", int(seconds))
        game = Game(program)
        game.choose(program.data / "PlayList/Sample.m3u")
        for name, _ in zip(("waiting board", "clip playing"), game.moments()):
            hand.move_away()
            measure(program, name, int(seconds))


main(*sys.argv[1:])
