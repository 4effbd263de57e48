#pragma once

#include "Description.h"
#include "TiGetNarrowWideFiltersImpl.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::TiGetNarrowWideFiltersImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::TiGetNarrowWideFilters::Command;
    using Response = zyr_top_api::TiGetNarrowWideFilters::Response;

    static constexpr std::string_view help =
        "Reads the selection of the narrow or wide filters of the first radio channel.";
    static constexpr Group group = Group::TestRf;
    static constexpr Effect effect = Effect::Reads;
    static constexpr std::array request{
        field<&Command::channelId>("not read", {.unit = kNoUnit, .hasDefault = true}),
    };
    static constexpr std::array response{
        field<&Response::filter>("value of the hardware", {.unit = kNoUnit}),
    };
    static constexpr std::array faults{
        FaultNote{eTI_E_FAILED, "Not supported in this HW variant: failed to get mux filters setting to GPIO",
                  "The DSP did not tell the selection."},
    };
};

} // namespace zyr_registration
