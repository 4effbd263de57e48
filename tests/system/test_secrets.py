"""Keys of encrypted links, handed over in every way, turn up in nothing that node and client write."""

import json
import os
import random
import subprocess
import tempfile
import unittest
import xmlrpc.client
from xml.sax.saxutils import escape

from node_process import PATIENCE, NodeTest, looks_at_memory

ZYRCTL = os.environ["ZYRCTL"]
COMMAND = "CRI.SetRadioLinkEncryption"

# What is to be found nowhere: so many characters of a key, one behind the other.
RUN = 6

# Characters of one byte and of more, and those that XML, JSON and shells take for something else.
ALPHABETS = ("".join(map(chr, range(0x20, 0x7F))), "\t\n<>&\"'\\{}[]%$@=:;,.",
             "".join(map(chr, range(0x20, 0x7F))) + "".join(map(chr, range(0xA0, 0x100))) + "\t\n€Ω中🔑")


def forms(text):
    """The ways in which a text can stand in an output."""
    yield text
    yield escape(text)
    yield escape(text, {'"': "&quot;", "'": "&apos;"})
    yield json.dumps(text)[1:-1]
    yield json.dumps(text, ensure_ascii=False)[1:-1]
    yield repr(text)[1:-1]


def leaks(key, output):
    """The runs of a key that an output holds in any form."""
    runs = [key[start:start + RUN] for start in range(len(key) - RUN + 1)]
    return [run for run in runs if any(form in output for form in forms(run))]


def random_keys(count):
    seed = random.randrange(1_000_000)
    print(f"keys by seed {seed}", flush=True)
    source = random.Random(seed)
    lengths = [0, 1, 11, 12, 64, 65, 200] + [source.randrange(201) for _ in range(count - 7)]
    return ["".join(source.choices(source.choice(ALPHABETS), k=length)) for length in lengths]


class LeaksTest(unittest.TestCase):
    def test_six_characters_of_a_key_are_found_in_every_form_and_five_are_not(self):
        self.assertEqual(leaks("abcdefgh", "xx bcdefg xx"), ["bcdefg"])
        self.assertEqual(leaks("abcdefgh", "abcde cdefg"), [])
        self.assertEqual(leaks("ab<de&", "ab&lt;de&amp;"), ["ab<de&"])
        self.assertEqual(leaks('ab"d\ne', 'ab\\"d\\ne'), ['ab"d\ne'])
        self.assertEqual(leaks("ab€def", "ab\\u20acdef"), ["ab€def"])


