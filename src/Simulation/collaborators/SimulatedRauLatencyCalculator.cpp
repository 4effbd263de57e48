#include "SimulatedRauLatencyCalculator.h"

#include "Hop.h"
#include "RadioType.h"

#include <algorithm>
#include <cstdlib>

namespace zyr_simulation
{

using bcm::types::ModemChain;
using zyr_top_api::ETIResult;
using zyr_top_api::RauLatencyGroup;
using zyr_top_api::RauLatencyRequest;

namespace
{

constexpr auto kResetNeeded = static_cast<ETIResult>(0x8013);

/// The latencies in force when those that are given replace the present ones.
LatencyState withGiven(LatencyState latency, const RauLatencyRequest& request)
{
    const auto replace = [](std::int32_t& present, const RauLatencyGroup& group) {
        present = group.hasValue != 0 ? group.value : present;
    };
    replace(latency.xpicSlave, request.group2);
    replace(latency.mimoSpatial, request.group5);
    replace(latency.mimoSpatialSlave, request.group6);
    return latency;
}

bool isFar(std::int64_t wanted, std::int64_t present)
{
    return std::abs(wanted - present) > kGreatestLatencyStep_ns;
}

/// Lets every receive chain wait for the slowest one, as far as its delay goes.
void programDelays(DspChannelState& dsp, const LatencyState& latency)
{
    constexpr std::int64_t greatestDelay = 255;
    const auto program = [&](ModemChain chain, std::int64_t own) {
        const auto samples = (latency.greatest() - own) / kLatencySample_ns;
        dsp.delaysOf(chain).adjFifo = static_cast<std::uint8_t>(std::min(samples, greatestDelay));
    };
    program(ModemChain::Main, 0);
    program(ModemChain::XpicSlave, latency.xpicSlave);
    program(ModemChain::MimoSpatial, latency.mimoSpatial);
    program(ModemChain::MimoXSpatialSlave, latency.mimoSpatialSlave);
}

} // namespace

ETIResult SimulatedRauLatencyCalculator::getCurrentLatency(bool& first, bool& isValid, std::uint32_t& third,
                                                           std::uint32_t& latency)
{
    return ask<ETIResult>("getCurrentLatency", [&] {
        third = channel().latency.greatest();
        first = third != 0;
        isValid = channel().receiver.isLinkUp;
        latency = hopLatency_ns(node()) + third;
    });
}

ETIResult SimulatedRauLatencyCalculator::calculateAndSetDspDelayCompensation(RauLatencyRequest request)
{
    return perform<ETIResult>("calculateAndSetDspDelayCompensation", [&] {
        auto& present = channel().latency;
        const auto recoveries = node().dsp.recoveries;
        if (!radioType(node().settings.radioType).features.PathLatencyCapable) {
            return zyr_top_api::eTI_E_FAILED;
        }
        auto wanted = withGiven(present, request);
        const bool needsReset = isFar(wanted.xpicSlave, present.xpicSlave) ||
                                isFar(wanted.mimoSpatial, present.mimoSpatial) ||
                                isFar(wanted.mimoSpatialSlave, present.mimoSpatialSlave);
        if (needsReset && present.resetNeededBehind.value_or(recoveries) == recoveries) {
            present.resetNeededBehind = recoveries;
            return kResetNeeded;
        }
        wanted.resetNeededBehind.reset();
        present = wanted;
        programDelays(channel().dsp, present);
        return zyr_top_api::eTI_S_OK;
    });
}

} // namespace zyr_simulation
