#pragma once

#include "AcmMode.h"
#include "BasebandSdcStatus.h"
#include "EDspATxMode.h"
#include "EDspChannelState.h"
#include "ETxPowerActualStatus.h"
#include "ETxPowerOverrideState.h"
#include "ForceLoopMode.h"
#include "InjectedFailure.h"
#include "KeyPrint.h"
#include "LinkType.h"
#include "MimoCalibrationStatus.h"
#include "MimoLockStatus.h"
#include "ModemChain.h"
#include "Modulation.h"
#include "ModulationAndCoding.h"
#include "PpsCalibration.h"
#include "PpsOutputMode.h"
#include "PpsSource.h"
#include "RadioRestartStatus.h"
#include "ReferenceSec.h"
#include "SdcPath.h"
#include "SdcStatus.h"
#include "SpectrumDiagnostics.h"
#include "TapsLogData.h"
#include "TxRequestedStatus.h"
#include "XpicMimoPreamble.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace zyr_simulation
{

/// What stands for "no level": of a transmitter that is off, of a receiver that hears nothing. In tenths of a
/// dBm.
inline constexpr std::int32_t kNoLevel_dBmTenths = -990;

/// Powers at which the transmitter's detectors change over, in tenths of a dBm.
inline constexpr std::int32_t kHighDetectorFrom_dBmTenths = 100;
inline constexpr std::int32_t kLowDetectorBelow_dBmTenths = 80;

/// What power control aims at.
struct PowerAim
{
    std::int32_t target = 0; ///< The level that the far end shall receive, in tenths of a dBm.
    std::int32_t power = 0;  ///< What brings it there, in tenths of a dBm.
};

/// The transmitter and its power control. Powers are in tenths of a dBm.
struct TransmitterState
{
    zyr_top_api::TxRequestedStatus requested = zyr_top_api::TxRequestedStatus::Off;
    zyr_top_api::ETxPowerOverrideState overridden = zyr_top_api::ETxPowerOverrideState::AsRequested;
    zyr_top_api::ETxPowerActualStatus status = zyr_top_api::ETxPowerActualStatus::Off;
    zyr_top_api::ETxPowerActualStatus target{
        zyr_top_api::ETxPowerActualStatus::Off}; ///< Where the status goes.
    std::chrono::nanoseconds switchesAt{0};      ///< When the status gets there.
    std::int32_t minPower = 0;                   ///< The commanded window.
    std::int32_t maxPower = 0;
    std::int32_t farEndTarget = 0;           ///< The level that the far end shall receive.
    std::int32_t power = kNoLevel_dBmTenths; ///< What is transmitted now.
    unsigned maxPowerCutback = 0;
    bool temporaryCutbackSet = false;
    std::int32_t temporaryCutback = 0;
    bool temporaryPmaxCapability = false;
    bool fallbackEnabled = false;
    std::int32_t fallbackPower = 0;
    unsigned fallbackTimer = 0;
    zyr_top_api::ReferenceSec referenceSec = zyr_top_api::ReferenceSec::Sec2;
    unsigned toldFrequency_kHz = 0; ///< The frequency that power control was told last.
    unsigned iqFrequency_kHz = 0;   ///< The frequency that the IQ compensation was told last.
    unsigned warmRestartSyncs = 0;
    bool requestedBarred = false; ///< A test holds the requested status.
    bool targetBarred = false;    ///< A test holds the target level.
    bool windowBarred = false;    ///< A test holds the window.
    // What was commanded while a test held it, to come into force afterwards.
    std::optional<zyr_top_api::TxRequestedStatus> requestedBehindBar = {};
    std::optional<std::int32_t> targetBehindBar = {};
    std::optional<std::pair<std::int32_t, std::int32_t>> windowBehindBar = {};
    bool ignoresLimits = false; ///< The window may leave the radio's limits.
    zyr_top_api::ForceLoopMode loopMode = zyr_top_api::ForceLoopMode::NormalOperation;
    std::optional<PowerAim> aim = {}; ///< While the transmitter is on and power control isn't held open.
    std::map<std::pair<unsigned, unsigned>, double> gains; ///< By loop and kind.
    int boosterPresence = 0;
    int boosterGain = 0;
    int boosterMaxInputPower = 0;
    zyr_top_api::Modulation boosterMaxModulation = zyr_top_api::Modulation::UNDEFINED;
};

/// TAPS. The values are the commands' own.
struct TapsState
{
    bool enabled = false;
    bool hrlbEnabled = false;
    std::int32_t idleRateOffset = 0;
    double idleRateThresholdFactor = 1.0;
    std::int32_t kValue = 0;
};

/// The log of TAPS.
struct TapsLogState
{
    bool isActive = false;
    unsigned period_s = 1;
    std::chrono::nanoseconds nextSampleAt{0};
    std::deque<zyr_top_api::TapsLogData> samples = {}; ///< Oldest first.
};

/// The chain of the transmitter. What test commands set in it doesn't act on the power that is sent.
struct TransmitterChainState
{
    bool usesHighDetector = false; ///< Follows the power that is sent, with a hysteresis.
    bool isRfGainBarred = false;
    std::int32_t rfGain = 0;
    bool isIfPowerBarred = false;
    std::int32_t ifPower = 0;
};

/// The simulator of power control.
struct SpcSimulationState
{
    bool isObjectSimulated = false; ///< Power control sees the sweep in place of the real level.
    unsigned mode = 2;              ///< 0 up, 1 down, 2 stopped.
    std::int32_t min = 0;
    std::int32_t max = 0;
    double start = 0;
    double step = 0; ///< In a second.
    std::chrono::nanoseconds startedAt{0};
    std::map<unsigned, double> atpcGains = {}; ///< By kind.
};

/// Loops that send the channel's own signal back to it. A closed one cuts the far end off.
struct LoopState
{
    bool isIfLoopClosed = false;
    bool isRfLoopClosed = false;

    bool isClosed() const { return isIfLoopClosed || isRfLoopClosed; }
};

/// The latencies of the secondary receive paths that are compensated for, in nanoseconds.
struct LatencyState
{
    std::int32_t xpicSlave = 0;
    std::int32_t mimoSpatial = 0;
    std::int32_t mimoSpatialSlave = 0;
    /// How many recoveries there had been when the DSP asked for one more.
    std::optional<unsigned> resetNeededBehind = {};

    /// What the slowest path adds; the main one adds nothing.
    std::uint32_t greatest() const
    {
        return static_cast<std::uint32_t>(std::max({0, xpicSlave, mimoSpatial, mimoSpatialSlave}));
    }
};

/// The space diversity combiner of the radio unit.
struct SdcState
{
    zyr_top_api::SdcStatus operation = zyr_top_api::SdcStatus::Inactive;
    std::chrono::nanoseconds operationEndsAt{0};
    zyr_top_api::SdcStatus dade = zyr_top_api::SdcStatus::Inactive;
    std::chrono::nanoseconds dadeEndsAt{0};
    bool isCalibrated = false; ///< By the last calibration that ended; an aborted one changes nothing.
    zyr_top_api::SdcPath path = zyr_top_api::SdcPath::Main; ///< As commanded.
    zyr_top_api::Modulation maxModulation = zyr_top_api::Modulation::UNDEFINED;
    std::int32_t spacingCode = 0;
    bool xpicEnabled = false;
};

/// A scan of the spectrum.
struct SpectrumScanState
{
    bool isStarted = false; ///< And hasn't been stopped since.
    bool isSubBand = false;
    std::uint32_t first_kHz = 0;
    std::uint32_t step_kHz = 0;
    std::size_t points = 0;
    std::chrono::nanoseconds startedAt{0};
    std::chrono::nanoseconds timePerPoint{1};
    std::vector<zyr_top_api::SpectrumDiagnosticsResult> results = {}; ///< What has been measured so far.

    bool isRunning() const { return isStarted && results.size() < points; }
};

/// How many transmitters of the radio unit are switched on, and of how many.
struct TransmittersOn
{
    unsigned on = 1;
    unsigned all = 1;
};

/// The radio unit.
struct RadioState
{
    bool isAvailable = true; ///< The unit answers; set from outside.
    bool isPowerSupplied = true;
    bool isStarting = false; ///< It has got power, and isn't up yet.
    std::chrono::nanoseconds startEndsAt{0};
    zyr_top_api::RadioRestartStatus restart = zyr_top_api::RadioRestartStatus::Idle;
    std::chrono::nanoseconds restartEndsAt{0};
    unsigned preparations = 0; ///< How many restarts power control has been prepared for.
    unsigned subBand = 0;      ///< 0 for the whole band.
    unsigned powerMode = 0; ///< Two bits for each transmitter, the first one's lowest; 0 is on, others off.
    std::map<unsigned, unsigned> ifSwitchModes = {}; ///< By the channel's index, 0 or 1.

    /// Whether the unit can serve now.
    bool isUp() const
    {
        return isAvailable && isPowerSupplied && !isStarting &&
               restart != zyr_top_api::RadioRestartStatus::Restarting;
    }

    /// The transmitters that the power mode leaves on. A unit with a single one takes no part in power modes.
    TransmittersOn transmittersOn(bool twoTransmitters) const
    {
        if (!twoTransmitters) {
            return {};
        }
        constexpr unsigned firstBits = 0x3;
        constexpr unsigned secondBits = 0xC;
        const unsigned first = (powerMode & firstBits) == 0 ? 1 : 0;
        const unsigned second = (powerMode & secondBits) == 0 ? 1 : 0;
        return {first + second, 2};
    }
};

/// Received blocks and bytes since the last reset. Fractions are kept between two readings.
struct ReceivedBlocks
{
    double blocks = 0;
    double erroredBlocks = 0;
    double erroredSinceLock = 0;
};

/// The two antennas of a receiver. Levels are those of each path, in tenths of a dBm.
struct DiversityState
{
    std::int32_t mainLevel = kNoLevel_dBmTenths;
    std::int32_t level = kNoLevel_dBmTenths; ///< Of the diversity path.
    std::int32_t mainSnir = 0;
    std::int32_t snir = 0;                                  ///< Of the diversity path.
    zyr_top_api::SdcPath path = zyr_top_api::SdcPath::Main; ///< In use; `Auto` as long as both serve.
    std::int32_t gain = 0; ///< What combining puts the level above the better path, in tenths of a dB.
};

/// What the hop gives the receiver, as it was worked out last. Levels in tenths of a dB or of a dBm.
struct ReceiverState
{
    std::chrono::nanoseconds settledAt{0};
    bool isLinkUp = false;
    DiversityState diversity;
    std::int32_t level = kNoLevel_dBmTenths;
    std::optional<std::int32_t> lowestLevel = {}; ///< Since its last reset, while the radio served.
    std::int32_t snir = 0;
    std::optional<std::int32_t> lowestSnir = {}; ///< Since its last reset, while the link was up.
    std::int32_t farEndSnir = 0;                 ///< What the far end receives from here.
    std::int32_t threshold = 0;                  ///< RSSI threshold.
    // `UNDEFINED` while there is no traffic; the lowest ones since their last reset.
    zyr_top_api::ModulationAndCoding rxModulation = zyr_top_api::ModulationAndCoding::UNDEFINED;
    zyr_top_api::ModulationAndCoding txModulation = zyr_top_api::ModulationAndCoding::UNDEFINED;
    zyr_top_api::ModulationAndCoding lowestRxModulation = zyr_top_api::ModulationAndCoding::UNDEFINED;
    zyr_top_api::ModulationAndCoding lowestTxModulation = zyr_top_api::ModulationAndCoding::UNDEFINED;
    std::int32_t lockedCounter = 0;
    ReceivedBlocks received;
    bool injectsErrors = false;
    std::chrono::nanoseconds injectsUntil{0};
    unsigned injectedPercentage = 0;
};

/// Cross-polar interference cancelling.
struct XpicState
{
    bool isBarred = false;
    zyr_top_api::LinkType linkType = zyr_top_api::LinkType::Disable;
    bool isMuted = false;
    zyr_top_api::XpicMimoPreamble preamble = zyr_top_api::XpicMimoPreamble::Preamble_A;
    bool findsCarrier = false; ///< Nothing keeps the slave from the other polarisation's carrier.
    std::chrono::nanoseconds sweepsUntil{0}; ///< Having found it, the slave sweeps until then.
    bool isCableConnected = true;            ///< The cable to the other polarisation; set from outside.
    bool isTxEnabled = true;

    bool isStarted() const { return linkType != zyr_top_api::LinkType::Disable; }
    bool exchanges() const { return isCableConnected && isTxEnabled; } ///< Signals with the other one.
};

/// MIMO.
struct MimoState
{
    zyr_top_api::LinkType linkType = zyr_top_api::LinkType::Disable;
    bool isSpatialMuted = false;             ///< The spatial path, which is called the diversity path too.
    bool hearsSpatialPath = false;           ///< The receiver gets a signal of it.
    std::chrono::nanoseconds sweepsUntil{0}; ///< Having got it, the receiver sweeps until then.
    zyr_top_api::MimoLockStatus lock = zyr_top_api::MimoLockStatus::Unlocked;
    zyr_top_api::MimoCalibrationStatus calibration = zyr_top_api::MimoCalibrationStatus::Disabled;
    std::chrono::nanoseconds calibrationStepEndsAt{0};

    bool isStarted() const { return linkType != zyr_top_api::LinkType::Disable; }
};

/// The space diversity combiner in the baseband.
struct BasebandSdcState
{
    bool isStarted = false;
    bool isWanted = false; ///< What the last order makes of `isStarted`, at `switchesAt`.
    bool calibratesWhenStarted = false;
    std::chrono::nanoseconds switchesAt{0};
    bool mainEnabled = true;
    bool diversityEnabled = true;
    std::uint16_t mainData = 0;
    std::uint16_t diversityData = 0;
    zyr_top_api::BasebandSdcDadeStatus dade = zyr_top_api::BasebandSdcDadeStatus::CalibrationNotStarted;
    std::chrono::nanoseconds dadeEndsAt{0}; ///< When a calibration, or its stopping, ends.
    bool isCalibrated = false; ///< By the last calibration that ended; an aborted one changes nothing.
};

/// How a calibration of the pulse per second ended.
struct PpsResult
{
    zyr_top_api::PpsCalibStatus status = zyr_top_api::PpsCalibStatus::NotCalibrated;
    zyr_top_api::PpsCalibReasonOfFailure reason = zyr_top_api::PpsCalibReasonOfFailure::NotRelevant;
};

/// The pulse per second.
struct PpsState
{
    bool isConfigured = false;
    bool isSlave = false;
    zyr_top_api::PpsOutputMode outputMode = zyr_top_api::PpsOutputMode::Off;
    zyr_top_api::PpsSource source = zyr_top_api::PpsSource::Internal;
    std::uint32_t offset_ns = 0;
    zyr_top_api::PpsCalibStatus calibration = zyr_top_api::PpsCalibStatus::NotCalibrated;
    zyr_top_api::PpsCalibReasonOfFailure reasonOfFailure = zyr_top_api::PpsCalibReasonOfFailure::NotRelevant;
    bool isSignalPresent = true; ///< At the external inputs; set from outside.
    bool isCoarseDone = false;   ///< A coarse step has succeeded.
    PpsResult lastResult = {};   ///< Of the last calibration that ended.
    bool repeats = false;        ///< The automatic mode is on.
    std::uint16_t period_ms = 0;
    std::chrono::nanoseconds repeatsAt{0}; ///< When the next automatic step begins.
    // The running step of a calibration: its end, the first thing that went wrong in it, and the modulations
    // at its start.
    std::chrono::nanoseconds stepEndsAt{0};
    zyr_top_api::PpsCalibReasonOfFailure disturbance = zyr_top_api::PpsCalibReasonOfFailure::NotRelevant;
    zyr_top_api::ModulationAndCoding rxModulation = zyr_top_api::ModulationAndCoding::UNDEFINED;
    zyr_top_api::ModulationAndCoding txModulation = zyr_top_api::ModulationAndCoding::UNDEFINED;
    std::int16_t asymmetry_ns = 0;
};

/// The signal that a chain of the DSP transmits.
struct TxSignal
{
    zyr_top_api::EDspATxMode mode = zyr_top_api::eDspATxModeNormal;
    int sweepTime = 0;
    int toneFrequency = 0;
};

/// What compensates a receive chain's latency, in samples.
struct ChainDelays
{
    bcm::types::ModemChain chain = bcm::types::ModemChain::Main;
    std::uint8_t adjFifo = 0;
    std::uint8_t fffFifo = 0;
};

/// The channel's part of the DSP.
struct DspChannelState
{
    std::map<bcm::types::ModemChain, TxSignal> txSignals;
    std::vector<ChainDelays> chainDelays{
        {bcm::types::ModemChain::Main},         {bcm::types::ModemChain::XpicSlave},
        {bcm::types::ModemChain::MrcDiversity}, {bcm::types::ModemChain::MrcDiversitySlave},
        {bcm::types::ModemChain::MimoSpatial},  {bcm::types::ModemChain::MimoXSpatialSlave}};
    std::int32_t txIfFrequency = 0;
    std::int32_t rxIfFrequency = 0;
    std::int32_t filters = 0;
    zyr_top_api::AcmRlpControl rlpControl = zyr_top_api::AcmRlpControl::Normal;
    zyr_top_api::AcmMode acmMode = zyr_top_api::AcmMode::Active;
    zyr_top_api::AcmModePosition acmModePosition = zyr_top_api::AcmModePosition::Internal;
    // What ACM has chosen last, and what it holds when it is passive.
    zyr_top_api::ModulationAndCoding heldRxModulation = zyr_top_api::ModulationAndCoding::UNDEFINED;
    zyr_top_api::ModulationAndCoding heldTxModulation = zyr_top_api::ModulationAndCoding::UNDEFINED;
    InjectedFailure controlFailure;
    InjectedFailure statusFailure;
    InjectedFailure i2cFailure;
    InjectedFailure acmEnableFailure;
    InjectedFailure acmThresholdFailure;

    /// The delays of a chain, also of one that is none: commands hand any number on.
    ChainDelays& delaysOf(bcm::types::ModemChain chain);
};

/// The encryption of the radio link, at this end and at the far one. The keys themselves are kept nowhere.
struct EncryptionState
{
    bool isEnabled = false;
    KeyPrint key = {};                      ///< No key while encryption is off.
    std::optional<KeyPrint> farEndKey = {}; ///< Without one the far end does as this end does.
    std::uint32_t txFrequency_kHz = 0;
    std::uint32_t rxFrequency_kHz = 0;

    /// Whether both ends understand each other.
    bool keysAgree() const { return !farEndKey || (isEnabled && key == *farEndKey); }
};

/// Everything that the node knows about one radio channel: what commands have set, and what follows from it.
struct ChannelState
{
    unsigned number = 0; ///< 1 or 2.

    // Adaptive coding and modulation.
    bool acmEnabled = false;
    bool acmMuted = false;           ///< Held at the lowest modulation while something else changes.
    bool acmConfigured = false;      ///< ACM has been enabled since the frame was set first.
    bool modulationDisabled = false; ///< The DSP sends a test signal in place of traffic.
    bool thresholdsCached = false;   ///< The thresholds wait for the capability to come into force.
    unsigned acmSyncs = 0;           ///< Synchronisations behind a warm restart.
    zyr_top_api::ModulationAndCoding minModulation = zyr_top_api::ModulationAndCoding::UNDEFINED;
    zyr_top_api::ModulationAndCoding maxModulation = zyr_top_api::ModulationAndCoding::UNDEFINED;
    std::map<zyr_top_api::Modulation, int> farEndPmaxCapability = {}; ///< As it was set last.
    std::map<zyr_top_api::Modulation, int> farEndPmaxInForce = {};
    bool farEndPmaxCached = false; ///< The capability waits for the channel's DSP to be there.

    // Configuration.
    unsigned radioFrameId = 0; ///< 0 when no frame is set.
    unsigned txFrequency_kHz = 0;
    unsigned rxFrequency_kHz = 0;
    bool closingPhasesRun = false; ///< The phases that close a configuration have run.

    TransmitterState transmitter = {};
    TapsState taps = {};
    RadioState radio = {};
    ReceiverState receiver = {};
    XpicState xpic = {};
    MimoState mimo = {};
    BasebandSdcState basebandSdc = {};
    PpsState pps = {};
    DspChannelState dsp = {};
    EncryptionState encryption = {};
    TapsLogState tapsLog = {};
    TransmitterChainState transmitterChain = {};
    SpcSimulationState spcSimulation = {};
    LoopState loops = {};
    LatencyState latency = {};
    SdcState sdc = {};
    SpectrumScanState scan = {};

    /// How far the channel is configured, a restart of the DSP left aside: not at all ("blocked"), all but
    /// the closing phases ("acm configured"), whole ("configured"), or anything else ("incomplete").
    zyr_top_api::EDspChannelState configuration() const;

    /// Whether the DSP of the channel is configured for traffic.
    bool isConfigured() const { return configuration() == zyr_top_api::EDspChannelState::Configured; }
};

} // namespace zyr_simulation
