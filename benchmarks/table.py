#!/usr/bin/env python3
"""Prints the benchmarks of a build as one table: table.py BUILD [--check].

Instructions are counted by callgrind, allocations by memcheck: each kind of call is run with N and with 2N calls,
and the difference is the cost of N calls, start-up left out. Times are to be read as ratios to L, the least that a
command can take (a lock, a response, the collaborator's virtual call, the return), measured in the same run.

With --check, only the rows are measured that have a bar in bars.json; those above theirs are named, and the program
ends with 1.
"""

import json
import os
import re
import subprocess
import sys

FOLDER = os.path.dirname(os.path.abspath(__file__))
CALLS = 100

# What is counted of which program: the row's name, its text, the program and its kind of call.
COUNTED = [
    ("L", "L: lock, response, virtual call, return", "DispatchCalls", "least"),
    ("quiet first", "quiet call, first of 52 entries", "DispatchCalls", "quiet-first"),
    ("quiet middle", "quiet call, middle entry", "DispatchCalls", "quiet-middle"),
    ("quiet last", "quiet call, last entry", "DispatchCalls", "quiet-last"),
    ("hash quiet", "peer, a hash map of functions under a mutex: quiet", "DispatchCalls", "hash-quiet"),
    ("level 3", "traced at level 3, one record, no sink", "DispatchCalls", "level-3"),
    ("level 3 sink", "the same to a sink that drops", "DispatchCalls", "level-3-sink"),
    ("level 5", "traced at level 5, three records, no sink", "DispatchCalls", "level-5"),
    ("level 5 sink", "the same to a sink that drops", "DispatchCalls", "level-5-sink"),
    ("level 7", "traced at level 7, seven records, no sink", "DispatchCalls", "level-7"),
    ("level 7 sink", "the same to a sink that drops", "DispatchCalls", "level-7-sink"),
    ("hash level 7", "peer, traced at level 7, no sink", "DispatchCalls", "hash-level-7"),
    ("own near end", "own part of CRI.SetRadioChannelNearEnd", "DispatchCalls", "near-end"),
    ("own status", "own part of CRI.GetRadioChannelStatus", "DispatchCalls", "status"),
    ("own RF power", "own part of CRI.SetRFPower", "DispatchCalls", "rf-power"),
    ("answer small", "body to answer, CRI.EnableAcm", "AnswerCalls", "answer-small"),
    ("answer middle", "body to answer, CRI.SetRadioChannelNearEnd", "AnswerCalls", "answer-middle"),
    ("answer large", "body to answer, CRI.GetRadioChannelStatus", "AnswerCalls", "answer-large"),
]

ALLOCATIONS = [
    ("allocations quiet", "quiet call", "DispatchCalls", "quiet-middle"),
    ("allocations level 7 sink", "traced at level 7 to a sink that drops", "DispatchCalls", "level-7-sink"),
    ("allocations near end", "CRI.SetRadioChannelNearEnd alone", "DispatchCalls", "near-end"),
    ("allocations status", "CRI.GetRadioChannelStatus alone", "DispatchCalls", "status"),
    ("allocations RF power", "CRI.SetRFPower alone", "DispatchCalls", "rf-power"),
    ("allocations spectrum", "CRI.GetSpectrumDiagnostics alone, 500 points", "DispatchCalls", "spectrum"),
    ("allocations answer small", "body to answer, CRI.EnableAcm", "AnswerCalls", "answer-small"),
    ("allocations answer middle", "body to answer, CRI.SetRadioChannelNearEnd", "AnswerCalls", "answer-middle"),
    ("allocations answer large", "body to answer, CRI.GetRadioChannelStatus", "AnswerCalls", "answer-large"),
]

# Whose machine code is told of its own.
COMMANDS = {"near end": "CriSetRadioChannelNearEnd", "status": "CriGetRadioChannelStatus", "RF power": "CriSetRfPower"}

LIBRARY = "lib/libZyrZyrTopApi.so"
PLATFORM = "lib/libZyrPlatform.so"


