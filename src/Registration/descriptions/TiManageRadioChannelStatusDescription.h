#pragma once

#include "Description.h"
#include "NoValues.h"
#include "TiManageRadioChannelStatusImpl.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::TiManageRadioChannelStatusImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::TiManageRadioChannelStatus::Command;
    using Response = zyr_top_api::TiManageRadioChannelStatus::Response;

    static constexpr std::string_view help =
        "Gives the status of a radio channel with current and lowest values.";
    static constexpr Group group = Group::Status;
    static constexpr Effect effect = Effect::Reads;
    static constexpr std::array request{
        field<&Command::RadioChannelID>("radio channel"),
        field<&Command::ResetLowestValues>("whether reading resets the lowest values",
                                           {.hasDefault = true, .changes = true}),
    };
    static constexpr std::array response{
        field<&Response::TXActualStatus>("state of the transmitter",
                                         {.texts = oneOf<"Off", "On", "Standby", "UNDEFINED">}),
        field<&Response::RadioChannelStatus>("state of the link", {.texts = oneOf<"Up", "Down">}),
        field<&Response::ActualTxModulation>("transmitted modulation now",
                                             {.texts = namesOf<zyr_top_api::ModulationAndCoding>}),
        field<&Response::ActualRxModulation>("received modulation now",
                                             {.texts = namesOf<zyr_top_api::ModulationAndCoding>}),
        field<&Response::LowestTxModulation>("lowest transmitted modulation",
                                             {.texts = namesOf<zyr_top_api::ModulationAndCoding>}),
        field<&Response::LowestRxModulation>("lowest received modulation",
                                             {.texts = namesOf<zyr_top_api::ModulationAndCoding>}),
        field<&Response::ActualRFInputPower>("received level", {.unit = "0.1 dBm", .noValues = kNoneYet}),
        field<&Response::LowestRFInputPower>("lowest received level",
                                             {.unit = "0.1 dBm", .noValues = kNotSupported}),
        field<&Response::ReportedRFOutputPower>("transmitted power",
                                                {.unit = "0.1 dBm", .noValues = kNoneYet}),
        field<&Response::ActualSNIR>("signal to noise and interference", {.unit = "0.1 dB"}),
        field<&Response::LowestSNIR>("lowest signal to noise and interference", {.unit = "0.1 dB"}),
        field<&Response::ErroredBlocks>("errored blocks", {.unit = kNoUnit}),
        field<&Response::EbSinceLastRxLock>("errored blocks since the receiver last locked",
                                            {.unit = kNoUnit}),
        field<&Response::RxLockedCounter>("how often the receiver has locked", {.unit = kNoUnit}),
        field<&Response::TxFrequency>("transmit frequency", {.unit = "kHz"}),
        field<&Response::RxFrequency>("receive frequency", {.unit = "kHz"}),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_FAILED,
                  "TI.ManageRadioChannelStatus failed to get lowest Rx and Tx modulationAndCodes <n>",
                  "The ACM handler failed."},
        FaultNote{eTI_E_FAILED, "TI.ManageRadioChannelStatus failed to get rssi value <n>",
                  "The level could not be read."},
        FaultNote{eTI_E_FAILED, "TI.ManageRadioChannelStatus failed to get DSP API interface",
                  "The DSP has no such interface."},
        FaultNote{eTI_E_FAILED, "TI.ManageRadioChannelStatus failed to get errored blocks from DSP",
                  "The error block counters could not be read."},
    };
};

} // namespace zyr_registration
