#include "SimulatedSpcSimulator.h"

namespace zyr_simulation
{

ESPCResult SimulatedSpcSimulator::simulate(unsigned mode, int min, int max, double start, double step)
{
    return perform<ESPCResult>("simulate", [&] {
        constexpr unsigned stop = 2;
        if (mode > stop) {
            return eSPC_E_FAILED;
        }
        auto& sweep = channel().spcSimulation;
        sweep.mode = mode;
        sweep.min = min;
        sweep.max = max;
        sweep.start = start;
        sweep.step = step;
        sweep.startedAt = node().now();
        return eSPC_S_OK;
    });
}

bool SimulatedSpcSimulator::isSimulating()
{
    return read([&] { return channel().spcSimulation.isObjectSimulated; });
}

ISpcSimulatedObject* SimulatedSpcSimulator::getSimulatedObject()
{
    return read([&] { return m_object; });
}

void SimulatedSpcSimulator::setSimulated(ISpcSimulatedObject* object, bool simulated)
{
    locked([&] {
        m_object = simulated ? object : nullptr;
        channel().spcSimulation.isObjectSimulated = simulated;
    });
}

} // namespace zyr_simulation
