#pragma once

#include "CriSetSdcEnable.h"
#include "ISpaceDiversityCombinerController.h"
#include "PerChannel.h"

#include <cstdint>

namespace zyr_top_api
{

/// The live object of "CRI.SetSdcEnable".
class ZYR_EXPORT CriSetSdcEnableImpl : public CriSetSdcEnable
{
  public:
    virtual StandardResponse execute(const Command& command);

    /// Takes the controller of each channel. Refused the second time, also behind a failure; to be called
    /// before commands arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    std::uint32_t m_numberOfChannels = 0;
    PerChannel<ISpaceDiversityCombinerController> m_controller;
};

} // namespace zyr_top_api
