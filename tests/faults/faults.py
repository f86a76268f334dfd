#!/usr/bin/python3
"""faults.py <folder of a build without sanitizers> [step...]
Makes every system call fail that a step of the program makes to the files of its folder: each in a
run of its own, with every error that such a call can have, and by a kill. Afterwards each file is
what it was or what it was to become, byte for byte; the step says so if the file is the old one, and
where it was killed the next run completes it."""

import os
import re
import subprocess
import sys
from collections import Counter
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path
from tempfile import TemporaryDirectory

CALLS = {"openat": ("EACCES", "EIO", "EINTR"), "read": ("EIO", "EINTR"), "pread64": ("EIO", "EINTR"),
         "write": ("ENOSPC", "EIO", "EINTR"), "pwrite64": ("ENOSPC", "EIO", "EINTR"),
         "writev": ("ENOSPC", "EIO"), "fsync": ("EIO",), "fdatasync": ("EIO",),
         "ftruncate": ("EIO",), "truncate": ("EIO",), "rename": ("EIO", "EACCES"),
         "renameat2": ("EIO", "EACCES"), "unlink": ("EIO",), "mkdir": ("EACCES",),
         "fchmodat": ("EPERM",), "close": ("EIO",)}
DATA = ("read", "pread64", "write", "pwrite64", "writev")
# Nothing is told where the player has asked for nothing.
SILENT = {"play", "play-foreign", "keep-unsaved", "settings"}
TRANSIENT = re.compile(r"\.songrush-.*\.tmp|\.played-.*|.*\.lock|.*\.conf\.(new|.{6})")
WHEN = re.compile(rb"^-?\d+ ", re.M)  # in the record of what was given
ELSEWHERE = re.compile("/cache|Images|/runtime|/fontconfig")
STEP = Path(sys.argv[1], "tests/songrush_step").resolve()
PICTURES = Path(sys.argv[1], "songrush/Images").resolve()


def prepare(folder):
    files = {"Music/1.mp3": b"\xff\xfb\x90" + 400 * b"s" + b"TAG" + b"Title".ljust(30)
             + b"Artist".ljust(30) + b"Album".ljust(30) + b"1999" + 30 * b" " + b"\x07",
             "Music/2.mp3": 200 * b"t",
             "Marked.m3u": b"#Songrush:1\r\nMusic/1.mp3\r\n#Songrush:0\r\nMusic/2.mp3\r\n",
             "Foreign.m3u": b"Music/1.mp3\n", "Saved.m3u": b"Music/2.mp3\r\n",
             "config/Songrush/Songrush.conf": b"[Dirs]\nMp3=/old\nOther=1\n",
             "shipped/Music/3.mp3": 300 * b"u", "shipped/PlayList/Sample.m3u": b"../Music/3.mp3\r\n"}
    for name, content in files.items():
        (folder / name).parent.mkdir(parents=True, exist_ok=True)
        (folder / name).write_bytes(content)
    for name in ("own", "PlayList", "cache", "runtime"):
        (folder / name).mkdir(mode=0o700)
    (folder / "Images").symlink_to(PICTURES)


def contents(folder):
    return {str(file.relative_to(folder)): WHEN.sub(b"", file.read_bytes())
            for file in sorted(folder.rglob("*")) if file.is_file()
            and "cache" not in file.parts and not TRANSIENT.fullmatch(file.name)
            and "Images" not in file.relative_to(folder).parts}


def run(step, folder, *strace):
    environment = {**os.environ, "HOME": str(folder.parent), "XDG_CONFIG_HOME": str(folder / "config"),
                   "XDG_CACHE_HOME": str(folder / "cache"), "XDG_RUNTIME_DIR": str(folder / "runtime"),
                   "QT_QPA_PLATFORM": "offscreen", "SDL_AUDIODRIVER": "dummy", "LC_ALL": "C.UTF-8"}
    return subprocess.run([*strace, STEP, step], cwd=folder, env=environment, text=True,
                          capture_output=True, timeout=60, check=False)


def traced(step, folder, log, *options):
    return run(step, folder, "strace", "-f", "-y", "-qq", "-o", str(log), *options)


def calls_of(step):
    """What a run without a fault leaves, and which calls go to files of the folder: pairs of the
    name and the number among those of their thread, from 1, by which a fault is asked for."""
    with TemporaryDirectory(prefix="songrush-") as name:
        folder = Path(name, "scene")
        prepare(folder)
        log = Path(name, "log")
        done = traced(step, folder, log, "-e", "trace=" + ",".join(CALLS))
        assert done.returncode == 0 and not done.stdout, done
        numbers, found = Counter(), set()
        for line in log.read_text(errors="replace").splitlines():
            call = re.match(r"(\d+) +(\w+)\(", line)
            if not call:
                continue
            numbers[call[1], call[2]] += 1
            paths = re.findall(r'"([^"]*)"|\d<(/[^>]*)>', re.sub("AT_FDCWD<[^>]*>", "", line))
            if any((folder / (named or opened)).is_relative_to(folder)
                   and not ELSEWHERE.search(named or opened) for named, opened in paths
                   if opened or call[2] not in DATA):
                found.add((call[2], numbers[call[1], call[2]]))
        return contents(folder), sorted(found)


def judge(step, before, new, folder, done, kill):
    """What is wrong, in words."""
    after = contents(folder)
    for file in {*before, *new, *after}:
        if after.get(file) not in (before.get(file), new.get(file)):
            return f"{file} is neither the old nor the new one"
    if step == "rename" and not any(after.get(f) == before["Music/1.mp3"]
                                    for f in ("Music/1.mp3", "Music/New.mp3")):
        return "the song is gone"
    if not kill:
        if "error while loading shared libraries" in done.stderr:
            return None
        if done.returncode != 0:
            return f"it ends with {done.returncode}: {done.stderr[-200:]}"
        if after != new and not done.stdout and step not in SILENT:
            return "nothing is told"
        return None
    again = run(step, folder)
    if again.returncode != 0:
        return f"the next run ends with {again.returncode}: {again.stderr[-200:]}"
    if step not in ("play", "rename", "save-score") and (contents(folder) != new or again.stdout):
        return f"the next run does not complete it: {again.stdout}"
    return None


def try_fault(step, new, call, number, fault):
    with TemporaryDirectory(prefix="songrush-") as name:
        folder = Path(name, "scene")
        prepare(folder)
        before = contents(folder)
        kill = fault == "SIGKILL"
        what = "signal=SIGKILL" if kill else f"error={fault}"
        done = traced(step, folder, Path(name, "log"), "-e", f"trace={call}",
                      "-e", f"inject={call}:{what}:when={number}")
        wrong = judge(step, before, new, folder, done, kill)
        return wrong and f"{step}: {call} {number} {fault}: {wrong}"


def main(steps):
    findings = []
    for step in steps:
        new, calls = calls_of(step)
        faults = [(call, number, fault) for call, number in calls
                  for fault in (*CALLS[call], "SIGKILL")]
        with ThreadPoolExecutor() as pool:
            wrong = [w for w in pool.map(lambda f: try_fault(step, new, *f), faults) if w]
        print(f"{step:14} {len(calls):4} calls {len(faults):5} faults {len(wrong):4} findings",
              *wrong, sep="\n  ", flush=True)
        findings += wrong
    return bool(findings)


if __name__ == "__main__":
    sys.exit(main(sys.argv[2:] or ["play", "play-foreign", "save-list", "save-score", "write-tag",
                                   "rename", "keep-unsaved", "settings", "first-start"]))