def output(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def figure_of_valgrind(pattern, arguments, command):
    run = subprocess.run(["valgrind", *arguments, *command], check=True, capture_output=True, text=True)
    return int(re.search(pattern, run.stderr).group(1).replace(",", ""))


def instructions(*command):
    return figure_of_valgrind(r"Collected : (\d+)", ["--tool=callgrind", "--callgrind-out-file=/dev/null"], command)


def allocations(*command):
    return figure_of_valgrind(r"total heap usage: ([\d,]+) allocs", ["--leak-check=no"], command)


def text_bytes(*files):
    """Bytes of machine code in libraries or objects."""
    lines = output("size", "-A", *files).splitlines()
    return sum(int(line.split()[1]) for line in lines if line.startswith(".text"))


def objects_of(build):
    """The objects of each command."""
    found = {}
    top = f"{build}/src/Device/ZyrTopApi/CMakeFiles/ZyrTopApiCommands.dir/messages"
    for folder, _, names in os.walk(top):
        command = os.path.relpath(folder, top).split(os.sep)[0]
        found.setdefault(command, []).extend(f"{folder}/{name}" for name in names if name.endswith(".o"))
    return {command: objects for command, objects in found.items() if objects}


def dispatch_bytes(library, command):
    """Machine code that exists for this one command's dispatch: its instance of the template, the thunks of its
    type description and its exported function; not its prints and its execute."""
    function = command[0].lower() + command[1:]
    total = 0
    for line in output("nm", "-S", "--defined-only", "-C", library).splitlines():
        match = re.match(r"[0-9a-f]+ ([0-9a-f]+) [tTwWuV] (.*)", line)
        if match and (f"executeCommand<zyr_top_api::{command}Impl>" in match.group(2)
                      or match.group(2).startswith(f"zyr_top_api::{function}(")
                      or ("kDispatchTypes" in match.group(2) and f"{command}Impl" in match.group(2)
                          and "lambda" in match.group(2))):
            total += int(match.group(1), 16)
    return total


class Table:
    """The rows as they are measured, with their bars."""

    def __init__(self, build, checks):
        self.build = build
        self.checks = checks
        with open(f"{FOLDER}/bars.json", encoding="utf-8") as bars:
            self.bars = json.load(bars)
        self.values = {}
        self.fallen = []

    def section(self, title, columns=""):
        print(f"\n{title:60}{columns}", flush=True)

    def row(self, name, text, measure, least=None):
        """Measures a row, unless it is only to be checked and has no bar."""
        bar = self.bars.get(name)
        if self.checks and bar is None:
            return
        value = self.values[name] = measure()
        ratio = f"{value / least:8.2f} L" if least else ""
        state = ""
        if bar is not None:
            state = f"{bar:10}"
            if value > bar:
                self.fallen.append(f"{name}: {value:.0f}, the bar is {bar}")
                state += "  FALLEN"
        print(f"  {text:56}{value:10.0f}{ratio:10}{state}", flush=True)

    def counted(self, rows, count):
        for name, text, program, kind in rows:
            path = f"{self.build}/bin/{program}"
            if os.path.exists(path):
                def measure(path=path, kind=kind):
                    return (count(path, kind, str(2 * CALLS)) - count(path, kind, str(CALLS))) / CALLS
                self.row(name, text, measure, self.values.get("L") if count is instructions else None)

    def sizes(self):
        library = f"{self.build}/{LIBRARY}"
        self.row("text", "the library", lambda: text_bytes(library))
        objects = objects_of(self.build)
        for name, command in COMMANDS.items():
            self.row(f"text {name}", command, lambda command=command: text_bytes(*objects[command]))
        if not self.checks:
            each = sorted(text_bytes(*of_command) for of_command in objects.values())
            print(f"  {'each of the ' + str(len(each)) + ' commands, smallest, middle, greatest':56}"
                  f"{each[0]:10} {each[len(each) // 2]} {each[-1]}")
        self.row("text dispatch", "dispatch of one command", lambda: dispatch_bytes(library, "CriEnableAcm"))
        arm = f"{self.build}/../armhf/{LIBRARY}"
        if os.path.exists(arm):
            self.row("text armhf", "the library, for armhf", lambda: text_bytes(arm))
        else:
            print("  (the library for armhf: not built here, see the preset armhf)")

    def load(self):
        # The library leaves the platform's symbols open.
        libraries = [f"{self.build}/{PLATFORM}", f"{self.build}/{LIBRARY}"]
        program = f"{self.build}/bin/LibraryLoad"
        self.row("load", "instructions to load the platform and the library",
                 lambda: instructions(program, *libraries) - instructions(program))
        best = min(int(output(program, *libraries)) for _ in range(20))
        print(f"  {'microseconds, best of 20':56}{best:10}")

    def times(self):
        """Times of the dispatch from several threads, as ratios to L from as many."""
        run = json.loads(output(f"{self.build}/bin/DispatchBenchmark", "--benchmark_format=json",
                                "--benchmark_repetitions=5", "--benchmark_min_time=0.05", "--benchmark_report_aggregates_only=true"))
        times = {}
        for row in run["benchmarks"]:
            if row["aggregate_name"] == "median":
                times[row["run_name"].split("/")[0], row["threads"]] = row["real_time"]
        texts = {"least": "L", "first": "quiet call, first entry", "middle": "quiet call, middle entry",
                 "last": "quiet call, last entry", "polls": "quiet call, middle entry, while 64 long polls hang",
                 "hash": "peer, a hash map of functions under a mutex"}
        for (name, threads), time in times.items():
            least = times["least", threads]
            print(f"  {texts[name]:46}{threads:2} thread{'s' if threads > 1 else ' '} {time:10.1f}{time / least:8.2f} L")

    def print(self):
        self.section("Instructions a call", "            ratio       bar")
        self.counted(COUNTED, instructions)
        self.section("Allocations a call")
        self.counted(ALLOCATIONS, allocations)
        self.section("Machine code, bytes")
        self.sizes()
        if not self.checks:
            self.section("Loading")
            self.load()
            self.section("Nanoseconds a call and thread, median of 5", "ratio to L from as many threads")
            self.times()
            if os.path.exists(f"{self.build}/bin/ServerBenchmark"):
                self.section("The server beside bare ones, best of 5 turns")
                sys.stdout.flush()
                subprocess.run([f"{self.build}/bin/ServerBenchmark", f"{self.build}/bin/zyrnode"], check=True)
        for row in self.fallen:
            print(f"fallen: {row}", file=sys.stderr)
        return 1 if self.fallen else 0


if __name__ == "__main__":
    sys.exit(Table(sys.argv[1], "--check" in sys.argv[2:]).print())
