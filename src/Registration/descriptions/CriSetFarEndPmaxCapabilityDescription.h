#pragma once

#include "CriSetFarEndPmaxCapabilityImpl.h"
#include "Description.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriSetFarEndPmaxCapabilityImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriSetFarEndPmaxCapability::Command;

    static constexpr std::string_view help =
        "Tells a radio channel the highest output power of the far end at each modulation.";
    static constexpr Group group = Group::Power;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr std::array request{
        field<&Command::RadioChannelID>("radio channel"),
        field<&Command::maxRfOutputPowerFarEnd>(
            "highest output power of the far end for each modulation; of several with the same "
            "constellation the first counts",
            {.unit = "0.1 dBm"}),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_PARAMETER_INVALID, "maxRfOutputPowerFarEnd array is invalid",
                  "A modulation is undefined; nothing was set."},
        FaultNote{eTI_E_FAILED, "CRI.SetFarEndPmaxCapability failed",
                  "The ACM handler refused the powers; ACM stays held."},
    };
};

} // namespace zyr_registration
