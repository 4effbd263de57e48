#!/usr/bin/env python3
"""The real zyrctl against a small XML-RPC server: output, errors and exit status of every habit.

The environment variable ZYRCTL names the program.
"""

import calendar
import fcntl
import json
import os
import pty
import random
import re
import select
import signal
import socket
import ssl
import struct
import subprocess
import sys
import tempfile
import termios
import time
import unittest
import xmlrpc.client

import fake_node
from fake_node import DESCRIPTIONS, DROP, HANG, FakeNode, RawServer

ZYRCTL = os.environ["ZYRCTL"]
DEADLINE = 20

STATUS_ANSWER = {"tiResult": 0, "acmMode": 1, "power": 15.5,
                 "events": [{"eventName": "LOS", "count": 3}, {"eventName": "Sync lost", "count": 12}]}
LATER_STATUS_ANSWER = {"tiResult": 0, "acmMode": 0, "power": 15.5, "events": [{"eventName": "LOS", "count": 4}]}


def environment(url=None, **more):
    kept = {name: value for name, value in os.environ.items()
            if not name.startswith("ZYR_") and name not in ("NO_COLOR", "http_proxy", "CURL_CA_BUNDLE",
                                                            "SSL_CERT_FILE", "XDG_CONFIG_HOME")}
    kept["TERM"] = "xterm"
    if url:
        kept["ZYR_URL"] = url
    return {**kept, **more}


def run(*words, url=None, stdin="", **more):
    done = subprocess.run([ZYRCTL, *words], input=stdin, capture_output=True, text=True, timeout=DEADLINE,
                          env=environment(url, **more), check=False)
    return done.returncode, done.stdout, done.stderr


def own_the_terminal():
    """Makes standard input the terminal of a session of its own, so that what is typed can interrupt."""
    os.setsid()
    fcntl.ioctl(0, termios.TIOCSCTTY, 0)


def run_on_terminal(*words, url=None, typed="", wait_for=None, then=(), size=None, own_terminal=False, **more):
    """Runs the program on a terminal; types when it has written `wait_for`. Gives status and all it wrote.

    Goes on with the pairs in `then`: what to wait for, and what to type. The size is that of the terminal, lines and
    columns.
    """
    dialogue = [(wait_for, typed), *then] if wait_for else []
    master, slave = pty.openpty()
    if size:
        fcntl.ioctl(slave, termios.TIOCSWINSZ, struct.pack("HHHH", *size, 0, 0))
    with subprocess.Popen([ZYRCTL, *words], stdin=slave, stdout=slave, stderr=slave,
                          preexec_fn=own_the_terminal if own_terminal else None,
                          env=environment(url, **more)) as process:
        os.close(slave)
        written = b""
        while True:
            ready, _, _ = select.select([master], [], [], DEADLINE)
            if not ready:
                process.kill()
                raise AssertionError(f"the program hangs behind {written!r}")
            try:
                piece = os.read(master, 4096)
            except OSError:  # the other end is closed
                break
            if not piece:
                break
            written += piece
            if dialogue and dialogue[0][0].encode() in written:
                os.write(master, dialogue.pop(0)[1].encode())
        status = process.wait(DEADLINE)
    os.close(master)
    return status, written.decode().replace("\r\n", "\n")


