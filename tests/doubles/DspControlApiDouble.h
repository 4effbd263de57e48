#pragma once

#include "Answer.h"
#include "IDspControlApi.h"
#include "Recorder.h"

#include <string>

namespace zyr_test
{

/// Recording double of `IDspControlApi`.
class DspControlApiDouble : public IDspControlApi, public Recorder
{
  public:
    DspControlApiDouble(Transcript& transcript, std::string name);
    ~DspControlApiDouble() override;
    DspControlApiDouble(const DspControlApiDouble&) = delete;
    DspControlApiDouble& operator=(const DspControlApiDouble&) = delete;

    bool isCarrierAggregationActive() override
    {
        record("isCarrierAggregationActive");
        return onIsCarrierAggregationActive.next();
    }

    zyr_top_api::ETIResult getRequiredRecovery(zyr_top_api::FFConfigType type, zyr_top_api::Recover& needed,
                                               bool& dueToCarrierAggregation) override
    {
        record("getRequiredRecovery", type);
        return onGetRequiredRecovery.next(needed, dueToCarrierAggregation);
    }

    zyr_top_api::ETIResult checkDspReconfiguration(zyr_top_api::FFConfigType required,
                                                   bool& dspNeedsReconfiguration) override
    {
        record("checkDspReconfiguration", required);
        return onCheckDspReconfiguration.next(dspNeedsReconfiguration);
    }

    bool isAccessible() override
    {
        record("isAccessible");
        return onIsAccessible.next();
    }

    zyr_top_api::ETIResult getMimoMode(int& mode) override
    {
        record("getMimoMode");
        return onGetMimoMode.next(mode);
    }

    void injectComError(unsigned resultCode, unsigned counter) override
    {
        record("injectComError", resultCode, counter);
    }

    Answer<bool> onIsCarrierAggregationActive;
    Answer<zyr_top_api::ETIResult, zyr_top_api::Recover, bool> onGetRequiredRecovery;
    Answer<zyr_top_api::ETIResult, bool> onCheckDspReconfiguration;
    Answer<bool> onIsAccessible{true};
    Answer<zyr_top_api::ETIResult, int> onGetMimoMode;
};

} // namespace zyr_test
