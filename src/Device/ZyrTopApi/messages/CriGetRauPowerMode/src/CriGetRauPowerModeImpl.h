#pragma once

#include "CriGetRauPowerMode.h"
#include "IRauHandler.h"
#include "PerChannel.h"

#include <cstdint>

namespace zyr_top_api
{

/// The live object of "CRI.CriGetRauPowerMode".
class ZYR_EXPORT CriGetRauPowerModeImpl : public CriGetRauPowerMode
{
  public:
    virtual Response execute(const Command& command);

    /// Takes the handler of each channel's radio unit. Refused once it was called with a number of channels
    /// in range, even if it failed; to be called before commands arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    std::uint32_t m_numberOfChannels = 0;
    PerChannel<IRauHandler> m_rauHandler;
};

} // namespace zyr_top_api
