#pragma once

#include "Description.h"
#include "TiManageDspImpl.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct EnumVocabulary<zyr_top_api::TiManageDsp::InjectError>
    : ConsecutiveTexts<&zyr_top_api::injectErrorToString, zyr_top_api::TiManageDsp::InjectError::ComFailure,
                       zyr_top_api::TiManageDsp::InjectError::UpdateThresholdFailure>
{};

template <>
struct Description<zyr_top_api::TiManageDspImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::TiManageDsp::Command;

    static constexpr std::string_view help =
        "Injects an error into the DSP of a radio channel and can hold its caller for a while.";
    static constexpr Group group = Group::TestDsp;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr std::chrono::milliseconds longest{101'000};
    static constexpr std::array request{
        field<&Command::RadioChannelID>("radio channel"),
        field<&Command::injectError>("error to inject"),
        field<&Command::injectCounter>("how many times it is to strike", {.unit = kNoUnit}),
        field<&Command::WaitInSeconds>("wait behind the injection",
                                       {.unit = "s", .range = Range{0, 100}, .hasDefault = true}),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_FAILED, "TI.ManageDsp failed to get DSP status API for ch<id>",
                  "The DSP gives no access to its status."},
        FaultNote{eTI_E_FAILED, "TI.ManageDsp failed to get DSP core API for ch<id>",
                  "The DSP gives no access to its control."},
        FaultNote{eTI_E_FAILED, "TI.ManageDsp failed to get DSP acm API for ch<id>",
                  "The DSP gives no access to ACM."},
        FaultNote{eTI_E_FAILED, "TI.ManageDsp failed to get DSP channel API for ch<id>",
                  "The DSP gives no access to the channel."},
        FaultNote{eTI_E_FAILED, "TI.ManageDsp Wait duration cannot be more than 100 seconds for ch<id>",
                  "WaitInSeconds is above 100; nothing was injected."},
        FaultNote{eTI_E_FAILED, "DSP error Undefined not supported",
                  "injectError is none of the five; nothing was injected."},
    };
};

} // namespace zyr_registration
