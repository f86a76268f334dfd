#!/usr/bin/env python3
"""Plays a short sound in ABC notation into bare samples (44,100 a second, left and right in turn, 16
bits each, the lower byte first) that begin and end in silence and are as loud as the songs."""

import argparse
import array
import math
import pathlib
import sys
import tempfile
import wave

sys.path.append(str(pathlib.Path(__file__).parent.parent / "songs"))
from make_song import INAUDIBLE, LOUDNESS, perform, run  # pylint: disable=wrong-import-position

RATE = 44100
FADE_IN = 0.005  # seconds
FADE_OUT = 0.4  # of the whole
PEAK = -1  # dBTP, which no sound may reach


def played(abc, instruments, folder):
    """The sound from its first audible sample on."""
    wav = f"{folder}/sound.wav"
    perform(abc, instruments, f"{folder}/sound.mid", wav)
    with wave.open(wav) as file:
        samples = array.array("h", file.readframes(file.getnframes()))
    if sys.byteorder == "big":
        samples.byteswap()
    first = next(i for i, sample in enumerate(samples) if abs(sample) > INAUDIBLE)
    return samples[first // 2 * 2 :]


def faded(samples, seconds):
    """The first `seconds`, faded in and out."""
    length = round(seconds * RATE)

    def gain(frame):
        begun = frame / (FADE_IN * RATE)
        left = (length - 1 - frame) / (FADE_OUT * length)
        return math.sin(min(1, begun) * math.pi / 2) * math.sin(min(1, left) * math.pi / 2) ** 2

    return [samples[i] * gain(i // 2) for i in range(2 * length)]


def write(samples, path):
    words = array.array("h", (round(sample) for sample in samples))
    if sys.byteorder == "big":
        words.byteswap()
    pathlib.Path(path).write_bytes(words.tobytes())


def measured(meter, path):
    """The LUFS of the loudest moment, and the true peak in dBTP."""
    loudness, peak = run(meter, "--jingle", path).split()
    return float(loudness), float(peak)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--instruments", required=True, help="a SoundFont with the General MIDI set")
    parser.add_argument("--meter", required=True, help="songrush_loudness")
    parser.add_argument("--seconds", type=float, required=True)
    parser.add_argument("abc")
    parser.add_argument("pcm")
    args = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        sound = faded(played(args.abc, args.instruments, folder), args.seconds)
        write(sound, f"{folder}/sound.pcm")
        loudness, peak = measured(args.meter, f"{folder}/sound.pcm")
    if peak + LOUDNESS - loudness >= PEAK:
        sys.exit(f"{args.abc}: its peaks are {peak - loudness:.1f} dB above its loudness")
    factor = 10 ** ((LOUDNESS - loudness) / 20)
    write([sample * factor for sample in sound], args.pcm)


main()
