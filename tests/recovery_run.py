#!/usr/bin/python3
"""Kills the built program at random moments of an edit and compares what the next start recovers with a plain model.

usage: recovery_run.py PROGRAM COMPANION MAP [KILLS [SEED]]

Six kills by default, each on a screen of its own, three at a time. Then the ends that leave a moment to keep everything.
"""

import random
import signal
import sys
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from person import Person, fail, placing, wait_for

files = [Path(argument).resolve() for argument in sys.argv[1:4]]
kills = int(sys.argv[4]) if len(sys.argv) > 4 else 6
seed = int(sys.argv[5]) if len(sys.argv) > 5 else 1

QUIET, LATEST = 2, 20
SLACK = 1.5  # for writing, and for a machine that has other things to do


def kill_and_recover(number):
    chance = random.Random(f"{seed} {number}")
    is_busy = number % 6 == 0  # no pause at all, for longer than the program may wait
    with Person(*files) as person:
        process = person.open_map()
        actions = placing(person, chance)
        states, times = [person.content], []  # after each action, and when it ended
        start = time.monotonic()
        end = start + (chance.uniform(LATEST + SLACK + 0.5, 30) if is_busy else chance.uniform(1, 12))
        due = 0  # what the copy must hold at least
        while time.monotonic() < end:
            action, content = next(actions)
            person.tool(*action)
            states.append(content)
            times.append(time.monotonic())
            pause = chance.uniform(0.05, 0.4) if is_busy or chance.random() < 0.85 else chance.uniform(2.5, 5)
            time.sleep(max(0, min(pause, end - time.monotonic())))
            if time.monotonic() - times[-1] >= QUIET + SLACK:
                due = len(times)
        process.kill()
        due = max([due, *(n + 1 for n, done in enumerate(times) if done <= time.monotonic() - LATEST - SLACK)])
        process.wait()

        person.start()
        person.window("^Quorrin Map Maker$")
        what = f"kill {number} after {len(times)} actions, {due} of them due"
        if not person.copies():
            if due:
                fail(f"{what}: no copy")
            return f"{what}: no copy"
        person.answer("Return")
        recovered = person.saved("recovered.qrnm")
        held = max((n for n, state in enumerate(states) if state == recovered), default=-1)
        if held < due:
            fail(f"{what}: recovered {held}")
        wait_for("the end of the copy", lambda: not person.copies())
        if person.map.read_bytes() != person.content:
            fail(f"{what}: the map's own file was written")
        return f"{what}: {len(times) - held} are lost"


def end_orderly(how):
    with Person(*files) as person:
        process = person.open_map()
        action, content = next(placing(person, random.Random(seed)))
        person.tool(*action)
        if how == "X server":
            person.screen.terminate()
        else:
            process.send_signal(how)
        status = process.wait(20)
        copies = [copy.read_bytes() for copy in person.copies()]
        if status != (1 if how == "X server" else -how) or copies != [content]:
            fail(f"{how}: status {status}, {len(copies)} copies or another map")
        return f"{how}: all is kept"


with ThreadPoolExecutor(3) as pool:
    runs = [pool.submit(kill_and_recover, number) for number in range(kills)]
    runs += [pool.submit(end_orderly, how) for how in (signal.SIGTERM, signal.SIGHUP, "X server")]
for run in runs:
    print(run.exception() or run.result())
failures = sum(run.exception() is not None for run in runs)
sys.exit(f"recovery_run: {failures} of {len(runs)} failed" if failures else 0)
