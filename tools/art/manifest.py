"""Reads pictures.txt: which picture comes from which drawing."""

import re
from dataclasses import dataclass, field
from pathlib import Path

from . import Refusal

# Kind of row -> number of picture names.
NAMES_OF_KIND = {"object": 3, "terrain": 3, "border": 2, "page": 1, "grid": 1, "icon": 1, "cursor": 1}
TILE = (56, 56)
FLAGS = ("bleed", "hard")
LARGE = "4x"  # the folder of the pictures with four pixels a unit


def folder_of(kind):
    return "objects" if kind in ("object", "terrain") else "pages"


@dataclass(frozen=True)
class Row:
    kind: str
    drawing: str
    names: tuple  # picture names, None where the picture is not made
    size: tuple  # width and height in pixels, None for any
    renames: dict = field(default_factory=dict, hash=False)
    bleed: bool = False
    hard: bool = False

    @property
    def colour(self):
        return self.names[0]

    @property
    def mask(self):
        return self.names[1] if len(self.names) > 1 else None

    @property
    def bw(self):
        return self.names[2] if len(self.names) > 2 else None

    @property
    def title(self):
        """The name that stands for the row: its own picture, which no other row makes."""
        return self.colour or self.bw

    def files(self):
        """Picture name -> its files below the folder of pictures, plain and large."""
        large = "jpg" if self.kind == "page" else "png"
        return {name: (f"{name}.png", f"{LARGE}/{name}.{large}") for name in self.names if name}

    def file(self, source):
        return Path(source) / folder_of(self.kind) / f"{self.drawing}.svg"


def parse_size(text):
    return tuple(None if part == "*" else int(part) for part in text.split("x"))


def parse_row(words, where):
    kind = words[0]
    if kind not in NAMES_OF_KIND:
        raise Refusal(f"{where}: unknown kind {kind}")
    count = NAMES_OF_KIND[kind]
    if len(words) < 2 + count:
        raise Refusal(f"{where}: a row of kind {kind} needs a drawing and {count} picture name(s)")
    names = tuple(None if word == "-" else word for word in words[2:2 + count])
    if not (names[0] or (len(names) == 3 and names[2])):
        raise Refusal(f"{where}: neither a colour nor a black and white picture is named")
    for name in names:
        if name and not re.fullmatch(r"[A-Za-z]\w*", name):
            raise Refusal(f"{where}: {name} is no picture name")
    size = TILE if folder_of(kind) == "objects" else (None, None)
    renames, flags = {}, set()
    for word in words[2 + count:]:
        if word in FLAGS:
            flags.add(word)
        elif re.fullmatch(r"(\d+|\*)x(\d+|\*)", word):
            size = parse_size(word)
        elif re.fullmatch(r"[\w-]+=[\w-]+", word):
            old, new = word.split("=")
            renames[old] = new
        else:
            raise Refusal(f"{where}: unknown option {word}")
    row = Row(kind, words[1], names, size, renames, **{flag: True for flag in flags})
    if row.hard and (kind == "terrain" or not row.mask):
        raise Refusal(f"{where}: hard needs the mask of an object or a border")
    return row


def read(source):
    """All rows of source/pictures.txt. A picture has one row; only a mask may be shared."""
    path = Path(source) / "pictures.txt"
    rows, owner = [], {}
    for number, line in enumerate(path.read_text().splitlines(), 1):
        words = line.split("#")[0].split()
        if not words:
            continue
        where = f"{path}:{number}"
        row = parse_row(words, where)
        for name in filter(None, row.names):
            role = "mask" if name == row.mask else "picture"
            if owner.setdefault(name, role) != role or (role == "picture" and name in seen(rows)):
                raise Refusal(f"{where}: {name} is already made by another row")
        rows.append(row)
    return rows


def seen(rows):
    return {name for row in rows for name in row.names}
