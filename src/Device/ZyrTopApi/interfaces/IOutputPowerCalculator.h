#pragma once

#include "CollaboratorResults.h"
#include "ETIResult.h"
#include "IInterface.h"
#include "Modulation.h"
#include "ModulationAndCoding.h"
#include "ReferenceSec.h"

#include <map>

/// Works out which output powers one channel can have, published as "IOutputPowerCalculator_<n>". Powers are
/// in the calculator's unit and pass through unchanged.
class ZYR_EXPORT IOutputPowerCalculator : public IInterface
{
  public:
    /// Sets how far the greatest power may be cut back. Called by `CriSetRfPower`; results from 0x8000 are
    /// failures.
    virtual ESPCResult setPowerCutBack(unsigned availableMaxPowerCutback) = 0;

    /// Tells of the booster behind the radio. Called by `CriSetBoosterPresence`, with `Modulation::UNDEFINED`
    /// for a modulation that the table does not have.
    /// @return 0 for success; any other value, warnings too, is a failure.
    virtual ESPCResult setBooster(int presence, int gain, int maxInputPower,
                                  zyr_top_api::Modulation maxModulation) = 0;

    /// Sets a cutback for the next reads, or takes it away. Called by `CriGetRadioChannelCapability` around
    /// its read; results from 0x8000 are failures.
    virtual zyr_top_api::ETIResult setTemporaryMaxPowerCutback(bool set, int cutback) = 0;

    /// Gives the lowest power, and the greatest power of each modulation from `min` to `max`. Called by
    /// `CriGetRadioChannelCapability`; results from 0x8000 are failures.
    /// @return 0x800A exactly for a failure that is not worth an error in the log.
    virtual zyr_top_api::ETIResult
    getMaxOutputPower(int radioFrameId, zyr_top_api::ModulationAndCoding min,
                      zyr_top_api::ModulationAndCoding max, zyr_top_api::ReferenceSec referenceSec,
                      int& minPower, std::map<zyr_top_api::ModulationAndCoding, int>& maxPower) = 0;
};
