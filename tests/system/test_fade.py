"""The walk-through of a fade in the documentation: what it shows is what the node and the client do."""

from node_process import wait_for_transmitter
from walk_through import ROOT, WalkThroughTest


class FadeTest(WalkThroughTest):
    options = ("--enable-ti", "--fading", "0")

    def test_each_step_prints_what_the_text_shows(self):
        def wait_for_power(command):
            if "CRI.SetRFPower" in command:
                wait_for_transmitter(self.proxy, 1)

        self.play((ROOT / "docs" / "fade.md").read_text(), 11, wait_for_power)
