"""Loads a drawing, gives it the classes of one row and rasterises it."""

import io
import shutil
import subprocess
import xml.etree.ElementTree as ET
from pathlib import Path

import numpy as np
from PIL import Image

from . import Refusal
from .check import check_drawing, local, parse, stylesheet_classes
from .manifest import folder_of

SVG = "http://www.w3.org/2000/svg"
ZOOM = 4  # rasterised this much larger, then averaged
RING = 2  # pixels rasterised around an object, to see what crosses its edge
ET.register_namespace("", SVG)


class Studio:
    """The stylesheets and shared definitions, and the folder where prepared drawings are written."""

    def __init__(self, source, work):
        self.source, self.prepared = Path(source), Path(work) / "prepared"
        self.prepared.mkdir(parents=True, exist_ok=True)
        # rsvg-convert reads an outside reference only from the drawing's own folder.
        shutil.copyfile(self.source / "defs.svg", self.prepared / "defs.svg")
        self.sheets = {look: self.source / f"{look}.css" for look in ("colour", "bw")}
        self.shared_ids = {e.get("id") for e in parse(self.source / "defs.svg").iter() if e.get("id")}
        sheets = [stylesheet_classes(sheet, self.shared_ids) for sheet in self.sheets.values()]
        self.classes = sheets[0] & sheets[1]

    def inputs(self):
        """The bytes that every picture depends on besides its drawing."""
        return b"".join(p.read_bytes() for p in [*self.sheets.values(), self.source / "defs.svg"])


def rename_classes(root, renames, path):
    """Applies the row's renames; one that finds no class of the drawing is a mistake."""
    used = set()

    def renamed(word):
        for old, new in renames.items():
            if word == old or word.startswith(old + "-"):
                used.add(old)
                return new + word[len(old):]
        return word

    for element in root.iter():
        if element.get("class"):
            element.set("class", " ".join(map(renamed, element.get("class").split())))
    missing = set(renames) - used
    if missing:
        raise Refusal(f"{path}: no class {', '.join(sorted(missing))}, which its row renames")


def natural_size(root, path):
    """Width and height in pixels; the viewBox must say the same."""
    if local(root.tag) != "svg":
        raise Refusal(f"{path}: is no svg")
    try:
        width, height = int(root.get("width", "")), int(root.get("height", ""))
    except ValueError:
        raise Refusal(f"{path}: width and height must be whole numbers") from None
    if root.get("viewBox", "").split() != ["0", "0", str(width), str(height)]:
        raise Refusal(f"{path}: viewBox must be 0 0 {width} {height}")
    return width, height


def load(studio, row):
    """The checked drawing of a row, with the row's classes, and its size."""
    path = row.file(studio.source)
    root = parse(path)
    size = natural_size(root, path)
    if any(wanted not in (None, got) for wanted, got in zip(row.size, size)):
        wanted = "x".join("any" if part is None else str(part) for part in row.size)
        raise Refusal(f"{path}: is {size[0]}x{size[1]}, must be {wanted}")
    check_drawing(root, path, studio.classes, studio.shared_ids, folder_of(row.kind) == "objects")
    rename_classes(root, row.renames, path)
    check_drawing(root, path, studio.classes, studio.shared_ids, folder_of(row.kind) == "objects")
    return root, size


def prepare(studio, row, root, size):
    """Writes the drawing for rsvg-convert; objects get a ring around them."""
    if folder_of(row.kind) == "objects":
        width, height = size[0] + 2 * RING, size[1] + 2 * RING
        root.set("viewBox", f"-{RING} -{RING} {width} {height}")
        root.set("width", str(width))
        root.set("height", str(height))
    path = studio.prepared / f"{row.title}.svg"
    ET.ElementTree(root).write(path)
    return path


def rasterise(path, sheet, zoom):
    """Premultiplied RGBA from 0 to 1 as rows x columns x 4."""
    done = subprocess.run(["rsvg-convert", "-s", str(sheet), "-z", str(zoom), str(path)],
                          stdout=subprocess.PIPE, stderr=subprocess.PIPE)
    if done.returncode or not done.stdout:
        raise Refusal(f"{path}: {done.stderr.decode(errors='replace').strip() or 'nothing was drawn'}")
    straight = np.asarray(Image.open(io.BytesIO(done.stdout)).convert("RGBA"), dtype=np.float32) / 255
    straight = straight.copy()
    straight[..., :3] *= straight[..., 3:]
    return straight


def average(pixels, step=ZOOM):
    rows, columns = pixels.shape[0] // step, pixels.shape[1] // step
    return pixels.reshape(rows, step, columns, step, 4).mean(axis=(1, 3))


def paint(studio, row, looks):
    """The row's drawing at natural size as look -> premultiplied pixels, ring included for objects."""
    root, size = load(studio, row)
    prepared = prepare(studio, row, root, size)
    # Pages carry noise filters, which are only right at their own scale.
    zoom = 1 if row.kind in ("page", "grid") else ZOOM
    return {look: average(rasterise(prepared, studio.sheets[look], zoom), zoom) for look in looks}
