#pragma once

#include "CollaboratorResults.h"
#include "IInterface.h"
#include "LoopStatePair.h"

#include <string>
#include <vector>

namespace nord::zyr::loops
{

/// The loops of the node, published as "ILoopController". Called by `CiManageLoops`; results from 0x8000 are
/// failures.
class ZYR_EXPORT ILoopController : public IInterface
{
  public:
    /// Gives the state of all loops.
    virtual ResultCode getLoops(std::vector<zyr_top_api::LoopStatePair>& loops) = 0;

    /// Closes or opens one loop.
    /// @return 0x8008 exactly if there is no loop of that name, which has a text of its own.
    virtual ResultCode setLoop(const std::string& loopName, bool closed) = 0;
};

} // namespace nord::zyr::loops
