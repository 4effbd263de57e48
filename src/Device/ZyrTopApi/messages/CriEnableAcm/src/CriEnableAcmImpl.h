#pragma once

#include "CriEnableAcm.h"
#include "IAcmHandler.h"
#include "PerChannel.h"

#include <cstdint>

namespace zyr_top_api
{

/// The live object of "CRI.EnableAcm".
class ZYR_EXPORT CriEnableAcmImpl : public CriEnableAcm
{
  public:
    virtual StandardResponse execute(const Command& command);

    /// Takes the ACM handler of each channel. To be called once, before commands arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    std::uint32_t m_numberOfChannels = 0;
    PerChannel<IAcmHandler> m_acmHandler;
};

} // namespace zyr_top_api
