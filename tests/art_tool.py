#!/usr/bin/python3
"""The art tool builds good drawings, plain and large, and refuses each kind of bad one, naming its file.

usage: art_tool.py tools/build_art.py resources/art
"""

import io
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

import numpy as np
import zstandard
from PIL import Image

TOOL, ART = Path(sys.argv[1]), Path(sys.argv[2])
BOX = "M10,10 H46 V46 H10Z"
GOOD = f'<path class="wood" d="{BOX}"/><path class="o" d="{BOX}"/>'
OBJECT = "object Box BoxColor BoxMask BoxBW"
TERRAIN = "terrain Box BoxColor BoxMask BoxBW"
PAGES = "page Field Field\ngrid Lines Lines\nborder Hedge Hedge HedgeMask"
SHARED = "object Box BoxColor SharedMask BoxBW\nobject Lid LidColor SharedMask LidBW"

# What is wrong, the rows of the list, the drawing Box, and what is told of it.
REFUSED = [
    ("unknown class", OBJECT, GOOD.replace("wood", "wod"), "class wod is not in both stylesheets"),
    ("unresolved reference", OBJECT, GOOD + '<use href="#nowhere"/>', "#nowhere leads nowhere"),
    ("unresolved clip", OBJECT, GOOD.replace("path", 'path clip-path="url(#gone)"', 1), "#gone leads nowhere"),
    ("embedded style", OBJECT, "<style>.wood{fill:#f00}</style>" + GOOD, "element style is not allowed"),
    ("style attribute", OBJECT, GOOD.replace('class="o"', 'style="stroke:#000"'), "is not allowed"),
    ("own paint", OBJECT, GOOD.replace('class="o"', 'fill="#000"'), "painted by class alone"),
    ("empty", OBJECT, "", "nothing to see (colour)"),
    ("empty in black and white", OBJECT, GOOD.replace('"wood"', '"wood c"').replace('"o"', '"o c"'), "nothing to see (bw)"),
    ("clipped", OBJECT, GOOD.replace("H46", "H56"), "drawn beyond the right edge"),
    ("white fringe", OBJECT, '<path class="white" d="M28.5,5 L51,28.5 L28.5,51 L5,28.5Z"/>', "white fringe of"),
    ("bad path data", OBJECT, GOOD.replace("V46", "V"), "has a fault at 'H10Z"),
    ("path that ends early", OBJECT, GOOD.replace("H10Z", "L10"), "ends too early"),
    ("bad number", OBJECT, GOOD + '<circle class="o" cx="2 8" cy="28" r="4"/>', "is no number"),
    ("id twice", OBJECT, '<g id="a"/><g id="a"/>' + GOOD, "id a given twice"),
    ("broken XML", OBJECT, GOOD[:-2], "not well-formed"),
    ("missing drawing", OBJECT, None, "there is no such drawing"),
    ("shared mask", SHARED, GOOD.replace("46", "40"), "SharedMask differs from that of"),
    ("rename of nothing", OBJECT + " red=blue", GOOD, "no class red"),
    ("hole in terrain", TERRAIN, '<path class="sand" d="M-2,-2 H58 V58 H-2Z M9,9 V20 H20 V9Z"/>', "must cover all its pixels"),
    ("seam in terrain", TERRAIN, '<rect class="sand" x="-2" y="-2" width="60" height="60"/><path class="dune-s" d="M0,9 H20"/>',
     "left and right do not join"),
]

SVG = '<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {0} {1}" width="{0}" height="{1}">{2}</svg>'
# A quiet ground that its filter moves in from beyond the page, a mark, and a veil over it.
FIELD = """<defs><filter id="push" x="-40" y="-40" width="120" height="110" filterUnits="userSpaceOnUse"><feOffset dx="9" dy="-9"/></filter></defs>
<g id="ground"><rect x="-40" y="-40" width="120" height="110" fill="#88bb66" filter="url(#push)"/></g>
<path fill="#224411" d="M10.3,7 L30,9.6 L12,22Z"/>
<g id="veil"><rect x="-40" y="-40" width="120" height="110" fill="#fff" opacity=".25"/></g>"""
PAGE_DRAWINGS = {"Field": (40, 30, FIELD), "Lines": (40, 30, '<path stroke="#221100" stroke-opacity=".6" d="M3,5.5 H37 M8,2 L20,27"/>'),
                 "Hedge": (40, 12, '<path class="leaf" d="M3,3 H36 L30,10 H6Z"/>')}


