#!/usr/bin/python3
"""Reads the built program's window as a screen reader does, and compares what it says of each control.

usage: accessibility.py PROGRAM MAP
"""

import os
import subprocess
import sys

if "DBUS_SESSION_BUS_ADDRESS" not in os.environ or os.environ.get("QUORRIN_OWN_SESSION") != "yes":
    os.environ["QUORRIN_OWN_SESSION"] = "yes"
    os.execvp("dbus-run-session", ["dbus-run-session", "--", sys.executable, *sys.argv])

import pyatspi  # noqa: E402, needs the session

from person import wait_for  # noqa: E402

# Some of what stands in the window beside texts and frames, in its order: role, name, value.
EXPECTED = [
    ("combo box", "Orientation", "Landscape"),
    ("push button", "Edit User Picture", ""),
    ("check box", "Overlay User Picture", "off"),
    ("combo box", "Top border", "Mountain Range"),
    ("combo box", "Grid", "Brown"),
    ("check box", "Top wall", "off"),
    ("color chooser", "Wall color", "#000000"),
    ("canvas", "Preview of the walls", "No walls"),
    ("canvas", "Object palette", "Blank"),
    ("check box", "Show Dungeon Master Objects", "on"),
    ("check box", "Script Editor", "off"),
    ("page tab list", "Background", ""),
    ("canvas", "Map", ""),
    ("text", "Monsters", "4 goblins in the mine (1)"),
]
CONTROLS = 44
ROLES = {role for role, _, _ in EXPECTED} | {"frame"}


def spoken(control):
    """Role, name and value as a screen reader takes them: a label's name wins over the control's own."""
    role = control.getRoleName()
    labels = [relation.getTarget(0).name for relation in control.getRelationSet()
              if relation.getRelationType() == pyatspi.RELATION_LABELLED_BY]
    value = {
        "combo box": lambda: control.name,
        "check box": lambda: "on" if control.getState().contains(pyatspi.STATE_CHECKED) else "off",
        "text": lambda: control.queryText().getText(0, -1).split("\n")[0],
        "canvas": lambda: control.description,
        "color chooser": lambda: control.description,
    }.get(role, lambda: "")()
    return role, labels[0] if labels else control.name, value


def controls_in(parent):
    for child in parent:
        if child.getRoleName() in ROLES:
            yield child
        if child.getRoleName() not in ("combo box", "text", "page tab list", "menu bar"):
            yield from controls_in(child)


def check(program, sample):
    running = subprocess.Popen([program, sample])
    try:
        desktop = pyatspi.Registry.getDesktop(0)
        window = wait_for("the window", lambda: next(
            (w for a in desktop if a and a.name == "Quorrin Map Maker" for w in a if " - " in w.name), None))
        controls = list(controls_in(window))
        got = [spoken(control) for control in controls]
        named = {name for role, name, _ in got}
        if [control for control in got if control in EXPECTED] != EXPECTED or "" in named or len(got) != CONTROLS:
            sys.exit("accessibility: " + "\n".join([f"{len(got)} controls", *map(str, got)]))
        # Where one is on the map is told as soon as one is there.
        map_canvas = controls[got.index(("canvas", "Map", ""))]
        subprocess.run(["xdotool", "search", "--onlyvisible", "--name", window.name, "windowfocus", "--sync"], check=True)
        map_canvas.queryComponent().grabFocus()
        wait_for("the first square", lambda: map_canvas.description == "Column 1, row 1: Mountians")
        unexplained = {name for control, (role, name, _) in zip(controls, got)
                       if role == "combo box" and "border" not in name and not control.description}
        if unexplained:
            sys.exit(f"accessibility: nothing explains {unexplained}")
    finally:
        running.kill()


ends = os.pipe()
screen = subprocess.Popen(["Xvfb", "-noreset", "-displayfd", str(ends[1]), "-screen", "0", "1280x1024x24"],
                          pass_fds=[ends[1]], stderr=subprocess.DEVNULL)
try:
    os.environ.update(DISPLAY=":" + os.read(ends[0], 16).decode().strip(), QT_QPA_PLATFORM="xcb",
                      QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
    check(*sys.argv[1:])
finally:
    screen.kill()
print("Every control says what it is.")
