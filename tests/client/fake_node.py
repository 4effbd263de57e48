"""A node for the client's tests: a stock XML-RPC server with a few commands and their descriptions."""

import base64
import socket
import threading
import xmlrpc.client
import xmlrpc.server

CHANNEL = {"name": "channelId", "type": "int", "minimum": 1, "maximum": 2, "isChannel": True,
           "help": "radio channel", "required": True}

ENABLE_ACM = {
    "name": "CRI.EnableAcm", "help": "Switches ACM of a radio channel on or off.", "test": False,
    "longPoll": False, "disturbsTraffic": True,
    "request": [CHANNEL, {"name": "enable", "type": "boolean", "help": "true switches ACM on", "required": True}],
    "response": [],
    "faults": [{"result": "eTI_E_INVALID_ARGUMENT", "faultCode": 2, "text": "RadioChannelID out of bounds",
                "meaning": "The node has no such radio channel."}]}

STATUS = {
    "name": "CRI.GetStatus", "help": "Reads the status of a radio channel.", "test": False,
    "longPoll": False, "disturbsTraffic": False,
    "request": [CHANNEL],
    "response": [
        {"name": "acmMode", "type": "int", "minimum": 0, "maximum": 3, "help": "", "required": True,
         "texts": [{"number": 0, "text": "Off"}, {"number": 1, "text": "Fixed rate"}]},
        {"name": "power", "type": "double", "unit": "dBm", "help": "output power", "required": True},
        {"name": "events", "type": "array", "help": "", "required": False, "element": {
            "type": "struct", "fields": [
                {"name": "eventName", "type": "string", "help": "", "required": True},
                {"name": "count", "type": "int", "help": "", "required": True}]}}],
    "faults": []}

SET_MODE = {
    "name": "CRI.SetAcmMode", "help": "Sets the ACM mode.", "test": False, "longPoll": False,
    "disturbsTraffic": False,
    "request": [
        CHANNEL,
        {"name": "acmMode", "type": "int", "minimum": 0, "maximum": 255, "help": "mode", "required": True,
         "texts": [{"number": 0, "text": "Off"}, {"number": 1, "text": "Fixed rate"}]},
        {"name": "config", "type": "struct", "help": "", "required": False, "fields": [
            {"name": "ifSwitchMode", "type": "int", "minimum": 0, "maximum": 255, "help": "", "required": False}]},
        {"name": "loops", "type": "array", "help": "", "required": False,
         "element": {"type": "int", "minimum": 0, "maximum": 9}}],
    "response": [], "faults": []}

SET_KEY = {
    "name": "CRI.SetKey", "help": "Sets the key.", "test": False, "longPoll": False, "disturbsTraffic": False,
    "request": [{"name": "masterKey", "type": "string", "help": "", "required": True, "isSecret": True}],
    "response": [], "faults": []}

TI_EVENTS = {"name": "TI.GetEvents", "help": "Reads events.", "group": "events", "test": True,
             "longPoll": False, "disturbsTraffic": False, "request": [], "response": [], "faults": []}

LONG_POLL = {"name": "CI.GetFastEvents", "help": "Waits for events.", "test": False, "longPoll": True,
             "disturbsTraffic": False, "request": [], "response": [], "faults": []}

DESCRIPTIONS = [LONG_POLL, ENABLE_ACM, STATUS, SET_MODE, SET_KEY, TI_EVENTS]


LOOPS = {"name": "CI.ManageLoops", "help": "Reads and sets loops.", "request": [], "response": []}

ACM_MODE = {
    "name": "CRI.GetAcmMode", "help": "Reads the ACM mode.", "request": [CHANNEL],
    "response": [{"name": "acmMode", "type": "int",
                  "texts": [{"number": 0, "text": "Active"}, {"number": 1, "text": "Passive"}]},
                 {"name": "acmModePosition", "type": "string"}]}

