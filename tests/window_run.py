#!/usr/bin/python3
"""Makes an edit in the built program by mouse and keyboard, on a screen of its own, saves it, and compares the file.

usage: window_run.py PROGRAM COMPANION MAP
"""

import random
import subprocess
import sys
from pathlib import Path

from person import Person, fail, placing

files = [Path(argument).resolve() for argument in sys.argv[1:]]


def answers(status, output, *arguments):
    done = subprocess.run([files[0], *arguments], env={}, capture_output=True, text=True, timeout=20, check=False)
    if done.returncode != status or output not in done.stdout + done.stderr:
        fail(f"{arguments} got status {done.returncode} and {done.stdout + done.stderr!r}")


def complains(person, complaint, *maps):
    """The window comes up all the same, with the blank map."""
    with open(person.home / "complaints", "w+b") as complaints:
        running = person.start(*maps, complaints=complaints)
        person.tool("windowfocus", person.window("^Quorrin Map Maker$"), "key", "ctrl+q")
        status = running.wait(20)
        complaints.seek(0)
        if status != 0 or complaint not in complaints.read():
            fail(f"no {complaint}")


answers(0, "opens the map", "--help")
answers(0, "quorrin-map-maker ", "--version")
answers(2, 'there is no option "--colour"', "--colour")
with Person(*files) as person:
    running = person.open_map()
    action, content = next(placing(person, random.Random(1)))
    person.tool(*action)
    if person.saved("edited.qrnm") != content:
        fail("the saved map is not the old one with a chest")
    person.tool("windowfocus", person.window("Quorrin Map Maker - edited$"), "key", "ctrl+q")
    if running.wait(20) != 0:
        fail(f"status {running.returncode}")
    complains(person, b'there is no file "-none.qrnm"', "--", "-none.qrnm")
    complains(person, b'" cannot be read', person.home)
    complains(person, b'only one map can be open; "two.qrnm" is left out', person.home / "one.qrnm", "two.qrnm")
print("One click, one chest, nothing else.")
