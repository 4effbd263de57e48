#pragma once

#include "CriSetRauCarrierAggregation.h"
#include "IHardwareConfigurationHandler.h"
#include "NodeWide.h"

#include <cstdint>

namespace zyr_top_api
{

/// The live object of "CRI.SetRauCarrierAggregation".
class ZYR_EXPORT CriSetRauCarrierAggregationImpl : public CriSetRauCarrierAggregation
{
  public:
    virtual StandardResponse execute(const Command& command);

    /// Takes the hardware configuration handler of the node. To be called once, before commands arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    std::uint32_t m_numberOfChannels = 0;
    NodeWide<IHardwareConfigurationHandler> m_hardwareConfigurationHandler;
};

} // namespace zyr_top_api
