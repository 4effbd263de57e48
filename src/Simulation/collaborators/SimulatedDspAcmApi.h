#pragma once

#include "IDspAcmApi.h"
#include "SimulatedCollaborator.h"

#include <vector>

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kDspAcmApiOperations{"IDspAcmApi", "setAcmRlpControl", "setAcmMode",
                                                             "getAcmMode"};

/// Adaptive modulation inside the DSP of a channel: keeps what it is given.
class SimulatedDspAcmApi final : public SimulatedCollaborator<IDspAcmApi, kDspAcmApiOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    zyr_top_api::ETIResult setAcmRlpControl(zyr_top_api::AcmRlpControl control) override;
    zyr_top_api::ETIResult setAcmMode(zyr_top_api::AcmMode mode,
                                      zyr_top_api::AcmModePosition position) override;
    zyr_top_api::ETIResult getAcmMode(zyr_top_api::AcmMode& mode,
                                      zyr_top_api::AcmModePosition& position) override;

    /// The SNIR, in tenths of a dB, that each modulation of the channel's range needs, the most robust first.
    std::vector<zyr_top_api::AcmThreshold> getAcmThresholds() override;

    /// `IAcmHandler::enableAcm` fails so often.
    void injectEnableFailure(unsigned counter) override;

    /// `IAcmHandler::setFarEndPmaxCapability`, on which the thresholds depend, fails so often.
    void injectThresholdFailure(unsigned counter) override;
};

} // namespace zyr_simulation
