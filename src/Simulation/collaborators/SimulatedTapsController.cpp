#include "SimulatedTapsController.h"

namespace zyr_simulation
{

ESPCResult SimulatedTapsController::setTapsEnable(bool enable)
{
    return perform<ESPCResult>("setTapsEnable", [&] { channel().taps.enabled = enable; });
}

bool SimulatedTapsController::getTapsEnable()
{
    return read([&] { return channel().taps.enabled; });
}

ESPCResult SimulatedTapsController::setIdleRateOffset(std::int32_t value, int)
{
    return perform<ESPCResult>("setIdleRateOffset", [&] { channel().taps.idleRateOffset = value; });
}

ESPCResult SimulatedTapsController::setIdleRateThresholdFactor(double value)
{
    return perform<ESPCResult>("setIdleRateThresholdFactor",
                               [&] { channel().taps.idleRateThresholdFactor = value; });
}

ESPCResult SimulatedTapsController::setKvalue(std::int32_t value)
{
    return perform<ESPCResult>("setKvalue", [&] { channel().taps.kValue = value; });
}

ESPCResult SimulatedTapsController::setHrlbEnabled(bool enabled)
{
    return perform<ESPCResult>("setHrlbEnabled", [&] { channel().taps.hrlbEnabled = enabled; });
}

std::int32_t SimulatedTapsController::getIdleRateOffset()
{
    return read([&] { return channel().taps.idleRateOffset; });
}

double SimulatedTapsController::getIdleRateThresholdFactor()
{
    return read([&] { return channel().taps.idleRateThresholdFactor; });
}

std::int32_t SimulatedTapsController::getKvalue()
{
    return read([&] { return channel().taps.kValue; });
}

bool SimulatedTapsController::getHrlbEnabled()
{
    return read([&] { return channel().taps.hrlbEnabled; });
}

} // namespace zyr_simulation
