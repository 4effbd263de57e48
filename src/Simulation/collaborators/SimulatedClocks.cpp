#include "SimulatedClocks.h"

#include "TraceClock.h"

namespace zyr_simulation
{

SimulatedClocks::SimulatedClocks(NodeState& node) : m_systemTime(node), m_devices(node) {}

SimulatedClocks::~SimulatedClocks()
{
    zyr_platform::shiftTraceTime({});
}

} // namespace zyr_simulation
