#!/usr/bin/python3
"""Measures what the built companion makes for the table: prints, pictures, virtual table top files, thumbnails.

usage: table.py COMPANION SAMPLES
"""

import base64
import io
import json
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as xml
from pathlib import Path

import numpy
from PIL import Image

companion, samples = (Path(argument).resolve() for argument in sys.argv[1:])
maps = sorted(samples.glob("*.qrnm"))
RED = (235, 40, 40)
MILLIMETRE = 72 / 25.4
OVERLAP = 5 * MILLIMETRE


def check(truth, what):
    if not truth:
        sys.exit(f"table: {what}")


def run(*arguments, status=0):
    done = subprocess.run([companion, *map(str, arguments)], capture_output=True, text=True, check=False, timeout=300)
    check(done.returncode == status, f"status {done.returncode} of {arguments}: {done.stderr}")
    return done.stderr


def tool(*arguments):
    return subprocess.run([*map(str, arguments)], capture_output=True, text=True, check=True).stdout


def plain_map(folder, portrait=False, grid=8, objects={}, walls={}, markers={}):
    """A map in an older form; walls of a square are the ten flags by name in the order of the file."""
    flags = ["Top", "Left", "Bottom", "Right", "Slash", "BackSlash", "DoorTop", "DoorLeft", "DoorBottom", "DoorRight"]
    places = [(column, row) for column in range(1, 13) for row in range(1, 13)]
    left, top, columns = (38, 7, 8) if portrait else (7, 42, 12)
    rows = 20 - columns
    wall_items = ["".join(f"{int(flag in walls.get(place, ''))}," for flag in flags) + "\xfc" for place in places]
    squares = [f"{markers.get((c, r), 0)},{objects.get((c, r), 0)},{int(c <= columns and r <= rows)},"
               f"{left + 62 * (c - 1)},{top + 62 * (r - 1)},\xfc" for c, r in places]
    text = (f"{int(portrait)}\xbb0\xbb0\xbb\xbb\xfe{grid}\xbb0\xbb\xfe" + "".join(wall_items) + "\xfe1\xfb"
            + "".join(squares) + "\xfe1\xbb\xbb\xbb\xfe")
    (folder / "Plain.qrnm").write_bytes(text.encode("latin-1"))
    return folder / "Plain.qrnm"


def filled_areas(pdf, page, color):
    """The areas of a page that are filled with a colour: left, top, right and bottom, in points."""
    svg = pdf.with_suffix(".svg")
    tool("pdftocairo", "-svg", "-f", page, "-l", page, pdf, svg)
    for path in xml.parse(svg).iter("{http://www.w3.org/2000/svg}path"):
        fill = re.search(r"fill:rgb\(([\d.]+)%,([\d.]+)%,([\d.]+)%\)", path.get("style", ""))
        if not fill or not path.get("d"):
            continue
        if all(abs(float(part) * 2.55 - wanted) < 0.6 for part, wanted in zip(fill.groups(), color)):
            numbers = [float(number) for number in re.findall(r"-?[\d.]+", path.get("d"))]
            yield min(numbers[0::2]), min(numbers[1::2]), max(numbers[0::2]), max(numbers[1::2])


