"""What commands do on the simulated node, seen through the wire."""

import time
import xmlrpc.client

from node_process import PATIENCE, Call, NodeTest, near_end_request, power_request, wait_for_transmitter


class EnableAcmTest(NodeTest):
    def test_effect_shows_in_state_and_events(self):
        self.assertEqual(self.proxy.CRI.EnableAcm({"channelId": 2, "enable": True}), {"tiResult": 0})
        self.assertEqual([channel["acmEnabled"] for channel in self.proxy.SIM.GetState()["channels"]],
                         [False, True])

        self.assertEqual(self.proxy.CRI.EnableAcm({"channelId": 2, "enable": False}), {"tiResult": 0})
        self.assertEqual([channel["acmEnabled"] for channel in self.proxy.SIM.GetState()["channels"]],
                         [False, False])
        self.assertIn({"eventName": "AcmDisabled", "isActive": True, "numberOfTimesEventHasBeenActive": 1,
                       "radioChannelId": 2}, self.proxy.CI.GetEvents()["events"])

        self.proxy.CRI.EnableAcm({"channelId": 2, "enable": True})
        self.assertIn({"eventName": "AcmDisabled", "isActive": False, "numberOfTimesEventHasBeenActive": 1,
                       "radioChannelId": 2}, self.proxy.CI.GetEvents()["events"])

    def test_ordered_failure_comes_as_often_as_ordered(self):
        self.proxy.SIM.InjectFault({"collaborator": "IAcmHandler", "operation": "enableAcm", "channel": 1,
                                    "code": 0x8000, "count": 2})
        request = {"channelId": 1, "enable": True}
        self.assertEqual(self.proxy.CRI.EnableAcm({"channelId": 2, "enable": True}), {"tiResult": 0})
        self.assertEqual(self.fault_of(self.proxy.CRI.EnableAcm, request), "4 CRI.EnableAcm failed to enable ACM")
        self.assertEqual(self.proxy.SIM.ListFaults()["faults"],
                         [{"collaborator": "IAcmHandler", "operation": "enableAcm", "channel": 1, "code": 32768,
                           "count": 1}])
        self.assertEqual(self.fault_of(self.proxy.CRI.EnableAcm, request), "4 CRI.EnableAcm failed to enable ACM")
        self.assertEqual(self.proxy.CRI.EnableAcm(request), {"tiResult": 0})

    def test_unknown_order_to_fail_is_refused(self):
        self.assertRegex(self.fault_of(self.proxy.SIM.InjectFault,
                                       {"collaborator": "IAcmHandler", "operation": "noSuch", "code": 1}),
                         r"^3 eTI_E_PARAMETER_INVALID: SIM\.InjectFault: .*noSuch.*enableAcm")

    def test_calls_from_many_threads_are_all_answered(self):
        def session(channel):
            proxy = self.node.proxy()
            return [proxy.CRI.EnableAcm({"channelId": channel, "enable": bool(turn % 2)})["tiResult"]
                    for turn in range(25)]

        calls = [Call(session, 1 + index % 2) for index in range(16)]
        self.assertEqual([call.result() for call in calls], [[0] * 25] * 16)


class ConfigurationTest(NodeTest):
    def test_channel_is_configured_and_transmits(self):
        self.assertEqual(self.fault_of(self.proxy.CRI.SetRFPower, power_request(1)),
                         "4 DSP needs to be configured before SetRfPower")
        request = near_end_request(self.proxy, 1)
        self.assertEqual(self.proxy.CRI.SetRadioChannelNearEnd({**request, "rauMultiTrxConfig": {}}),
                         {"tiResult": 0})
        self.assertEqual(self.proxy.CRI.SetRFPower(power_request(1)), {"tiResult": 0})
        status = wait_for_transmitter(self.proxy, 1)
        self.assertEqual((status["TxFrequency"], status["RxFrequency"], status["RadioChannelStatus"]),
                         (request["txFrequency_kHz"], request["rxFrequency_kHz"], "Up"))
        channel = self.proxy.SIM.GetState()["channels"][0]
        self.assertEqual((channel["radioFrameId"], channel["minModulation"], channel["maxModulation"]),
                         (request["radioFrameId"], 31, 81))

    def test_both_link_types_at_once_are_refused_by_the_command(self):
        self.assertEqual(
            self.fault_of(self.proxy.CRI.SetRadioChannelNearEnd,
                          {"RadioChannelID": 1, "radioFrameId": 101, "minModulation": 31, "maxModulation": 81,
                           "referenceSec": 1, "txFrequency_kHz": 14500000, "rxFrequency_kHz": 14920000,
                           "xpicParameterPresent": True, "xpicEnable": "Enable_A", "mimoParameterPresent": True,
                           "mimoEnable": "Enable_A"}),
            "4 Enabling XPIC and MIMO at the same time is not allowed!")


class SettersTest(NodeTest):
    def test_radio_unit_can_be_taken_away(self):
        self.proxy.SIM.SetRadioAvailable({"channel": 1, "value": False})
        self.assertEqual([channel["radio"]["isAvailable"] for channel in self.proxy.SIM.GetState()["channels"]],
                         [False, True])
        self.assertEqual(self.fault_of(self.proxy.SIM.SetRadioAvailable, {"channel": 3, "value": False}),
                         "3 eTI_E_PARAMETER_INVALID: SIM.SetRadioAvailable: channel is 3, it takes an integer from "
                         "1 to 2")

    def test_every_setter_takes_its_value(self):
        values = {"SetCarrierAggregation": True, "SetConfigurationBypassed": False, "SetDiversityPathLoss": 720,
                  "SetDuplexType": 1,                  "SetFarEndTransmits": False, "SetLongHaul": True, "SetPathLoss": 700, "SetTwoTransmitters": True}
        for name, value in values.items():
            with self.subTest(name):
                self.assertEqual(getattr(self.proxy.SIM, name)({"value": value}), {})


