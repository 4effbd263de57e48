#pragma once

#include "ServiceInForce.h"
#include "SimulatedDeviceFactory.h"
#include "SimulatedSystemTime.h"
#include "SystemClock.h"

namespace zyr_simulation
{

/// The clocks of a node in force as those of the process, as long as this lives: what is set through the
/// platform's services is the node's, and the host's own clocks can't be reached.
class SimulatedClocks
{
  public:
    explicit SimulatedClocks(NodeState& node);

    /// Gives the trace the host's time back.
    ~SimulatedClocks();
    SimulatedClocks(const SimulatedClocks&) = delete;
    SimulatedClocks& operator=(const SimulatedClocks&) = delete;

  private:
    SimulatedSystemTime m_systemTime;
    SimulatedDeviceFactory m_devices;
    zyr_platform::Replacement<Util::SystemTimeApi> m_systemTimeInForce{m_systemTime};
    zyr_platform::Replacement<DDevIo::Factory> m_devicesInForce{m_devices};
};

} // namespace zyr_simulation
