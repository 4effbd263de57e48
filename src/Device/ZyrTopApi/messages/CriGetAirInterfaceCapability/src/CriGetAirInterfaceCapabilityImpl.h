#pragma once

#include "CriGetAirInterfaceCapability.h"
#include "ICapabilityHandler.h"
#include "IHardwareConfigurationHandler.h"
#include "NodeWide.h"
#include "PerChannel.h"
#include "RadioFrameRecord.h"

#include <cstdint>

namespace zyr_top_api
{

/// The live object of "CRI.GetAirInterfaceCapability".
class ZYR_EXPORT CriGetAirInterfaceCapabilityImpl : public CriGetAirInterfaceCapability
{
  public:
    virtual Response execute(const Command& command);

    /// Takes the collaborators. To be called once, before commands arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    /// The highest modulation that the hardware allows for a frame. False if it can't be found out.
    bool findLimit(std::uint32_t channel, std::uint32_t radioFrameId, ModulationAndCoding& limit);

    NodeWide<IHardwareConfigurationHandler> m_hardwareConfigurationHandler;
    std::uint32_t m_numberOfChannels = 0;
    PerChannel<ICapabilityHandler> m_capabilityHandler;
};

} // namespace zyr_top_api
