"""Restarts, recoveries and the services of the radio unit, as the commands of a running node see them."""

import subprocess
import unittest

from node_process import PROGRAM, NodeTest, near_end_request, power_request, wait_for_transmitter
from walk_through import ROOT, WalkThroughTest

WARNING = 0x1000
IDLE, RESTARTING, SUCCESSFUL, FAILED = 1, 2, 3, 4  # a restart of a radio unit
TO_PHYSICAL_RCC, TO_RF_PORT = 1, 2  # types of a route


class LifecycleTest(NodeTest):
    options = ("--fading", "0")

    def state(self):
        return self.proxy.SIM.GetState()

    def channel(self, number):
        return self.state()["channels"][number - 1]

    def status(self, number):
        return self.proxy.CRI.GetRadioChannelStatus({"RadioChannelID": number})

    def active_alarms(self):
        return {(event["eventName"], event["radioChannelId"])
                for event in self.proxy.CI.GetEvents()["events"] if event["isActive"]}

    def bring_up(self, *numbers):
        for number in numbers:
            self.proxy.CRI.SetRadioChannelNearEnd(near_end_request(self.proxy, number))
            self.proxy.CRI.SetRFPower(power_request(number))
        for number in numbers:
            wait_for_transmitter(self.proxy, number)

    def wait_until(self, condition):
        """Returns what the condition has answered, as soon as that is true."""
        while not (answer := condition()):
            pass
        return answer


class WarmStartTest(LifecycleTest):
    options = ("--start", "warm", "--fading", "0", "--trace", "ZYR.TI.CriSetRadioChannelNearEnd=4")

    def test_traffic_goes_on_until_the_restart_is_completed_and_behind_it(self):
        before = [self.status(number) for number in (1, 2)]
        for status in before:
            self.assertEqual((status["ZyrState"], status["RadioChannelStatus"], status["TXActualStatus"]),
                             ("WarmRestart", "Up", "On"))
        request = {"RadioChannelID": 1, "radioFrameId": 102, "minModulation": "4QAM", "maxModulation": "256QAM",
                   "referenceSec": "4L", "txFrequency_kHz": 14500000, "rxFrequency_kHz": 14920000}
        self.assertEqual(self.proxy.CRI.SetRadioChannelNearEnd(request), {"tiResult": 0})
        self.assertIn("Set Transmitter Off skipped due to warm restart", self.node.trace())
        self.assertEqual(self.proxy.CRI.WarmInitCompleted(), {"tiResult": 0})
        for number in (1, 2):
            channel = self.channel(number)
            self.assertEqual((channel["transmitter"]["warmRestartSyncs"], channel["acmSyncs"]), (1, 1))
            status = self.status(number)
            self.assertEqual((status["ZyrState"], status["RadioChannelStatus"], status["TXActualStatus"]),
                             ("NormalOperation", "Up", "On"))
        self.assertEqual(self.proxy.CI.GetEvents()["events"], [])
        self.assertEqual(self.proxy.CRI.WarmInitCompleted(), {"tiResult": WARNING})
        self.assertEqual(self.channel(1)["acmSyncs"], 1)


class ReadmeTest(WalkThroughTest):
    options = ("--start", "warm", "--fading", "0")

    def test_restarts_go_as_the_readme_shows(self):
        section = (ROOT / "README.md").read_text().split("\n## Restarts\n")[1].split("\n## ")[0]
        self.play(section, 7)


class ColdStartTest(LifecycleTest):
    options = ("--start", "cold")

    def test_nothing_is_configured_and_completion_leads_to_normal_operation(self):
        self.assertEqual(self.status(1)["ZyrState"], "ColdRestart")
        self.assertEqual(self.channel(1)["radioFrameId"], 0)
        self.assertEqual(self.proxy.CRI.WarmInitCompleted(), {"tiResult": 0})
        self.assertEqual(self.status(1)["ZyrState"], "NormalOperation")
        self.assertEqual(self.channel(1)["acmSyncs"], 0)
        self.bring_up(1)


class StartTest(unittest.TestCase):
    def test_unknown_start_is_a_usage_error(self):
        done = subprocess.run([PROGRAM, "--start", "tepid"], capture_output=True, text=True)
        self.assertEqual(done.returncode, 2)
        self.assertIn("--start", done.stderr)


