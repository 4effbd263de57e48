#pragma once

#include "Missing.h"

#include <cstdint>

namespace zyr_top_api
{

/// What a collaborator hands out and a command can't do without.
/// @param channel  the collaborator's, for the exception
/// @throws std::out_of_range naming the part and the channel, if it is null
template <class Part>
Part& required(Part* part, std::uint32_t channel)
{
    if (part == nullptr) {
        throwMissing(typeName<Part>(), channel);
    }
    return *part;
}

} // namespace zyr_top_api
