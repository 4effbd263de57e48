#pragma once

#include "ETxPowerActualStatus.h"
#include "IInterface.h"

#include <string>

/// The transmitter of one channel.
class ZYR_EXPORT IOutputPowerController : public IInterface
{
  public:
    /// "IOutputPowerController_<n>", under which the controller of a channel is published.
    static std::string interfaceName(zyr_top_api::RadioChannel channel)
    {
        return IInterface::interfaceName("IOutputPowerController", channel);
    }

    /// The state of the transmitter now. Called by `CriSetRadioChannelNearEnd`, which waits for it,
    /// `CriGetRadioChannelStatus` and `TiManageRadioChannelStatus`.
    virtual zyr_top_api::ETxPowerActualStatus getTxStatus() = 0;

    /// Sets a gain of a power control loop. Called by `TiManageSpc` with loop 1 open or 0 closed, kind 5 or
    /// 6, and a hundred times the requested value.
    virtual void setGain(unsigned loop, unsigned kind, double value) = 0;

    /// A gain of a power control loop, a hundred times the value that `TiManageSpc` reports.
    virtual double getGain(unsigned loop, unsigned kind) = 0;
};