class TraceTest(NodeTest):
    def test_level_can_be_set_while_running(self):
        self.proxy.CI.GetEvents()
        self.assertNotIn("CI.GetEvents Request:", self.node.trace())
        self.proxy.SIM.SetTraceLevel({"channel": "ZYR.COMM", "level": 5})
        self.proxy.CI.GetEvents()
        self.assertIn("CI.GetEvents Request:  Received\n", self.node.trace())
        self.assertIn({"name": "ZYR.COMM", "level": 5, "defaultLevel": 3},
                      self.proxy.SIM.ListTraceChannels()["channels"])
        self.assertEqual(self.fault_of(self.proxy.SIM.SetTraceLevel, {"channel": "ZYR.COMM", "level": 8}),
                         "3 eTI_E_PARAMETER_INVALID: SIM.SetTraceLevel: level is 8, it takes an integer from 0 to 7")


class ClosedTestFamilyTest(NodeTest):
    def test_test_commands_are_refused(self):
        for call in (lambda: self.proxy.TI.GetEvents({"requestOption": 0}), self.proxy.TI.SetEvents,
                     self.proxy.TI.GetAllCommandsData):
            self.assertEqual(self.fault_of(call), "4 Error: Command not available")


class OpenTestFamilyTest(NodeTest):
    options = ("--enable-ti",)

    def test_test_commands_work(self):
        self.assertEqual(self.proxy.TI.GetEvents({"requestOption": 1}),
                         {"tiResult": 0, "events": [], "requestOption": 1})
        self.assertEqual(self.proxy.TI.SetEvents(), {"tiResult": 0})
        catalogue = self.proxy.TI.GetAllCommandsData()["commands"]
        commands = [name for name in self.proxy.system.listMethods() if name.startswith(("CI.", "CRI.", "TI."))]
        self.assertEqual([row["name"] for row in catalogue], commands)


class OneChannelTest(NodeTest):
    options = ("--channels", "1")

    def test_second_channel_is_refused(self):
        self.assertEqual(self.fault_of(self.proxy.CRI.EnableAcm, {"channelId": 2, "enable": True}),
                         "3 eTI_E_PARAMETER_INVALID: CRI.EnableAcm: channelId is 2, it takes an integer from 1 to 1")


class OrderedAtStartTest(NodeTest):
    options = ("--fault", "IAcmHandler.enableAcm@2=0x8000x2", "--fault", "IAlarmHandlerTopApi.getAlarms=32768")

    def test_failures_come_from_the_start(self):
        self.assertEqual(self.fault_of(self.proxy.CRI.EnableAcm, {"channelId": 2, "enable": False}),
                         "4 CRI.EnableAcm failed to disable ACM")
        self.assertEqual(self.fault_of(self.proxy.CI.GetEvents), "4 CI.GetEvents failed to get alarms")
        self.assertEqual(self.proxy.CI.GetEvents()["tiResult"], 0)
        self.assertEqual(self.proxy.SIM.ListFaults()["faults"],
                         [{"collaborator": "IAcmHandler", "operation": "enableAcm", "channel": 2, "code": 32768,
                           "count": 1}])
        self.proxy.SIM.ClearFaults()
        self.assertEqual(self.proxy.CRI.EnableAcm({"channelId": 2, "enable": False}), {"tiResult": 0})


class IntrospectionTest(NodeTest):
    def test_every_listed_method_has_signature_and_help(self):
        names = self.proxy.system.listMethods()
        self.assertIn("CRI.EnableAcm", names)
        for name in names:
            with self.subTest(name):
                self.assertTrue(self.proxy.system.methodHelp(name))
                self.assertTrue(self.proxy.system.methodSignature(name))

    def test_multicall_of_the_stock_client(self):
        multicall = xmlrpc.client.MultiCall(self.proxy)
        multicall.CRI.EnableAcm({"channelId": 1, "enable": True})
        multicall.CRI.EnableAcm({"channelId": 5, "enable": True})
        results = multicall()
        self.assertEqual(results[0], {"tiResult": 0})
        self.assertRegex(self.fault_of(lambda: results[1]), "^3 eTI_E_PARAMETER_INVALID: CRI.EnableAcm: channelId")


class ClockTest(NodeTest):
    options = ("--enable-ti",)

    def test_set_time_is_the_nodes_and_not_the_hosts(self):
        before = time.time()
        set_time = self.proxy.TI.ManageRealTimeClock({"dateTime": "20260114T08:30:05"})["dateTime"]
        self.assertRegex(set_time, "^20260114T08:3[01]:[0-5][0-9]$")
        self.assertGreaterEqual(self.proxy.TI.ManageRealTimeClock()["dateTime"], set_time)
        self.assertGreaterEqual(time.time(), before)
        self.assertLess(time.time(), before + PATIENCE)

    def test_time_in_another_form_is_refused(self):
        self.assertEqual(self.fault_of(self.proxy.TI.ManageRealTimeClock, {"dateTime": "2026-01-14T08:30:05Z"}),
                         '2 Cannot use "2026-01-14T08:30:05Z". Expected format is %Y%m%dT%H:%M:%S')
