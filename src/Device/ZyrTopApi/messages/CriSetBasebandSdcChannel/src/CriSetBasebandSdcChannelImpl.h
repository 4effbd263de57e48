#pragma once

#include "CriSetBasebandSdcChannel.h"
#include "IBasebandSdcController.h"
#include "PerChannel.h"

#include <cstdint>

namespace zyr_top_api
{

/// The live object of "CRI.SetBasebandSdcChannel".
class ZYR_EXPORT CriSetBasebandSdcChannelImpl : public CriSetBasebandSdcChannel
{
  public:
    virtual StandardResponse execute(const Command& command);

    /// Takes the controller of each channel. Refused the second time, also behind a failure; to be called
    /// before commands arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    std::uint32_t m_numberOfChannels = 0;
    PerChannel<IBasebandSdcController> m_controller;
};

} // namespace zyr_top_api
