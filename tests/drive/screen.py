"""What is on the display."""

import time
from typing import NamedTuple

import numpy
from PIL import Image


class Box(NamedTuple):
    """A place on the screen, in its pixels."""
    left: int
    top: int
    width: int
    height: int

    @property
    def middle(self):
        return self.left + self.width // 2, self.top + self.height // 2

    def meets(self, other):
        return (self.left < other.left + other.width and other.left < self.left + self.width
                and self.top < other.top + other.height and other.top < self.top + self.height)


class Screen:
    """The display's memory, read from the server's file."""

    def __init__(self, file, width, height):
        self.box = Box(0, 0, width, height)
        header = file.stat().st_size - width * height * 4
        self.memory = numpy.memmap(file, numpy.uint8, "r", header, (height, width, 4))

    def pixels(self, box=None):
        """The present pixels: red, green and blue by row and column."""
        left, top, width, height = box or self.box
        return self.memory[top:top + height, left:left + width, 2::-1].copy()

    def image(self):
        return Image.fromarray(self.pixels())

    def settle(self, box=None):
        """Waits until three looks are the same, but not for long, because a clock may be running."""
        before = self.pixels(box)
        alike = 1
        for _ in range(20):
            time.sleep(0.05)
            now = self.pixels(box)
            alike = alike + 1 if numpy.array_equal(now, before) else 1
            if alike == 3:
                return
            before = now
