#pragma once

#include "DspErrorBlocks.h"
#include "IAcmHandler.h"
#include "IDspApi.h"
#include "IDspStatusApi.h"
#include "IFrequencyController.h"
#include "IOutputPowerController.h"
#include "IRssiHandler.h"
#include "ISystemPowerController.h"
#include "ModulationAndCoding.h"
#include "Optional.h"
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
    /// The failure text of a reading; empty on success.
    using Failure = general_classes::Optional<std::string>;

    /// What is read before the response is filled.
    struct Readings
    {
        ETxPowerActualStatus txStatus = {};
        bool isLinkUp = false;
        ModulationAndCoding currentTx = ModulationAndCoding::UNDEFINED;
        ModulationAndCoding currentRx = ModulationAndCoding::UNDEFINED;
        ModulationAndCoding lowestTx = ModulationAndCoding::UNDEFINED;
        ModulationAndCoding lowestRx = ModulationAndCoding::UNDEFINED;
        int rssi = -99;
        IDspStatusApi* statusApi = nullptr;
        DspErrorBlocks blocks;
        std::int32_t ebSinceLastRxLock = 0;
        std::int32_t rxLockedCounter = 0;
        std::int32_t txFrequency = 0;
        std::int32_t rxFrequency = 0;
    };

    Failure read(const Command& command, Readings& readings);
    void fill(const Command& command, const Readings& readings, Response& response);

    std::uint32_t m_numberOfChannels = 0;
    PerChannel<ISystemPowerController> m_systemPowerController;
    PerChannel<IOutputPowerController> m_outputPowerController;
    PerChannel<IAcmHandler> m_acmHandler;
    PerChannel<IFrequencyController> m_frequencyController;
    PerChannel<IRssiHandler> m_rssiHandler;
    PerChannel<IDspApi> m_dspApi;
};

} // namespace zyr_top_api
