#include "StateFields.h"

#include "AlarmEventFields.h"
#include "Field.h"
#include "Vocabularies.h"

#include <array>

// Which parts of the simulated node's state are shown, and how they are called.

namespace zyr_registration
{

using zyr_node::FaultList;
using zyr_node::NodeReport;
using zyr_simulation::ChannelState;
using zyr_simulation::Fault;
using zyr_simulation::RadioState;
using zyr_simulation::ReceiverState;
using zyr_simulation::TransmitterState;

template <>
struct EnumVocabulary<zyr_top_api::ETxPowerActualStatus>
    : ConsecutiveTexts<&zyr_top_api::txPowerActualStatusToString, zyr_top_api::ETxPowerActualStatus::Off,
                       zyr_top_api::ETxPowerActualStatus::Standby>
{};

template <>
struct RecordFields<Fault>
{
    static constexpr std::array fields{
        field<&Fault::collaborator>("collaborator", {.help = "name of the interface, as IAcmHandler"}),
        field<&Fault::operation>("operation", {.help = "name of its operation, as enableAcm"}),
        field<&Fault::channel>("channel", {.help = "radio channel whose collaborator fails, 0 for any",
                                           .presence = Presence::Defaulted}),
        field<&Fault::code>("code", {.help = "what the operation answers"}),
        field<&Fault::count>(
            "count", {.help = "how many times it fails, 1 if left out", .presence = Presence::Defaulted}),
    };
};

template <>
struct RecordFields<FaultList>
{
    static constexpr std::array fields{
        field<&FaultList::faults>("faults", {.help = "orders to fail that aren't used up, oldest first"}),
    };
};

template <>
struct RecordFields<TransmitterState>
{
    static constexpr std::array fields{
        field<&TransmitterState::requested>("requested", {.help = "what the commands have asked for"}),
        field<&TransmitterState::status>("status", {.help = "what the transmitter does now"}),
        field<&TransmitterState::minPower>("minPower", {.unit = "0.1 dBm", .help = "commanded window"}),
        field<&TransmitterState::maxPower>("maxPower", {.unit = "0.1 dBm", .help = "commanded window"}),
        field<&TransmitterState::power>("power", {.unit = "0.1 dBm", .help = "transmitted now"}),
    };
};

template <>
struct RecordFields<RadioState>
{
    static constexpr std::array fields{
        field<&RadioState::isAvailable>("isAvailable", {.help = "whether the radio unit answers"}),
        field<&RadioState::isPowerSupplied>("isPowerSupplied", {.help = "whether it has power"}),
        field<&RadioState::restart>("restart", {.help = "how its restart stands"}),
    };
};

template <>
struct RecordFields<ReceiverState>
{
    static constexpr std::array fields{
        field<&ReceiverState::isLinkUp>("isLinkUp", {.help = "whether traffic comes in"}),
        field<&ReceiverState::level>("level", {.unit = "0.1 dBm", .help = "received level"}),
        field<&ReceiverState::snir>("snir", {.unit = "0.1 dB", .help = "signal to noise and interference"}),
        field<&ReceiverState::rxModulation>("rxModulation", {.help = "received modulation"}),
        field<&ReceiverState::txModulation>("txModulation", {.help = "transmitted modulation"}),
    };
};

template <>
struct RecordFields<ChannelState>
{
    static constexpr std::array fields{
        field<&ChannelState::number>("number", {.help = "radio channel"}),
        field<&ChannelState::acmEnabled>("acmEnabled", {.help = "whether ACM is on"}),
        field<&ChannelState::acmMuted>("acmMuted", {.help = "whether ACM is held at the lowest modulation"}),
        field<&ChannelState::modulationDisabled>(
            "modulationDisabled", {.help = "whether a test signal is sent in place of traffic"}),
        field<&ChannelState::minModulation>("minModulation", {.help = "lowest modulation allowed"}),
        field<&ChannelState::maxModulation>("maxModulation", {.help = "highest modulation allowed"}),
        field<&ChannelState::radioFrameId>("radioFrameId", {.help = "radio frame, 0 for none"}),
        field<&ChannelState::txFrequency_kHz>("txFrequency_kHz",
                                              {.unit = "kHz", .help = "transmit frequency"}),
        field<&ChannelState::rxFrequency_kHz>("rxFrequency_kHz",
                                              {.unit = "kHz", .help = "receive frequency"}),
        field<&ChannelState::transmitter>("transmitter", {.help = "transmitter and power control"}),
        field<&ChannelState::radio>("radio", {.help = "radio unit"}),
        field<&ChannelState::receiver>("receiver", {.help = "what the hop gives"}),
    };
};

template <>
struct RecordFields<NodeReport>
{
    static constexpr std::array fields{
        field<&NodeReport::hangingLongPolls>("hangingLongPolls", {.help = "long polls that wait now"}),
        field<&NodeReport::channels>("channels", {.help = "radio channels, the first one first"}),
        field<&NodeReport::alarms>("alarms", {.help = "all alarms that have ever been raised"}),
        field<&NodeReport::faults>("faults", {.help = "orders to fail that aren't used up"}),
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

std::span<const zyr_registration::Field> faultFields()
{
    return zyr_registration::RecordFields<zyr_simulation::Fault>::fields;
}

} // namespace zyr_node
