#pragma once

#include "Description.h"
#include "TiManageTapsImpl.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct RecordFields<zyr_top_api::TapsLogData>
{
    using Record = zyr_top_api::TapsLogData;
    static constexpr std::array fields{
        field<&Record::samplesRemaining>("samples that wait behind this one", {.unit = kNoUnit}),
        field<&Record::timeStamp>("when the sample was taken"),
        field<&Record::minPowerIn>("lower end of the power window before TAPS", {.unit = "0.1 dBm"}),
        field<&Record::maxPowerIn>("upper end of the power window before TAPS", {.unit = "0.1 dBm"}),
        field<&Record::dspRateMebit>("rate of the DSP in units of 1048576 bit/s", {.unit = kNoUnit}),
        field<&Record::dspRateMbit>("rate of the DSP", {.unit = "Mbit/s"}),
        field<&Record::dspMinRateMbit>("least rate of the DSP", {.unit = "Mbit/s"}),
        field<&Record::dspMaxRateMbit>("greatest rate of the DSP", {.unit = "Mbit/s"}),
        field<&Record::currentModValue>("number of the present modulation", {.unit = kNoUnit}),
        field<&Record::idleRate>("idle rate", {.unit = kNoUnit}),
        field<&Record::idleRateThreshold>("threshold of the idle rate", {.unit = kNoUnit}),
        field<&Record::rateNeeded>("rate that is needed", {.unit = "Mbit/s"}),
        field<&Record::rateMin>("least rate that is kept", {.unit = "Mbit/s"}),
        field<&Record::deltaPower>("change of power", {.unit = "0.1 dB"}),
        field<&Record::minPowerOut>("lower end of the power window behind TAPS", {.unit = "0.1 dBm"}),
        field<&Record::maxPowerOut>("upper end of the power window behind TAPS", {.unit = "0.1 dBm"}),
        field<&Record::atpcEnabled>("whether ATPC is on"),
    };
};

template <>
struct Description<zyr_top_api::TiManageTapsImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::TiManageTaps::Command;
    using Response = zyr_top_api::TiManageTaps::Response;

    static constexpr std::string_view help = "Sets the tuning values of TAPS of a radio channel, drives its "
                                             "sample log and gives the present values.";
    static constexpr Group group = Group::TestPower;
    static constexpr Effect effect = Effect::Changes;
    static constexpr std::array request{
        field<&Command::RadioChannelID>("radio channel"),
        field<&Command::TapsEnable>("switches TAPS"),
        field<&Command::LogRequestOption>(
            "what the sample log shall do",
            {.texts = oneOf<"StartLog", "StopLog", "SetLogPeriod", "DumpLogToFile", "ReadSample">}),
        field<&Command::Time>("log period, for SetLogPeriod", {.unit = "s"}),
        field<&Command::IdleRateOffset>("offset of the idle rate", {.unit = kNoUnit}),
        field<&Command::IdleRateThresholdFactor>("factor of the threshold of the idle rate",
                                                 {.unit = kNoUnit}),
        field<&Command::Kvalue>("K value", {.unit = kNoUnit}),
        field<&Command::HrlbEnabled>("switches HRLB"),
    };
    static constexpr std::array response{
        field<&Response::RadioChannelID>("radio channel"),
        field<&Response::TapsEnable>("whether TAPS is on"),
        field<&Response::IdleRateOffset>("offset of the idle rate", {.unit = kNoUnit}),
        field<&Response::IdleRateThresholdFactor>("factor of the threshold of the idle rate",
                                                  {.unit = kNoUnit}),
        field<&Response::Kvalue>("K value", {.unit = kNoUnit}),
        field<&Response::TapsLogActive>("whether samples are taken"),
        field<&Response::LogPeriodSec>("time between two samples", {.unit = "s"}),
        field<&Response::HrlbEnabled>("whether HRLB is on"),
        field<&Response::TapsLogData>("the sample that ReadSample gave"),
    };
    static constexpr std::array faults{
        FaultNote{eTI_E_PARAMETER_INVALID, "RadioChannelID out of bounds",
                  "The node has no such radio channel."},
        FaultNote{eTI_E_FAILED, "TiManageTapsImpl not initialized", "The node has not come up."},
        FaultNote{eTI_E_FAILED_TO_GET_EXTERNAL_INTERFACE, "One or more null pointer objects",
                  "The channel has no TAPS."},
        FaultNote{eTI_E_FAILED, "TI.ManageTaps failed to set TAPS enable",
                  "TAPS could not be switched; the plain values are set."},
        FaultNote{eTI_E_FAILED, "TI.ManageTaps failed to start log", "The log could not be started."},
        FaultNote{eTI_E_FAILED, "TI.ManageTaps failed to stop log", "The log could not be stopped."},
        FaultNote{eTI_E_REQUIRED_INPUT_MISSING, "TI.ManageTaps: LogPeriodSec called without Time value",
                  "SetLogPeriod needs Time."},
        FaultNote{eTI_E_FAILED, "TI.ManageTaps failed to dump log to file",
                  "The samples could not be written to a file."},
        FaultNote{eTI_E_FAILED, "TI.ManageTaps failed to read sample from log",
                  "There is no sample, or it could not be read."},
        FaultNote{eTI_E_INVALID_ARGUMENT, "TI.ManageTaps: Unknown LogRequestOption",
                  "LogRequestOption is none of the five."},
        FaultNote{eTI_E_FAILED, "TI.ManageTaps failed to to get log period",
                  "The log did not tell its period."},
    };
};

} // namespace zyr_registration
