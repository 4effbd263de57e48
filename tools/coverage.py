#!/usr/bin/env python3
"""Prints what the tests have covered of each room, out of the counters of a build with gcov, as a table.

    tools/coverage.py BUILD_FOLDER [--missing [PART_OF_A_PATH]]
    tools/coverage.py --check

Ends with 1 if a room is below its bars, or an exclusion names a line that isn't there, which --check alone tells.
Counts are those of gcov's JSON, all objects that hold a source summed up, the instances of a template as one.

A branch is an outcome of a condition that is written in the source. What the compiler makes of its own accord doesn't
count: the ways of exceptions out of calls, what is cleaned up there (conditions of which neither outcome has come up,
beyond as many as the line is written with), the guards of static variables, the null tests of casts and member
pointers, and the default of a switch that has none.

What can't come up is named, line by line and with the reason, in coverage-exclusions.txt beside this file.
"""

import collections
import concurrent.futures
import json
import os
import re
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))

# The rooms, with the least share of lines and of branches in per cent.
ROOMS = {
    "Device library": ("src/Device/", 100, 100),
    "Platform": ("src/Platform/", 95, 92),
    "Simulation": ("src/Simulation/", 95, 92),
    "Registration": ("src/Registration/", 95, 92),
    "Gateway": ("src/Gateway/", 95, 92),
    "Apps": ("src/Apps/", 95, 92),
}

CONDITION = re.compile(r"\b(if|for|while|switch|case|and|or)\b|\?|&&|\|\|")
TEXT = re.compile(r'"(?:[^"\\]|\\.)*"|//.*')
JOIN = re.compile(r"(?:^| )(?:&&|\|\|)(?= |$)")


def counters(folder):
    """The counters of all objects, those that never ran included."""
    notes = [os.path.join(path, name) for path, _, names in os.walk(os.path.abspath(folder)) for name in names
             if name.endswith(".gcno")]

    def read(note):
        data = note[:-len("gcno")] + "gcda"
        ended = subprocess.run(["gcov", "--json-format", "--branch-probabilities", "--stdout",
                                data if os.path.exists(data) else note],
                               capture_output=True, text=True, check=True, cwd=os.path.dirname(note))
        documents = []
        for text in ended.stdout.splitlines():
            document = json.loads(text)
            for file in document["files"]:
                name = os.path.relpath(os.path.join(document["current_working_directory"], file["file"]), ROOT)
                if name.startswith("src/"):
                    documents.append((name, file["lines"], file["functions"]))
        return documents

    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for documents in pool.map(read, notes):
            yield from documents


class Line:
    def __init__(self):
        self.count = 0
        self.branches = collections.defaultdict(list)  # by their number: the sums of each instance's counts

    def add(self, line):
        self.count += line["count"]
        counts = conditions_of(line["branches"])
        sums = self.branches[len(counts)]
        self.branches[len(counts)] = [a + b for a, b in zip(sums, counts)] if sums else counts

    def folded(self):
        """The sums over all instances; where gcov strings some together, their numbers are a multiple."""
        lengths = sorted(length for length in self.branches if length > 0)
        if not lengths:
            return []
        best = [0] * lengths[0]
        for length in lengths:
            if length % lengths[0] == 0:
                for index, count in enumerate(self.branches[length]):
                    best[index % lengths[0]] += count
        return best

    def outcomes(self, before, text, around, has_default):
        """The counts of the outcomes of the line's conditions."""
        best = self.folded()
        is_alone = re.match(r"\s*static |.*\bcatch \(", text) and not CONDITION.search(text)
        if is_alone or not CONDITION.search(around):
            return []
        if re.search(r"\bswitch\b", text):
            return best if has_default or any(best[-1:]) else best[:-1]
        if self.count == 0:
            return best
        pairs = [best[index:index + 2] for index in range(0, len(best), 2)]
        never_asked = max(0, written_conditions(before, text) - sum(pair != [0, 0] for pair in pairs))
        kept = []
        made = len(re.findall(r"dynamic_cast|\.\*|->\*", text))
        for pair in pairs:
            if pair == [0, 0]:
                if never_asked > 0:
                    never_asked -= 1
                    kept += pair
                continue
            if made > 0 and len(pair) == 2 and 0 in pair:
                made -= 1
                continue
            kept += pair
        return kept


