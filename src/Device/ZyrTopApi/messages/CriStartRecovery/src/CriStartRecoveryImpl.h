#pragma once

#include "CriStartRecovery.h"
#include "NodeWide.h"
#include "RecoveryController.h"

#include <cstdint>

namespace zyr_top_api
{

/// The live object of "CRI.StartRecovery".
class ZYR_EXPORT CriStartRecoveryImpl : public CriStartRecovery
{
  public:
    virtual StandardResponse execute(const Command& command);

    /// Takes the recovery controller of the node; without one it succeeds all the same. Refused once it has
    /// succeeded; to be called before commands arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    std::uint32_t m_numberOfChannels = 0;
    NodeWide<nord::zyr::services::recovery::RecoveryController> m_recoveryController;
};

} // namespace zyr_top_api
