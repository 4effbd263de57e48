#pragma once

#include "Answer.h"
#include "IRadio.h"
#include "Recorder.h"

#include <string>

namespace zyr_test
{

/// Recording double of `IRadio`.
class RadioDouble : public IRadio, public Recorder
{
  public:
    RadioDouble(Transcript& transcript, std::string name);
    ~RadioDouble() override;
    RadioDouble(const RadioDouble&) = delete;
    RadioDouble& operator=(const RadioDouble&) = delete;

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

    Answer<bool> onIsAvailable{true};
    Answer<zyr_top_api::ERAUHResult> onTriggerRestart;
    Answer<zyr_top_api::RadioRestartStatus> onGetRestartStatus;
    Answer<zyr_top_api::ERAUHResult> onEndRestart;
    Answer<bool> onIsPowerSupplied{true};
    Answer<zyr_top_api::ERAUHResult> onSetPowerSupplied;
    Answer<zyr_top_api::ETIResult> onSetActiveSubBand;
};

} // namespace zyr_test
