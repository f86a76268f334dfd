#!/usr/bin/python3
"""contrast.py <folder of a tour's pictures>
Measures how well the program's texts can be read, after WCAG 2: on the tour's pictures, in the
places that its lists of texts give. Prints a report and leaves it as contrast.txt beside them.
Fails if a text has too little contrast or cannot be found."""

import json
import re
import sys
from pathlib import Path

import numpy
from PIL import Image, ImageFilter

CLOCK = (50, 0, 100)  # on its lamp; it must be readable at a glance
# The colours of texts.
COLORS = ((255, 255, 255), (242, 243, 255), (226, 226, 255), (220, 220, 255), (255, 214, 238),
          (255, 221, 120), (190, 190, 250), (160, 168, 240), (150, 152, 190), (140, 140, 230),
          (255, 0, 100), (255, 50, 50), (255, 0, 0), (250, 0, 50), (250, 250, 0), (60, 230, 60),
          (50, 255, 50), (100, 200, 250), (50, 100, 250), (0, 100, 250), CLOCK)
# The red of a pressed plain button stands on a gradient that leaves it less contrast than its size
# needs, but is only seen while the mouse button is held.
PRESSED, PRESSED_LIMIT = (255, 0, 100), 2.3
SAME = 12  # of 255; pixels closer to a colour than this count as having it
AROUND = 21  # pixels; strokes and shadows take less than half of the picture around each of them
LEAST_INK = 8  # fewer pixels are no text
EDGE = 5  # pixels; of what is around a text
CUT_OFF = 14  # pixels; only list lines that are partly out of sight are lower
SCORE_ROW = re.compile(r"(\d+\. .*), (\d+)(, new|, winner)?")


def luminance(colors):
    parts = numpy.asarray(colors) / 255
    linear = numpy.where(parts <= 0.04045, parts / 12.92, ((parts + 0.055) / 1.055) ** 2.4)
    return (linear @ (0.2126, 0.7152, 0.0722)).astype(numpy.float32)


def ratio(one, other):
    return (numpy.maximum(one, other) + 0.05) / (numpy.minimum(one, other) + 0.05)


def judged(text, pixels):
    """The text's colour, the contrast to its background that all but a tenth of it have, and how
    much it needs at its size."""
    light = luminance(pixels)
    ground = numpy.asarray(Image.fromarray(light).filter(ImageFilter.MedianFilter(AROUND)))
    seen = ratio(light, ground) > 1.3
    inks = [seen & (abs(pixels.astype(int) - color) <= SAME).all(2) for color in COLORS]
    color, ink = max(zip(COLORS, inks), key=lambda found: found[1].sum())
    if ink.sum() < LEAST_INK:
        return "NOT FOUND"
    worst = numpy.percentile(ratio(ground[ink], luminance(color)), 10)
    lines = "".join("x" if row else " " for row in ink.any(1)).split()
    points = 0.75 * max(map(len, lines)) / (0.9 if re.search("[gjpqy,;()Q]", text) else 0.68)
    large = points > 17 and color != CLOCK
    least = PRESSED_LIMIT if color == PRESSED else 3 if large else 4.5
    return f"{'%3d %3d %3d' % color} {worst:6.2f} {least:5.2f}" + " TOO LOW" * bool(worst < least)


def parts(picture, text, role, place):
    """What is written, with the pixels there that have nothing else in them."""
    left, top, width, height = place
    button = role == "push button"
    if len(text) < 2 or (button and width < 2 * height) or height < CUT_OFF:
        return {}
    whole = picture[max(top, 0):top + height, max(left, 0):left + width]
    inner = whole[EDGE:-EDGE, EDGE:-EDGE]
    if row := SCORE_ROW.fullmatch(text):
        score = width * 2 // 3
        return {row[1]: inner[:, :score], row[2]: inner[:, score:]}
    if text.startswith("TIME: "):  # the word stands before its box, which is the clock
        word = picture[top:top + height, left - width:left]
        return {"TIME:": word, text.removeprefix("TIME: "): inner}
    sign = height if button and height > 30 else 0  # at a skinned button's left
    return {text: whole if role == "label" else inner[:, sign:]}


folder = Path(sys.argv[1])
looks = {}  # each with the first picture that has it
for file in sorted(folder.glob("*.json")):
    picture = numpy.asarray(Image.open(file.with_suffix(".png")).convert("RGB"))
    for entry in json.loads(file.read_text()):
        for words, look in parts(picture, *entry).items():
            looks.setdefault((words, look.tobytes()), (file.stem, look))
report = [f"{stem:28} {words.splitlines()[0][:30]:30} {judged(words, look)}"
          for (words, _), (stem, look) in looks.items()]
bad = sum(line.endswith(("NOT FOUND", "TOO LOW")) for line in report)
report.append(f"{bad} not good." if bad else "All texts can be read.")
(folder / "contrast.txt").write_text("\n".join(report) + "\n")
print(*report, sep="\n")
sys.exit(bad > 0)
