#pragma once

#include "ETIResult.h"
#include "IInterface.h"
#include "RauLatencyRequest.h"

#include <cstdint>

/// The latency of one channel's radio path, published as "IRauLatencyCalculator_<n>". Called by
/// `CriManagePathLatency`.
class ZYR_EXPORT IRauLatencyCalculator : public IInterface
{
  public:
    /// Gives the latency of the receive path and whether it is valid; the first and third arguments are not
    /// looked at. The result is ignored.
    virtual zyr_top_api::ETIResult getCurrentLatency(bool& first, bool& isValid, std::uint32_t& third,
                                                     std::uint32_t& latency) = 0;

    /// Works out the DSP's delay compensation from the latencies and sets it. Results from 0x8000 are
    /// failures.
    /// @return 0x8013 exactly if the path latency needs a reset: one recovery and one more try follow.
    virtual zyr_top_api::ETIResult
    calculateAndSetDspDelayCompensation(zyr_top_api::RauLatencyRequest request) = 0;
};
