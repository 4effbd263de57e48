"""Long polls: woken, released, many at once, and while the node stops."""

import signal

from node_process import Call, Node, NodeTest

TERMINATED = "4 CI.GetFastEvents has been terminated"


class LongPollTest(NodeTest):
    def hanging(self, count):
        """Long polls that hang, each with the caller's view up to date."""
        view = {"events": self.proxy.CI.GetEvents()["events"]}
        calls = [Call(self.node.proxy().CI.GetFastEvents, view) for _ in range(count)]
        self.node.wait_for_hanging(count)
        return calls

    def test_change_wakes_it(self):
        (poll,) = self.hanging(1)
        self.proxy.CRI.EnableAcm({"channelId": 1, "enable": True})
        self.proxy.CRI.EnableAcm({"channelId": 1, "enable": False})
        answer = poll.result()
        self.assertEqual(answer["tiResult"], 0)
        self.assertIn(("AcmDisabled", 1, True),
                      [(event["eventName"], event["radioChannelId"], event["isActive"])
                       for event in answer["events"]])

    def test_release_ends_those_that_hang(self):
        polls = self.hanging(3)
        self.assertEqual(self.proxy.CI.ReleaseFastEventsRequests(), {"tiResult": 0})
        self.assertEqual([poll.result() for poll in polls], [TERMINATED] * 3)
        (later,) = self.hanging(1)
        self.proxy.CI.ReleaseFastEventsRequests()
        self.assertEqual(later.result(), TERMINATED)

    def test_64_that_hang_leave_64_others_alone(self):
        polls = self.hanging(64)
        # Two calls each, so that the others are served while all of them are connected.
        others = [Call(lambda proxy: (proxy.CRI.EnableAcm({"channelId": 1, "enable": True}),
                                      proxy.SIM.ListFaults()), self.node.proxy()) for _ in range(60)]
        self.assertEqual([call.result() for call in others], [({"tiResult": 0}, {"faults": []})] * 60)
        self.proxy.CI.ReleaseFastEventsRequests()
        outcomes = [poll.result() for poll in polls]
        for outcome in outcomes:
            if outcome != TERMINATED:  # woken by the change that the others made
                self.assertEqual(outcome["tiResult"], 0)

    def test_stop_answers_them_and_ends_well(self):
        for signal_number in (signal.SIGTERM, signal.SIGINT):
            with self.subTest(signal_number), Node() as node:
                calls = [Call(node.proxy().CI.GetFastEvents, {"events": []}) for _ in range(16)]
                node.wait_for_hanging(16)
                self.assertEqual(node.stop(signal_number), 0)
                self.assertEqual([call.result() for call in calls], [TERMINATED] * 16)

    def test_stop_releases_them_whatever_was_ordered_to_fail(self):
        self.proxy.SIM.InjectFault({"collaborator": "IAlarmHandlerTopApi", "operation": "releaseFastAlarmRequests",
                                    "code": 0x8000, "count": 1000000})
        (poll,) = self.hanging(1)
        self.assertEqual(self.fault_of(self.proxy.CI.ReleaseFastEventsRequests),
                         "4 CI.ReleaseFastEventsRequestsImpl failed to release hanging GetFastAlarm requests")
        self.assertEqual(self.node.stop(), 0)
        self.assertEqual(poll.result(), TERMINATED)
