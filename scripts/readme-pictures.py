#!/usr/bin/python3
"""readme-pictures.py <tour's output folder>
Renews the pictures of the README from those of a tour."""

import sys
from pathlib import Path

from PIL import Image

DOCS = Path(__file__).resolve().parents[1] / "docs"

for name, seen in (("menu-hover", "playlist-editor-hover"), ("playing", "normal-clip-1"),
                   ("betting-wrong", "betting-result-1"), ("editor-marked", "editor-marked")):
    (shot,) = Path(sys.argv[1]).glob(f"[0-9][0-9]-{seen}.png")
    picture = Image.open(shot).resize((480, 360), Image.LANCZOS)
    picture.quantize(256).save(DOCS / f"{name}.png", optimize=True)
