#!/usr/bin/python3
"""package.py <build folder>
Makes packages of the tested build, has them checked by the system's own tools, and plays what comes
out of them: the archive unpacked somewhere, and the Debian package installed for all users. Without
the right to install it says so; the status is then 77."""

import os
import shutil
import subprocess
import sys
from functools import partial
from multiprocessing import Pool
from pathlib import Path
from tempfile import TemporaryDirectory

import hand
from game import Game
from program import Program, played
from stage import Stage

INSTALLED = Path("/usr/games")
NOBODY = 65534
AS_ROOT = [] if os.getuid() == 0 else ["sudo", "-n"]

run = partial(subprocess.run, check=True)


def make_packages(build):
    """Makes the packages as shipped, but compressed faster, and has them checked."""
    made = build / "package"
    shutil.rmtree(made, ignore_errors=True)
    run(["cpack", "--config", build / "CPackConfig.cmake", "-B", made,
         "-D", "CPACK_DEBIAN_COMPRESSION_TYPE=gzip"])
    deb = next(made.glob("songrush*.deb"))
    with TemporaryDirectory() as tree:
        run(["lintian", "--allow-root", "--fail-on", "error", deb])
        run(["dpkg-deb", "-x", deb, tree])
        run(["desktop-file-validate", f"{tree}/usr/share/applications/songrush.desktop"])
        run(["appstreamcli", "validate-tree", "--no-net", tree])
    return deb, next(made.glob("songrush*.tar.gz"))


def play_game(stage, program_folder, data):
    program = Program(stage, program_folder, data)
    program.ready("One player")
    before = len(played(data / "PlayList/Sample.m3u"))
    game = Game(program)
    game.choose("Sample.m3u")
    game.play()
    hand.key("Escape")
    program.ended()
    marks = len(played(data / "PlayList/Sample.m3u")) - before
    assert marks == 6, f"{marks} songs are marked in {data}"


def play_unpacked(archive):
    with Stage() as stage:
        place = stage.folder / "a place of one's own"
        place.mkdir()
        run(["tar", "-xzf", archive, "-C", place])
        folder = next(place.glob("songrush*"))
        play_game(stage, folder, folder)
        left = list((stage.folder / "home").iterdir())
        assert not left, f"the unpacked program left files in the home: {left}"


def play_installed():
    """Plays as another user than root, who may write everywhere."""
    if os.getuid() == 0:
        os.setgroups([])
        os.setgid(NOBODY)
        os.setuid(NOBODY)
    os.environ["LSAN_OPTIONS"] = "detect_leaks=0"  # they are looked for with the unpacked program
    with Stage() as stage:
        play_game(stage, INSTALLED, stage.folder / "home/.local/share/Songrush")
        # If nothing can be saved the game says so and can still be played.
        home = stage.folder / "nothing"
        home.mkdir(mode=0o555)
        os.environ["HOME"] = str(home)
        program = Program(stage, INSTALLED)
        program.answer(".*")
        program.ready("One player")


def main(build, pool):
    deb, archive = make_packages(build)
    pool.apply(play_unpacked, [archive])
    if (INSTALLED / "songrush").exists() or subprocess.run([*AS_ROOT, "true"]).returncode:
        print("Not installed, as songrush is installed here or this needs the superuser.")
        sys.exit(77)
    run([*AS_ROOT, "dpkg", "-i", deb])
    try:
        pool.apply(play_installed)
    finally:
        run([*AS_ROOT, "dpkg", "--purge", "songrush"])


# Each is played in a process of its own.
with Pool(1, maxtasksperchild=1) as processes:
    main(Path(sys.argv[1]).resolve(), processes)
