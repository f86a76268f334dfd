"""Pictures of a tour, each with the texts in it beside it."""

import json

from screen import Box


class Album:
    def __init__(self, program, folder, scale):
        self.program = program
        self.folder = folder
        self.window = Box(0, 0, 800, 600).scaled(scale)
        self.count = 0

    def shot(self, name, box=None, counted=True):
        """Of the window, or of another part of the screen, once it keeps still; not counted if it
        is one more picture of a screen."""
        self.program.screen.settle()
        self.shot_at_once(name, box, counted)

    def shot_at_once(self, name, box=None, counted=True):
        """Of what lasts for moments only."""
        name = self.picture(name, self.program.screen.image(box or self.window), counted)
        pointer = {"text": "", "role": "pointer", "box": self.program.windows.pointer()}
        texts = self.program.places_of_texts() + [pointer]
        (self.folder / f"{name}.json").write_text(json.dumps(texts, indent=1))

    def shot_of_display(self, name):
        """Also of what stands beside the window."""
        self.shot(name, self.program.screen.box)

    def picture(self, name, image, counted=True):
        """Saves one, with nothing about its texts; returns its name."""
        if counted:
            self.count += 1
            name = f"{self.count:02}-{name}"
        image.save(self.folder / f"{name}.png")
        return name
