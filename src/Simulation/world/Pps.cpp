#include "Pps.h"

namespace zyr_simulation
{

namespace
{

using zyr_top_api::PpsCalibReasonOfFailure;
using zyr_top_api::PpsCalibStatus;
using zyr_top_api::PpsRtcCalibrationMode;
using zyr_top_api::PpsSource;

bool isRunning(const PpsState& pps)
{
    return pps.calibration == PpsCalibStatus::CoarseInProgress ||
           pps.calibration == PpsCalibStatus::FineInProgress ||
           pps.calibration == PpsCalibStatus::AutoFineInProgress;
}

void begin(NodeState& node, ChannelState& channel, PpsCalibStatus step)
{
    auto& pps = channel.pps;
    const bool isCoarse = step == PpsCalibStatus::CoarseInProgress;
    pps.calibration = step;
    pps.reasonOfFailure = PpsCalibReasonOfFailure::NotRelevant;
    pps.disturbance = isCoarse || pps.isCoarseDone ? PpsCalibReasonOfFailure::NotRelevant
                                                   : PpsCalibReasonOfFailure::CoarseNeeded;
    pps.rxModulation = channel.receiver.rxModulation;
    pps.txModulation = channel.receiver.txModulation;
    pps.stepEndsAt = node.settleAfter(isCoarse ? kPpsCoarseCalibrationTime : kPpsFineCalibrationTime);
}

void show(PpsState& pps, const PpsResult& result)
{
    pps.calibration = result.status;
    pps.reasonOfFailure = result.reason;
}

/// What disturbs a calibration at this moment.
PpsCalibReasonOfFailure disturbanceOf(const ChannelState& channel)
{
    const auto& pps = channel.pps;
    const auto& receiver = channel.receiver;
    const bool isExternal = pps.source == PpsSource::External || pps.source == PpsSource::External2;
    if (isExternal && !pps.isSignalPresent) {
        return PpsCalibReasonOfFailure::SlaveLOL;
    }
    if (!receiver.isLinkUp) {
        return PpsCalibReasonOfFailure::NoResponseFromMaster;
    }
    if (receiver.rxModulation != pps.rxModulation || receiver.txModulation != pps.txModulation) {
        return PpsCalibReasonOfFailure::SlaveAcmSwitch;
    }
    return PpsCalibReasonOfFailure::NotRelevant;
}

void endStep(NodeState& node, ChannelState& channel)
{
    auto& pps = channel.pps;
    const bool isUndisturbed = pps.disturbance == PpsCalibReasonOfFailure::NotRelevant;
    if (isUndisturbed && pps.calibration == PpsCalibStatus::CoarseInProgress) {
        pps.isCoarseDone = true;
        begin(node, channel, PpsCalibStatus::FineInProgress);
        return;
    }
    pps.lastResult = {isUndisturbed ? PpsCalibStatus::Successful : PpsCalibStatus::Failed, pps.disturbance};
    show(pps, pps.lastResult);
    if (pps.repeats) {
        pps.repeatsAt = node.settleAfter(std::chrono::milliseconds(pps.period_ms));
    }
}

} // namespace

bool startPpsCalibration(NodeState& node, ChannelState& channel, PpsRtcCalibrationMode mode,
                         std::uint16_t period_ms)
{
    auto& pps = channel.pps;
    switch (mode) {
    case PpsRtcCalibrationMode::CoarseAndFine:
        begin(node, channel, PpsCalibStatus::CoarseInProgress);
        break;
    case PpsRtcCalibrationMode::Fine:
        begin(node, channel, PpsCalibStatus::FineInProgress);
        break;
    case PpsRtcCalibrationMode::Auto:
        begin(node, channel, PpsCalibStatus::AutoFineInProgress);
        break;
    case PpsRtcCalibrationMode::AutoOff:
        if (pps.calibration == PpsCalibStatus::AutoFineInProgress) {
            show(pps, pps.lastResult);
        }
        break;
    default:
        return false;
    }
    pps.repeats = mode == PpsRtcCalibrationMode::Auto;
    pps.period_ms = period_ms;
    return true;
}

void settlePps(NodeState& node, ChannelState& channel)
{
    auto& pps = channel.pps;
    if (isRunning(pps)) {
        if (pps.disturbance == PpsCalibReasonOfFailure::NotRelevant) {
            pps.disturbance = disturbanceOf(channel);
        }
        if (node.now() >= pps.stepEndsAt) {
            endStep(node, channel);
        }
    } else if (pps.repeats && node.now() >= pps.repeatsAt) {
        begin(node, channel, PpsCalibStatus::AutoFineInProgress);
    }
}

} // namespace zyr_simulation
