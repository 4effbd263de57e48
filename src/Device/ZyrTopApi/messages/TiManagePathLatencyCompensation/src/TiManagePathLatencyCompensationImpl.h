#pragma once

#include "IDspChannelApi.h"
#include "PerChannel.h"
#include "RadioChannel.h"
#include "TiManagePathLatencyCompensation.h"

#include <cstdint>

namespace zyr_top_api
{

/// The live object of "TI.ManagePathLatencyCompensation".
class ZYR_EXPORT TiManagePathLatencyCompensationImpl : public TiManagePathLatencyCompensation
{
  public:
    virtual Response execute(const Command& command);

    // The steps of `execute` that meet the DSP. A failure replaces the whole response.

    virtual void onePpsAsymmetryCompensationSet(Response& response, RadioChannel channel, short nanoSec);
    virtual void adjFifoSamplesSet(Response& response, RadioChannel channel, bcm::types::ModemChain chain,
                                   unsigned char samples);
    virtual void fffFifoSamplesSet(Response& response, RadioChannel channel, bcm::types::ModemChain chain,
                                   unsigned char samples);
    virtual void getCurrentValues(Response& response, RadioChannel channel);

    /// Takes the DSP's channel of each radio channel. Refused once it has succeeded; to be called before
    /// commands arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    std::uint32_t m_numberOfChannels = 0;
    PerChannel<IDspChannelApi> m_dspChannelApi;
};

} // namespace zyr_top_api
