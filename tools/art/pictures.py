"""From painted pixels to the pictures of a row, with the checks that need pixels."""

import numpy as np
from PIL import Image

from . import Refusal
from .drawing import RING, ZOOM, average, paint

EDGE = 0.35  # less cover than this is outside: 0.25 looks fat and jagged when solid, 0.5 when translucent
INSIDE = 0.5
TERRAIN_OPACITY = 0.55
FRINGE_LIGHT, FRINGE_PIXELS = 0.82, 8


def straight(pixels):
    """Un-premultiplied colour from 0 to 1."""
    return np.clip(pixels[..., :3] / np.maximum(pixels[..., 3:], 1e-6), 0, 1)


def to_bytes(values):
    return np.clip(np.rint(values * 255), 0, 255).astype(np.uint8)


def colour_picture(pixels):
    """Exact white means clear, so the drawing's own white is one step darker."""
    colour = to_bytes(straight(pixels))
    colour[(colour == 255).all(axis=2)] = 254
    colour[pixels[..., 3] < EDGE] = 255
    return Image.fromarray(colour, "RGB")


def mask_picture(pixels, opacity, hard=False):
    alpha = pixels[..., 3]
    if hard:
        alpha = np.where(alpha >= INSIDE, 1, 0)
    return Image.fromarray(np.where(alpha >= EDGE, to_bytes(1 - alpha * opacity), 255).astype(np.uint8), "L")


def bw_picture(pixels, hides_below):
    """hides_below: white inside the object is not exact white, so it covers the lines below it."""
    light = pixels[..., :3].mean(axis=2) + 1 - pixels[..., 3]
    grey = to_bytes((light - 0.15) / 0.7)
    if hides_below:
        grey = np.where(pixels[..., 3] >= INSIDE, np.minimum(grey, 254), grey)
    return Image.fromarray(grey.astype(np.uint8), "L")


def alpha_picture(pixels):
    return Image.fromarray(to_bytes(np.dstack([straight(pixels), pixels[..., 3]])), "RGBA")


def check_object(path, looks, bleed):
    for look, pixels in looks.items():
        outer = pixels[..., 3].copy()
        outer[RING:-RING, RING:-RING] = 0
        sides = {"top": outer[:RING], "bottom": outer[-RING:], "left": outer[:, :RING], "right": outer[:, -RING:]}
        cut = [side for side, ring in sides.items() if ring.max() > 0.1]
        if cut and not bleed:
            raise Refusal(f"{path}: drawn beyond the {' and '.join(cut)} edge ({look})")
    if "colour" in looks:
        pixels = looks["colour"][RING:-RING, RING:-RING]
        alpha = pixels[..., 3]
        pale = (alpha >= EDGE) & (alpha < 0.9) & (straight(pixels).min(axis=2) > FRINGE_LIGHT)
        if pale.sum() > FRINGE_PIXELS:
            y, x = np.argwhere(pale)[0]
            raise Refusal(f"{path}: white fringe of {pale.sum()} pixels, the first at {x},{y}")


def check_cover(path, pixels, what):
    if pixels[..., 3].min() < 0.99:
        y, x = np.argwhere(pixels[..., 3] < 0.99)[0]
        raise Refusal(f"{path}: {what} must cover all its pixels, but {x},{y} is clear")


def check_wraps(path, looks):
    """A terrain is drawn beyond its edges as it begins on the far side, so that its tiles join without a seam."""
    for look, pixels in looks.items():
        for axis, sides in ((0, "top and bottom"), (1, "left and right")):
            line = np.moveaxis(pixels, axis, 0)
            if max(np.abs(line[:RING] - line[-2 * RING:-RING]).max(), np.abs(line[-RING:] - line[RING:2 * RING]).max()) > 0.1:
                raise Refusal(f"{path}: {sides} do not join ({look})")


def check_not_empty(path, looks):
    for look, pixels in looks.items():
        if (pixels[..., 3] >= EDGE).sum() < 12:
            raise Refusal(f"{path}: nothing to see ({look})")


def looks_of(row):
    return (["colour"] if row.colour else []) + (["bw"] if row.bw else [])


def make(studio, row):
    """The row's pictures as name -> (plain, large) PIL images."""
    large = paint(studio, row, looks_of(row))
    plain = {look: average(pixels) for look, pixels in large.items()}
    check(row.file(studio.source), row, plain)
    if row.kind in ("object", "terrain"):
        plain, large = without_ring(plain, RING), without_ring(large, RING * ZOOM)
    plain, large = finish(row, plain), finish(row, large)
    return {name: (plain[name], large[name]) for name in plain}


def without_ring(looks, ring):
    return {look: pixels[ring:-ring, ring:-ring] for look, pixels in looks.items()}


def check(path, row, looks):
    """Refuses what the pixels show to be wrong."""
    check_not_empty(path, looks)
    if row.kind == "object":
        check_object(path, looks, row.bleed)
    if row.kind == "terrain":
        check_wraps(path, looks)
        looks = without_ring(looks, RING)
    if row.kind in ("terrain", "page"):
        check_cover(path, looks["colour"], row.kind)


def finish(row, looks):
    first = looks.get("colour", looks.get("bw"))
    if row.kind == "page":
        return {row.colour: Image.fromarray(to_bytes(first[..., :3]), "RGB")}
    if row.kind in ("grid", "icon", "cursor"):
        return {row.colour: alpha_picture(first)}
    made = {}
    if row.colour:
        made[row.colour] = colour_picture(first)
    if row.mask:
        made[row.mask] = mask_picture(first, TERRAIN_OPACITY if row.kind == "terrain" else 1, row.hard)
    if row.bw:
        made[row.bw] = bw_picture(looks["bw"], row.kind == "object")
    return made
