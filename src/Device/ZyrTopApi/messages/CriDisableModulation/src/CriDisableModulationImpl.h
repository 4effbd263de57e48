#pragma once

#include "CriDisableModulation.h"
#include "EDspATxMode.h"
#include "IAcmHandler.h"
#include "IDspApi.h"
#include "PerChannel.h"

#include <cstdint>

namespace zyr_top_api
{

/// The live object of "CRI.DisableModulation".
class ZYR_EXPORT CriDisableModulationImpl : public CriDisableModulation
{
  public:
    virtual Response execute(const Command& command);

    /// Takes the collaborators of each channel. Refused once it has succeeded; to be called before commands
    /// arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    std::uint32_t m_numberOfChannels = 0;
    PerChannel<IDspApi> m_dspApi;
    PerChannel<IAcmHandler> m_acmHandler;
};

} // namespace zyr_top_api
