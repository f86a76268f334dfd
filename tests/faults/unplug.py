#!/usr/bin/python3
"""unplug.py <program folder>
Takes the disk with the songs, and the sound device, away from games that are being played, and gives
them back: the games go on, mark what they ask, and are heard again with the next clip."""

import os
import re
import signal
import subprocess
import sys
import time
from contextlib import ExitStack, contextmanager
from functools import partial
from multiprocessing import Pool
from pathlib import Path
from threading import Timer

import numpy

sys.path.append(str(Path(__file__).resolve().parents[1] / "drive"))

import hand
from game import Game
from program import Program, copy_program, played
from stage import Stage

RATE = 44100


@contextmanager
def unplugged(program, disk):
    """Has every use of the disk's files fail, even of those that are open."""
    paths = [word for file in (disk, *disk.rglob("*")) for word in ("-P", file)]
    strace = subprocess.Popen(
        ["strace", "-f", "-qq", "-o", os.devnull, "-p", str(program.process.pid), *paths,
         "-e", "inject=openat,newfstatat,statx:error=ENOENT", "-e", "inject=read,pread64:error=EIO"])
    threads = Path(f"/proc/{program.process.pid}/task")
    program.wait("the disk to be gone", lambda: all(
        f"TracerPid:\t{strace.pid}" in (thread / "status").read_text()
        for thread in threads.iterdir()))
    yield
    strace.terminate()
    strace.wait()


def slowest_answer(program):
    """The longest time, in milliseconds, that an answer takes within two seconds."""
    window = program.find("Songrush", "frame")
    taken = []
    while sum(taken) < 2:
        begin = time.monotonic()
        window.clear_cache()
        window.get_child_count()
        taken.append(time.monotonic() - begin)
    return max(taken) * 1000


def lose_disk(stage, folder, comes_back):
    songs = folder / "PlayList/Sample.m3u"
    program = Program(stage, folder)
    game = Game(program)
    game.choose(songs)
    with ExitStack() as gone:
        for moment in game.moments():
            if moment == "clip 2":
                gone.enter_context(unplugged(program, folder / "Music"))
                print(f"without a disk the window answers within {slowest_answer(program):.0f} ms")
            elif moment == "result 3":  # its song was ready before
                if not comes_back:
                    break
                gone.close()
                game.told = None  # it is told again after waiting for the song
            elif moment == "question 4":
                program.ready("Play")
                program.heard.clear()  # what was said of the waiting may be read too late
        if not comes_back:
            program.click("Continue")
            program.announced("None of the songs in this playlist can be played any more.")
            hand.key("Return")
            game.see_scores(perfect=False)  # it was cut short
            program.click("Continue")
            for _ in game.enter_names():
                pass
            program.click("Continue")
    program.wait("the marks", lambda: len(played(songs)) == (6 if comes_back else 3))


def pactl(*words):
    return subprocess.run(["pactl", *words], check=True, stdout=subprocess.PIPE, text=True).stdout


class SoundServer:
    """Plays into nothing at the pace of a device; what it gets is recorded."""

    def __init__(self, stage):
        self.stage = stage
        os.environ["SDL_AUDIODRIVER"] = "pulseaudio"

    def start(self):
        self.process = self.stage.start(
            "pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no",
            "-L", "module-native-protocol-unix")
        while not (self.stage.folder / "runtime/pulse/native").exists():
            time.sleep(0.02)
        self.plug("first")

    def plug(self, name):
        """Adds a device, which becomes the default."""
        self.plugged = pactl("load-module", "module-null-sink", f"sink_name={name}").strip()
        pactl("set-default-sink", name)
        self.record = self.stage.folder / name
        self.record.touch()
        self.stage.start("parec", f"--device={name}.monitor", "--format=float32le", "--channels=1",
                         f"--rate={RATE}", "--latency-msec=50", "--raw", self.record)

    def heard(self):
        """Seconds that were not silent, by the device plugged in last."""
        return numpy.count_nonzero(numpy.fromfile(self.record, numpy.float32)) / RATE


def lose_device(stage, folder):
    server = SoundServer(stage)
    program = Program(stage, folder)
    game = Game(program)
    game.choose(folder / "PlayList/Sample.m3u")
    clock = re.compile("TIME: .*")

    def clock_runs():
        at = program.find(clock, "label").get_name()
        time.sleep(2)
        assert program.find(clock, "label").get_name() > at, "the clock stands still"

    def is_heard():
        before = server.heard()
        program.wait("sound", lambda: server.heard() > before + 0.5)

    for moment in game.moments():
        match moment:
            case "clip 1":
                program.announced("No sound device was found, so nothing is heard.")
                clock_runs()
                server.start()
            case "clip 2":
                is_heard()
                pactl("unload-module", server.plugged)
                clock_runs()
                server.plug("second")
            case "clip 3":
                is_heard()
                server.process.send_signal(signal.SIGSTOP)
                clock_runs()
                server.process.send_signal(signal.SIGCONT)
            case "clip 4":
                is_heard()
                second = server.plugged
                server.plug("third")
                pactl("unload-module", second)
                is_heard()


def open_late(stage, folder):
    """The device answers only a second after Play: what is bet for is still heard whole."""
    server = SoundServer(stage)
    server.start()
    game = Game(Program(stage, folder), betting=True)
    game.choose(folder / "PlayList/Sample.m3u")
    for moment in game.moments(late=[1, 2]):
        if moment == "result 1":
            server.process.send_signal(signal.SIGSTOP)
        elif moment == "question 2":
            before = server.heard()
            Timer(1.5, server.process.send_signal, [signal.SIGCONT]).start()
        elif moment == "late 2":
            time.sleep(0.5)
            heard = server.heard() - before
            assert 1.9 < heard < 2.5, f"{heard} s are heard"


SCENES = {"disk-comes-back": partial(lose_disk, comes_back=True),
          "disk-stays-away": partial(lose_disk, comes_back=False),
          "device": lose_device, "late-device": open_late}


def run(name):
    with Stage() as stage:
        SCENES[name](stage, copy_program(Path(sys.argv[1]).resolve(), stage.folder / "program"))
    print("passed", name, flush=True)


with Pool(1, maxtasksperchild=1) as pool:
    pool.map(run, sys.argv[2:] or SCENES, chunksize=1)
