#!/usr/bin/env python3
"""Runs the system tests in an order of its own, which a seed repeats.

usage: run_tests.py [--share I/N] [--node-alone] [SEED]

With a share, every Nth test from the Ith on: shares can run side by side. With --node-alone, without the tests that
start the client too (`uses_client`): for a build that looks at threads, of which the client has but one.

The environment variable ZYRNODE names the program to test.
"""

import argparse
import pathlib
import random
import sys
import unittest


def cases_of(suite):
    for item in suite:
        if isinstance(item, unittest.TestSuite):
            yield from cases_of(item)
        else:
            yield item


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--share", default="1/1", metavar="I/N")
    parser.add_argument("--node-alone", action="store_true")
    parser.add_argument("seed", nargs="?", type=int, default=random.randrange(1_000_000))
    arguments = parser.parse_args()
    first, step = map(int, arguments.share.split("/"))
    print(f"order by seed {arguments.seed}", flush=True)
    cases = list(cases_of(unittest.defaultTestLoader.discover(str(pathlib.Path(__file__).parent))))
    if arguments.node_alone:
        cases = [case for case in cases if not getattr(case, "uses_client", False)]
    cases = sorted(cases, key=unittest.TestCase.id)[first - 1 :: step]
    random.Random(arguments.seed).shuffle(cases)
    result = unittest.TextTestRunner().run(unittest.TestSuite(cases))
    sys.exit(0 if result.wasSuccessful() and result.testsRun > 0 else 1)


if __name__ == "__main__":
    main()
