"""What the program reads and writes: playlists, tags, score tables."""

import re
import shutil


def copy_program(folder, copy, with_songs=False):
    """None of the songs are played, and they are left where they are unless copied too."""
    copy.mkdir()
    for name in ("Images", "PlayList"):
        shutil.copytree(folder / name, copy / name)
    shutil.copy2(folder / "songrush", copy)
    if with_songs:
        shutil.copytree(folder / "Music", copy / "Music")
    else:
        (copy / "Music").symlink_to(folder / "Music")
    unmark(copy / "PlayList/Sample.m3u")
    return copy


def unmark(playlist):
    playlist.write_bytes(playlist.read_bytes().replace(b"#Songrush:1", b"#Songrush:0"))


def played(playlist):
    """How many songs are marked as played."""
    return playlist.read_bytes().count(b"#Songrush:1")


def song_count(playlist):
    return len(re.findall(rb"\.mp3\r?$", playlist.read_bytes(), re.MULTILINE))


def has_title(song, title):
    """By the tag at the song's end, which holds only so much."""
    tag = song.read_bytes()[-125:-96].decode("cp1252").rstrip("\0 ")
    return title[:29].rstrip() == tag


def table_of(file):
    """The names and scores of a table, best first."""
    lines = file.read_text(encoding="cp1252").splitlines()
    return [(name, int(score)) for name, score in zip(lines[0::3], lines[1::3])]
