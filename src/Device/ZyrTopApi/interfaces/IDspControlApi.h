#pragma once

#include "ETIResult.h"
#include "Export.h"
#include "FFConfigType.h"
#include "Recover.h"

/// Control of the DSP as a whole, handed out by `IDspApi::getDspControlApi`. Results from 0x8000 are
/// failures.
class ZYR_EXPORT IDspControlApi
{
  public:
    virtual ~IDspControlApi() = default;

    /// Whether both channels carry one signal together. Called by `CriSetRadioChannelNearEnd`.
    virtual bool isCarrierAggregationActive() = 0;

    /// Gives the recovery that the DSP needs before it can run the frame format type, and whether carrier
    /// aggregation is the reason. Called by `CriSetRadioChannelNearEnd`.
    virtual zyr_top_api::ETIResult getRequiredRecovery(zyr_top_api::FFConfigType type,
                                                       zyr_top_api::Recover& needed,
                                                       bool& dueToCarrierAggregation) = 0;

    /// Tells whether the DSP needs a new configuration for the frame format type, and sees to the
    /// configuration file of that type. Called by `CriSetRadioChannelNearEnd`.
    virtual zyr_top_api::ETIResult checkDspReconfiguration(zyr_top_api::FFConfigType required,
                                                           bool& dspNeedsReconfiguration) = 0;

    /// Whether the DSP answers. Called by `CriSetRfPower`, for its log alone.
    virtual bool isAccessible() = 0;

    /// Gives the MIMO mode, where 9 is 4x4 MIMO. Called by `CriGetRadioChannelStatus`; the result is ignored,
    /// so that on a failure `mode` should stay as it was.
    virtual zyr_top_api::ETIResult getMimoMode(int& mode) = 0;

    /// Makes the next `counter` accesses to the DSP fail with `resultCode`. Called by `TiManageDsp` with
    /// 0x800A.
    virtual void injectComError(unsigned resultCode, unsigned counter) = 0;
};
