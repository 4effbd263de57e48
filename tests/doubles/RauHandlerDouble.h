#pragma once

#include "Answer.h"
#include "IRauHandler.h"
#include "Recorder.h"

#include <string>

namespace zyr_test
{

/// Recording double of `IRauHandler`.
class RauHandlerDouble : public IRauHandler, public Recorder
{
  public:
    RauHandlerDouble(Transcript& transcript, std::string name);
    ~RauHandlerDouble() override;
    RauHandlerDouble(const RauHandlerDouble&) = delete;
    RauHandlerDouble& operator=(const RauHandlerDouble&) = delete;

    bool isAvailable() override
    {
        record("isAvailable");
        return onIsAvailable.next();
    }

    zyr_top_api::ERAUHResult triggerRestart(unsigned restartType) override
    {
        record("triggerRestart", restartType);
        return onTriggerRestart.next();
    }

    zyr_top_api::RadioRestartStatus getRestartStatus() override
    {
        record("getRestartStatus");
        return onGetRestartStatus.next();
    }

    zyr_top_api::ERAUHResult endRestart() override
    {
        record("endRestart");
        return onEndRestart.next();
    }

    bool isPowerSupplied() override
    {
        record("isPowerSupplied");
        return onIsPowerSupplied.next();
    }

    zyr_top_api::ERAUHResult setPowerSupplied(std::uint32_t value) override
    {
        record("setPowerSupplied", value);
        return onSetPowerSupplied.next();
    }

    zyr_top_api::ETIResult setActiveSubBand(unsigned char subBand) override
    {
        record("setActiveSubBand", subBand);
        return onSetActiveSubBand.next();
    }

    zyr_top_api::ERAUHResult setTxIfSwitch2T2R(unsigned mode, unsigned channelIndex) override
    {
        record("setTxIfSwitch2T2R", mode, channelIndex);
        return onSetTxIfSwitch2T2R.next();
    }

    zyr_top_api::ERAUHResult setPowerMode(zyr_top_api::RauPowerMode mode) override
    {
        record("setPowerMode", mode.trxId, mode.powerMode);
        return onSetPowerMode.next();
    }

    zyr_top_api::ERAUHResult getPowerMode(unsigned char trxId, unsigned char& powerMode) override
    {
        record("getPowerMode", trxId);
        return onGetPowerMode.next(powerMode);
    }

    bool isRau2T2R() override
    {
        record("isRau2T2R");
        return onIsRau2T2R.next();
    }

    Answer<bool> onIsAvailable{true};
    Answer<zyr_top_api::ERAUHResult> onTriggerRestart;
    Answer<zyr_top_api::RadioRestartStatus> onGetRestartStatus;
    Answer<zyr_top_api::ERAUHResult> onEndRestart;
    Answer<bool> onIsPowerSupplied{true};
    Answer<zyr_top_api::ERAUHResult> onSetPowerSupplied;
    Answer<zyr_top_api::ETIResult> onSetActiveSubBand;
    Answer<zyr_top_api::ERAUHResult> onSetTxIfSwitch2T2R;
    Answer<zyr_top_api::ERAUHResult> onSetPowerMode;
    Answer<zyr_top_api::ERAUHResult, unsigned char> onGetPowerMode;
    Answer<bool> onIsRau2T2R;
};

} // namespace zyr_test
