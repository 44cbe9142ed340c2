#!/usr/bin/python3
"""Refuses an include that climbs the ladder of the folders (docs/architecture.md) or goes around it, and Qt or the
system where it does not belong."""

import re
import sys
from pathlib import Path

RUNGS = {
    "toolkit": 1,
    "document": 2,
    "render": 3, "maze": 3, "characters": 3,
    "edit": 4, "output": 4, "userpicture": 4,
    "app": 5,
    "desktop": 6, "batch": 6,
}
# The toolkit's headers stay free of Qt, but for these; only the first is for the desktop, too.
QT_HEADER = "toolkit/QtBridge.h"
QT_HEADERS = {QT_HEADER} | {f"toolkit/{name}.h" for name in
                            ("CarriedArt", "LaidOutText", "Painting", "PictureDecoding", "PictureSource",
                             "Repainting")}
# The build makes it, so it lies in no folder of the ladder.
MADE = "ArtPictures.inc"

# Of POSIX and Windows, some of which the other has, too.
SYSTEM = re.compile(r"sys/|(unistd|fcntl|dirent|poll|pthread|pwd|spawn|io|windows)\.h$")
SYSTEM_FILES = re.compile(r"(Posix|Windows)\.cpp$")

INCLUDE = re.compile(r"^[ \t]*#[ \t]*include\b[ \t]*(\S+).*$", re.MULTILINE)
TEXT_OR_COMMENT = re.compile(r'"(?:\\.|[^"\\\n])*"|//[^\n]*|/\*.*?\*/', re.DOTALL)
# A folder or header of Qt: QPainter, QtGui/QPainter, qpainter.h.
QT_INCLUDE = re.compile(r"(^|/)(Qt?[A-Z]|q\w+\.h$)")
# A class or macro of Qt in the code, which may be declared without an include.
QT_NAME = re.compile(r"\b(?:Q(?!UORRIN_)[A-Z]\w*|Qt\b)")


def may_name_qt(here):
    folder = here.parts[0]
    return folder == "desktop" or str(here) in QT_HEADERS or (folder == "toolkit" and here.suffix == ".cpp")


def fault_of_include(here, include):
    name = include.strip('"<>')
    folder = name.split("/")[0]
    if ".." in name.split("/") or name.startswith("."):
        return f"goes around the ladder: {name}"
    if name in QT_HEADERS:
        reachable = may_name_qt(here) and (here.parts[0] == "toolkit" or name == QT_HEADER)
        return None if reachable else f"reaches behind the toolkit: {name}"
    if folder in RUNGS:
        own = here.parts[0]
        fine = folder == own or RUNGS[folder] < RUNGS[own]
        return None if fine else f"climbs: {name}"
    if SYSTEM.match(name) and not SYSTEM_FILES.search(here.name):
        return f"names the system: {name}"
    if QT_INCLUDE.search(name):
        if not may_name_qt(here):
            return f"names Qt: {name}"
        return None if include[0] == "<" else f"names Qt in quotes: {name}"
    return None if include[0] == "<" or name == MADE else f"goes around the ladder: {name}"


def faults(source):
    for path in sorted(source.rglob("*.*")):
        here = path.relative_to(source)
        text = path.read_text(encoding="utf-8")
        found = [fault_of_include(here, include) for include in INCLUDE.findall(text)]
        if not may_name_qt(here):
            code = TEXT_OR_COMMENT.sub("", INCLUDE.sub("", text))
            found += [f"names Qt: {name}" for name in QT_NAME.findall(code)]
        yield from (f"{here} {fault}" for fault in found if fault)


if __name__ == "__main__":
    found = list(faults(Path(sys.argv[1])))
    print("\n".join(found) or "All includes go down the ladder.")
    sys.exit(bool(found))
