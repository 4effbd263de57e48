#pragma once

#include "CriGetCalibrationStatusDspPpsImpl.h"
#include "Description.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriGetCalibrationStatusDspPpsImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriGetCalibrationStatusDspPps::Command;
    using Response = zyr_top_api::CriGetCalibrationStatusDspPps::Response;

    static constexpr std::string_view help =
        "Tells how the calibration of a radio channel's pulse per second stands.";
    static constexpr Group group = Group::Timing;
    static constexpr Effect effect = Effect::Reads;
    static constexpr std::array request{
        field<&Command::channelId>("radio channel", {.isChannel = true}),
    };
    static constexpr std::array response{
        field<&Response::ppsCalibStatus>("where the calibration stands"),
        field<&Response::ppsCalibReasonOfFailure>("why it failed; counts with the status Failed"),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_FAILED, "CRI.GetCalibrationStatusDspPps failed to get calibrationStatus.",
                  "The DSP did not tell."},
    };
};

} // namespace zyr_registration
