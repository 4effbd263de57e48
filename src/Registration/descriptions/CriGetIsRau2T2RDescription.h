#pragma once

#include "CriGetIsRau2T2RImpl.h"
#include "Description.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriGetIsRau2T2RImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriGetIsRau2T2R::Command;
    using Response = zyr_top_api::CriGetIsRau2T2R::Response;

    static constexpr std::string_view help =
        "Tells whether a radio unit has two transmitters and two receivers.";
    static constexpr Group group = Group::RadioUnit;
    static constexpr Effect effect = Effect::Reads;
    static constexpr std::array request{
        field<&Command::RadioChannelID>("radio channel"),
    };
    static constexpr std::array response{
        field<&Response::NumberOfChannels>("0 in every answer", {.unit = kNoUnit}),
        field<&Response::IsRau2T2R>("whether it has two of each"),
    };
    static constexpr std::array faults{
        FaultNote{eTI_E_PARAMETER_INVALID, "RadioChannelID > m_numberOfChannels",
                  "The node has no such radio channel."},
        FaultNote{eTI_E_FAILED, "CRI.GetIsRau2T2R, rau handler not available",
                  "The radio channel has no handler of its radio unit."},
    };
};

} // namespace zyr_registration
