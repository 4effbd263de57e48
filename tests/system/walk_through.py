"""Walk-throughs in the documentation: commands with what they print."""

import os
import pathlib
import re
import subprocess

from node_process import PATIENCE, PROGRAM, NodeTest

ROOT = pathlib.Path(__file__).parents[2]


def steps(text):
    """Each command of a text with what it shows to print."""
    for block in re.findall(r"^```console\n(.*?)^```$", text, re.MULTILINE | re.DOTALL):
        for step in re.split(r"^\$ ", block, flags=re.MULTILINE)[1:]:
            yield step.split("\n", 1)


class WalkThroughTest(NodeTest):
    """Types along on a node that was started with `options`."""

    uses_client = True

    def run_command(self, command):
        programs = f"{pathlib.Path(os.environ['ZYRCTL']).parent}:{pathlib.Path(PROGRAM).parent}:{os.environ['PATH']}"
        done = subprocess.run(["sh", "-c", command], env={**os.environ, "PATH": programs, "ZYR_URL": self.node.url},
                              capture_output=True, text=True, stdin=subprocess.DEVNULL, timeout=PATIENCE)
        self.assertEqual((done.returncode, done.stderr), (0, ""), command)
        return done.stdout

    def play(self, text, least_steps, behind=lambda command: None):
        """Holds each step of the text against what it prints; calls `behind` with its command."""
        self.assertIn(f"zyrnode {' '.join(self.options)}", text)
        shown = list(steps(text))
        self.assertGreaterEqual(len(shown), least_steps)
        for command, output in shown:
            with self.subTest(command):
                self.assertEqual(self.run_command(command), output)
            behind(command)
