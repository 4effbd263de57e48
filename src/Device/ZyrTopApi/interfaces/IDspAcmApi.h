#pragma once

#include "AcmMode.h"
#include "AcmThreshold.h"
#include "ETIResult.h"
#include "Export.h"

#include <vector>

/// Adaptive modulation inside the DSP, handed out by `IDspApi::getAcmApi`. Results from 0x8000 are failures.
class ZYR_EXPORT IDspAcmApi
{
  public:
    virtual ~IDspAcmApi() = default;

    /// Sets the RLP control; values without a meaning come too. Called by `CriSetAcmRlpControl`.
    virtual zyr_top_api::ETIResult setAcmRlpControl(zyr_top_api::AcmRlpControl control) = 0;

    /// Sets the mode and its position; values without a meaning come too. Called by `CriSetAcmMode`.
    virtual zyr_top_api::ETIResult setAcmMode(zyr_top_api::AcmMode mode,
                                              zyr_top_api::AcmModePosition position) = 0;

    /// Gives the mode and its position. Called by `CriGetAcmMode`, which reports the arguments also on
    /// failure.
    virtual zyr_top_api::ETIResult getAcmMode(zyr_top_api::AcmMode& mode,
                                              zyr_top_api::AcmModePosition& position) = 0;

    /// The switching thresholds. Called by `TiGetAcmThresholds`.
    virtual std::vector<zyr_top_api::AcmThreshold> getAcmThresholds() = 0;

    /// Makes the next `counter` attempts to enable adaptive modulation fail. Called by `TiManageDsp`.
    virtual void injectEnableFailure(unsigned counter) = 0;

    /// Makes the next `counter` threshold updates fail. Called by `TiManageDsp`.
    virtual void injectThresholdFailure(unsigned counter) = 0;
};
