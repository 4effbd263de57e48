#pragma once

#include "CriMimoSpatialMute.h"
#include "IMimoController.h"
#include "PerChannel.h"

#include <cstdint>

namespace zyr_top_api
{

/// The live object of "CRI.MimoSpatialMute".
class ZYR_EXPORT CriMimoSpatialMuteImpl : public CriMimoSpatialMute
{
  public:
    virtual StandardResponse execute(const Command& command);

    /// Takes the MIMO controller of each channel. To be called once, before commands arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    std::uint32_t m_numberOfChannels = 0;
    PerChannel<IMimoController> m_mimoController;
};

} // namespace zyr_top_api
