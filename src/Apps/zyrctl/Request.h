#pragma once

#include "NodeDescription.h"

#include <optional>
#include <string>
#include <vector>

// Parameters of calls, made of what stands on the command line. Pure functions; all throw Failure (usage).

namespace zyr_ctl
{

/// The parameters of a command that the node describes, checked against the description. Assignments win over
/// members of the data.
/// @param data         an object with the members of the request, if given
/// @param assignments  words like "enable=true" and "rauMultiTrxConfig.ifSwitchMode=1"
/// @return no parameter for a command without fields, else one struct
std::vector<Value> checkedParams(const CommandDescription& command, const std::optional<Value>& data,
                                 const std::vector<std::string>& assignments);

/// The parameters of a method that the node doesn't describe. A value is what it is as JSON, else a string.
/// @param data   an object, to which assignments are added, or an array of all parameters
/// @param words  assignments, which make one struct, or values, each a parameter
/// @return no parameter if nothing is given
std::vector<Value> uncheckedParams(const std::optional<Value>& data, const std::vector<std::string>& words);

} // namespace zyr_ctl