class NodeTest(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        self.node = self.enterContext(FakeNode())

    def run_with_node(self, *words, **more):
        return run(*words, url=self.node.url, **more)


class List(NodeTest):
    def test_shows_every_command_with_its_help(self):
        self.assertEqual(self.run_with_node("list"), (0, (
            "CI.GetFastEvents  Waits for events.\n"
            "CRI.EnableAcm     Switches ACM of a radio channel on or off.\n"
            "CRI.GetStatus     Reads the status of a radio channel.\n"
            "CRI.SetAcmMode    Sets the ACM mode.\n"
            "CRI.SetKey        Sets the key.\n"
            "TI.GetEvents      Reads events. [test]\n"), ""))

    def test_takes_a_part_of_a_name_or_a_pattern(self):
        expected = ("CRI.EnableAcm   Switches ACM of a radio channel on or off.\n"
                    "CRI.SetAcmMode  Sets the ACM mode.\n")
        self.assertEqual(self.run_with_node("list", "acm"), (0, expected, ""))
        self.assertEqual(self.run_with_node("list", "cri.*acm*"), (0, expected, ""))

    def test_tells_on_standard_error_when_nothing_fits(self):
        self.assertEqual(self.run_with_node("list", "nix"), (0, "", 'zyrctl: no command fits "nix"\n'))
        self.assertEqual(self.run_with_node("list", "a\nb\rc\td"),
                         (0, "", 'zyrctl: no command fits "a\\nb\\rc\\td"\n'))
        self.assertEqual(self.run_with_node("list", "\x1b[2J"),
                         (0, "", 'zyrctl: no command fits "\\x1b[2J"\n'))

    def test_shows_undescribed_methods_with_all(self):
        self.assertEqual(self.run_with_node("list", "--all", "sim"), (0, "SIM.GetState  Reads the state.\n", ""))

    def test_groups_test_commands_alone(self):
        self.assertEqual(self.run_with_node("list", "--test"),
                         (0, "events:\n  TI.GetEvents  Reads events.\n", ""))
        status, out, _ = self.run_with_node("list", "--test", "--json")
        self.assertEqual((status, json.loads(out)),
                         (0, [{"name": "TI.GetEvents", "help": "Reads events.", "test": True, "group": "events"}]))
        self.assertEqual(self.run_with_node("list", "--test", "cri")[1:], ("", 'zyrctl: no command fits "cri"\n'))
        self.assertEqual(self.run_with_node("list", "--test", "--all")[0], 2)

    def test_is_json_on_request(self):
        status, out, err = self.run_with_node("list", "ti.", "--json")
        self.assertEqual((status, json.loads(out), err),
                         (0, [{"name": "TI.GetEvents", "help": "Reads events.", "test": True}], ""))


class Taps(NodeTest):
    STATE = {"tiResult": 0, "RadioChannelID": 2, "TapsLogActive": False, "LogPeriodSec": 1}
    ASK, START, STOP, READ = (
        ("TI.ManageTaps", [{"RadioChannelID": 2, **more}])
        for more in ({}, *({"LogRequestOption": option} for option in ("StartLog", "StopLog", "ReadSample"))))

    def setUp(self):
        super().setUp()
        self.node.add_described({"name": "TI.ManageTaps", "request": [], "response": [
            {"name": "LogPeriodSec", "type": "int", "unit": "s"},
            {"name": "TapsLogData", "type": "struct", "fields": [
                {"name": "maxPowerOut", "type": "int", "unit": "0.1 dBm"}]}]}, {"tiResult": 0})

    @staticmethod
    def sample(time, left):
        return {"tiResult": 0, "TapsLogData": {"samplesRemaining": left, "timeStamp": time, "maxPowerOut": -50}}

    def test_shows_the_state(self):
        self.node.answers["TI.ManageTaps"] = [self.STATE]
        self.assertEqual(self.run_with_node("taps", "2"),
                         (0, "tiResult        0\nRadioChannelID  2\nTapsLogActive   false\nLogPeriodSec    1 s\n", ""))
        self.assertEqual(self.node.calls, [self.ASK])

    def test_follows_a_log_of_its_own_and_stops_it(self):
        self.node.answers["TI.ManageTaps"] = [self.STATE, {"tiResult": 0}, self.sample("300 ms", 1),
                                              self.sample("1,3 s", 0), {"tiResult": 0}]
        self.assertEqual(self.run_with_node("taps", "2", "--log", "--count", "2"), (0, (
            "samplesRemaining  timeStamp  maxPowerOut\n"
            "1                 300 ms     -5.0 dBm\n"
            "0                 1,3 s      -5.0 dBm\n"), ""))
        self.assertEqual(self.node.calls, [self.ASK, self.START, self.READ, self.READ, self.STOP])

    def test_leaves_a_log_that_was_running(self):
        self.node.answers["TI.ManageTaps"] = [{**self.STATE, "TapsLogActive": True}, self.sample("1,3 s", 0)]
        self.assertEqual(self.run_with_node("taps", "2", "--log", "--csv", "--count", "1"),
                         (0, 'samplesRemaining,timeStamp,maxPowerOut\n0,"1,3 s",-50\n', ""))
        self.assertEqual(self.node.calls, [self.ASK, self.READ])

    def test_sets_the_period_and_waits_for_the_first_sample(self):
        empty = xmlrpc.client.Fault(4, "TI.ManageTaps failed to read sample from log")
        self.node.answers["TI.ManageTaps"] = [{"tiResult": 0}, self.STATE, {"tiResult": 0}, empty,
                                              self.sample("5 ms", 0), {"tiResult": 0}]
        status, out, _ = self.run_with_node("taps", "2", "--log", "--period", "7", "--count", "1", "--json")
        self.assertEqual((status, json.loads(out)["timeStamp"]), (0, "5 ms"))
        self.assertEqual(self.node.calls[0][1], [{"RadioChannelID": 2, "LogRequestOption": "SetLogPeriod", "Time": 7}])

    def test_stops_its_log_at_an_interrupt_and_at_a_fault(self):
        self.node.answers["TI.ManageTaps"] = [self.STATE, {"tiResult": 0}, self.sample("300 ms", 0)]
        with subprocess.Popen([ZYRCTL, "taps", "2", "--log"], stdout=subprocess.PIPE, text=True,
                              env=environment(self.node.url)) as process:
            self.assertTrue(process.stdout.readline().startswith("samplesRemaining"))
            process.send_signal(signal.SIGINT)
            self.assertEqual(process.wait(DEADLINE), 0)
        self.assertEqual(self.node.calls[-1], self.STOP)
        self.node.answers["TI.ManageTaps"] = [self.STATE, {"tiResult": 0}, xmlrpc.client.Fault(4, "broken")]
        self.assertEqual(self.run_with_node("taps", "2", "--log"), (1, "", "zyrctl: fault 4: broken\n"))
        self.assertEqual(self.node.calls[-1], self.STOP)


class Status(NodeTest):
    ANSWER = {"tiResult": 0, "ZyrState": "NormalOperation", "RadioChannelStatus": "Up", "TXActualStatus": "On",
              "ReportedRFOutputPower": 150, "TxFrequency": 14500000, "ActualTxModulation": "256QAM",
              "ActualRFInputPower": -398, "RxFrequency": 14920000, "ActualRxModulation": "128QAM", "ActualSNIR": 335,
              "ErroredBlocks": 3, "BackgroundBlocks": 1022, "HopLengthLatency": 26678}

    def test_has_the_units_of_the_description(self):
        self.node.add_described(fake_node.CHANNEL_STATUS, self.ANSWER)
        self.assertEqual(self.run_with_node("status", "2"), (0, (
            "Radio channel 2, node NormalOperation\n"
            "Link          Up\n"
            "Transmitter   On, 15.0 dBm, 14 500.000 MHz, 256QAM\n"
            "Receiver      -39.8 dBm, 14 920.000 MHz, 128QAM\n"
            "SNIR          33.5 dB\n"
            "Blocks        errored 3, background 1022\n"
            "Hop latency   26.7 µs\n"
            "Running       none\n"), ""))
        self.assertEqual(self.node.calls, [("CRI.GetRadioChannelStatus", [{"RadioChannelID": 2}])])

    def test_names_what_is_running(self):
        self.node.add_described(
            fake_node.CHANNEL_STATUS,
            {**self.ANSWER, "XpicIsStarted": True, "XpicStatus": "Calibrated", "ActualXpi": 31, "MimoIsStarted": True,
             "IsMimo4x4": True, "MimoStatus": "Locked", "BasebandSdcIsStarted": True,
             "ActualDadeStatusBasebandSdc": "Aligned"},
            {**self.ANSWER, "MimoIsStarted": True, "MimoStatus": "Unlocked"})
        for running in ("XPIC Calibrated, XPI 31, MIMO 4x4 Locked, baseband SDC Aligned", "MIMO 2x2 Unlocked"):
            status, out, _ = self.run_with_node("status")
            self.assertEqual((status, out.splitlines()[-1]), (0, f"Running       {running}"))

    def test_shows_no_level_that_the_node_does_not_tell(self):
        answer = {name: value for name, value in self.ANSWER.items() if name != "ActualRFInputPower"}
        self.node.add_described(fake_node.CHANNEL_STATUS, answer)
        self.assertEqual(self.run_with_node("status")[1].splitlines()[3], "Receiver      -, 14 920.000 MHz, 128QAM")

    def test_has_exact_numbers_as_json(self):
        self.node.add_described(fake_node.CHANNEL_STATUS, self.ANSWER)
        status, out, _ = self.run_with_node("status", "--json")
        self.assertEqual((status, json.loads(out)), (0, self.ANSWER))

    def test_is_watched_with_marks_and_without_levels_that_are_none(self):
        self.node.add_described(fake_node.CHANNEL_STATUS, {**self.ANSWER, "ActualRFInputPower": -99}, self.ANSWER,
                                {**self.ANSWER, "ActualRFInputPower": -402, "RadioChannelStatus": "Down"})
        status, out, _ = self.run_with_node("status", "--watch", "0.01", "--count", "3")
        self.assertEqual(status, 0)
        first, second, third = out.split("#")[1:]
        self.assertIn("  Receiver      none yet (-99), 14 920.000 MHz, 128QAM\n", first)
        self.assertNotIn("Level", second)
        self.assertIn("* Receiver      -39.8 dBm, 14 920.000 MHz, 128QAM\n", second)
        self.assertIn("  Level         █▁  -40.2 dBm to -39.8 dBm\n", third)
        self.assertIn("* Link          Down\n", third)
        self.assertIn("  SNIR          33.5 dB\n", third)


class Loops(NodeTest):
    ANSWER = {"tiResult": 0, "loops": [{"loopName": "IfLoop1", "closed": False}, {"loopName": "RfLoop1", "closed": True}]}

    def setUp(self):
        super().setUp()
        self.node.add_described(fake_node.LOOPS, self.ANSWER)

    def test_are_a_table(self):
        self.assertEqual(self.run_with_node("loops"), (0, (
            "loop     state\n"
            "IfLoop1  open\n"
            "RfLoop1  closed\n"), ""))
        self.assertEqual(self.node.calls, [("CI.ManageLoops", [{"loops": []}])])

    def test_are_json_on_request(self):
        status, out, _ = self.run_with_node("loops", "--json")
        self.assertEqual((status, json.loads(out)), (0, self.ANSWER))

    def test_pass_a_fault_on(self):
        self.node.answers["CI.ManageLoops"] = [xmlrpc.client.Fault(4, "no loops")]
        self.assertEqual(self.run_with_node("loops"), (1, "", "zyrctl: fault 4: no loops\n"))


class Acm(NodeTest):
    MODE = {"tiResult": 0, "acmMode": 1, "acmModePosition": "External"}
    STATUS = {"tiResult": 0, "ActualTxModulation": "4QAM", "ActualRxModulation": "256QAM", "ActualSNIR": 263}
    THRESHOLDS = {"tiResult": 0, "thresholds": [{"modulationAndCoding": 31, "threshold": 70},
                                                {"modulationAndCoding": 81, "threshold": 250}]}

    def setUp(self):
        super().setUp()
        self.node.add_described(fake_node.ACM_MODE, self.MODE)
        self.node.add_described(fake_node.CHANNEL_STATUS, self.STATUS)
        self.node.add_described(fake_node.THRESHOLDS, self.THRESHOLDS)

    def test_is_drawn_as_a_ladder(self):
        self.assertEqual(self.run_with_node("acm", "2"), (0, (
            "Radio channel 2\n"
            "ACM mode      Passive, External\n"
            "Transmit      4QAM\n"
            "Receive       256QAM\n"
            "SNIR          26.3 dB\n"
            "Thresholds    SNIR below which the receiver leaves the modulation\n"
            "  ----                 26.3 dB  SNIR now\n"
            "  256QAM               25.0 dB  received\n"
            "  4QAM                  7.0 dB  sent\n"), ""))
        self.assertEqual(self.node.calls, [("CRI.GetAcmMode", [{"channelId": 2}]),
                                           ("CRI.GetRadioChannelStatus", [{"RadioChannelID": 2}]),
                                           ("TI.GetAcmThresholds", [{"channelId": 2}])])

    def test_is_told_without_thresholds_when_the_test_commands_are_closed(self):
        self.node.answers["TI.GetAcmThresholds"] = [xmlrpc.client.Fault(4, "Error: Command not available")]
        status, out, err = self.run_with_node("acm")
        self.assertEqual((status, out.splitlines()[-1], err), (0, "Thresholds    not told by this node", ""))

    def test_is_all_three_answers_as_json(self):
        status, out, _ = self.run_with_node("acm", "--json")
        self.assertEqual((status, json.loads(out)), (0, {
            "CRI.GetAcmMode": self.MODE, "CRI.GetRadioChannelStatus": self.STATUS,
            "TI.GetAcmThresholds": self.THRESHOLDS}))

    def test_answer_of_other_types_is_a_protocol_error(self):
        self.node.answers["TI.GetAcmThresholds"] = [{"thresholds": [{"threshold": "high"}]}]
        status, out, err = self.run_with_node("acm")
        self.assertEqual((status, out), (5, ""))
        self.assertTrue(err.startswith("zyrctl: the node answers in a way that this program does not know: "), err)

    def test_passes_other_faults_on(self):
        self.node.answers["CRI.GetAcmMode"] = [xmlrpc.client.Fault(2, "RadioChannelID out of bounds")]
        self.assertEqual(self.run_with_node("acm", "7"), (1, "", "zyrctl: fault 2: RadioChannelID out of bounds\n"))


class Pps(NodeTest):
    CALIBRATED = {"tiResult": 0, "ppsCalibStatus": 3, "ppsCalibReasonOfFailure": 7}
    HOP = {"tiResult": 0, "ppsHopLengthTime": 26678}
    PULSES = [{"source": 0, "offset_ns": 0, "outputMode": 0}, {"source": 1, "offset_ns": 120, "outputMode": 2}]
    NO_HOP = xmlrpc.client.Fault(4, "CRI.GetHopLengthTimeDspPps failed to get hop length time.")

    def setUp(self):
        super().setUp()
        self.node.add_described(fake_node.CALIBRATION, self.CALIBRATED)
        self.node.add_described(fake_node.HOP_LENGTH, self.HOP)

    def show_state(self):
        self.node.add_described(fake_node.STATE, {"tiResult": 0, "channels": [
            {"number": number, "pps": pulse} for number, pulse in enumerate(self.PULSES, 1)]})

    def test_has_the_settings_that_a_simulated_node_shows(self):
        self.show_state()
        self.assertEqual(self.run_with_node("pps", "2"), (0, (
            "Radio channel 2\n"
            "Source        External, offset 120 ns\n"
            "Output        Auto\n"
            "Calibration   Successful\n"
            "Hop length    26 678 ns, 7.998 km, radio units included\n"), ""))
        self.assertEqual(self.node.calls, [("CRI.GetCalibrationStatusDspPps", [{"channelId": 2}]),
                                           ("CRI.GetHopLengthTimeDspPps", [{"channelId": 2}]), ("SIM.GetState", [])])

    def test_tells_what_a_node_does_not_tell(self):
        del self.node.funcs["SIM.GetState"]
        self.node.answers["CRI.GetCalibrationStatusDspPps"] = [{**self.CALIBRATED, "ppsCalibStatus": 4}]
        self.node.answers["CRI.GetHopLengthTimeDspPps"] = [self.NO_HOP]
        self.assertEqual(self.run_with_node("pps"), (0, (
            "Radio channel 1\n"
            "Source        not told by this node\n"
            "Output        not told by this node\n"
            "Calibration   Failed, SlaveLOL\n"
            "Hop length    none: CRI.GetHopLengthTimeDspPps failed to get hop length time.\n"), ""))

    def test_survives_a_state_of_another_form(self):
        status, out, err = self.run_with_node("pps")  # a list
        self.assertEqual((status, out.splitlines()[1], err), (0, "Source        not told by this node", ""))

    def test_is_all_answers_as_json(self):
        self.show_state()
        status, out, _ = self.run_with_node("pps", "--json")
        self.assertEqual((status, json.loads(out)), (0, {
            "CRI.GetCalibrationStatusDspPps": self.CALIBRATED, "CRI.GetHopLengthTimeDspPps": self.HOP,
            "settings": self.PULSES[0]}))
        self.node.answers["CRI.GetHopLengthTimeDspPps"] = [self.NO_HOP]
        answers = json.loads(self.run_with_node("pps", "3", "--json")[1])
        self.assertEqual(answers["CRI.GetHopLengthTimeDspPps"], {
            "error": {"kind": "fault", "code": 4, "text": self.NO_HOP.faultString}})
        self.assertEqual(answers["settings"], {})

    def test_is_watched_with_the_progress_of_the_calibration(self):
        states = [{**self.CALIBRATED, "ppsCalibStatus": number} for number in (1, 1, 2, 3)]
        self.node.answers["CRI.GetCalibrationStatusDspPps"] = states
        self.node.answers["CRI.GetHopLengthTimeDspPps"] = [self.NO_HOP, self.NO_HOP, self.NO_HOP, self.HOP]
        status, out, err = self.run_with_node("pps", "--watch=0.01", "--count", "4")
        self.assertEqual((status, err), (0, ""))
        first, second, third, fourth = out.split("#")[1:]
        self.assertIn("  Progress      CoarseInProgress 0 s\n", first)
        self.assertIn("  Calibration   CoarseInProgress\n", second)
        self.assertIn("* Calibration   FineInProgress\n", third)
        self.assertIn("* Calibration   Successful\n", fourth)
        self.assertIn("* Hop length    26 678 ns, 7.998 km, radio units included\n", fourth)
        self.assertIn("* Progress      CoarseInProgress 0 s > FineInProgress 0 s > Successful 0 s\n", fourth)

    def test_keeps_the_latest_states_of_a_calibration_that_is_repeated(self):
        self.node.answers["CRI.GetCalibrationStatusDspPps"] = [
            {**self.CALIBRATED, "ppsCalibStatus": number} for number in (1, 2, 3, 2, 3, 2, 3)]
        out = self.run_with_node("pps", "--watch=0.01", "--count", "7")[1]
        self.assertTrue(out.endswith("* Progress      Successful 0 s > FineInProgress 0 s > Successful 0 s > "
                                     "FineInProgress 0 s > Successful 0 s\n"), out)

    def test_passes_other_faults_on(self):
        self.node.answers["CRI.GetCalibrationStatusDspPps"] = [xmlrpc.client.Fault(2, "RadioChannelID out of bounds")]
        self.assertEqual(self.run_with_node("pps", "7"), (1, "", "zyrctl: fault 2: RadioChannelID out of bounds\n"))


class Clock(NodeTest):
    ANSWER = {"tiResult": 0, "dateTime": "20260114T08:30:05"}

    def setUp(self):
        super().setUp()
        self.node.add_described(fake_node.CLOCK, self.ANSWER)

    def sent(self):
        (name, [request]), = self.node.calls
        self.assertEqual((name, list(request)), ("TI.ManageRealTimeClock", ["dateTime"]))
        return request["dateTime"]

    def test_is_read_as_people_write_it(self):
        self.assertEqual(self.run_with_node("clock"), (0, "2026-01-14T08:30:05Z\n", ""))
        self.assertEqual(self.sent(), "")

    def test_is_the_answer_as_json(self):
        status, out, _ = self.run_with_node("clock", "--json")
        self.assertEqual((status, json.loads(out)), (0, self.ANSWER))

    def test_is_set_in_the_form_of_the_wire(self):
        self.node.answers["TI.ManageRealTimeClock"] = [{"tiResult": 0, "dateTime": "20310722T23:59:59"}]
        self.assertEqual(self.run_with_node("clock", "--set", "2031-07-22T23:59:58Z"), (0, "2031-07-22T23:59:59Z\n", ""))
        self.assertEqual(self.sent(), "20310722T23:59:58")

    def test_is_set_to_the_next_full_second(self):
        before = time.time()
        self.assertEqual(self.run_with_node("clock", "--set", "now", TZ="CET-1")[0], 0)
        sent = calendar.timegm(time.strptime(self.sent(), "%Y%m%dT%H:%M:%S"))
        self.assertTrue(before <= sent <= time.time(), (before, sent))

    def test_is_set_in_utc_alone(self):
        front = "zyrctl: the clock is set in UTC: give "
        for text, better in (
                ("2026-01-14T08:30:05+01:00", "2026-01-14T07:30:05Z"),
                ("2026-01-14T08:30:05", "2026-01-14T08:30:05Z, or 2026-01-14T07:30:05Z if this computer's zone is meant"),
                ("2026-01-14 08:30:05 CET", "2026-01-14T07:30:05Z")):
            self.assertEqual(self.run_with_node("clock", "--set", text, TZ="CET-1"), (2, "", f"{front}{better}\n"))
        self.assertEqual(self.run_with_node("clock", "--set", ""), (
            2, "", 'zyrctl: "" is no time; give one as 2026-01-14T08:30:05Z, or now\n'))
        self.assertEqual(self.node.calls, [])

    def test_passes_faults_on(self):
        self.node.answers["TI.ManageRealTimeClock"] = [xmlrpc.client.Fault(4, "Error: Command not available")]
        self.assertEqual(self.run_with_node("clock"), (1, "", "zyrctl: fault 4: Error: Command not available\n"))

    def test_that_is_not_told_is_a_protocol_error(self):
        self.node.answers["TI.ManageRealTimeClock"] = [{"tiResult": 0}]
        self.assertEqual(self.run_with_node("clock"), (
            5, "", "zyrctl: TI.ManageRealTimeClock does not tell the time\n"))
        self.node.answers["TI.ManageRealTimeClock"] = [{"tiResult": 0, "dateTime": "a\tc"}]
        self.assertEqual(self.run_with_node("clock"), (0, "a\\tc\n", ""))


def alarm(name, channel, active, count):
    return {"eventName": name, "radioChannelId": channel, "isActive": active, "numberOfTimesEventHasBeenActive": count}


class Events(NodeTest):
    BEFORE = {"tiResult": 0, "events": [alarm("AcmDisabled", 1, True, 12), alarm("LoopClosed", 0, False, 1)]}
    TABLE = ("state    alarm        channel  times\n"
             "raised   AcmDisabled        1     12\n"
             "cleared  LoopClosed         -      1\n")

    def setUp(self):
        super().setUp()
        self.node.add_command("CI.GetEvents")
        self.node.answers["CI.GetEvents"] = [self.BEFORE]

    def follow(self, *words):
        """All that is written until the node answers with the fault that ends it, times left out."""
        status, out, err = self.run_with_node("events", "--follow", *words)
        self.assertEqual((status, err.splitlines()[-1]), (1, "zyrctl: fault 4: enough"))
        time = r"\d{4}-\d\d-\d\d \d\d:\d\d:\d\d"
        return re.sub(time, "<time>", out), err.splitlines()[:-1]

    def test_are_a_table(self):
        self.assertEqual(self.run_with_node("events"), (0, self.TABLE, ""))
        self.node.answers["CI.GetEvents"] = [{"tiResult": 0, "events": []}]
        self.assertEqual(self.run_with_node("events"), (0, "no alarms\n", ""))

    def test_are_json_on_request(self):
        status, out, _ = self.run_with_node("events", "--json")
        self.assertEqual((status, json.loads(out)), (0, self.BEFORE))

    def test_are_followed_with_a_line_for_each_change(self):
        later = {"tiResult": 0, "events": [alarm("AcmDisabled", 1, False, 12), alarm("LinkDown", 2, True, 1),
                                           alarm("LoopClosed", 0, False, 2)]}
        last = {"tiResult": 0, "events": [alarm("AcmDisabled", 1, False, 12), alarm("LoopClosed", 0, True, 3)]}
        self.node.answers["CI.GetFastEvents"] = [later, later, last, xmlrpc.client.Fault(4, "enough")]
        self.assertEqual(self.follow(), (self.TABLE + (
            "<time>  AcmDisabled on channel 1: cleared\n"
            "<time>  LinkDown on channel 2: raised\n"
            "<time>  LoopClosed: raised and cleared\n"
            "<time>  LoopClosed: raised\n"
            "<time>  LinkDown on channel 2: cleared\n"), []))
        asked = [params[0]["events"] for name, params in self.node.calls if name == "CI.GetFastEvents"]
        self.assertEqual(asked, [answer["events"] for answer in (self.BEFORE, later, later, last)])

    def test_are_followed_in_lines_of_json(self):
        later = {"tiResult": 0, "events": [alarm("AcmDisabled", 1, False, 12), alarm("LoopClosed", 0, False, 1)]}
        self.node.answers["CI.GetFastEvents"] = [later, xmlrpc.client.Fault(4, "enough")]
        status, out, _ = self.run_with_node("events", "--follow", "--json")
        first, second = (json.loads(line) for line in out.splitlines())
        self.assertEqual((status, first), (1, self.BEFORE))
        self.assertEqual({**second, "time": ""},
                         {"time": "", "change": "cleared", "eventName": "AcmDisabled", "radioChannelId": 1})

    def test_are_followed_across_a_node_that_goes_and_comes(self):
        self.node.answers["CI.GetEvents"] = [self.BEFORE, DROP,
                                             {"tiResult": 0, "events": [alarm("AcmDisabled", 1, True, 12)]}]
        self.node.answers["CI.GetFastEvents"] = [DROP, xmlrpc.client.Fault(4, "enough")]
        out, err = self.follow()
        self.assertEqual(out, self.TABLE)
        self.assertEqual(len(err), 2)
        self.assertRegex(err[0], r"^zyrctl: the exchange with \S+ broke off: .*; trying again$")
        self.assertEqual(err[1], "zyrctl: the node is back")

    def test_are_followed_across_a_release(self):
        terminated = xmlrpc.client.Fault(4, "CI.GetFastEvents has been terminated")
        self.node.answers["CI.GetFastEvents"] = [terminated, xmlrpc.client.Fault(4, "enough")]
        self.assertEqual(self.follow(), (self.TABLE, []))

    def test_cannot_be_followed_without_a_node(self):
        self.assertEqual(run("events", "--follow", url="http://127.0.0.1:1/RPC2")[0], 3)


class Restart(NodeTest):
    ASK, TRIGGER, END = (("CRI.RestartRadio", [{"RadioChannelID": 2, "Action": action}])
                         for action in ("GetStatus", "TriggerRestart", "EndRestart"))
    IDLE, RESTARTING, SUCCESSFUL, FAILED = ({"tiResult": 0, "Status": number} for number in (1, 2, 3, 4))

    def setUp(self):
        super().setUp()
        self.node.add_command("CRI.RestartRadio")

    def answer(self, *answers):
        self.node.answers["CRI.RestartRadio"] = list(answers)

    def test_triggers_polls_and_ends(self):
        self.answer(self.IDLE, self.RESTARTING, self.RESTARTING, self.SUCCESSFUL, self.IDLE)
        self.assertEqual(self.run_with_node("restart", "2", "--wait", "--yes"),
                         (0, "the radio unit of channel 2 has restarted\n", ""))
        self.assertEqual(self.node.calls, [self.ASK, self.TRIGGER, self.ASK, self.ASK, self.END])

    def test_shows_progress_on_a_terminal(self):
        self.answer(self.IDLE, self.RESTARTING, self.RESTARTING, self.SUCCESSFUL, self.IDLE)
        status, out = run_on_terminal("restart", "2", "--wait", "--yes", url=self.node.url)
        self.assertEqual(status, 0)
        self.assertRegex(out, r"^\r\x1b\[Kthe restart of the radio unit of channel 2 \d\.\d s\r\x1b\[K"
                              r"the radio unit of channel 2 has restarted\n$")

    def test_only_triggers_without_wait(self):
        self.answer(self.IDLE, self.RESTARTING)
        self.assertEqual(self.run_with_node("restart", "2", "--yes"), (0, (
            "the radio unit of channel 2 restarts; zyrctl restart 2 --wait tells how it went\n"), ""))
        self.assertEqual(self.node.calls, [self.ASK, self.TRIGGER])

    def test_failure_is_ended_and_gives_status_1(self):
        self.answer(self.IDLE, self.FAILED, self.IDLE)
        self.assertEqual(self.run_with_node("restart", "2", "--wait", "--yes"),
                         (1, "", "zyrctl: the restart of the radio unit of channel 2 failed\n"))
        self.assertEqual(self.node.calls, [self.ASK, self.TRIGGER, self.END])

    def test_fault_of_the_trigger_gives_status_1(self):
        self.answer(self.IDLE, xmlrpc.client.Fault(4, "channel 2: Radio is DOWN"))
        self.assertEqual(self.run_with_node("restart", "2", "--wait", "--yes"),
                         (1, "", "zyrctl: fault 4: channel 2: Radio is DOWN\n"))

    def test_joins_a_running_restart_without_asking(self):
        self.answer(self.RESTARTING, self.SUCCESSFUL, self.IDLE)
        self.assertEqual(self.run_with_node("restart", "2", "--wait"), (
            0, "the radio unit of channel 2 has restarted\n", "the radio unit of channel 2 is restarting already\n"))
        self.assertEqual(self.node.calls, [self.ASK, self.ASK, self.END])

    def test_waiting_tells_how_an_earlier_restart_went_that_is_still_open(self):
        remark = "an earlier restart of the radio unit of channel 2 was not ended; this is how it went\n"
        self.answer(self.SUCCESSFUL, self.IDLE)
        self.assertEqual(self.run_with_node("restart", "2", "--wait"),
                         (0, "the radio unit of channel 2 has restarted\n", remark))
        self.assertEqual(self.node.calls, [self.ASK, self.END])
        self.answer(self.FAILED, self.IDLE)
        self.assertEqual(self.run_with_node("restart", "2", "--wait"),
                         (1, "", remark + "zyrctl: the restart of the radio unit of channel 2 failed\n"))

    def test_without_waiting_an_open_restart_is_followed_by_another(self):
        self.answer(self.SUCCESSFUL, self.RESTARTING)
        self.assertEqual(self.run_with_node("restart", "2", "--yes")[0], 0)
        self.assertEqual(self.node.calls, [self.ASK, self.TRIGGER])

    def test_outcome_is_told_to_programs(self):
        self.answer(self.SUCCESSFUL, self.IDLE)
        _, out, _ = self.run_with_node("--json", "restart", "2", "--wait")
        self.assertEqual(json.loads(out), {"outcome": "RestartSuccessful"})
        self.answer(self.RESTARTING)
        _, out, _ = self.run_with_node("--json", "restart", "2")
        self.assertEqual(json.loads(out), {"outcome": "Restarting"})

    def test_answer_without_a_status_is_a_protocol_error(self):
        self.answer({"tiResult": 0})
        self.assertEqual(self.run_with_node("restart", "2", "--yes"), (
            5, "", "zyrctl: CRI.RestartRadio does not tell how the restart stands\n"))

    def test_tells_when_somebody_else_has_ended_it(self):
        self.answer(self.IDLE, self.RESTARTING, self.IDLE)
        self.assertEqual(self.run_with_node("restart", "2", "--wait", "--yes"), (1, "", (
            "zyrctl: somebody else has ended the restart of the radio unit of channel 2, so how it went is not "
            "known\n")))
        self.assertEqual(self.node.calls, [self.ASK, self.TRIGGER, self.ASK])

    def test_gives_up_behind_the_limit(self):
        self.answer(self.IDLE, self.RESTARTING)
        self.assertEqual(self.run_with_node("restart", "2", "--wait=0.1", "--yes"), (4, "", (
            "zyrctl: the restart of the radio unit of channel 2 has not ended in time; it goes on in the node, and "
            "zyrctl restart 2 --wait waits for its end\n")))

    def test_takes_the_limit_with_a_blank_or_without_and_in_parts_of_a_second(self):
        for words in (["2", "--wait", "0.1"], ["--wait", ".1", "2"], ["2", "--wait=.1"]):
            self.answer(self.IDLE, self.RESTARTING)
            begin = time.monotonic()
            self.assertEqual(self.run_with_node("restart", *words, "--yes")[0], 4)
            self.assertGreaterEqual(time.monotonic() - begin, 0.1)
        # The one number is the channel.
        self.answer(self.IDLE, self.RESTARTING, self.SUCCESSFUL, self.IDLE)
        self.assertEqual(self.run_with_node("restart", "--wait", "2", "--yes"),
                         (0, "the radio unit of channel 2 has restarted\n", ""))
        self.assertEqual(self.run_with_node("restart", "2", "--wait", "86401"), (
            2, "", 'zyrctl: --wait: "86401" is not a number from 0 to 86400\n'))

    def test_interrupt_leaves_the_restart_to_the_node_and_says_so(self):
        self.answer(self.IDLE, self.RESTARTING)
        status, out = run_on_terminal("restart", "2", "--wait", "--yes", url=self.node.url, typed="\x03",
                                      wait_for=" s", own_terminal=True)
        self.assertEqual(status, 130)
        self.assertTrue(out.endswith("interrupted; it goes on in the node, and zyrctl restart 2 --wait waits for its "
                                     "end\n"), out)
        self.assertNotIn(self.END, self.node.calls)

    def test_does_nothing_unless_it_may(self):
        self.answer(self.IDLE)
        self.assertEqual(self.run_with_node("restart", "2"), (
            2, "", "zyrctl: CRI.RestartRadio can disturb traffic and there is no terminal to ask on; give --yes\n"))
        status, out = run_on_terminal("restart", "2", url=self.node.url, typed="n\n", wait_for="[y/N]")
        self.assertEqual(status, 2)
        self.assertIn("CRI.RestartRadio can disturb traffic. Go on? [y/N]", out)
        self.assertEqual(self.node.calls, [self.ASK, self.ASK])


class Recover(NodeTest):
    ASK = ("CI.GetEvents", [])
    START = ("CRI.StartRecovery", [{"Recover": "Dsp"}])
    RECOVERING = {"eventName": "DspRecovery", "isActive": True, "radioChannelId": 0}

    def setUp(self):
        super().setUp()
        self.node.add_command("CRI.StartRecovery")
        self.node.add_command("CI.GetEvents")

    @staticmethod
    def down(channel, active=True):
        return {"eventName": "LinkDown", "isActive": active, "radioChannelId": channel}

    def answer(self, *alarms):
        self.node.answers["CI.GetEvents"] = [{"tiResult": 0, "events": events} for events in alarms]

    def test_starts_and_waits_for_the_end(self):
        self.answer([self.down(2)], [self.RECOVERING, self.down(1)], [self.down(1, False), self.down(2)])
        self.assertEqual(self.run_with_node("recover", "--wait", "--yes"), (0, "the DSP has recovered\n", ""))
        self.assertEqual(self.node.calls, [self.ASK, self.START, self.ASK, self.ASK, self.ASK])

    def test_gives_up_behind_the_limit(self):
        self.answer([], [self.RECOVERING])
        self.assertEqual(self.run_with_node("recover", "--wait", "0.1", "--yes")[0], 4)

    def test_only_starts_without_wait(self):
        self.answer([])
        self.assertEqual(self.run_with_node("recover", "--yes"),
                         (0, "the DSP recovers; zyrctl recover --wait waits for its end\n", ""))
        self.assertEqual(self.node.calls, [self.ASK, self.START])

    def test_link_that_stays_down_gives_status_1(self):
        self.answer([], [self.down(1), self.down(2)])
        self.assertEqual(self.run_with_node("recover", "--wait", "--yes"), (
            1, "", "zyrctl: the DSP has recovered, but the link is down on channel 1, 2\n"))

    def test_fault_gives_status_1(self):
        self.answer([])
        self.node.answers["CRI.StartRecovery"] = [xmlrpc.client.Fault(4, "refused")]
        self.assertEqual(self.run_with_node("recover", "--wait", "--yes"), (1, "", "zyrctl: fault 4: refused\n"))

    def test_joins_a_running_recovery(self):
        self.answer([self.RECOVERING], [])
        self.assertEqual(self.run_with_node("recover", "--wait"),
                         (0, "the DSP has recovered\n", "the DSP is recovering already\n"))
        self.assertNotIn(self.START, self.node.calls)

    def test_link_that_was_down_in_a_joined_recovery_is_told_too(self):
        self.answer([self.RECOVERING, self.down(2)], [self.down(2)])
        self.assertEqual(self.run_with_node("recover", "--wait"), (
            1, "", "the DSP is recovering already\nzyrctl: the DSP has recovered, but the link is down on channel 2\n"))

    def test_interrupt_leaves_the_recovery_to_the_node_and_says_so(self):
        self.answer([], [self.RECOVERING])
        status, out = run_on_terminal("recover", "--wait", "--yes", url=self.node.url, typed="\x03", wait_for=" s",
                                      own_terminal=True)
        self.assertEqual(status, 130)
        self.assertTrue(out.endswith("interrupted; it goes on in the node, and zyrctl recover --wait waits for its "
                                     "end\n"), out)

    def test_interrupt_is_told_to_programs(self):
        self.answer([], [self.RECOVERING])
        _, out = run_on_terminal("--json", "recover", "--wait", "--yes", url=self.node.url, typed="\x03",
                                 wait_for=" s", own_terminal=True)
        self.assertIn('"kind": "interrupted"', out)

    def test_gives_up_behind_the_limit(self):
        self.answer([], [self.RECOVERING])
        self.assertEqual(self.run_with_node("recover", "--wait=0.1", "--yes"), (4, "", (
            "zyrctl: the recovery of the DSP has not ended in time; it goes on in the node, and zyrctl recover --wait "
            "waits for its end\n")))

    def test_does_nothing_unless_it_may(self):
        self.answer([])
        self.assertEqual(self.run_with_node("recover"), (
            2, "", "zyrctl: CRI.StartRecovery can disturb traffic and there is no terminal to ask on; give --yes\n"))
        self.assertEqual(self.node.calls, [self.ASK])


class Spectrum(NodeTest):
    METHOD = "CRI.GetSpectrumDiagnostics"
    FOUND = {"tiResult": 0, "Status": "channel-scan-finished", "Progress": 100,
             "Result": [{"Frequency": 14920000 + 500 * index, "Rssi": -450 if 2 <= index <= 3 else -900}
                        for index in range(8)]}

    def setUp(self):
        super().setUp()
        self.node.add_command(self.METHOD)

    @staticmethod
    def state(status, progress):
        return {"tiResult": 0, "Status": status, "Progress": progress, "Result": []}

    def asked(self, *options):
        """The calls, each as its option or as a pair with the pause."""
        return [(self.METHOD, [{"RadioChannelID": 2, "RequestOption": option} if isinstance(option, str) else
                               {"RadioChannelID": 2, "RequestOption": option[0], "DmSleep": option[1]}])
                for option in options]

    def test_waits_for_the_end_of_a_scan_and_draws_it(self):
        self.node.answers[self.METHOD] = [self.state("channel-scan-ongoing", 0), self.state("channel-scan-ongoing", 50),
                                          self.state("channel-scan-finished", 100), self.FOUND]
        status, out, err = self.run_with_node("spectrum", "2", "--yes", LANG="de_DE.UTF-8")
        self.assertEqual((status, err), (0, ""))
        self.assertEqual(self.node.calls, self.asked(("channel-scan-start", 0), "get-status", "get-status", "get-result"))
        lines = out.splitlines()
        self.assertEqual(lines[0], "Radio channel 2, channel-scan-finished, 8 points")
        self.assertEqual(lines[12], "         |▁▁██▁▁▁▁")
        self.assertEqual(lines[-2:], ["peak (MHz)  level (dBm)  width (MHz)", "14 921.250        -45.0        0.500"])

    def test_scans_the_sub_band_with_a_pause(self):
        self.node.answers[self.METHOD] = [self.state("sub-band-scan-finished", 100), self.FOUND]
        self.assertEqual(self.run_with_node("spectrum", "2", "--sub-band", "--pause", "7", "--yes")[0], 0)
        self.assertEqual(self.node.calls, self.asked(("sub-band-scan-start", 7), "get-result"))

    def test_draws_in_ascii_where_the_locale_or_somebody_wants_it(self):
        self.node.answers[self.METHOD] = [self.FOUND]
        for words, variables in (((), {"LANG": "C"}), (("--ascii",), {"LANG": "C.UTF-8"}),
                                 ((), {"LANG": "C.UTF-8", "LC_ALL": "POSIX"})):
            out = self.run_with_node("spectrum", "2", "--result", *words, **variables)[1]
            self.assertTrue(out.isascii(), out)
            self.assertIn("|..##....\n", out)
        self.assertFalse(self.run_with_node("spectrum", "2", "--result", LANG="C", LC_CTYPE="C.utf8")[1].isascii())

    def test_gives_the_last_result_to_tools(self):
        self.node.answers[self.METHOD] = [self.FOUND]
        self.assertEqual(self.run_with_node("spectrum", "2", "--result", "--csv"),
                         (0, "Frequency,Rssi\n" + "".join(f"{point['Frequency']},{point['Rssi']}\n"
                                                         for point in self.FOUND["Result"]), ""))
        status, out, _ = self.run_with_node("spectrum", "2", "--result", "--json")
        self.assertEqual((status, json.loads(out)), (0, self.FOUND))
        self.assertEqual(self.node.calls, self.asked("get-result") * 2)

    def test_asks_before_it_takes_the_link(self):
        status, _, err = self.run_with_node("spectrum", "2")
        self.assertEqual((status, self.node.calls), (2, []))
        self.assertIn("CRI.GetSpectrumDiagnostics can disturb traffic", err)

    def test_shows_its_progress_on_a_terminal(self):
        self.node.answers[self.METHOD] = [self.state("channel-scan-ongoing", 5),
                                          self.state("channel-scan-finished", 100), self.FOUND]
        status, written = run_on_terminal("spectrum", "2", "--yes", "--ascii", url=self.node.url)
        self.assertEqual(status, 0)
        self.assertTrue(written.startswith("\r\x1b[K[##" + " " * 38 + "] 5 %\r\x1b[K" "Radio channel 2,"), written)

    def test_stops_the_scan_at_an_interrupt(self):
        self.node.answers[self.METHOD] = [self.state("channel-scan-ongoing", 5)]
        with subprocess.Popen([ZYRCTL, "spectrum", "2", "--yes"], stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                              text=True, env=environment(self.node.url)) as process:
            while not self.node.calls:
                pass
            process.send_signal(signal.SIGINT)
            out, err = process.communicate(timeout=DEADLINE)
        self.assertEqual((process.returncode, out, err), (130, "", (
            "zyrctl: interrupted, and the scan was stopped; zyrctl spectrum 2 --result shows what it has found\n")))
        self.assertEqual(self.node.calls[-1:], self.asked(("scan-stop", 0)))

    def test_stops_the_scan_when_it_cannot_be_followed(self):
        self.node.answers[self.METHOD] = [self.state("channel-scan-ongoing", 5), xmlrpc.client.Fault(2, "broken")]
        self.assertEqual(self.run_with_node("spectrum", "2", "--yes"), (1, "", "zyrctl: fault 2: broken\n"))
        self.assertEqual(self.node.calls, self.asked(("channel-scan-start", 0), "get-status", ("scan-stop", 0)))

    def test_tells_of_a_scan_that_somebody_else_has_stopped(self):
        self.node.answers[self.METHOD] = [self.state("channel-scan-ongoing", 5), self.state("scan-not-started", 7)]
        self.assertEqual(self.run_with_node("spectrum", "2", "--yes"), (1, "", (
            "zyrctl: the scan was ended before its time; zyrctl spectrum 2 --result shows what it has found\n")))
        self.assertEqual(self.node.calls, self.asked(("channel-scan-start", 0), "get-status"))


class SecondStream(NodeTest):
    def setUp(self):
        super().setUp()
        for name in ("TI.ManageXPIC", "TI.ManageMimo", "CRI.GetRadioChannelStatus"):
            self.node.add_command(name)
        self.node.answers["CRI.GetRadioChannelStatus"] = [{"tiResult": 0, "MimoIsStarted": True, "MimoStatus": "Mute"}]

    def test_xpic_asks_for_all_that_it_shows(self):
        self.node.answers["TI.ManageXPIC"] = [{"tiResult": 0, "xpdDbTenths": 203}]
        status, out, err = self.run_with_node("xpic", "2")
        self.assertEqual((status, err), (0, ""))
        self.assertIn("\ncross-polar discrimination     203\n", out)
        self.assertEqual(self.node.calls, [
            ("TI.ManageXPIC", [{"radioChannelId": 2, "xpicPreambleGet": True, "xpicStatusGet": True}]),
            ("CRI.GetRadioChannelStatus", [{"RadioChannelID": 2}])])

    def test_mimo_asks_for_the_calibration_too(self):
        self.node.answers["TI.ManageMimo"] = [{"tiResult": 0, "etaTenThousands": 9003, "calibrationStatus": 6},
                                              {"tiResult": 0, "etaTenThousands": 0, "calibrationStatus": 2}]
        status, out, _ = self.run_with_node("mimo", "2", "--json")
        self.assertEqual((status, json.loads(out)["TI.ManageMimo"]),
                         (0, {"tiResult": 0, "etaTenThousands": 9003, "calibrationStatus": 2}))
        self.assertEqual(self.node.calls, [
            ("TI.ManageMimo", [{"radioChannelId": 2}]),
            ("TI.ManageMimo", [{"radioChannelId": 2, "crossConnectDelayCalibrationStatusGet": True}]),
            ("CRI.GetRadioChannelStatus", [{"RadioChannelID": 2}])])

    def test_mimo_is_a_table(self):
        self.node.answers["TI.ManageMimo"] = [{"tiResult": 0, "etaTenThousands": 9003, "calibrationStatus": 2}]
        out = self.run_with_node("mimo")[1].splitlines()
        self.assertEqual(out[0], "Radio channel 1, MIMO 2x2 Mute")
        self.assertIn("eta                            9003", out)
        self.assertIn("cross-connect calibration         2", out)


class Help(NodeTest):
    def test_explains_a_command(self):
        self.assertEqual(self.run_with_node("help", "CRI.EnableAcm"), (0, (
            "CRI.EnableAcm\n"
            "  Switches ACM of a radio channel on or off.\n"
            "  Can disturb traffic: asks before it runs, unless --yes is given.\n"
            "\n"
            "Request:\n"
            "  channelId  integer 1..2  radio channel\n"
            "  enable     boolean       true switches ACM on\n"
            "\n"
            "Faults:\n"
            "  2  eTI_E_INVALID_ARGUMENT  RadioChannelID out of bounds  The node has no such radio channel.\n"
            "\n"
            "Example:\n"
            "  zyrctl CRI.EnableAcm channelId=1 enable=true\n"), ""))

    def test_gives_the_description_itself_as_json(self):
        status, out, _ = self.run_with_node("--json", "help", "CRI.EnableAcm")
        self.assertEqual((status, json.loads(out)), (0, DESCRIPTIONS[1]))

    def test_gives_the_nodes_own_text_for_an_undescribed_method(self):
        self.assertEqual(self.run_with_node("help", "SIM.GetState"), (0, "SIM.GetState\n  Reads the state.\n", ""))

    def test_explains_subcommands_without_a_node(self):
        status, out, _ = run("help", "list", url="http://127.0.0.1:1/RPC2")
        self.assertEqual(status, 0)
        self.assertIn("Usage: zyrctl list [OPTIONS] [PATTERN]\n", out)
        status, out, _ = run("help")
        self.assertEqual(status, 0)
        self.assertIn("Exit status: 0 done, 1 fault, 2 usage, 3 no connection, 4 time-out, 5 protocol error, "
                      "130 interrupted.", " ".join(out.split()))
        self.assertEqual(run(), (0, out, ""))

    def test_has_the_example_that_the_node_gives(self):
        self.node.add_described({
            "name": "CRI.Example", "needs": {"options": "--radio-type 3", "before": "CRI.Other"}, "test": True,
            "longest_ms": 45000, "request": [
                {"name": "config", "type": "struct", "required": True, "example": {"mode": "7", "loops": ["a b"]}, "fields": [
                    {"name": "mode", "type": "int", "required": True, "example": "7",
                     "texts": [{"number": 2, "text": "7"}]},
                    {"name": "loops", "type": "array", "required": False, "example": ["it's"], "element": {"type": "string"}},
                    {"name": "more", "type": "int", "required": False}]},
                {"name": "power", "type": "double", "required": False, "example": -1.5}]})
        _, out, _ = self.run_with_node("help", "CRI.Example")
        self.assertIn("\n  Can take up to 45.0 s.\n", out)
        self.assertEqual(out.splitlines()[-2:], [
            "Example, on a node of zyrnode --enable-ti --radio-type 3, behind that of CRI.Other:",
            """  zyrctl CRI.Example config.mode=2 'config.loops=["it'\\''s"]' power=-1.5"""])

    def test_suggests_names(self):
        self.assertEqual(self.run_with_node("help", "CRI.EnableAmc"), (
            2, "", 'zyrctl: the node has no command "CRI.EnableAmc"; did you mean "CRI.EnableAcm"?\n'))


class Call(NodeTest):
    def setUp(self):
        super().setUp()
        self.node.answers["CRI.GetStatus"] = [STATUS_ANSWER]

    def test_shows_the_answer_readably(self):
        expected = (0, ("tiResult  0\n"
                        "acmMode   Fixed rate (1)\n"
                        "power     15.5 dBm\n"
                        "events (2)\n"
                        "  eventName  count\n"
                        "  LOS            3\n"
                        "  Sync lost     12\n"), "")
        self.assertEqual(self.run_with_node("call", "CRI.GetStatus", "channelId=1"), expected)
        self.assertEqual(self.run_with_node("CRI.GetStatus", "channelId=1"), expected)
        self.assertEqual(self.node.calls, [("CRI.GetStatus", [{"channelId": 1}])] * 2)

    def test_shows_the_answer_as_json(self):
        status, out, err = self.run_with_node("CRI.GetStatus", "channelId=2", "--json")
        self.assertEqual((status, json.loads(out), err), (0, STATUS_ANSWER, ""))

    def test_gets_a_part_of_the_answer(self):
        def part(path, *more):
            return self.run_with_node("CRI.GetStatus", "channelId=1", "--get", path, *more)
        self.assertEqual(part("power"), (0, "15.5\n", ""))
        self.assertEqual(part("acmMode"), (0, "1\n", ""))
        self.assertEqual(part("events[1].eventName"), (0, "Sync lost\n", ""))
        self.assertEqual(part("events.0.count", "--json"), (0, "3\n", ""))
        self.node.answers["CRI.GetStatus"] = [["a", {"b": 5}]]
        self.assertEqual(part("[0]"), (0, "a\n", ""))
        self.assertEqual(part("[1].b"), (0, "5\n", ""))
        self.node.answers["CRI.GetStatus"] = [STATUS_ANSWER]
        self.assertEqual(part("powr"), (2, "", 'zyrctl: the answer has no field "powr"; did you mean "power"?\n'))

    def test_converts_assignments_by_the_description(self):
        status, out, err = self.run_with_node("CRI.SetAcmMode", "channelId=2", "acmMode=fixed rate",
                                              "config.ifSwitchMode=1", "loops=[1,2]")
        self.assertEqual((status, out, err), (0, "tiResult  0\n", ""))
        self.assertEqual(self.node.calls, [("CRI.SetAcmMode", [
            {"channelId": 2, "acmMode": 1, "config": {"ifSwitchMode": 1}, "loops": [1, 2]}])])

    def test_takes_data_from_the_line_standard_input_and_a_file(self):
        data = '{"channelId": 2, "acmMode": "Off"}'
        with tempfile.NamedTemporaryFile("w", suffix=".json") as file:
            file.write(data)
            file.flush()
            for given, stdin in ((data, ""), ("@-", data), ("@" + file.name, "")):
                status, _, err = self.run_with_node("CRI.SetAcmMode", "--data", given, "channelId=1", stdin=stdin)
                self.assertEqual((status, err), (0, ""))
        self.assertEqual(self.node.calls, [("CRI.SetAcmMode", [{"channelId": 1, "acmMode": 0}])] * 3)

    def test_refuses_bad_data(self):
        self.assertEqual(self.run_with_node("CRI.GetStatus", "--data", "{"),
                         (2, "", "zyrctl: --data is not JSON: wrong at character 2\n"))
        self.assertEqual(self.run_with_node("CRI.GetStatus", "--data", "@/nowhere/x"),
                         (2, "", "zyrctl: cannot read /nowhere/x\n"))

    def test_sends_nothing_that_the_description_refuses(self):
        for words, text in ((["channelId=3"], "channelId is 3, it takes an integer from 1 to 2"),
                            (["chanelId=1"], 'CRI.GetStatus has no field "chanelId"; did you mean "channelId"?'),
                            (["1"], '"1" is not of the form field=value; did you mean channelId=1?'),
                            ([], "CRI.GetStatus needs channelId, it takes an integer from 1 to 2")):
            self.assertEqual(self.run_with_node("CRI.GetStatus", *words), (2, "", f"zyrctl: {text}\n"))
        self.assertEqual(self.node.calls, [])

    def test_sends_no_parameter_for_a_command_without_fields(self):
        self.assertEqual(self.run_with_node("TI.GetEvents")[0], 0)
        self.assertEqual(self.node.calls, [("TI.GetEvents", [])])

    def test_calls_undescribed_methods_unchecked(self):
        self.assertEqual(self.run_with_node("SIM.GetState", "a.b=1", "c=x"), (0, "one\n2\n", ""))
        self.assertEqual(self.node.calls, [("SIM.GetState", [{"a": {"b": 1}, "c": "x"}])])

    def test_gives_undescribed_methods_plain_values(self):
        self.assertEqual(self.run_with_node("system.methodHelp", "SIM.GetState"), (0, "Reads the state.\n", ""))
        self.assertEqual(self.run_with_node("SIM.GetState", "x", "2", "[true]"), (0, "one\n2\n", ""))
        self.assertEqual(self.node.calls, [("SIM.GetState", ["x", 2, [True]])])
        self.assertEqual(self.run_with_node("SIM.GetState", "x", "a=2"),
                         (2, "", 'zyrctl: "x" is not of the form field=value\n'))

    def test_suggests_commands_and_subcommands(self):
        self.assertEqual(self.run_with_node("lst"),
                         (2, "", 'zyrctl: the node has no command "lst"; did you mean "list"?\n'))

    def test_prints_the_request_in_a_dry_run(self):
        self.assertEqual(self.run_with_node("--dry-run", "CRI.EnableAcm", "channelId=1", "enable=on"), (
            0, '<?xml version="1.0" encoding="UTF-8"?><methodCall><methodName>CRI.EnableAcm</methodName><params><param>'
               "<value><struct><member><name>channelId</name><value><int>1</int></value></member><member><name>enable"
               "</name><value><boolean>1</boolean></value></member></struct></value></param></params></methodCall>\n",
            ""))
        status, out, _ = self.run_with_node("CRI.EnableAcm", "channelId=1", "enable=on", "--dry-run", "--json")
        self.assertEqual((status, json.loads(out)),
                         (0, {"method": "CRI.EnableAcm", "params": [{"channelId": 1, "enable": True}]}))
        self.assertEqual(self.node.calls, [])


class Watch(NodeTest):
    def test_marks_what_has_changed(self):
        self.node.answers["CRI.GetStatus"] = [STATUS_ANSWER, LATER_STATUS_ANSWER]
        status, out, err = self.run_with_node("CRI.GetStatus", "channelId=1", "--watch=0.01", "--count", "2")
        self.assertEqual((status, err), (0, ""))
        self.assertEqual(re.sub(r"^(#\d) \d\d:\d\d:\d\d$", r"\1", out, flags=re.MULTILINE), (
            "#1\n"
            "  tiResult  0\n"
            "  acmMode   Fixed rate (1)\n"
            "  power     15.5 dBm\n"
            "  events (2)\n"
            "    eventName  count\n"
            "    LOS            3\n"
            "    Sync lost     12\n"
            "#2\n"
            "  tiResult  0\n"
            "* acmMode   Off (0)\n"
            "  power     15.5 dBm\n"
            "* events (1)\n"
            "    eventName  count\n"
            "*   LOS            4\n"))

    def test_writes_a_json_line_per_answer(self):
        self.node.answers["CRI.GetStatus"] = [STATUS_ANSWER, LATER_STATUS_ANSWER]
        status, out, _ = self.run_with_node("CRI.GetStatus", "channelId=1", "--watch=0", "--count", "2", "--json")
        self.assertEqual((status, [json.loads(line) for line in out.splitlines()]), (0, [
            {"changed": [], "value": STATUS_ANSWER},
            {"changed": ["acmMode", "events", "events[0].count"], "value": LATER_STATUS_ANSWER}]))

    def test_watches_a_part(self):
        self.node.answers["CRI.GetStatus"] = [STATUS_ANSWER, LATER_STATUS_ANSWER]
        _, out, _ = self.run_with_node("CRI.GetStatus", "channelId=1", "--watch=0", "--count", "2", "--get", "acmMode")
        self.assertEqual([line for line in out.splitlines() if line[0] != "#"], ["  1", "* 0"])

    def test_takes_the_seconds_with_a_blank_or_without(self):
        self.node.answers["CRI.GetStatus"] = [STATUS_ANSWER]
        for words in (["--watch", "0.01"], ["--watch=.01"]):
            status, out, err = self.run_with_node("CRI.GetStatus", "channelId=1", *words, "--count", "2")
            self.assertEqual((status, out.count("#"), err), (0, 2, ""))
        self.assertEqual(self.run_with_node("CRI.GetStatus", "--watch", "channelId=3")[2],
                         "zyrctl: channelId is 3, it takes an integer from 1 to 2\n")

    def test_waits_for_parts_of_a_second(self):
        self.node.answers["CRI.GetStatus"] = [STATUS_ANSWER]
        begin = time.monotonic()
        self.run_with_node("CRI.GetStatus", "channelId=1", "--watch", "0.4", "--count", "2")
        self.assertGreaterEqual(time.monotonic() - begin, 0.4)

    def test_goes_on_when_the_node_comes_back(self):
        self.node.answers["CRI.GetStatus"] = [STATUS_ANSWER, DROP, DROP, LATER_STATUS_ANSWER]
        status, out, err = self.run_with_node("CRI.GetStatus", "channelId=1", "--watch=0", "--count", "2", "--get", "acmMode")
        self.assertEqual((status, [line for line in out.splitlines() if line[0] != "#"]), (0, ["  1", "* 0"]))
        lines = err.splitlines()
        self.assertEqual(len(lines), 2)
        self.assertRegex(lines[0], r"^zyrctl: the exchange with \S+ broke off: .*; trying again$")
        self.assertEqual(lines[1], "zyrctl: the node is back")

    def test_does_not_begin_without_a_node(self):
        self.node.answers["CRI.GetStatus"] = [DROP]
        self.assertEqual(self.run_with_node("CRI.GetStatus", "channelId=1", "--watch=0")[0], 5)

    def on_terminal(self, *words, size=(24, 80)):
        _, out = run_on_terminal("CRI.GetStatus", "channelId=1", "--watch=0", *words, url=self.node.url, size=size,
                                 NO_COLOR="1")
        return re.sub(r"\d\d:\d\d:\d\d", "<time>", out)

    def test_draws_in_place_on_a_terminal(self):
        self.node.answers["CRI.GetStatus"] = [STATUS_ANSWER, LATER_STATUS_ANSWER]
        self.assertEqual(self.on_terminal("--count", "2", "--get", "acmMode"), (
            "  #1 <time>\x1b[K\n  1\x1b[K\n\x1b[J"
            "\x1b[2A\r  #2 <time>\x1b[K\n* 0\x1b[K\n\x1b[J"))

    def test_tells_in_place_that_the_node_is_gone(self):
        self.node.answers["CRI.GetStatus"] = [STATUS_ANSWER, DROP, LATER_STATUS_ANSWER]
        out = self.on_terminal("--count", "2", "--get", "acmMode").split("\x1b[2A\r")
        self.assertEqual(len(out), 3)
        self.assertRegex(out[1], r"^  #1 <time>  the exchange with .*\x1b\[K\n  1\x1b\[K\n\x1b\[J$")
        self.assertEqual(out[2], "  #2 <time>\x1b[K\n* 0\x1b[K\n\x1b[J")

    def test_stays_within_the_terminal(self):
        self.node.answers["CRI.GetStatus"] = [STATUS_ANSWER]
        self.assertEqual(self.on_terminal("--count", "1", size=(4, 13)), (
            "  #1 <time>\x1b[K\n  tiResult  0\x1b[K\n  acmMode   …\x1b[K\n\x1b[J"))

    def test_ends_with_the_first_fault(self):
        self.node.answers["CRI.GetStatus"] = [STATUS_ANSWER, xmlrpc.client.Fault(4, "gone")]
        status, _, err = self.run_with_node("CRI.GetStatus", "channelId=1", "--watch=0")
        self.assertEqual((status, err), (1, "zyrctl: fault 4: gone\n"))

    def test_has_a_count_only_with_watch(self):
        self.assertEqual(self.run_with_node("CRI.GetStatus", "channelId=1", "--count", "2"),
                         (2, "", "zyrctl: --count requires --watch\n"))


class Confirmation(NodeTest):
    COMMAND = ("CRI.EnableAcm", "channelId=1", "enable=true")
    QUESTION = "CRI.EnableAcm can disturb traffic. Go on? [y/N] "

    def test_is_refused_without_a_terminal(self):
        self.assertEqual(self.run_with_node(*self.COMMAND, stdin="y\n"), (
            2, "", "zyrctl: CRI.EnableAcm can disturb traffic and there is no terminal to ask on; give --yes\n"))
        self.assertEqual(self.node.calls, [])

    def test_is_left_out_with_yes(self):
        self.assertEqual(self.run_with_node(*self.COMMAND, "--yes"), (0, "tiResult  0\n", ""))
        self.assertEqual(self.node.calls, [("CRI.EnableAcm", [{"channelId": 1, "enable": True}])])

    def test_is_asked_for_on_a_terminal(self):
        status, out = run_on_terminal(*self.COMMAND, url=self.node.url, typed="y\n", wait_for=self.QUESTION)
        self.assertEqual((status, out), (0, self.QUESTION + "y\ntiResult  0\n"))
        self.assertEqual(len(self.node.calls), 1)

    def test_that_is_denied_calls_nothing(self):
        status, out = run_on_terminal(*self.COMMAND, url=self.node.url, typed="\n", wait_for=self.QUESTION,
                                      NO_COLOR="1")
        self.assertEqual((status, out), (2, self.QUESTION + "\nzyrctl: CRI.EnableAcm was not called\n"))
        self.assertEqual(self.node.calls, [])


class Colour(NodeTest):
    def test_is_for_terminals(self):
        _, out = run_on_terminal("CRI.GetStatus", "channelId=3", url=self.node.url)
        self.assertEqual(out, "\x1b[31mzyrctl:\x1b[0m channelId is 3, it takes an integer from 1 to 2\n")
        _, out = run_on_terminal("CRI.GetStatus", "channelId=1", "--get", "acmMode", "--watch=0", "--count", "1",
                                 url=self.node.url, NO_COLOR="1")
        self.assertNotIn("\x1b[1m", out)
        self.assertNotIn("\x1b[31m", out)

    def test_marks_changes(self):
        self.node.answers["CRI.GetStatus"] = [STATUS_ANSWER, LATER_STATUS_ANSWER]
        words = ("CRI.GetStatus", "channelId=1", "--get", "acmMode", "--watch=0", "--count", "2")
        _, out = run_on_terminal(*words, url=self.node.url)
        self.assertIn("\x1b[1m* 0\x1b[0m\x1b[K\n", out)

    def test_is_left_out_with_no_color(self):
        _, out = run_on_terminal("CRI.GetStatus", "channelId=3", url=self.node.url, NO_COLOR="1")
        self.assertEqual(out, "zyrctl: channelId is 3, it takes an integer from 1 to 2\n")


class Secrets(NodeTest):
    def test_are_sent_but_not_shown(self):
        self.node.answers["CRI.SetKey"] = [{"tiResult": 0, "masterKey": "verysecret"}]
        for words in (["-v"], ["--json"], [], ["--get", "masterKey"], ["--dry-run"], ["--dry-run", "--json"]):
            status, out, err = self.run_with_node("CRI.SetKey", "masterKey=verysecret", *words)
            self.assertEqual(status, 0)
            self.assertNotIn("verysecret", out + err)
            self.assertIn("(hidden)", out + err)
        self.assertEqual(self.node.calls, [("CRI.SetKey", [{"masterKey": "verysecret"}])] * 4)

    def test_on_the_line_are_warned_of(self):
        warning = ("zyrctl: the shell's history keeps masterKey; --data @FILE and --data @- leave no trace there\n")
        self.assertEqual(self.run_with_node("CRI.SetKey", "masterKey=verysecret")[2], warning)
        self.assertEqual(self.run_with_node("CRI.SetKey", "masterKey=")[2], "")
        self.assertEqual(self.run_with_node("CRI.SetKey", "--json", "masterKey=verysecret")[2], "")
        self.assertEqual(self.run_with_node("CRI.SetKey", "--data", '{"masterKey": "verysecret"}')[2], warning)
        self.assertEqual(self.run_with_node("CRI.SetKey", "--data", '{"masterKey": ""}')[2], "")
        self.assertEqual(self.run_with_node("CRI.SetKey", "--data", "@-", stdin='{"masterKey": "verysecret"}')[2], "")

    def test_that_only_the_node_knows_of_are_hidden_too(self):
        self.node.add_described({
            "name": "CRI.SetPin", "help": "",
            "request": [{"name": "pin", "type": "string", "required": True, "isSecret": True}],
            "response": [{"name": "inner", "type": "struct", "fields": [{"name": "code", "type": "int", "isSecret": True}]}]},
            {"tiResult": 0, "inner": {"code": 4711}, "pin": "verysecret"})
        for words in (["-v"], ["--json"], [], ["--get", "inner.code"], ["--dry-run"], ["--dry-run", "--json"]):
            status, out, err = self.run_with_node("CRI.SetPin", "pin=verysecret", *words)
            self.assertEqual(status, 0)
            self.assertNotIn("verysecret", out + err)
            self.assertNotIn("4711", out + err)
            self.assertIn("(hidden)", out + err)
        self.assertEqual(self.run_with_node("CRI.SetPin", "pin=verysecret")[2],
                         "zyrctl: the shell's history keeps pin; --data @FILE and --data @- leave no trace there\n")


class Encrypt(NodeTest):
    KEY = "a key of this length"

    def setUp(self):
        super().setUp()
        for name in ("CRI.GetRadioChannelStatus", "CRI.SetRadioLinkEncryption"):
            self.node.add_command(name)
        self.node.answers["CRI.GetRadioChannelStatus"] = [{"tiResult": 0, "TxFrequency": 18700000,
                                                           "RxFrequency": 19710000}]
        self.node.answers["CRI.SetRadioLinkEncryption"] = [{"tiResult": 0}]
        self.file = os.path.join(self.enterContext(tempfile.TemporaryDirectory()), "key")

    def write(self, content, mode=0o600):
        with open(self.file, "w", encoding="utf-8", newline="") as file:
            file.write(content)
        os.chmod(self.file, mode)

    def assert_called(self, channel, key, enable):
        self.assertEqual(self.node.calls,
                         [("CRI.GetRadioChannelStatus", [{"RadioChannelID": channel}]),
                          ("CRI.SetRadioLinkEncryption",
                           [{"channelId": channel, "masterKey": key, "txFrequency_kHz": 18700000,
                             "rxFrequency_kHz": 19710000, "enableRle": enable}])])

    def test_takes_the_key_of_a_file_without_its_line_end(self):
        for content, key in ((self.KEY, self.KEY), (self.KEY + "\n", self.KEY), (self.KEY + "\r\n", self.KEY),
                             (" " + self.KEY + "\n\n", " " + self.KEY + "\n")):
            self.node.calls.clear()
            self.write(content)
            self.assertEqual(self.run_with_node("encrypt", "2", "--key-file", self.file, "--yes"),
                             (0, "Radio channel 2 is encrypted\n", ""))
            self.assert_called(2, key, True)

    def test_refuses_a_file_that_others_can_read(self):
        self.write(self.KEY, 0o644)
        status, out, err = self.run_with_node("encrypt", "--key-file", self.file, "--yes")
        self.assertEqual((status, out), (2, ""))
        self.assertIn("chmod 600", err)
        self.assertEqual(self.node.calls, [])

    def test_asks_for_the_key_twice_on_a_terminal_unseen(self):
        status, written = run_on_terminal("encrypt", "1", "--key-prompt", "--yes", url=self.node.url,
                                          wait_for="Key of the link:", typed=f"{self.KEY}\n",
                                          then=[("The same key again:", f"{self.KEY}\n")])
        self.assertEqual(status, 0, written)
        self.assertNotIn(self.KEY, written)
        self.assert_called(1, self.KEY, True)

    def test_calls_nothing_when_the_two_keys_differ(self):
        status, written = run_on_terminal("encrypt", "1", "--key-prompt", "--yes", url=self.node.url,
                                          wait_for="Key of the link:", typed=f"{self.KEY}\n",
                                          then=[("The same key again:", f"{self.KEY} \n")])
        self.assertEqual((status, self.node.calls), (2, []))
        self.assertIn("the two keys differ", written)
        self.assertNotIn(self.KEY, written)

    def test_cannot_ask_without_a_terminal(self):
        status, _, err = self.run_with_node("encrypt", "--key-prompt", "--yes")
        self.assertEqual(status, 2)
        self.assertIn("there is no terminal to ask for the key on", err)

    def test_is_switched_off_without_a_key(self):
        self.assertEqual(self.run_with_node("encrypt", "--off", "--yes")[:2], (0, "Radio channel 1 is not encrypted\n"))
        self.assert_called(1, "", False)

    def test_wants_one_source_of_the_key_and_a_confirmation(self):
        self.write(self.KEY)
        for words in ([], ["--off", "--key-prompt"], ["--off", "--key-file", self.file], [self.KEY, "--off"]):
            self.assertEqual(self.run_with_node("encrypt", "--yes", *words)[0], 2, words)
        status, _, err = self.run_with_node("encrypt", "--key-file", self.file)
        self.assertEqual(status, 2)
        self.assertIn("CRI.SetRadioLinkEncryption can disturb traffic", err)
        self.assertEqual(self.node.calls, [])


class Wire(NodeTest):
    def test_is_shown_on_standard_error(self):
        status, out, err = self.run_with_node("TI.GetEvents", "-v")
        self.assertEqual((status, out), (0, "tiResult  0\n"))
        lines = err.splitlines()
        self.assertIn("> POST /RPC2 HTTP/1.1", lines)
        self.assertIn('> <?xml version="1.0" encoding="UTF-8"?><methodCall><methodName>TI.GetEvents</methodName>'
                      "<params></params></methodCall>", lines)
        self.assertIn("< HTTP/1.0 200 OK", lines)
        self.assertIn("< <value><int>0</int></value>", lines)


class Credentials(unittest.TestCase):
    def setUp(self):
        self.node = self.enterContext(FakeNode(login="ann:open sesame"))
        self.file = self.enterContext(tempfile.NamedTemporaryFile("w"))
        self.file.write("# who may call\nbob:other\nann:open sesame\n")
        self.file.flush()

    def status_of(self, *words, **more):
        return run("list", "ti.", *words, url=self.node.url, **more)

    EXPECTED = (0, "TI.GetEvents  Reads events. [test]\n", "")

    def test_come_from_a_file(self):
        self.assertEqual(self.status_of("--user", "ann", "--credentials", self.file.name), self.EXPECTED)
        self.assertEqual(self.status_of("--user", "ann", ZYR_CREDENTIALS=self.file.name), self.EXPECTED)

    def test_come_from_the_line(self):
        self.assertEqual(self.status_of("--user", "ann:open sesame"), self.EXPECTED)

    def test_come_from_the_terminal_unseen(self):
        status, out = run_on_terminal("list", "ti.", "--user", "ann", url=self.node.url, typed="open sesame\n",
                                      wait_for="Password of ann: ")
        self.assertEqual((status, out), (0, "Password of ann: \nTI.GetEvents  Reads events. [test]\n"))

    def test_are_asked_for_only_on_a_terminal(self):
        self.assertEqual(self.status_of("--user", "ann"), (
            2, "", "zyrctl: the password of ann is missing and there is no terminal to ask on; "
                   "give --credentials FILE\n"))

    def test_are_refused_if_others_can_read_them(self):
        os.chmod(self.file.name, 0o640)
        self.assertEqual(self.status_of("--credentials", self.file.name), (
            2, "", f"zyrctl: the credentials file {self.file.name} can be read or written by others than its owner; "
                   f"run: chmod 600 {self.file.name}\n"))

    def test_are_refused_without_the_users_line(self):
        self.assertEqual(self.status_of("--user", "carl", "--credentials", self.file.name), (
            2, "", f"zyrctl: the credentials file {self.file.name} has no line of the form carl:password\n"))
        self.assertEqual(self.status_of("--credentials", "/nowhere/x"), (
            2, "", "zyrctl: the credentials file /nowhere/x is not a regular file that can be read\n"))

    def test_that_are_wrong_or_missing_are_a_protocol_error(self):
        expected = (5, "", f"zyrctl: {self.node.url} answers with HTTP status 401 "
                           "(user or password missing or wrong)\n")
        self.assertEqual(self.status_of(), expected)
        self.assertEqual(self.status_of("--user", "ann:wrong"), expected)

    def test_are_never_printed(self):
        status, out, err = self.status_of("-v", "--user", "ann", "--credentials", self.file.name)
        self.assertEqual(status, 0)
        self.assertIn("> Authorization: (hidden)\n", err)
        for secret in ("open sesame", "YW5uOm9wZW4gc2VzYW1l"):
            self.assertNotIn(secret, out + err)


class Capability(NodeTest):
    def asked(self, *words):
        """The calls that the subcommand makes."""
        self.node.calls.clear()
        self.assertEqual(self.run_with_node("capability", *words)[0], 0)
        return self.node.calls

    def test_is_asked_of_the_frame_that_is_named_or_the_first_that_there_is(self):
        self.node.add_command("CRI.GetAirInterfaceCapability")
        self.node.add_command("CRI.GetRadioChannelCapability")
        self.node.answers["CRI.GetAirInterfaceCapability"] = [
            {"tiResult": 0, "FrameFormatCapabilities": [{"RadioFrameID": 17}, {"RadioFrameID": 18}]},
            {"tiResult": 0, "FrameFormatCapabilities": []}]
        def capability(channel, frame):
            return ("CRI.GetRadioChannelCapability", [
                {"RadioChannelID": channel, "radioFrameId": frame, "minModulation": "4QAM_STRONG",
                 "maxModulation": "4096QAM_LIGHT", "referenceSec": "4L"}])
        frames = ("CRI.GetAirInterfaceCapability", [{"RadioChannelID": 1, "ReleasedFilter": 2}])
        self.assertEqual(self.asked("2", "--frame", "5"), [capability(2, 5)])
        self.assertEqual(self.asked("1"), [frames, capability(1, 17)])
        self.assertEqual(self.asked(), [frames, capability(1, 0)])


class Fields(NodeTest):
    def setUp(self):
        super().setUp()
        self.node.add_described(fake_node.ALL_TYPES, {"tiResult": 0})

    def sent(self, *words):
        """What the command was called with."""
        self.assertEqual(self.run_with_node("CRI.SetAll", *words), (0, "tiResult  0\n", ""))
        return self.node.calls[-1][1]

    def test_of_all_types_are_described_with_an_example(self):
        self.assertEqual(self.run_with_node("help", "CRI.SetAll"), (0, (
            "CRI.SetAll\n"
            "  Sets all.\n"
            "\n"
            "Request:\n"
            "  gain         number\n"
            "  label        text\n"
            "  code         text like AA-00  optional\n"
            "  level        integer -5..9    optional\n"
            "  names        list             optional\n"
            "  when         value            optional\n"
            "  config       record           optional\n"
            "  config.step  integer 0..9\n"
            "\n"
            "Example:\n"
            "  zyrctl CRI.SetAll gain=1.5 label=TEXT\n"), ""))

    def test_of_all_types_are_sent(self):
        self.assertEqual(self.sent("gain=1", "label=x", "level=0X3", "when=3"),
                         [{"gain": 1.0, "label": "x", "level": 3, "when": 3}])
        self.assertEqual(self.sent("--data", '{"gain": 1.5, "label": "x", "level": 2.0, "names": [1, "a", null],'
                                             ' "when": {"a": 1}, "config": {"step": 9}}'),
                         [{"gain": 1.5, "label": "x", "level": 2, "names": [1, "a", None], "when": {"a": 1},
                           "config": {"step": 9}}])

    def test_of_another_type_are_refused(self):
        for words, refusal in (
                (["gain=1.5x", "label=x"], 'gain is "1.5x", it takes a number'),
                (["gain=1e999", "label=x"], 'gain is "1e999", it takes a number'),
                (["gain=inf", "label=x"], 'gain is "inf", it takes a number'),
                (["label=x"], "CRI.SetAll needs gain, it takes a number"),
                (["gain=1", "label=x", "level=0X-3"], 'level is "0X-3", it takes an integer from -5 to 9'),
                (["gain=1", "label=x", "names=x"], "names is not JSON: wrong at character 1"),
                (["gain=1", "label=x", "when=" + 40 * "[" + 40 * "]"], "values are nested deeper than 32 levels")):
            self.assertEqual(self.run_with_node("CRI.SetAll", *words), (2, "", f"zyrctl: {refusal}\n"))
        for data, refusal in (
                ('"gain": "1", "label": "x"', 'gain is "1", it takes a number'),
                ('"gain": 1, "label": 2', "label is 2, it takes a text"),
                ('"gain": 1, "label": "x", "level": 2.5', "level is 2.5, it takes an integer from -5 to 9"),
                ('"gain": 1, "label": "x", "level": 1e300', "level is 1e+300, it takes an integer from -5 to 9"),
                ('"gain": 1, "label": "x", "level": 10.0', "level is 10, it takes an integer from -5 to 9"),
                ('"gain": 1, "label": "x", "names": 3', "names is 3, it takes a list, as JSON"),
                ('"gain": 1, "label": "x", "config": 3', "config is 3, it takes a record, as JSON, of step"),
                ('"gain": 1, "label": "x", "config": {"stop": 1}',
                 'config has no field "stop"; did you mean "step"?'),
                ('"gain": 1, "label": "x", "config": {}',
                 "config needs config.step, it takes an integer from 0 to 9")):
            self.assertEqual(self.run_with_node("CRI.SetAll", "--data", "{" + data + "}"),
                             (2, "", f"zyrctl: {refusal}\n"))
        self.assertEqual(self.node.calls, [])


class ExitStatus(NodeTest):
    def test_is_5_for_a_server_that_has_no_room(self):
        text = " answers with HTTP status 503 (the server has too many connections, or is stopping)"
        with RawServer(b"HTTP/1.1 503 Service Unavailable\r\nContent-Length: 0\r\n\r\n") as server:
            self.assertEqual(run("list", url=server.url), (5, "", f"zyrctl: {server.url}{text}\n"))
            status, out, err = run("list", "--json", url=server.url)
            self.assertEqual((status, out, json.loads(err)), (5, "", {
                "error": {"kind": "protocol", "code": 503, "text": server.url + text}}))

    def test_names_a_timeout_in_json(self):
        self.node.answers["CI.GetFastEvents"] = [HANG]
        status, out, err = self.run_with_node("CI.GetFastEvents", "--timeout", "1", "--json")
        self.assertEqual((status, out, json.loads(err)), (4, "", {"error": {
            "kind": "timeout", "code": None,
            "text": f"no answer from {self.node.url} within 1000 ms; the node may still be running CI.GetFastEvents"}}))

    def test_is_1_for_a_fault(self):
        self.node.answers["TI.GetEvents"] = [xmlrpc.client.Fault(4, "Error: Command not available")]
        self.assertEqual(self.run_with_node("TI.GetEvents"),
                         (1, "", "zyrctl: fault 4: Error: Command not available\n"))
        status, out, err = self.run_with_node("TI.GetEvents", "--json")
        self.assertEqual((status, out, json.loads(err)), (1, "", {
            "error": {"kind": "fault", "code": 4, "text": "Error: Command not available"}}))

    def test_is_2_for_usage(self):
        for words in (["--nonsense"], ["list", "a", "b"], ["call"], ["completion", "tcsh"], ["--timeout", "-1", "list"],
                      ["TI.GetEvents", "--watch=x"]):
            status, out, err = self.run_with_node(*words)
            self.assertEqual((status, out), (2, ""), words)
            self.assertRegex(err, r"\Azyrctl: .+\n\Z")
        for words, text in (
                (["status", "0"], 'CHANNEL: "0" is not a number from 1 on'),
                (["--timeout", "-1", "list"], '--timeout: "-1" is not a number from 0 on'),
                (["TI.GetEvents", "--watch=1e9"], '--watch: "1e9" is not a number from 0 to 86400'),
                (["status", "--watch", "--count", "0"], '--count: "0" is not a number from 1 on')):
            self.assertEqual(self.run_with_node(*words), (2, "", f"zyrctl: {text}\n"))
        status, out, err = self.run_with_node("list", "--json", "--nonsense")
        self.assertEqual((status, out, json.loads(err)), (2, "", {"error": {
            "kind": "usage", "code": None, "text": "The following argument was not expected: --nonsense"}}))

    def test_is_2_for_a_url_that_is_none(self):
        status, out, err = run("list", "-u", "gopher://127.0.0.1/")
        self.assertEqual((status, out), (2, ""))
        self.assertRegex(err, r"\Azyrctl: the URL gopher://127\.0\.0\.1/ cannot be used: ")

    def test_is_3_without_a_connection(self):
        with socket.create_server(("127.0.0.1", 0)) as closed:
            url = f"http://127.0.0.1:{closed.getsockname()[1]}/RPC2"
        status, out, err = run("list", "-u", url)
        self.assertEqual((status, out), (3, ""))
        self.assertRegex(err, r"\Azyrctl: cannot connect to " + re.escape(url) + ": ")
        status, out, err = run("list", "--json", url=url)
        self.assertEqual((status, out, json.loads(err)["error"]["kind"]), (3, "", "connect"))

    def test_is_4_for_a_time_out(self):
        with RawServer(None) as silent:
            self.assertEqual(run("list", "--timeout", "0.05", url=silent.url),
                             (4, "", f"zyrctl: no answer from {silent.url} within 50 ms\n"))

    def test_is_4_for_a_command_that_may_still_be_running(self):
        self.node.answers["TI.GetEvents"] = [HANG]
        self.assertEqual(self.run_with_node("TI.GetEvents", "--timeout", "0.3"), (
            4, "", f"zyrctl: no answer from {self.node.url} within 300 ms; the node may still be running TI.GetEvents\n"))

    def test_is_5_for_what_is_no_answer(self):
        for answer in (b"HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\nhello",
                       b"HTTP/1.1 200 OK\r\nContent-Length: 500\r\n\r\n<?xml",
                       b"HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n"):
            with RawServer(answer) as other:
                status, out, err = run("list", "--json", url=other.url)
                self.assertEqual((status, out, json.loads(err)["error"]["kind"]), (5, "", "protocol"), answer)

    def test_prefers_the_option_to_the_variable(self):
        self.assertEqual(run("list", "ti.", "--url", self.node.url, url="http://127.0.0.1:1/")[0], 0)

    def test_is_0_for_the_version(self):
        self.assertEqual(run("--version"), (0, "zyrctl 1.0.0\n", ""))

    def test_tells_when_standard_output_takes_nothing(self):
        with open("/dev/full", "w", encoding="utf-8") as full:
            done = subprocess.run([ZYRCTL, "list"], stdout=full, stderr=subprocess.PIPE, text=True, timeout=DEADLINE,
                                  env=environment(self.node.url), check=False)
        self.assertEqual((done.returncode, done.stderr), (2, "zyrctl: standard output does not take the data\n"))


class NamedNodes(NodeTest):
    def setUp(self):
        super().setUp()
        self.folder = self.enterContext(tempfile.TemporaryDirectory())
        self.file = os.path.join(self.folder, "nodes.ini")

    def write(self, text):
        with open(self.file, "w", encoding="utf-8") as file:
            file.write(text)

    def list_of(self, *words, **more):
        return run(*words, "list", "ti.", **{"ZYR_NODES": self.file, **more})

    EXPECTED = (0, "TI.GetEvents  Reads events. [test]\n", "")

    def test_have_their_url_in_a_file(self):
        self.write(f"; my nodes\n[east]\nurl = http://127.0.0.1:1/RPC2\n\n[west]\nurl = {self.node.url}\n")
        self.assertEqual(self.list_of("--node", "west", url="http://127.0.0.1:1/RPC2"), self.EXPECTED)
        self.assertEqual(self.list_of("--node=east")[0], 3)

    def test_stand_in_the_users_folder_of_settings(self):
        os.mkdir(os.path.join(self.folder, "zyrctl"))
        self.file = os.path.join(self.folder, "zyrctl", "nodes.ini")
        self.write(f"[west]\nurl = {self.node.url}\n")
        self.assertEqual(run("--node", "west", "list", "ti.", XDG_CONFIG_HOME=self.folder), self.EXPECTED)

    def test_have_credentials_beside_the_file(self):
        with FakeNode(login="ann:open sesame") as node:
            path = os.path.join(self.folder, "login")
            with open(path, "w", encoding="utf-8") as file:
                file.write("bob:no\nann:open sesame\n")
            os.chmod(path, 0o600)
            self.write(f"[west]\nurl = {node.url}\nuser = ann\ncredentials = login\n[bare]\nurl = {node.url}\n")
            self.assertEqual(self.list_of("--node", "west"), self.EXPECTED)
            # Those of the environment may be another node's.
            self.assertEqual(self.list_of("--node", "bare", ZYR_CREDENTIALS=path)[0], 5)

    def test_are_suggested(self):
        self.write("[west]\nurl = x\n[east]\nurl = y\n")
        self.assertEqual(self.list_of("--node", "wset"),
                         (2, "", f'zyrctl: {self.file} names no node "wset"; did you mean "west"?\n'))
        self.assertEqual(self.list_of("--node", "qqqqqq"),
                         (2, "", f'zyrctl: {self.file} names no node "qqqqqq", it names west, east\n'))

    def test_are_refused_if_they_are_none(self):
        for text, complaint in (
                ("[west]\nuser = ann\n", ': the node "west" has no url'),
                ("[west]\nurl = x\ncolour = blue\n", ': cannot take "west.colour"; it takes [NAME] and below it url, '
                                                     "user, credentials and ca = VALUE"),
                ("url = x\n", ': cannot take "url"; it takes [NAME] and below it url, user, credentials and ca = VALUE'),
                ("[west]\nurl = x\nuser = ann:sesame\n", ": a password has no place here; name a file with it: "
                                                         "credentials = FILE")):
            self.write(text)
            self.assertEqual(self.list_of("--node", "west"), (2, "", f"zyrctl: {self.file}{complaint}\n"))
        self.assertEqual(self.list_of("--node", "west", ZYR_NODES="/nowhere/x"),
                         (2, "", "zyrctl: cannot read the file of named nodes /nowhere/x\n"))
        self.assertEqual(self.list_of("--node", "west", "--url", "http://x/")[0], 2)


class Tls(unittest.TestCase):
    def setUp(self):
        folder = self.enterContext(tempfile.TemporaryDirectory())
        self.certificate = os.path.join(folder, "cert.pem")
        key = os.path.join(folder, "key.pem")
        subprocess.run(["openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1",
                        "-nodes", "-keyout", key, "-out", self.certificate, "-days", "2", "-subj", "/CN=node",
                        "-addext", "subjectAltName=IP:127.0.0.1"], check=True, capture_output=True)
        context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        context.load_cert_chain(self.certificate, key)
        self.node = self.enterContext(FakeNode(tls=context))
        self.folder = folder

    def list_of(self, *words, **more):
        return run("list", "ti.", *words, url=self.node.url, **more)

    def test_takes_a_certificate_that_is_trusted(self):
        for words, more in ((["--ca", self.certificate], {}), ([], {"ZYR_CA": self.certificate}),
                            ([], {"CURL_CA_BUNDLE": self.certificate}), ([], {"SSL_CERT_FILE": self.certificate}),
                            (["--ca", self.certificate], {"ZYR_CA": "/nowhere/x"})):
            self.assertEqual(self.list_of(*words, **more), (0, "TI.GetEvents  Reads events. [test]\n", ""))

    def test_takes_that_of_a_named_node(self):
        nodes = os.path.join(self.folder, "nodes.ini")
        with open(nodes, "w", encoding="utf-8") as file:
            file.write(f"[west]\nurl = {self.node.url}\nca = cert.pem\n")
        self.assertEqual(run("--node", "west", "list", "ti.", ZYR_NODES=nodes)[0], 0)

    def test_refuses_other_certificates(self):
        status, out, err = self.list_of()
        self.assertEqual((status, out), (3, ""))
        self.assertIn("certificate", err)
        self.assertEqual(self.list_of("--ca", "/nowhere/x"),
                         (2, "", "zyrctl: the file of certificates /nowhere/x is not there\n"))


class Narrow(NodeTest):
    def test_terminal_gets_records_in_place_of_a_table_that_is_too_wide(self):
        self.node.answers["CRI.GetStatus"] = [STATUS_ANSWER]
        _, out = run_on_terminal("CRI.GetStatus", "channelId=1", url=self.node.url, size=(24, 18))
        self.assertEqual(out, ("tiResult  0\n"
                               "acmMode   Fixed rate (1)\n"
                               "power     15.5 dBm\n"
                               "events (2)\n"
                               "  eventName  count\n"
                               "  LOS            3\n"
                               "  Sync lost     12\n"))
        _, out = run_on_terminal("CRI.GetStatus", "channelId=1", url=self.node.url, size=(24, 17))
        self.assertEqual(out.splitlines()[3:], ["events (2)",
                                                "  [0]", "    eventName  LOS", "    count      3",
                                                "  [1]", "    eventName  Sync lost", "    count      12"])

    def test_terminal_gets_the_beginning_of_long_lines_of_the_list(self):
        _, out = run_on_terminal("list", "acm", url=self.node.url, size=(24, 30))
        self.assertEqual(out, "CRI.EnableAcm   Switches ACM …\nCRI.SetAcmMode  Sets the ACM …\n")

    def test_terminal_gets_help_in_more_lines(self):
        _, out = run_on_terminal("help", "CRI.EnableAcm", url=self.node.url, size=(24, 70))
        self.assertIn("\n  2  eTI_E_INVALID_ARGUMENT  RadioChannelID out of bounds\n"
                      "      The node has no such radio channel.\n", out)
        self.assertIn("RadioChannelID out of bounds  The node has no such radio channel.\n",
                      self.run_with_node("help", "CRI.EnableAcm")[1])


class Completion(NodeTest):
    def complete(self, line, **more):
        status, out, err = self.run_with_node("__complete", line, **more)
        self.assertEqual((status, err), (0, ""))
        return out.splitlines()

    def test_answers_from_the_nodes_list(self):
        self.assertEqual(self.complete("zyrctl CRI.S"), ["CRI.SetAcmMode", "CRI.SetKey"])
        self.assertEqual(self.complete("zyrctl SIM"), ["SIM.GetState"])
        self.assertEqual(self.complete("zyrctl call CRI.SetAcmMode c"), ["channelId=", "config.ifSwitchMode="])
        self.assertEqual(self.complete("zyrctl CRI.SetAcmMode acmMode="), ["acmMode=Off", "acmMode=Fixed rate"])
        self.assertEqual(self.complete("zyrctl --dr"), ["--dry-run"])
        self.assertEqual(self.complete("zyrctl --json --watch TI."), ["TI.GetEvents"])
        self.assertEqual(self.complete("zyrctl --timeout "), [])
        self.assertEqual(self.complete("zyrctl help CRI.S"), ["CRI.SetAcmMode", "CRI.SetKey"])
        self.assertEqual(self.complete("zyrctl help li"), ["list"])
        self.assertEqual(self.complete("zyrctl list a "), [])
        self.assertEqual(self.complete(""), [])

    def test_asks_the_node_of_the_line(self):
        status, out, _ = run("__complete", f"zyrctl -u {self.node.url} TI", url="http://127.0.0.1:1/")
        self.assertEqual((status, out), (0, "TI.GetEvents\n"))

    def test_is_silent_without_a_node(self):
        self.assertEqual(run("__complete", "zyrctl CRI", url="http://127.0.0.1:1/"), (0, "", ""))

    def test_works_in_bash(self):
        def in_bash(line, *words):
            script = ('eval "$("$ZYRCTL" completion bash)"\n'
                      'COMP_LINE=$1; COMP_POINT=${#1}; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1))\n'
                      'COMP_WORDBREAKS=$\' \\t\\n"\\\'><=;|&(:\'\n'
                      '_zyrctl; printf "<%s>" "${COMPREPLY[@]}"; complete -p zyrctl')
            done = subprocess.run(["bash", "--norc", "-c", script, "bash", line, ZYRCTL, *words],
                                  capture_output=True, text=True, timeout=DEADLINE,
                                  env=environment(self.node.url, ZYRCTL=ZYRCTL), check=True)
            return done.stdout
        registered = "complete -o nospace -F _zyrctl zyrctl\n"
        self.assertEqual(in_bash("zyrctl CRI.S", "CRI.S"), "<CRI.SetAcmMode ><CRI.SetKey >" + registered)
        self.assertEqual(in_bash("zyrctl CRI.SetAcmMode ch", "CRI.SetAcmMode", "ch"), "<channelId=>" + registered)
        self.assertEqual(in_bash("zyrctl CRI.SetAcmMode acmMode=", "CRI.SetAcmMode", "acmMode", "="),
                         "<Off ><Fixed\\ rate >" + registered)


    def test_works_in_zsh(self):
        def in_zsh(*words):
            # What zsh would offer, and with -S what it would put behind it in the place of a blank.
            script = ('compadd() { print -r -- "$*" }\ncompdef() { print -r -- "$*" }\n'
                      'eval "$("$ZYRCTL" completion zsh)"\n'
                      'words=("$ZYRCTL" "$@"); CURRENT=$#words; PREFIX=$words[-1]; _zyrctl')
            done = subprocess.run(["zsh", "-f", "-c", script, "zsh", *words], capture_output=True, text=True,
                                  timeout=DEADLINE, env=environment(self.node.url, ZYRCTL=ZYRCTL), check=True)
            return done.stdout
        self.assertEqual(in_zsh("CRI.S"), "_zyrctl zyrctl\n-- CRI.SetAcmMode CRI.SetKey\n")
        self.assertEqual(in_zsh("CRI.SetAcmMode", "c"), "_zyrctl zyrctl\n-S  -- channelId= config.ifSwitchMode=\n")
        self.assertEqual(in_zsh("CRI.SetAcmMode", "acmMode="),
                         "_zyrctl zyrctl\n-- acmMode=Off acmMode=Fixed rate\n")

    def test_works_in_fish(self):
        def in_fish(line):
            with tempfile.TemporaryDirectory() as home:
                script = ('set PATH (dirname $ZYRCTL) $PATH; zyrctl completion fish | source; complete --do-complete $LINE')
                done = subprocess.run(["fish", "--no-config", "-c", script], capture_output=True, text=True, timeout=DEADLINE,
                                      env=environment(self.node.url, ZYRCTL=ZYRCTL, LINE=line, HOME=home), check=True)
            return done.stdout
        self.assertEqual(in_fish("zyrctl CRI.S"), "CRI.SetAcmMode\nCRI.SetKey\n")
        self.assertEqual(in_fish("zyrctl CRI.SetAcmMode acmMode="), "acmMode=Fixed rate\nacmMode=Off\n")

    def test_is_one_of_three(self):
        for shell in ("bash", "fish", "zsh"):
            self.assertIn(f"zyrctl completion {shell}", self.run_with_node("completion", shell)[1])
        self.assertEqual(self.complete("zyrctl completion "), ["bash", "fish", "zsh"])

    def test_names_nodes(self):
        with tempfile.NamedTemporaryFile("w") as file:
            file.write("[west]\nurl = x\n[east]\nurl = y\n")
            file.flush()
            self.assertEqual(self.complete("zyrctl --node w", ZYR_NODES=file.name), ["west"])
        self.assertEqual(self.complete("zyrctl --node w", ZYR_NODES="/nowhere/x"), [])


class LongPoll(NodeTest):
    def test_is_described_as_one(self):
        self.assertIn("Answers when there is something to report", self.run_with_node("help", "CI.GetFastEvents")[1])

    def test_can_be_limited(self):
        self.node.answers["CI.GetFastEvents"] = [{"tiResult": 0}]
        self.assertEqual(self.run_with_node("CI.GetFastEvents", "--timeout", "10"), (0, "tiResult  0\n", ""))
        self.assertEqual(self.run_with_node("CI.GetFastEvents"), (0, "tiResult  0\n", ""))


def load_tests(loader, suite, _pattern):
    """All tests in an order of their own."""
    cases = [case for group in suite for case in group]
    random.shuffle(cases)
    return unittest.TestSuite(cases)


if __name__ == "__main__":
    sys.dont_write_bytecode = True
    unittest.main()
