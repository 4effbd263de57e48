#pragma once

#include "CriGetRadioChannelCapability.h"
#include "ICapabilityHandler.h"
#include "IOutputPowerCalculator.h"
#include "IRadioCapability.h"
#include "PerChannel.h"
#include "StorageVariable.h"

#include <cstdint>
#include <map>
#include <utility>
#include <vector>

namespace zyr_top_api
{

/// The live object of "CRI.GetRadioChannelCapability".
class ZYR_EXPORT CriGetRadioChannelCapabilityImpl : public CriGetRadioChannelCapability
{
  public:
    virtual Response execute(const Command& command);

    /// Takes the collaborators of each channel and the storage variables of the temperatures. To be called
    /// once, before commands arrive.
    ETIResult initialize(unsigned numberOfChannels);

    /// The entries of a power table, by ascending modulation.
    static std::vector<std::pair<ModulationAndCoding, std::int32_t>>
    maxPowerArrayToVector(const std::map<ModulationAndCoding, int>& maxPower);

  private:
    bool readPower(const Command& command, Response& response);

    std::uint32_t m_numberOfChannels = 0;
    PerChannel<IOutputPowerCalculator> m_outputPowerCalculator;
    PerChannel<ICapabilityHandler> m_capabilityHandler;
    PerChannel<IRadioCapability> m_radioCapability;
    StorageVariable m_minTemp{"common.minTemp"};
    StorageVariable m_maxTemp{"common.maxTemp"};
};

} // namespace zyr_top_api
