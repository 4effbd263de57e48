#pragma once

#include "CriSetRouting.h"
#include "IRouteUpdater.h"
#include "NodeWide.h"

#include <cstdint>

namespace zyr_top_api
{

/// The live object of "CRI.SetRouting".
class ZYR_EXPORT CriSetRoutingImpl : public CriSetRouting
{
  public:
    virtual StandardResponse execute(const Command& command);

    /// Takes the route updater of the node. To be called once, before commands arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    std::uint32_t m_numberOfChannels = 0;
    NodeWide<IRouteUpdater> m_routeUpdater;
};

} // namespace zyr_top_api
