#!/usr/bin/env python3
"""Changes the library in random small ways, one at a time, and tells which changes no test notices.

usage: tools/mutants.py [--count N] [--seed S]

Works on the sources of the tree in the build of the preset "dev", which has to be there, and puts each source back. It
stops before it begins if the sources hold changes that aren't committed. A change that doesn't compile doesn't count.
What survives is shown with its change: it needs a test, or the reason why nobody can tell the difference.
"""

import argparse
import pathlib
import random
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
LIBRARY = ROOT / "src" / "Device" / "ZyrTopApi"
TESTS = ("ZyrCommandTests", "ZyrLibraryTests", "ZyrRegistrationTests")
# As long as the slowest of the tests takes under load; a change may make a loop endless.
LIMIT = 300

STRING = re.compile(r'(?<!include )"((?:[^"\\]|\\.)+)"')
LEVEL = re.compile(r"((?:\blog|\bfail|isEnabled)\((?:[A-Za-z_.]+, )?)([1-7])\b")
COMPARISONS = {"==": "!=", "!=": "==", "<=": "<", ">=": ">", "<": "<=", ">": ">=", "&&": "||", "||": "&&"}
COMPARISON = re.compile(r" (==|!=|<=|>=|<|>|&&|\|\|) ")
CALL = re.compile(r"^\s+[A-Za-z_][\w.:>\-\[\]]*\(.*\);$")
STATEMENT = re.compile(r"^(\s+)(?!return\b|break\b|continue\b|using\b|static_assert\b)[A-Za-z_*].*;$")
CHECK = re.compile(r"^(\s+)((?:\} else )?if) \((?!constexpr)(.*)\) \{$")
CONSTANT = re.compile(r"(?<![\w.])(0x[0-9A-Fa-f]+|\d+)(?=[uUlL]*\b)(?!\.)")


def replaced(line, match, text, group=0):
    return line[: match.start(group)] + text + line[match.end(group) :]


def in_text(lines, index, dice):
    match = dice.choice(list(STRING.finditer(lines[index])) or [None])
    if match is None:
        return None
    letters = [at for at in range(match.start(1), match.end(1)) if lines[index][at].isalnum()]
    if not letters:
        return None
    at = dice.choice(letters)
    if lines[index][at - 1] == "\\":
        return None
    return [lines[index][:at] + ("x" if lines[index][at] != "x" else "y") + lines[index][at + 1 :]]


def in_order(lines, index, _dice):
    if index + 1 >= len(lines):
        return None
    first, second = STATEMENT.match(lines[index]), STATEMENT.match(lines[index + 1])
    if not first or not second or first.group(1) != second.group(1) or lines[index] == lines[index + 1]:
        return None
    return [lines[index + 1], lines[index]]


def in_level(lines, index, dice):
    match = dice.choice(list(LEVEL.finditer(lines[index])) or [None])
    if match is None:
        return None
    level = int(match.group(2))
    return [replaced(lines[index], match, str(level + 1 if level < 7 else level - 1), 2)]


def in_comparison(lines, index, dice):
    if "template" in lines[index] or "#" in lines[index]:
        return None
    match = dice.choice(list(COMPARISON.finditer(lines[index])) or [None])
    return match and [replaced(lines[index], match, COMPARISONS[match.group(1)], 1)]


def without_call(lines, index, _dice):
    return [""] if CALL.match(lines[index]) else None


def without_check(lines, index, _dice):
    match = CHECK.match(lines[index])
    return match and [f"{match.group(1)}{match.group(2)} (({match.group(3)}) && false) {{"] if ";" not in lines[index] else None


def in_constant(lines, index, dice):
    if lines[index].lstrip().startswith("#"):
        return None
    outside = STRING.sub(lambda match: '"' + " " * len(match.group(1)) + '"', lines[index]).split("//")[0]
    match = dice.choice(list(CONSTANT.finditer(outside)) or [None])
    if match is None:
        return None
    number = int(match.group(1), 0) + 1
    return [replaced(lines[index], match, hex(number) if match.group(1).startswith("0x") else str(number), 1)]


KINDS = (in_text, in_order, in_level, in_comparison, without_call, without_check, in_constant)


def sources():
    return sorted(file for room in ("messages", "private", "types") for file in (LIBRARY / room).rglob("*.cpp")) + sorted(
        (LIBRARY / "private").glob("*.h")
    )


def mutants(dice):
    """Places and what stands there instead, without end; as many of each kind."""
    files = [(file, file.read_text().splitlines()) for file in sources()]
    seen = set()
    while True:
        kind = dice.choice(KINDS)
        places = []
        for file, lines in files:
            places += [(file, lines, index) for index in range(len(lines)) if not lines[index].lstrip().startswith("//")]
        for _ in range(10000):
            file, lines, index = dice.choice(places)
            instead = kind(lines, index, dice)
            if instead is not None and (file, index, tuple(instead)) not in seen:
                seen.add((file, index, tuple(instead)))
                yield kind.__name__, file, lines, index, instead
                break


def run(*command):
    try:
        return subprocess.run(command, cwd=ROOT, capture_output=True, text=True, timeout=LIMIT).returncode == 0
    except subprocess.TimeoutExpired:
        return False


def is_noticed(file):
    command = next((part[: -len("Impl")] for part in [file.stem] if part.endswith("Impl")), "")
    own = [["ZyrCommandTests", f"--gtest_filter=*{command}*"]] if command else []
    for test, *arguments in own + [[test] for test in TESTS]:
        if not run(f"build/dev/bin/{test}", "--gtest_brief=1", "--gtest_fail_fast", *arguments):
            return True
    return False


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--count", type=int, default=150)
    parser.add_argument("--seed", type=int, default=1)
    arguments = parser.parse_args()
    if not run("git", "diff", "--quiet", "HEAD", "--", "src"):
        sys.exit("src holds changes that aren't committed: commit or stash them")
    build = ["cmake", "--build", "--preset", "dev", "-j", "2", "--target", *TESTS]
    if not run(*build) or is_noticed(pathlib.Path("none")):
        sys.exit("the tests do not pass as the sources are")
    made, survivors = 0, 0
    for kind, file, lines, index, instead in mutants(random.Random(arguments.seed)):
        if made == arguments.count:
            break
        original = file.read_text()
        try:
            file.write_text("\n".join(lines[:index] + instead + lines[index + len(instead) :]) + "\n")
            if not run(*build):
                continue
            made += 1
            if is_noticed(file):
                continue
        finally:
            file.write_text(original)
        survivors += 1
        print(f"survived: {kind} {file.relative_to(ROOT)}:{index + 1}")
        for old, new in zip(lines[index : index + len(instead)], instead):
            print(f"    - {old.strip()}\n    + {new.strip()}", flush=True)
    print(f"{made - survivors} of {made} changes were noticed, {survivors} were not")


if __name__ == "__main__":
    main()
