"""The schemas of requests and responses that the node prints, against what it takes and gives."""

import subprocess
import xmlrpc.client

import schema
from jsonschema import Draft202012Validator, ValidationError
from node_process import PROGRAM, NodeTest


class SchemaTest(NodeTest):
    options = ("--enable-ti",)

    def test_document_is_a_schema(self):
        Draft202012Validator.check_schema(schema.document())
        for definition in schema.document()["$defs"].values():
            Draft202012Validator.check_schema(definition)

    def test_every_method_that_takes_a_struct_has_its_schemas(self):
        described = [method["name"] for method in self.proxy.zyr.describe()["methods"]]
        definitions = schema.document()["$defs"]
        self.assertEqual(sorted(described),
                         sorted(name.removesuffix(".request") for name in definitions if name.endswith(".request")))
        self.assertEqual(sorted(described),
                         sorted(name.removesuffix(".response") for name in definitions if name.endswith(".response")))

    def test_examples_are_allowed(self):
        for method in self.proxy.zyr.describe()["methods"]:
            with self.subTest(method["name"]):
                schema.validator(method["name"] + ".request").validate(
                    {field["name"]: field["example"] for field in method["request"] if "example" in field})

    def test_schemas_refuse_what_the_node_refuses(self):
        for request, refusal in (({"channelId": 1}, "2 eTI_E_REQUIRED_INPUT_MISSING"),
                                 ({"channelId": 3, "enable": True}, "3 eTI_E_PARAMETER_INVALID"),
                                 ({"channelId": 1, "enable": "on"}, "3 eTI_E_PARAMETER_TYPE_INVALID"),
                                 ({"channelId": 1, "enable": True, "more": 1}, "3 eTI_E_PARAMETER_INVALID")):
            with self.subTest(request):
                self.assertTrue(self.fault_of(self.proxy.CRI.EnableAcm, request).startswith(refusal))
                with self.assertRaises(ValidationError):
                    schema.check_request("CRI.EnableAcm", (request,))

    def test_answers_are_held_against_the_schemas(self):
        request = {"channelId": 1, "enable": True}
        calls = [{"methodName": "CRI.EnableAcm", "params": [request]}]
        schema.check_answer("CRI.EnableAcm", (request,), {"tiResult": 0})
        for answer in ({}, {"tiResult": 0x8000}, {"tiResult": "eTI_S_OK"}, {"tiResult": 0, "more": 1}):
            with self.subTest(answer):
                with self.assertRaises(ValidationError):
                    schema.check_answer("CRI.EnableAcm", (request,), answer)
                with self.assertRaises(ValidationError):
                    schema.check_answer("system.multicall", (calls,), [[answer]])

    def test_calls_are_held_against_the_schemas(self):
        body = xmlrpc.client.dumps(({"channelId": 1},), "CRI.EnableAcm")
        with self.assertRaises(ValidationError):
            schema.check(body, {"tiResult": 0})
        with self.assertRaises(ValidationError):
            schema.check(body, {}, is_plain=False)
        schema.check(body, {"tiResult": 0}, is_plain=False)

    def test_channels_are_those_of_the_node(self):
        one = subprocess.run([PROGRAM, "--channels", "1", "--print-schema"], capture_output=True, text=True,
                             check=True).stdout
        self.assertIn('"maximum": 1,', one)
