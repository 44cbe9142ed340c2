#!/usr/bin/python3
"""Makes the icons of an icon theme's folder from drawings that are painted by a stylesheet.

usage: make_icons.py --out DIR --stylesheet FILE.css CONTEXT/NAME=DRAWING.svg[,SMALL.svg]...
writes DIR/scalable/CONTEXT/NAME.svg, which needs no stylesheet, and DIR/SIZExSIZE/CONTEXT/NAME.png, up to 32 pixels
from the small drawing; an icon named ...-symbolic becomes DIR/symbolic/CONTEXT/NAME.svg alone
"""

import argparse
import re
import subprocess
import xml.etree.ElementTree as ET
from pathlib import Path

SVG = "http://www.w3.org/2000/svg"
SMALL_SIZES = (16, 22, 24, 32)
SIZES = (48, 64, 128, 256, 512)


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


def write(path, text):
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(text)


def draw(out, name, drawing, sizes):
    for size in sizes:
        picture = out / f"{size}x{size}" / f"{name}.png"
        picture.parent.mkdir(parents=True, exist_ok=True)
        subprocess.run(["rsvg-convert", "-w", str(size), "-h", str(size), "-o", picture], input=drawing.encode(), check=True)


def main():
    parser = argparse.ArgumentParser(description="Makes the icons of an icon theme's folder.")
    parser.add_argument("--out", required=True, type=Path)
    parser.add_argument("--stylesheet", required=True, type=Path)
    parser.add_argument("icons", nargs="+", metavar="CONTEXT/NAME=DRAWING.svg[,SMALL.svg]")
    options = parser.parse_args()
    ET.register_namespace("", SVG)
    for icon in options.icons:
        name, files = icon.split("=", 1)
        drawings = [self_contained(file, options.stylesheet) for file in files.split(",")]
        if name.endswith("-symbolic"):
            write(options.out / "symbolic" / f"{name}.svg", drawings[0])
            continue
        write(options.out / "scalable" / f"{name}.svg", drawings[0])
        draw(options.out, name, drawings[0], SIZES)
        draw(options.out, name, drawings[-1], SMALL_SIZES)


if __name__ == "__main__":
    main()
