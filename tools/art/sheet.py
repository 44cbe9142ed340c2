"""Contact sheets and sample pages, laid out from built pictures."""

from pathlib import Path

import numpy as np
from PIL import Image, ImageDraw, ImageFont

TILE, PITCH, OFFSET = 56, 62, 3
GAP = 6
CAPTION = 14
GREY = (119, 119, 119)


def font():
    try:
        return ImageFont.truetype("DejaVuSans.ttf", 10)
    except OSError:
        return ImageFont.load_default()


def white_clear(picture):
    """A picture as the program draws it without mask: exact white is clear."""
    pixels = np.asarray(picture.convert("RGB"))
    alpha = np.where((pixels == 255).all(axis=2), 0, 255).astype(np.uint8)
    return Image.fromarray(np.dstack([pixels, alpha]), "RGBA")


def masked(picture, mask):
    result = picture.convert("RGBA")
    result.putalpha(mask.point(lambda grey: 255 - grey))
    return result


class Built:
    """The built pictures of a folder, opened by name."""

    def __init__(self, folder):
        self.folder = Path(folder)

    def picture(self, name):
        picture = Image.open(self.folder / f"{name}.png")
        picture.load()
        return picture

    def translucent(self, row):
        picture = self.picture(row.colour or row.bw)
        return masked(picture, self.picture(row.mask)) if row.mask else picture.convert("RGBA")

    def solid(self, row):
        picture = self.picture(row.colour or row.bw)
        return white_clear(picture) if row.mask else picture.convert("RGBA")

    def black_white(self, row):
        return white_clear(self.picture(row.bw)) if row.bw else self.picture(row.colour).convert("RGBA")


def ground(page, at, size=TILE):
    """A piece of a page; each object of a sheet stands on its own piece."""
    x, y = (37 * at) % 560, (91 * at) % 560
    return page.crop((x, y, x + size, y + size)).convert("RGBA")


def three_looks(built, row, parchment, grass, at):
    """The object in colour on parchment, solid on grass, black and white on white."""
    looks = []
    for page, tile in ((parchment, built.translucent(row)), (grass, built.solid(row)), (None, built.black_white(row))):
        under = ground(page, at) if page else Image.new("RGBA", (TILE, TILE), "white")
        under.alpha_composite(tile)
        looks.append(under.convert("RGB"))
    return looks


def cell(looks, title, scale):
    """Three looks at natural size under each other, beside them enlarged, captioned."""
    big = TILE * scale
    natural = scale >= 4
    left = TILE + GAP if natural else 0
    result = Image.new("RGB", (left + 3 * (big + GAP), CAPTION + big + GAP), GREY)
    ImageDraw.Draw(result).text((1, 1), title, "white", font())
    for index, look in enumerate(looks):
        if natural:
            result.paste(look, (0, CAPTION + index * (TILE + GAP)))
        result.paste(look.resize((big, big), Image.NEAREST), (left + index * (big + GAP), CAPTION))
    return result


def tiled(built, row):
    """A terrain laid seamlessly 4 by 4, to show whether it wraps and whether the repeat shows."""
    result = Image.new("RGB", (TILE * 8, TILE * 4), "white")
    for column in range(4):
        for line in range(4):
            result.paste(built.picture(row.colour).convert("RGB"), (column * TILE, line * TILE))
            if row.bw:
                result.paste(built.picture(row.bw).convert("RGB"), ((column + 4) * TILE, line * TILE))
    return result


def contact_sheet(built, rows, parchment, grass, scale, columns):
    cells = []
    for at, row in enumerate(rows):
        one = cell(three_looks(built, row, parchment, grass, at), row.title, scale)
        if row.kind == "terrain" and scale >= 4:
            patch = tiled(built, row)
            wider = Image.new("RGB", (one.width + patch.width + GAP, one.height), GREY)
            wider.paste(one, (0, 0))
            wider.paste(patch, (one.width, CAPTION))
            one = wider
        cells.append(one)
    width, height = max(c.width for c in cells), max(c.height for c in cells)
    columns = min(columns if width < 1000 else 1, len(cells))
    lines = -(-len(cells) // columns)
    sheet = Image.new("RGB", (GAP + columns * (width + GAP), GAP + lines * height), GREY)
    for at, one in enumerate(cells):
        sheet.paste(one, (GAP + at % columns * (width + GAP), GAP + at // columns * height))
    return sheet


def sample_page(built, rows, page, grid, look):
    """A landscape page with the rows' objects one a square, repeated until it is half full."""
    result = page.crop((0, 0, 756, 576)).convert("RGBA")
    result.alpha_composite(grid)
    tiles = [getattr(built, look)(row) for row in rows]
    count = max(len(tiles), 48 // len(tiles) * len(tiles))
    for at in range(min(count, 96)):
        x, y = 7 + at % 12 * PITCH + OFFSET, 42 + at // 12 * PITCH + OFFSET
        result.alpha_composite(tiles[at % len(tiles)], (x, y))
    return result.convert("RGB")


def pages_sheet(built, rows):
    """Page art at natural size under each other; what is clear shows as dull green."""
    pictures = []
    for row in rows:
        picture = built.picture(row.colour)
        if row.kind == "border":
            picture = masked(picture, built.picture(row.mask)) if row.mask else white_clear(picture)
        under = Image.new("RGBA", picture.size, (150, 170, 140, 255))
        under.alpha_composite(picture.convert("RGBA"))
        pictures.append(under.convert("RGB"))
    upright = all(p.height > p.width for p in pictures)
    width = sum(p.width + GAP for p in pictures) if upright else max(p.width for p in pictures)
    height = max(p.height for p in pictures) if upright else sum(p.height + GAP for p in pictures)
    sheet, at = Image.new("RGB", (width, height), GREY), 0
    for picture in pictures:
        sheet.paste(picture, (at, 0) if upright else (0, at))
        at += (picture.width if upright else picture.height) + GAP
    return sheet
