#!/usr/bin/python3
"""The measuring of texts, on pictures whose contrast is known."""

import unittest

import numpy
from contrast import limit, luminance, measure, ratio
from PIL import Image, ImageDraw, ImageFont

WHITE, GREY, RED, BLACK = (255, 255, 255), (118, 118, 118), (255, 50, 50), (0, 0, 0)


def measured(ground, text, size=32, shadow=2, patch=None):
    image = Image.new("RGB", (360, 70), ground)
    draw = ImageDraw.Draw(image)
    draw.rectangle((20, 0, 65, 70), patch or ground)  # behind the first letter or two
    font = ImageFont.truetype("LiberationSerif-Regular.ttf", size)
    for color, offset in ((BLACK, shadow), (text, 0)):
        draw.text((20 + offset, 15 + offset), "Oh! What a Song", color, font)
    return measure(numpy.asarray(image))


class Contrast(unittest.TestCase):
    def test_is_that_of_text_and_ground(self):
        for ground, text, size, shadow, contrast, least in (
                (BLACK, WHITE, 32, 2, 21, 3), (GREY, WHITE, 32, 2, 4.54, 3),
                (GREY, WHITE, 15, 1, 4.54, 4.5), ((20, 20, 60), RED, 20, 1, 4.82, 4.5),
                ((160, 150, 220), (50, 0, 100), 32, 0, 5.98, 4.5)):
            with self.subTest(ground=ground, text=text):
                color, worst, height = measured(ground, text, size, shadow)
                self.assertEqual(color, text)
                self.assertAlmostEqual(worst, contrast, delta=0.05)
                self.assertEqual(limit("Oh! What a Song", color, height), least)

    def test_is_that_of_the_worst_tenth(self):
        patch = (150, 150, 150)
        worst = measured((10, 10, 30), WHITE, patch=patch)[1]
        self.assertAlmostEqual(worst, ratio(luminance(WHITE), luminance(patch)), delta=0.1)

    def test_of_what_cannot_be_seen_is_none(self):
        self.assertIsNone(measured(WHITE, WHITE))
        self.assertIsNone(measured((9, 9, 9), (20, 20, 20)))


unittest.main()
