#pragma once

#include "CriGetSdcStatusImpl.h"
#include "Description.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriGetSdcStatusImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriGetSdcStatus::Command;
    using Response = zyr_top_api::CriGetSdcStatus::Response;

    static constexpr std::string_view help =
        "Gives the state of the space diversity combiner (SDC) of a radio channel.";
    static constexpr Group group = Group::Diversity;
    static constexpr Effect effect = Effect::Reads;
    static constexpr ExampleNeeds needs{.options = "--radio-type 3"};
    static constexpr std::array request{
        field<&Command::channelId>("radio channel"),
    };
    static constexpr std::array response{
        field<&Response::sdcOperStatus>("whether the combiner is on",
                                        {.texts = oneOf<"disabled", "enabled", "in-progress", "invalid">}),
        field<&Response::sdcDadeStatus>(
            "how the DADE calibration stands",
            {.texts = oneOf<"not-calibrated", "calibrated", "in-progress", "invalid">}),
        field<&Response::actualPath>("path in use", {.texts = namesOf<zyr_top_api::SdcPath>}),
        field<&Response::hwErrorSdcMain>("hardware error of the main path, a character", {.unit = kNoUnit}),
        field<&Response::hwErrorSdcDiversity>("hardware error of the diversity path, a character",
                                              {.unit = kNoUnit}),
        field<&Response::sdcInputPowerMain>("level at the input of the main path", {.unit = "0.1 dBm"}),
        field<&Response::sdcInputPowerDiversity>("level at the input of the diversity path",
                                                 {.unit = "0.1 dBm"}),
        field<&Response::sdcGain>("what combining gains", {.unit = "0.1 dB"}),
        field<&Response::sdcDadeDelay>("calibrated delay", {.unit = kNoUnit}),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_FAILED, "CRI.GetSdcStatus failed to get SDC Oper Status 3",
                  "The combiner does not tell whether it is on."},
        FaultNote{eTI_E_FAILED, "CRI.GetSdcStatus failed to get SDC DADE Status 3",
                  "The combiner does not tell how its calibration stands."},
        FaultNote{eTI_E_FAILED, "CRI.GetSdcStatus failed to get SDC Actual Path 3",
                  "The combiner does not tell its path."},
    };
};

} // namespace zyr_registration
