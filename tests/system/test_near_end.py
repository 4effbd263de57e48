"""A channel brought from nothing to a running link, and the self-healing on the way."""

import pathlib
import subprocess
import sys
import unittest

from node_process import PROGRAM, Node, NodeTest

EXAMPLE = pathlib.Path(__file__).parents[2] / "docs" / "plot_level.py"

REQUEST = {"RadioChannelID": 1, "radioFrameId": 102, "minModulation": "4QAM", "maxModulation": "256QAM",
           "referenceSec": "4L", "txFrequency_kHz": 14500000, "rxFrequency_kHz": 14920000,
           "ffConfigTypePresent": True, "FFConfigType": "Standard"}


class NearEndTest(NodeTest):
    options = ("--trace", "ZYR.TI.CriSetRadioChannelNearEnd=4")

    def channel(self, number):
        return self.proxy.SIM.GetState()["channels"][number - 1]

    def trace_texts(self):
        return [line.split(": ", 1)[1] for line in self.node.trace().splitlines()
                if "ZYR.TI.CriSetRadioChannelNearEnd" in line]

    def test_channel_comes_up_from_nothing(self):
        self.assertEqual(self.channel(1)["radioFrameId"], 0)
        self.assertEqual(self.proxy.CRI.SetRadioChannelNearEnd(REQUEST), {"tiResult": 0})
        channel = self.channel(1)
        self.assertEqual((channel["radioFrameId"], channel["txFrequency_kHz"], channel["rxFrequency_kHz"]),
                         (102, 14500000, 14920000))
        self.assertTrue(channel["acmEnabled"])
        self.assertEqual(self.channel(2)["radioFrameId"], 0)

    def test_failure_is_healed_by_a_recovery_of_the_dsp_and_the_trace_tells_it(self):
        self.proxy.SIM.InjectFault({"collaborator": "IAcmHandler", "operation": "muteAcm", "channel": 1,
                                    "code": 0x8000, "count": 1})
        self.assertEqual(self.proxy.CRI.SetRadioChannelNearEnd(REQUEST), {"tiResult": 0})
        texts = self.trace_texts()
        first = texts.index("IAcmHandler->muteAcm() failed (EACMHResult = 32768)")
        self.assertEqual(texts[first + 1], "Configuration failed, retry with DSP recovery")
        self.assertTrue(any(text.startswith("DSP recovery triggered! Mode: Dsp") for text in texts[first:]), texts)
        self.assertTrue(self.channel(1)["acmEnabled"])
        self.assertIn("DspRecovery", [event["eventName"] for event in self.proxy.CI.GetEvents()["events"]])

    def test_three_failures_end_the_attempt(self):
        self.proxy.SIM.InjectFault({"collaborator": "IAcmHandler", "operation": "muteAcm", "channel": 1,
                                    "code": 0x8001, "count": 3})
        self.assertEqual(self.fault_of(self.proxy.CRI.SetRadioChannelNearEnd, REQUEST),
                         "4 IAcmHandler->muteAcm() failed (EACMHResult = 32769)")
        self.assertIn("Configuration failed 3 times, restart needed", self.trace_texts())


class RadioTypeTest(unittest.TestCase):
    REQUEST = {"RadioChannelID": 1, "radioFrameId": 102, "minModulation": "4QAM", "maxModulation": "256QAM",
               "referenceSec": "4L"}

    def test_each_radio_type_has_its_band_and_features(self):
        bands = {"1": (14500000, False, False), "2": (22000000, True, False), "3": (5930000, False, True)}
        for radio_type, expected in bands.items():
            with self.subTest(radio_type), Node("--radio-type", radio_type) as node:
                able = node.proxy().CRI.GetRadioChannelCapability(self.REQUEST)
                self.assertEqual((able["MinTXFrequency"], able["CarrierAggregationCapable"],
                                  able["SpaceDiversityCombinerCapable"]), expected)

    def test_unknown_radio_type_is_a_usage_error(self):
        done = subprocess.run([PROGRAM, "--radio-type", "4"], capture_output=True, text=True)
        self.assertEqual(done.returncode, 2)
        self.assertIn("--radio-type", done.stderr)


class ExampleTest(NodeTest):
    def test_documented_example_plots_a_level_that_falls(self):
        run = subprocess.run([sys.executable, EXAMPLE, self.node.url], capture_output=True, text=True, check=True)
        levels = [int(line.split()[0]) for line in run.stdout.splitlines()]
        self.assertEqual(len(levels), 9)
        self.assertEqual(levels, sorted(levels, reverse=True))
        self.assertLess(levels[-1], levels[0] - 300)