class SecretsTest(NodeTest):
    uses_client = True
    options = ("--enable-ti", "--trace", "*=7")

    def setUp(self):
        super().setUp()
        self.home = self.enterContext(tempfile.TemporaryDirectory())

    def request(self, key, **changes):
        return {"channelId": 1, "masterKey": key, "txFrequency_kHz": 18700000, "rxFrequency_kHz": 19710000,
                "enableRle": True, **changes}

    def assert_hidden(self, key, output, way):
        self.assertEqual(leaks(key, output), [], f"{way} shows a part of the key {key!r}")

    def outcome(self, method, *params):
        """What a call gives back, be it a fault."""
        try:
            return str(getattr(self.proxy, method)(*params))
        except xmlrpc.client.Fault as fault:
            return f"{fault.faultCode} {fault.faultString}"

    def client(self, *words, stdin=""):
        """All that the client writes."""
        environment = {**os.environ, "ZYR_URL": self.node.url, "HOME": self.home}
        done = subprocess.run([ZYRCTL, *words], env=environment, capture_output=True, text=True, input=stdin,
                              timeout=PATIENCE, errors="replace")
        self.assertGreaterEqual(done.returncode, 0, "the client has crashed")
        return done.stdout + done.stderr

    def test_server_and_its_whole_trace_hide_every_key(self):
        for key in random_keys(60):
            request = self.request(key)
            wrong_types = [self.request(wrong) for wrong in ([key], {"key": key}, [[key]])]
            for number, params in enumerate([request, {**request, "enableRle": False}, {**request, "channelId": 9},
                                             {**request, "more": 1}, *wrong_types]):
                self.assert_hidden(key, self.outcome(COMMAND, params), f"the answer to request {number}")
            self.assert_hidden(key, self.outcome(COMMAND, request, request), "the answer to two parameters")
            self.assert_hidden(key, self.outcome("SIM.SetFarEndKey", {"channel": 1, "key": key}), "SIM.SetFarEndKey")
            self.assert_hidden(key, self.outcome("SIM.SetFarEndKey", {"channel": 1, "key": [key]}),
                               "the refusal of SIM.SetFarEndKey")
            self.assert_hidden(key, self.outcome("system.multicall", [{"methodName": COMMAND, "params": [request]}]),
                               "system.multicall")
            self.assert_hidden(key, self.outcome("SIM.GetState"), "the node's state")
            self.assert_hidden(key, self.broken_documents(request), "the answer to a broken document")
            self.assert_hidden(key, self.node.trace(), "the trace")
        self.assertGreaterEqual(self.node.trace().count(", masterKey: (hidden)"), 60, "nothing was traced")

    def broken_documents(self, request):
        """The answers to a request that is cut off, and to one with a wrong tag."""
        body = xmlrpc.client.dumps((request,), COMMAND).encode()
        answers = b""
        for broken in (body[:-30], body.replace(b"</string>", b"</int>"), body.replace(b"string>", b"int>"),
                       body.replace(b"string>", b"base64>"), body.replace(b"string>", b"boolean>")):
            head = (f"POST /RPC2 HTTP/1.1\r\nHost: here\r\nContent-Type: text/xml\r\n"
                    f"Content-Length: {len(broken)}\r\nConnection: close\r\n\r\n")
            answers += self.node.raw(head.encode() + broken)
        self.assertTrue(answers)
        return answers.decode(errors="replace")

    def test_client_hides_every_key(self):
        for key in random_keys(14):
            request = self.request(key)
            data = json.dumps(request)
            words = [f"{name}={json.dumps(value) if isinstance(value, bool) else value}"
                     for name, value in request.items()]
            ways = [("-v", COMMAND, "--yes", *words), (COMMAND, "--dry-run", *words),
                    ("--json", COMMAND, "--dry-run", *words), ("-v", "--json", COMMAND, "--yes", *words),
                    ("-v", COMMAND, "--yes", "--data", data),
                    ("--json", COMMAND, "--yes", "--data", json.dumps({**request, "channelId": 9})),
                    ("--json", COMMAND, "--yes", "--data", json.dumps({**request, "masterKey": [key]})),
                    (COMMAND, "--yes", "--data", json.dumps({**request, "masterKey": {"key": key}})),
                    (COMMAND, "--yes", "--data", data[:-1]),
                    ("--json", COMMAND, "--yes", *words, f"masterKey={key}"),
                    (COMMAND, "--yes", *words, f"masterKey.part={key}"),
                    (COMMAND, *words),
                    ("-v", "SIM.SetFarEndKey", "--yes", "channel=1", f"key={key}"),
                    ("__complete", f"zyrctl {COMMAND} masterKey={key} txF")]
            for way in ways:
                shown = " ".join(way).replace(data, "DATA").replace(key or "\0", "KEY")
                self.assert_hidden(key, self.client(*way), shown)
            self.assert_hidden(key, self.client("-v", COMMAND, "--yes", "--data", "@-", stdin=data), "--data @-")
            self.assert_hidden(key, self.node.trace(), "the trace")
        self.assertEqual(os.listdir(self.home), [], "the client keeps no history")

    def test_client_shows_that_something_is_hidden(self):
        shown = self.client("-v", COMMAND, "--yes", "--data", json.dumps(self.request("a key of this length")))
        self.assertIn("<name>masterKey</name><value>(hidden)</value>", shown)
        self.assertIn('"masterKey": "(hidden)"',
                      self.client("--json", COMMAND, "--dry-run", "--data",
                                  json.dumps(self.request("a key of this length"))))


