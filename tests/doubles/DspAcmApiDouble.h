#pragma once

#include "Answer.h"
#include "IDspAcmApi.h"
#include "Recorder.h"

#include <string>

namespace zyr_test
{

/// Recording double of `IDspAcmApi`.
class DspAcmApiDouble : public IDspAcmApi, public Recorder
{
  public:
    DspAcmApiDouble(Transcript& transcript, std::string name);
    ~DspAcmApiDouble() override;
    DspAcmApiDouble(const DspAcmApiDouble&) = delete;
    DspAcmApiDouble& operator=(const DspAcmApiDouble&) = delete;

    zyr_top_api::ETIResult setAcmRlpControl(zyr_top_api::AcmRlpControl control) override
    {
        record("setAcmRlpControl", control);
        return onSetAcmRlpControl.next();
    }

    zyr_top_api::ETIResult setAcmMode(zyr_top_api::AcmMode mode,
                                      zyr_top_api::AcmModePosition position) override
    {
        record("setAcmMode", mode, position);
        return onSetAcmMode.next();
    }

    zyr_top_api::ETIResult getAcmMode(zyr_top_api::AcmMode& mode,
                                      zyr_top_api::AcmModePosition& position) override
    {
        record("getAcmMode");
        return onGetAcmMode.next(mode, position);
    }

    std::vector<zyr_top_api::AcmThreshold> getAcmThresholds() override
    {
        record("getAcmThresholds");
        return onGetAcmThresholds.next();
    }

    void injectEnableFailure(unsigned counter) override { record("injectEnableFailure", counter); }

    void injectThresholdFailure(unsigned counter) override { record("injectThresholdFailure", counter); }

    Answer<zyr_top_api::ETIResult> onSetAcmRlpControl;
    Answer<zyr_top_api::ETIResult> onSetAcmMode;
    Answer<zyr_top_api::ETIResult, zyr_top_api::AcmMode, zyr_top_api::AcmModePosition> onGetAcmMode;
    Answer<std::vector<zyr_top_api::AcmThreshold>> onGetAcmThresholds;
};

} // namespace zyr_test
