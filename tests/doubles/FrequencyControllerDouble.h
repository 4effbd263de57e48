#pragma once

#include "Answer.h"
#include "IFrequencyController.h"
#include "Recorder.h"

#include <string>

namespace zyr_test
{

/// Recording double of `IFrequencyController`.
class FrequencyControllerDouble : public IFrequencyController, public Recorder
{
  public:
    FrequencyControllerDouble(Transcript& transcript, std::string name);
    ~FrequencyControllerDouble() override;
    FrequencyControllerDouble(const FrequencyControllerDouble&) = delete;
    FrequencyControllerDouble& operator=(const FrequencyControllerDouble&) = delete;

    EFCResult setTxFrequency(unsigned frequency_kHz, int last) override
    {
        record("setTxFrequency", frequency_kHz, last);
        return onSetTxFrequency.next();
    }

    EFCResult setRxFrequency(unsigned frequency_kHz, int last) override
    {
        record("setRxFrequency", frequency_kHz, last);
        return onSetRxFrequency.next();
    }

    std::int32_t getTxFrequency() override
    {
        record("getTxFrequency");
        return onGetTxFrequency.next();
    }

    std::int32_t getRxFrequency() override
    {
        record("getRxFrequency");
        return onGetRxFrequency.next();
    }

    Answer<EFCResult> onSetTxFrequency;
    Answer<EFCResult> onSetRxFrequency;
    Answer<std::int32_t> onGetTxFrequency;
    Answer<std::int32_t> onGetRxFrequency;
};

} // namespace zyr_test
