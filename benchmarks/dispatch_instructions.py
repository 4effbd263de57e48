#!/usr/bin/env python3
"""Counts the instructions of one dispatched call with callgrind, beside its unavoidable parts.

Each kind of call is run twice, with N and 2N calls; the difference is the cost of N calls, start-up left out.
Exits with 1 if a figure is above its bar.
"""

import re
import subprocess
import sys
import tempfile

CALLS = 2000

BARS = {
    "quiet-first": 358,
    "quiet-middle": 483,
    "quiet-last": 660,
    "traced-first": 2600,
}

KINDS = {
    "lock": "lock and unlock of a mutex",
    "response": "a response built and destroyed",
    "collaborator": "the collaborator's virtual call",
    "quiet-first": "quiet call, first of 52 entries",
    "quiet-middle": "quiet call, middle entry",
    "quiet-last": "quiet call, last entry",
    "listed-first": "quiet call, first of the {listed} entries listed",
    "listed-middle": "quiet call, middle entry of those",
    "listed-last": "quiet call, last entry of those",
    "traced-first": "traced at level 3 to no sink, first entry",
    "traced-all-levels-first": "traced at level 7 to no sink, first entry",
    "status-collaborators": "the status command's collaborator calls alone",
    "status-dispatched": "the status command, quiet",
}

CODE_BAR = 450


def instructions(program, kind, calls):
    with tempfile.NamedTemporaryFile() as out:
        run = subprocess.run(
            ["valgrind", "--tool=callgrind", f"--callgrind-out-file={out.name}", program, kind, str(calls)],
            check=True, capture_output=True, text=True)
    return int(re.search(r"Collected : (\d+)", run.stderr).group(1))


def code_bytes(library, command):
    """Bytes of machine code that exist for this one command's dispatch: its instance of the template, the
    thunks of its type description and its exported function; not its prints and its execute."""
    symbols = subprocess.run(["nm", "-S", "--defined-only", "-C", library], check=True, capture_output=True,
                             text=True).stdout
    total = 0
    for line in symbols.splitlines():
        match = re.match(r"[0-9a-f]+ ([0-9a-f]+) [tTwWuV] (.*)", line)
        if not match:
            continue
        size, name = int(match.group(1), 16), match.group(2)
        function = command[0].lower() + command[1:]
        if (f"executeCommand<zyr_top_api::{command}Impl>" in name
                or name.startswith(f"zyr_top_api::{function}(")
                or ("kDispatchTypes" in name and f"{command}Impl" in name and "lambda" in name)):
            total += size
    return total


def main():
    program, library = sys.argv[1:3]
    listed = subprocess.run([program, "listed-length"], check=True, capture_output=True, text=True).stdout.strip()
    failures = 0
    costs = {}
    print(f"{'what':45} {'instructions a call':>20} {'bar':>8}")
    for kind, text in KINDS.items():
        cost = (instructions(program, kind, 2 * CALLS) - instructions(program, kind, CALLS)) / CALLS
        bar = BARS.get(kind)
        costs[kind] = cost
        failures += bar is not None and cost > bar
        print(f"{text.format(listed=listed):45} {cost:20.1f} {bar if bar is not None else '':>8}")
    own = costs["status-dispatched"] - costs["status-collaborators"] - costs["quiet-first"]
    print(f"{'the status command beyond those and the frame':45} {own:20.1f} "
          f"{own / costs['status-collaborators']:8.1%} of the calls")
    size = code_bytes(library, "CriEnableAcm")
    failures += size == 0 or size > CODE_BAR
    print(f"{'dispatch code of one command, bytes':45} {size:20} {CODE_BAR:>8}")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
