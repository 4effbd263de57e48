#pragma once

#include "IFrequencyController.h"
#include "SimulatedCollaborator.h"

#include <cstdint>

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kFrequencyControllerOperations{"IFrequencyController",
                                                                       "setTxFrequency", "setRxFrequency"};

/// The radio frequencies of a channel. Frequencies that the radio type can't be set to are refused.
class SimulatedFrequencyController final
    : public SimulatedCollaborator<IFrequencyController, kFrequencyControllerOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    EFCResult setTxFrequency(unsigned frequency_kHz, int) override;
    EFCResult setRxFrequency(unsigned frequency_kHz, int) override;
    std::int32_t getTxFrequency() override;
    std::int32_t getRxFrequency() override;
};

} // namespace zyr_simulation
