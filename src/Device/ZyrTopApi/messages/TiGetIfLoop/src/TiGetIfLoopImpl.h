#pragma once

#include "IIfLoopDriver.h"
#include "PerChannel.h"
#include "TiGetIfLoop.h"

#include <cstdint>

namespace zyr_top_api
{

/// The live object of "TI.GetIfLoop".
class ZYR_EXPORT TiGetIfLoopImpl : public TiGetIfLoop
{
  public:
    virtual Response execute(const Command& command);

    /// Takes the driver of each channel. To be called once, before commands arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    std::uint32_t m_numberOfChannels = 0;
    PerChannel<IIfLoopDriver> m_ifLoopDriver;
};

} // namespace zyr_top_api
