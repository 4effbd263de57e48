"""The space diversity combiners through the wire."""

import time

from node_process import PATIENCE, NodeTest


class CombinerTest(NodeTest):
    options = ("--radio-type", "3")

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
