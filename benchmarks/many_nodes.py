#!/usr/bin/env python3
"""Starts many nodes on this machine, as one does to test a management application, and prints what a node costs:
memory, processor time while nobody asks it, and the time from its start to its first line.

usage: many_nodes.py ZYRNODE [NODES [SECONDS]]
"""

import os
import statistics
import subprocess
import sys
import time

TICKS = os.sysconf("SC_CLK_TCK")


def kilobytes(process, name):
    """A row of the process's memory; of shared pages, `Pss` counts the process's part."""
    with open(f"/proc/{process.pid}/smaps_rollup", encoding="ascii") as rows:
        return next(int(row.split()[1]) for row in rows if row.startswith(name + ":"))


def processor_seconds(process):
    with open(f"/proc/{process.pid}/stat", encoding="ascii") as stat:
        fields = stat.read().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / TICKS


def wakes(process):
    """How often its threads have been switched to."""
    count = 0
    for task in os.listdir(f"/proc/{process.pid}/task"):
        with open(f"/proc/{process.pid}/task/{task}/status", encoding="ascii") as rows:
            count += sum(int(row.split()[1]) for row in rows if "ctxt_switches:" in row)
    return count


def start(program):
    """A node that listens, and the seconds that this took."""
    begin = time.monotonic()
    process = subprocess.Popen([program, "--listen", "127.0.0.1:0", "--trace-to", "/dev/null"], stdout=subprocess.PIPE)
    if not process.stdout.readline():
        sys.exit(f"{program} has not started")
    return process, time.monotonic() - begin


def main():
    if len(sys.argv) not in (2, 3, 4):
        sys.exit(__doc__.strip().splitlines()[-1])
    program = sys.argv[1]
    count = int(sys.argv[2]) if len(sys.argv) > 2 else 200
    seconds = float(sys.argv[3]) if len(sys.argv) > 3 else 10
    nodes = []
    try:
        times = []
        for _ in range(count):
            process, took = start(program)
            nodes.append(process)
            times.append(took * 1000)
        started = [processor_seconds(node) for node in nodes]
        woken = [wakes(node) for node in nodes]
        time.sleep(seconds)
        idle = [processor_seconds(node) - before for node, before in zip(nodes, started)]
        idle_wakes = [wakes(node) - before for node, before in zip(nodes, woken)]
        own = [kilobytes(node, "Private_Dirty") / 1024 for node in nodes]
        share = [kilobytes(node, "Pss") / 1024 for node in nodes]
    finally:
        for node in nodes:
            node.terminate()
        for node in nodes:
            node.wait()
            node.stdout.close()
    print(f"{count} nodes, idle for {seconds:g} s")
    print(f"  memory of its own        {statistics.mean(own):8.2f} MB, with its part of what is shared "
          f"{statistics.mean(share):.2f} MB")
    print(f"  processor time to start  {statistics.mean(started) * 1000:8.1f} ms")
    print(f"  from start to first line {statistics.median(times):8.1f} ms, at most {max(times):.1f} ms")
    print(f"  processor time when idle {sum(idle) / count / seconds * 100:8.4f} % of a core, "
          f"{sum(idle_wakes) / count / seconds:.2f} wakes a second")


if __name__ == "__main__":
    main()
