#!/usr/bin/python3
"""Makes an edit in the built program by mouse and keyboard, on a screen of its own, saves it, and compares the file.

usage: window_run.py PROGRAM COMPANION MAP
"""

import os
import subprocess
import sys
import tempfile
import time
from pathlib import Path

program, companion, sample = (Path(argument).resolve() for argument in sys.argv[1:])
CHEST = b"37"


def wait_for(what, condition, seconds=30):
    end = time.monotonic() + seconds
    while not (result := condition()):
        if time.monotonic() > end:
            sys.exit(f"window_run: {what} did not come")
        time.sleep(0.1)
    return result


def tool(*arguments):
    done = subprocess.run(["xdotool", *map(str, arguments)], capture_output=True, text=True, check=False)
    return done.stdout.strip()


def window_named(pattern):
    return wait_for(f"the window {pattern}", lambda: tool("search", "--onlyvisible", "--name", pattern)).split()[-1]


def click(x, y):
    tool("mousemove", x, y)
    tool("click", 1)
    time.sleep(0.5)


def with_chest_on_first_square(content):
    sections = content.split(b"\xfe")
    mode, squares = sections[3].split(b"\xfb")
    first, rest = squares.split(b"\xfc", 1)
    values = first.split(b",")
    assert values[1] != CHEST, "the sample has the edit already"
    values[1] = CHEST
    sections[3] = mode + b"\xfb" + b",".join(values) + b"\xfc" + rest
    return b"\xfe".join(sections)


def edit_and_save(folder):
    window = window_named(f"Quorrin Map Maker - {sample.stem}")
    tool("windowmove", window, 0, 0, "windowfocus", window)
    height = int(tool("getwindowgeometry", "--shell", window).split("HEIGHT=")[1].split()[0])
    menu_bar = height - 796
    click(216, menu_bar + 33)  # the tab "Objects"
    click(166, menu_bar + 263)  # the popup of objects
    tool("type", "Chest")
    tool("key", "Return")
    click(326 + 7 + 30, menu_bar + 22 + 42 + 30)  # the first square
    tool("key", "ctrl+s")
    dialog = window_named("Save")
    tool("windowfocus", dialog, "key", "ctrl+a", "type", str(folder / "edited.qrnm"))
    tool("key", "Return")
    wait_for("the saved map", (folder / "edited.qrnm").exists)
    window_named("Quorrin Map Maker - edited$")
    tool("windowfocus", window, "key", "ctrl+q")


def answers(status, output, *arguments):
    done = subprocess.run([program, *arguments], env={}, capture_output=True, text=True, timeout=20, check=False)
    if done.returncode != status or output not in done.stdout + done.stderr:
        sys.exit(f"window_run: {arguments} got status {done.returncode} and {done.stdout + done.stderr!r}")


def complains(folder, map_path, complaint):
    """The window comes up all the same, with the blank map."""
    with open(folder / "complaints", "w+b") as complaints:
        running = subprocess.Popen([program, map_path], stderr=complaints)
        try:
            tool("windowfocus", window_named("^Quorrin Map Maker$"), "key", "ctrl+q")
            status = running.wait(20)
        finally:
            running.kill()
        complaints.seek(0)
        if status != 0 or complaint not in complaints.read():
            sys.exit(f"window_run: no {complaint}")


answers(0, "opens the map", "--help")
answers(0, "quorrin-map-maker ", "--version")
answers(2, 'there is no option "--colour"', "--colour")
with tempfile.TemporaryDirectory() as name:
    folder = Path(name)
    ends = os.pipe()
    screen = subprocess.Popen(["Xvfb", "-noreset", "-displayfd", str(ends[1]), "-screen", "0", "1280x1024x24"],
                              pass_fds=[ends[1]], stderr=subprocess.DEVNULL)
    try:
        os.environ.update(DISPLAY=":" + os.read(ends[0], 16).decode().strip(), HOME=name, XDG_DATA_HOME=name,
                          QT_QPA_PLATFORM="xcb")
        subprocess.run([companion, "upgrade", "-o", folder / "newest", sample], check=True)
        running = subprocess.Popen([program, sample])
        try:
            edit_and_save(folder)
            status = running.wait(20)
        finally:
            running.kill()
        expected = with_chest_on_first_square((folder / "newest" / sample.name).read_bytes())
        complains(folder, folder / "none.qrnm", b'there is no file "')
        complains(folder, folder, b'" cannot be read')
        if status != 0 or (folder / "edited.qrnm").read_bytes() != expected:
            sys.exit(f"window_run: status {status}, or the saved map is not the old one with a chest")
    finally:
        screen.kill()
print("One click, one chest, nothing else.")
