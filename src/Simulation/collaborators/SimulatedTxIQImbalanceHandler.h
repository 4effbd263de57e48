#pragma once

#include "ITxIQImbalanceHandler.h"
#include "SimulatedCollaborator.h"

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kTxIqImbalanceHandlerOperations{"ITxIQImbalanceHandler",
                                                                        "OnTxFrequencyChanged"};

/// Compensation of the transmitter's IQ imbalance of a channel: keeps the frequency that it was told last.
class SimulatedTxIQImbalanceHandler final
    : public SimulatedCollaborator<ITxIQImbalanceHandler, kTxIqImbalanceHandlerOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    EFHResult OnTxFrequencyChanged(unsigned frequency_kHz) override;
};

} // namespace zyr_simulation
