#pragma once

#include "Answer.h"
#include "IRssiHandler.h"
#include "Recorder.h"

#include <string>

namespace zyr_test
{

/// Recording double of `IRssiHandler`.
class RssiHandlerDouble : public IRssiHandler, public Recorder
{
  public:
    RssiHandlerDouble(Transcript& transcript, std::string name);
    ~RssiHandlerDouble() override;
    RssiHandlerDouble(const RssiHandlerDouble&) = delete;
    RssiHandlerDouble& operator=(const RssiHandlerDouble&) = delete;

    ERSSIResult calculateRssiThreshold(unsigned phyMode, int& threshold) override
    {
        record("calculateRssiThreshold", phyMode);
        return onCalculateRssiThreshold.next(threshold);
    }

    ERSSIResult setRssiThreshold(int threshold) override
    {
        record("setRssiThreshold", threshold);
        return onSetRssiThreshold.next();
    }

    zyr_top_api::ETIResult getRssi(int& value) override
    {
        record("getRssi");
        return onGetRssi.next(value);
    }

    std::int32_t getRssiMin(bool reset) override
    {
        record("getRssiMin", reset);
        return defaultsInForce ? IRssiHandler::getRssiMin(reset) : onGetRssiMin.next();
    }

    Answer<ERSSIResult, int> onCalculateRssiThreshold;
    Answer<ERSSIResult> onSetRssiThreshold;
    Answer<zyr_top_api::ETIResult, int> onGetRssi;
    Answer<std::int32_t> onGetRssiMin;
};

} // namespace zyr_test
