#!/usr/bin/python3
"""Makes the icons of an icon theme's folder from drawings that are painted by a stylesheet.

usage: make_icons.py --out DIR --stylesheet FILE.css CONTEXT/NAME=DRAWING.svg...
writes DIR/scalable/CONTEXT/NAME.svg, which needs no stylesheet, and DIR/SIZExSIZE/CONTEXT/NAME.png
"""

import argparse
import re
import subprocess
import xml.etree.ElementTree as ET
from pathlib import Path

SVG = "http://www.w3.org/2000/svg"
SIZES = (16, 22, 24, 32, 48, 64, 128, 256, 512)


def rules_for(stylesheet, words):
    """The rules of the stylesheet for the svg element and for the classes of that set."""
    text = re.sub(r"/\*.*?\*/", "", stylesheet.read_text(), flags=re.S)
    rules = ((selector.strip(), body) for selector, body in re.findall(r"([^{}]+)\{([^{}]*)\}", text))
    return "".join(f"{selector}{{{body}}}" for selector, body in rules if selector == "svg" or selector[1:] in words)


def self_contained(drawing, stylesheet):
    root = ET.parse(drawing).getroot()
    words = {word for element in root.iter() for word in element.get("class", "").split()}
    if words:
        style = ET.Element(f"{{{SVG}}}style")
        style.text = rules_for(stylesheet, words)
        root.insert(0, style)
    return ET.tostring(root, encoding="unicode")


def main():
    parser = argparse.ArgumentParser(description="Makes the icons of an icon theme's folder.")
    parser.add_argument("--out", required=True, type=Path)
    parser.add_argument("--stylesheet", required=True, type=Path)
    parser.add_argument("icons", nargs="+", metavar="CONTEXT/NAME=DRAWING.svg")
    options = parser.parse_args()
    ET.register_namespace("", SVG)
    for icon in options.icons:
        name, drawing = icon.split("=", 1)
        scalable = options.out / "scalable" / f"{name}.svg"
        scalable.parent.mkdir(parents=True, exist_ok=True)
        scalable.write_text(self_contained(drawing, options.stylesheet))
        for size in SIZES:
            picture = options.out / f"{size}x{size}" / f"{name}.png"
            picture.parent.mkdir(parents=True, exist_ok=True)
            subprocess.run(["rsvg-convert", "-w", str(size), "-h", str(size), "-o", picture, scalable], check=True)


if __name__ == "__main__":
    main()
