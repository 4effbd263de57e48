"""The walk-through of pulse and clock in the documentation: what it shows is what the node and the client do."""

import time

from node_process import PATIENCE
from walk_through import ROOT, WalkThroughTest

SUCCESSFUL, FAILED = 4, 5


class TimingTest(WalkThroughTest):
    options = ("--enable-ti", "--fading", "0")

    def calibration(self):
        return self.proxy.CRI.GetCalibrationStatusDspPps({"channelId": 1})["ppsCalibStatus"]

    def test_each_step_prints_what_the_text_shows(self):
        def wait_for_end(command):
            end = time.monotonic() + PATIENCE
            while "Calibrate" in command and self.calibration() not in (SUCCESSFUL, FAILED):
                self.assertLess(time.monotonic(), end)
                time.sleep(0.05)

        self.play((ROOT / "docs" / "timing.md").read_text(), 12, wait_for_end)
