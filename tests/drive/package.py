#!/usr/bin/python3
"""package.py <build folder>
Makes packages of the tested build, has them checked by the system's own tools, and plays what comes
out of them: the archive unpacked somewhere, and the Debian package installed for all users. Whoever
may not install is told so; the status is then 77."""

import os
import shutil
import subprocess
import sys
from contextlib import contextmanager
from pathlib import Path
from tempfile import TemporaryDirectory

import hand
from files import played
from game import Game, choose_game, choose_list
from PIL import Image
from program import Program
from stage import open_stage

HERE = Path(__file__).resolve().parent
NOBODY = 65534
SHIPPED = Path("/usr/share/games/songrush")


def make_packages(build):
    """As shipped, but packed faster."""
    made = build / "package"
    shutil.rmtree(made, ignore_errors=True)
    subprocess.run(["cpack", "--config", build / "CPackConfig.cmake", "-B", made,
                    "-D", "CPACK_DEBIAN_COMPRESSION_TYPE=gzip"],
                   check=True, stdout=subprocess.DEVNULL)
    return next(made.glob("songrush*.deb")), next(made.glob("songrush*.tar.gz"))


def check_package(deb):
    with TemporaryDirectory() as tree:
        for command in (["lintian", "--allow-root", "--fail-on", "error", deb],
                        ["dpkg-deb", "-x", deb, tree],
                        ["desktop-file-validate",
                         f"{tree}/usr/share/applications/songrush.desktop"],
                        ["appstreamcli", "validate-tree", "--no-net", tree]):
            subprocess.run(command, check=True)


def play_game(stage, program_folder, data, shipped):
    with Program(stage, program_folder, data) as program:
        choose_game(program.click)
        choose_list(program, program.click, "Sample.m3u")
        game = Game(program, program.click)
        for _ in game.turns():
            game.start_clip()
            game.answer()
            game.go_on()
        game.end()
        hand.key("Escape")
        program.ended()
    marks = played(data / "PlayList/Sample.m3u") - played(shipped / "PlayList/Sample.m3u")
    assert marks == 6, f"{marks} songs are marked in {data}"


def play_unpacked(archive, build):
    with open_stage(failure=build / "package/failure.png") as stage:
        place = stage.folder / "a place of one's own"
        place.mkdir()
        subprocess.run(["tar", "-xzf", archive, "-C", place], check=True)
        folder = next(place.glob("songrush*"))
        play_game(stage, folder, folder, build / "songrush")
        left = list((stage.folder / "home").iterdir())
        assert not left, f"the unpacked program left files in the home: {left}"


@contextmanager
def installed(deb, as_root):
    subprocess.run([*as_root, "dpkg", "-i", deb], check=True, stdout=subprocess.DEVNULL)
    listed = subprocess.run(["dpkg-query", "-L", "songrush"], check=True, capture_output=True,
                            text=True).stdout.split()
    try:
        yield
    finally:
        subprocess.run([*as_root, "dpkg", "--purge", "songrush"], check=True,
                       stdout=subprocess.DEVNULL)
    left = [file for file in listed if "songrush" in file and os.path.exists(file)]
    assert not left, f"left by the package: {left}"


def play_installed():
    with open_stage() as stage:
        own = stage.folder / "home/.local/share/Songrush"
        play_game(stage, Path("/usr/games"), own, SHIPPED)
        songs = {song.name: song.read_bytes() for song in (SHIPPED / "Music").iterdir()}
        assert songs == {song.name: song.read_bytes() for song in (own / "Music").iterdir()}
        show_own_picture(stage, own)
        play_without_a_home(stage)


def show_own_picture(stage, own):
    """A picture of the player's own is shown instead of the shipped one."""
    color = (0x12, 0x34, 0x56)
    Image.new("RGB", (800, 600), color).save(own / "Images/Back.bmp")
    with Program(stage, Path("/usr/games"), own) as program:
        program.ready("One player")
        assert (stage.screen.pixels() == color).all(2).mean() > 0.2, "the own picture is not shown"


def play_without_a_home(stage):
    """Where nothing can be kept the game says so and can be played."""
    home = stage.folder / "nothing"
    home.mkdir(mode=0o555)
    os.environ["HOME"] = str(home)
    with Program(stage, Path("/usr/games")) as program:
        program.answer(".*")
        program.ready("One player")


def may_install():
    """The command for installing, or None."""
    known = subprocess.run(["dpkg-query", "-W", "songrush"], capture_output=True, check=False)
    if known.returncode == 0:
        print("Not installed, as songrush is installed here.")
        return None
    if os.getuid() == 0:
        return []
    if subprocess.run(["sudo", "-n", "true"], check=False).returncode == 0:
        return ["sudo", "-n"]
    print("Not installed, as this needs the superuser.")
    return None


def play_as_player():
    """Not as the superuser, who may write everywhere, but may be the only one to read here."""
    with TemporaryDirectory() as folder:
        os.chmod(folder, 0o755)
        copy = shutil.copytree(HERE, Path(folder) / "drive")
        player = ["setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups"]
        # Leaks are looked for with the unpacked program.
        subprocess.run([*(player if os.getuid() == 0 else []), sys.executable,
                        copy / "package.py", "--installed"],
                       check=True, env={**os.environ, "LSAN_OPTIONS": "detect_leaks=0"})


def main(build):
    deb, archive = make_packages(build)
    check_package(deb)
    play_unpacked(archive, build)
    as_root = may_install()
    if as_root is None:
        return 77
    with installed(deb, as_root):
        play_as_player()
    print(f"{deb.name} and {archive.name} can be played.")
    return 0


if sys.argv[1] == "--installed":
    play_installed()
else:
    sys.exit(main(Path(sys.argv[1]).resolve()))
