#pragma once

#include "CriGetRadioChannelStatusImpl.h"
#include "Description.h"
#include "NoValues.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriGetRadioChannelStatusImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriGetRadioChannelStatus::Command;
    using Response = zyr_top_api::CriGetRadioChannelStatus::Response;

    static constexpr std::string_view help = "Gives the whole picture of a radio channel.";
    static constexpr Group group = Group::Status;
    static constexpr Effect effect = Effect::Reads;
    static constexpr std::array request{
        field<&Command::RadioChannelID>("radio channel"),
        field<&Command::ResetErrorBlocks>("whether reading resets the error block counters",
                                          {.hasDefault = true, .changes = true}),
    };
    static constexpr std::array response{
        field<&Response::TXActualStatus>("state of the transmitter",
                                         {.texts = oneOf<"Off", "On", "Standby", "UNDEFINED">}),
        field<&Response::RadioChannelStatus>("state of the link", {.texts = oneOf<"Up", "Down">}),
        field<&Response::ActualModulation>("the same as ActualTxModulation",
                                           {.texts = namesOf<zyr_top_api::ModulationAndCoding>}),
        field<&Response::ActualTxModulation>("lowest transmitted modulation",
                                             {.texts = namesOf<zyr_top_api::ModulationAndCoding>}),
        field<&Response::ActualRxModulation>("lowest received modulation",
                                             {.texts = namesOf<zyr_top_api::ModulationAndCoding>}),
        field<&Response::ActualRFInputPower>("received level", {.unit = "0.1 dBm", .noValues = kNoneYet}),
        field<&Response::ReportedRFOutputPower>("transmitted power",
                                                {.unit = "0.1 dBm", .noValues = kNoneYet}),
        field<&Response::ClockStatus>("1 in every answer", {.unit = kNoUnit}),
        field<&Response::ActualSNIR>("signal to noise and interference", {.unit = "0.1 dB"}),
        field<&Response::ErroredBlocks>("errored blocks", {.unit = kNoUnit}),
        field<&Response::BackgroundBlocks>("received blocks", {.unit = kNoUnit}),
        field<&Response::ErrorBytes>("errored bytes", {.unit = "byte"}),
        field<&Response::TotalBytes>("received bytes", {.unit = "byte"}),
        field<&Response::TxFrequency>("transmit frequency", {.unit = "kHz"}),
        field<&Response::RxFrequency>("receive frequency", {.unit = "kHz"}),
        field<&Response::ZyrState>(
            "start-up state of the node",
            {.texts = oneOf<"ColdRestart", "WarmRestart", "NormalOperation", "Unknown">}),
        field<&Response::HopLengthLatency>("latency of the hop", {.unit = "ns"}),
        field<&Response::XpicIsStarted>("whether XPIC runs"),
        field<&Response::MimoIsStarted>("whether MIMO runs"),
        field<&Response::IsMimo4x4>("whether MIMO runs with four streams"),
        field<&Response::BasebandSdcIsStarted>("whether the baseband combiner runs"),
        field<&Response::ActualXpi>("cross-polar interference", {.unit = "0.1 dB"}),
        field<&Response::ActualEta>("MIMO quality", {.unit = "0.0001"}),
        field<&Response::XpicStatus>("state of XPIC"),
        field<&Response::MimoStatus>("state of MIMO, empty while it does not run",
                                     {.texts = oneOf<"Locked", "Unlocked", "Mute", "">}),
        field<&Response::PpfLocked>("whether the PPF has locked"),
        field<&Response::ActualGainBasebandSdc>("gain of the baseband combiner", {.unit = "0.1 dB"}),
        field<&Response::ActualSnirMainBasebandSdc>("SNIR of the main path", {.unit = "0.1 dB"}),
        field<&Response::ActualSnirDiversityBasebandSdc>("SNIR of the diversity path", {.unit = "0.1 dB"}),
        field<&Response::ActualXpiMainBasebandSdc>("cross-polar interference of the main path",
                                                   {.unit = "0.1 dB"}),
        field<&Response::ActualXpiDiversityBasebandSdc>("cross-polar interference of the diversity path",
                                                        {.unit = "0.1 dB"}),
        field<&Response::ActualDadeStatusBasebandSdc>(
            "state of the delay calibration",
            {.texts = oneOf<"CalibrationNotStarted", "CalibrationOngoing", "CalibrationStopping",
                            "CalibrationFailed", "Calibrated", "UndefinedStatus", "">}),
        field<&Response::ActualDadeDelayBasebandSdc>("calibrated delay", {.unit = kNoUnit}),
        field<&Response::BasebandSdcCalibrationDataMain>("calibration data of the main path",
                                                         {.unit = kNoUnit}),
        field<&Response::BasebandSdcCalibrationDataDiversity>("calibration data of the diversity path",
                                                              {.unit = kNoUnit}),
        field<&Response::RleStatus>("state of the encryption", {.unit = kNoUnit}),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_FAILED,
                  "CRI.GetRadioChannelStatus failed to get lowest rx and tx modulationAndCode <n>",
                  "The ACM handler failed."},
        FaultNote{eTI_E_FAILED, "CRI.GetRadioChannelStatus failed to get rssi value <n>",
                  "The level could not be read."},
        FaultNote{eTI_E_FAILED, "CRI.GetRadioChannelStatus failed to get DSP API interface",
                  "The DSP has no such interface."},
        FaultNote{eTI_E_FAILED, "CRI.GetRadioChannelStatus failed to get errored blocks from DSP",
                  "The error block counters could not be read."},
        FaultNote{eTI_E_FAILED, "CRI.GetRadioChannelStatus failed to get XPI from CCDP controller <n>",
                  "The XPIC reading failed."},
        FaultNote{eTI_E_FAILED, "CRI.GetRadioChannelStatus failed to get state from CCDP controller <n>",
                  "The XPIC state could not be read."},
        FaultNote{eTI_E_FAILED, "CRI.GetRadioChannelStatus failed to get PPF locked status from DSP",
                  "The PPF could not be read."},
        FaultNote{eTI_E_FAILED, "CRI.GetRadioChannelStatus failed to get hopLengthLatency from PPS",
                  "The hop latency could not be read."},
        FaultNote{
            eTI_E_FAILED,
            "CRI.GetRadioChannelStatus ERROR: both MIMO and XPIC controller are active at the same time!!",
            "MIMO and XPIC exclude each other."},
    };
};

} // namespace zyr_registration
