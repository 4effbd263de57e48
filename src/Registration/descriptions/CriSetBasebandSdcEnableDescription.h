#pragma once

#include "CriSetBasebandSdcEnableImpl.h"
#include "Description.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriSetBasebandSdcEnableImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriSetBasebandSdcEnable::Command;

    static constexpr std::string_view help = "Starts or stops the baseband combiner of a radio channel.";
    static constexpr Group group = Group::Diversity;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr std::array request{
        field<&Command::channelId>("radio channel"),
        field<&Command::enabled>("true starts the combiner, false stops it"),
        field<&Command::isCalibrationRequired>("whether a start includes a DADE calibration"),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_FAILED_TO_GET_EXTERNAL_INTERFACE, "BasebandSdc Controller missing",
                  "The node has no baseband combiner for this channel."},
        FaultNote{eTI_E_FAILED, "Failed to set SDC Baseband SDC Start", "The combiner refused to start."},
        FaultNote{eTI_E_FAILED, "Failed to set SDC Baseband SDC Stop", "The combiner refused to stop."},
    };
};

} // namespace zyr_registration
