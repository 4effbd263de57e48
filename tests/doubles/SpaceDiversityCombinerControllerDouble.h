#pragma once

#include "Answer.h"
#include "ISpaceDiversityCombinerController.h"
#include "Recorder.h"

#include <string>
#include <variant>

namespace zyr_test
{

/// Recording double of `ISpaceDiversityCombinerController`.
class SpaceDiversityCombinerControllerDouble : public ISpaceDiversityCombinerController, public Recorder
{
  public:
    SpaceDiversityCombinerControllerDouble(Transcript& transcript, std::string name);
    ~SpaceDiversityCombinerControllerDouble() override;
    SpaceDiversityCombinerControllerDouble(const SpaceDiversityCombinerControllerDouble&) = delete;
    SpaceDiversityCombinerControllerDouble& operator=(const SpaceDiversityCombinerControllerDouble&) = delete;

    void reservedOperation() override { record("reservedOperation"); }

    zyr_top_api::ETIResult setSdcEnable(bool enable) override
    {
        record("setSdcEnable", enable);
        return onSetSdcEnable.next();
    }

    zyr_top_api::SdcStatus getSdcOperStatus() override
    {
        record("getSdcOperStatus");
        return onGetSdcOperStatus.next();
    }

    zyr_top_api::ETIResult setDadeCalibration(bool start) override
    {
        record("setDadeCalibration", start);
        return onSetDadeCalibration.next();
    }

    zyr_top_api::SdcStatus getSdcDadeStatus() override
    {
        record("getSdcDadeStatus");
        return onGetSdcDadeStatus.next();
    }

    zyr_top_api::ETIResult setSdcPath(zyr_top_api::SdcPath path) override
    {
        record("setSdcPath", path);
        return onSetSdcPath.next();
    }

    zyr_top_api::SdcPath getSdcActualPath() override
    {
        record("getSdcActualPath");
        return onGetSdcActualPath.next();
    }

    void getSdcSignalStatus(char& hwErrorSdcMain, char& hwErrorSdcDiversity, std::int32_t& sdcInputPowerMain,
                            std::int32_t& sdcInputPowerDiversity, std::int32_t& sdcGain) override
    {
        record("getSdcSignalStatus");
        onGetSdcSignalStatus.next(hwErrorSdcMain, hwErrorSdcDiversity, sdcInputPowerMain,
                                  sdcInputPowerDiversity, sdcGain);
    }

    zyr_top_api::ETIResult setRlConfiguration(zyr_top_api::Modulation modulation, std::int32_t spacingCode,
                                              bool xpicEnabled) override
    {
        record("setRlConfiguration", modulation, spacingCode, xpicEnabled);
        return onSetRlConfiguration.next();
    }

    std::int32_t getSdcDadeDelay() override
    {
        record("getSdcDadeDelay");
        return onGetSdcDadeDelay.next();
    }

    Answer<zyr_top_api::ETIResult> onSetSdcEnable;
    Answer<zyr_top_api::SdcStatus> onGetSdcOperStatus;
    Answer<zyr_top_api::ETIResult> onSetDadeCalibration;
    Answer<zyr_top_api::SdcStatus> onGetSdcDadeStatus;
    Answer<zyr_top_api::ETIResult> onSetSdcPath;
    Answer<zyr_top_api::SdcPath> onGetSdcActualPath;
    Answer<std::monostate, char, char, std::int32_t, std::int32_t, std::int32_t> onGetSdcSignalStatus;
    Answer<zyr_top_api::ETIResult> onSetRlConfiguration;
    Answer<std::int32_t> onGetSdcDadeDelay;
};

} // namespace zyr_test
