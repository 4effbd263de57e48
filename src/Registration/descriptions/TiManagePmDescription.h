#pragma once

#include "Description.h"
#include "TiManagePmImpl.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::TiManagePmImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::TiManagePm::Command;
    using Response = zyr_top_api::TiManagePm::Response;

    static constexpr std::string_view help =
        "Makes the DSP of a radio channel inject errored blocks and tells the state of the injection.";
    static constexpr Group group = Group::TestDsp;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr std::array request{
        field<&Command::RadioChannelID>("radio channel"),
        field<&Command::injectEb>("switches the injection; counts only together with the two below"),
        field<&Command::ebCycles>("for how many cycles", {.unit = kNoUnit}),
        field<&Command::ebPercentage>("share of errored blocks", {.unit = "%", .example = "10"}),
    };
    static constexpr std::array response{
        field<&Response::RadioChannelID>("radio channel"),
        field<&Response::injectingEb>("whether errored blocks are being injected"),
        field<&Response::cyclesLeft>("cycles that are left", {.unit = kNoUnit}),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_FAILED, "TI.ManagePm failed to get DSP API interface",
                  "The DSP gives no access to its status."},
    };
};

} // namespace zyr_registration
