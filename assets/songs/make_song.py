#!/usr/bin/env python3
"""Plays a tune in ABC notation into an MP3 file with a tag, at the loudness of all sample songs."""

import argparse
import array
import itertools
import pathlib
import subprocess
import sys
import tempfile
import wave

LOUDNESS = -16  # LUFS, what the game plays all songs at
INAUDIBLE = 8  # of 32768
FADE = 8820  # samples of both channels at the very end
COMPLAINTS = "Error in", "Warning in", "error:"  # after which abc2midi and fluidsynth go on
ALBUM = "Songrush Samples"
GENRES = {  # those of the sample songs, by their number in an ID3v1 tag
    "Country": 2,
    "Classical": 32,
    "Gospel": 38,
    "Folk": 80,
    "National Folk": 82,
    "Celtic": 88,
    "Opera": 103,
    "Chamber Music": 104,
    "Sonata": 105,
    "Symphony": 106,
    "Folklore": 115,
}


def run(*command):
    """Returns what the command prints; one that fails or complains ends the program."""
    done = subprocess.run(
        command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, encoding="utf-8", check=False
    )
    if done.returncode != 0 or any(word in done.stdout for word in COMPLAINTS):
        sys.exit(f"{' '.join(command)}\n{done.stdout}")
    return done.stdout


def perform(abc, instruments, midi, wav):
    run("abc2midi", abc, "-o", midi)
    settings = ["gain=0.5", "sample-rate=44100", "reverb.room-size=0.5", "chorus.active=0"]
    settings += ["dynamic-sample-loading=1"]  # starts three times as fast
    options = [word for setting in settings for word in ("-o", f"synth.{setting}")]
    run("fluidsynth", "-niq", *options, "-F", wav, instruments, midi)


def end_softly(wav):
    """Cuts off the silence at the end, and fades out what is left."""
    with wave.open(wav) as file:
        form, samples = file.getparams(), array.array("h", file.readframes(file.getnframes()))
    while abs(samples[-1]) < INAUDIBLE or len(samples) % form.nchannels:
        samples.pop()
    for i in range(1, FADE + 1):
        samples[-i] = samples[-i] * i // FADE
    with wave.open(wav, "wb") as file:
        file.setparams(form)
        file.writeframes(samples)


def encode(wav, mp3, gain):
    """`gain` is a factor."""
    run("lame", "--quiet", "-b", "128", "-q", "7", "--scale", f"{gain:.5f}", wav, mp3)


def loudness(meter, mp3):
    """In LUFS; the second column of what songrush_loudness prints."""
    return float(run(meter, mp3).splitlines()[-1].split()[1])


def tag(abc):
    """The ID3v1 tag, with a title that does not fit going on in the comment as in `c_ID3`."""
    lines = pathlib.Path(abc).read_text(encoding="utf-8").splitlines()
    header = {line[0]: line[2:] for line in itertools.takewhile(lambda line: line[0] != "K", lines)}
    title, comment = header["T"], ""
    if len(title) > 30:
        title, comment = title[:29] + "|", title[29:].replace(" ", "|")
    fields = (title, 30), (header["C"], 30), (ALBUM, 30), (header.get("H", ""), 4), (comment, 30)
    texts = [text.encode("cp1252").ljust(size) for text, size in fields]
    if any(len(text) != size for text, (_, size) in zip(texts, fields)):
        sys.exit(f"{abc}: title or artist are too long for the tag")
    return b"TAG" + b"".join(texts) + bytes([GENRES[header["G"]]])


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--instruments", required=True, help="a SoundFont with the General MIDI set")
    parser.add_argument("--meter", required=True, help="songrush_loudness")
    parser.add_argument("abc")
    parser.add_argument("mp3")
    args = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        midi, wav, mp3 = (f"{folder}/song.{kind}" for kind in ("mid", "wav", "mp3"))
        perform(args.abc, args.instruments, midi, wav)
        end_softly(wav)
        encode(wav, mp3, 1)
        encode(wav, mp3, 10 ** ((LOUDNESS - loudness(args.meter, mp3)) / 20))
        pathlib.Path(args.mp3).write_bytes(pathlib.Path(mp3).read_bytes() + tag(args.abc))


if __name__ == "__main__":
    main()
