#!/usr/bin/env python3
"""Runs all system tests in an order of its own, which the seed on the command line repeats.

The environment variable ZYRNODE names the program to test.
"""

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
    seed = int(sys.argv[1]) if len(sys.argv) > 1 else random.randrange(1_000_000)
    print(f"order by seed {seed}", flush=True)
    cases = list(cases_of(unittest.defaultTestLoader.discover(str(pathlib.Path(__file__).parent))))
    random.Random(seed).shuffle(cases)
    result = unittest.TextTestRunner().run(unittest.TestSuite(cases))
    sys.exit(0 if result.wasSuccessful() and result.testsRun > 0 else 1)


if __name__ == "__main__":
    main()
