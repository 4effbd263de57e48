#pragma once

#include "Description.h"
#include "TiSetNarrowWideFiltersImpl.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::TiSetNarrowWideFiltersImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::TiSetNarrowWideFilters::Command;

    static constexpr std::string_view help = "Selects the narrow or wide filters of the first radio channel.";
    static constexpr Group group = Group::TestRf;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr std::array request{
        field<&Command::channelId>("not read", {.unit = kNoUnit, .hasDefault = true}),
        field<&Command::filter>("value for the hardware", {.unit = kNoUnit}),
    };
    static constexpr std::array faults{
        FaultNote{eTI_E_FAILED, "Not supported in this HW variant: failed to set mux filters to GPIO",
                  "The hardware has no such filters."},
        FaultNote{eTI_E_FAILED, "Invalid parameters: failed to set mux filters to GPIO",
                  "The hardware has no such selection."},
        FaultNote{eTI_E_FAILED, "Generic error : failed to set mux filters to GPIO",
                  "The DSP refused for another reason."},
    };
};

} // namespace zyr_registration
