#pragma once

#include "IAtpcController.h"
#include "IOutputPowerController.h"
#include "ISpcSimulator.h"
#include "PerChannel.h"
#include "TiManageSpc.h"

#include <cstdint>

namespace zyr_top_api
{

/// The live object of "TI.ManageSpc".
class ZYR_EXPORT TiManageSpcImpl : public TiManageSpc
{
  public:
    virtual Response execute(const Command& command);

    /// Takes the collaborators of each channel. Refused once it has succeeded; to be called before commands
    /// arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    void startSweep(const Command& command, Response& response);
    void stopSweep(const Command& command);
    void manageAtpcGain(const Command& command, Response& response);
    void manageOpenLoopGains(const Command& command, Response& response);
    void manageClosedLoopGains(const Command& command, Response& response);

    std::uint32_t m_numberOfChannels = 0;
    PerChannel<IOutputPowerController> m_outputPowerController;
    PerChannel<ISpcSimulator> m_spcSimulator;
    PerChannel<IAtpcController> m_atpcController;
};

} // namespace zyr_top_api
