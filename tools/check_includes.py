#!/usr/bin/python3
"""Refuses an include that climbs the ladder of the folders (docs/architecture.md), and Qt or the system where it does not
belong."""

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
FOR_EVERYONE = "app/Module1.h"
# The toolkit's headers stay free of Qt, but for these; only the first is for the desktop, too.
QT_HEADER = Path("toolkit/QtBridge.h")
QT_HEADERS = {QT_HEADER} | {Path("toolkit", name) for name in
                            ("CarriedArt.h", "LaidOutText.h", "Painting.h", "PictureDecoding.h", "PictureSource.h")}
# Of POSIX and Windows, some of which the other has, too.
SYSTEM = re.compile(r"sys/|(unistd|fcntl|dirent|poll|pthread|pwd|spawn|io|windows)\.h$")
SYSTEM_FILES = re.compile(r"(Posix|Windows)\.cpp$")
INCLUDE = re.compile(r'^\s*#\s*include\s*(["<])([^">]+)[">]', re.MULTILINE)


def may_include(folder, wanted):
    return wanted == folder or RUNGS[wanted] < RUNGS[folder]


def may_name_qt(path):
    folder = path.parts[0]
    return folder == "desktop" or path in QT_HEADERS or (folder == "toolkit" and path.suffix == ".cpp")


def faults(source):
    for path in sorted(source.rglob("*.*")):
        if path.suffix not in {".h", ".cpp"}:
            continue
        here = path.relative_to(source)
        for bracket, name in INCLUDE.findall(path.read_text(encoding="utf-8")):
            if bracket == "<":
                if re.match(r"Q[A-Z]", name) and not may_name_qt(here):
                    yield f"{here} names Qt: {name}"
                if SYSTEM.match(name) and not SYSTEM_FILES.search(path.name):
                    yield f"{here} names the system: {name}"
            elif Path(name) in QT_HEADERS:
                if not may_name_qt(here):
                    yield f"{here} reaches behind the toolkit: {name}"
            elif name != FOR_EVERYONE and name.split("/")[0] in RUNGS:
                if not may_include(here.parts[0], name.split("/")[0]):
                    yield f"{here} climbs: {name}"


if __name__ == "__main__":
    found = list(faults(Path(sys.argv[1])))
    print("\n".join(found) or "All includes go down the ladder.")
    sys.exit(bool(found))
