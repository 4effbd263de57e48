#pragma once

#include "Description.h"
#include "TiSetDspTxModeImpl.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::TiSetDspTxModeImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::TiSetDspTxMode::Command;
    using Response = zyr_top_api::TiSetDspTxMode::Response;

    static constexpr std::string_view help = "Sets the signal that the DSP of a radio channel sends.";
    static constexpr Group group = Group::TestDsp;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr std::array request{
        field<&Command::RadioChannelID>("radio channel"),
        field<&Command::OutputSignal>("signal to send",
                                      {.texts = oneOf<"Normal", "OneTone", "TwoTone", "Mute">}),
        field<&Command::SweepTime>("time of a sweep", {.unit = kNoUnit, .hasDefault = true}),
        field<&Command::ToneFrequency>("frequency of a tone", {.unit = kNoUnit, .hasDefault = true}),
    };
    static constexpr std::array response{
        field<&Response::OutputSignal>("the request's signal",
                                       {.texts = oneOf<"Normal", "OneTone", "TwoTone", "Mute">}),
        field<&Response::SweepTime>("the request's time", {.unit = kNoUnit}),
        field<&Response::ToneFrequency>("the request's frequency", {.unit = kNoUnit}),
    };
    static constexpr std::array faults{
        FaultNote{eTI_E_INVALID_ARGUMENT, "RadioChannelId out of bounds",
                  "The node has no such radio channel."},
        FaultNote{eTI_E_INVALID_ARGUMENT, "OutputSignal is undefined", "OutputSignal is none of its texts."},
        FaultNote{eTI_E_FAILED, "Failed to set TxMode to DSP", "The DSP refused the signal."},
    };
};

} // namespace zyr_registration