class RecoveryTest(LifecycleTest):
    def test_links_fall_for_the_recovery_and_come_back_as_configured(self):
        self.bring_up(1, 2)
        before = [self.channel(number) for number in (1, 2)]
        self.assertEqual(self.proxy.CRI.StartRecovery({"Recover": "Dsp"}), {"tiResult": 0})
        self.assertEqual(self.active_alarms(), {("DspRecovery", 0), ("LinkDown", 1), ("LinkDown", 2)})
        self.assertEqual([self.status(number)["RadioChannelStatus"] for number in (1, 2)], ["Down", "Down"])
        self.assertEqual(self.fault_of(self.proxy.CRI.StartRecovery, {"Recover": "Dsp"}),
                         "4 CRI.StartRecovery failed to recover dsp")
        self.wait_until(lambda: not self.active_alarms())
        after = [self.channel(number) for number in (1, 2)]
        for was, now in zip(before, after):
            for member in ("radioFrameId", "txFrequency_kHz", "rxFrequency_kHz", "minModulation", "maxModulation"):
                self.assertEqual(now[member], was[member])
            self.assertEqual((now["acmEnabled"], now["receiver"]["isLinkUp"]), (True, True))
            # Which of the configured rates the receiver has depends on the path at that moment.
            self.assertLessEqual(now["minModulation"], now["receiver"]["rxModulation"])
            self.assertLessEqual(now["receiver"]["rxModulation"], now["maxModulation"])
        state = self.state()
        self.assertEqual((state["isDspRecovering"], state["dspRecoveries"]), (False, 1))


class RadioRestartTest(LifecycleTest):
    def restart(self, action, number=1):
        return self.proxy.CRI.RestartRadio({"RadioChannelID": number, "Action": action})["Status"]

    def test_unit_is_gone_for_the_restart_and_the_channel_comes_back_by_itself(self):
        self.bring_up(1)
        self.assertEqual(self.restart("GetStatus"), IDLE)
        self.assertEqual(self.restart("TriggerRestart"), RESTARTING)
        self.assertEqual(self.active_alarms(), {("LinkDown", 1), ("RadioDown", 1), ("TxOff", 1)})
        self.assertEqual(self.fault_of(self.restart, "TriggerRestart"), "4 channel 1: Radio is DOWN")
        self.assertEqual(self.status(1)["TXActualStatus"], "Off")
        self.wait_until(lambda: self.restart("GetStatus") != RESTARTING)
        self.assertEqual(self.restart("GetStatus"), SUCCESSFUL)
        self.assertEqual(wait_for_transmitter(self.proxy, 1)["RadioChannelStatus"], "Up")
        self.assertEqual(self.active_alarms(), set())
        self.assertEqual(self.restart("EndRestart"), IDLE)
        self.assertEqual(self.channel(1)["radio"]["preparations"], 1)

    def test_injected_fault_makes_the_restart_fail(self):
        self.proxy.SIM.InjectFault({"collaborator": "IRauHandler", "operation": "triggerRestart", "channel": 2,
                                    "code": 0x8003})
        self.assertEqual(self.restart("TriggerRestart", 2), FAILED)
        self.assertEqual(self.restart("EndRestart", 2), IDLE)

    def test_unit_without_power_is_gone_until_it_has_started_again(self):
        self.bring_up(2)
        self.proxy.CRI.SetRauPowerSupplied({"RadioChannelID": 2, "RauPowerSupplied": 0})
        self.assertFalse(self.proxy.CRI.GetRauPowerSupplied({"RadioChannelID": 2})["RauPowerSupplied"])
        self.assertEqual(self.active_alarms(), {("LinkDown", 2), ("RadioDown", 2), ("TxOff", 2)})
        self.assertEqual(self.fault_of(self.restart, "TriggerRestart", 2), "4 channel 2: Radio is DOWN")
        self.proxy.CRI.SetRauPowerSupplied({"RadioChannelID": 2, "RauPowerSupplied": 1})
        self.assertTrue(self.channel(2)["radio"]["isStarting"])
        self.assertIn(("RadioDown", 2), self.active_alarms())
        self.assertEqual(wait_for_transmitter(self.proxy, 2)["RadioChannelStatus"], "Up")
        self.assertEqual(self.active_alarms(), set())


