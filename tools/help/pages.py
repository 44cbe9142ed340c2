#!/usr/bin/python3
"""Makes the pages of the help: each page of SOURCE in the frame that all share, and a page of all objects.

usage: pages.py SOURCE OBJECTS TARGET

TARGET/images holds the pictures. A page asks for one with "<!-- picture: NAME.png | caption -->". OBJECTS lists the
object menu, a line each: group, number and name, with tabs between.
"""

import argparse
import re
import shutil
import sys
from html import escape
from itertools import groupby
from pathlib import Path

PICTURE = re.compile(r"<!-- picture: (\S+) \| (.*?) -->")
FIGURE = '<figure><img src="images/{0}" alt="{1}"><figcaption>{1}</figcaption></figure>'
OBJECT = ('<li><img src="images/objects/{0}.png" alt=""><img src="images/objects/{0}-bw.png" alt=""><br>'
          "{1}</li>\n")


class Refusal(Exception):
    """A page that cannot be made, with the reason."""


def objects_page(rows):
    page = ("<h1>All objects</h1>\n<p>Each object in color and in black and white, in the groups of the object menu."
            "</p>\n")
    for group, objects in groupby(rows, key=lambda row: row[0]):
        items = "".join(OBJECT.format(number, escape(name, quote=False)) for _, number, name in objects)
        page += f'<h2>{escape(group, quote=False)}</h2>\n<ul class="objects">\n{items}</ul>\n'
    return page


def framed(frame, name, page, images):
    """The page in the frame; its title is its first heading."""
    heading = re.search("<h1>(.*?)</h1>", page)
    if not heading:
        raise Refusal(f"{name} has no heading")
    for picture, _ in PICTURE.findall(page):
        if not (images / picture).exists():
            raise Refusal(f"{name} asks for a picture that is not made: {picture}")
    page = PICTURE.sub(lambda wanted: FIGURE.format(*wanted.groups()), page)
    return frame.replace("{title}", heading[1]).replace("{page}", page)


def make(source, object_list, target):
    rows = [line.split("\t") for line in object_list.read_text(encoding="utf-8").splitlines()]
    pages = {page.name: page.read_text(encoding="utf-8") for page in source.glob("*.html")}
    frame = pages.pop("frame.html")
    pages["all-objects.html"] = objects_page(rows)
    made = {name: framed(frame, name, page, target / "images") for name, page in pages.items()}

    for old in target.glob("*.html"):
        old.unlink()
    for name, html in made.items():
        (target / name).write_text(html, encoding="utf-8")
    shutil.copyfile(source / "help.css", target / "help.css")


def main():
    parser = argparse.ArgumentParser(description="Makes the pages of the help.")
    for name in ("source", "objects", "target"):
        parser.add_argument(name, type=Path)
    options = parser.parse_args()
    try:
        make(options.source, options.objects, options.target)
    except (Refusal, OSError) as error:
        sys.exit(f"pages.py: {error}")


if __name__ == "__main__":
    main()
