#include "WarmRestart.h"

#include "RadioType.h"

namespace zyr_simulation
{

using zyr_top_api::ETxPowerActualStatus;
using zyr_top_api::ModulationAndCoding;
using zyr_top_api::TxRequestedStatus;

namespace
{

constexpr unsigned kRadioFrameId = 102;
constexpr unsigned kBetweenChannels_kHz = 56'000; // so that they don't disturb each other
constexpr std::int32_t kMinPower_dBmTenths = 0;
constexpr std::int32_t kMaxPower_dBmTenths = 150;
constexpr std::int32_t kFarEndTarget_dBmTenths = -400;

} // namespace

void resumeTraffic(const NodeState& node, ChannelState& channel)
{
    const auto& range = radioType(node.settings.radioType).frequencies;
    channel.radioFrameId = kRadioFrameId;
    channel.minModulation = ModulationAndCoding::QAM_4;
    channel.maxModulation = ModulationAndCoding::QAM_256;
    const auto offset = (channel.number - 1) * kBetweenChannels_kHz;
    channel.txFrequency_kHz = range.MinTXFrequency + offset;
    channel.rxFrequency_kHz = range.MinRXFrequency + offset;
    channel.acmEnabled = true;
    channel.acmConfigured = true;
    channel.closingPhasesRun = true;

    auto& transmitter = channel.transmitter;
    transmitter.requested = TxRequestedStatus::On;
    transmitter.status = transmitter.target = ETxPowerActualStatus::On;
    transmitter.minPower = kMinPower_dBmTenths;
    transmitter.maxPower = kMaxPower_dBmTenths;
    transmitter.farEndTarget = kFarEndTarget_dBmTenths;
    transmitter.toldFrequency_kHz = transmitter.iqFrequency_kHz = channel.txFrequency_kHz;
}

} // namespace zyr_simulation
