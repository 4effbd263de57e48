#pragma once

#include "IDspAcmApi.h"
#include "SimulatedCollaborator.h"

#include <vector>

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kDspAcmApiOperations{"IDspAcmApi", "setAcmRlpControl", "setAcmMode",
                                                             "getAcmMode"};

/// Adaptive modulation inside the DSP of a channel. The hop follows the mode and the control that are set.
class SimulatedDspAcmApi final : public SimulatedCollaborator<IDspAcmApi, kDspAcmApiOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    /// StandbyTx takes the transmit direction to the least modulation.
    zyr_top_api::ETIResult setAcmRlpControl(zyr_top_api::AcmRlpControl control) override;

    /// Passive holds the modulations in force, Basic the least one; any other mode moves with the hop.
    zyr_top_api::ETIResult setAcmMode(zyr_top_api::AcmMode mode,
                                      zyr_top_api::AcmModePosition position) override;
    zyr_top_api::ETIResult getAcmMode(zyr_top_api::AcmMode& mode,
                                      zyr_top_api::AcmModePosition& position) override;

    /// The modulations of the channel's range, the most robust first, each with the SNIR in tenths of a dB
    /// below which the receiver leaves it.
    std::vector<zyr_top_api::AcmThreshold> getAcmThresholds() override;

    /// `IAcmHandler::enableAcm` fails so often.
    void injectEnableFailure(unsigned counter) override;

    /// `IAcmHandler::setFarEndPmaxCapability`, on which the thresholds depend, fails so often.
    void injectThresholdFailure(unsigned counter) override;
};

} // namespace zyr_simulation
