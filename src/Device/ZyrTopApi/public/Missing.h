#pragma once

#include "Export.h"

#include <cstdint>
#include <string_view>

namespace zyr_top_api
{

/// The name of a type without its namespaces, as the compiler spells it.
template <class Type>
consteval std::string_view typeName()
{
    // "... typeName() [with Type = nord::zyr::pps::IPpsController; ...]"
    std::string_view text = __PRETTY_FUNCTION__;
    constexpr std::string_view kFront = "Type = ";
    text.remove_prefix(text.find(kFront) + kFront.size());
    text = text.substr(0, text.find_first_of(";]"));
    return text.substr(text.rfind(':') + 1);
}

/// Tells of a collaborator that a command needs and doesn't have: "IAcmHandler of radio channel 2".
/// @throws std::out_of_range always
[[noreturn]] ZYR_EXPORT void throwMissing(std::string_view what, std::uint32_t channel);

/// The same of one that the whole node has: "IRouteUpdater of the node".
/// @throws std::out_of_range always
[[noreturn]] ZYR_EXPORT void throwMissing(std::string_view what);

} // namespace zyr_top_api
