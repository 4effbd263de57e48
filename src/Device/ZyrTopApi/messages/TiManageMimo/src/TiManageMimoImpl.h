#pragma once

#include "IDspChannelApi.h"
#include "IDspStatusApi.h"
#include "PerChannel.h"
#include "RadioChannel.h"
#include "TiManageMimo.h"

#include <cstdint>

namespace zyr_top_api
{

/// The live object of "TI.ManageMimo". `execute` only puts its steps in order; a step can be replaced.
class ZYR_EXPORT TiManageMimoImpl : public TiManageMimo
{
  public:
    virtual Response execute(const Command& command);

    // The steps: one operation of the DSP each. If that fails, warnings included, the response is replaced as
    // a whole by one that tells the failure.

    virtual void rxChainDelaySet(Response& response, RadioChannel channel, bcm::types::ModemChain chain,
                                 unsigned char delay);
    virtual void diversityMuteSet(Response& response, RadioChannel channel, bool mute);
    virtual void configurationSet(Response& response, RadioChannel channel);
    virtual void statusGet(Response& response, RadioChannel channel);
    virtual void crossConnectDelayCalibrationStart(Response& response, RadioChannel channel);
    virtual void crossConnectDelayCalibrationStatusGet(Response& response, RadioChannel channel);

    /// Takes the DSP of each channel and its parts. To be called once, before commands arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    std::uint32_t m_numberOfChannels = 0;
    PerChannel<IDspChannelApi> m_dspChannelApi;
    PerChannel<IDspStatusApi> m_dspStatusApi;
};

} // namespace zyr_top_api
