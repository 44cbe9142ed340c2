#!/usr/bin/python3
"""Kills the built program at random moments of an edit and compares what the next start recovers with a plain model.

usage: recovery_run.py PROGRAM COMPANION MAP [KILLS [SEED]]

Six kills by default, each on a screen of its own, three at a time. Then the ends that leave a moment to keep everything.
"""

import base64
import random
import signal
import sys
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from person import Person, changed, fail, placing, wait_for

files = [Path(argument).resolve() for argument in sys.argv[1:4]]
kills = int(sys.argv[4]) if len(sys.argv) > 4 else 6
seed = int(sys.argv[5]) if len(sys.argv) > 5 else 1

QUIET, LATEST = 2, 20
SLACK = 1.5  # for writing, and for a machine that has other things to do


# The ways to work: each makes ready, then yields one action at a time with what the map is after it.


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
    with Person(*files) as person:
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
    with Person(*files) as person:
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
    with Person(*files) as person:
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
