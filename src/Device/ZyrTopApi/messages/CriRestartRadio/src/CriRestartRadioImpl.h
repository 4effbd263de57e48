#pragma once

#include "CriRestartRadio.h"
#include "IRadio.h"
#include "ISystemPowerController.h"
#include "PerChannel.h"

#include <cstdint>

namespace zyr_top_api
{

/// The live object of "CRI.RestartRadio".
class ZYR_EXPORT CriRestartRadioImpl : public CriRestartRadio
{
  public:
    virtual Response execute(const Command& command);

    /// Takes the collaborators of each channel. Refused once it has succeeded; to be called before commands
    /// arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    Response triggerRestart(const Command& command);

    std::uint32_t m_numberOfChannels = 0;
    PerChannel<IRadio> m_radio;
    PerChannel<ISystemPowerController> m_systemPowerController;
};

} // namespace zyr_top_api
