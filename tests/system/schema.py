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


def _resolved(schema):
    """The schema itself, or what it refers to."""
    while "$ref" in schema:
        schema = document()["$defs"][schema["$ref"].rsplit("/", 1)[-1]]
    return schema


def _plain(value, schema):
    """The value as its schema tells it; some clients can't: a member that is nil counts as left out, 0 and 1 as
    booleans, an empty array as an empty struct."""
    schema = _resolved(schema)
    kind = schema.get("type")
    if kind == "boolean" and value in (0, 1):
        return bool(value)
    if kind == "object" and value == []:
        return {}
    if isinstance(value, dict):
        members = schema.get("properties", {})
        return {name: _plain(member, members.get(name, {})) for name, member in value.items() if member is not None}
    if isinstance(value, list):
        return [_plain(element, schema.get("items", {})) for element in value]
    return value


def check_request(method, params):
    """Holds what a method took against its schema."""
    name = method + ".request"
    if validator(name) is not None:
        _check(name, json.dumps(_plain(params[0] if params else {}, document()["$defs"][name])))


def check_answer(method, params, value):
    """Holds what a method gave against its schema."""
    if validator(method + ".response") is not None:
        _check(method + ".response", json.dumps(value))
    elif method == "system.multicall":
        for call, outcome in zip(params[0], value, strict=True):
            if isinstance(outcome, list):
                check_request(call["methodName"], call["params"])
                check_answer(call["methodName"], call["params"], outcome[0])


def check(request_body, value, is_plain=True):
    """Holds a call that brought a value against the schemas of its method.

    A request that isn't plain, one written by hand, may say what it says in other ways than its schema tells.
    Raises `jsonschema.ValidationError` if the node has taken or given what the schemas don't allow.
    """
    params, method = xmlrpc.client.loads(request_body)
    if is_plain:
        check_request(method, params)
    check_answer(method, params, value)
