#!/usr/bin/python3
"""Kills the built program at random moments of an edit and compares what the next start recovers with a plain model.

usage: recovery_run.py PROGRAM COMPANION MAP [KILLS [SEED]]

Six kills by default, each on a screen of its own, three at a time. Then the ends that leave a moment to keep everything.
"""

import base64
import os
import random
import shutil
import signal
import subprocess
import sys
import tempfile
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

program, companion, sample = (Path(argument).resolve() for argument in sys.argv[1:4])
kills = int(sys.argv[4]) if len(sys.argv) > 4 else 6
seed = int(sys.argv[5]) if len(sys.argv) > 5 else 1

QUIET, LATEST = 2, 20
SLACK = 1.5  # for writing, and for a machine that has other things to do
CHEST = b"37"


class Person:
    """Somebody at a screen of their own, with a folder of their own for all that the program may write."""

    def __enter__(self):
        self.home = Path(tempfile.mkdtemp())
        ends = os.pipe()
        self.screen = subprocess.Popen(["Xvfb", "-displayfd", str(ends[1]), "-noreset", "-screen", "0", "1280x1024x24"],
                                       pass_fds=[ends[1]], stderr=subprocess.DEVNULL)
        os.close(ends[1])
        with os.fdopen(ends[0]) as display:
            self.environment = dict(os.environ, DISPLAY=":" + display.readline().strip(), HOME=str(self.home),
                                    XDG_DATA_HOME=str(self.home), XDG_STATE_HOME=str(self.home / "state"),
                                    QT_QPA_PLATFORM="xcb")
        self.running = []
        self.map = self.home / "Dark Cave.qrnm"
        subprocess.run([companion, "upgrade", "-o", self.home / "newest", sample], check=True)
        shutil.copy(self.home / "newest" / sample.name, self.map)
        self.content = self.map.read_bytes()
        return self

    def __exit__(self, *_):
        for process in [*self.running, self.screen]:
            process.kill()
            process.wait()
        shutil.rmtree(self.home)

    def tool(self, *arguments):
        done = subprocess.run(["xdotool", *map(str, arguments)], capture_output=True, text=True, check=False,
                              env=self.environment)
        return done.stdout.strip()

    def windows(self, name):
        return self.tool("search", "--onlyvisible", "--name", name).split()

    def window(self, name):
        return wait_for(f"the window {name}", lambda: self.windows(name))[-1]

    def start(self, *arguments):
        self.running.append(subprocess.Popen([program, *arguments], env=self.environment, stderr=subprocess.DEVNULL))
        return self.running[-1]

    def open_map(self):
        process = self.start(self.map)
        self.main = self.window("Dark Cave")
        self.tool("windowmove", self.main, 0, 0, "windowfocus", self.main)
        self.menu_bar = self.height(self.main) - 796
        return process

    def click(self, x, y, pause=0.5):
        self.tool("mousemove", x, self.menu_bar + y, "click", 1)
        time.sleep(pause)

    def saved(self, name):
        """Saves the map that is open and gives its content."""
        self.tool("windowfocus", self.window("Quorrin Map Maker - Dark Cave"), "key", "ctrl+s")
        self.tool("windowfocus", self.window("^Save$"), "key", "ctrl+a", "type", str(self.home / name))
        self.tool("key", "Return")
        wait_for("the saved map", (self.home / name).exists)
        return (self.home / name).read_bytes()

    def answer(self, key):
        """Answers the question about the copy."""
        self.tool("windowfocus", wait_for("the question", self.questions)[0], "key", key)

    def questions(self):
        """The windows that are smaller than the main one; they have the same title."""
        every = self.tool("search", "--onlyvisible", "--class", ".").split()
        return [window for window in every if self.height(window) < 400]

    def height(self, window):
        return int(self.tool("getwindowgeometry", "--shell", window).split("HEIGHT=")[1].split()[0])

    def copies(self):
        return list((self.home / "state").rglob("*.qrnm"))


def fail(what):
    raise AssertionError(what)


def wait_for(what, condition, seconds=30):
    end = time.monotonic() + seconds
    while not (result := condition()):
        if time.monotonic() > end:
            fail(f"{what} did not come")
        time.sleep(0.1)
    return result


# The ways to work: each makes ready, then yields one action at a time with what the map is after it.


def changed(content, section, mark, index, new):
    sections = content.split(b"\xfe")
    parts = sections[section].split(mark)
    parts[index] = new(parts[index])
    sections[section] = mark.join(parts)
    return b"\xfe".join(sections)


def with_chest(content, column, row):
    def chest(square):
        values = square.split(b",")
        values[1] = CHEST
        return b",".join(values)

    def chest_in(squares):
        items = squares.split(b"\xfc")
        items[12 * column + row] = chest(items[12 * column + row])
        return b"\xfc".join(items)

    return changed(content, 3, b"\xfb", 1, chest_in)


def placing(person, chance):
    person.click(216, 33)  # the tab "Objects"
    person.click(166, 263)
    person.tool("type", "Chest")
    person.tool("key", "Return")
    content = person.content
    while True:
        column, row = chance.randrange(12), chance.randrange(8)
        content = with_chest(content, column, row)
        yield ["mousemove", 326 + 7 + 30 + 62 * column, person.menu_bar + 22 + 42 + 30 + 62 * row, "click", 1], content


