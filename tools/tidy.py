#!/usr/bin/env python3
"""Runs clang-tidy over the sources of the preset "tidy", as many at a time as there are processors.

A source that was clean isn't looked at again until its text, that of its headers or the rules change.

usage: tools/tidy.py [PART_OF_A_PATH]...    with arguments only the sources whose path holds one of them
"""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import shlex
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build" / "tidy"
CLEAN = BUILD / "clean"


def rules():
    folders = [ROOT, ROOT / "src", ROOT / "tests", ROOT / "benchmarks"]
    files = [ROOT / ".clang-tidy"] + [file for folder in folders[1:] for file in sorted(folder.rglob(".clang-tidy"))]
    return b"".join(str(file).encode() + file.read_bytes() for file in files)


def stamp(entry, rules_text):
    """The place that tells that this source was clean with this text under these rules."""
    command = shlex.split(entry["command"])
    command[command.index("-o") + 1] = "-"
    command[command.index("-c")] = "-E"
    preprocessed = subprocess.run([*command, "-C"], cwd=entry["directory"], capture_output=True, check=True).stdout
    return CLEAN / hashlib.sha256(rules_text + preprocessed).hexdigest()


def findings(entry, rules_text):
    place = stamp(entry, rules_text)
    if place.exists():
        return ""
    run = subprocess.run(["clang-tidy", "--quiet", "-p", BUILD, entry["file"]], cwd=ROOT, capture_output=True, text=True)
    if run.returncode == 0:
        place.touch()
        return ""
    return run.stdout or run.stderr


def main(parts):
    subprocess.run(["cmake", "--preset", "tidy"], cwd=ROOT, check=True, stdout=subprocess.DEVNULL)
    CLEAN.mkdir(exist_ok=True)
    entries = json.loads((BUILD / "compile_commands.json").read_text())
    entries = {entry["file"]: entry for entry in entries}.values()
    chosen = [entry for entry in entries if not parts or any(part in entry["file"] for part in parts)]
    if not chosen:
        sys.exit("no such source")
    rules_text = rules()
    failed = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for text in pool.map(lambda entry: findings(entry, rules_text), chosen):
            failed += text != ""
            print(text, end="", flush=True)
    if failed:
        sys.exit(f"{failed} of {len(chosen)} sources have findings")


if __name__ == "__main__":
    main(sys.argv[1:])