def squares_lie_where_they_belong(folder):
    """The red lines of each page, to a tenth of a point: of the page's 13 and 9 lines those that its part shows."""
    for portrait, square, options, columns, rows, width, height in [
        (False, "1in", [], 2, 1, 595, 842), (False, "25mm", ["--board"], 2, 1, 595, 842),
        (True, "25.4", ["--landscape"], 1, 2, 842, 595),
        (True, "1.5in", ["--paper", "Letter", "--board"], 2, 2, 612, 792),
        (False, "10mm", ["--board"], 1, 1, 595, 842), (False, "17", ["--board"], 1, 1, 842, 595),
    ]:
        unit = float(square.rstrip("inm")) * (72 if square.endswith("in") else MILLIMETRE) / 62
        run("print", "--square", square, *options, "-o", folder, plain_map(folder, portrait))
        pdf = folder / "Plain Map.pdf"
        info = tool("pdfinfo", pdf)
        right = re.search(rf"^Pages: +{columns * rows}$", info, re.M) and f"{width} x {height}" in info
        check(right, f"{square} {options} is printed on {info}")
        board = "--board" in options
        corner = (0, 0) if board else (38, 7) if portrait else (7, 42)
        size = (8 * 62, 12 * 62) if portrait else (12 * 62, 8 * 62)
        whole = size if board else (576, 756) if portrait else (756, 576)
        plan = []  # where the small page that is filled stands on each page
        for page in range(columns * rows):
            text = tool("pdftotext", "-f", page + 1, "-l", page + 1, pdf, "-")
            check(f"{page + 1} of {columns * rows}" in text, f"page {page + 1} says {text}")
            areas = list(filled_areas(pdf, page + 1, RED))
            plan += [(round(top), round(left)) for left, top, _, _ in filled_areas(pdf, page + 1, (150, 150, 150))]
            for axis, tiles, index, paper in ((0, columns, page % columns, width), (1, rows, page // columns, height)):
                tile = (whole[axis] * unit + (tiles - 1) * OVERLAP) / tiles
                start = (paper - tile) / 2
                lines = [start - index * (tile - OVERLAP) + unit * place
                         for place in range(corner[axis], corner[axis] + size[axis] + 1, 62)]
                got = sorted({(area[axis] + area[axis + 2]) / 2 for area in areas
                              if area[axis + 2] - area[axis] < area[3 - axis] - area[1 - axis]})
                shown, wanted = ([line for line in all_lines if start + 1 < line < start + tile - 1]
                                 for all_lines in (got, lines))
                check(len(shown) == len(wanted) and all(abs(a - b) < 0.1 for a, b in zip(shown, wanted)),
                      f"{square} {options}, page {page + 1}: lines at {shown}, not {wanted}")
        check(len(plan) == columns * rows and plan == sorted(set(plan)), f"the plans of the pages show {plan}")


def boards_are_cut_to_the_squares(folder):
    for portrait in (False, True):
        source = plain_map(folder, portrait)
        for cell in (512, 140, 70) if portrait else (20, 62, 70):
            run("export", "--board", "--cell", cell, "-o", folder, source)
            picture = numpy.asarray(Image.open(folder / "Quorrin Map Plain.png").convert("RGB"), dtype=int)
            size = (12 * cell, 8 * cell) if portrait else (8 * cell, 12 * cell)
            check(picture.shape[:2] == size, f"{cell} pixels a square make {picture.shape}")
            # The lines have their middle on the multiples.
            red = 255 - picture[:, :, 2]
            for profile in (red[cell // 2], red[:, cell // 2]):
                for line in range(1, len(profile) // cell):
                    near = profile[line * cell - cell // 4:line * cell + cell // 4].astype(float)
                    middle = (near * (numpy.arange(len(near)) + 0.5)).sum() / near.sum() - cell // 4
                    check(abs(middle) < 0.1, f"line {line} of cells of {cell} lies {middle} pixels aside")
    run("export", "-o", folder / "whole", source)
    run("export", "--board", "--cell", 62, "-o", folder, source)
    whole = Image.open(folder / "whole/Quorrin Map Plain.png").crop((38, 7, 38 + 8 * 62, 7 + 12 * 62))
    check(whole.tobytes() == Image.open(folder / "Quorrin Map Plain.png").tobytes(), "the board is no cut of the page")
    run("export", "--set", "--board", "--cell", 30, "-o", folder / "set", source)
    check({Image.open(file).size for file in (folder / "set").iterdir()} == {(240, 360)}, "the set is not cut")


def on_table(folder, source, cell=70):
    run("vtt", "--cell", cell, "-o", folder, source)
    text = (folder / source.with_suffix(".dd2vtt").name).read_text(encoding="utf-8")
    return json.loads(text), Image.open(io.BytesIO(base64.b64decode(json.loads(text)["image"], validate=True)))


def table_maps_show_the_players_board(folder):
    for source in maps:
        table, picture = on_table(folder, source)
        size = table["resolution"]["map_size"]
        check(picture.size == (size["x"] * 70, size["y"] * 70), f"the picture of {source.stem} is {picture.size}")
        run("export", "--set", "--board", "--cell", 70, "-o", folder, source)
        players = Image.open(folder / f"Quorrin Map {source.stem} Color.png")
        check(players.tobytes() == picture.tobytes(), f"{source.stem} does not show the players' picture")
        if source.stem == "The Last Lantern":
            facts = [len(table[key]) for key in ("portals", "lights")]
            check(facts == [8, 9], f"{source.stem} has {facts} doors and lights")


def table_maps_know_walls_doors_and_lights(folder):
    walls = {
        (2, 2): {"Top", "Left"}, (3, 2): {"Top"}, (2, 3): {"Left"},  # two edges each, joined at their corner
        (2, 1): {"Bottom"},  # the same edge from above
        (6, 2): {"Bottom", "DoorBottom"}, (6, 3): {"DoorTop"}, (7, 2): {"Bottom"},
        (9, 5): {"Right"}, (10, 5): {"DoorLeft"},  # a door on either side wins
        (4, 6): {"Slash"}, (5, 7): {"Slash"}, (8, 7): {"BackSlash"},
        (4, 9): {"Top"},  # off the page
    }
    lights = {(1, 1): 34, (2, 1): 35, (3, 1): 38, (4, 1): 48, (5, 1): 120, (6, 1): 36, (1, 9): 34}
    table, _ = on_table(folder, plain_map(folder, objects=lights, walls=walls), 20)
    near, far = 20 / 62, 42 / 62
    wanted = [
        [(1, 3), (1, 1), (3, 1)],
        [(5, 2), (5 + near, 2)], [(5 + far, 2), (7, 2)],
        [(9, 4), (9, 4 + near)], [(9, 4 + far), (9, 5)],
        [(3, 5), (5, 7)], [(7, 7), (8, 6)],
    ]
    got = [[(point["x"], point["y"]) for point in line] for line in table["line_of_sight"]]

    def shape(lines):
        return sorted(min(rounded, rounded[::-1]) for rounded in
                      ([(round(x, 9), round(y, 9)) for x, y in line] for line in lines))
    check(shape(got) == shape(wanted), f"the walls are {got}")
    doors = [(door["position"], door["bounds"], round(door["rotation"], 4)) for door in table["portals"]]

    def point(x, y):
        return {"x": x, "y": y}
    check(doors == [(point(5.5, 2), [point(5 + near, 2), point(5 + far, 2)], 0),
                    (point(9, 4.5), [point(9, 4 + near), point(9, 4 + far)], 1.5708)], f"the doors are {doors}")
    check(all(door["closed"] and not door["freestanding"] for door in table["portals"]), "a door stands open")
    shining = [(light["position"]["x"], light["position"]["y"]) for light in table["lights"]]
    check(shining == [(column + 0.5, 0.5) for column in range(5)], f"the lights are at {shining}")
    shine = [(light["range"], light["color"]) for light in table["lights"]]
    check(shine == [(8, "ffff9640"), (8, "ffffb058"), (6, "ffff9e4a"), (9, "ffffd88c"), (2, "ffffcc78")],
          f"the lights shine {shine}")

    table, picture = on_table(folder, plain_map(folder, portrait=True, markers={(2, 2): 5}), 20)
    check([table[key] for key in ("line_of_sight", "objects_line_of_sight", "portals", "lights")] == [[]] * 4,
          "an empty map has no empty lists")
    check(table["format"] == 0.3 and table["environment"]["ambient_light"] == "ffffffff"
          and table["resolution"] == {"map_origin": point(0, 0), "map_size": point(8, 12), "pixels_per_grid": 20}
          and isinstance(table["resolution"]["pixels_per_grid"], int), f"wrong facts: {table['resolution']}")
    check(picture.convert("RGB").crop((21, 21, 39, 39)).getextrema() == ((255, 255),) * 3, "a marker is shown")


def characters_fit_their_squares(folder):
    run("print", "--what", "sheet", "--square", "30mm", "-o", folder, samples / "The Last Lantern.qrnm")
    pdf = folder / "The Last Lantern Character Sheet.pdf"
    words = tool("pdftotext", pdf, "-").split()
    check([word for word in words if word.isdigit()] == [str(n) for n in range(1, 13)], f"the strips are {words}")
    widest = max(right - left for left, _, right, _ in filled_areas(pdf, 1, (0, 0, 0)))
    check(abs(widest - 29 * MILLIMETRE) < 0.1, f"a strip is {widest} points wide")
    run("print", "--what", "sheet", "--square", "30mm", "-o", folder / "none", plain_map(folder), status=1)
    check(not list((folder / "none").glob("*")), "a sheet of nobody was printed")


for test in (squares_lie_where_they_belong, boards_are_cut_to_the_squares, table_maps_show_the_players_board,
             table_maps_know_walls_doors_and_lights, characters_fit_their_squares):
    with tempfile.TemporaryDirectory() as name:
        test(Path(name))
