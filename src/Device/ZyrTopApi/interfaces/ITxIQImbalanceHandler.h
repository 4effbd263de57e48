#pragma once

#include "CollaboratorResults.h"
#include "IInterface.h"

/// Compensation of the transmitter's IQ imbalance of one channel, published as "ITxIQImbalanceHandler_<n>"
/// where the hardware has one.
class ZYR_EXPORT ITxIQImbalanceHandler : public IInterface
{
  public:
    /// Told of a new transmit frequency, in kHz. Called by `CriSetRadioChannelNearEnd`; results from 0x8000
    /// are failures. The capital letter is part of the name.
    virtual EFHResult OnTxFrequencyChanged(unsigned frequency_kHz) = 0;
};
