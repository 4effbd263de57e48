#pragma once

#include "Description.h"

#include <cstdint>
#include <string>

namespace zyr_registration
{

/// A method as data, for programs that write help, complete input or convert values: `name`, `help`, `test`
/// (refused while the test family is closed), `longPoll`, `disturbsTraffic`, `request` and `response` (arrays
/// of fields), `faults` (array of structs of `result`, `faultCode`, `text`, `meaning`).
///
/// A field has `name`, `type`, `help`, `required`, and where it applies `unit`, `minimum` and `maximum`,
/// `texts` (array of structs of `number` and `text`), `form`, `isChannel`, `isSecret`, `fields` (of a struct)
/// and `element` (of an array: like a field without a name).
/// @param numberOfChannels  the radio channels of the node
Value describe(const MethodNotes& method, std::uint32_t numberOfChannels);

/// The same as plain text, for people.
std::string helpText(const MethodNotes& method, std::uint32_t numberOfChannels);

/// The reference of all commands, in Markdown.
std::string referenceMarkdown();

} // namespace zyr_registration
