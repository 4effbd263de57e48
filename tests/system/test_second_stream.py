"""Spectrum, XPIC and MIMO by the real client on the real node."""

import os
import subprocess

from node_process import PATIENCE
from walk_through import ROOT, WalkThroughTest

CONFIGURATION = ("minModulation=4QAM", "maxModulation=256QAM", "referenceSec=4L", "txFrequency_kHz=14500000",
                 "rxFrequency_kHz=14950000")


class SecondStreamTest(WalkThroughTest):
    options = ("--enable-ti", "--fading", "0")

    def zyrctl(self, *words, **variables):
        environment = {**os.environ, "ZYR_URL": self.node.url, **variables}
        done = subprocess.run([os.environ["ZYRCTL"], *words], env=environment, capture_output=True, text=True,
                              stdin=subprocess.DEVNULL, timeout=PATIENCE)
        self.assertEqual((done.returncode, done.stderr), (0, ""), words)
        return done.stdout

    def configure(self, channel, frame, *more):
        self.zyrctl("CRI.SetRadioChannelNearEnd", "--yes", f"RadioChannelID={channel}", f"radioFrameId={frame}",
                    *CONFIGURATION, *more)

    def wait_for(self, line, *words):
        """Returns when the lines that the client shows hold this one, with blanks as they come."""
        while True:
            lines = [" ".join(shown.split()) for shown in self.zyrctl(*words).splitlines()]
            if line in lines:
                return lines

    def test_spectrum_of_the_readme_is_what_the_programs_print(self):
        section = (ROOT / "README.md").read_text().split("\n## Spectrum, XPIC and MIMO\n")[1]
        os.environ["LC_ALL"] = "C.UTF-8"
        self.addCleanup(os.environ.pop, "LC_ALL")
        self.play(section.split("\nTwo channels on the same frequencies")[0], 3)

    def test_xpic_locks_and_shows_it(self):
        self.configure(1, 202, "xpicParameterPresent=true", "xpicEnable=Enable_A")
        self.configure(2, 202, "xpicParameterPresent=true", "xpicEnable=Enable_B")
        lines = self.wait_for("slave sweeps no", "xpic", "1")
        self.assertIn("Radio channel 1, XPIC Locked", lines)
        self.assertIn("link type Enable_A (1)", lines)

    def test_mimo_settles_and_is_calibrated(self):
        self.configure(1, 302, "mimoParameterPresent=true", "mimoEnable=Enable_A")
        self.wait_for("Radio channel 1, MIMO 2x2 Locked", "mimo", "1")
        self.zyrctl("TI.ManageMimo", "--yes", "crossConnectDelayCalibrationStart=true")
        self.wait_for("cross-connect calibration Success (2)", "mimo", "1")
        self.zyrctl("CRI.MimoSpatialMute", "--yes", "channelId=1", "mute=true")
        self.assertIn("diversity path muted", self.wait_for("Radio channel 1, MIMO 2x2 Mute", "mimo", "1"))