@looks_at_memory
class MemoryTest(NodeTest):
    """What the node keeps of a key behind the call: nothing that is found in its memory."""

    options = ("--enable-ti", "--trace", "*=7")

    def memory(self):
        """All that the process can write to, as one text of bytes."""
        pieces = []
        with open(f"/proc/{self.node.process.pid}/maps") as maps, \
                open(f"/proc/{self.node.process.pid}/mem", "rb", buffering=0) as memory:
            for line in maps:
                addresses, access = line.split()[:2]
                start, end = (int(address, 16) for address in addresses.split("-"))
                if not access.startswith("rw") or end - start > 1 << 30:  # such as a sanitizer's books
                    continue
                try:
                    memory.seek(start)
                    pieces.append(memory.read(end - start))
                except OSError:  # a guard page, or gone meanwhile
                    pass
        return b"".join(pieces)

    def test_key_is_nowhere_in_the_memory_of_the_node_behind_the_call(self):
        source = random.Random()
        keys = ["".join(source.choices(ALPHABETS[0].replace("<", "").replace("&", ""), k=64)) for _ in range(8)]
        try:
            self.assertIn(b"CRI.SetRadioLinkEncryption", self.memory(), "the memory isn't looked at")
        except PermissionError:
            self.skipTest("the memory of other processes can't be read here")
        for number, key in enumerate(keys):
            with self.node.proxy() as proxy:
                proxy.CRI.SetRadioLinkEncryption({"channelId": 1, "masterKey": key, "txFrequency_kHz": 1,
                                                  "rxFrequency_kHz": 2, "enableRle": number % 2 == 0})
                proxy.SIM.SetFarEndKey({"channel": 2, "key": key})
        self.proxy.system.listMethods()
        memory = self.memory()
        for key in keys:
            for start in range(0, len(key), 8):
                self.assertNotIn(key[start:start + 8].encode(), memory, "a part of a key is left")


class FarEndKeyTest(NodeTest):
    def test_link_carries_nothing_until_the_keys_agree(self):
        key = "a key of this length"
        request = {"channelId": 1, "masterKey": key, "txFrequency_kHz": 14500000, "rxFrequency_kHz": 14920000,
                   "enableRle": True}
        self.assertEqual(self.proxy.CRI.SetRadioChannelNearEnd(
            {"RadioChannelID": 1, "radioFrameId": 102, "minModulation": "4QAM", "maxModulation": "256QAM",
             "referenceSec": "4L", "txFrequency_kHz": 14500000, "rxFrequency_kHz": 14920000,
             "ffConfigTypePresent": True, "FFConfigType": "Standard"}), {"tiResult": 0})
        self.assertEqual(self.status(), ("Up", 0))
        self.assertEqual(self.proxy.CRI.SetRadioLinkEncryption(request), {"tiResult": 0})
        self.assertEqual(self.status(), ("Up", 1))
        self.assertFalse(self.alarm())
        self.proxy.SIM.SetFarEndKey({"channel": 1, "key": "another key than that"})
        self.assertEqual(self.status(), ("Up", 1))
        self.assertTrue(self.alarm())
        self.proxy.SIM.SetFarEndKey({"channel": 1, "key": key})
        self.assertFalse(self.alarm())
        self.assertEqual(self.proxy.CRI.SetRadioLinkEncryption({**request, "masterKey": "", "enableRle": False}),
                         {"tiResult": 0})
        self.assertEqual(self.status(), ("Up", 0))
        self.assertTrue(self.alarm(), "the far end still encrypts")

    def status(self):
        status = self.proxy.CRI.GetRadioChannelStatus({"RadioChannelID": 1})
        return status["RadioChannelStatus"], status["RleStatus"]

    def alarm(self):
        return any(event["eventName"] == "EncryptionKeyMismatch" and event["isActive"]
                   for event in self.proxy.CI.GetEvents()["events"])
