#pragma once

#include <stdexcept>

namespace zyr_top_api
{

/// What a collaborator hands out and a command can't do without. @throws std::out_of_range if it is null
template <class Part>
Part& required(Part* part)
{
    if (part == nullptr) {
        throw std::out_of_range("a collaborator doesn't hand out the part that the command needs");
    }
    return *part;
}

} // namespace zyr_top_api
