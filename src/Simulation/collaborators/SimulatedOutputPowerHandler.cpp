#include "SimulatedOutputPowerHandler.h"

#include <algorithm>

namespace zyr_simulation
{

using zyr_top_api::ETIResult;
using zyr_top_api::TxDetectorData;

namespace
{

constexpr unsigned kAmplifiers = 6;
constexpr std::int32_t kGainPerAmplifier = 10;
constexpr std::int32_t kGreatestGain = 300;

constexpr std::int32_t kDacMiddle = 2048;
constexpr std::int32_t kDacGreatest = 4095;

} // namespace

ETIResult SimulatedOutputPowerHandler::getReducedGain(unsigned amplifier, std::int32_t& gain)
{
    return ask<ETIResult>("getReducedGain", [&] {
        if (amplifier < 1 || amplifier > kAmplifiers) {
            return zyr_top_api::eTI_E_INVALID_ARGUMENT;
        }
        gain = chain().rfGain - kGainPerAmplifier * static_cast<std::int32_t>(amplifier);
        return zyr_top_api::eTI_S_OK;
    });
}

ETIResult SimulatedOutputPowerHandler::getTxRfGain(std::int32_t& gain)
{
    return ask<ETIResult>("getTxRfGain", [&] { gain = chain().rfGain; });
}

ETIResult SimulatedOutputPowerHandler::setTxRfGain(std::int32_t gain)
{
    return perform<ETIResult>("setTxRfGain", [&] {
        if (gain < -kGreatestGain || gain > kGreatestGain) {
            return zyr_top_api::eTI_E_INVALID_ARGUMENT;
        }
        chain().rfGain = gain;
        return zyr_top_api::eTI_S_OK;
    });
}

ETIResult SimulatedOutputPowerHandler::setBarOn(bool on)
{
    return perform<ETIResult>("setBarOn", [&] { chain().isRfGainBarred = on; });
}

bool SimulatedOutputPowerHandler::isBarOn()
{
    return read([&] { return chain().isRfGainBarred; });
}

ETIResult SimulatedOutputPowerHandler::getTxIfOutputPower(std::int32_t& power)
{
    return ask<ETIResult>("getTxIfOutputPower", [&] { power = chain().ifPower; });
}

ETIResult SimulatedOutputPowerHandler::setTxIfOutputPower(std::int32_t power)
{
    return perform<ETIResult>("setTxIfOutputPower", [&] { chain().ifPower = power; });
}

ETIResult SimulatedOutputPowerHandler::setTxIfBarOn(bool on)
{
    return perform<ETIResult>("setTxIfBarOn", [&] { chain().isIfPowerBarred = on; });
}

bool SimulatedOutputPowerHandler::isTxIfBarOn()
{
    return read([&] { return chain().isIfPowerBarred; });
}

ETIResult SimulatedOutputPowerHandler::getDacValue(std::int32_t& value)
{
    return ask<ETIResult>("getDacValue", [&] {
        const auto power = std::clamp(chain().ifPower, -kDacGreatest, kDacGreatest);
        value = std::clamp(kDacMiddle + power, 0, kDacGreatest);
    });
}

ETIResult SimulatedOutputPowerHandler::testGetDetectedPower(std::int32_t& power)
{
    return ask<ETIResult>("testGetDetectedPower", [&] { power = channel().transmitter.power; });
}

ETIResult SimulatedOutputPowerHandler::testGetDetectorInUse(bool& usingHigh, std::int32_t& switchToHighLevel,
                                                            std::int32_t& switchToLowLevel)
{
    return ask<ETIResult>("testGetDetectorInUse", [&] {
        usingHigh = chain().usesHighDetector;
        switchToHighLevel = kHighDetectorFrom_dBmTenths;
        switchToLowLevel = kLowDetectorBelow_dBmTenths;
    });
}

ETIResult SimulatedOutputPowerHandler::testGetDetectorData(TxDetectorData& data)
{
    return ask<ETIResult>("testGetDetectorData", [&] {
        const auto power = channel().transmitter.power;
        const auto adcMiddle = data.highDetector != 0 ? kDacMiddle : kDacMiddle / 2;
        data.adcValue = std::clamp(adcMiddle + power, 0, kDacGreatest);
        data.powerFromVoltage = power;
        data.powerTemperatureCompensation = 0;
        data.powerFrequencyTemperatureCompensation = 0;
        data.modulationCompensation = 0;
        data.bandwidthCompensation = 0;
        data.detectedPower = power;
    });
}

} // namespace zyr_simulation
