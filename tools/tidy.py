#!/usr/bin/env python3
"""Runs clang-tidy over the sources of the preset "tidy", as many at a time as there are processors.

They are read in the batches that they are compiled in, so that their headers are read once for many. A batch that was
clean isn't looked at again until its text, that of its headers or the rules change.

usage: tools/tidy.py [PART_OF_A_PATH]...    with arguments only the batches with a source whose path holds one of them
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
BATCHES = BUILD / "batches"
CLEAN = BUILD / "clean"


def rules():
    folders = [ROOT, ROOT / "src", ROOT / "tests", ROOT / "benchmarks"]
    files = [ROOT / ".clang-tidy"] + [file for folder in folders[1:] for file in sorted(folder.rglob(".clang-tidy"))]
    return b"".join(str(file).encode() + file.read_bytes() for file in files)


def arguments(entry):
    """What the compiler is told, without the source, what becomes of it, and how g++ is to go about it."""
    command = shlex.split(entry["command"])
    return [word for word in command[:command.index("-o")] if not word.startswith(("--param=", "-fpch-"))]


def sources(entry):
    """The sources of a batch, or the one that is compiled alone."""
    if "/Unity/" not in entry["file"]:
        return [entry["file"]]
    lines = pathlib.Path(entry["file"]).read_text().splitlines()
    return [line.split('"')[1] for line in lines if line.startswith("#include")]


def stamp(entry, rules_text):
    """The place that tells that this batch was clean with this text under these rules."""
    command = [*arguments(entry), "-E", "-C", entry["file"]]
    preprocessed = subprocess.run(command, cwd=entry["directory"], capture_output=True, check=True).stdout
    return CLEAN / hashlib.sha256(rules_text + preprocessed).hexdigest()


def seen_beside_its_sources(entry):
    """The batch where clang-tidy finds the rules of its sources' folder, and what shows it there without writing it."""
    files = sources(entry)
    if files == [entry["file"]]:
        return entry["file"], []
    text = "".join(f'#include "{file}" // NOLINT(bugprone-suspicious-include)\n' for file in files)
    name = hashlib.sha256(text.encode()).hexdigest()
    real = BATCHES / f"{name}.cpp"
    real.write_text(text)
    shown = str(pathlib.Path(files[0]).parent / "batch.cpp")
    overlay = BATCHES / f"{name}.yaml"
    root = {"name": shown, "type": "file", "external-contents": str(real)}
    overlay.write_text(json.dumps({"version": 0, "roots": [root]}))
    return shown, ["--vfsoverlay", str(overlay)]


def findings(entry, rules_text):
    place = stamp(entry, rules_text)
    if place.exists():
        return ""
    shown, overlay = seen_beside_its_sources(entry)
    command = ["clang-tidy", "--quiet", *overlay, shown, "--", *arguments(entry)[1:]]
    run = subprocess.run(command, cwd=entry["directory"], capture_output=True, text=True)
    if run.returncode == 0:
        place.touch()
        return ""
    return run.stdout or run.stderr


def main(parts):
    subprocess.run(["cmake", "--preset", "tidy"], cwd=ROOT, check=True, stdout=subprocess.DEVNULL)
    for folder in (CLEAN, BATCHES):
        folder.mkdir(exist_ok=True)
    entries = json.loads((BUILD / "compile_commands.json").read_text())
    entries = {entry["file"]: entry for entry in entries}.values()
    chosen = [entry for entry in entries if not parts or any(part in file for file in sources(entry) for part in parts)]
    if not chosen:
        sys.exit("no such source")
    rules_text = rules()
    failed = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for text in pool.map(lambda entry: findings(entry, rules_text), chosen):
            failed += text != ""
            print(text, end="", flush=True)
    if failed:
        sys.exit(f"{failed} of {len(chosen)} batches have findings")


if __name__ == "__main__":
    main(sys.argv[1:])
