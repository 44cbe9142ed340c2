#!/usr/bin/python3
"""Changes one thing in src at a time, in a copy of the project, and tells which of the changes the tests catch.

usage: mutate.py SCRATCH [--count N] [--seed S] [--art FOLDER] [FOLDER_OF_SRC...]

SCRATCH keeps the copy and its build for the next time. --art takes finished art, as of build/art, which saves making it.
The folders of src (all by default) take turns, so that each is changed about as often.
"""

import argparse
import os
import random
import re
import shutil
import subprocess
import sys
from pathlib import Path

PROJECT = Path(__file__).resolve().parents[2]
# Changes that leave every behaviour as it is, as this tool prints them but for the number of the line.
EQUIVALENT = (PROJECT / "tests/mutation/equivalent.txt").read_text(encoding="utf-8").splitlines()
PAIRS = {"==": "!=", "!=": "==", " < ": " <= ", " <= ": " < ", " > ": " >= ", " >= ": " > ", "&&": "||", "||": "&&"}
COMPARISON = re.compile("|".join(map(re.escape, PAIRS)))
NUMBER = re.compile(r"(?<![\w.'#])\d+(?![\w.'])")
CONDITION = re.compile(r"\bif \((?!const|auto|static|!\()([^;]*)\)( \{)?$")
STATEMENT = re.compile(r"^\s+(?!return|throw|using|delete|static|const|auto|case|if|for|while|else)"
                       r"[\w:.>()\[\]-]+( [-+|*]?= .+|\(.*\));$")
LITERAL_OR_COMMENT = re.compile(r'"(\\.|[^"\\])*"|//.*$|/\*.*?\*/')


def mutants_of(line):
    """All that one line of code can become, with what was done to it."""
    if line.lstrip().startswith(("#", "//", "static_assert")) or "template" in line:
        return
    code = LITERAL_OR_COMMENT.sub(lambda part: "\0" * len(part.group()), line)
    for found in COMPARISON.finditer(code):
        yield "comparison", line[:found.start()] + PAIRS[found.group()] + line[found.end():]
    for found in NUMBER.finditer(code):
        for step in (1, -1):
            yield "constant", line[:found.start()] + str(abs(int(found.group()) + step)) + line[found.end():]
    if found := CONDITION.search(code):
        yield "branches", line[:found.start(1)] + "!(" + line[found.start(1):found.end(1)] + ")" + line[found.end(1):]
    if STATEMENT.match(code) and "\0\0" not in code.split("(")[0]:
        yield "statement", re.match(r"\s*", line).group() + ";"


def candidates(folder):
    for path in sorted((PROJECT / "src" / folder).glob("*.cpp")):
        if path.stem.endswith("Windows"):
            continue
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines()):
            for kind, new in mutants_of(line):
                yield path.relative_to(PROJECT), number, kind, line, new


class Scratch:
    def __init__(self, folder, art):
        self.folder, self.build = folder, folder / "build"
        self.environment = dict(os.environ, CCACHE_BASEDIR=str(folder), QT_QPA_PLATFORM="offscreen")
        files = subprocess.run(["git", "ls-files", "-co", "--exclude-standard", "-z"], cwd=PROJECT, check=True,
                               capture_output=True, text=True).stdout.split("\0")
        for name in filter(None, files):
            source, copy = PROJECT / name, folder / name
            copy.parent.mkdir(parents=True, exist_ok=True)
            if source.exists() and (not copy.exists() or source.read_bytes() != copy.read_bytes()):
                shutil.copyfile(source, copy)
                shutil.copymode(source, copy)
        if not (self.build / "CMakeCache.txt").exists():
            subprocess.run(["cmake", "--preset", "release"], cwd=folder, env=self.environment, check=True,
                           stdout=subprocess.DEVNULL)
            if art:
                shutil.copytree(art, self.build / "art", dirs_exist_ok=True)

    def run(self, *command, seconds=600):
        try:
            # Tests send signals that what runs in the background of a shell ignores.
            return subprocess.run(["env", "--default-signal", *map(str, command)], cwd=self.folder, check=False,
                                  env=self.environment, timeout=seconds, stdout=subprocess.DEVNULL,
                                  stderr=subprocess.DEVNULL).returncode == 0
        except subprocess.TimeoutExpired:
            return False

    def builds(self):
        return self.run("cmake", "--build", self.build, "--target", "quorrin-tests", "quorrin-desktop-tests",
                        "quorrin-map-batch", "quorrin-map-maker", "quorrin-soak", "--", "-j1", "--quiet", seconds=3000)

    def keeps_its_help(self):
        """From now on the help, which takes long to make, stays as the first build has made it."""
        for lists in (self.folder / "tests/CMakeLists.txt", self.folder / "CMakeLists.txt"):
            lists.write_text(re.sub(r"add_dependencies\(.* help_pages\)\n", "", lists.read_text()))
        return True

    def passes(self):
        companion, samples = self.build / "quorrin-map-batch", self.folder / "samples"
        window = self.build / "quorrin-map-maker", companion, samples / "The Old Mine.qrnm"
        return (self.run(self.build / "quorrin-soak", "1000")
                and self.run(self.build / "quorrin-desktop-tests", "--gtest_fail_fast")
                and self.run(self.build / "quorrin-tests", "--gtest_fail_fast")
                and self.run("tests/companion.sh", companion, samples)
                and self.run("tests/table.py", companion, samples)
                and self.run("tests/window_run.py", *window)
                and self.run("tests/recovery_run.py", *window, 0))


def main():
    parser = argparse.ArgumentParser(usage=__doc__)
    parser.add_argument("scratch", type=Path)
    parser.add_argument("folders", nargs="*", default=sorted(path.name for path in (PROJECT / "src").iterdir()))
    parser.add_argument("--count", type=int, default=60)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--art", type=Path)
    options = parser.parse_args()
    scratch = Scratch(options.scratch.resolve(), options.art)
    for step in (scratch.builds, scratch.keeps_its_help, scratch.builds, scratch.passes):
        if not step():
            sys.exit(f"mutate: \"{step.__name__}\" fails for the project as it is")
    chance = random.Random(options.seed)
    left = {folder: list(candidates(folder)) for folder in options.folders}
    tried = caught = 0
    while tried < options.count and any(left.values()):
        folder = options.folders[tried % len(options.folders)]
        if not left[folder]:
            options.folders.remove(folder)
            continue
        path, number, kind, old, new = left[folder].pop(chance.randrange(len(left[folder])))
        file = scratch.folder / path
        lines = file.read_text(encoding="utf-8").splitlines()
        file.write_text("\n".join([*lines[:number], new, *lines[number + 1:]]) + "\n", encoding="utf-8")
        change = f"{path}:{number + 1} {kind}: {old.strip()} -> {new.strip()}"
        if change.replace(f":{number + 1} ", " ") in EQUIVALENT:
            print("no fault", change, flush=True)
        elif scratch.builds():
            is_caught = not scratch.passes()
            tried, caught = tried + 1, caught + is_caught
            print("caught  " if is_caught else "SURVIVED", change, flush=True)
        shutil.copyfile(PROJECT / path, file)
    print(f"{caught} of {tried} were caught")


main()
