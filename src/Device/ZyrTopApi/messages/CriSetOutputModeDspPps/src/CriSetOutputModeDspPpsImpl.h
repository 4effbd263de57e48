#pragma once

#include "CriSetOutputModeDspPps.h"
#include "IDspApi.h"
#include "PerChannel.h"

#include <cstdint>

namespace zyr_top_api
{

/// The live object of "CRI.SetOutputModeDspPps".
class ZYR_EXPORT CriSetOutputModeDspPpsImpl : public CriSetOutputModeDspPps
{
  public:
    virtual StandardResponse execute(const Command& command);

    /// Takes the DSP of each channel. To be called once, before commands arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    std::uint32_t m_numberOfChannels = 0;
    PerChannel<IDspApi> m_dspApi;
};

} // namespace zyr_top_api
