#pragma once

#include "CriDisableModulationImpl.h"
#include "Description.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriDisableModulationImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriDisableModulation::Command;
    using Response = zyr_top_api::CriDisableModulation::Response;

    static constexpr std::string_view help =
        "Switches a radio channel between traffic and an unmodulated tone, or tells which it sends.";
    static constexpr Group group = Group::TestDsp;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr std::array request{
        field<&Command::RadioChannelID>("radio channel"),
        field<&Command::DisableModulation>("true for the tone, false for traffic; only read if left out"),
    };
    static constexpr std::array response{
        field<&Response::RadioChannelID>("radio channel"),
        field<&Response::DisableModulation>("whether the radio channel sends the tone"),
    };
    static constexpr std::array faults{
        FaultNote{eTI_E_FAILED, "CriDisableModulationImpl has not been initialized",
                  "The node has not brought the command up."},
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_FAILED, "Unable to get DSP TX mode", "The transmitted signal could not be read."},
        FaultNote{eTI_E_FAILED, "Failed to set DSP TX mode", "The DSP refused the signal."},
    };
};

} // namespace zyr_registration
