#pragma once

#include "IIfLoopDriver.h"
#include "PerChannel.h"
#include "TiSetIfLoop.h"

#include <cstdint>

namespace zyr_top_api
{

/// The live object of "TI.SetIfLoop".
class ZYR_EXPORT TiSetIfLoopImpl : public TiSetIfLoop
{
  public:
    virtual StandardResponse execute(const Command& command);

    /// Takes the driver of each channel. To be called once, before commands arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    std::uint32_t m_numberOfChannels = 0;
    PerChannel<IIfLoopDriver> m_ifLoopDriver;
};

} // namespace zyr_top_api
