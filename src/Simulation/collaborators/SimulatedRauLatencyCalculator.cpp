#include "SimulatedRauLatencyCalculator.h"

#include "Hop.h"
#include "RadioType.h"

#include <algorithm>

namespace zyr_simulation
{

using zyr_top_api::ETIResult;
using zyr_top_api::RauLatencyRequest;

namespace
{

constexpr auto kResetNeeded = static_cast<ETIResult>(0x8013);

/// The greatest of the latencies that are given, at least 0.
std::uint32_t greatestOf(const RauLatencyRequest& request)
{
    std::int32_t greatest = 0;
    for (const auto& group :
         {request.group1, request.group2, request.group3, request.group4, request.group5, request.group6}) {
        if (group.hasValue != 0) {
            greatest = std::max(greatest, group.value);
        }
    }
    return static_cast<std::uint32_t>(greatest);
}

} // namespace

ETIResult SimulatedRauLatencyCalculator::getCurrentLatency(bool& first, bool& isValid, std::uint32_t& third,
                                                           std::uint32_t& latency)
{
    return perform<ETIResult>("getCurrentLatency", [&] {
        first = channel().latency.isCompensated;
        isValid = channel().receiver.isLinkUp;
        third = channel().latency.compensation;
        latency = isValid ? hopLatency_ns(node()) + third : 0;
    });
}

ETIResult SimulatedRauLatencyCalculator::calculateAndSetDspDelayCompensation(RauLatencyRequest request)
{
    return perform<ETIResult>("calculateAndSetDspDelayCompensation", [&] {
        auto& latency = channel().latency;
        if (!radioType(node().settings.radioType).features.PathLatencyCapable) {
            return zyr_top_api::eTI_E_FAILED;
        }
        if (latency.isCompensated && latency.setInRecovery == node().dsp.recoveries) {
            return kResetNeeded;
        }
        latency = {true, greatestOf(request), node().dsp.recoveries};
        return zyr_top_api::eTI_S_OK;
    });
}

} // namespace zyr_simulation
