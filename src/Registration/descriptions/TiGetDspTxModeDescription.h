#pragma once

#include "Description.h"
#include "TiGetDspTxModeImpl.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::TiGetDspTxModeImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::TiGetDspTxMode::Command;
    using Response = zyr_top_api::TiGetDspTxMode::Response;

    static constexpr std::string_view help = "Reads the signals that the DSP of a radio channel sends.";
    static constexpr Group group = Group::TestDsp;
    static constexpr Effect effect = Effect::Reads;
    static constexpr std::array request{
        field<&Command::RadioChannelID>("radio channel"),
    };
    static constexpr std::array response{
        field<&Response::OutputSignal>(
            "signal of the main chain",
            {.texts = oneOf<"NormalOperation", "OneTone", "TwoTone", "Mute", "UNDEFINED">}),
        field<&Response::SweepTime>("time of a sweep of the main chain", {.unit = kNoUnit}),
        field<&Response::ToneFrequency>("frequency of a tone of the main chain", {.unit = kNoUnit}),
        field<&Response::CrossConnectOutputSignal>(
            "signal of the cross-connected chain",
            {.texts = oneOf<"NormalOperation", "OneTone", "TwoTone", "Mute", "UNDEFINED">}),
        field<&Response::CrossConnectSweepTime>("time of a sweep of the cross-connected chain",
                                                {.unit = kNoUnit}),
        field<&Response::CrossConnectToneFrequency>("frequency of a tone of the cross-connected chain",
                                                    {.unit = kNoUnit}),
    };
    static constexpr std::array faults{
        FaultNote{eTI_E_INVALID_ARGUMENT, "RadioChannelId out of bounds",
                  "The node has no such radio channel."},
        FaultNote{eTI_E_FAILED, "Failed to get TxMode from DSP",
                  "The DSP did not tell the signal of the main chain."},
        FaultNote{eTI_E_FAILED, "Failed to get CrossConnect TxMode from DSP",
                  "The DSP did not tell the signal of the cross-connected chain."},
    };
};

} // namespace zyr_registration
