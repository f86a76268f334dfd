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
from files import copy_program, played
from game import Game
from program import Program
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
    slowest, end = 0, time.monotonic() + 2
    window = program.find("Songrush", "frame")
    while (begin := time.monotonic()) < end:
        window.clear_cache()
        window.get_child_count()
        slowest = max(slowest, time.monotonic() - begin)
        time.sleep(0.005)
    return slowest * 1000


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
            game.failed = {0}  # a game cut short is no perfect one
            game.see_scores()
            program.click("Continue")
            for _ in game.enter_names():
                pass
    game.leave()
    program.wait("the marks", lambda: len(played(songs)) == (6 if comes_back else 3))


class SoundServer:
    """Plays into nothing at the pace of a device; what it gets is recorded."""

    def __init__(self, stage):
        self.stage = stage
        self.process = None
        os.environ["SDL_AUDIODRIVER"] = "pulseaudio"

    def start(self):
        self.process = self.stage.start(
            "pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no",
            "-L", "module-native-protocol-unix")
        socket = self.stage.folder / "runtime/pulse/native"
        while not socket.exists():
            time.sleep(0.02)
        self.plug("first")

    def plug(self, name):
        subprocess.run(["pactl", "load-module", "module-null-sink", f"sink_name={name}",
                        f"rate={RATE}", "format=float32le"], check=True, stdout=subprocess.DEVNULL)
        subprocess.run(["pactl", "set-default-sink", name], check=True)
        self.record = self.stage.folder / f"{name} {time.monotonic()}"
        self.stage.start("parec", f"--device={name}.monitor", "--format=float32le",
                         f"--rate={RATE}", "--channels=1", "--latency-msec=50", "--raw",
                         self.record)

    def unplug(self, name):
        modules = subprocess.run(["pactl", "list", "short", "modules"], check=True, text=True,
                                 capture_output=True).stdout
        number = re.search(rf"^(\d+).*sink_name={name} ", modules, re.M)[1]
        subprocess.run(["pactl", "unload-module", number], check=True)

    def heard(self):
        """Seconds that were not silent, by the device plugged in last."""
        samples = numpy.fromfile(self.record, numpy.float32) if self.record.exists() else []
        return numpy.count_nonzero(samples) / RATE


def lose_device(stage, folder):
    server = SoundServer(stage)
    program = Program(stage, folder)
    game = Game(program)
    game.choose(folder / "PlayList/Sample.m3u")
    clock = re.compile(r"TIME: .*")

    def clock_runs():
        at = program.find(clock, "label").get_name()
        time.sleep(2)
        assert program.find(clock, "label").get_name() != at, "the clock stands still"

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
                server.unplug("first")
                clock_runs()
                server.plug("second")
            case "clip 3":
                is_heard()
                server.process.send_signal(signal.SIGSTOP)
                clock_runs()
                server.process.send_signal(signal.SIGCONT)
            case "clip 4":
                is_heard()
                server.plug("third")
                server.unplug("second")
                is_heard()
            case "clip 5":
                is_heard()
    game.leave()


def open_late(stage, folder):
    """The device answers only a second after Play: what is bet for is still heard whole."""
    server = SoundServer(stage)
    server.start()
    program = Program(stage, folder)
    game = Game(program, betting=True)
    game.choose(folder / "PlayList/Sample.m3u")
    for moment in game.moments(late=[1, 2, 3]):
        kind, turn = moment.split()[0], moment[-1]
        if kind == "result" and turn < "3":
            server.process.send_signal(signal.SIGSTOP)
        elif kind == "question":
            before = server.heard()
            Timer(1.5, server.process.send_signal, [signal.SIGCONT]).start()
        elif kind == "late":
            time.sleep(0.5)
            heard = server.heard() - before
            assert 1.9 < heard < 2.2, f"{heard} s are heard"
        if moment == "late 3":
            break


SCENES = {"disk-comes-back": partial(lose_disk, comes_back=True),
          "disk-stays-away": partial(lose_disk, comes_back=False),
          "device": lose_device, "late-device": open_late}


def run(name):
    with Stage() as stage:
        SCENES[name](stage, copy_program(Path(sys.argv[1]).resolve(), stage.folder / "program"))
    print("passed", name, flush=True)


with Pool(1, maxtasksperchild=1) as pool:
    pool.map(run, sys.argv[2:] or SCENES, chunksize=1)
