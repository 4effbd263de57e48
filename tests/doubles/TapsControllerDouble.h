#pragma once

#include "Answer.h"
#include "ITapsController.h"
#include "Recorder.h"

#include <string>

namespace zyr_test
{

/// Recording double of `ITapsController`.
class TapsControllerDouble : public ITapsController, public Recorder
{
  public:
    TapsControllerDouble(Transcript& transcript, std::string name);
    ~TapsControllerDouble() override;
    TapsControllerDouble(const TapsControllerDouble&) = delete;
    TapsControllerDouble& operator=(const TapsControllerDouble&) = delete;

    ESPCResult setTapsEnable(bool enable) override
    {
        record("setTapsEnable", enable);
        return onSetTapsEnable.next();
    }

    bool getTapsEnable() override
    {
        record("getTapsEnable");
        return onGetTapsEnable.next();
    }

    ESPCResult setIdleRateOffset(std::int32_t value, int last) override
    {
        record("setIdleRateOffset", value, last);
        return onSetIdleRateOffset.next();
    }

    ESPCResult setIdleRateThresholdFactor(double value) override
    {
        record("setIdleRateThresholdFactor", value);
        return onSetIdleRateThresholdFactor.next();
    }

    ESPCResult setKvalue(std::int32_t value) override
    {
        record("setKvalue", value);
        return onSetKvalue.next();
    }

    ESPCResult setHrlbEnabled(bool enabled) override
    {
        record("setHrlbEnabled", enabled);
        return onSetHrlbEnabled.next();
    }

    std::int32_t getIdleRateOffset() override
    {
        record("getIdleRateOffset");
        return onGetIdleRateOffset.next();
    }

    double getIdleRateThresholdFactor() override
    {
        record("getIdleRateThresholdFactor");
        return onGetIdleRateThresholdFactor.next();
    }

    std::int32_t getKvalue() override
    {
        record("getKvalue");
        return onGetKvalue.next();
    }

    bool getHrlbEnabled() override
    {
        record("getHrlbEnabled");
        return onGetHrlbEnabled.next();
    }

    Answer<ESPCResult> onSetTapsEnable;
    Answer<bool> onGetTapsEnable;
    Answer<ESPCResult> onSetIdleRateOffset;
    Answer<ESPCResult> onSetIdleRateThresholdFactor;
    Answer<ESPCResult> onSetKvalue;
    Answer<ESPCResult> onSetHrlbEnabled;
    Answer<std::int32_t> onGetIdleRateOffset;
    Answer<double> onGetIdleRateThresholdFactor;
    Answer<std::int32_t> onGetKvalue;
    Answer<bool> onGetHrlbEnabled;
};

} // namespace zyr_test
