#pragma once

#include "CriSetFarEndPmaxCapability.h"
#include "IAcmHandler.h"
#include "PerChannel.h"

#include <cstdint>

namespace zyr_top_api
{

/// The live object of "CRI.SetFarEndPmaxCapability".
class ZYR_EXPORT CriSetFarEndPmaxCapabilityImpl : public CriSetFarEndPmaxCapability
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
