#pragma once

#include "CollaboratorResults.h"
#include "ETIResult.h"
#include "IInterface.h"
#include "Modulation.h"
#include "ModulationAndCoding.h"

#include <map>

/// Adaptive modulation (ACM) of one channel, published as "IAcmHandler_<n>".
///
/// All operations have default bodies for handlers that do not support them. Most answer 0x8001, which is a
/// failure; commands tell "not supported" by the value alone. Unless an operation says otherwise, results
/// from 0x8000 are failures.
class ZYR_EXPORT IAcmHandler : public IInterface
{
  public:
    /// Switches adaptive modulation on or off; a real handler must implement it. Called by `CriEnableAcm` and
    /// `CriSetRadioChannelNearEnd`.
    virtual EACMHResult enableAcm(bool /*enable*/) { return eACMH_E_NOT_IMPLEMENTED; }

    /// Keeps the DSP from switching the modulation until `restoreAcm`. Called by `CriSetRadioChannelNearEnd`,
    /// `CriSetRfPower` and `CriSetFarEndPmaxCapability`; the last goes on after a failure.
    virtual EACMHResult muteAcm() { return eACMH_E_NOT_IMPLEMENTED; }

    /// Lets the DSP switch the modulation again. Called by `CriSetRfPower` and `CriSetFarEndPmaxCapability`;
    /// the latter goes on after a failure.
    virtual EACMHResult restoreAcm() { return eACMH_E_NOT_IMPLEMENTED; }

    /// Sets the range in which the modulation may move. Called by `CriSetRadioChannelNearEnd`.
    virtual EACMHResult setMinMaxModulationAndCode(zyr_top_api::ModulationAndCoding /*min*/,
                                                   zyr_top_api::ModulationAndCoding /*max*/)
    {
        return eACMH_E_NOT_IMPLEMENTED;
    }

    /// Gives the number under which the RSSI handler knows a modulation. Called by
    /// `CriSetRadioChannelNearEnd`.
    virtual EACMHResult getPhyMode(zyr_top_api::ModulationAndCoding /*modulation*/, unsigned& /*phyMode*/)
    {
        return eACMH_E_NOT_IMPLEMENTED;
    }

    /// Compares the far end's greatest output powers per constellation with those in force. Called by
    /// `CriSetFarEndPmaxCapability`.
    /// @return 3 exactly if they differ. Any other value, failures and the default body's too, means that
    /// nothing
    ///         is to be done.
    virtual EACMHResult
    isFarEndPmaxCapabilityDifferent(const std::map<zyr_top_api::Modulation, int>& /*capability*/)
    {
        return eACMH_E_NOT_IMPLEMENTED;
    }

    /// Takes over the far end's greatest output powers per constellation. Called by
    /// `CriSetFarEndPmaxCapability`.
    /// @return 0x800C exactly if the DSP is not accessible and the values were kept for later, which is
    /// success.
    virtual EACMHResult setFarEndPmaxCapability(const std::map<zyr_top_api::Modulation, int>& /*capability*/)
    {
        return eACMH_E_NOT_IMPLEMENTED;
    }

    /// Keeps the thresholds for later, behind a 0x800C of `setFarEndPmaxCapability`. Called by
    /// `CriSetFarEndPmaxCapability`. The default body does nothing.
    virtual void cacheThresholds() {}

    /// Told when `CriDisableModulation` has switched the modulation off. The default body does nothing.
    virtual void disableModulation() {}

    /// Told when `CriDisableModulation` has switched the modulation on again. The default body does nothing.
    virtual void enableModulation() {}

    /// Takes over what the hardware does after a warm restart. Called by `CriWarmInitCompleted`; the result
    /// is ignored.
    virtual EACMHResult syncAfterWarmRestart() { return eACMH_E_NOT_IMPLEMENTED; }

    /// Gives the lowest modulations since the last reset, and resets them if `reset` is true. Called by
    /// `CriGetRadioChannelStatus`, which always resets, and `TiManageRadioChannelStatus`. The default body
    /// answers 0x8001 and leaves both arguments.
    virtual zyr_top_api::ETIResult getLowestModulationAndCode(zyr_top_api::ModulationAndCoding& /*rx*/,
                                                              zyr_top_api::ModulationAndCoding& /*tx*/,
                                                              bool /*reset*/)
    {
        return zyr_top_api::eTI_E_NOT_IMPLEMENTED;
    }

    /// The modulation that is sent now; the default body answers `UNDEFINED`. Called by
    /// `TiManageRadioChannelStatus`.
    virtual zyr_top_api::ModulationAndCoding getCurrentTxModulationAndCode() const
    {
        return zyr_top_api::ModulationAndCoding::UNDEFINED;
    }

    /// The modulation that is received now; the default body answers `UNDEFINED`. Called by
    /// `TiManageRadioChannelStatus`.
    virtual zyr_top_api::ModulationAndCoding getCurrentRxModulationAndCode() const
    {
        return zyr_top_api::ModulationAndCoding::UNDEFINED;
    }
};
