#pragma once

#include "CriSetAcmRlpControlImpl.h"
#include "Description.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriSetAcmRlpControlImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriSetAcmRlpControl::Command;

    static constexpr std::string_view help =
        "Sets the RLP control of a radio channel's adaptive coding and modulation (ACM).";
    static constexpr Group group = Group::Acm;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr std::array request{
        field<&Command::channelId>("radio channel"),
        field<&Command::acmRlpControl>("StandbyTx holds the transmitted modulation at the lowest"),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_FAILED, "CRI.CriSetAcmRlpControl failed to set ACM RLP control",
                  "The DSP refused the control."},
    };
};

} // namespace zyr_registration
