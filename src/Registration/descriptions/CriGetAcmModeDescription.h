#pragma once

#include "CriGetAcmModeImpl.h"
#include "Description.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriGetAcmModeImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriGetAcmMode::Command;
    using Response = zyr_top_api::CriGetAcmMode::Response;

    static constexpr std::string_view help =
        "Tells how a radio channel adapts its modulation and where that is decided.";
    static constexpr Group group = Group::Acm;
    static constexpr Effect effect = Effect::Reads;
    static constexpr std::array request{
        field<&Command::channelId>("radio channel"),
    };
    static constexpr std::array response{
        field<&Response::acmMode>("mode in force, Undefined if it could not be read"),
        field<&Response::acmModePosition>(
            "where the modulation is decided, Undefined if it could not be read"),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        // sic: "set"
        FaultNote{eTI_E_FAILED, "CRI.GetAcmMode failed to set ACM mode", "The mode could not be read."},
    };
};

} // namespace zyr_registration
