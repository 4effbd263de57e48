#pragma once

#include "CriGetRauPowerSupplied.h"
#include "IRadio.h"
#include "PerChannel.h"

#include <cstdint>

namespace zyr_top_api
{

/// The live object of "CRI.GetRauPowerSupplied".
class ZYR_EXPORT CriGetRauPowerSuppliedImpl : public CriGetRauPowerSupplied
{
  public:
    virtual Response execute(const Command& command);

    /// Takes the radio unit of each channel. To be called once, before commands arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    std::uint32_t m_numberOfChannels = 0;
    PerChannel<IRadio> m_radio;
};

} // namespace zyr_top_api
