"""The real client on the real node."""

import json
import os
import pathlib
import re
import subprocess
import unittest

from node_process import PATIENCE, Call, Node, NodeTest, wait_for_transmitter

PROGRAM = os.environ["ZYRCTL"]


class ZyrctlTest(NodeTest):
    uses_client = True
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
        self.assertTrue(any(line.startswith("Receiver      -") and " dBm, 14 920.000 MHz, " in line for line in status),
                        status)

    def test_watched_status_draws_the_level_over_time(self):
        self.configure()
        rounds = self.zyrctl("status", "1", "--watch=0", "--count", "3").split("#")[1:]
        self.assertEqual([text.split(" ", 1)[0] for text in rounds], ["1", "2", "3"])
        self.assertNotIn("Level         ", rounds[0])
        self.assertRegex(rounds[2], r"Level         [▁▂▃▄▅▆▇█]{3}  -\d+\.\d dBm to -\d+\.\d dBm\n")

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


def zyrctl(node, command):
    """Runs a command line on a node, as it stands in a text."""
    environment = {**os.environ, "ZYR_URL": node.url, "PATH": f"{pathlib.Path(PROGRAM).parent}:{os.environ['PATH']}"}
    done = subprocess.run(["sh", "-c", command], env=environment, capture_output=True, text=True,
                          stdin=subprocess.DEVNULL, timeout=PATIENCE, check=False)
    return done.returncode, done.stdout, done.stderr


class FollowTest(unittest.TestCase):
    """What goes on when the node comes back."""

    uses_client = True

    def start(self, node, *words):
        process = self.enterContext(subprocess.Popen(
            [PROGRAM, *words], env={**os.environ, "ZYR_URL": node.url}, stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True))
        self.addCleanup(process.kill)
        return process

    def test_watch_survives_a_restart_of_the_node(self):
        with Node() as node:
            watch = self.start(node, "CRI.GetAcmMode", "channelId=1", "--watch", "0.05")
            self.assertTrue(watch.stdout.readline().startswith("#1 "))
            node.stop()
            self.assertTrue(watch.stderr.readline().endswith("; trying again\n"))
        with Node(listen=f"127.0.0.1:{node.port}"):
            self.assertEqual(watch.stderr.readline(), "zyrctl: the node is back\n")

    def test_events_are_followed_across_a_restart_of_the_node(self):
        with Node() as node:
            events = self.start(node, "events", "--follow")
            self.assertEqual(events.stdout.readline(), "no alarms\n")
            node.wait_for_hanging(1)
            node.proxy().CRI.EnableAcm({"channelId": 2, "enable": False})
            self.assertRegex(events.stdout.readline(), r"^[-0-9]+ [:0-9]+  AcmDisabled on channel 2: raised\n$")
            node.stop()
            self.assertTrue(events.stderr.readline().endswith("; trying again\n"))
        with Node(listen=f"127.0.0.1:{node.port}") as node:
            self.assertEqual(events.stderr.readline(), "zyrctl: the node is back\n")
            self.assertRegex(events.stdout.readline(), r"^[-0-9]+ [:0-9]+  AcmDisabled on channel 2: cleared\n$")
            node.wait_for_hanging(1)


class ExamplesTest(unittest.TestCase):
    uses_client = True

    @classmethod
    def setUpClass(cls):
        """The example of each command, with the options of the node and the command before it."""
        cls.examples = {}
        with Node("--enable-ti") as node:
            proxy = node.proxy()
            for command in (method["name"] for method in proxy.zyr.describe()["methods"]):
                _, out, _ = zyrctl(node, f"zyrctl help {command}")
                told = re.search(r"^Example(?:, on a node of zyrnode (.*?))?(?:, behind that of (.*?))?:\n  (zyrctl .*)\n\Z",
                                 out, re.MULTILINE)
                cls.examples[command] = told.groups()

    def run_example(self, node, command):
        disturbs = node.proxy().zyr.describe(command)["disturbsTraffic"]
        return zyrctl(node, self.examples[command][2] + (" --yes" if disturbs else ""))

    def test_all_are_there(self):
        self.assertEqual(sum(name.startswith(("CI.", "CRI.", "TI.")) for name in self.examples), 72)
        self.assertIn("SIM.GetState", self.examples)

    def test_each_works_on_a_node_that_has_just_started(self):
        for command, (options, before, _) in self.examples.items():
            with self.subTest(command), Node(*(options or "").split()) as node:
                if before:
                    self.assertEqual(self.run_example(node, before)[0], 0)
                running = Call(self.run_example, node, command)
                if node.proxy().zyr.describe(command)["longPoll"]:
                    node.wait_for_hanging(1)
                    node.proxy().CRI.EnableAcm({"channelId": 1, "enable": False})
                status, _, err = running.result()
                self.assertEqual((status, re.sub("^zyrctl: the shell's history keeps .*\n", "", err)), (0, ""))
