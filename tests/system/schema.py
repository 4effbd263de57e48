"""The schemas that the node tells of its methods, and calls held against them."""

import functools
import json
import os
import subprocess
import xmlrpc.client

from jsonschema import Draft202012Validator

PROGRAM = os.environ["ZYRNODE"]


@functools.cache
def document():
    """All that the node tells."""
    told = subprocess.run([PROGRAM, "--print-schema"], capture_output=True, text=True, check=True).stdout
    return json.loads(told)


@functools.cache
def validator(name):
    """What validates against one of the schemas; None if there is none of this name."""
    if name not in document()["$defs"]:
        return None
    return Draft202012Validator({**document(), "$ref": f"#/$defs/{name}"})


@functools.cache
def _check(name, text):
    """Equal values are validated once."""
    validator(name).validate(json.loads(text))


def _plain(value):
    """The value without members that are nil, which count as left out."""
    if isinstance(value, dict):
        return {name: _plain(member) for name, member in value.items() if member is not None}
    if isinstance(value, list):
        return [_plain(element) for element in value]
    return value


def check_call(method, params, value):
    """Holds what a method took and what it gave against its schemas."""
    if validator(method + ".request") is not None:
        _check(method + ".request", json.dumps(_plain(params[0] if params else {})))
        _check(method + ".response", json.dumps(value))
    elif method == "system.multicall":
        for call, outcome in zip(params[0], value, strict=True):
            if isinstance(outcome, list):
                check_call(call["methodName"], call["params"], outcome[0])


def check(request_body, value):
    """Holds a call and its answer against the schemas of its method.

    Raises `jsonschema.ValidationError` if the node has taken or given what they don't allow.
    """
    params, method = xmlrpc.client.loads(request_body)
    check_call(method, params, value)