class SubBandTest(LifecycleTest):
    def test_frequency_limits_follow_the_sub_band(self):
        request = near_end_request(self.proxy, 1)
        self.proxy.CRI.SetActiveSubBand({"RadioChannelID": 1, "subBand": 3})
        able = self.proxy.CRI.GetRadioChannelCapability(
            {name: value for name, value in request.items() if not name.endswith("_kHz")})
        self.assertEqual((able["MinTXFrequency"], able["MaxTXFrequency"]), (14560000, 14590000))
        self.assertEqual((able["MinRXFrequency"], able["MaxRXFrequency"]), (14980000, 15010000))
        self.assertEqual(self.fault_of(self.proxy.CRI.SetRadioChannelNearEnd, request),
                         "4 IFrequencyController->setTxFrequency failed (EFCResult = 32768)")
        within = {**request, "txFrequency_kHz": 14560000, "rxFrequency_kHz": 14980000}
        self.assertEqual(self.proxy.CRI.SetRadioChannelNearEnd(within), {"tiResult": 0})
        self.assertEqual(self.fault_of(self.proxy.CRI.SetActiveSubBand, {"RadioChannelID": 1, "subBand": 5}),
                         "4 Failed to set subBand")
        self.assertEqual(self.channel(1)["radio"]["subBand"], 3)
        self.assertEqual(self.channel(2)["radio"]["subBand"], 0)


class RoutesTest(LifecycleTest):
    def test_routes_show_in_the_state_of_the_node(self):
        self.assertEqual(self.state()["routes"], [])
        for number, destination, kind in ((1, 7, "RcchToPhyRccMap"), (2, 9, "RcchToRfPortMap"),
                                          (1, 8, "RcchToPhyRccMap")):
            self.proxy.CRI.SetRouting({"RadioChannelID": number, "DestinationID": destination, "RouteType": kind})
        self.assertEqual(self.state()["routes"],
                         [{"type": TO_PHYSICAL_RCC, "channel": 1, "destination": 8},
                          {"type": TO_RF_PORT, "channel": 2, "destination": 9}])


class TwoTransmittersTest(LifecycleTest):
    options = ("--two-transmitters", "--fading", "0")

    def set_power_mode(self, transceiver, mode):
        self.proxy.CRI.CriSetRauPowerMode(
            {"RadioChannelID": 1, "rauPowerMode": {"trxId": transceiver, "powerMode": mode}})

    def test_transceiver_that_is_off_takes_half_the_signal_away(self):
        self.assertTrue(self.proxy.CRI.CriGetIsRau2T2R({"RadioChannelID": 1})["IsRau2T2R"])
        self.bring_up(1)
        level = self.status(1)["ActualRFInputPower"]
        self.set_power_mode(2, 4)
        mode = self.proxy.CRI.CriGetRauPowerMode({"RadioChannelID": 1, "trxId": 255})["rauPowerMode"]
        self.assertEqual(mode["powerMode"], 4)
        status = self.status(1)
        self.assertEqual((status["ActualRFInputPower"], status["RadioChannelStatus"]), (level - 30, "Up"))
        self.set_power_mode(1, 1)
        self.assertEqual(self.status(1)["RadioChannelStatus"], "Down")
        self.wait_until(lambda: self.status(1)["TXActualStatus"] == "Off")
        self.set_power_mode(255, 0)
        self.assertEqual(wait_for_transmitter(self.proxy, 1)["RadioChannelStatus"], "Up")
        self.assertEqual(self.status(1)["ActualRFInputPower"], level)


class OneTransmitterTest(LifecycleTest):
    def test_unit_has_one_transmitter_unless_it_was_ordered_with_two(self):
        self.assertFalse(self.proxy.CRI.CriGetIsRau2T2R({"RadioChannelID": 1})["IsRau2T2R"])


class CarrierAggregationTest(LifecycleTest):
    options = ("--radio-type", "2", "--trace", "ZYR.TI.CriSetRadioChannelNearEnd=4")

    def test_configuration_of_channel_2_switches_the_transmitter_of_channel_1(self):
        self.proxy.CRI.SetRadioChannelNearEnd(near_end_request(self.proxy, 2))
        self.assertNotIn("in CA", self.node.trace())
        self.proxy.CRI.SetRauCarrierAggregation({"IsRauCarrierAggregation": True})
        self.proxy.CRI.SetRadioChannelNearEnd(near_end_request(self.proxy, 2))
        self.assertIn("Initiating Tx OFF in CA", self.node.trace())
        self.assertIn("Return transmitter of CH1 in CA to requested state", self.node.trace())