CHANNEL_STATUS = {
    "name": "CRI.GetRadioChannelStatus", "help": "Reads the status of a radio channel.", "request": [CHANNEL],
    "response": [
        {"name": "ActualRFInputPower", "type": "int", "unit": "0.1 dBm", "noValues": [{"number": -99, "text": "none yet"}]},
        {"name": "ReportedRFOutputPower", "type": "int", "unit": "0.1 dBm"},
        {"name": "ActualSNIR", "type": "int", "unit": "0.1 dB"},
        {"name": "TxFrequency", "type": "int", "unit": "kHz"}, {"name": "RxFrequency", "type": "int", "unit": "kHz"},
        {"name": "HopLengthLatency", "type": "int", "unit": "ns"}]}

THRESHOLDS = {
    "name": "TI.GetAcmThresholds", "help": "Reads the thresholds.", "test": True, "request": [CHANNEL],
    "response": [{"name": "thresholds", "type": "array", "element": {"type": "struct", "fields": [
        {"name": "modulationAndCoding", "type": "int",
         "texts": [{"number": 31, "text": "4QAM"}, {"number": 81, "text": "256QAM"}]},
        {"name": "threshold", "type": "int", "unit": "0.1 dB"}]}}]}

CALIBRATION = {
    "name": "CRI.GetCalibrationStatusDspPps", "help": "Tells how the calibration stands.", "request": [CHANNEL],
    "response": [
        {"name": "ppsCalibStatus", "type": "int",
         "texts": [{"number": 1, "text": "CoarseInProgress"}, {"number": 2, "text": "FineInProgress"},
                   {"number": 3, "text": "Successful"}, {"number": 4, "text": "Failed"}]},
        {"name": "ppsCalibReasonOfFailure", "type": "int",
         "texts": [{"number": 0, "text": "NotRelevant"}, {"number": 7, "text": "SlaveLOL"}]}]}

HOP_LENGTH = {"name": "CRI.GetHopLengthTimeDspPps", "help": "Gives the hop length time.", "request": [CHANNEL],
              "response": [{"name": "ppsHopLengthTime", "type": "int", "unit": "ns"}]}

STATE = {
    "name": "SIM.GetState", "help": "Shows the state.", "request": [],
    "response": [{"name": "channels", "type": "array", "element": {"type": "struct", "fields": [
        {"name": "number", "type": "int"},
        {"name": "pps", "type": "struct", "fields": [
            {"name": "source", "type": "int", "texts": [{"number": 0, "text": "Internal"}, {"number": 1, "text": "External"}]},
            {"name": "offset_ns", "type": "int", "unit": "ns"},
            {"name": "outputMode", "type": "int", "texts": [{"number": 0, "text": "Off"}, {"number": 2, "text": "Auto"}]},
        ]}]}}]}

CLOCK = {"name": "TI.ManageRealTimeClock", "help": "Reads or sets the time.", "test": True,
         "request": [{"name": "dateTime", "type": "string", "required": False}],
         "response": [{"name": "dateTime", "type": "string"}]}

ALL_TYPES = {
    "name": "CRI.SetAll", "help": "Sets all.",
    "request": [
        {"name": "gain", "type": "double", "required": True}, {"name": "label", "type": "string", "required": True},
        {"name": "code", "type": "string", "form": "AA-00", "required": False},
        {"name": "level", "type": "int", "minimum": -5, "maximum": 9, "required": False},
        {"name": "names", "type": "array", "required": False},
        {"name": "when", "type": "dateTime", "required": False},
        {"name": "config", "type": "struct", "required": False, "fields": [
            {"name": "step", "type": "int", "minimum": 0, "maximum": 9, "required": True}]}],
    "response": []}

# In the place of an answer: the connection ends without one, or the call hangs until the node ends.
DROP = object()
HANG = object()


