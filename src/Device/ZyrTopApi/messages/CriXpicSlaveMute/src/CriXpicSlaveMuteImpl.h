#pragma once

#include "CriXpicSlaveMute.h"
#include "ICcdpController.h"
#include "PerChannel.h"

#include <cstdint>

namespace zyr_top_api
{

/// The live object of "CRI.XpicSlaveMute".
class ZYR_EXPORT CriXpicSlaveMuteImpl : public CriXpicSlaveMute
{
  public:
    virtual StandardResponse execute(const Command& command);

    /// Takes the XPIC controller of each channel. To be called once, before commands arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    std::uint32_t m_numberOfChannels = 0;
    PerChannel<ICcdpController> m_ccdpController;
};

} // namespace zyr_top_api
