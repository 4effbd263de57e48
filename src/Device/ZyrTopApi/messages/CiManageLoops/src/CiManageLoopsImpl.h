#pragma once

#include "CiManageLoops.h"
#include "ILoopController.h"
#include "NodeWide.h"

namespace zyr_top_api
{

/// The live object of "CI.ManageLoops".
class ZYR_EXPORT CiManageLoopsImpl : public CiManageLoops
{
  public:
    virtual Response execute(const Command& command);

    /// Takes the node's loop controller. To be called once, before commands arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    NodeWide<nord::zyr::loops::ILoopController> m_loopController;
};

} // namespace zyr_top_api
