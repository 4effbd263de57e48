#pragma once

#include "Answer.h"
#include "ITxIQImbalanceHandler.h"
#include "Recorder.h"

#include <string>

namespace zyr_test
{

/// Recording double of `ITxIQImbalanceHandler`.
class TxIQImbalanceHandlerDouble : public ITxIQImbalanceHandler, public Recorder
{
  public:
    TxIQImbalanceHandlerDouble(Transcript& transcript, std::string name);
    ~TxIQImbalanceHandlerDouble() override;
    TxIQImbalanceHandlerDouble(const TxIQImbalanceHandlerDouble&) = delete;
    TxIQImbalanceHandlerDouble& operator=(const TxIQImbalanceHandlerDouble&) = delete;

    EFHResult OnTxFrequencyChanged(unsigned frequency_kHz) override
    {
        record("OnTxFrequencyChanged", frequency_kHz);
        return onOnTxFrequencyChanged.next();
    }

    Answer<EFHResult> onOnTxFrequencyChanged;
};

} // namespace zyr_test
