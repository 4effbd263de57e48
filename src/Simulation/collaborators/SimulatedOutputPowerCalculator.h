#pragma once

#include "IOutputPowerCalculator.h"
#include "SimulatedCollaborator.h"

#include <map>

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kOutputPowerCalculatorOperations{
    "IOutputPowerCalculator", "setPowerCutBack", "setBooster", "setTemporaryMaxPowerCutback",
    "getMaxOutputPower"};

/// The output powers that a channel can have, in tenths of a dBm.
class SimulatedOutputPowerCalculator final
    : public SimulatedCollaborator<IOutputPowerCalculator, kOutputPowerCalculatorOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    ESPCResult setPowerCutBack(unsigned availableMaxPowerCutback) override;

    /// Fails if a booster is present and the radio type can't have one, or its greatest modulation is none.
    ESPCResult setBooster(int presence, int gain, int maxInputPower,
                          zyr_top_api::Modulation maxModulation) override;
    zyr_top_api::ETIResult setTemporaryMaxPowerCutback(bool set, int cutback) override;

    /// Gives the modulations of the frame that lie in the range. Answers 0x800A for a frame that isn't known,
    /// and refuses a range that is none. The reference class makes no difference.
    zyr_top_api::ETIResult
    getMaxOutputPower(int radioFrameId, zyr_top_api::ModulationAndCoding min,
                      zyr_top_api::ModulationAndCoding max, zyr_top_api::ReferenceSec referenceSec,
                      int& minPower, std::map<zyr_top_api::ModulationAndCoding, int>& maxPower) override;
};

} // namespace zyr_simulation
