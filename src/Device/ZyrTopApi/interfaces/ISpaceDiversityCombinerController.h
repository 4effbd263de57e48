#pragma once

#include "ETIResult.h"
#include "IInterface.h"
#include "Modulation.h"
#include "SdcPath.h"
#include "SdcStatus.h"

#include <cstdint>

/// The space diversity combiner (SDC) of one channel, published as "ISpaceDiversityCombinerController_<n>".
///
/// Of its results 0x8000 alone is a failure; a controller that wishes to report one has to use that value.
class ZYR_EXPORT ISpaceDiversityCombinerController : public IInterface
{
  public:
    /// Keeps the place of an operation of the controller that no command uses. The default body does nothing.
    virtual void reservedOperation() {}

    /// Switches the combiner on or off. Called by `CriSetSdcEnable`.
    virtual zyr_top_api::ETIResult setSdcEnable(bool enable) = 0;

    /// Whether the combiner is on. Called by `CriGetSdcStatus`, which `NoAnswer` fails.
    virtual zyr_top_api::SdcStatus getSdcOperStatus() = 0;

    /// Starts or aborts a DADE calibration. Called by `CriSetSdcDadeCalibration`.
    virtual zyr_top_api::ETIResult setDadeCalibration(bool start) = 0;

    /// How the DADE calibration stands. Called by `CriGetSdcStatus`, which `NoAnswer` fails.
    virtual zyr_top_api::SdcStatus getSdcDadeStatus() = 0;

    /// Chooses the path; `Invalid` comes too. Called by `CriSetSdcPathControl`.
    virtual zyr_top_api::ETIResult setSdcPath(zyr_top_api::SdcPath path) = 0;

    /// The path in use. Called by `CriGetSdcStatus`, which `Invalid` fails.
    virtual zyr_top_api::SdcPath getSdcActualPath() = 0;

    /// Gives the hardware error characters and input powers of both paths, and the gain. Called by
    /// `CriGetSdcStatus`.
    virtual void getSdcSignalStatus(char& hwErrorSdcMain, char& hwErrorSdcDiversity,
                                    std::int32_t& sdcInputPowerMain, std::int32_t& sdcInputPowerDiversity,
                                    std::int32_t& sdcGain) = 0;

    /// Tells the combiner of the radio link: greatest constellation, channel spacing as the combiner's code,
    /// and whether XPIC is on. Called by `CriSetSdcRlConfiguration`, with code 3000 for an unknown spacing.
    virtual zyr_top_api::ETIResult setRlConfiguration(zyr_top_api::Modulation modulation,
                                                      std::int32_t spacingCode, bool xpicEnabled) = 0;

    /// The DADE delay. Called by `CriGetSdcStatus`.
    virtual std::int32_t getSdcDadeDelay() = 0;
};
