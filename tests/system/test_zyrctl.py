"""The real client on the real node."""

import json
import os
import subprocess

from node_process import PATIENCE, NodeTest, wait_for_transmitter

PROGRAM = os.environ["ZYRCTL"]


class ZyrctlTest(NodeTest):
    options = ("--enable-ti",)

    def zyrctl(self, *words):
        environment = {**os.environ, "ZYR_URL": self.node.url}
        done = subprocess.run([PROGRAM, *words], env=environment, capture_output=True, text=True,
                              stdin=subprocess.DEVNULL, timeout=PATIENCE)
        self.assertEqual((done.returncode, done.stderr), (0, ""), done.stdout)
        return done.stdout

    def configure(self):
        self.zyrctl("SIM.SetTwoTransmitters", "--yes", "value=true")
        return self.zyrctl("--json", "CRI.SetRadioChannelNearEnd", "--yes", "RadioChannelID=1", "radioFrameId=102",
                           "minModulation=4QAM", "maxModulation=256QAM", "referenceSec=4L",
                           "txFrequency_kHz=14500000", "rxFrequency_kHz=14920000", "ffConfigTypePresent=true",
                           "FFConfigType=Standard", "rauMultiTrxConfig.ifSwitchMode=1")

    def test_channel_is_brought_up_and_its_status_shows_it(self):
        self.assertEqual(json.loads(self.configure()), {"tiResult": 0})
        self.zyrctl("CRI.SetRFPower", "--yes", "RadioChannelID=1", "txRequestedStatus=On",
                    "targetRfInputPowerFarEnd=-400", "minRfOutputPower=100", "maxRfOutputPower=100")
        status = self.zyrctl("status", "1").splitlines()
        self.assertEqual(status[0], "Radio channel 1, node NormalOperation")
        self.assertIn("Link          Up", status)
        self.assertTrue(any(line.startswith("Receiver      -") and ", 14920000, " in line for line in status), status)

    def test_watched_status_draws_the_level_over_time(self):
        self.configure()
        rounds = self.zyrctl("status", "1", "--watch=0", "--count", "3").split("#")[1:]
        self.assertEqual([text.split(" ", 1)[0] for text in rounds], ["1", "2", "3"])
        self.assertNotIn("Level         ", rounds[0])
        self.assertRegex(rounds[2], r"Level         [▁▂▃▄▅▆▇█]{3}  -\d+ to -\d+\n")

    def test_frames_and_capability_are_tables(self):
        frames = self.zyrctl("frames", "2").splitlines()
        self.assertRegex(frames[0], r"frame +type +standard +spacing +modulations +capacity")
        self.assertTrue(any("Xpic" in line and "4QAM_STRONG to 4096QAM_LIGHT" in line for line in frames), frames)
        capability = self.zyrctl("capability", "1").splitlines()
        self.assertEqual(capability[0], "Radio channel 1 of 2")
        self.assertTrue(any(line.startswith("  4QAM_STRONG ") and line.endswith("#") for line in capability),
                        capability)

    def test_loops_are_a_table_and_a_closed_one_cuts_the_far_end_off(self):
        self.configure()
        self.zyrctl("CRI.SetRFPower", "--yes", "RadioChannelID=1", "txRequestedStatus=On",
                    "targetRfInputPowerFarEnd=-400", "minRfOutputPower=40", "maxRfOutputPower=40")
        wait_for_transmitter(self.proxy, 1)
        self.zyrctl("CI.ManageLoops", "--yes", "--data", '{"loops": [{"loopName": "RfLoop1", "closed": true}]}')
        self.assertEqual(self.zyrctl("loops"), """\
loop     state
IfLoop1  open
RfLoop1  closed
IfLoop2  open
RfLoop2  open
""")
        self.zyrctl("SIM.SetFarEndTransmits", "--yes", "value=false")
        self.assertEqual(self.zyrctl("CRI.GetRadioChannelStatus", "RadioChannelID=1", "--get", "ActualRFInputPower"),
                         "-460\n")
        events = self.proxy.CI.GetEvents()["events"]
        self.assertEqual({event["eventName"] for event in events if event["isActive"]},
                         {"FarEndLinkDown", "LoopClosed"})

    def test_every_listed_command_can_be_explained(self):
        for command in self.proxy.system.listMethods():
            if command.startswith(("CI.", "CRI.", "TI.", "SIM.")):
                with self.subTest(command):
                    self.assertIn(command, self.zyrctl("help", command))
