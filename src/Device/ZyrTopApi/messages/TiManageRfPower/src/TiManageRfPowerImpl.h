#pragma once

#include "IAtpcController.h"
#include "ISystemPowerController.h"
#include "PerChannel.h"
#include "TiManageRfPower.h"

#include <cstdint>

namespace zyr_top_api
{

/// The live object of "TI.ManageRfPower".
class ZYR_EXPORT TiManageRfPowerImpl : public TiManageRfPower
{
  public:
    virtual Response execute(const Command& command);

    /// Takes the collaborators of each channel. Refused once it has succeeded; to be called before commands
    /// arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    ESPCResult overrideSettings(const Command& command);
    void readBack(Response& response);

    std::uint32_t m_numberOfChannels = 0;
    PerChannel<ISystemPowerController> m_systemPowerController;
    PerChannel<IAtpcController> m_atpcController;
};

} // namespace zyr_top_api