def typing(person, chance):
    person.click(258, 33)  # the tab "DM"
    person.click(166, 253)  # "Script Editor"
    person.click(500, 100)
    person.tool("key", "ctrl+End")
    text = base64.b64decode(person.content.split(b"\xfe")[4].split(b"\xbb")[1])
    while True:
        letter = chance.choice("abcdefgh")
        text += letter.encode()
        lines = base64.b64encode(text)
        lines = b"\r\n".join(lines[at:at + 76] for at in range(0, len(lines), 76))
        yield ["key", letter], changed(person.content, 4, b"\xbb", 1, lambda _, lines=lines: lines)


def numbering(person, chance):
    person.click(258, 33)
    person.click(166, 295)  # "Character Sheet"
    person.click(326 + 65, 21 + 100)  # the first token, whose editor stays open
    person.tool("windowfocus", person.window("^Character$"))
    person.tool("key", "Tab", "Tab", "Tab", "ctrl+a")
    text = ""
    while True:
        digit = chance.choice("123456789")
        remove = len(text) > 1
        text = text[:-1] if remove else text + digit
        number = str(int(text)).encode()
        yield (["key", "BackSpace" if remove else digit],
               changed(person.content, 6, b"\xfc", 0, lambda _, number=number: number + b"\xbb"))


WORK = [placing, typing, numbering]


def kill_and_recover(number):
    chance = random.Random(f"{seed} {number}")
    is_busy = number % 6 == 0  # no pause at all, for longer than the program may wait
    with Person() as person:
        process = person.open_map()
        actions = WORK[number // 2 % 3](person, chance)
        action, content = next(actions)
        states = [person.content]
        times = []  # of the end of each action
        start = time.monotonic()
        end = start + (chance.uniform(LATEST + SLACK + 0.5, 30) if is_busy else chance.uniform(1, 12))
        due = 0  # what the copy must hold at least
        while time.monotonic() < end:
            person.tool(*action)
            states.append(content)
            times.append(time.monotonic())
            action, content = next(actions)
            pause = chance.uniform(0.05, 0.4) if is_busy or chance.random() < 0.85 else chance.uniform(2.5, 5)
            time.sleep(max(0, min(pause, end - time.monotonic())))
            if time.monotonic() - times[-1] >= QUIET + SLACK:
                due = len(times)
        process.kill()
        killed = time.monotonic()
        process.wait()
        due = max([due, *(n + 1 for n, done in enumerate(times) if done <= killed - LATEST - SLACK)])

        person.start()
        person.window("^Quorrin Map Maker$")
        what = f"kill {number} after {killed - start:.1f} s and {len(times)} actions of {actions.__name__}"
        if not person.copies():
            if due:
                fail(f"{what}: no copy, though {due} actions were due")
            return f"{what}: nothing was due"
        person.answer("Return")
        recovered = person.saved("recovered.qrnm")
        held = max((n for n, state in enumerate(states) if state == recovered), default=-1)
        if held < due:
            fail(f"{what}: recovered {held} of them, due were {due}")
        wait_for("the end of the copy", lambda: not person.copies())
        if person.map.read_bytes() != person.content:
            fail(f"{what}: the map's own file was written")
        return f"{what}: {len(times) - held} are lost, {due} were due"


def end_orderly(how):
    with Person() as person:
        process = person.open_map()
        actions = placing(person, random.Random(seed))
        action, content = next(actions)
        person.tool(*action)
        time.sleep(0.3)
        if how == "X server":
            person.screen.terminate()
        else:
            process.send_signal(how)
        status = process.wait(20)
        if status != (1 if how == "X server" else -how):
            fail(f"{how}: status {status}")
        copies = person.copies()
        if [copy.read_bytes() for copy in copies] != [content]:
            fail(f"{how}: {len(copies)} copies, or another map")
        return f"{how}: all is kept"


def work_beside_each_other():
    """A living program's copy is nobody else's, a crashed one's waits until it is decided."""
    with Person() as person:
        first = person.open_map()
        action, content = next(placing(person, random.Random(seed)))
        person.tool(*action)
        wait_for("the copy", person.copies)
        second = person.start()
        person.window("^Quorrin Map Maker$")
        time.sleep(1)
        if person.questions():
            fail("a second program asks about the copy of a living one")
        second.kill()
        first.kill()
        first.wait()
        for answer, left in (("Escape", 1), ("Return", 1)):
            again = person.start()
            person.answer(answer)
            time.sleep(0.5)
            if len(person.copies()) != left:
                fail(f"{len(person.copies())} copies are left")
            if answer == "Escape":
                again.kill()
                again.wait()
        if person.saved("again.qrnm") != content:
            fail("what was put off came back as another map")
        return "two programs: each has its own"


with ThreadPoolExecutor(3) as pool:
    runs = [pool.submit(kill_and_recover, number) for number in range(kills)]
    runs += [pool.submit(end_orderly, how) for how in (signal.SIGTERM, signal.SIGHUP, "X server")]
    runs.append(pool.submit(work_beside_each_other))
failures = 0
for run in runs:
    if run.exception():
        failures += 1
    print(run.exception() or run.result())
sys.exit(f"recovery_run: {failures} of {len(runs)} failed" if failures else 0)
