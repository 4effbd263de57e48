#include "StateFields.h"

#include "AlarmEventFields.h"
#include "Field.h"
#include "Vocabularies.h"

#include <array>
#include <string_view>

// Which parts of the simulated node's state are shown, and how they are called.

namespace zyr_registration
{

using zyr_node::AlarmReport;
using zyr_node::FaultList;
using zyr_node::NodeReport;
using zyr_node::RouteReport;
using zyr_simulation::ChainDelays;
using zyr_simulation::ChannelState;
using zyr_simulation::DspChannelState;
using zyr_simulation::Fault;
using zyr_simulation::Interferer;
using zyr_simulation::LatencyState;
using zyr_simulation::PpsState;
using zyr_simulation::RadioState;
using zyr_simulation::ReceiverState;
using zyr_simulation::TransmitterState;

template <>
struct EnumVocabulary<zyr_top_api::ETxPowerActualStatus>
    : ConsecutiveTexts<&zyr_top_api::txPowerActualStatusToString, zyr_top_api::ETxPowerActualStatus::Off,
                       zyr_top_api::ETxPowerActualStatus::Standby>
{};

// What faults lead to where the command that meets them doesn't tell.
constexpr std::string_view kOperationHelp =
    "name of its operation. What restarts, radio units and calibrations make of a fault: "
    "RecoveryController.startDspRecovery: no recovery begins, and CRI.StartRecovery fails; "
    "IRauHandler.triggerRestart: the restart is RestartFailed at once, the unit stays up; "
    "IRauHandler.endRestart: the restart stays open; "
    "IRauHandler.setPowerSupplied: the power stays as it is, though the command succeeds; "
    "IRauHandler.setActiveSubBand, setPowerMode, getPowerMode: the command fails; "
    "ISystemPowerController.prepareRadioRestart: the unit restarts all the same; "
    "ISystemPowerController.syncAfterWarmRestart, IAcmHandler.syncAfterWarmRestart: the channel is not "
    "synchronised, though the start-up is completed; "
    "IRouteUpdater.updateRoute, IHardwareConfigurationHandler.setRauCarrierAggregation: nothing is "
    "set, though the command succeeds; "
    "MimoCalibration.correlate: a calibration of the cross-connect delay ends with NoCorrelationFailure";

template <>
struct RecordFields<Fault>
{
    static constexpr std::array fields{
        field<&Fault::collaborator>("name of the interface", {.example = "IAcmHandler"}),
        field<&Fault::operation>(kOperationHelp, {.example = "enableAcm"}),
        field<&Fault::channel>("radio channel whose collaborator fails, 0 for any",
                               {.unit = kNoUnit, .hasDefault = true}),
        field<&Fault::code>("what the operation answers", {.unit = kNoUnit, .example = "32768"}),
        field<&Fault::count>("how many times it fails", {.unit = kNoUnit, .hasDefault = true}),
    };
};

template <>
struct RecordFields<Interferer>
{
    static constexpr std::array fields{
        field<&Interferer::frequency_kHz>("the middle of what it fills", {.unit = "kHz"}),
        field<&Interferer::width_kHz>("how wide it is, 1 kHz to 1 GHz", {.unit = "kHz", .hasDefault = true}),
        field<&Interferer::level_dBmTenths>("level at which it is received, -990 to 0",
                                            {.unit = "0.1 dBm", .hasDefault = true}),
    };
};

template <>
struct RecordFields<FaultList>
{
    static constexpr std::array fields{
        field<&FaultList::faults>("orders to fail that aren't used up, oldest first"),
    };
};

template <>
struct RecordFields<TransmitterState>
{
    static constexpr bool isPart = true;
    static constexpr std::array fields{
        field<&TransmitterState::requested>("what the commands have asked for"),
        field<&TransmitterState::status>("what the transmitter does now"),
        field<&TransmitterState::minPower>("commanded window", {.unit = "0.1 dBm"}),
        field<&TransmitterState::maxPower>("commanded window", {.unit = "0.1 dBm"}),
        field<&TransmitterState::power>("transmitted now", {.unit = "0.1 dBm"}),
        field<&TransmitterState::warmRestartSyncs>("synchronisations of power control behind warm restarts",
                                                   {.unit = kNoUnit}),
    };
};

template <>
struct RecordFields<RadioState>
{
    static constexpr bool isPart = true;
    static constexpr std::array fields{
        field<&RadioState::isAvailable>("whether the radio unit answers"),
        field<&RadioState::isPowerSupplied>("whether it has power"),
        field<&RadioState::isStarting>("whether it starts behind a loss of power"),
        field<&RadioState::restart>("how its restart stands"),
        field<&RadioState::preparations>("restarts that power control was prepared for", {.unit = kNoUnit}),
        field<&RadioState::subBand>("active sub-band, 1 to 4, or 0 for the whole band", {.unit = kNoUnit}),
        field<&RadioState::powerMode>("two bits for each transmitter, the first one's lowest; 0 is on, "
                                      "anything else off",
                                      {.unit = kNoUnit}),
    };
};

template <>
struct RecordFields<ReceiverState>
{
    static constexpr bool isPart = true;
    static constexpr std::array fields{
        field<&ReceiverState::isLinkUp>("whether traffic comes in"),
        field<&ReceiverState::level>("received level", {.unit = "0.1 dBm"}),
        field<&ReceiverState::snir>("signal to noise and interference", {.unit = "0.1 dB"}),
        field<&ReceiverState::rxModulation>("received modulation"),
        field<&ReceiverState::txModulation>("transmitted modulation"),
    };
};

template <>
struct RecordFields<PpsState>
{
    static constexpr bool isPart = true;
    static constexpr std::array fields{
        field<&PpsState::isSlave>("whether this end follows the far end's pulse"),
        field<&PpsState::source>("where the pulse comes from"),
        field<&PpsState::offset_ns>("offset of the pulse", {.unit = "ns"}),
        field<&PpsState::isSignalPresent>("whether there is a signal at the external inputs"),
        field<&PpsState::outputMode>("how the output behaves"),
        field<&PpsState::calibration>("where the calibration stands"),
        field<&PpsState::reasonOfFailure>("why it failed"),
        field<&PpsState::isCoarseDone>("whether a coarse calibration has succeeded"),
        field<&PpsState::repeats>("whether the fine calibration is repeated"),
        field<&PpsState::period_ms>("pause of a repeated calibration", {.unit = "ms"}),
        field<&PpsState::asymmetry_ns>("compensation of the asymmetry", {.unit = "ns"}),
    };
};

template <>
struct RecordFields<LatencyState>
{
    static constexpr bool isPart = true;
    static constexpr std::array fields{
        field<&LatencyState::xpicSlave>("latency of the XPIC slave's receive path", {.unit = "ns"}),
        field<&LatencyState::mimoSpatial>("latency of the MIMO spatial receive path", {.unit = "ns"}),
        field<&LatencyState::mimoSpatialSlave>("latency of the MIMO spatial slave's receive path",
                                               {.unit = "ns"}),
    };
};

template <>
struct RecordFields<ChainDelays>
{
    static constexpr std::array fields{
        field<&ChainDelays::chain>("the receive chain"),
        field<&ChainDelays::adjFifo>("adjustment delay in samples", {.unit = kNoUnit}),
        field<&ChainDelays::fffFifo>("delay of the feed-forward filter in samples", {.unit = kNoUnit}),
    };
};

template <>
struct RecordFields<DspChannelState>
{
    static constexpr bool isPart = true;
    static constexpr std::array fields{
        field<&DspChannelState::chainDelays>("what compensates the latencies of the receive chains"),
    };
};

template <>
struct RecordFields<ChannelState>
{
    static constexpr bool isPart = true;
    static constexpr std::array fields{
        field<&ChannelState::number>("radio channel", {.isChannel = true}),
        field<&ChannelState::acmEnabled>("whether ACM is on"),
        field<&ChannelState::acmMuted>("whether ACM is held at the lowest modulation"),
        field<&ChannelState::acmSyncs>("synchronisations of ACM behind warm restarts", {.unit = kNoUnit}),
        field<&ChannelState::modulationDisabled>("whether a test signal is sent in place of traffic"),
        field<&ChannelState::minModulation>("lowest modulation allowed"),
        field<&ChannelState::maxModulation>("highest modulation allowed"),
        field<&ChannelState::radioFrameId>("radio frame, 0 for none", {.unit = kNoUnit}),
        field<&ChannelState::txFrequency_kHz>("transmit frequency", {.unit = "kHz"}),
        field<&ChannelState::rxFrequency_kHz>("receive frequency", {.unit = "kHz"}),
        field<&ChannelState::transmitter>("transmitter and power control"),
        field<&ChannelState::radio>("radio unit"),
        field<&ChannelState::receiver>("what the hop gives"),
        field<&ChannelState::pps>("pulse per second"),
        field<&ChannelState::latency>("latencies that are compensated for"),
        field<&ChannelState::dsp>("the channel's part of the DSP"),
    };
};

template <>
struct RecordFields<AlarmReport>
{
    static constexpr bool isPart = true;
    static constexpr std::array fields{
        field<&AlarmReport::eventName, AlarmReport>("name of the alarm"),
        field<&AlarmReport::isActive, AlarmReport>("whether the alarm is raised now"),
        field<&AlarmReport::numberOfTimesEventHasBeenActive, AlarmReport>(
            "how many times the alarm has been raised", {.unit = kNoUnit}),
        field<&AlarmReport::radioChannelId, AlarmReport>("radio channel that the alarm concerns, 0 for all",
                                                         {.range = Range{0, 2}}),
        field<&AlarmReport::changedAt>("when it was raised or cleared last, by the node's system clock"),
    };
};

template <>
struct RecordFields<RouteReport>
{
    static constexpr bool isPart = true;
    static constexpr std::array fields{
        field<&RouteReport::type>("what the route leads from and to"),
        field<&RouteReport::channel>("radio channel", {.unit = kNoUnit}),
        field<&RouteReport::destination>("where it leads", {.unit = kNoUnit}),
    };
};

template <>
struct RecordFields<NodeReport>
{
    static constexpr std::array fields{
        field<&NodeReport::hangingLongPolls>("long polls that wait now", {.unit = kNoUnit}),
        field<&NodeReport::systemTime>("the node's system clock"),
        field<&NodeReport::hardwareTime>("its hardware clock; empty if they are the host's"),
        field<&NodeReport::hopLengthTime_ns>("travelling time of the hop", {.unit = "ns"}),
        field<&NodeReport::isDspRecovering>("whether the DSP restarts now"),
        field<&NodeReport::dspRecoveries>("restarts of the DSP since the node started", {.unit = kNoUnit}),
        field<&NodeReport::channels>("radio channels, the first one first"),
        field<&NodeReport::routes>("routes that have been set, by type and channel"),
        field<&NodeReport::interferers>("foreign transmitters that the receivers hear"),
        field<&NodeReport::alarms>("all alarms that have ever been raised"),
        field<&NodeReport::faults>("orders to fail that aren't used up"),
    };
};

} // namespace zyr_registration

namespace zyr_node
{

std::span<const zyr_registration::Field> reportFields()
{
    return zyr_registration::RecordFields<NodeReport>::fields;
}

std::span<const zyr_registration::Field> faultListFields()
{
    return zyr_registration::RecordFields<FaultList>::fields;
}

std::span<const zyr_registration::Field> interfererFields()
{
    return zyr_registration::RecordFields<zyr_simulation::Interferer>::fields;
}

std::span<const zyr_registration::Field> faultFields()
{
    return zyr_registration::RecordFields<zyr_simulation::Fault>::fields;
}

} // namespace zyr_node
