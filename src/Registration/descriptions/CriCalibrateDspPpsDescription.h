#pragma once

#include "CriCalibrateDspPpsImpl.h"
#include "Description.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriCalibrateDspPpsImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriCalibrateDspPps::Command;

    static constexpr std::string_view help =
        "Starts or ends a calibration of a radio channel's pulse per second.";
    static constexpr Group group = Group::Timing;
    static constexpr Effect effect = Effect::Changes;
    static constexpr std::array request{
        field<&Command::channelId>("radio channel", {.isChannel = true}),
        field<&Command::ppsRtcCalibrationMode>("which calibration; Auto repeats the fine one until AutoOff"),
        field<&Command::ppsPeriodMilliSec>("period of a repeated calibration; the low 16 bits count",
                                           {.unit = "ms", .example = "1000"}),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_FAILED, "CRI.CalibrateDspPps failed to calibrate ",
                  "The DSP refused the calibration."},
    };
};

} // namespace zyr_registration
