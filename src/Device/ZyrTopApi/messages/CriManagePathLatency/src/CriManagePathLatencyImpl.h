#pragma once

#include "CriManagePathLatency.h"
#include "IRauLatencyCalculator.h"
#include "NodeWide.h"
#include "PerChannel.h"
#include "RecoveryController.h"

#include <cstdint>

namespace zyr_top_api
{

/// The live object of "CRI.ManagePathLatency".
class ZYR_EXPORT CriManagePathLatencyImpl : public CriManagePathLatency
{
  public:
    virtual Response execute(const Command& command);

    /// Takes the latency calculator of each channel and the recovery controller, which may be absent. To be
    /// called once, before commands arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    bool recoverDsp();

    std::uint32_t m_numberOfChannels = 0;
    PerChannel<IRauLatencyCalculator> m_rauLatencyCalculator;
    NodeWide<nord::zyr::services::recovery::RecoveryController> m_recoveryController;
};

} // namespace zyr_top_api
