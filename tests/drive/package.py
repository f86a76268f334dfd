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
from pathlib import Path
from tempfile import TemporaryDirectory

import hand
from files import played
from game import Game
from program import Program
from stage import Stage

HERE = Path(__file__).resolve().parent
NOBODY = 65534
AS_ROOT = [] if os.getuid() == 0 else ["sudo", "-n"]

run = partial(subprocess.run, check=True)
run_quietly = partial(run, stdout=subprocess.PIPE, text=True)


def make_packages(build):
    """Makes the packages as shipped, but compressed faster, and has them checked."""
    made = build / "package"
    shutil.rmtree(made, ignore_errors=True)
    run_quietly(["cpack", "--config", build / "CPackConfig.cmake", "-B", made,
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
    game = Game(program)
    game.choose_kind()
    before = len(played(data / "PlayList/Sample.m3u"))
    game.choose_list("Sample.m3u")
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
    with Stage() as stage:
        play_game(stage, Path("/usr/games"), stage.folder / "home/.local/share/Songrush")
        # If nothing can be saved the game says so and can still be played.
        home = stage.folder / "nothing"
        home.mkdir(mode=0o555)
        os.environ["HOME"] = str(home)
        program = Program(stage, Path("/usr/games"))
        program.answer(".*")
        program.ready("One player")


def play_as_player():
    """Plays as another user than root, who may write everywhere. Others may have no access here."""
    with TemporaryDirectory() as folder:
        os.chmod(folder, 0o755)
        copy = shutil.copytree(HERE, Path(folder) / "drive")
        player = ["setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups"]
        # Leaks are looked for with the unpacked program.
        run([*player * (os.getuid() == 0), sys.executable, copy / "package.py", "--installed"],
            env={**os.environ, "LSAN_OPTIONS": "detect_leaks=0"})


def main(build):
    deb, archive = make_packages(build)
    play_unpacked(archive)
    known = subprocess.run(["dpkg-query", "-W", "songrush"], capture_output=True, check=False)
    if known.returncode == 0 or subprocess.run([*AS_ROOT, "true"], check=False).returncode:
        print("Not installed, as songrush is installed here or this needs the superuser.")
        sys.exit(77)
    run_quietly([*AS_ROOT, "dpkg", "-i", deb])
    listed = run_quietly(["dpkg-query", "-L", "songrush"]).stdout.split()
    try:
        play_as_player()
    finally:
        run_quietly([*AS_ROOT, "dpkg", "--purge", "songrush"])
    left = [file for file in listed if "songrush" in file and os.path.exists(file)]
    assert not left, f"left by the package: {left}"


if sys.argv[1] == "--installed":
    play_installed()
else:
    main(Path(sys.argv[1]).resolve())
