#!/usr/bin/python3
"""Times one map to one PNG as a whole process, in turn with tmxrasterizer (package tiled) on a page of as many tiles.

usage: bench/peer.py [--runs N] [BUILD]

The peer's page has the same picture as ground and the same objects, as a tile map: 12 by 9 tiles in two layers.
"""

import argparse
import os
import resource
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

from PIL import Image

PROJECT = Path(__file__).resolve().parents[1]
COLUMNS, ROWS, TILE, CELL = 12, 9, 56, 62


def make_peer_map(folder, art):
    tiles = sorted(path for path in art.glob("*Color.png") if Image.open(path).size == (TILE, TILE))
    sheet = Image.new("RGBA", (TILE * 16, TILE * ((len(tiles) + 15) // 16)))
    for n, path in enumerate(tiles):
        sheet.paste(Image.open(path), (n % 16 * TILE, n // 16 * TILE))
    sheet.save(folder / "tiles.png")
    Image.open(art / "CobbleStoneColor2.png").save(folder / "ground.png")
    layers = "".join(
        f'<layer id="{layer}" name="{layer}" width="{COLUMNS}" height="{ROWS}"><data encoding="csv">'
        + ",".join(str(1 + (n * 7 + layer) % len(tiles) if n % (1 + 2 * layer) == 0 else 0)
                   for n in range(COLUMNS * ROWS))
        + "</data></layer>" for layer in (1, 2))
    (folder / "peer.tmx").write_text(
        f'<?xml version="1.0"?><map version="1.10" orientation="orthogonal" renderorder="right-down" width="{COLUMNS}"'
        f' height="{ROWS}" tilewidth="{CELL}" tileheight="{CELL}"><tileset firstgid="1" name="t" tilewidth="{TILE}"'
        f' tileheight="{TILE}" tilecount="{len(tiles)}" columns="16"><image source="tiles.png" width="{sheet.width}"'
        f' height="{sheet.height}"/></tileset><imagelayer id="9" name="g"><image source="ground.png"/></imagelayer>'
        f"{layers}</map>")


def run(command, folder):
    """Seconds on the clock and of processor time."""
    before, start = resource.getrusage(resource.RUSAGE_CHILDREN), time.monotonic()
    subprocess.run(command, cwd=folder, check=True, stdout=subprocess.DEVNULL,
                   env=dict(os.environ, QT_QPA_PLATFORM="offscreen"))
    clock, after = time.monotonic() - start, resource.getrusage(resource.RUSAGE_CHILDREN)
    return clock, after.ru_utime - before.ru_utime + after.ru_stime - before.ru_stime


def main():
    arguments = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    arguments.add_argument("--runs", type=int, default=40)
    arguments.add_argument("build", nargs="?", type=Path, default=PROJECT / "build")
    given = arguments.parse_args()
    build = given.build.resolve()
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        make_peer_map(folder, build / "art")
        ours = [build / "quorrin-map-batch", "export", "-o", folder, PROJECT / "samples/Toadstool Road.qrnm"]
        peer = ["tmxrasterizer", "peer.tmx", "peer.png"]
        pairs = [(run(ours, folder), run(peer, folder)) for _ in range(given.runs)]
    for what, at in ("on the clock", 0), ("of processor time", 1):
        mine, other = ([1000 * pair[side][at] for pair in pairs] for side in (0, 1))
        ratio = statistics.median(a / b for a, b in zip(mine, other))
        print(f"{statistics.median(mine):.0f} ms, the peer {statistics.median(other):.0f} ms {what}: {ratio:.2f}")


if __name__ == "__main__":
    sys.exit(main())
