#pragma once

#include "Description.h"
#include "TiManageRadioChannelStatusImpl.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::TiManageRadioChannelStatusImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::TiManageRadioChannelStatus::Command;
    using Response = zyr_top_api::TiManageRadioChannelStatus::Response;

    static constexpr std::string_view help =
        "Gives the status of a radio channel with current and lowest values.";
    static constexpr std::array request{
        field<&Command::RadioChannelID>("RadioChannelID", {.help = "radio channel"}),
        field<&Command::ResetLowestValues>(
            "ResetLowestValues",
            {.help = "whether reading resets the lowest values", .presence = Presence::Defaulted}),
    };
    static constexpr std::array response{
        field<&Response::TXActualStatus>("TXActualStatus",
                                         {.help = "transmitter: 'On', 'Off', 'Standby' or 'UNDEFINED'"}),
        field<&Response::RadioChannelStatus>("RadioChannelStatus", {.help = "link: 'Up' or 'Down'"}),
        field<&Response::ActualTxModulation>("ActualTxModulation", {.help = "transmitted modulation now"}),
        field<&Response::ActualRxModulation>("ActualRxModulation", {.help = "received modulation now"}),
        field<&Response::LowestTxModulation>("LowestTxModulation", {.help = "lowest transmitted modulation"}),
        field<&Response::LowestRxModulation>("LowestRxModulation", {.help = "lowest received modulation"}),
        field<&Response::ActualRFInputPower>("ActualRFInputPower", {.help = "received level"}),
        field<&Response::LowestRFInputPower>("LowestRFInputPower",
                                             {.help = "lowest received level; -9999: not supported"}),
        field<&Response::ReportedRFOutputPower>("ReportedRFOutputPower", {.help = "transmitted power"}),
        field<&Response::ActualSNIR>("ActualSNIR", {.help = "signal to noise and interference"}),
        field<&Response::LowestSNIR>("LowestSNIR", {.help = "lowest signal to noise and interference"}),
        field<&Response::ErroredBlocks>("ErroredBlocks", {.help = "errored blocks"}),
        field<&Response::EbSinceLastRxLock>("EbSinceLastRxLock",
                                            {.help = "errored blocks since the receiver last locked"}),
        field<&Response::RxLockedCounter>("RxLockedCounter", {.help = "how often the receiver has locked"}),
        field<&Response::TxFrequency>("TxFrequency", {.unit = "kHz", .help = "transmit frequency"}),
        field<&Response::RxFrequency>("RxFrequency", {.unit = "kHz", .help = "receive frequency"}),
    };
    static constexpr std::array faults{
        FaultNote{zyr_top_api::eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds",
                  "The node has no such radio channel."},
        FaultNote{zyr_top_api::eTI_E_FAILED,
                  "TI.ManageRadioChannelStatus failed to get lowest Rx and Tx modulationAndCodes <n>",
                  "The ACM handler failed."},
        FaultNote{zyr_top_api::eTI_E_FAILED, "TI.ManageRadioChannelStatus failed to get rssi value <n>",
                  "The level could not be read."},
        FaultNote{zyr_top_api::eTI_E_FAILED, "TI.ManageRadioChannelStatus failed to get DSP API interface",
                  "The DSP has no such interface."},
        FaultNote{zyr_top_api::eTI_E_FAILED,
                  "TI.ManageRadioChannelStatus failed to get errored blocks from DSP",
                  "The error block counters could not be read."},
    };
};

} // namespace zyr_registration
