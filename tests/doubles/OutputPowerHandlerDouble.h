#pragma once

#include "Answer.h"
#include "IOutputPowerHandler.h"
#include "Recorder.h"

#include <string>

namespace zyr_test
{

/// Recording double of `IOutputPowerHandler`.
class OutputPowerHandlerDouble : public IOutputPowerHandler, public Recorder
{
  public:
    OutputPowerHandlerDouble(Transcript& transcript, std::string name);
    ~OutputPowerHandlerDouble() override;
    OutputPowerHandlerDouble(const OutputPowerHandlerDouble&) = delete;
    OutputPowerHandlerDouble& operator=(const OutputPowerHandlerDouble&) = delete;

    zyr_top_api::ETIResult getReducedGain(unsigned amplifier, std::int32_t& gain) override
    {
        record("getReducedGain", amplifier);
        return onGetReducedGain.next(gain);
    }

    zyr_top_api::ETIResult getTxRfGain(std::int32_t& gain) override
    {
        record("getTxRfGain");
        return onGetTxRfGain.next(gain);
    }

    zyr_top_api::ETIResult setTxRfGain(std::int32_t gain) override
    {
        record("setTxRfGain", gain);
        return onSetTxRfGain.next();
    }

    zyr_top_api::ETIResult setBarOn(bool on) override
    {
        record("setBarOn", on);
        return onSetBarOn.next();
    }

    bool isBarOn() override
    {
        record("isBarOn");
        return onIsBarOn.next();
    }

    zyr_top_api::ETIResult getTxIfOutputPower(std::int32_t& power) override
    {
        record("getTxIfOutputPower");
        return onGetTxIfOutputPower.next(power);
    }

    zyr_top_api::ETIResult setTxIfOutputPower(std::int32_t power) override
    {
        record("setTxIfOutputPower", power);
        return onSetTxIfOutputPower.next();
    }

    zyr_top_api::ETIResult setTxIfBarOn(bool on) override
    {
        record("setTxIfBarOn", on);
        return onSetTxIfBarOn.next();
    }

    bool isTxIfBarOn() override
    {
        record("isTxIfBarOn");
        return onIsTxIfBarOn.next();
    }

    zyr_top_api::ETIResult getDacValue(std::int32_t& value) override
    {
        record("getDacValue");
        return onGetDacValue.next(value);
    }

    zyr_top_api::ETIResult testGetDetectedPower(std::int32_t& power) override
    {
        record("testGetDetectedPower");
        return onTestGetDetectedPower.next(power);
    }

    zyr_top_api::ETIResult testGetDetectorInUse(bool& usingHigh, std::int32_t& switchToHighLevel,
                                                std::int32_t& switchToLowLevel) override
    {
        record("testGetDetectorInUse");
        return onTestGetDetectorInUse.next(usingHigh, switchToHighLevel, switchToLowLevel);
    }

    zyr_top_api::ETIResult testGetDetectorData(zyr_top_api::TxDetectorData& data) override
    {
        record("testGetDetectorData", data.highDetector);
        return onTestGetDetectorData.next(data);
    }

    Answer<zyr_top_api::ETIResult, std::int32_t> onGetReducedGain;
    Answer<zyr_top_api::ETIResult, std::int32_t> onGetTxRfGain;
    Answer<zyr_top_api::ETIResult> onSetTxRfGain;
    Answer<zyr_top_api::ETIResult> onSetBarOn;
    Answer<bool> onIsBarOn;
    Answer<zyr_top_api::ETIResult, std::int32_t> onGetTxIfOutputPower;
    Answer<zyr_top_api::ETIResult> onSetTxIfOutputPower;
    Answer<zyr_top_api::ETIResult> onSetTxIfBarOn;
    Answer<bool> onIsTxIfBarOn;
    Answer<zyr_top_api::ETIResult, std::int32_t> onGetDacValue;
    Answer<zyr_top_api::ETIResult, std::int32_t> onTestGetDetectedPower;
    Answer<zyr_top_api::ETIResult, bool, std::int32_t, std::int32_t> onTestGetDetectorInUse;
    Answer<zyr_top_api::ETIResult, zyr_top_api::TxDetectorData> onTestGetDetectorData;
};

} // namespace zyr_test
