"""What the program reads and writes: playlists and score tables."""

import os
import re
import shutil


def copy_program(folder, copy):
    """Copies the program with no song played and without score tables."""
    shutil.copytree(folder, copy, ignore=shutil.ignore_patterns("*.dat"))
    playlist = copy / "PlayList/Sample.m3u"
    playlist.write_bytes(playlist.read_bytes().replace(b"#Songrush:1", b"#Songrush:0"))
    return copy


def played(playlist):
    """The songs that are marked as played."""
    marked = re.findall(rb"#Songrush:1\r\n(.*)\r\n", playlist.read_bytes())
    return [(playlist.parent / os.fsdecode(song)).resolve() for song in marked]


def song_count(playlist):
    return playlist.read_bytes().count(b".mp3") if playlist.exists() else 0


def table_of(file):
    """The names and scores of a table, best first."""
    lines = file.read_text(encoding="cp1252").splitlines() if file.exists() else []
    return [(name, int(score)) for name, score in zip(lines[0::3], lines[1::3])]
