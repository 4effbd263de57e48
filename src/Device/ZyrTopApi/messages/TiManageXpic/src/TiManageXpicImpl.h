#pragma once

#include "ICcdpController.h"
#include "IDspStatusApi.h"
#include "PerChannel.h"
#include "TiManageXpic.h"

#include <cstdint>

namespace zyr_top_api
{

/// The live object of "TI.ManageXPIC".
class ZYR_EXPORT TiManageXpicImpl : public TiManageXpic
{
  public:
    /// @throws general_classes::BadOptional for a start of the acquisition with one of its two modes
    virtual Response execute(const Command& command);

    /// Takes the XPIC controller, the DSP and the two hardware drivers of each channel. To be called once,
    /// before commands arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    std::uint32_t m_numberOfChannels = 0;
    PerChannel<ICcdpController> m_ccdpController;
    PerChannel<IDspStatusApi> m_dspStatusApi;
    DriverPerChannel m_cableDriver;
    DriverPerChannel m_txEnableDriver;
};

} // namespace zyr_top_api
