#pragma once

#include "Answer.h"
#include "IOutputPowerCalculator.h"
#include "Recorder.h"

#include <string>

namespace zyr_test
{

/// Recording double of `IOutputPowerCalculator`.
class OutputPowerCalculatorDouble : public IOutputPowerCalculator, public Recorder
{
  public:
    OutputPowerCalculatorDouble(Transcript& transcript, std::string name);
    ~OutputPowerCalculatorDouble() override;
    OutputPowerCalculatorDouble(const OutputPowerCalculatorDouble&) = delete;
    OutputPowerCalculatorDouble& operator=(const OutputPowerCalculatorDouble&) = delete;

    ESPCResult setPowerCutBack(unsigned availableMaxPowerCutback) override
    {
        record("setPowerCutBack", availableMaxPowerCutback);
        return onSetPowerCutBack.next();
    }

    ESPCResult setBooster(int presence, int gain, int maxInputPower,
                          zyr_top_api::Modulation maxModulation) override
    {
        record("setBooster", presence, gain, maxInputPower, maxModulation);
        return onSetBooster.next();
    }

    zyr_top_api::ETIResult setTemporaryMaxPowerCutback(bool set, int cutback) override
    {
        record("setTemporaryMaxPowerCutback", set, cutback);
        return onSetTemporaryMaxPowerCutback.next();
    }

    zyr_top_api::ETIResult
    getMaxOutputPower(int radioFrameId, zyr_top_api::ModulationAndCoding min,
                      zyr_top_api::ModulationAndCoding max, zyr_top_api::ReferenceSec referenceSec,
                      int& minPower, std::map<zyr_top_api::ModulationAndCoding, int>& maxPower) override
    {
        record("getMaxOutputPower", radioFrameId, min, max, referenceSec);
        return onGetMaxOutputPower.next(minPower, maxPower);
    }

    Answer<ESPCResult> onSetPowerCutBack;
    Answer<ESPCResult> onSetBooster;
    Answer<zyr_top_api::ETIResult> onSetTemporaryMaxPowerCutback;
    Answer<zyr_top_api::ETIResult, int, std::map<zyr_top_api::ModulationAndCoding, int>> onGetMaxOutputPower;
};

} // namespace zyr_test
