#!/usr/bin/python3
"""The measuring of texts, on pictures whose contrast is known."""

import unittest

import numpy
from contrast import EDGE, FONT, luminance, measure, points, ratio
from PIL import Image, ImageDraw

WHITE = (255, 255, 255)


def picture(ground, text=None, size=32, shadow=0, patch=None):
    image = Image.new("RGB", (360, 70), ground)
    draw = ImageDraw.Draw(image)
    if patch:
        draw.rectangle((20, 0, 65, 70), patch)  # behind the first letter or two
    for color, offset in (((0, 0, 0), shadow), (text, 0)) if text else ():
        draw.text((20 + offset, 15 + offset), "Oh! What a Song", color, FONT.font_variant(size=size))
    return numpy.asarray(image)


def measured(pixels, *colors):
    return measure(pixels, numpy.ones(pixels.shape[:2], bool), colors)


def known(one, other):
    return ratio(luminance(one), luminance(other))


class Contrast(unittest.TestCase):
    def test_follows_the_standards_figures(self):
        self.assertAlmostEqual(known(WHITE, (0, 0, 0)), 21)
        self.assertAlmostEqual(known((118, 118, 118), WHITE), 4.54, delta=0.005)

    def test_of_an_even_ground_is_that_of_the_two_colours(self):
        for text, ground, size, shadow in ((WHITE, (20, 16, 90), 32, 3),
                                           ((50, 0, 100), (120, 140, 255), 32, 0),
                                           ((255, 0, 0), (118, 118, 118), 43, 2),
                                           ((140, 140, 230), (60, 60, 60), 16, 1)):
            with self.subTest(text=text):
                color, strokes, worst, typical = measured(picture(ground, text, size, shadow),
                                                          (0, 255, 0), text)
                self.assertEqual(color, text)
                self.assertAlmostEqual(typical / known(text, ground), 1, delta=0.03)
                self.assertAlmostEqual(worst / known(text, ground), 0.95, delta=0.06)
                self.assertAlmostEqual(points(strokes, "Oh! What a Song") / 0.75, size,
                                       delta=EDGE)

    def test_is_that_of_the_worst_tenth_of_the_ground(self):
        found = measured(picture((10, 10, 30), WHITE, patch=(150, 150, 150)), WHITE)
        self.assertAlmostEqual(found[2], known(WHITE, (150, 150, 150)), delta=0.3)
        self.assertAlmostEqual(found[3], known(WHITE, (10, 10, 30)), delta=0.6)

    def test_of_what_cannot_be_seen_is_none(self):
        self.assertIsNone(measured(picture(WHITE), WHITE))
        self.assertIsNone(measured(picture((9, 9, 9), WHITE), (255, 0, 0)))


unittest.main()
