#pragma once

#include "IIfLoopDriver.h"
#include "SimulatedCollaborator.h"

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kIfLoopDriverOperations{"IIfLoopDriver", "getIfLoop", "setIfLoop"};

/// The loop at intermediate frequency of a channel, the same one that the loop controller has.
class SimulatedIfLoopDriver final : public SimulatedCollaborator<IIfLoopDriver, kIfLoopDriverOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    int getIfLoop(unsigned char& ifLoop) override;
    int setIfLoop(bool on) override;
};

} // namespace zyr_simulation
