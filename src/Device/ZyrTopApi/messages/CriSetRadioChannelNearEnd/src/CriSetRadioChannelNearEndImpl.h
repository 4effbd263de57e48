#pragma once

#include "CriSetRadioChannelNearEnd.h"
#include "ETxPowerActualStatus.h"
#include "FFConfigType.h"
#include "IAcmHandler.h"
#include "ICapabilityHandler.h"
#include "ICcdpController.h"
#include "IDspApi.h"
#include "IFrequencyController.h"
#include "IHardwareConfigurationHandler.h"
#include "IMimoController.h"
#include "IOutputPowerController.h"
#include "IPpsController.h"
#include "IRadio.h"
#include "IRadioCapability.h"
#include "IRauHandler.h"
#include "IRssiHandler.h"
#include "ISystemPowerController.h"
#include "ITxIQImbalanceHandler.h"
#include "NodeWide.h"
#include "PerChannel.h"
#include "Recover.h"
#include "RecoveryController.h"
#include "TylTrace.h"

#include <cstdint>
#include <string>

namespace zyr_top_api
{

/// The live object of "CRI.SetRadioChannelNearEnd". Its sources: the driver of the passes
/// (`CriSetRadioChannelNearEndImpl`), one pass (`Configuration`), and the steps by concern (`Transmitter`,
/// `FrameAndFrequencies`, `LinkTypeAndRecovery`).
class ZYR_EXPORT CriSetRadioChannelNearEndImpl : public CriSetRadioChannelNearEnd
{
  public:
    CriSetRadioChannelNearEndImpl() = default;
    // Its only virtual operation: where it stands, the type information does too.
    ~CriSetRadioChannelNearEndImpl() override;

    StandardResponse execute(const Command& command);

    /// Takes the collaborators of each channel. To be called once, before commands arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    /// The failure text of a step; empty on success.
    using Failure = general_classes::Optional<std::string>;
    using RecoveryController = nord::zyr::services::recovery::RecoveryController;
    using ConfigType = zyr_top_api::FFConfigType;

    /// The command's channel if there is such a channel on a node, else 1.
    static RadioChannel normalised(const Command& command);

    // The driver of the passes.
    StandardResponse configureWithRecovery(const Command& command);
    StandardResponse runClosingPhases(RadioChannel channel);

    // One pass.
    StandardResponse configure(const Command& command, const Recover& recover, Recover& recoverOut);
    void logCall(const Command& command);
    Failure validateInput(const Command& command);
    Failure muteAcm(RadioChannel channel);
    void setMimoLinkType(RadioChannel channel, const Command& command);
    Failure setModulationRange(RadioChannel channel, const Command& command);
    void configurePpsRole(RadioChannel channel, const Command& command);
    Failure setTemporaryPmaxCapability(RadioChannel channel);
    Failure enableAcm(RadioChannel channel);

    // The transmitter.
    bool isRadioAvailable(RadioChannel channel) const;
    bool waitForTxStatus(RadioChannel channel, ETxPowerActualStatus wanted);
    Failure turnOffTransmitter(RadioChannel channel);
    Failure restoreTransmitter(RadioChannel channel);

    // Frame, threshold, frequencies and the radio unit's switch.
    Failure updateRadioFrameId(const Command& command, const Recover& recover);
    Failure updateRssiThreshold(const Command& command);
    Failure updateFrequencies(const Command& command);
    Failure configureMultiTrx(const Command& command);
    bool isSecondChannelOfMrc2(const Command& command);
    std::uint32_t rxFrequency(const Command& command);

    // Link type and recovery of the DSP.
    bool handleXpicMimoDisableForCtUnderReset(const RadioChannel& channel, const Command& command);
    Failure handleXpic(const Command& command);
    Failure recoverDspIfNeeded(const Command& command, const Recover& recover, bool& dspNeedsReconfiguration);
    Failure checkFrameFormat(const Command& command, Recover& needed, bool& dueToCarrierAggregation,
                             bool& dspNeedsReconfiguration);
    ETIResult checkFfAndCopyDcFileIfNeeded(RadioChannel channel, unsigned radioFrameId, ConfigType requested,
                                           std::string& error, bool& dspNeedsReconfiguration);

    static TylTrace s_trace;

    std::uint32_t m_numberOfChannels = 0;
    NodeWide<IHardwareConfigurationHandler> m_hardwareConfigurationHandler;
    NodeWide<RecoveryController> m_recoveryController;
    std::int64_t m_txOffTimeout = 15000; // milliseconds
    PerChannel<IFrequencyController> m_frequencyController;
    PerChannel<ICapabilityHandler> m_capabilityHandler;
    PerChannel<ISystemPowerController> m_systemPowerController;
    PerChannel<IOutputPowerController> m_outputPowerController;
    PerChannel<ICcdpController> m_ccdpController;
    PerChannel<IMimoController> m_mimoController;
    PerChannel<IAcmHandler> m_acmHandler;
    PerChannel<IRssiHandler> m_rssiHandler;
    PerChannel<ITxIQImbalanceHandler> m_txIqImbalanceHandler;
    PerChannel<IDspApi> m_dspApi;
    PerChannel<IRadioCapability> m_radioCapability;
    PerChannel<IRadio> m_radio;
    PerChannel<IRauHandler> m_rauHandler;
    PerChannel<nord::zyr::pps::IPpsController> m_ppsController;
};

} // namespace zyr_top_api