def blocks(picture):
    """The large picture as rows x columns of the plain one x 16 x channels."""
    pixels = np.asarray(picture, dtype=float)
    pixels = pixels.reshape(*pixels.shape[:2], -1)
    rows, columns = pixels.shape[0] // 4, pixels.shape[1] // 4
    return pixels.reshape(rows, 4, columns, 4, -1).swapaxes(1, 2).reshape(rows, columns, 16, -1)


class Tool(unittest.TestCase):
    def build(self, rows, box):
        """Exit status, what was told, and the files built from a source with the drawings Box and Lid and of pages."""
        with tempfile.TemporaryDirectory() as folder:
            source, out = Path(folder) / "art", Path(folder) / "out"
            (source / "objects").mkdir(parents=True)
            (source / "pages").mkdir()
            for name in ("colour.css", "bw.css", "defs.svg"):
                shutil.copyfile(ART / name, source / name)
            (source / "pictures.txt").write_text(rows)
            for name, drawing in (("Box", box), ("Lid", GOOD)):
                if drawing is not None:
                    (source / "objects" / f"{name}.svg").write_text(SVG.format(56, 56, drawing))
            for name, drawing in PAGE_DRAWINGS.items():
                (source / "pages" / f"{name}.svg").write_text(SVG.format(*drawing))
            done = subprocess.run([sys.executable, TOOL, "--source", source, "--out", out], capture_output=True, text=True)
            files = {str(path.relative_to(out)): path.read_bytes() for path in out.rglob("*") if path.is_file()}
            return done.returncode, done.stderr, files

    def test_good_drawings_are_built(self):
        for rows in (OBJECT, SHARED):
            status, told, files = self.build(rows, GOOD)
            self.assertEqual((status, told), (0, ""))
            self.assertLessEqual({"BoxColor.png", "BoxBW.png", "art.qrc", "ArtPictures.inc"}, set(files))

    def pictures(self, rows, box):
        """Picture name -> (plain, large), after finding what the program carries of both."""
        status, told, files = self.build(rows, box)
        self.assertEqual((status, told), (0, ""))
        pairs = {}
        for file in [file for file in files if Path(file).suffix in (".png", ".jpg")]:
            picture = Image.open(io.BytesIO(files[file]))
            carried = file.replace(".png", ".art")
            self.assertIn(f'alias="{carried}"', files["art.qrc"].decode())
            if carried != file:
                packed = files[carried]
                self.assertEqual(struct.unpack("<HHB", packed[:5]), (*picture.size, len(picture.getbands())))
                self.assertEqual(zstandard.decompress(packed[5:]), picture.tobytes())
            pairs.setdefault(Path(file).stem, [None, None])[file.startswith("4x/")] = picture
        return pairs

    def test_large_pictures_are_the_plain_ones_with_four_pixels_a_unit(self):
        slanting = GOOD.replace("H46 V46", "L46,13 L41,46")
        grass = '<rect class="turf" x="-2" y="-2" width="60" height="60"/><path class="grass" d="M9,9 H30 L20,31Z"/>'
        for rows, box, names in ((OBJECT, slanting, 3), (TERRAIN, grass, 3), (PAGES, GOOD, 4)):
            pairs = self.pictures(rows, box)
            self.assertEqual(len(pairs), names)
            for name, (plain, large) in pairs.items():
                with self.subTest(rows=rows, name=name):
                    self.check_pair(plain, large)
            for colour, mask in (("BoxColor", "BoxMask"), ("Hedge", "HedgeMask")):
                if colour in pairs:
                    for look, hidden in zip(pairs[colour], pairs[mask]):
                        white = (np.asarray(look.convert("RGB")) == 255).all(axis=2)
                        self.assertTrue(((np.asarray(hidden) == 255) == white).all(), colour)

    def check_pair(self, plain, large):
        self.assertEqual(large.size, (plain.width * 4, plain.height * 4))
        jpeg = large.format == "JPEG"
        if plain.mode == "RGBA":
            plain, large = plain.convert("RGBa"), large.convert("RGBa")
        small, big = np.asarray(plain, dtype=float), blocks(large)
        # An edge is cut at each scale by itself; where the large picture is of one colour the plain one has that colour.
        compared = np.full(big.shape[:2], True) if plain.mode == "RGBa" or jpeg else np.ptp(big, axis=2).max(axis=2) == 0
        self.assertGreater(compared.mean(), 0.6)
        off = np.abs(big.mean(axis=2) - small.reshape(*big.shape[:2], -1))[compared]
        self.assertLess(off.max(), 12 if jpeg else 2)
        self.assertLess(off.mean(), 1)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
