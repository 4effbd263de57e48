#pragma once

#include "NodeDescription.h"

namespace zyr_ctl::test
{

/// A command with a field of each type, as a node describes it.
inline CommandDescription exampleCommand()
{
    return readCommand(Value::parse(R"({
        "name": "CRI.Example", "help": "Does an example.", "test": true, "longPoll": true,
        "disturbsTraffic": true,
        "request": [
            {"name": "channelId", "type": "int", "minimum": 1, "maximum": 2, "help": "radio channel", "required": true},
            {"name": "enable", "type": "boolean", "help": "", "required": false},
            {"name": "mode", "type": "int", "minimum": 0, "maximum": 255, "help": "the mode", "required": false,
             "texts": [{"number": 0, "text": "Off"}, {"number": 1, "text": "Fixed rate"}]},
            {"name": "power", "type": "double", "unit": "dBm", "help": "", "required": false},
            {"name": "mac", "type": "string", "form": "aa:bb:cc:dd:ee:ff", "help": "", "required": false},
            {"name": "masterKey", "type": "int", "minimum": 1, "maximum": 9, "isSecret": true, "help": "", "required": false},
            {"name": "config", "type": "struct", "help": "", "required": false, "fields": [
                {"name": "switchMode", "type": "int", "minimum": 0, "maximum": 3, "help": "", "required": true}]},
            {"name": "loops", "type": "array", "help": "", "required": false, "element": {
                "type": "struct", "fields": [
                    {"name": "loopName", "type": "string", "help": "", "required": true},
                    {"name": "closed", "type": "boolean", "help": "", "required": true}]}}],
        "response": [
            {"name": "mode", "type": "int", "help": "", "required": true,
             "texts": [{"number": 0, "text": "Off"}, {"number": 1, "text": "Fixed rate"}]},
            {"name": "power", "type": "double", "unit": "dBm", "help": "", "required": true},
            {"name": "levels", "type": "array", "unit": "0.1 dB", "help": "", "required": true, "element": {"type": "int"}},
            {"name": "events", "type": "array", "help": "", "required": true, "element": {
                "type": "struct", "fields": [
                    {"name": "name", "type": "string", "help": "", "required": true},
                    {"name": "level", "type": "double", "unit": "dBm", "help": "", "required": true}]}}],
        "faults": [{"result": "eTI_E_FAILED", "faultCode": 4, "text": "it failed", "meaning": "The DSP refused."}]
    })"));
}

} // namespace zyr_ctl::test
