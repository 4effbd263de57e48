#pragma once

#include "CollaboratorResults.h"
#include "IInterface.h"

#include <cstdint>

/// The radio frequencies of one channel, published as "IFrequencyController_<n>".
class ZYR_EXPORT IFrequencyController : public IInterface
{
  public:
    /// Sets the transmit frequency, in kHz. Called by `CriSetRadioChannelNearEnd`, always with 1 in the last
    /// place, whose sense is the controller's; results from 0x8000 are failures.
    virtual EFCResult setTxFrequency(unsigned frequency_kHz, int) = 0;

    /// Sets the receive frequency, in kHz; as `setTxFrequency`.
    virtual EFCResult setRxFrequency(unsigned frequency_kHz, int) = 0;

    /// The transmit frequency. Called by `CriGetRadioChannelStatus` and `TiManageRadioChannelStatus`.
    virtual std::int32_t getTxFrequency() = 0;

    /// The receive frequency. Called by `CriGetRadioChannelStatus` and `TiManageRadioChannelStatus`.
    virtual std::int32_t getRxFrequency() = 0;
};
