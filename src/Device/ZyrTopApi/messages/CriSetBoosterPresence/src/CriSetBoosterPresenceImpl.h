#pragma once

#include "CriSetBoosterPresence.h"
#include "IOutputPowerCalculator.h"
#include "PerChannel.h"

#include <cstdint>

namespace zyr_top_api
{

/// The live object of "CRI.SetBoosterPresence".
class ZYR_EXPORT CriSetBoosterPresenceImpl : public CriSetBoosterPresence
{
  public:
    virtual StandardResponse execute(const Command& command);

    /// Takes the output power calculator of each channel. Refused once it was called with a valid count; to
    /// be called before commands arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    std::uint32_t m_numberOfChannels = 0;
    PerChannel<IOutputPowerCalculator> m_outputPowerCalculator;
};

} // namespace zyr_top_api
