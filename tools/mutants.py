#!/usr/bin/env python3
"""Changes the library in random small ways, one at a time, and tells which changes no test notices.

usage: tools/mutants.py [--count N] [--seed S] [--kinds KIND...] [--part PART_OF_A_PATH]

Works on the sources of the tree in the build of the preset "dev", which has to be there, and puts each source back. It
stops before it begins if the sources hold changes that aren't committed. A change that doesn't compile doesn't count.
What survives is shown with its change: it needs a test, or the reason why nobody can tell the difference.
"""

import argparse
import itertools
import pathlib
import random
import re
import resource
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
LIBRARY = ROOT / "src" / "Device" / "ZyrTopApi"
# The quickest first.
TESTS = ("ZyrRegistrationTests", "ZyrLibraryTests", "ZyrCommandTests")
# A change may make a loop endless, or one that fills the memory: the tests get many times what they need, in seconds
# of the processor, seconds by the clock, and bytes.
LIMITS = {resource.RLIMIT_CPU: 60, resource.RLIMIT_AS: 4 << 30, resource.RLIMIT_CORE: 0}
PATIENCE = 600

STRING = re.compile(r'(?<!include )"((?:[^"\\]|\\.)+)"')
LEVEL = re.compile(r"((?:\blog|\bfail|isEnabled)\((?:[A-Za-z_.]+, )?)([1-7])\b")
COMPARISONS = {"==": "!=", "!=": "==", "<=": "<", ">=": ">", "<": "<=", ">": ">=", "&&": "||", "||": "&&"}
COMPARISON = re.compile(r" (==|!=|<=|>=|<|>|&&|\|\|) ")
CALL = re.compile(r"^\s+[A-Za-z_][\w.:>\-\[\]]*\(.*\);$")
STATEMENT = re.compile(r"^(\s+)(?!return\b|break\b|continue\b|using\b|static_assert\b)[A-Za-z_*].*;$")
# A name that gets a value without any call but one that only converts: nobody can tell when it does.
ASSIGNMENT = re.compile(r"^\s+(?:[\w:.>-]+\.)?(\w+) = (?!.*\b(?!static_cast\b|negated\b|\w+ToString\b)\w+[(<]).*;$")
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
    values = [ASSIGNMENT.match(line) for line in lines[index : index + 2]]
    if all(values) and values[0].group(1) not in lines[index + 1] and values[1].group(1) not in lines[index]:
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


KINDS = {
    "text": in_text,
    "order": in_order,
    "level": in_level,
    "comparison": in_comparison,
    "call": without_call,
    "check": without_check,
    "constant": in_constant,
}


def sources():
    """All of the library but what it only demands of others."""
    rooms = ("messages", "private", "public", "types")
    return sorted(file for room in rooms for file in (LIBRARY / room).rglob("*") if file.suffix in (".cpp", ".h"))


def mutants(dice, kinds):
    """Places and what stands there instead, each place once for each kind, as many of each kind in turn."""
    files = [(file, file.read_text().splitlines()) for file in sources()]
    found = []
    for kind in kinds:
        found.append(
            [
                (kind.__name__, file, lines, index, instead)
                for file, lines in files
                for index in range(len(lines))
                if not lines[index].lstrip().startswith("//")
                # Those of a header are declarations.
                and not (kind is in_order and file.suffix == ".h")
                and (instead := kind(lines, index, dice)) is not None
            ]
        )
        dice.shuffle(found[-1])
    for row in itertools.zip_longest(*found):
        yield from filter(None, row)


def run(*command):
    return subprocess.run(command, cwd=ROOT, capture_output=True).returncode == 0


def limit():
    for kind, most in LIMITS.items():
        resource.setrlimit(kind, (most, most))


def passes(*command):
    try:
        return subprocess.run(command, cwd=ROOT, capture_output=True, timeout=PATIENCE, preexec_fn=limit).returncode == 0
    except subprocess.TimeoutExpired:
        return False


def belongs_to_command(file):
    return "messages" in file.parts


def is_built(targets=TESTS):
    return run("cmake", "--build", "--preset", "dev", "-j", "2", "--target", *targets)


def is_noticed(file):
    command = file.relative_to(LIBRARY / "messages").parts[0] if belongs_to_command(file) else ""
    own = [["ZyrCommandTests", f"--gtest_filter=*{command}*"]] if command else []
    for test, *arguments in own + [[test] for test in TESTS]:
        if not passes(f"build/dev/bin/{test}", "--gtest_brief=1", "--gtest_fail_fast", *arguments):
            return True
    return False


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--count", type=int, default=150)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--kinds", nargs="+", choices=KINDS, default=list(KINDS))
    parser.add_argument("--part", default="")
    arguments = parser.parse_args()
    if not run("git", "diff", "--quiet", "HEAD", "--", "src"):
        sys.exit("src holds changes that aren't committed: commit or stash them")
    if not is_built() or is_noticed(pathlib.Path("none")):
        sys.exit("the tests do not pass as the sources are")
    made, survivors = 0, 0
    begin = time.monotonic()
    for kind, file, lines, index, instead in mutants(random.Random(arguments.seed), [KINDS[kind] for kind in arguments.kinds]):
        if arguments.part not in str(file.relative_to(ROOT)):
            continue
        if made == arguments.count:
            break
        original = file.read_text()
        try:
            file.write_text("\n".join(lines[:index] + instead + lines[index + len(instead) :]) + "\n")
            # The tests load the library: a command's source needs nothing else built.
            if not is_built(["ZyrZyrTopApi"] if belongs_to_command(file) else TESTS):
                continue
            made += 1
            if is_noticed(file):
                continue
        finally:
            file.write_text(original)
            if not belongs_to_command(file):
                is_built()
        survivors += 1
        print(f"survived: {kind} {file.relative_to(ROOT)}:{index + 1}")
        for old, new in zip(lines[index : index + len(instead)], instead):
            print(f"    - {old.strip()}\n    + {new.strip()}", flush=True)
    print(f"{made - survivors} of {made} changes were noticed, {survivors} were not;"
          f" {(time.monotonic() - begin) / max(made, 1):.1f} s each")


if __name__ == "__main__":
    main()
