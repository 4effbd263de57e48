#pragma once

#include "CriStartRecoveryImpl.h"
#include "Description.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriStartRecoveryImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriStartRecovery::Command;

    static constexpr std::string_view help =
        "Restarts the DSP with all its settings; the traffic of all radio channels is interrupted.";
    static constexpr Group group = Group::Lifecycle;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    /// The recovery itself.
    static constexpr std::chrono::milliseconds longest{15000};
    static constexpr std::array request{
        field<&Command::Recover>("recovery; only the full one is accepted", {.example = "\"Dsp\""}),
    };
    static constexpr std::array faults{
        FaultNote{eTI_E_FAILED, "CRI.StartRecovery recovery type not supported",
                  "Recover is another recovery than Dsp."},
        FaultNote{eTI_E_FAILED,
                  "CRI.StartRecovery Failed to recover dsp. RecoveryController Interface is not set.",
                  "The node has no recovery controller."},
        FaultNote{eTI_E_FAILED, "CRI.StartRecovery failed to recover dsp",
                  "The recovery controller refused the recovery, or the recovery failed."},
    };
};

} // namespace zyr_registration
