#pragma once

#include "ILoopController.h"
#include "SimulatedCollaborator.h"

#include <string>
#include <vector>

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kLoopControllerOperations{"ILoopController", "getLoops", "setLoop"};

/// The loops of the node: "IfLoop1" and, where the radio type has one, "RfLoop1", and the same for channel 2.
/// A closed loop brings the channel's own signal back, cuts the far end off and raises the alarm
/// "LoopClosed".
class SimulatedLoopController final
    : public SimulatedCollaborator<nord::zyr::loops::ILoopController, kLoopControllerOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    ResultCode getLoops(std::vector<zyr_top_api::LoopStatePair>& loops) override;
    ResultCode setLoop(const std::string& loopName, bool closed) override;

  private:
    struct Loop
    {
        std::string name;
        bool& isClosed;
    };

    std::vector<Loop> loopsOfNode() const;
};

} // namespace zyr_simulation
