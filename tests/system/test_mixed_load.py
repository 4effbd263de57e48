"""All kinds of clients at once, for a while: every answer is right, and the node is afterwards what it was."""

import os
import random
import threading
import time
import unittest
import xmlrpc.client

from node_process import Call, Node
from test_under_fire import POLL, TERMINATED, UnderFireTest, head, resident_megabytes, threads

# Five minutes were run once.
SECONDS = float(os.environ.get("ZYR_LOAD_SECONDS", "3"))
SEED = int(os.environ.get("ZYR_LOAD_SEED", "1"))
UNKNOWN = {"faultCode": 1, "faultString": "eTI_E_METHOD_UNKNOWN: CRI.None: no such method, system.listMethods tells "
                                          "all of them"}


class Load:
    """What the clients do, each on a thread of its own, until the time is over."""

    def __init__(self, node):
        self.node = node
        self.end = time.monotonic() + SECONDS
        self.counts = {}
        self.wrong = []
        self._guard = threading.Lock()
        with Node() as quiet:
            self.methods = quiet.proxy().system.listMethods()

    def until_end(self, client, number):
        """A client's life: its turns until the end, or until something is wrong."""
        chance = random.Random(f"{SEED} {client.__name__} {number}")
        proxy = self.node.proxy()
        count = 0
        try:
            while time.monotonic() < self.end and not self.wrong:
                client(self, proxy, chance)
                count += 1
        except Exception as error:  # told by the test
            self.wrong.append(f"{client.__name__}: {error!r}")
        with self._guard:
            self.counts[client.__name__] = self.counts.get(client.__name__, 0) + count

    def expect(self, found, wanted):
        if found != wanted:
            raise AssertionError(f"{str(found)[:500]} is not {str(wanted)[:500]}")

    def expect_fault(self, wanted, function, *arguments):
        try:
            self.expect(function(*arguments), wanted)
        except xmlrpc.client.Fault as fault:
            self.expect(f"{fault.faultCode} {fault.faultString}", wanted)

    def asks_status(self, proxy, chance):
        self.expect(proxy.CRI.GetRadioChannelStatus({"RadioChannelID": chance.choice([1, 2])})["tiResult"], 0)

    def is_alone_on_channel_2(self, proxy, chance):
        enable = chance.choice([True, False])
        self.expect(proxy.CRI.EnableAcm({"channelId": 2, "enable": enable}), {"tiResult": 0})
        self.expect(proxy.SIM.GetState()["channels"][1]["acmEnabled"], enable)

    def asks_for_several(self, proxy, chance):
        enabling = {"methodName": "CRI.EnableAcm", "params": [{"channelId": 1, "enable": True}]}
        count = chance.randrange(1, 20)
        self.expect(proxy.system.multicall([enabling, {"methodName": "CRI.None", "params": []}] * count),
                    [[{"tiResult": 0}], UNKNOWN] * count)

    def asks_the_server(self, proxy, _):
        self.expect(proxy.system.listMethods(), self.methods)
        self.expect(len(proxy.zyr.describe()["methods"]), len([name for name in self.methods if not name.startswith(
            ("system.", "zyr."))]))

    def makes_mistakes(self, proxy, _):
        self.expect_fault("3 eTI_E_PARAMETER_INVALID: CRI.EnableAcm: channelId is 3, it takes an integer from 1 to 2",
                          proxy.CRI.EnableAcm, {"channelId": 3, "enable": True})
        self.expect_fault("2 eTI_E_MALFORMED_REQUEST: line 1: not well-formed XML: Start-end tags mismatch",
                          self.node.post, b"<methodCall>")

    def sends_much(self, proxy, chance):
        self.expect_fault("3 eTI_E_PARAMETER_TYPE_INVALID: CRI.EnableAcm: enable is an array, it takes a boolean",
                          proxy.CRI.EnableAcm, {"channelId": 1, "enable": [1] * chance.randrange(1, 5000)})

    def waits_for_alarms(self, proxy, _):
        view = {"events": proxy.CI.GetEvents()["events"]}
        try:
            proxy.CI.GetFastEvents(view)
        except xmlrpc.client.Fault as fault:
            self.expect(f"{fault.faultCode} {fault.faultString}", TERMINATED)

    def leaves(self, _, chance):
        whole = head(len(POLL)) + POLL
        self.node.throw(whole[:chance.randrange(1, len(whole) + 1)])
        time.sleep(chance.random() / 50)

    def releases_the_waiting(self, proxy, chance):
        time.sleep(chance.random() / 5)
        self.expect(proxy.CI.ReleaseFastEventsRequests(), {"tiResult": 0})


CLIENTS = {Load.asks_status: 4, Load.is_alone_on_channel_2: 1, Load.asks_for_several: 2, Load.asks_the_server: 1,
           Load.makes_mistakes: 2, Load.sends_much: 2, Load.waits_for_alarms: 6, Load.leaves: 2,
           Load.releases_the_waiting: 1}


class MixedLoadTest(UnderFireTest):
    def test_every_answer_is_right_and_the_node_is_as_it_was(self):
        self.proxy.zyr.describe()
        memory = resident_megabytes(self.node.process)
        before = threads(self.node.process)
        load = Load(self.node)
        calls = [Call(load.until_end, client, number) for client, count in CLIENTS.items() for number in range(count)]
        while time.monotonic() < load.end and not load.wrong:
            time.sleep(0.1)
        # The last ones that wait are released as long as there are any.
        while any(call.is_alive() for call in calls):
            self.proxy.CI.ReleaseFastEventsRequests()
            time.sleep(0.01)
        self.assertEqual(load.wrong, [])
        self.assertEqual(len(load.counts), len(CLIENTS))
        self.assertGreater(min(load.counts.values()), 0, load.counts)
        if SECONDS > 60:
            print(load.counts, f"{memory:.1f} MB before, {resident_megabytes(self.node.process):.1f} MB behind")
        self.assert_healthy()
        self.wait_until(lambda: threads(self.node.process) <= before)
        if not os.environ.get("ZYR_SANITIZE"):
            self.wait_until(lambda: resident_megabytes(self.node.process) < memory + 10)
        self.assertEqual(self.node.stop(), 0)


if __name__ == "__main__":
    unittest.main()
