#!/usr/bin/python3
"""speed.py <build folder>
Runs all benchmarks and writes what they say to docs/speed.md, each beside its floor: the least work
that could do the same. To be run on a machine that does nothing else."""

import json
import subprocess
import sys
from pathlib import Path

PROJECT = Path(__file__).resolve().parents[1]
FLOORS = {"ScanWithTags": "ScanFloor", "PlaylistRead": "PlaylistFloor",
          "OpenSeekDecode": "OpenSeekDecodeFloor", "Copy": "CopyOfTheRows",
          "MaskedSprite": "CopyOfTheRows"}
NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6}
START = """# How fast it is

Written by `scripts/speed.sh`. A floor is the least work that could do the same, measured in the same
run: a bare walk over a folder, splitting a file into lines, libmpg123 on bytes in memory, a copy of
a picture's rows, an empty window of the same toolkit."""


def rounded(number):
    return f"{number:,.0f}" if number >= 1000 else f"{number:.3g}"


def median_times(program):
    """What a program says of each of its benchmarks."""
    said = subprocess.run([program, "--benchmark_format=json", "--benchmark_repetitions=3",
                           "--benchmark_report_aggregates_only=true"],
                          check=True, capture_output=True, text=True).stdout
    found = json.loads(said)["benchmarks"]
    return {b["run_name"].removesuffix("/real_time"): b for b in found
            if b["aggregate_name"] == "median"}


def floors_table(times):
    yield "| what | time | of its floor |\n|---|---|---|"
    for name, result in times.items():
        base, slash, kind = name.partition("/")
        floor = times.get(f"{FLOORS.get(base)}{slash}{kind}")
        share = f"{result['real_time'] / floor['real_time']:.2f}" if floor else ""
        bytes_each = f", {result['bytes/song']:.0f} bytes a song" if "bytes/song" in result else ""
        yield (f"| {name} | {rounded(result['real_time'])} {result['time_unit']}{bytes_each} "
               f"| {share} |")


def growth_table(times):
    """Nanoseconds for each song, which stay the same if the time grows as their number."""
    sizes = (1_000, 10_000, 100_000, 1_000_000)
    yield "| nanoseconds a song, of | 1,000 | 10,000 | 100,000 | 1,000,000 |\n|---|---|---|---|---|"
    for base in dict.fromkeys(name.partition("/")[0] for name in times):
        found = [times.get(f"{base}/{size}") for size in sizes]
        if found[0]:
            each = [f"{r['real_time'] * NANOSECONDS[r['time_unit']] / size:.0f}" if r else ""
                    for r, size in zip(found, sizes)]
            yield f"| {base} | {' | '.join(each)} |"


def block(*command):
    said = subprocess.run(command, check=True, capture_output=True, text=True).stdout
    return f"```\n{said.rstrip()}\n```"


def main(folder):
    programs = folder / "bench"
    parts = [START]
    for name in ("library", "audio", "editor", "toolkit"):
        times = median_times(programs / f"bench_{name}")
        parts += [f"\n## `bench_{name}`\n", *floors_table(times)]
        if name in ("library", "toolkit"):
            parts += ["", *growth_table(times)]
    parts += ["\n## What a player waits for (`bench_waiting`)\n", block(programs / "bench_waiting"),
              "\n## Start to first picture (`bench/start.py`)\n",
              block(PROJECT / "bench/start.py", folder / "songrush", programs, "31"),
              "\n## Share of a core (`bench/idle.py`)\n",
              block(PROJECT / "bench/idle.py", folder / "songrush")]
    (PROJECT / "docs/speed.md").write_text("\n".join(parts) + "\n", encoding="utf-8")


if __name__ == "__main__":
    main(Path(sys.argv[1]).resolve())
