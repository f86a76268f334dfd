#!/usr/bin/python3
"""speed.py <build folder>
Runs all benchmarks and writes what they say to docs/speed.md, each beside its floor: the least work
that could do the same. To be run on a machine that does nothing else."""

import json
import subprocess
import sys
from pathlib import Path

PROJECT = Path(__file__).resolve().parents[1]
FLOORS = {"ScanWithTags/Id3v1": "ScanFloor/Id3v1", "ScanWithTags/Pictures": "ScanFloor/Pictures",
          "PlaylistRead": "PlaylistFloor"}
START = """# How fast it is

Written by `scripts/speed.sh`. A floor is the least work that could do the same, measured in the same
run: a bare walk over a folder, splitting a file into lines, an empty window of the same toolkit.
"""


def floors_table(program):
    """Median times of one program's benchmarks."""
    said = subprocess.run([program, "--benchmark_format=json", "--benchmark_repetitions=3",
                           "--benchmark_report_aggregates_only=true"],
                          check=True, capture_output=True, text=True).stdout
    found = json.loads(said)["benchmarks"]
    times = {b["run_name"].removesuffix("/real_time"): b for b in found
             if b["aggregate_name"] == "median"}
    yield "| what | time | of its floor |\n|---|---|---|"
    for name, result in times.items():
        floor = times.get(FLOORS.get(name))
        share = f"{result['real_time'] / floor['real_time']:.2f}" if floor else ""
        bytes_each = f", {result['bytes/song']:.0f} bytes a song" if "bytes/song" in result else ""
        yield (f"| {name} | {result['real_time']:.3g} {result['time_unit']}{bytes_each} "
               f"| {share} |")


def block(*command):
    said = subprocess.run(command, check=True, capture_output=True, text=True).stdout
    return f"```\n{said.rstrip()}\n```"


def main(folder):
    programs = folder / "bench"
    parts = [START]
    for name in ("library", "audio", "editor", "toolkit"):
        parts += [f"\n## `bench_{name}`\n", *floors_table(programs / f"bench_{name}")]
    parts += ["\n## What a player waits for (`bench_waiting`)\n", block(programs / "bench_waiting"),
              "\n## Start to first picture (`bench/start.py`)\n",
              block(PROJECT / "bench/start.py", folder / "songrush", programs, "31"),
              "\n## Share of a core (`bench/idle.py`)\n",
              block(PROJECT / "bench/idle.py", folder / "songrush")]
    (PROJECT / "docs/speed.md").write_text("\n".join(parts) + "\n", encoding="utf-8")


if __name__ == "__main__":
    main(Path(sys.argv[1]).resolve())