def written_conditions(before, text):
    """How many conditions a line is written with. `before` is the line before it."""
    before, text = (TEXT.sub("", part).strip() for part in (before, text))
    joins = len(JOIN.findall(text))
    is_last = not text.endswith(("&&", "||")) and (
        joins > 0 or before.endswith(("&&", "||")) or re.search(r"\b(if|for|while)\b", text))
    choices = min(text.count(" ? "), text.count(" : "))  # the condition of one that goes on below may count there
    return joins + max(1 if is_last else 0, choices)


def conditions_of(branches):
    """The counts of what is no call: a call has two ways on, the second by an exception."""
    counts = []
    index = 0
    while index < len(branches):
        if branches[index]["throw"] or (index + 1 < len(branches) and branches[index + 1]["throw"]):
            index += 2
        else:
            counts.append(branches[index]["count"])
            index += 1
    return counts


def has_default(texts, number):
    """Whether the switch that begins on a line has a default of its own."""
    depth = 0
    for text in texts[number - 1:]:
        depth += text.count("{") - text.count("}")
        if "default:" in text and depth == 1:
            return True
        if depth == 0 and "}" in text:
            return False
    return False


def exclusions():
    """The excluded lines as pairs of name and number. A row names a line by its text; with "..." behind it, it names the
    block that begins there too."""
    excluded = set()
    with open(os.path.join(ROOT, "tools/coverage-exclusions.txt"), encoding="utf-8") as file:
        rows = file.read().splitlines()
    for row in rows:
        if row.startswith("src/"):
            name = row.rstrip(":")
            with open(os.path.join(ROOT, name), encoding="utf-8") as source:
                texts = source.read().splitlines()
        elif row.startswith("    "):
            wanted = row.strip().removesuffix(" ...")
            found = [number for number, text in enumerate(texts, 1) if text.strip() == wanted]
            if not found:
                sys.exit(f"coverage-exclusions.txt: {name} has no line: {wanted}")
            for number in found:
                excluded.add((name, number))
                while row.endswith(" ...") and texts[number - 1].strip() != "}":
                    number += 1
                    excluded.add((name, number))
    return excluded


def measure(folder):
    excluded = exclusions()
    lines = collections.defaultdict(lambda: collections.defaultdict(Line))
    for name, counted, functions in counters(folder):
        for line in counted:
            lines[name][line["line_number"]].add(line)
        for function in functions:  # the head of a lambda is no line of its function, but what is cleaned up there is
            lines[name][function["start_line"]].count += function["execution_count"]
    for name in sorted(lines):
        with open(os.path.join(ROOT, name), encoding="utf-8") as file:
            texts = file.read().splitlines()
        for number, line in sorted(lines[name].items()):
            if number > len(texts):
                continue
            text = texts[number - 1]
            if (name, number) in excluded or not re.search(r"\w", text):
                continue  # a bracket alone stands for what is cleaned up
            around = " ".join(texts[max(0, number - 2):number + 1])
            before = texts[number - 2] if number > 1 else ""
            outcomes = line.outcomes(before, text, around, has_default(texts, number))
            yield name, number, text, line.count, outcomes


def main():
    if sys.argv[1:] == ["--check"]:
        exclusions()
        return 0
    missing = sys.argv[3] if len(sys.argv) > 3 else "" if "--missing" in sys.argv else None
    sums = {room: [0, 0, 0, 0] for room in ROOMS}
    for name, number, text, count, outcomes in measure(sys.argv[1]):
        room = next(room for room, (folder, _, _) in ROOMS.items() if name.startswith(folder))
        seen = sum(1 for outcome in outcomes if outcome > 0)
        for index, value in enumerate((count > 0, 1, seen, len(outcomes))):
            sums[room][index] += value
        if missing is not None and missing in name and (count == 0 or seen < len(outcomes)):
            print(f"{name}:{number}: {count} {outcomes or ''} {text.strip()}")
    print(f"{'room':<16}{'lines':>8}{'covered':>9}{'bar':>6}{'branches':>10}{'covered':>9}{'bar':>6}")
    is_below = False
    for room, (_, least_lines, least_branches) in ROOMS.items():
        seen_lines, lines, seen_branches, branches = sums[room]
        shares = [100 * seen / max(total, 1) for seen, total in ((seen_lines, lines), (seen_branches, branches))]
        falls = shares[0] < least_lines or shares[1] < least_branches
        is_below = is_below or falls
        print(f"{room:<16}{lines:>8}{shares[0]:>8.2f}%{least_lines:>5}%{branches:>10}{shares[1]:>8.2f}%"
              f"{least_branches:>5}%{'  BELOW' if falls else ''}")
    return 1 if is_below else 0


if __name__ == "__main__":
    sys.exit(main())
