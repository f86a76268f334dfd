#!/usr/bin/python3
"""contrast.py <folder of a tour's pictures>
Measures how well the program's texts can be read, after WCAG 2: on the tour's pictures, where its
lists of texts say that they stand. Prints a report and leaves it as contrast.txt beside them. Fails
if a text has too little contrast or cannot be found."""

import json
import re
import sys
from pathlib import Path

import numpy
from PIL import Image, ImageFilter, ImageFont

from screen import Box

SAME = 12  # of 255: what a glyph covers wholly has its colour
EDGE = 2  # pixels around a glyph that may be softened
NEAR = 8  # pixels around a glyph that are the ground close by
STROKE = 9  # pixels; no stroke of a letter is as thick
GAP = 30  # pixels; what is farther away is no part of a text
SHADOW = 60  # of three times 255, and less
LEAST_INK = 12  # fewer pixels are no text
LEAST_GROUND = 40

FONT = ImageFont.truetype("LiberationSerif-Regular.ttf", 100)

# The colours that texts are written in.
WHITE, SHINING, PALE, SOFT = (255, 255, 255), (242, 243, 255), (226, 226, 255), (220, 220, 255)
BUTTON = [WHITE, SHINING, SOFT, (255, 214, 238), (255, 0, 100)]
BOARD = [(250, 50, 50), (255, 0, 0), (50, 100, 250), (60, 230, 60), (140, 140, 230)]
COLORS = {
    "push button": BUTTON,
    "label": [WHITE, PALE, *BOARD, (50, 255, 50)],
    "text": [PALE],
    "combo box": [PALE],
    "table cell": [PALE, (255, 50, 50)],
    "table column header": [WHITE, (160, 168, 240)],
}
INSETS = {"push button": 6, "text": 4, "combo box": 4, "label": 0, "table cell": 3,
          "table column header": 1}
SCORE_ROW = re.compile(r"\d+\. .*, \d+(, new)?")
ROW_COLORS = [(250, 250, 0), (250, 0, 50)], [(100, 200, 250), (250, 250, 250)]  # name, score
CLOCK, CLOCK_WORD = [(50, 0, 100)], [(0, 100, 250)]
# The red of a pressed plain button stands on a gradient that leaves it less than its size needs;
# it is seen for as long as the mouse button is held.
PRESSED, PRESSED_LIMIT = (255, 0, 100), 2.3


def luminance(colors):
    parts = numpy.asarray(colors) / 255
    linear = numpy.where(parts <= 0.04045, parts / 12.92, ((parts + 0.055) / 1.055) ** 2.4)
    return linear @ (0.2126, 0.7152, 0.0722)


def ratio(one, other):
    lighter, darker = numpy.maximum(one, other), numpy.minimum(one, other)
    return (lighter + 0.05) / (darker + 0.05)


def grown(mask, radius):
    return filtered(mask, ImageFilter.MaxFilter(2 * radius + 1))


def thin(mask):
    """The part of it that is no wider than strokes are."""
    return mask & ~filtered(mask, ImageFilter.MinFilter(STROKE), ImageFilter.MaxFilter(STROKE))


def filtered(mask, *filters):
    image = Image.fromarray(mask).convert("L")
    for each in filters:
        image = image.filter(each)
    return numpy.asarray(image) > 0


def moved(mask, by):
    return numpy.pad(mask, ((by, 0), (by, 0)))[:mask.shape[0], :mask.shape[1]]


def ink(pixels, colors):
    """The one of the colours that most strokes have, and their pixels."""
    best = None, numpy.zeros(pixels.shape[:2], bool)
    for color in colors:
        strokes = together(thin((abs(pixels.astype(int) - color) <= SAME).all(2)))
        if strokes.sum() > best[1].sum():
            best = color, strokes
    return best


def together(strokes):
    """The part of the strokes that has the most of them with no wide gap between."""
    columns = numpy.flatnonzero(strokes.any(0))
    groups = numpy.split(columns, numpy.flatnonzero(numpy.diff(columns) > GAP) + 1)
    most = max(groups, key=lambda group: strokes[:, group].sum())
    kept = numpy.zeros_like(strokes)
    kept[:, most] = strokes[:, most]
    return kept


def strokes_columns(strokes):
    columns = numpy.flatnonzero(strokes.any(0))
    every = numpy.arange(strokes.shape[1])
    return (columns[0] - NEAR <= every) & (every <= columns[-1] + NEAR)


