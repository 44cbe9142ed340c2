#!/usr/bin/python3
"""Rasterises the drawings of resources/art into the pictures of the program.

usage: build_art.py --source resources/art --out DIR
"""

import argparse
import sys
from pathlib import Path

sys.dont_write_bytecode = True  # keeps the source tree clean
from art import Refusal, build, manifest


def main():
    parser = argparse.ArgumentParser(description="Rasterises the drawings into the program's pictures.")
    parser.add_argument("--source", default="resources/art", type=Path)
    parser.add_argument("--out", required=True, type=Path)
    options = parser.parse_args()
    try:
        rows = manifest.read(options.source)
        refusals = build.build_rows(rows, options.source, options.out)
        if refusals:
            raise Refusal("\n".join(refusals))
        build.write_lists(rows, options.out)
    except (Refusal, OSError) as error:
        print(f"build_art: {error}".replace("\n", "\nbuild_art: "), file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
