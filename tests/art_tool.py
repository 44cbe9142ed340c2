#!/usr/bin/python3
"""The art tool builds good drawings, plain and large, and refuses each kind of bad one, naming its file.

usage: art_tool.py tools/build_art.py resources/art
"""

import io
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from PIL import Image

TOOL, ART = Path(sys.argv[1]), Path(sys.argv[2])
BOX = "M10,10 H46 V46 H10Z"
GOOD = f'<path class="wood" d="{BOX}"/><path class="o" d="{BOX}"/>'
OBJECT = "object Box BoxColor BoxMask BoxBW"
TERRAIN = "terrain Box BoxColor BoxMask BoxBW"
SHARED = "object Box BoxColor SharedMask BoxBW\nobject Lid LidColor SharedMask LidBW"

# What is wrong, the rows of the list, the drawing Box, and what is told of it.
REFUSED = [
    ("unknown class", OBJECT, GOOD.replace("wood", "wod"), "class wod is not in both stylesheets"),
    ("unresolved reference", OBJECT, GOOD + '<use href="#nowhere"/>', "#nowhere leads nowhere"),
    ("embedded style", OBJECT, "<style>.wood{fill:#f00}</style>" + GOOD, "element style is not allowed"),
    ("own paint", OBJECT, GOOD.replace('class="o"', 'fill="#000"'), "painted by class alone"),
    ("empty", OBJECT, "", "nothing to see (colour)"),
    ("empty in black and white", OBJECT, GOOD.replace('"wood"', '"wood c"').replace('"o"', '"o c"'), "nothing to see (bw)"),
    ("clipped", OBJECT, GOOD.replace("H46", "H56"), "drawn beyond the right edge"),
    ("white fringe", OBJECT, '<path class="white" d="M28.5,5 L51,28.5 L28.5,51 L5,28.5Z"/>', "white fringe of"),
    ("bad path data", OBJECT, GOOD.replace("V46", "V"), "has a fault at 'H10Z"),
    ("path that ends early", OBJECT, GOOD.replace("H10Z", "L10"), "ends too early"),
    ("id twice", OBJECT, '<g id="a"/><g id="a"/>' + GOOD, "id a given twice"),
    ("missing drawing", OBJECT, None, "there is no such drawing"),
    ("shared mask", SHARED, GOOD.replace("46", "40"), "SharedMask differs from that of"),
    ("rename of nothing", OBJECT + " red=blue", GOOD, "no class red"),
    ("hole in terrain", TERRAIN, '<path class="sand" d="M-2,-2 H58 V58 H-2Z M9,9 V20 H20 V9Z"/>', "must cover all its pixels"),
    ("seam in terrain", TERRAIN, '<rect class="sand" x="-2" y="-2" width="60" height="60"/><path class="dune-s" d="M0,9 H20"/>',
     "left and right do not join"),
]

SVG = '<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 56 56" width="56" height="56">{}</svg>'


class Tool(unittest.TestCase):
    def build(self, rows, box):
        """Exit status, what was told, and the files built from a source with the drawings Box and Lid."""
        with tempfile.TemporaryDirectory() as folder:
            source, out = Path(folder) / "art", Path(folder) / "out"
            for name in ("objects", "pages"):
                (source / name).mkdir(parents=True)
            for name in ("colour.css", "bw.css", "defs.svg"):
                shutil.copyfile(ART / name, source / name)
            (source / "pictures.txt").write_text(rows)
            for name, drawing in (("Box", box), ("Lid", GOOD)):
                if drawing is not None:
                    (source / "objects" / f"{name}.svg").write_text(SVG.format(drawing))
            done = subprocess.run([sys.executable, TOOL, "--source", source, "--out", out], capture_output=True, text=True)
            return done.returncode, done.stderr, {str(path.relative_to(out)): path.read_bytes()
                                                  for path in out.rglob("*") if path.is_file()}

    def test_bad_drawings_are_refused(self):
        for fault, rows, box, reason in REFUSED:
            with self.subTest(fault):
                status, told, files = self.build(rows, box)
                self.assertEqual((status, "art.qrc" in files), (1, False))
                self.assertRegex(told, "/(Box|Lid).*" + re.escape(reason))

    def test_good_drawings_are_built_in_both_sizes_with_masks_of_their_shape(self):
        for rows in (OBJECT, SHARED):
            status, told, files = self.build(rows, GOOD)
            self.assertEqual((status, told), (0, ""))
            mask = "BoxMask" if rows == OBJECT else "SharedMask"
            for size, folder in ((56, ""), (224, "4x/")):
                look, hidden, lines = (Image.open(io.BytesIO(files[f"{folder}{name}.png"])).convert("RGB")
                                       for name in ("BoxColor", mask, "BoxBW"))
                self.assertEqual([look.size, hidden.size, lines.size], [(size, size)] * 3)
                for picture in (look, hidden, lines):
                    white = [pixel == (255, 255, 255) for pixel in picture.getdata()]
                    self.assertAlmostEqual(white.count(False) / size ** 2, (38 / 56) ** 2, delta=0.05)
                self.assertIn(f'alias="{folder}BoxColor.art"', files["art.qrc"].decode())

if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
