#!/usr/bin/python3
"""start.py <program folder> <folder of the benchmarks> [runs]
The time from the program's start to its first picture on an otherwise empty display, beside that of
an empty window. At most 1.6 times as long is wanted."""

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


def start_time(screen, program):
    line = screen.memory[300, :800, :3]  # through the window's middle
    wait_until_painted(line, False)
    start = time.monotonic()
    process = subprocess.Popen([program])
    wait_until_painted(line, True)
    taken = time.monotonic() - start
    process.terminate()
    process.wait()
    return taken


programs = [Path(sys.argv[1], "songrush").resolve(),
            Path(sys.argv[2], "songrush_empty_window").resolve()]
with Stage() as stage:
    runs = [[start_time(stage.screen, program) for program in programs]
            for _ in range(int((sys.argv[3:] or [21])[0]) + 1)]
# The first run of each fills the page cache.
medians = [1000 * median(times) for times in zip(*runs[1:])]
for program, milliseconds in zip(programs, medians):
    print(f"{program.name:24} {milliseconds:7.1f} ms")
print(f"ratio {medians[0] / medians[1]:.2f}")
