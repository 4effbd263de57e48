#pragma once

#include "ERAUHResult.h"
#include "ETIResult.h"
#include "IInterface.h"
#include "RadioRestartStatus.h"

#include <cstdint>

/// The radio unit of one channel, published as "IRadio_<n>".
class ZYR_EXPORT IRadio : public IInterface
{
  public:
    /// Whether the radio unit answers. Called by `CriSetRadioChannelNearEnd` and `CriRestartRadio`.
    virtual bool isAvailable() = 0;

    /// Starts a restart; type 0 is the cold restart. Called by `CriRestartRadio`; the result is ignored.
    virtual zyr_top_api::ERAUHResult triggerRestart(unsigned restartType) = 0;

    /// How the restart stands. Called by `CriRestartRadio`.
    virtual zyr_top_api::RadioRestartStatus getRestartStatus() = 0;

    /// Ends a restart whose outcome has been read. Called by `CriRestartRadio`; the result is ignored.
    virtual zyr_top_api::ERAUHResult endRestart() = 0;

    /// Whether the radio unit has power. Called by `CriGetRauPowerSupplied`.
    virtual bool isPowerSupplied() = 0;

    /// Gives the radio unit power, or takes it away: the request's number, unread. Called by
    /// `CriSetRauPowerSupplied`; the result is ignored.
    virtual zyr_top_api::ERAUHResult setPowerSupplied(std::uint32_t value) = 0;

    /// Selects the sub-band. Called by `CriSetActiveSubBand`; results from 0x8000 are failures.
    virtual zyr_top_api::ETIResult setActiveSubBand(unsigned char subBand) = 0;
};