def measure(pixels, inside, colors):
    """Of the text in a part of a picture: its colour, its strokes, the worst contrast that a tenth
    of the ground close around them has, and the usual one."""
    color, strokes = ink(numpy.where(inside[..., None], pixels, 0), colors)
    if strokes.sum() < LEAST_INK:
        return None
    inside = inside & strokes_columns(strokes)
    for _ in range(2):
        edge = grown(strokes, EDGE)
        shadow = (moved(edge, 2) | moved(edge, 3)) & (pixels.sum(2) < SHADOW)
        ground = pixels[grown(strokes, NEAR) & ~edge & ~shadow & inside]
        if len(ground) < LEAST_GROUND:
            return None
        # The softened pixels of thin strokes are text too.
        middle = ground[numpy.argsort(luminance(ground))[len(ground) // 2]].astype(int)
        nearer = abs(pixels.astype(int) - color) <= numpy.maximum(abs(middle - color) // 2, SAME)
        strokes = strokes | thin(nearer.all(2) & inside)
    ratios = numpy.sort(ratio(luminance(ground), luminance(color)))
    return color, strokes, ratios[len(ratios) // 10], ratios[len(ratios) // 2]


def points(strokes, text):
    """About the size of the font, by the tallest line or, if that gives less, by the width."""
    lines = "".join("x" if row else " " for row in strokes.any(1)).split()
    columns = numpy.flatnonzero(strokes.any(0))
    width = max(FONT.getlength(line) for line in text.splitlines()) / FONT.size
    return 0.75 * min(max(map(len, lines)) / (0.9 if re.search("[gjpqy,;()Q]", text) else 0.68),
                      (columns[-1] + 1 - columns[0]) / width)


def parts(picture, texts):
    """Of each text: its name, its place, what of that is no other text's, its possible colours."""
    for text in texts:
        name, box = text["text"], Box(*text["box"])
        has_drawing_only = text["role"] == "push button" and box.width < 2 * box.height
        if has_drawing_only or len(name) < 2 or is_cut_off(text, texts):
            continue  # the pointer has no name
        inside = numpy.zeros(picture.shape[:2], bool)
        place = area(box, INSETS[text["role"]])
        inside[place] = True
        for other in texts:
            other_box = Box(*other["box"])
            if other_box.width * other_box.height < box.width * box.height:
                inside[area(other_box)] = False
        if SCORE_ROW.fullmatch(name):
            for part, colors in zip(name.split(", "), ROW_COLORS):
                yield part, area(box, 5), inside, colors
        elif name.startswith("TIME:"):  # the word stands before its box, which is the clock
            yield name.removeprefix("TIME: "), area(box, 7), inside, CLOCK
            everywhere = numpy.ones(picture.shape[:2], bool)
            yield "TIME:", area(box._replace(left=box.left - box.width)), everywhere, CLOCK_WORD
        else:
            yield name, place, inside, COLORS[text["role"]]


def is_cut_off(text, texts):
    """Whether it is in a line of the list that is in sight in part only."""
    if text["role"] != "table cell":
        return False
    return text["box"][3] < max(other["box"][3] for other in texts if other["role"] == "table cell")


def area(box, inset=0):
    return (slice(max(box.top + inset, 0), box.top + box.height - inset),
            slice(max(box.left + inset, 0), box.left + box.width - inset))


def findings(file, known):
    """Lines of the report on a picture, with whether each text can be read; only of what is not
    known from another picture."""
    picture = numpy.asarray(Image.open(file.with_suffix(".png")).convert("RGB"))
    for text, place, inside, colors in parts(picture, json.loads(file.read_text())):
        look = text, picture[place].tobytes()
        if look in known:
            continue
        known.add(look)
        found = measure(picture[place], inside[place], colors)
        name = text.splitlines()[0][:30]
        if not found:
            yield f"{file.stem:34} {name:30} NOT FOUND", False
            continue
        color, strokes, worst, typical = found
        size = points(strokes, text)
        limit = PRESSED_LIMIT if color == PRESSED else 3 if size > 17 else 4.5
        good = worst >= limit
        yield (f"{file.stem:34} {name:30} {size:4.0f} {'%3d %3d %3d' % color} {worst:6.2f} "
               f"{typical:6.2f} {limit:5.2f}  {'ok' if good else 'TOO LOW'}", good)


def main(folder):
    known = set()
    files = sorted(file for file in folder.glob("*.json") if not file.stem.endswith("-2x"))
    lines = [finding for file in files for finding in findings(file, known)]
    bad = sum(not good for _, good in lines)
    report = "\n".join(["Contrast of the program's texts, after WCAG 2. Worst: a tenth of the ground "
                        "close around the\nglyphs is no better; typical: the median.\n",
                        *(line for line, _ in lines),
                        f"\n{bad} not good." if bad else "\nAll texts can be read."])
    print(report)
    (folder / "contrast.txt").write_text(report + "\n")
    return bool(bad)


if __name__ == "__main__":
    sys.exit(main(Path(sys.argv[1])))
