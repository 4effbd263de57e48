"""A zyrnode process for a test, and ways to reach it."""

import os
import signal
import socket
import subprocess
import tempfile
import threading
import unittest
import xmlrpc.client

import schema

PROGRAM = schema.PROGRAM

# What no test should have to wait for; long runs by hand take more.
PATIENCE = float(os.environ.get("ZYR_PATIENCE", "60"))

# The sanitizers' builds keep books and freed memory of their own.
looks_at_memory = unittest.skipIf(os.environ.get("ZYR_SANITIZE"), "a sanitizer holds memory of its own")


class TimeoutTransport(xmlrpc.client.Transport):
    """A transport that gives up in the end and lets no answer pass that the schemas don't allow."""

    def make_connection(self, host):
        connection = super().make_connection(host)
        connection.timeout = PATIENCE
        return connection

    def request(self, host, handler, request_body, verbose=False):
        """Makes a call, and holds it against the schema of its method, unless it ends in a fault."""
        answer = super().request(host, handler, request_body, verbose)
        schema.check(request_body, answer[0])
        return answer


class Node:
    """A running node. Ends with the `with` block."""

    def __init__(self, *options, listen="127.0.0.1:0"):
        self._proxies = []
        self._trace = tempfile.TemporaryFile()
        self.process = subprocess.Popen(
            [PROGRAM, "--listen", listen, *options], stdout=subprocess.PIPE, stderr=self._trace)
        self.first_line = self.process.stdout.readline().decode()
        if not self.first_line:
            self.process.wait(PATIENCE)
            raise RuntimeError("the node has not started: " + self.trace())
        self.url = self.first_line.removeprefix("listening on ").strip()
        self.port = int(self.url.rsplit(":", 1)[1].split("/")[0])

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.process.poll() is None:
            self.process.terminate()
        try:
            self.process.wait(10)
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.wait(PATIENCE)
        for proxy in self._proxies:
            proxy("close")()
        self.process.stdout.close()
        self._trace.close()

    def proxy(self, url=None):
        """A client of its own; one is used by one thread. Closed at the end of the node."""
        proxy = xmlrpc.client.ServerProxy(url or self.url, transport=TimeoutTransport(), allow_none=True)
        self._proxies.append(proxy)
        return proxy

    def trace(self):
        """All that the node has traced so far."""
        self._trace.seek(0)
        return self._trace.read().decode()

    def stop(self, signal_number=signal.SIGTERM):
        """Asks the node to stop and gives the status that it ends with."""
        self.process.send_signal(signal_number)
        return self.process.wait(PATIENCE)

    def wait_for_hanging(self, count):
        """Returns when so many long polls hang."""
        proxy = self.proxy()
        while proxy.SIM.GetState()["hangingLongPolls"] != count:
            pass

    def wait_for_refusal(self):
        """Returns when the node takes no more connections."""
        while True:
            try:
                socket.create_connection(("127.0.0.1", self.port), PATIENCE).close()
            except ConnectionError:
                return

    def raw(self, data):
        """Sends bytes over a connection of its own and gives all that comes back until it ends."""
        with socket.create_connection(("127.0.0.1", self.port), PATIENCE) as connection:
            try:
                connection.sendall(data)
                connection.shutdown(socket.SHUT_WR)
                return b"".join(iter(lambda: connection.recv(65536), b""))
            except ConnectionError:
                return b""

    def throw(self, data):
        """Sends bytes over a connection of its own and hangs up."""
        with socket.create_connection(("127.0.0.1", self.port), PATIENCE) as connection:
            try:
                connection.sendall(data)
            except ConnectionError:
                pass

    def post(self, body):
        """Posts a document and gives the answer's value; raises `xmlrpc.client.Fault`."""
        head = (f"POST /RPC2 HTTP/1.1\r\nHost: 127.0.0.1:{self.port}\r\nContent-Type: text/xml\r\n"
                f"Content-Length: {len(body)}\r\nConnection: close\r\n\r\n")
        answer = self.raw(head.encode() + body)
        if not answer.startswith(b"HTTP/1.1 200 "):
            raise AssertionError(f"answered with {answer[:200]}")
        (value,), _ = xmlrpc.client.loads(answer.split(b"\r\n\r\n", 1)[1])
        schema.check(body, value, is_plain=False)
        return value


class Call(threading.Thread):
    """A call on a thread of its own; `result` gives its value or its fault as text."""

    def __init__(self, function, *arguments):
        super().__init__(daemon=True)
        self._function = function
        self._arguments = arguments
        self._outcome = None
        self.start()

    def run(self):
        try:
            self._outcome = self._function(*self._arguments)
        except xmlrpc.client.Fault as fault:
            self._outcome = f"{fault.faultCode} {fault.faultString}"
        except Exception as error:  # told by the assertion that looks at the result
            self._outcome = error

    def result(self):
        self.join(PATIENCE)
        return self._outcome


def near_end_request(proxy, channel):
    """A configuration that the node can take: its first radio frame, at its lowest frequencies."""
    frames = proxy.CRI.GetAirInterfaceCapability({"RadioChannelID": channel, "ReleasedFilter": 2})
    request = {"RadioChannelID": channel, "radioFrameId": frames["FrameFormatCapabilities"][0]["RadioFrameID"],
               "minModulation": "4QAM", "maxModulation": "256QAM", "referenceSec": "4L"}
    able = proxy.CRI.GetRadioChannelCapability(request)
    return {**request, "txFrequency_kHz": able["MinTXFrequency"], "rxFrequency_kHz": able["MinRXFrequency"]}


def power_request(channel):
    """Lets the transmitter send."""
    return {"RadioChannelID": channel, "txRequestedStatus": "On", "targetRfInputPower": -400,
            "targetRfInputPowerFarEnd": -400, "minRfOutputPower": 0, "maxRfOutputPower": 150,
            "availableMaxPowerCutback": 0}


def wait_for_transmitter(proxy, channel):
    """Returns the channel's status when its transmitter is on."""
    while True:
        status = proxy.CRI.GetRadioChannelStatus({"RadioChannelID": channel})
        if status["TXActualStatus"] == "On":
            return status


class NodeTest(unittest.TestCase):
    """A test with a node of its own, started with `options`."""

    options = ()

    def setUp(self):
        self.node = self.enterContext(Node(*self.options))
        self.proxy = self.node.proxy()

    def fault_of(self, function, *arguments):
        """The fault of a call as "<code> <text>"."""
        with self.assertRaises(xmlrpc.client.Fault) as caught:
            function(*arguments)
        return f"{caught.exception.faultCode} {caught.exception.faultString}"
