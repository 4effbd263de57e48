#pragma once

#include "ERAUHResult.h"
#include "IRadio.h"
#include "RauPowerMode.h"

#include <string>

/// The radio unit of one channel with its services. It is published under a name of its own, also where the
/// same object is published as `IRadio`. Results from 0x8000 are failures and are printed by their text.
class ZYR_EXPORT IRauHandler : public IRadio
{
  public:
    /// "IRauHandler_<n>", under which the handler of a channel is published.
    static std::string interfaceName(zyr_top_api::RadioChannel channel)
    {
        return IInterface::interfaceName("IRauHandler", channel);
    }

    /// Sets the switch at intermediate frequency of a unit with two transmitters; `channelIndex` counts from
    /// 0. Called by `CriSetRadioChannelNearEnd`.
    virtual zyr_top_api::ERAUHResult setTxIfSwitch2T2R(unsigned mode, unsigned channelIndex) = 0;

    /// Sets the power mode of the transceivers that `mode` names. Called by `CriSetRauPowerMode`, also with a
    /// mode that is none of theirs.
    virtual zyr_top_api::ERAUHResult setPowerMode(zyr_top_api::RauPowerMode mode) = 0;

    /// Gives the power mode of the transceivers that `trxId` names, as in `RauPowerMode`. Called by
    /// `CriGetRauPowerMode`.
    virtual zyr_top_api::ERAUHResult getPowerMode(unsigned char trxId, unsigned char& powerMode) = 0;

    /// Whether the unit has two transmitters and two receivers. Called by `CriGetIsRau2T2R`.
    virtual bool isRau2T2R() = 0;
};
