#pragma once

#include "ETIResult.h"
#include "IInterface.h"
#include "PpsOutputMode.h"

#include <string>

namespace nord::zyr::pps
{

/// The pulse per second of one channel.
class ZYR_EXPORT IPpsController : public IInterface
{
  public:
    /// "IPpsController<n>", under which the controller of a channel is published.
    static std::string interfaceName(zyr_top_api::RadioChannel channel)
    {
        // sic: no "_" before the number, the controller publishes itself so
        return "IPpsController" + std::to_string(channel);
    }

    /// Makes the channel follow the far end's pulse (slave) or lead it, and sets its output. Called by
    /// `CriSetRadioChannelNearEnd`; the result is ignored.
    virtual zyr_top_api::ETIResult configureRole(bool ppsSlave, zyr_top_api::PpsOutputMode outputMode) = 0;

    /// Gives the latency of the hop, in nanoseconds. Called by `CriGetRadioChannelStatus`; results from
    /// 0x8000 are failures.
    virtual zyr_top_api::ETIResult getHopLengthLatency(unsigned& nanoSec) = 0;
};

} // namespace nord::zyr::pps
