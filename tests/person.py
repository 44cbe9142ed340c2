"""Somebody who works the built program by mouse and keyboard, and what becomes of the map."""

import os
import shutil
import subprocess
import tempfile
import time
from pathlib import Path

CHEST = b"37"


class Person:
    """Somebody at a screen of their own, with a folder of their own for all that the program may write."""

    def __init__(self, program, companion, sample):
        self.program, self.companion, self.sample = program, companion, sample

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
        subprocess.run([self.companion, "upgrade", "-o", self.home / "newest", self.sample], check=True)
        shutil.copy(self.home / "newest" / self.sample.name, self.map)
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

    def start(self, *arguments, complaints=subprocess.DEVNULL):
        self.running.append(subprocess.Popen([self.program, *arguments], env=self.environment, stderr=complaints))
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


def with_chest(content, column, row):
    sections = content.split(b"\xfe")
    squares = sections[3].split(b"\xfc")
    marker, _, rest = squares[12 * column + row].split(b",", 2)
    squares[12 * column + row] = b",".join([marker, CHEST, rest])
    sections[3] = b"\xfc".join(squares)
    return b"\xfe".join(sections)


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
