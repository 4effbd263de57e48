#include "SimulatedOutputPowerController.h"

namespace zyr_simulation
{

zyr_top_api::ETxPowerActualStatus SimulatedOutputPowerController::getTxStatus()
{
    return read([&] { return channel().transmitter.status; });
}

void SimulatedOutputPowerController::setGain(unsigned loop, unsigned kind, double value)
{
    locked([&] { channel().transmitter.gains[{loop, kind}] = value; });
}

double SimulatedOutputPowerController::getGain(unsigned loop, unsigned kind)
{
    return read([&] { return channel().transmitter.gains[{loop, kind}]; });
}

} // namespace zyr_simulation
