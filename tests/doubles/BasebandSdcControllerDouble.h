#pragma once

#include "Answer.h"
#include "IBasebandSdcController.h"
#include "Recorder.h"

#include <string>

namespace zyr_test
{

/// Recording double of `IBasebandSdcController`.
class BasebandSdcControllerDouble : public IBasebandSdcController, public Recorder
{
  public:
    BasebandSdcControllerDouble(Transcript& transcript, std::string name);
    ~BasebandSdcControllerDouble() override;
    BasebandSdcControllerDouble(const BasebandSdcControllerDouble&) = delete;
    BasebandSdcControllerDouble& operator=(const BasebandSdcControllerDouble&) = delete;

    zyr_top_api::ETIResult start(bool isCalibrationRequired) override
    {
        record("start", isCalibrationRequired);
        return onStart.next();
    }

    zyr_top_api::ETIResult stop() override
    {
        record("stop");
        return onStop.next();
    }

    zyr_top_api::ETIResult startDadeCalibration() override
    {
        record("startDadeCalibration");
        return onStartDadeCalibration.next();
    }

    zyr_top_api::ETIResult abortDadeCalibration() override
    {
        record("abortDadeCalibration");
        return onAbortDadeCalibration.next();
    }

    zyr_top_api::ETIResult resetDadeCalibration() override
    {
        record("resetDadeCalibration");
        return onResetDadeCalibration.next();
    }

    zyr_top_api::ETIResult setDadeParams(std::uint16_t mainData, std::uint16_t diversityData) override
    {
        record("setDadeParams", mainData, diversityData);
        return onSetDadeParams.next();
    }

    zyr_top_api::ETIResult setChannels(bool mainEnabled, bool diversityEnabled) override
    {
        record("setChannels", mainEnabled, diversityEnabled);
        return onSetChannels.next();
    }

    bool isStarted() override
    {
        record("isStarted");
        return onIsStarted.next();
    }

    zyr_top_api::BasebandSdcStatusData getStatus() override
    {
        record("getStatus");
        return onGetStatus.next();
    }

    zyr_top_api::BasebandSdcDadeStatus getDadeStatus() override
    {
        record("getDadeStatus");
        return onGetDadeStatus.next();
    }

    std::int32_t getDadeDelay() override
    {
        record("getDadeDelay");
        return onGetDadeDelay.next();
    }

    std::uint32_t getCalibrationData() override
    {
        record("getCalibrationData");
        return onGetCalibrationData.next();
    }

    Answer<zyr_top_api::ETIResult> onStart;
    Answer<zyr_top_api::ETIResult> onStop;
    Answer<zyr_top_api::ETIResult> onStartDadeCalibration;
    Answer<zyr_top_api::ETIResult> onAbortDadeCalibration;
    Answer<zyr_top_api::ETIResult> onResetDadeCalibration;
    Answer<zyr_top_api::ETIResult> onSetDadeParams;
    Answer<zyr_top_api::ETIResult> onSetChannels;
    Answer<bool> onIsStarted;
    Answer<zyr_top_api::BasebandSdcStatusData> onGetStatus;
    Answer<zyr_top_api::BasebandSdcDadeStatus> onGetDadeStatus;
    Answer<std::int32_t> onGetDadeDelay;
    Answer<std::uint32_t> onGetCalibrationData;
};

} // namespace zyr_test
