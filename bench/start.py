#!/usr/bin/python3
"""start.py <program folder> <folder of the benchmarks> [runs]
The time from the program's start to its first picture on an otherwise empty display, beside that of
an empty window, at most 1.6 times as long, and of one with a line of text, at most 1.3 times."""

import subprocess
import sys
import time
from pathlib import Path
from statistics import median

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "tests/drive"))
from stage import Stage

LIMIT = 30  # seconds


def wait_until_painted(line, painted):
    end = time.monotonic() + LIMIT
    while line.any() != painted:
        assert time.monotonic() < end, "the display does not change"
        time.sleep(0.0003)


def start_time(screen, command):
    line = screen.memory[300, :800, :3]  # through the window's middle
    wait_until_painted(line, False)
    start = time.monotonic()
    process = subprocess.Popen(command)
    wait_until_painted(line, True)
    taken = time.monotonic() - start
    process.terminate()
    process.wait()
    return taken


empty = Path(sys.argv[2], "songrush_empty_window").resolve()
commands = {"program": [Path(sys.argv[1], "songrush").resolve()], "empty window": [empty],
            "a line of text": [empty, "One Player"]}
with Stage() as stage:
    runs = [[start_time(stage.screen, command) for command in commands.values()]
            for _ in range(int((sys.argv[3:] or [21])[0]) + 1)]
# The first run of each fills the page cache.
medians = [1000 * median(times) for times in zip(*runs[1:])]
for name, milliseconds in zip(commands, medians):
    print(f"{name:16} {milliseconds:7.1f} ms, ratio {medians[0] / milliseconds:.2f}")
