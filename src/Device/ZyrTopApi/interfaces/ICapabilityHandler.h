#pragma once

#include "IInterface.h"
#include "ModulationAndCoding.h"

#include <cstdint>
#include <vector>

/// What the hardware of one channel can do, published as "ICapabilityHandler_<n>". Default bodies answer for
/// hardware that can't.
class ZYR_EXPORT ICapabilityHandler : public IInterface
{
  public:
    /// Whether the channel is a long haul one; by default it isn't. Called by `CriSetRadioChannelNearEnd`.
    virtual bool isLonghaul() { return false; }

    /// Whether the channel has TAPS; by default it hasn't. Called by `CriGetRadioChannelCapability`.
    virtual bool isTapsCapable() const { return false; }

    /// Whether the hardware limits the greatest modulation; by default it doesn't. Called by
    /// `CriGetAirInterfaceCapability`.
    virtual bool isMaxAcmLimitedByHw() const { return false; }

    /// The greatest modulation with a performance profile; `UNDEFINED` by default. Called by
    /// `CriGetAirInterfaceCapability` if `isMaxAcmLimitedByHw` says so.
    virtual zyr_top_api::ModulationAndCoding
    getMaxAcmLimitedByHw(const std::vector<std::int16_t>& /*profile*/) const
    {
        return zyr_top_api::ModulationAndCoding::UNDEFINED;
    }
};
