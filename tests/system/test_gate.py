"""The test family is closed unless it is opened at the start, and there is no way around."""

import re
import xmlrpc.client

from node_process import NodeTest

# Refused by the dispatcher.
GATED = (
    "CRI.DisableModulation",
    "TI.GetRxXcStatusLevel",
    "TI.ManageMimo",
    "TI.ManagePathLatencyCompensation",
    "TI.ManageRealTimeClock",
    "TI.ManageXPIC",
)
# Reached without the dispatcher.
DIRECT = (
    "TI.GetAcmThresholds",
    "TI.GetAllCommandsData",
    "TI.GetDspTxMode",
    "TI.GetEvents",
    "TI.GetIfLoop",
    "TI.GetNarrowWideFilters",
    "TI.GetTXRFDetectedOutputPower",
    "TI.ManageDsp",
    "TI.ManagePm",
    "TI.ManageRadioChannelStatus",
    "TI.ManageRfPower",
    "TI.ManageSpc",
    "TI.ManageTXIFOutputPower",
    "TI.ManageTXRFGain",
    "TI.ManageTaps",
    "TI.SetDspTxMode",
    "TI.SetEvents",
    "TI.SetIfFrequency",
    "TI.SetIfLoop",
    "TI.SetNarrowWideFilters",
)
REFUSAL = "4 Error: Command not available"


class GateTest(NodeTest):
    """Asks for all commands of the test family in each way that there is."""

    def setUp(self):
        super().setUp()
        self.requests = {method["name"]: {field["name"]: field["example"] for field in method["request"]
                                          if "example" in field}
                         for method in self.proxy.zyr.describe()["methods"]}

    def outcomes(self, names):
        return {name: self.outcome(getattr(self.proxy, name), self.requests.get(name, {})) for name in names}

    def outcomes_in_multicall(self, names):
        calls = [{"methodName": name, "params": [self.requests.get(name, {})]} for name in names]
        answers = self.proxy.system.multicall(calls)
        return {name: f"{answer['faultCode']} {answer['faultString']}" if isinstance(answer, dict) else "answered"
                for name, answer in zip(names, answers, strict=True)}

    @staticmethod
    def outcome(call, *params):
        try:
            call(*params)
            return "answered"
        except xmlrpc.client.Fault as fault:
            return f"{fault.faultCode} {fault.faultString}"


class ClosedTest(GateTest):
    options = ("--fading", "0")

    def state(self):
        """The whole state of the node but its clocks."""
        return {name: value for name, value in self.proxy.SIM.GetState().items()
                if name not in ("systemTime", "hardwareTime")}

    def test_every_command_of_the_family_is_refused_and_none_runs(self):
        self.proxy.SIM.SetTraceLevel({"channel": "*", "level": 7})
        before = self.state()
        refused = dict.fromkeys(GATED + DIRECT, REFUSAL)
        self.assertEqual(self.outcomes(GATED + DIRECT), refused)
        self.assertEqual(self.outcomes_in_multicall(GATED + DIRECT), refused)
        trace = self.node.trace()
        self.assertEqual(set(re.findall(r"^\S+Z \d (\S+)", trace, re.MULTILINE)), {"ZYR.GATEWAY", "ZYR.ZyrTopApi"})
        self.assertEqual(trace.count("executeCommand: Running "), 0)
        self.assertEqual(trace.count("not available"), 2 * len(GATED))
        self.assertEqual(self.state(), before)

    def test_wrong_requests_tell_no_more(self):
        for name in DIRECT:
            with self.subTest(name):
                self.assertEqual(self.outcome(getattr(self.proxy, name), {"noSuchMember": 1}), REFUSAL)

    def test_there_is_no_other_name_for_them(self):
        listed = self.proxy.system.listMethods()
        self.assertEqual({name for name in listed if name.startswith("TI.")} | {"CRI.DisableModulation"},
                         set(GATED + DIRECT))
        self.assertEqual({name.split(".")[0] for name in listed}, {"CI", "CRI", "SIM", "TI", "system", "zyr"})
        self.assertEqual([name for name in listed if name.startswith("zyr.")], ["zyr.describe", "zyr.describeHash"])
        for name in GATED + DIRECT:
            family, rest = name.split(".")
            for other in (rest, family.capitalize() + rest, f"TI.Ti{rest}", f"SIM.{rest}", f"zyr.{name}",
                          name.lower(), f"{name}."):
                with self.subTest(other):
                    self.assertTrue(self.outcome(getattr(self.proxy, other)).startswith("1 eTI_E_METHOD_UNKNOWN: "))

    def test_one_call_of_several_around_another_is_refused(self):
        inner = {"methodName": "TI.SetEvents", "params": [{}]}
        outer = {"methodName": "system.multicall", "params": [[inner]]}
        self.assertEqual(self.proxy.system.multicall([outer]),
                         [{"faultCode": 3, "faultString": "eTI_E_PARAMETER_INVALID: system.multicall: not to be "
                                                          "called by system.multicall"}])


class OpenTest(GateTest):
    options = ("--enable-ti",)

    def test_no_command_of_the_family_is_refused(self):
        self.assertNotIn(REFUSAL, self.outcomes(GATED + DIRECT).values())
        self.assertNotIn(REFUSAL, self.outcomes_in_multicall(GATED + DIRECT).values())
