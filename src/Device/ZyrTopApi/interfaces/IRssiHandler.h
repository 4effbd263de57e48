#pragma once

#include "CollaboratorResults.h"
#include "ETIResult.h"
#include "IInterface.h"

#include <cstdint>

/// The received signal strength of one channel, published as "IRssiHandler_<n>". Levels are in the handler's
/// unit. Results from 0x8000 are failures.
class ZYR_EXPORT IRssiHandler : public IInterface
{
  public:
    /// Works out the threshold of a modulation, given by the number that `IAcmHandler::getPhyMode` has for
    /// it. Called by `CriSetRadioChannelNearEnd`.
    virtual ERSSIResult calculateRssiThreshold(unsigned phyMode, int& threshold) = 0;

    /// Sets the threshold. Called by `CriSetRadioChannelNearEnd`.
    virtual ERSSIResult setRssiThreshold(int threshold) = 0;

    /// Gives the level now. Called by `CriGetRadioChannelStatus` and `TiManageRadioChannelStatus`.
    virtual zyr_top_api::ETIResult getRssi(int& value) = 0;

    /// The lowest level since the last reset, and resets it if `reset` is true. Called by
    /// `TiManageRadioChannelStatus`. The default body answers -9999, which is reported as it is.
    virtual std::int32_t getRssiMin(bool /*reset*/) { return -9999; }
};
