#include "Mimo.h"

#include "DualStream.h"
#include "Processes.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>

namespace zyr_simulation
{

using zyr_top_api::MimoCalibrationStatus;
using zyr_top_api::MimoLockStatus;
using zyr_top_api::MimoStatusStruct;

namespace
{

// What a receiver is away from at the beginning of its sweep.
constexpr std::int32_t kFirstGainDifference_dBTenths = 60;
constexpr std::int32_t kFirstCarrierOffset_Hz = 12'000;

/// The share of a first error that is left at this moment of a sweep.
double errorLeft(const NodeState& node, std::chrono::nanoseconds sweepEnd, std::chrono::nanoseconds sweepTime)
{
    constexpr double decaysInSweep = 5.0;
    const std::chrono::duration<double> elapsed = node.now() - (sweepEnd - sweepTime);
    return std::exp(-decaysInSweep * elapsed / std::chrono::duration<double>(sweepTime));
}

std::int32_t settling(std::int32_t value, std::int32_t firstError, double share)
{
    return value + static_cast<std::int32_t>(std::lround(firstError * share));
}

/// The calibration's step that begins now, and when it ends.
void enter(NodeState& node, MimoState& mimo, MimoCalibrationStatus step, std::chrono::nanoseconds duration)
{
    mimo.calibration = step;
    mimo.calibrationStepEndsAt = node.settleAfter(duration);
}

void settleCalibration(NodeState& node, ChannelState& channel)
{
    using enum MimoCalibrationStatus;
    auto& mimo = channel.mimo;
    const bool isRunning = mimo.calibration == WaitingToStart || mimo.calibration == InProgress;
    if (!isRunning || node.now() < mimo.calibrationStepEndsAt) {
        return;
    }
    if (!channel.receiver.isLinkUp) {
        mimo.calibration = TimeoutFailure;
    } else if (mimo.calibration == WaitingToStart) {
        enter(node, mimo, InProgress, kMimoCalibrationTime);
    } else {
        const auto fault = node.faults.take(kMimoCalibration, kMimoCorrelation, channel.number);
        mimo.calibration = fault ? NoCorrelationFailure : Success;
    }
}

} // namespace

void applyMimoConfiguration(NodeState& node, ChannelState& channel)
{
    channel.mimo.sweepsUntil = node.settleAfter(kMimoSweepTime);
    channel.xpic.sweepsUntil = node.settleAfter(kXpicSweepTime);
}

void beginMimoCalibration(NodeState& node, ChannelState& channel)
{
    enter(node, channel.mimo, MimoCalibrationStatus::WaitingToStart, kMimoCalibrationWaitTime);
}

void settleMimo(NodeState& node, ChannelState& channel)
{
    auto& mimo = channel.mimo;
    const bool hears = mimo.isStarted() && !mimo.isSpatialMuted && channel.receiver.isLinkUp;
    if (hears && !mimo.hearsSpatialPath) {
        mimo.sweepsUntil = node.settleAfter(kMimoSweepTime);
    }
    mimo.hearsSpatialPath = hears;
    if (mimo.isSpatialMuted) {
        mimo.lock = MimoLockStatus::Mute;
    } else {
        const bool isLocked = hears && node.now() >= mimo.sweepsUntil;
        mimo.lock = isLocked ? MimoLockStatus::Locked : MimoLockStatus::Unlocked;
    }
    settleCalibration(node, channel);
}

MimoStatusStruct mimoStatus(const NodeState& node, const ChannelState& channel)
{
    const auto& mimo = channel.mimo;
    MimoStatusStruct status;
    status.diversityMute = mimo.isSpatialMuted;
    status.slaveSweepInProgress = slaveSweeps(node, channel);
    status.spatialSlaveSweepStatus = mimo.isStarted() && mimo.lock == MimoLockStatus::Unlocked;
    if (mimo.hearsSpatialPath) {
        const auto share = errorLeft(node, mimo.sweepsUntil, kMimoSweepTime);
        status.gainDifferenceDbTenths =
            settling(gainDifference_dBTenths(node, channel), kFirstGainDifference_dBTenths, share);
        const auto eta = eta_tenThousandths(node, channel);
        status.etaTenThousands = static_cast<std::uint32_t>(std::max(settling(eta, -eta, share), 0));
        status.spatialXpdDbTenths = crossPolarDiscrimination_dBTenths(node, channel, Stream::Spatial);
        status.spatialCarrierOffsetHz =
            settling(carrierOffset_Hz(node, channel, Stream::Spatial), kFirstCarrierOffset_Hz, share);
        status.spatialSlaveCarrierOffsetHz =
            settling(carrierOffset_Hz(node, channel, Stream::SpatialSlave), -kFirstCarrierOffset_Hz, share);
    }
    if (mimo.isStarted() && channel.xpic.findsCarrier) {
        const auto share = errorLeft(node, channel.xpic.sweepsUntil, kXpicSweepTime);
        status.xpdDbTenths = crossPolarDiscrimination_dBTenths(node, channel);
        status.slaveCarrierOffsetHz =
            settling(carrierOffset_Hz(node, channel), kFirstCarrierOffset_Hz, share);
    }
    return status;
}

int mimoMode(const NodeState& node, const ChannelState& channel)
{
    constexpr int none = 0;
    constexpr int twoByTwo = 4;
    constexpr int fourByFour = 9;
    if (!channel.mimo.isStarted()) {
        return none;
    }
    const bool bothChannels =
        node.channels.size() == 2 &&
        std::ranges::all_of(node.channels, [](const ChannelState& each) { return each.mimo.isStarted(); });
    return bothChannels ? fourByFour : twoByTwo;
}

double capacityShare(const ChannelState& channel)
{
    constexpr double ofOneStream = 0.5;
    const auto& mimo = channel.mimo;
    return mimo.isStarted() && mimo.lock != MimoLockStatus::Locked ? ofOneStream : 1.0;
}

} // namespace zyr_simulation
