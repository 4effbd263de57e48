"""The walk-through of a fade in the documentation: what it shows is what the node and the client do."""

import os
import pathlib
import re
import subprocess

from node_process import PATIENCE, PROGRAM, NodeTest, wait_for_transmitter

TEXT = pathlib.Path(__file__).parents[2] / "docs" / "fade.md"


def steps():
    """Each command of the walk-through with what it shows to print."""
    for block in re.findall(r"^```console\n(.*?)^```$", TEXT.read_text(), re.MULTILINE | re.DOTALL):
        for step in re.split(r"^\$ ", block, flags=re.MULTILINE)[1:]:
            yield step.split("\n", 1)


class FadeTest(NodeTest):
    options = ("--enable-ti", "--fading", "0")

    def run_command(self, command):
        programs = f"{pathlib.Path(os.environ['ZYRCTL']).parent}:{pathlib.Path(PROGRAM).parent}:{os.environ['PATH']}"
        done = subprocess.run(["sh", "-c", command], env={**os.environ, "PATH": programs, "ZYR_URL": self.node.url},
                              capture_output=True, text=True, stdin=subprocess.DEVNULL, timeout=PATIENCE)
        self.assertEqual((done.returncode, done.stderr), (0, ""), command)
        return done.stdout

    def test_each_step_prints_what_the_text_shows(self):
        self.assertIn(f"zyrnode {' '.join(self.options)}\n", TEXT.read_text())
        shown = list(steps())
        self.assertGreater(len(shown), 10)
        for command, output in shown:
            with self.subTest(command):
                self.assertEqual(self.run_command(command), output)
            if "CRI.SetRFPower" in command:
                wait_for_transmitter(self.proxy, 1)
