#pragma once

#include "Value.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// What a node tells of its commands. Only NodeDescription.cpp knows how it is spelt on the wire.

namespace zyr_ctl
{

using zyr_gateway::Value;

/// The shapes that a field can have.
enum class FieldType
{
    Boolean,
    Integer, ///< enumerations too
    Double,
    String,
    Array,
    Struct,
    Other, ///< a newer node may have more types; such values pass unchecked
};

/// One text of an enumeration.
struct EnumText
{
    std::int64_t number;
    std::string text;
};

/// One field of a request or a response, or an element of an array, which has no name.
struct FieldDescription
{
    std::string name;
    FieldType type = FieldType::Other;
    std::int64_t minimum = INT64_MIN; ///< of an integer
    std::int64_t maximum = INT64_MAX; ///< of an integer
    std::vector<EnumText> texts;      ///< of an enumeration
    std::string form;                 ///< of a string that isn't free text, such as "aa:bb:cc:dd:ee:ff"
    std::vector<std::string> values;  ///< of a string: those that it can be, or that are of use
    std::string unit;
    std::vector<EnumText> noValues; ///< numbers that are no value, and why there is none
    std::string help;
    bool isRequired = false;
    std::optional<Value> example;          ///< of a request: a value that serves on the simulated node
    bool isSecret = false;                 ///< its value is shown nowhere
    std::vector<FieldDescription> fields;  ///< of a struct
    std::vector<FieldDescription> element; ///< of an array: exactly one, else none
};

/// A fault that a command can give.
struct FaultDescription
{
    std::int64_t code = 0;
    std::string result;
    std::string text;
    std::string meaning;
};

/// One command of the node.
// NOLINTNEXTLINE(bugprone-exception-escape): judges the move of a JSON value, which does not throw
struct CommandDescription
{
    std::string name;
    std::string help;
    std::string group;                    ///< what it touches; empty if the node doesn't tell
    bool isTest = false;                  ///< refused while the test family is closed
    bool isLongPoll = false;              ///< answers when there is something to report
    bool disturbsTraffic = false;         ///< people should be asked before it runs
    std::string nodeOptions;              ///< of zyrnode, with which its example serves
    std::string before;                   ///< the command whose example has to run before its own
    std::chrono::milliseconds longest{0}; ///< from its start to its answer; 0: not told
    std::vector<FieldDescription> request;
    std::vector<FieldDescription> response;
    std::vector<FaultDescription> faults;
    Value original; ///< as the node gave it
};

/// The method that describes commands: without a parameter it answers with a struct of an array of all that
/// there are, `methods`, and their `hash`; with the name of a method with this one alone; a fault if the
/// method has no description.
inline constexpr std::string_view kDescribeMethod = "zyr.describe";

/// Reads the description of one command.
/// @throws Failure (protocol) if it is none
CommandDescription readCommand(const Value& description);

/// Reads the descriptions of all commands, in the node's order.
/// @throws Failure (protocol) if they are none
std::vector<CommandDescription> readCommands(const Value& descriptions);

/// Whether the range of an integer is narrower than that of any type.
bool hasRangeOfItsOwn(const FieldDescription& field);

/// The field with this name, case included; null if there is none.
const FieldDescription* findField(const std::vector<FieldDescription>& fields, std::string_view name);

/// The names of fields, in their order.
std::vector<std::string> namesOf(const std::vector<FieldDescription>& fields);

} // namespace zyr_ctl
