#pragma once

#include "BasebandSdcStatus.h"
#include "CriGetRadioChannelStatus.h"
#include "DspErrorBlocks.h"
#include "IAcmHandler.h"
#include "IBasebandSdcController.h"
#include "ICcdpController.h"
#include "IDspApi.h"
#include "IFrequencyController.h"
#include "IMimoController.h"
#include "IOutputPowerController.h"
#include "IPpsController.h"
#include "IRssiHandler.h"
#include "ISystemPowerController.h"
#include "IZyrRleHandler.h"
#include "PerChannel.h"
#include "TylTrace.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace zyr_top_api
{

/// The live object of "CRI.GetRadioChannelStatus". Its sources: the command with all that logs
/// (`CriGetRadioChannelStatusImpl`), and the readings that do not, with what the response takes of them
/// (`CriGetRadioChannelStatusImplReadings`).
class ZYR_EXPORT CriGetRadioChannelStatusImpl : public CriGetRadioChannelStatus
{
  public:
    virtual Response execute(const Command& command);

    /// Takes the collaborators of each channel. To be called once, before commands arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    /// What is read before the response is filled.
    struct Readings
    {
        std::string_view txStatus;
        bool isLinkUp = false;
        std::string_view txModulation;
        std::string_view rxModulation;
        int rssi = -99;
        DspErrorBlocks blocks;
        std::int32_t snir = 0;
        bool xpicIsStarted = false;
        int xpi = 0;
        std::string xpicStatus;
        bool isMimo4x4 = false;
        bool mimoIsStarted = false;
        std::int32_t eta = 0;
        std::string_view mimoStatus;
        bool basebandSdcIsStarted = false;
        BasebandSdcStatusData basebandSdc;
        BasebandSdcDadeStatus dadeStatus = {};
        std::int32_t dadeDelay = 0;
        std::uint32_t calibrationData = 0;
        PpfLockedStatus ppfLocked = PpfLockedStatus::notSupported;
        std::int32_t txFrequency = 0;
        std::int32_t rxFrequency = 0;
        unsigned hopLengthLatency = 0;
        std::string failure; ///< why a reading has failed

        bool failsWith(std::string_view text);
        bool failsWith(std::string_view text, ETIResult result);
    };

    // False if a reading has failed. Those that are inline are called in the source that holds them, once.
    bool read(const Command& command, Readings& readings);
    inline bool readModulations(std::uint32_t channel, Readings& readings);
    inline bool readRssi(std::uint32_t channel, Readings& readings);
    bool readErrorBlocks(const Command& command, Readings& readings);
    inline bool readXpic(std::uint32_t channel, Readings& readings);
    inline void readMimo(std::uint32_t channel, Readings& readings);
    inline void readMimo4x4(IMimoController& mimoController, Readings& readings);
    void readBasebandSdc(std::uint32_t channel, Readings& readings);
    inline bool readPpfLock(std::uint32_t channel, Readings& readings);
    inline void readFrequencies(std::uint32_t channel, Readings& readings);
    inline bool readHopLengthLatency(std::uint32_t channel, Readings& readings);

    void fillCommon(std::uint32_t channel, const Readings& readings, Response& response);
    void fillOptional(std::uint32_t channel, const Readings& readings, Response& response);

    static TylTrace s_trace;

    std::uint32_t m_numberOfChannels = 0;
    PerChannel<ISystemPowerController> m_systemPowerController;
    PerChannel<IOutputPowerController> m_outputPowerController;
    PerChannel<IAcmHandler> m_acmHandler;
    PerChannel<IFrequencyController> m_frequencyController;
    PerChannel<IRssiHandler> m_rssiHandler;
    PerChannel<ICcdpController> m_ccdpController;
    PerChannel<IDspApi> m_dspApi;
    PerChannel<zyr::IZyrRleHandler> m_rleHandler;
    PerChannel<IMimoController> m_mimoController;
    PerChannel<nord::zyr::pps::IPpsController> m_ppsController;
    PerChannel<IBasebandSdcController> m_basebandSdcController;
};

} // namespace zyr_top_api
