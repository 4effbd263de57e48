"""The committed reference of the commands against what the node tells of them."""

import pathlib
import subprocess
import unittest

from node_process import PROGRAM, Node

REFERENCE = pathlib.Path(__file__).parents[2] / "docs" / "commands.md"


class ReferenceTest(unittest.TestCase):
    def test_reference_is_up_to_date(self):
        told = subprocess.run([PROGRAM, "--print-reference"], capture_output=True, text=True, check=True).stdout
        self.assertEqual(REFERENCE.read_text(), told, "run tools/update-reference.sh")

    def test_every_method_has_its_section(self):
        sections = [line.removeprefix("## ") for line in REFERENCE.read_text().splitlines() if line.startswith("## ")]
        with Node() as node:
            for method in node.proxy().system.listMethods():
                self.assertEqual(sections.count(method), 1, method)
