#pragma once

#include "Description.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace zyr_registration
{

/// A method that takes plain parameters instead of a struct, such as the introspection methods of a server.
struct PlainMethodNotes
{
    std::string_view name;
    std::string_view help;
    /// The ways to call it, each the types of the result and of the parameters as XML-RPC calls them, with
    /// blanks between them: "array string". The empty ones don't count.
    std::array<std::string_view, 2> signatures;
};

/// A method as data, for programs that write help, complete input, convert values, draw or cache: `name`,
/// `help`, `group`, `test` (refused while the test family is closed), `longPoll`, `readOnly`,
/// `disturbsTraffic`, `longest_ms` (from its start to its answer; of no long poll), `needs` (if its example
/// needs more than a simulated node that has just started: a struct of `options`, those of `zyrnode`, and
/// `before`, a method whose example has to run before; empty if there is none), `request` and `response`
/// (arrays of fields), `faults` (array of structs of `result`, `faultCode`, `text`, `meaning`; "<n>" and the
/// like in a text stand for what differs from call to call).
///
/// A field has `name`, `type`, `help`, `required` (of a response: always there), and where it applies
/// - of a number: `minimum` and `maximum`, `isChannel`, `unit` (none for a count or a code; "0.1 dBm" is an
///   optional factor and what is counted), `texts` (array of structs of `number` and `text`), `noValues` (the
///   same, for numbers that are no value);
/// - of a string: `form`, `values` (array of all that it can be);
/// - of both: `vocabulary` (name of the enumeration that `texts` or `values` are the texts of);
/// - of a struct `fields`, of an array `element` (like a field without a name);
/// - in a request: `default` (when left out), `example`, `changes` (another value than the default makes a
///   `readOnly` method change something);
/// - `isSecret`.
/// @param numberOfChannels  the radio channels of the node
Value describe(const MethodNotes& method, std::uint32_t numberOfChannels);

/// A request that serves on the simulated node: its required fields, and others that have an example.
/// @param numberOfChannels  the radio channels of the node
Value exampleRequest(const MethodNotes& method, std::uint32_t numberOfChannels);

/// A hash of descriptions, 16 hexadecimal digits: another one as soon as anything in them differs.
std::string hashOf(const Value& descriptions);

/// The same as plain text, for people.
std::string helpText(const MethodNotes& method, std::uint32_t numberOfChannels);

/// The reference of all commands and of other methods, in Markdown.
std::string referenceMarkdown(std::span<const MethodNotes> otherMethods = {},
                              std::span<const PlainMethodNotes> plainMethods = {});

} // namespace zyr_registration
