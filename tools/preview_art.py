#!/usr/bin/python3
"""Shows drawings as the program will: a contact sheet, or a page with objects on it.

usage: preview_art.py NAME...      a drawing, a picture of pictures.txt, or the path of an svg
       preview_art.py --all        the whole catalogue at 2x
       preview_art.py --page [--on GrassParchment] [--look solid] NAME...
"""

import argparse
import sys
from pathlib import Path

sys.dont_write_bytecode = True  # keeps the source tree clean
from art import Refusal, build, manifest, sheet

HOME = Path(__file__).resolve().parent.parent
LOOKS = ("translucent", "solid", "black_white")


def rows_for(name, rows, source):
    """The rows that a name means; a drawing without a row is shown as an object."""
    stem = Path(name).stem
    found = [row for row in rows if stem == row.drawing] or [row for row in rows if stem in row.names]
    if found:
        return found
    if (source / "objects" / f"{stem}.svg").exists():
        return [manifest.Row("object", stem, (f"{stem}Color", f"{stem}Mask", f"{stem}BW"), manifest.TILE)]
    raise Refusal(f"{name}: no such drawing or picture")


def chosen_rows(options, rows):
    if options.all:
        return [row for row in rows if manifest.folder_of(row.kind) == "objects"]
    chosen = []
    for name in options.names:
        chosen += [row for row in rows_for(name, rows, options.source) if row not in chosen]
    return chosen


def page_row(rows, name):
    return next(row for row in rows if row.colour == name and row.kind == "page")


def make_sheet(options, rows, chosen):
    """The sheet and the refusals; what is refused is left out of the sheet."""
    pages = {"Parchment", "GrassParchment"} | ({options.on} if options.page else set())
    support = [page_row(rows, name) for name in sorted(pages)]
    support.append(next(row for row in rows if row.colour == "GridLand"))
    refusals = build.build_rows([*chosen, *support], options.source, options.work)
    built = sheet.Built(options.work)
    good = [row for row in chosen if not any(str(row.file(options.source)) + ":" in text for text in refusals)]
    if not good or not all((options.work / f"{row.title}.png").exists() for row in support):
        return None, refusals
    objects = [row for row in good if manifest.folder_of(row.kind) == "objects"]
    if not objects:
        return sheet.pages_sheet(built, good), refusals
    if options.page:
        page, grid = built.picture(options.on), built.picture("GridLand")
        return sheet.sample_page(built, objects, page, grid, options.look), refusals
    parchment, grass = built.picture("Parchment"), built.picture("GrassParchment")
    scale, columns = (2, 6) if options.all else (4, 2)
    return sheet.contact_sheet(built, objects, parchment, grass, scale, columns), refusals


def main():
    parser = argparse.ArgumentParser(description="Shows drawings as the program will draw them.")
    parser.add_argument("names", nargs="*", metavar="NAME")
    parser.add_argument("--all", action="store_true", help="the whole catalogue at 2x")
    parser.add_argument("--page", action="store_true", help="lay the objects on a page with a grid")
    parser.add_argument("--on", default="Parchment", metavar="PAGE", help="the page of --page")
    parser.add_argument("--look", default="solid", choices=LOOKS, help="the look of --page")
    parser.add_argument("--source", default=HOME / "resources" / "art", type=Path)
    parser.add_argument("--work", default=Path("art-preview"), type=Path, help="private folder for what is built")
    parser.add_argument("--out", type=Path, help="the PNG to write, WORK/sheet.png by default")
    options = parser.parse_args()
    options.work.mkdir(parents=True, exist_ok=True)
    out = options.out or options.work / "sheet.png"
    try:
        rows = manifest.read(options.source)
        chosen = chosen_rows(options, rows)
        if not chosen:
            raise Refusal("name at least one drawing, or give --all")
        if options.on not in {row.colour for row in rows if row.kind == "page"}:
            raise Refusal(f"{options.on} is no page")
        picture, refusals = make_sheet(options, rows, chosen)
        if picture:
            picture.save(out)
            print(out)
        if refusals:
            raise Refusal("\n".join(refusals))
    except (Refusal, OSError) as error:
        print(f"preview_art: {error}".replace("\n", "\npreview_art: "), file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
