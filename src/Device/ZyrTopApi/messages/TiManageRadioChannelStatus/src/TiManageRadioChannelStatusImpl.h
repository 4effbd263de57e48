#pragma once

#include "DspErrorBlocks.h"
#include "IAcmHandler.h"
#include "IDspApi.h"
#include "IDspStatusApi.h"
#include "IFrequencyController.h"
#include "IOutputPowerController.h"
#include "IRssiHandler.h"
#include "ISystemPowerController.h"
#include "PerChannel.h"
#include "TiManageRadioChannelStatus.h"

#include <cstdint>
#include <string>

namespace zyr_top_api
{

/// The live object of "TI.ManageRadioChannelStatus".
class ZYR_EXPORT TiManageRadioChannelStatusImpl : public TiManageRadioChannelStatus
{
  public:
    virtual Response execute(const Command& command);

    /// Takes the collaborators of each channel. To be called once, before commands arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    std::uint32_t m_numberOfChannels = 0;
    PerChannel<ISystemPowerController> m_systemPowerController;
    PerChannel<IOutputPowerController> m_outputPowerController;
    PerChannel<IAcmHandler> m_acmHandler;
    PerChannel<IFrequencyController> m_frequencyController;
    PerChannel<IRssiHandler> m_rssiHandler;
    PerChannel<IDspApi> m_dspApi;
};

} // namespace zyr_top_api