class Handler(xmlrpc.server.SimpleXMLRPCRequestHandler):
    rpc_paths = ("/RPC2",)

    def log_message(self, *_):
        pass

    def do_POST(self):
        wanted = self.server.login
        given = self.headers.get("Authorization", "")
        if wanted and given != "Basic " + base64.b64encode(wanted.encode()).decode():
            self.send_response(401)
            self.send_header("Content-Length", "0")
            self.end_headers()
            return
        super().do_POST()


class FakeNode(xmlrpc.server.SimpleXMLRPCServer):
    """Serves on a port of its own while the `with` block runs, and keeps the calls of commands."""

    def __init__(self, login=None, tls=None):
        super().__init__(("127.0.0.1", 0), Handler, logRequests=False, allow_none=True)
        self.login = login
        self.calls = []
        self.answers = {}
        self.descriptions = list(DESCRIPTIONS)
        self.leaving = threading.Event()
        self.connection = None
        scheme = "http"
        if tls:
            scheme = "https"
            self.socket = tls.wrap_socket(self.socket, server_side=True)
        self.url = f"{scheme}://127.0.0.1:{self.server_address[1]}/RPC2"
        self.register_introspection_functions()
        self.register_function(self.describe, "zyr.describe")
        for description in DESCRIPTIONS:
            self.add_command(description["name"])
        self.register_function(self.state, "SIM.GetState")

    def add_described(self, description, *answers):
        self.descriptions.append(description)
        self.add_command(description["name"])
        self.answers[description["name"]] = list(answers)

    def process_request(self, request, client_address):
        self.connection = request
        super().process_request(request, client_address)

    def handle_error(self, *_):
        """The client may leave, and so may the node."""

    def add_command(self, name):
        def command(*params):
            self.calls.append((name, list(params)))
            answers = self.answers.get(name, [{"tiResult": 0}])
            answer = answers.pop(0) if len(answers) > 1 else answers[0]
            if isinstance(answer, Exception):
                raise answer
            if answer is DROP:
                self.connection.shutdown(socket.SHUT_RDWR)
            if answer is HANG:
                self.leaving.wait()
                raise xmlrpc.client.Fault(4, "CI.GetFastEvents has been terminated")
            return answer
        self.register_function(command, name)

    def state(self, *params):
        """Reads the state."""
        self.calls.append(("SIM.GetState", list(params)))
        return ["one", 2]

    def describe(self, *names):
        if not names:
            return {"hash": "00", "methods": self.descriptions}
        if names[0] not in self.funcs:
            raise xmlrpc.client.Fault(2, f"eTI_E_METHOD_UNKNOWN: {names[0]}")
        for description in self.descriptions:
            if description["name"] == names[0]:
                return description
        raise xmlrpc.client.Fault(3, f"eTI_E_PARAMETER_INVALID: {names[0]} takes no struct")

    def __enter__(self):
        self.thread = threading.Thread(target=self.serve_forever, args=(0.01,))
        self.thread.start()
        return self

    def __exit__(self, *_):
        self.leaving.set()
        self.shutdown()
        self.thread.join()
        self.server_close()


class RawServer:
    """Takes connections and answers each with the same bytes, or, with None, never."""

    def __init__(self, answer):
        self.answer = answer
        self.socket = socket.create_server(("127.0.0.1", 0))
        self.url = f"http://127.0.0.1:{self.socket.getsockname()[1]}/RPC2"

    def serve(self):
        kept = []
        try:
            while True:
                connection, _ = self.socket.accept()
                kept.append(connection)
                if self.answer is not None:
                    connection.recv(65536)
                    connection.sendall(self.answer)
                    connection.shutdown(socket.SHUT_WR)
        except OSError:
            for connection in kept:
                connection.close()

    def __enter__(self):
        self.thread = threading.Thread(target=self.serve)
        self.thread.start()
        return self

    def __exit__(self, *_):
        self.socket.shutdown(socket.SHUT_RDWR)
        self.thread.join()
        self.socket.close()
