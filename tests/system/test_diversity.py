"""The space diversity combiners through the wire."""

import time

from node_process import PATIENCE, NodeTest, near_end_request
from walk_through import ROOT, WalkThroughTest


class CombinerTest(NodeTest):
    options = ("--radio-type", "3", "--fading", "0")

    def wait_for(self, member, value):
        deadline = time.monotonic() + PATIENCE
        while time.monotonic() < deadline:
            status = self.proxy.CRI.GetSdcStatus({"channelId": 1})
            if status[member] == value:
                return status
            time.sleep(0.05)
        self.fail(f"{member} is {status[member]}, not {value}")

    def test_combiner_is_switched_on_and_calibrated(self):
        self.assertEqual(self.proxy.CRI.GetSdcStatus({"channelId": 1})["sdcOperStatus"], "disabled")
        self.assertEqual(self.proxy.CRI.SetSdcPathControl({"channelId": 1, "sdcPath": "diversity"}), {"tiResult": 0})
        self.assertEqual(self.proxy.CRI.SetSdcEnable({"channelId": 1, "sdcEnable": True}), {"tiResult": 0})
        self.assertEqual(self.wait_for("sdcOperStatus", "enabled")["actualPath"], "diversity")
        self.assertEqual(self.proxy.CRI.SetSdcDadeCalibration({"channelId": 1, "dadeCalibration": True}),
                         {"tiResult": 0})
        self.assertEqual(self.wait_for("sdcDadeStatus", "calibrated")["sdcDadeDelay"], 12)

    def received(self, main_loss, diversity_loss):
        """The link, the received level, and what the combiner tells: path, gain and the level of both paths."""
        self.proxy.SIM.SetPathLoss({"value": main_loss})
        self.proxy.SIM.SetDiversityPathLoss({"value": diversity_loss})
        status = self.proxy.CRI.GetRadioChannelStatus({"RadioChannelID": 1})
        sdc = self.proxy.CRI.GetSdcStatus({"channelId": 1})
        return (status["RadioChannelStatus"], status["ActualRFInputPower"], sdc["actualPath"], sdc["sdcGain"],
                sdc["sdcInputPowerMain"], sdc["sdcInputPowerDiversity"])

    def test_link_survives_the_fade_of_either_path_while_the_combiner_is_on(self):
        self.proxy.CRI.SetRadioChannelNearEnd(near_end_request(self.proxy, 1))
        self.proxy.CRI.SetSdcPathControl({"channelId": 1, "sdcPath": "auto"})
        off = {(600, 600): ("Up", -400, "main", 0, -400, -400),
               (600, 700): ("Up", -400, "main", 0, -400, -500),
               (700, 600): ("Up", -500, "main", 0, -500, -400),
               (1200, 600): ("Down", -990, "main", 0, -990, -400),
               (600, 1200): ("Up", -400, "main", 0, -400, -990),
               (1200, 1200): ("Down", -990, "main", 0, -990, -990)}
        one_path = {(1200, 600): ("Up", -405, "diversity", -5, -990, -400),
                    (600, 1200): ("Up", -405, "main", -5, -400, -990),
                    (1200, 1200): ("Down", -990, "main", 0, -990, -990)}
        uncalibrated = {(600, 600): ("Up", -390, "auto", 10, -400, -400),
                        (600, 700): ("Up", -403, "auto", -3, -400, -500),
                        (700, 600): ("Up", -403, "auto", -3, -500, -400), **one_path}
        calibrated = {(600, 600): ("Up", -375, "auto", 25, -400, -400),
                      (600, 700): ("Up", -401, "auto", -1, -400, -500),
                      (700, 600): ("Up", -401, "auto", -1, -500, -400), **one_path}

        self.assertEqual({losses: self.received(*losses) for losses in off}, off)
        self.proxy.CRI.SetSdcEnable({"channelId": 1, "sdcEnable": True})
        self.wait_for("sdcOperStatus", "enabled")
        self.assertEqual({losses: self.received(*losses) for losses in uncalibrated}, uncalibrated)
        self.proxy.CRI.SetSdcDadeCalibration({"channelId": 1, "dadeCalibration": True})
        self.wait_for("sdcDadeStatus", "calibrated")
        self.assertEqual({losses: self.received(*losses) for losses in calibrated}, calibrated)


class ReadmeTest(WalkThroughTest):
    options = ("--radio-type", "3", "--fading", "0")

    def test_second_antenna_is_as_the_readme_shows_it(self):
        def wait_for_calibration(command):
            if "DadeCalibration" in command:
                deadline = time.monotonic() + PATIENCE
                while self.proxy.CRI.GetSdcStatus({"channelId": 1})["sdcDadeStatus"] != "calibrated":
                    self.assertLess(time.monotonic(), deadline)

        self.play((ROOT / "README.md").read_text().split("\n## A second antenna\n")[1].split("\n## ")[0], 10,
                  wait_for_calibration)
