#pragma once

#include <string>

namespace zyr_top_api
{

/// A loop of the node and its state.
struct LoopStatePair
{
    std::string loopName;
    bool closed = false; ///< True closed, false open.
};

} // namespace zyr_top_api
