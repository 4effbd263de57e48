#pragma once

#include "IAcmHandler.h"
#include "SimulatedCollaborator.h"

#include <map>

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kAcmHandlerOperations{"IAcmHandler",
                                                              "enableAcm",
                                                              "muteAcm",
                                                              "restoreAcm",
                                                              "setMinMaxModulationAndCode",
                                                              "getPhyMode",
                                                              "isFarEndPmaxCapabilityDifferent",
                                                              "setFarEndPmaxCapability",
                                                              "syncAfterWarmRestart",
                                                              "getLowestModulationAndCode"};

/// Adaptive modulation of a channel. Switching it off raises the alarm "AcmDisabled", switching it on clears
/// it.
class SimulatedAcmHandler final : public SimulatedCollaborator<IAcmHandler, kAcmHandlerOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    /// Also ends the muting when it enables, and then fails as often as the DSP was told to.
    EACMHResult enableAcm(bool enable) override;
    EACMHResult muteAcm() override;
    EACMHResult restoreAcm() override;

    /// Refuses values that are no modulations and a minimum above the maximum.
    EACMHResult setMinMaxModulationAndCode(zyr_top_api::ModulationAndCoding min,
                                           zyr_top_api::ModulationAndCoding max) override;

    /// The PHY mode is the modulation's place on the ladder of all modulations. Refuses what is no
    /// modulation.
    EACMHResult getPhyMode(zyr_top_api::ModulationAndCoding modulation, unsigned& phyMode) override;

    EACMHResult
    isFarEndPmaxCapabilityDifferent(const std::map<zyr_top_api::Modulation, int>& capability) override;

    /// Answers "cached" on a channel that isn't configured and while the DSP recovers: the values come into
    /// force when it can be reached, and then shift the thresholds.
    EACMHResult setFarEndPmaxCapability(const std::map<zyr_top_api::Modulation, int>& capability) override;
    void cacheThresholds() override;
    void disableModulation() override;
    void enableModulation() override;
    EACMHResult syncAfterWarmRestart() override;
    zyr_top_api::ETIResult getLowestModulationAndCode(zyr_top_api::ModulationAndCoding& rx,
                                                      zyr_top_api::ModulationAndCoding& tx,
                                                      bool reset) override;
    zyr_top_api::ModulationAndCoding getCurrentTxModulationAndCode() const override;
    zyr_top_api::ModulationAndCoding getCurrentRxModulationAndCode() const override;
};

} // namespace zyr_simulation
