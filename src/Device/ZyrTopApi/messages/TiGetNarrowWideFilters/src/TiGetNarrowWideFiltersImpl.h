#pragma once

#include "IDspApi.h"
#include "PerChannel.h"
#include "TiGetNarrowWideFilters.h"

#include <cstdint>

namespace zyr_top_api
{

/// The live object of "TI.GetNarrowWideFilters".
class ZYR_EXPORT TiGetNarrowWideFiltersImpl : public TiGetNarrowWideFilters
{
  public:
    virtual Response execute(const Command& command);

    /// Takes the DSP of each channel. To be called once, before commands arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    static constexpr std::uint32_t kFirstChannel = 1;

    std::uint32_t m_numberOfChannels = 0;
    PerChannel<IDspApi> m_dspApi;
};

} // namespace zyr_top_api
