"""Loads a drawing, gives it the classes of one row and rasterises it at ZOOM pixels a unit."""

import copy
import io
import itertools
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
ZOOM = 4  # pixels a unit of the large pictures; the plain ones are their average
RING = 2  # units rasterised around an object, to see what crosses its edge
QUIET = ("ground", "veil")  # the groups of a page that carry noise, also numbered: veil-2
MARGIN = 40  # units drawn beyond a page's edge, where filters fade
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


def prepared_file(studio, name, root, size, margin):
    """Writes the drawing for rsvg-convert, seen with a margin around it."""
    width, height = size[0] + 2 * margin, size[1] + 2 * margin
    root.set("viewBox", f"-{margin} -{margin} {width} {height}")
    root.set("width", str(width))
    root.set("height", str(height))
    path = studio.prepared / f"{name}.svg"
    ET.ElementTree(root).write(path)
    return path


def rasterise(path, sheet, zoom=ZOOM):
    """Premultiplied RGBA from 0 to 1 as rows x columns x 4."""
    done = subprocess.run(["rsvg-convert", "-s", str(sheet), "-z", str(zoom), str(path)],
                          stdout=subprocess.PIPE, stderr=subprocess.PIPE)
    if done.returncode or not done.stdout:
        raise Refusal(f"{path}: {done.stderr.decode(errors='replace').strip() or 'nothing was drawn'}")
    pixels = np.asarray(Image.open(io.BytesIO(done.stdout)).convert("RGBA"), dtype=np.float32) / 255
    pixels[..., :3] *= pixels[..., 3:]
    return pixels


def average(pixels, step=ZOOM):
    rows, columns = pixels.shape[0] // step, pixels.shape[1] // step
    return pixels.reshape(rows, step, columns, step, *pixels.shape[2:]).mean(axis=(1, 3))


def enlarge(plane, step=ZOOM):
    """A smooth enlargement of one channel. Smoothing costs fine grain, so what the average lacks is added once more."""
    def smooth(values):
        rows, columns = values.shape
        return np.asarray(Image.fromarray(values).resize((columns * step, rows * step), Image.BICUBIC))
    return np.clip(smooth(plane + plane - average(smooth(plane), step)), 0, 1)


def layers(root):
    """The drawing as (whether it is quiet, a drawing of that layer alone), lowest first."""
    def layer_of(child):
        name = child.get("id", "")
        return name if name.split("-")[0] in QUIET else None

    shared = [child for child in root if local(child.tag) == "defs"]
    drawn = [child for child in root if child not in shared]
    for layer, children in itertools.groupby(drawn, layer_of):
        alone = copy.copy(root)
        alone[:] = [*shared, *children]
        yield layer is not None, alone


def paint_page(studio, row, root, size):
    """Noise is right at one pixel a unit only and slow beyond, so the quiet layers are enlarged and the marks sharp."""
    page = np.zeros((size[1] * ZOOM, size[0] * ZOOM, 4), dtype=np.float32)
    for at, (quiet, layer) in enumerate(layers(root)):
        # A layer sees no definition outside <defs>.
        check_drawing(layer, row.file(studio.source), studio.classes, studio.shared_ids, False)
        name, sheet = f"{row.title}-{at}", studio.sheets["colour"]
        if quiet:
            pixels = rasterise(prepared_file(studio, name, layer, size, MARGIN), sheet, 1)
            edge = slice(MARGIN * ZOOM, -MARGIN * ZOOM)
            planes = (enlarge(pixels[..., channel])[edge, edge] for channel in (3, 0, 1, 2))
        else:
            pixels = rasterise(prepared_file(studio, name, layer, size, 0), sheet)
            planes = (pixels[..., channel] for channel in (3, 0, 1, 2))
        alpha = next(planes)
        page *= 1 - alpha[..., None]
        page[..., 3] += alpha
        for channel, plane in enumerate(planes):
            page[..., channel] += plane
    return page


def paint(studio, row, looks):
    """The row's drawing at ZOOM pixels a unit as look -> premultiplied pixels, ring included for objects."""
    root, size = load(studio, row)
    if row.kind == "page":
        return {"colour": paint_page(studio, row, root, size)}
    prepared = prepared_file(studio, row.title, root, size, RING if folder_of(row.kind) == "objects" else 0)
    return {look: rasterise(prepared, studio.sheets[look]) for look in looks}
