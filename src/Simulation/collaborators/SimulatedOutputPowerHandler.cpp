#include "SimulatedOutputPowerHandler.h"

#include <algorithm>

namespace zyr_simulation
{

using zyr_top_api::ETIResult;
using zyr_top_api::TxDetectorData;

namespace
{

constexpr unsigned amplifiers = 6;
constexpr std::int32_t gainPerAmplifier = 10;
constexpr std::int32_t greatestGain = 300;

constexpr std::int32_t highDetectorFrom = 100;
constexpr std::int32_t lowDetectorBelow = 80;

constexpr std::int32_t dacMiddle = 2048;
constexpr std::int32_t dacGreatest = 4095;

} // namespace

ETIResult SimulatedOutputPowerHandler::getReducedGain(unsigned amplifier, std::int32_t& gain)
{
    return perform<ETIResult>("getReducedGain", [&] {
        if (amplifier < 1 || amplifier > amplifiers) {
            return zyr_top_api::eTI_E_INVALID_ARGUMENT;
        }
        gain = chain().rfGain - gainPerAmplifier * static_cast<std::int32_t>(amplifier);
        return zyr_top_api::eTI_S_OK;
    });
}

ETIResult SimulatedOutputPowerHandler::getTxRfGain(std::int32_t& gain)
{
    return perform<ETIResult>("getTxRfGain", [&] { gain = chain().rfGain; });
}

ETIResult SimulatedOutputPowerHandler::setTxRfGain(std::int32_t gain)
{
    return perform<ETIResult>("setTxRfGain", [&] {
        if (gain < -greatestGain || gain > greatestGain) {
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
    return locked([&] { return chain().isRfGainBarred; });
}

ETIResult SimulatedOutputPowerHandler::getTxIfOutputPower(std::int32_t& power)
{
    return perform<ETIResult>("getTxIfOutputPower", [&] { power = chain().ifPower; });
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
    return locked([&] { return chain().isIfPowerBarred; });
}

ETIResult SimulatedOutputPowerHandler::getDacValue(std::int32_t& value)
{
    return perform<ETIResult>("getDacValue", [&] {
        const auto power = std::clamp(chain().ifPower, -dacGreatest, dacGreatest);
        value = std::clamp(dacMiddle + power, 0, dacGreatest);
    });
}

ETIResult SimulatedOutputPowerHandler::testGetDetectedPower(std::int32_t& power)
{
    return perform<ETIResult>("testGetDetectedPower", [&] { power = channel().transmitter.power; });
}

ETIResult SimulatedOutputPowerHandler::testGetDetectorInUse(bool& usingHigh, std::int32_t& switchToHighLevel,
                                                            std::int32_t& switchToLowLevel)
{
    return perform<ETIResult>("testGetDetectorInUse", [&] {
        usingHigh = channel().transmitter.power >= highDetectorFrom;
        switchToHighLevel = highDetectorFrom;
        switchToLowLevel = lowDetectorBelow;
    });
}

ETIResult SimulatedOutputPowerHandler::testGetDetectorData(TxDetectorData& data)
{
    return perform<ETIResult>("testGetDetectorData", [&] {
        const auto power = channel().transmitter.power;
        const auto adcMiddle = data.highDetector != 0 ? dacMiddle : dacMiddle / 2;
        data.adcValue = std::clamp(adcMiddle + power, 0, dacGreatest);
        data.powerFromVoltage = power;
        data.powerTemperatureCompensation = 0;
        data.powerFrequencyTemperatureCompensation = 0;
        data.modulationCompensation = 0;
        data.bandwidthCompensation = 0;
        data.detectedPower = power;
    });
}

} // namespace zyr_simulation
