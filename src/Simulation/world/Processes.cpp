#include "Processes.h"

#include "DualStream.h"
#include "SpectrumScan.h"
#include "Taps.h"

#include <cstddef>

namespace zyr_simulation
{

namespace
{

using std::chrono::nanoseconds;
using zyr_top_api::BasebandSdcDadeStatus;
using zyr_top_api::ETxPowerActualStatus;
using zyr_top_api::ETxPowerOverrideState;
using zyr_top_api::RadioRestartStatus;
using zyr_top_api::SdcStatus;
using zyr_top_api::TxRequestedStatus;

void settleRadio(NodeState& node, ChannelState& channel, nanoseconds now)
{
    auto& radio = channel.radio;
    radio.isStarting = radio.isStarting && now < radio.startEndsAt;
    if (radio.restart == RadioRestartStatus::Restarting && now >= radio.restartEndsAt) {
        const bool isThere = radio.isAvailable && radio.isPowerSupplied;
        radio.restart = isThere ? RadioRestartStatus::RestartSuccessful : RadioRestartStatus::RestartFailed;
    }
    node.alarms.set(alarm::kRadioDown, channel.number, !radio.isUp());
}

ETxPowerActualStatus wantedStatus(const NodeState& node, const ChannelState& channel)
{
    const auto& transmitter = channel.transmitter;
    const bool on = transmitter.overridden == ETxPowerOverrideState::AsRequested &&
                    transmitter.requested == TxRequestedStatus::On && channel.radio.isUp() &&
                    channel.radio.transmittersOn(node.settings.twoTransmitters).on > 0;
    return on ? ETxPowerActualStatus::On : ETxPowerActualStatus::Off;
}

void settleTransmitter(NodeState& node, ChannelState& channel, nanoseconds now)
{
    auto& transmitter = channel.transmitter;
    const auto wanted = wantedStatus(node, channel);
    if (transmitter.target != wanted) {
        transmitter.target = wanted;
        transmitter.switchesAt = node.settleAfter(kTransmitterSwitchTime);
    }
    // A unit that isn't up sends nothing from that moment on.
    const bool isDue = now >= transmitter.switchesAt || !channel.radio.isUp();
    if (transmitter.status != transmitter.target && isDue) {
        transmitter.status = transmitter.target;
        node.alarms.set(alarm::kTxOff, channel.number, transmitter.status == ETxPowerActualStatus::Off);
    }
}

/// Ends a calibration of the baseband's combiner, or its stopping.
void settleDade(BasebandSdcState& sdc, nanoseconds now)
{
    const bool isStopping = sdc.dade == BasebandSdcDadeStatus::CalibrationStopping;
    if (now < sdc.dadeEndsAt || (!isStopping && sdc.dade != BasebandSdcDadeStatus::CalibrationOngoing)) {
        return;
    }
    sdc.isCalibrated = sdc.isCalibrated || !isStopping;
    sdc.dade =
        sdc.isCalibrated ? BasebandSdcDadeStatus::Calibrated : BasebandSdcDadeStatus::CalibrationNotStarted;
}

void settleBasebandSdc(NodeState& node, BasebandSdcState& sdc, nanoseconds now)
{
    if (sdc.isStarted != sdc.isWanted && now >= sdc.switchesAt) {
        sdc.isStarted = sdc.isWanted;
        if (!sdc.isStarted) {
            sdc.isCalibrated = false;
            sdc.dade = BasebandSdcDadeStatus::CalibrationNotStarted;
        } else if (sdc.calibratesWhenStarted) {
            beginCalibration(node, sdc);
        }
    }
    settleDade(sdc, now);
}

void settleSdc(SdcState& sdc, nanoseconds now)
{
    if (sdc.operation == SdcStatus::InProgress && now >= sdc.operationEndsAt) {
        sdc.operation = SdcStatus::Active;
    }
    if (sdc.dade == SdcStatus::InProgress && now >= sdc.dadeEndsAt) {
        sdc.dade = SdcStatus::Active;
        sdc.isCalibrated = true;
    }
}

/// Brings a cached capability into force when the channel's DSP can be reached.
void settleFarEndPmax(const NodeState& node, ChannelState& channel)
{
    if (channel.farEndPmaxCached && channel.isConfigured() && !node.dsp.isRecovering) {
        channel.farEndPmaxInForce = channel.farEndPmaxCapability;
        channel.farEndPmaxCached = false;
        channel.thresholdsCached = false;
    }
}

void settleTapsLog(const NodeState& node, ChannelState& channel, nanoseconds now)
{
    constexpr std::size_t greatestSize = 1000;
    auto& log = channel.tapsLog;
    while (log.isActive && now >= log.nextSampleAt) {
        log.samples.push_back(tapsSample(node, channel, log.nextSampleAt));
        if (log.samples.size() > greatestSize) {
            log.samples.pop_front();
        }
        log.nextSampleAt += std::chrono::seconds(log.period_s);
    }
}

} // namespace

void settleDspRecovery(NodeState& node)
{
    if (node.dsp.isRecovering && node.now() >= node.dsp.recoveryEndsAt) {
        node.dsp.isRecovering = false;
        node.alarms.clear(alarm::kDspRecovery, 0);
    }
}

void beginCalibration(NodeState& node, BasebandSdcState& sdc)
{
    sdc.dade = BasebandSdcDadeStatus::CalibrationOngoing;
    sdc.dadeEndsAt = node.settleAfter(kDadeCalibrationTime);
}

void settleProcesses(NodeState& node, ChannelState& channel)
{
    const auto now = node.now();
    settleRadio(node, channel, now);
    settleTransmitter(node, channel, now);
    settleBasebandSdc(node, channel.basebandSdc, now);
    settleSdc(channel.sdc, now);
    settleTapsLog(node, channel, now);
    settleFarEndPmax(node, channel);
    settleScan(node, channel);
    settleXpic(node, channel);
}

} // namespace zyr_simulation
