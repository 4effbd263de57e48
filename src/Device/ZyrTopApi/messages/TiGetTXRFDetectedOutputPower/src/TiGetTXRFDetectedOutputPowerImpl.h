#pragma once

#include "IOutputPowerHandler.h"
#include "NodeWide.h"
#include "TiGetTXRFDetectedOutputPower.h"

namespace zyr_top_api
{

/// The live object of "TI.GetTXRFDetectedOutputPower".
class ZYR_EXPORT TiGetTXRFDetectedOutputPowerImpl : public TiGetTXRFDetectedOutputPower
{
  public:
    virtual Response execute(const Command& command);

    /// Takes the one transmitter chain; the number of channels doesn't matter. To be called once, before
    /// commands arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    Response read(const Command& command);

    NodeWide<IOutputPowerHandler> m_outputPowerHandler;
};

} // namespace zyr_top_api
