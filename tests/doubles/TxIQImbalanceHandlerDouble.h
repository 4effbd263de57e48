#pragma once

#include "Answer.h"
#include "ITxIQImbalanceHandler.h"
#include "Recorder.h"

namespace zyr_test
{

/// Recording double of `ITxIQImbalanceHandler`.
class TxIQImbalanceHandlerDouble : public ITxIQImbalanceHandler, public Recorder
{
  public:
    using Recorder::Recorder;

    EFHResult OnTxFrequencyChanged(unsigned frequency_kHz) override
    {
        record("OnTxFrequencyChanged", frequency_kHz);
        return onOnTxFrequencyChanged.next();
    }

    Answer<EFHResult> onOnTxFrequencyChanged;
};

} // namespace zyr_test
