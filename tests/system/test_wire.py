"""What comes in over the wire and is not as it should be."""

import random
import xmlrpc.client

from node_process import NodeTest


def document(params, method="CRI.EnableAcm"):
    return f"<methodCall><methodName>{method}</methodName><params>{params}</params></methodCall>".encode()


def struct(**members):
    """A parameter; the members' values are XML."""
    rows = "".join(f"<member><name>{name}</name><value>{value}</value></member>" for name, value in members.items())
    return f"<param><value><struct>{rows}</struct></value></param>"


class InputTest(NodeTest):
    def test_each_kind_of_number_is_taken(self):
        for channel in ("<int>1</int>", "<i4>1</i4>", "<i8>1</i8>", "<i1>1</i1>", "<i2>1</i2>", "<int> +1\n</int>",
                        "<double>1</double>", "<double>1.0</double>"):
            with self.subTest(channel):
                self.assertEqual(self.node.post(document(struct(channelId=channel, enable="<boolean>1</boolean>"))),
                                 {"tiResult": 0})

    def test_what_stock_clients_cannot_say_otherwise_is_taken(self):
        proxy = self.node.proxy()
        self.assertEqual(proxy.CRI.EnableAcm({"channelId": 1, "enable": 1}), {"tiResult": 0})
        self.assertTrue(proxy.SIM.GetState()["channels"][0]["acmEnabled"])
        self.assertEqual(proxy.CRI.EnableAcm({"channelId": 1, "enable": 0}), {"tiResult": 0})
        self.assertFalse(proxy.SIM.GetState()["channels"][0]["acmEnabled"])
        self.assertEqual(proxy.CI.ReleaseFastEventsRequests([]), {"tiResult": 0})
        self.assertEqual(proxy.SIM.InjectFault({"collaborator": "IAcmHandler", "operation": "enableAcm", "code": 1,
                                                "channel": None, "count": None}), {})

    def test_each_wrong_input_has_a_clear_fault(self):
        true = "<boolean>1</boolean>"
        one = "<int>1</int>"
        range_text = "it takes an integer from 1 to 2"
        member = "3 eTI_E_PARAMETER_INVALID: CRI.EnableAcm: "
        wrong_type = "3 eTI_E_PARAMETER_TYPE_INVALID: CRI.EnableAcm: "
        malformed = "2 eTI_E_MALFORMED_REQUEST: line 1: "
        inputs = {
            document(struct(channelId="<int>0</int>", enable=true)): member + f"channelId is 0, {range_text}",
            document(struct(channelId="<i8>4294967297</i8>", enable=true)):
                member + f"channelId is 4294967297, {range_text}",
            document(struct(channelId="<double>1.5</double>", enable=true)):
                wrong_type + f"channelId is 1.5, {range_text}",
            document(struct(channelId="1", enable=true)): wrong_type + f'channelId is the string "1", {range_text}',
            document(struct(channelId="<nil/>", enable=true)): wrong_type + f"channelId is nil, {range_text}",
            document(struct(channelId=one, enable="<int>2</int>")): wrong_type + "enable is 2, it takes a boolean",
            document(struct(channelId="<base64>MQ==</base64>", enable=true)):
                wrong_type + f"channelId is base64, {range_text}",
            document(struct(channelId="<dateTime.iso8601>20240102T03:04:05</dateTime.iso8601>", enable=true)):
                wrong_type + f"channelId is a dateTime.iso8601, {range_text}",
            document(struct(channelId=one)):
                "2 eTI_E_REQUIRED_INPUT_MISSING: CRI.EnableAcm: enable is missing, it takes a boolean",
            document(struct(channelId=one, enable=true, more=one)):
                member + "more is not a member, accepted are: channelId, enable",
            document("<param><value><array><data><value/></data></array></value></param>"):
                wrong_type + "the parameter is no struct, it takes one struct",
            document("", "CRI.enableAcm"):
                "1 eTI_E_METHOD_UNKNOWN: CRI.enableAcm: no such method, system.listMethods tells all of them",
            b"": malformed,
            b"hello": malformed,
            b"<methodCall/>": malformed,
            b"<methodResponse/>": malformed,
            b"<!DOCTYPE a><methodCall/>": malformed,
            document(struct(channelId="<int>x</int>", enable=true)): malformed,
            document(struct(channelId="<int>9223372036854775808</int>", enable=true)): malformed,
            document(struct(channelId="<double>inf</double>", enable=true)): malformed,
            document("<param>" + "<value><array><data>" * 40 + "</data></array></value>" * 40 + "</param>"): malformed,
        }
        for body, expected in inputs.items():
            with self.subTest(body[:150]):
                given = self.fault_of(self.node.post, body)
                if expected == malformed:
                    self.assertTrue(given.startswith(expected), given)
                    self.assertGreater(len(given), len(expected) + 5)
                else:
                    self.assertEqual(given, expected)

    def test_doubled_member_is_refused_by_name(self):
        body = document("<param><value><struct>" + 2 * "<member><name>channelId</name><value><int>1</int></value>"
                        "</member>" + "</struct></value></param>")
        self.assertRegex(self.fault_of(self.node.post, body), "^2 eTI_E_MALFORMED_REQUEST: .*channelId")

    def test_random_input_leaves_the_node_serving(self):
        """A smoke test: bytes and mutated documents, by a fixed seed."""
        dice = random.Random(20260101)
        sound = document(struct(channelId="<int>1</int>", enable="<boolean>1</boolean>"))
        for _ in range(400):
            body = bytearray(sound)
            for _ in range(dice.randrange(1, 12)):
                at = dice.randrange(len(body))
                turn = dice.randrange(3)
                if turn == 0:
                    body[at] = dice.randrange(256)
                elif turn == 1:
                    del body[at:at + dice.randrange(1, 20)]
                else:
                    body[at:at] = body[at:at + dice.randrange(1, 40)]
                body = body or bytearray(b"<")
            try:
                self.node.post(bytes(body))
            except xmlrpc.client.Fault as fault:
                self.assertIn(fault.faultCode, (1, 2, 3, 4))
                self.assertTrue(fault.faultString)
        for _ in range(100):
            self.node.throw(dice.randbytes(dice.randrange(1, 2000)))
        self.assertEqual(self.proxy.CRI.EnableAcm({"channelId": 1, "enable": True}), {"tiResult": 0})
        self.assertIsNone(self.node.process.poll())


class CombinerInputTest(NodeTest):
    options = ("--radio-type", "3")

    def test_text_that_a_command_cannot_read_as_a_number_is_refused_with_its_member(self):
        request = {"channelId": 2, "selectedMaxAcm": "256", "xpicEnabled": True}
        for text in ("wide", "99999999999"):
            with self.subTest(text):
                self.assertTrue(self.fault_of(
                    self.proxy.CRI.SetSdcRlConfiguration, {**request, "channelSpacing": text}).startswith(
                        "2 eTI_E_INVALID_ARGUMENT: CRI.SetSdcRlConfiguration: channelSpacing is the string "
                        f'"{text}", it takes a string that begins with an integer from -2147483648 to 2147483647, '
                        'known are "3500", "5000", '))
        self.assertEqual(self.proxy.CRI.SetSdcRlConfiguration({**request, "channelSpacing": "28000"}),
                         {"tiResult": 0})
