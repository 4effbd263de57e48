#include "Hop.h"

#include "Diversity.h"
#include "FrameDatabase.h"
#include "Interference.h"
#include "Mimo.h"
#include "ModulationLadder.h"
#include "RadioType.h"
#include "Taps.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zyr_simulation
{

namespace
{

using zyr_top_api::AcmMode;
using zyr_top_api::AcmRlpControl;
using zyr_top_api::AcmThreshold;
using zyr_top_api::ETxPowerActualStatus;
using zyr_top_api::ForceLoopMode;
using zyr_top_api::ModulationAndCoding;
using Seconds = std::chrono::duration<double>;
using namespace std::chrono_literals;

constexpr double kNoiseDensity_dBmTenths = -1740.0 + 60.0; ///< In 1 Hz, with the receiver's own noise.
constexpr std::int32_t kSnirCeiling_dBTenths = 450;
constexpr std::int32_t kPowerHysteresis_dBTenths = 10;
constexpr double kPowerStepPerBit_dBTenths = 5.0;
constexpr std::int32_t kLoopLoss_dBTenths = 500; ///< From the transmitter back to the receiver.
constexpr double kLossOfATransceiver_dBTenths = 30.0;

/// Below this distance to the SNIR that the modulation needs, blocks come errored: up to so many of them.
constexpr double kScarceMargin_dBTenths = 10.0;
constexpr double kGreatestErrorShare = 0.02;

/// What the second antenna's fading is ahead of the first one's, in radians.
constexpr double kDiversityPhase = 2.3;

/// The channels' fading: two waves, each with its own period and a phase that follows from seed and channel.
double fading_dBTenths(const NodeState& node, const ChannelState& channel, double ahead = 0)
{
    constexpr double firstPeriod_s = 97.0;
    constexpr double secondPeriod_s = 41.0;
    const auto time = Seconds(node.now()).count();
    const auto phase = static_cast<double>(node.settings.seed) * 0.7 + channel.number * 1.9 + ahead;
    const auto wave = std::sin(2 * std::numbers::pi * time / firstPeriod_s + phase) +
                      std::sin(2 * std::numbers::pi * time / secondPeriod_s + 2 * phase);
    return node.settings.fading_dBTenths * wave / 2;
}

std::int32_t rounded(double value)
{
    return static_cast<std::int32_t>(std::lround(value));
}

/// A level or a power as it can be: commands and settings may give any number.
std::int32_t level(double value_dBmTenths)
{
    constexpr double greatest_dBmTenths = 1000.0;
    return rounded(std::clamp(value_dBmTenths, static_cast<double>(kNoLevel_dBmTenths), greatest_dBmTenths));
}

/// What the path to the main antenna takes away.
double attenuation_dBTenths(const NodeState& node, const ChannelState& channel)
{
    return node.settings.pathLoss_dBTenths + fading_dBTenths(node, channel);
}

std::int32_t levelAtFarEnd(const ChannelState& channel, double attenuation)
{
    return level(channel.transmitter.power - attenuation);
}

std::int32_t snirOf(std::int32_t level, double interference_mW, const ChannelState& channel)
{
    const auto snr = std::min(level - noiseFloor_dBmTenths(channel), kSnirCeiling_dBTenths);
    if (interference_mW <= 0) {
        return snr;
    }
    const auto disturbed = level - 100.0 * std::log10(interference_mW);
    return rounded(-100.0 * std::log10(std::pow(10.0, -snr / 100.0) + std::pow(10.0, -disturbed / 100.0)));
}

/// What the signal lacks while a transceiver of the unit is switched off: its half.
double lossOfTransceivers_dBTenths(const NodeState& node, const ChannelState& channel)
{
    const auto transmitters = channel.radio.transmittersOn(node.settings.twoTransmitters);
    return transmitters.on == transmitters.all ? 0.0 : kLossOfATransceiver_dBTenths;
}

/// The power at which power control aims.
/// @param follows  what brings the far end to its target at this moment
/// @param greatest  the upper end of the window
std::int32_t aimedPower(TransmitterState& transmitter, std::int32_t follows, std::int32_t greatest)
{
    if (transmitter.loopMode == ForceLoopMode::OpenLoop) {
        transmitter.aim.reset();
        return greatest;
    }
    auto& aim = transmitter.aim;
    const bool isHeld = transmitter.loopMode == ForceLoopMode::NormalOperation && aim &&
                        aim->target == transmitter.farEndTarget &&
                        std::abs(aim->power - follows) <= kPowerHysteresis_dBTenths;
    if (!isHeld) {
        aim = {transmitter.farEndTarget, follows};
    }
    return aim->power;
}

std::int32_t transmittedPower(const NodeState& node, ChannelState& channel, double attenuation)
{
    auto& transmitter = channel.transmitter;
    if (transmitter.status != ETxPowerActualStatus::On) {
        transmitter.aim.reset();
        return kNoLevel_dBmTenths;
    }
    const auto greatest = transmitter.maxPower + tapsDecision(node, channel).deltaPower;
    const auto wanted = aimedPower(transmitter, level(transmitter.farEndTarget + attenuation), greatest);
    const auto power = level(std::clamp(wanted, transmitter.minPower, greatest));
    const auto limited = transmitter.ignoresLimits
                             ? power
                             : std::min(power, greatestPower(node, channel, channel.minModulation));
    return level(limited - lossOfTransceivers_dBTenths(node, channel));
}

/// Whether a test signal goes out in place of traffic. The far end can't lock to it, and then takes the link
/// down at both ends.
bool sendsTestSignal(const ChannelState& channel)
{
    const auto signal = channel.dsp.txSignals.find(bcm::types::ModemChain::Main);
    const bool isNormal =
        signal == channel.dsp.txSignals.end() || signal->second.mode == zyr_top_api::eDspATxModeNormal;
    return !isNormal || channel.modulationDisabled;
}

/// Whether the channel's modem is ready and its transmitter on, whatever it sends.
bool isOnAir(const NodeState& node, const ChannelState& channel)
{
    return channel.transmitter.status == ETxPowerActualStatus::On && channel.isConfigured() &&
           !node.dsp.isRecovering;
}

/// The rung of a modulation; one that isn't on the ladder is out of reach.
LadderRung ladderRung(ModulationAndCoding modulation)
{
    const auto step = ladderStep(modulation);
    return step ? modulationLadder()[*step] : LadderRung{modulation, 0.0, kSnirCeiling_dBTenths};
}

/// How much more the receiver needs for a modulation, as the far end sends it with less power than others.
std::int32_t farEndShift(const ChannelState& channel, ModulationAndCoding modulation)
{
    const auto& pmax = channel.farEndPmaxInForce;
    if (pmax.empty()) {
        return 0;
    }
    const auto* const row = zyr_top_api::findModulationAndCode(modulation);
    const auto own = row == nullptr ? pmax.end() : pmax.find(row->modulation);
    if (own == pmax.end()) {
        return 0;
    }
    const std::int64_t greatest =
        std::ranges::max_element(pmax, {}, [](const auto& told) { return told.second; })->second;
    return static_cast<std::int32_t>(std::min<std::int64_t>(greatest - own->second, kSnirCeiling_dBTenths));
}

/// What power control sees in place of the received level while its object is under simulation and a sweep
/// runs.
std::int32_t seenLevel(const NodeState& node, const ChannelState& channel, std::int32_t received)
{
    constexpr unsigned up = 0;
    constexpr unsigned stopped = 2;
    const auto& sweep = channel.spcSimulation;
    if (!sweep.isObjectSimulated || sweep.mode == stopped) {
        return received;
    }
    const double way = sweep.step * std::floor(Seconds(node.now() - sweep.startedAt).count());
    return level(std::clamp(sweep.mode == up ? sweep.start + way : sweep.start - way,
                            static_cast<double>(sweep.min), static_cast<double>(sweep.max)));
}

/// The detectors change over at two powers, so that they don't flutter between them.
void chooseDetector(ChannelState& channel)
{
    auto& usesHigh = channel.transmitterChain.usesHighDetector;
    usesHigh =
        channel.transmitter.power >= (usesHigh ? kLowDetectorBelow_dBmTenths : kHighDetectorFrom_dBmTenths);
}

/// The SNIR below which the receiver leaves a modulation.
std::int32_t rxThreshold(const ChannelState& channel, const LadderRung& rung)
{
    return rung.requiredSnir_dBTenths + farEndShift(channel, rung.modulation);
}

/// The same at the far end, whose receiver isn't told the powers here.
std::int32_t txThreshold(const ChannelState& /*channel*/, const LadderRung& rung)
{
    return rung.requiredSnir_dBTenths;
}

/// The modulation that this SNIR allows.
ModulationAndCoding modulationAt(const ChannelState& channel, std::int32_t snir,
                                 std::int32_t (*threshold)(const ChannelState&, const LadderRung&))
{
    const auto rungs = rungsBetween(channel.minModulation, channel.maxModulation);
    const auto best = std::find_if(rungs.rbegin(), rungs.rend(),
                                   [&](const LadderRung& rung) { return threshold(channel, rung) <= snir; });
    return best == rungs.rend() ? channel.minModulation : best->modulation;
}

ModulationAndCoding withinRange(const ChannelState& channel, ModulationAndCoding modulation)
{
    const auto step = ladderStep(modulation);
    if (!step || step < ladderStep(channel.minModulation)) {
        return channel.minModulation;
    }
    return step > ladderStep(channel.maxModulation) ? channel.maxModulation : modulation;
}

/// The modulation in force in one direction.
/// @param allowed  what the SNIR allows
/// @param isStandby  whether the direction is kept at the least modulation
/// @param held  what the mode Passive holds; being muted is too short to be held
ModulationAndCoding inForce(const ChannelState& channel, ModulationAndCoding allowed, bool isStandby,
                            ModulationAndCoding& held)
{
    const bool isPassive = channel.dsp.acmMode == AcmMode::Passive;
    const bool isLeast =
        !channel.acmEnabled || channel.acmMuted || isStandby || channel.dsp.acmMode == AcmMode::Basic;
    const auto moving = isPassive ? withinRange(channel, held) : allowed;
    const auto modulation = isLeast ? channel.minModulation : moving;
    if (!isPassive && !channel.acmMuted) {
        held = modulation;
    }
    return modulation;
}

bool receives(const NodeState& node, const ChannelState& channel)
{
    const bool isSignalThere = channel.loops.isClosed()
                                   ? channel.transmitter.status == ETxPowerActualStatus::On
                                   : node.settings.farEndTransmits;
    return isSignalThere && channel.radio.isUp() && channel.rxFrequency_kHz != 0 &&
           !channel.scan.isRunning() && channel.radio.transmittersOn(node.settings.twoTransmitters).on > 0;
}

/// What the receiver gets from both antennas: of the channel's own signal if a loop is closed.
/// @param attenuation  that of the path to the main antenna
void receiveLevels(const NodeState& node, ChannelState& channel, double attenuation)
{
    auto& diversity = channel.receiver.diversity;
    if (!receives(node, channel)) {
        diversity.mainLevel = diversity.level = kNoLevel_dBmTenths;
        return;
    }
    if (channel.loops.isClosed()) {
        diversity.mainLevel = diversity.level = level(channel.transmitter.power - kLoopLoss_dBTenths);
        return;
    }
    const auto over = [&](double path) {
        return level(node.settings.farEndTxPower_dBmTenths - path -
                     lossOfTransceivers_dBTenths(node, channel));
    };
    diversity.mainLevel = over(attenuation);
    diversity.level =
        over(node.settings.diversityPathLoss_dBTenths + fading_dBTenths(node, channel, kDiversityPhase));
}

/// A level of none has no SNIR either.
std::int32_t receivedSnir(std::int32_t level, double interference_mW, const ChannelState& channel)
{
    return level > kNoLevel_dBmTenths ? std::max(snirOf(level, interference_mW, channel), 0) : 0;
}

/// The share of errored blocks that comes of the signal itself.
double errorShare(const ChannelState& channel)
{
    if (!channel.encryption.keysAgree()) {
        return 1.0;
    }
    const auto& receiver = channel.receiver;
    const auto margin = receiver.snir - rxThreshold(channel, ladderRung(receiver.rxModulation));
    return std::clamp(1.0 - margin / kScarceMargin_dBTenths, 0.0, 1.0) * kGreatestErrorShare;
}

/// The share of the time since the last count in which errors have been injected, times what they strike.
double injectedShare(const ReceiverState& receiver, std::chrono::nanoseconds now)
{
    const auto elapsed = now - receiver.settledAt;
    const auto injected = std::clamp(receiver.injectsUntil - receiver.settledAt, 0ns, elapsed);
    return receiver.injectsErrors && elapsed > 0ns
               ? receiver.injectedPercentage / 100.0 * (Seconds(injected) / Seconds(elapsed))
               : 0.0;
}

/// Counts what has been received since the last time, under the conditions of the last time.
void countBlocks(const NodeState& node, ChannelState& channel)
{
    auto& receiver = channel.receiver;
    const auto now = node.now();
    if (receiver.isLinkUp) {
        const auto blocks =
            Seconds(now - receiver.settledAt).count() * kBlocksPerSecond * capacityShare(channel);
        const auto errored = blocks * std::min(1.0, errorShare(channel) + injectedShare(receiver, now));
        receiver.received.blocks += blocks;
        receiver.received.erroredBlocks += errored;
        receiver.received.erroredSinceLock += errored;
    }
    receiver.settledAt = now;
}

void setLink(NodeState& node, ChannelState& channel, bool isUp)
{
    auto& receiver = channel.receiver;
    if (receiver.isLinkUp == isUp) {
        return;
    }
    receiver.isLinkUp = isUp;
    node.alarms.set(alarm::kLinkDown, channel.number, !isUp);
    if (isUp) {
        ++receiver.lockedCounter;
        receiver.received.erroredSinceLock = 0;
    }
}

/// The more robust of two modulations, `UNDEFINED` standing for none.
ModulationAndCoding lower(ModulationAndCoding left, ModulationAndCoding right)
{
    if (left == right) { // as nearly always
        return left;
    }
    const auto leftStep = ladderStep(left);
    const auto rightStep = ladderStep(right);
    return !rightStep || (leftStep && *leftStep <= *rightStep) ? left : right;
}

void keepLowest(const NodeState& node, const ChannelState& channel, ReceiverState& receiver)
{
    if (receives(node, channel)) {
        receiver.lowestLevel = std::min(receiver.level, receiver.lowestLevel.value_or(receiver.level));
    }
    if (receiver.isLinkUp) {
        receiver.lowestSnir = std::min(receiver.snir, receiver.lowestSnir.value_or(receiver.snir));
    }
    receiver.lowestRxModulation = lower(receiver.rxModulation, receiver.lowestRxModulation);
    receiver.lowestTxModulation = lower(receiver.txModulation, receiver.lowestTxModulation);
}

} // namespace

void settleHop(NodeState& node, ChannelState& channel)
{
    countBlocks(node, channel);

    auto& receiver = channel.receiver;
    const auto attenuation = attenuation_dBTenths(node, channel);
    channel.transmitter.power = transmittedPower(node, channel, attenuation);
    chooseDetector(channel);
    const bool isLooped = channel.loops.isClosed();
    const bool isStandby = channel.dsp.rlpControl == AcmRlpControl::StandbyTx;
    const bool sends = isOnAir(node, channel) && !sendsTestSignal(channel);

    receiveLevels(node, channel, attenuation);
    // The own signal in a closed loop is the only one that the receiver gets.
    const auto disturbance = isLooped ? 0.0 : interference_mW(node, channel);
    receiver.diversity.mainSnir = receivedSnir(receiver.diversity.mainLevel, disturbance, channel);
    receiver.diversity.snir = receivedSnir(receiver.diversity.level, disturbance, channel);
    receiver.level = settleDiversity(channel);
    receiver.snir = receivedSnir(receiver.level, disturbance, channel);
    receiver.level = seenLevel(node, channel, receiver.level);
    const auto rx = inForce(channel, modulationAt(channel, receiver.snir, rxThreshold), isLooped && isStandby,
                            channel.dsp.heldRxModulation);
    setLink(node, channel,
            receives(node, channel) && channel.isConfigured() && !node.dsp.isRecovering &&
                !sendsTestSignal(channel) && receiver.snir >= rxThreshold(channel, ladderRung(rx)));
    receiver.rxModulation = receiver.isLinkUp ? rx : ModulationAndCoding::UNDEFINED;

    receiver.farEndSnir = sends && !isLooped ? snirOf(levelAtFarEnd(channel, attenuation),
                                                      farEndInterference_mW(node, channel), channel)
                                             : 0;
    const auto tx = inForce(channel, isLooped ? rx : modulationAt(channel, receiver.farEndSnir, txThreshold),
                            isStandby, channel.dsp.heldTxModulation);
    receiver.txModulation = sends ? tx : ModulationAndCoding::UNDEFINED;

    node.alarms.set(alarm::kLoopClosed, channel.number, isLooped);
    node.alarms.set(alarm::kFarEndLinkDown, channel.number,
                    isOnAir(node, channel) &&
                        (!sends || receiver.farEndSnir < txThreshold(channel, ladderRung(tx))));
    keepLowest(node, channel, receiver);
    node.alarms.set(alarm::kEncryptionKeyMismatch, channel.number,
                    receiver.isLinkUp && !channel.encryption.keysAgree());
}

std::vector<AcmThreshold> acmThresholds(const ChannelState& channel)
{
    std::vector<AcmThreshold> thresholds;
    for (const auto& rung : rungsBetween(channel.minModulation, channel.maxModulation)) {
        thresholds.push_back({rung.modulation, rxThreshold(channel, rung)});
    }
    return thresholds;
}

std::int32_t greatestPower(const NodeState& node, const ChannelState& channel, ModulationAndCoding modulation)
{
    const auto bits = ladderRung(modulation).bitsPerSymbol;
    const auto& transmitter = channel.transmitter;
    const double cutback = transmitter.temporaryCutbackSet ? transmitter.temporaryCutback
                                                           : static_cast<double>(transmitter.maxPowerCutback);
    const double power =
        radioType(node.settings.radioType).maxPower_dBmTenths - bits * kPowerStepPerBit_dBTenths - cutback;
    const auto* const row = zyr_top_api::findModulationAndCode(modulation);
    const bool isBoosted = transmitter.boosterPresence != 0 && row != nullptr &&
                           row->modulation <= transmitter.boosterMaxModulation;
    return isBoosted
               ? level(std::min<double>(power, transmitter.boosterMaxInputPower) + transmitter.boosterGain)
               : level(power);
}

std::int32_t farEndLevel_dBmTenths(const NodeState& node, const ChannelState& channel)
{
    const bool isThere = node.settings.farEndTransmits && channel.rxFrequency_kHz != 0;
    return isThere ? level(node.settings.farEndTxPower_dBmTenths - attenuation_dBTenths(node, channel))
                   : kNoLevel_dBmTenths;
}

std::int32_t levelAtFarEnd_dBmTenths(const NodeState& node, const ChannelState& channel)
{
    return levelAtFarEnd(channel, attenuation_dBTenths(node, channel));
}

bool receivesFarEnd(const NodeState& node, const ChannelState& channel)
{
    return !channel.loops.isClosed() && receives(node, channel);
}

std::int32_t channelSpacing_kHz(const ChannelState& channel)
{
    constexpr std::int32_t withoutFrame_kHz = 28'000;
    const auto* frame = findRadioFrame(channel.radioFrameId);
    return frame == nullptr ? withoutFrame_kHz : frame->channelSpacing_kHz;
}

std::int32_t noiseFloor_dBmTenths(const ChannelState& channel)
{
    return rounded(kNoiseDensity_dBmTenths + 100.0 * std::log10(channelSpacing_kHz(channel) * 1000.0));
}

std::uint32_t hopLatency_ns(const NodeState& node)
{
    constexpr double metresPerNanosecond = 0.299792458;
    const auto units_ns = 2.0 * radioType(node.settings.radioType).unitLatency_ns;
    return static_cast<std::uint32_t>(
        std::lround(node.settings.hopLength_m / metresPerNanosecond + units_ns));
}

} // namespace zyr_simulation
