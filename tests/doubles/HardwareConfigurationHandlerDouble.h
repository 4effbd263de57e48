#pragma once

#include "Answer.h"
#include "IHardwareConfigurationHandler.h"
#include "Recorder.h"

#include <string>

namespace zyr_test
{

/// Recording double of `IHardwareConfigurationHandler`.
class HardwareConfigurationHandlerDouble : public IHardwareConfigurationHandler, public Recorder
{
  public:
    HardwareConfigurationHandlerDouble(Transcript& transcript, std::string name);
    ~HardwareConfigurationHandlerDouble() override;
    HardwareConfigurationHandlerDouble(const HardwareConfigurationHandlerDouble&) = delete;
    HardwareConfigurationHandlerDouble& operator=(const HardwareConfigurationHandlerDouble&) = delete;

    bool isMimoCapable(unsigned radioFrameId) override
    {
        record("isMimoCapable", radioFrameId);
        return onIsMimoCapable.next();
    }

    EHCHResult setRadioFrameId(zyr_top_api::RadioChannel channel, unsigned radioFrameId, int last) override
    {
        record("setRadioFrameId", channel, radioFrameId, last);
        return onSetRadioFrameId.next();
    }

    bool isChannelInUse(zyr_top_api::RadioChannel channel) override
    {
        record("isChannelInUse", channel);
        return onIsChannelInUse.next();
    }

    EHCHResult getFrameUpdateMode(unsigned& mode) override
    {
        record("getFrameUpdateMode");
        return onGetFrameUpdateMode.next(mode);
    }

    EHCHResult setFrameUpdateMode(unsigned mode) override
    {
        record("setFrameUpdateMode", mode);
        return onSetFrameUpdateMode.next();
    }

    EHCHResult isXpicCapable(unsigned radioFrameId, bool& capable) override
    {
        record("isXpicCapable", radioFrameId);
        return onIsXpicCapable.next(capable);
    }

    EHCHResult getConfigType(zyr_top_api::RadioChannel channel, unsigned radioFrameId,
                             zyr_top_api::FFConfigType& type) override
    {
        record("getConfigType", channel, radioFrameId);
        return onGetConfigType.next(type);
    }

    std::vector<zyr_top_api::RadioFrameRecord> getRadioFrames(bool onlyReleased) override
    {
        record("getRadioFrames", onlyReleased);
        return onGetRadioFrames.next();
    }

    zyr_top_api::ETIResult getPerformanceProfileArray(unsigned radioChannel, unsigned radioFrameId,
                                                      std::vector<std::int16_t>& profile) override
    {
        record("getPerformanceProfileArray", radioChannel, radioFrameId);
        return onGetPerformanceProfileArray.next(profile);
    }

    EHCHResult setRauCarrierAggregation(bool on) override
    {
        record("setRauCarrierAggregation", on);
        return onSetRauCarrierAggregation.next();
    }

    Answer<bool> onIsMimoCapable;
    Answer<EHCHResult> onSetRadioFrameId;
    Answer<bool> onIsChannelInUse;
    Answer<EHCHResult, unsigned> onGetFrameUpdateMode;
    Answer<EHCHResult> onSetFrameUpdateMode;
    Answer<EHCHResult, bool> onIsXpicCapable;
    Answer<EHCHResult, zyr_top_api::FFConfigType> onGetConfigType;
    Answer<std::vector<zyr_top_api::RadioFrameRecord>> onGetRadioFrames;
    Answer<zyr_top_api::ETIResult, std::vector<std::int16_t>> onGetPerformanceProfileArray;
    Answer<EHCHResult> onSetRauCarrierAggregation;
};

} // namespace zyr_test
