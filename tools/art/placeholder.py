"""Stands in for a drawing that does not exist yet: an outlined tile with its name."""

import numpy as np
from PIL import Image, ImageDraw, ImageFont

from .pictures import finish, looks_of

DEFAULT_SIZE = {"Horz": (756, 38), "Vert": (38, 756)}
PAPER = {"object": (214, 224, 240, 255), "terrain": (214, 224, 240, 255), "page": (205, 200, 190, 255),
         "border": (214, 224, 240, 255), "grid": (0, 0, 0, 0), "icon": (214, 224, 240, 255), "cursor": (214, 224, 240, 255)}


def size_of(row):
    default = DEFAULT_SIZE["Vert" if row.drawing.endswith("Vert") else "Horz"]
    return tuple(wanted or usual for wanted, usual in zip(row.size, default))


def make(row):
    width, height = size_of(row)
    inset = 0 if row.kind in ("terrain", "page") else 2
    picture = Image.new("RGBA", (width, height), (0, 0, 0, 0))
    draw = ImageDraw.Draw(picture)
    draw.rectangle((inset, inset, width - 1 - inset, height - 1 - inset), PAPER[row.kind], (90, 60, 60, 255))
    font = ImageFont.load_default()
    across = max(6, (width - 8) // 6)
    lines = [row.title[at:at + across] for at in range(0, len(row.title), across)]
    draw.multiline_text((inset + 3, inset + 2), "\n".join(lines[:4]), (60, 40, 40, 255), font, spacing=0)
    pixels = np.asarray(picture, dtype=np.float32) / 255
    pixels = pixels.copy()
    pixels[..., :3] *= pixels[..., 3:]
    return finish(row, {look: pixels for look in looks_of(row)})
