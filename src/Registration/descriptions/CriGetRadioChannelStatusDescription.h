#pragma once

#include "CriGetRadioChannelStatusImpl.h"
#include "Description.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriGetRadioChannelStatusImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriGetRadioChannelStatus::Command;
    using Response = zyr_top_api::CriGetRadioChannelStatus::Response;

    static constexpr std::string_view help = "Gives the whole picture of a radio channel.";
    static constexpr std::array request{
        field<&Command::RadioChannelID>("RadioChannelID", {.help = "radio channel"}),
        field<&Command::ResetErrorBlocks>(
            "ResetErrorBlocks",
            {.help = "whether reading resets the error block counters", .presence = Presence::Defaulted}),
    };
    static constexpr std::array response{
        field<&Response::TXActualStatus>("TXActualStatus",
                                         {.help = "transmitter: 'On', 'Off', 'Standby' or 'UNDEFINED'"}),
        field<&Response::RadioChannelStatus>("RadioChannelStatus", {.help = "link: 'Up' or 'Down'"}),
        field<&Response::ActualModulation>("ActualModulation", {.help = "the same as ActualTxModulation"}),
        field<&Response::ActualTxModulation>("ActualTxModulation", {.help = "lowest transmitted modulation"}),
        field<&Response::ActualRxModulation>("ActualRxModulation", {.help = "lowest received modulation"}),
        field<&Response::ActualRFInputPower>("ActualRFInputPower", {.help = "received level"}),
        field<&Response::ReportedRFOutputPower>("ReportedRFOutputPower", {.help = "transmitted power"}),
        field<&Response::ClockStatus>("ClockStatus", {.help = "1 in every answer"}),
        field<&Response::ActualSNIR>("ActualSNIR", {.help = "signal to noise and interference"}),
        field<&Response::ErroredBlocks>("ErroredBlocks", {.help = "errored blocks"}),
        field<&Response::BackgroundBlocks>("BackgroundBlocks", {.help = "received blocks"}),
        field<&Response::ErrorBytes>("ErrorBytes", {.help = "errored bytes"}),
        field<&Response::TotalBytes>("TotalBytes", {.help = "received bytes"}),
        field<&Response::TxFrequency>("TxFrequency", {.unit = "kHz", .help = "transmit frequency"}),
        field<&Response::RxFrequency>("RxFrequency", {.unit = "kHz", .help = "receive frequency"}),
        field<&Response::ZyrState>("ZyrState", {.help = "start-up state of the node"}),
        field<&Response::HopLengthLatency>("HopLengthLatency", {.unit = "ns", .help = "latency of the hop"}),
        field<&Response::XpicIsStarted>("XpicIsStarted", {.help = "whether XPIC runs"}),
        field<&Response::MimoIsStarted>("MimoIsStarted", {.help = "whether MIMO runs"}),
        field<&Response::IsMimo4x4>("IsMimo4x4", {.help = "whether MIMO runs with four streams"}),
        field<&Response::BasebandSdcIsStarted>("BasebandSdcIsStarted",
                                               {.help = "whether the baseband combiner runs"}),
        field<&Response::ActualXpi>("ActualXpi", {.help = "cross-polar interference"}),
        field<&Response::ActualEta>("ActualEta", {.help = "MIMO quality"}),
        field<&Response::XpicStatus>("XpicStatus", {.help = "state of XPIC"}),
        field<&Response::MimoStatus>("MimoStatus",
                                     {.help = "state of MIMO: 'Locked', 'Unlocked', 'Mute' or empty"}),
        field<&Response::PpfLocked>("PpfLocked", {.help = "whether the PPF has locked"}),
        field<&Response::ActualGainBasebandSdc>("ActualGainBasebandSdc",
                                                {.help = "gain of the baseband combiner"}),
        field<&Response::ActualSnirMainBasebandSdc>("ActualSnirMainBasebandSdc",
                                                    {.help = "SNIR of the main path"}),
        field<&Response::ActualSnirDiversityBasebandSdc>("ActualSnirDiversityBasebandSdc",
                                                         {.help = "SNIR of the diversity path"}),
        field<&Response::ActualXpiMainBasebandSdc>("ActualXpiMainBasebandSdc",
                                                   {.help = "cross-polar interference of the main path"}),
        field<&Response::ActualXpiDiversityBasebandSdc>(
            "ActualXpiDiversityBasebandSdc", {.help = "cross-polar interference of the diversity path"}),
        field<&Response::ActualDadeStatusBasebandSdc>("ActualDadeStatusBasebandSdc",
                                                      {.help = "state of the delay calibration"}),
        field<&Response::ActualDadeDelayBasebandSdc>("ActualDadeDelayBasebandSdc",
                                                     {.help = "calibrated delay"}),
        field<&Response::BasebandSdcCalibrationDataMain>("BasebandSdcCalibrationDataMain",
                                                         {.help = "calibration data of the main path"}),
        field<&Response::BasebandSdcCalibrationDataDiversity>(
            "BasebandSdcCalibrationDataDiversity", {.help = "calibration data of the diversity path"}),
        field<&Response::RleStatus>("RleStatus", {.help = "state of the encryption"}),
    };
    static constexpr std::array faults{
        FaultNote{zyr_top_api::eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds",
                  "The node has no such radio channel."},
        FaultNote{zyr_top_api::eTI_E_FAILED,
                  "CRI.GetRadioChannelStatus failed to get lowest rx and tx modulationAndCode <n>",
                  "The ACM handler failed."},
        FaultNote{zyr_top_api::eTI_E_FAILED, "CRI.GetRadioChannelStatus failed to get rssi value <n>",
                  "The level could not be read."},
        FaultNote{zyr_top_api::eTI_E_FAILED, "CRI.GetRadioChannelStatus failed to get DSP API interface",
                  "The DSP has no such interface."},
        FaultNote{zyr_top_api::eTI_E_FAILED,
                  "CRI.GetRadioChannelStatus failed to get errored blocks from DSP",
                  "The error block counters could not be read."},
        FaultNote{zyr_top_api::eTI_E_FAILED,
                  "CRI.GetRadioChannelStatus failed to get XPI from CCDP controller <n>",
                  "The XPIC reading failed."},
        FaultNote{zyr_top_api::eTI_E_FAILED,
                  "CRI.GetRadioChannelStatus failed to get state from CCDP controller <n>",
                  "The XPIC state could not be read."},
        FaultNote{zyr_top_api::eTI_E_FAILED,
                  "CRI.GetRadioChannelStatus failed to get PPF locked status from DSP",
                  "The PPF could not be read."},
        FaultNote{zyr_top_api::eTI_E_FAILED,
                  "CRI.GetRadioChannelStatus failed to get hopLengthLatency from PPS",
                  "The hop latency could not be read."},
        FaultNote{
            zyr_top_api::eTI_E_FAILED,
            "CRI.GetRadioChannelStatus ERROR: both MIMO and XPIC controller are active at the same time!!",
            "MIMO and XPIC exclude each other."},
    };
};

} // namespace zyr_registration
