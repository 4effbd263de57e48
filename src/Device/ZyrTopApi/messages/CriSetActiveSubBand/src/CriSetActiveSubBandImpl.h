#pragma once

#include "CriSetActiveSubBand.h"
#include "IRadio.h"
#include "PerChannel.h"

#include <cstdint>

namespace zyr_top_api
{

/// The live object of "CRI.SetActiveSubBand".
class ZYR_EXPORT CriSetActiveSubBandImpl : public CriSetActiveSubBand
{
  public:
    virtual StandardResponse execute(const Command& command);

    /// Takes the radio unit of each channel. Refused once it was called with a number of channels in range,
    /// even if it failed; to be called before commands arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    std::uint32_t m_numberOfChannels = 0;
    PerChannel<IRadio> m_radio;
};

} // namespace zyr_top_api
