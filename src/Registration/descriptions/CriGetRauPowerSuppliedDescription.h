#pragma once

#include "CriGetRauPowerSuppliedImpl.h"
#include "Description.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriGetRauPowerSuppliedImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriGetRauPowerSupplied::Command;
    using Response = zyr_top_api::CriGetRauPowerSupplied::Response;

    static constexpr std::string_view help =
        "Tells whether the radio unit of a radio channel is supplied with power.";
    static constexpr Group group = Group::RadioUnit;
    static constexpr Effect effect = Effect::Reads;
    static constexpr std::array request{
        field<&Command::RadioChannelID>("radio channel"),
    };
    static constexpr std::array response{
        field<&Response::RadioChannelID>("1 in every answer"),
        field<&Response::RauPowerSupplied>("whether it has power"),
    };
    static constexpr std::array faults{
        FaultNote{eTI_E_INVALID_ARGUMENT, "RadioChannelId out of bounds",
                  "The node has no such radio channel."},
    };
};

} // namespace zyr_registration
