#pragma once

#include "Description.h"
#include "TiGetAcmThresholdsImpl.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct RecordFields<zyr_top_api::AcmThreshold>
{
    using Record = zyr_top_api::AcmThreshold;
    static constexpr std::array fields{
        field<&Record::modulationAndCoding>("modulation that the channel leaves"),
        field<&Record::threshold>("signal to noise and interference below which it does", {.unit = "0.1 dB"}),
    };
};

template <>
struct Description<zyr_top_api::TiGetAcmThresholdsImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::TiGetAcmThresholds::Command;
    using Response = zyr_top_api::TiGetAcmThresholds::Response;

    static constexpr std::string_view help =
        "Tells the thresholds at which a radio channel switches its modulation.";
    static constexpr Group group = Group::Acm;
    static constexpr Effect effect = Effect::Reads;
    static constexpr std::array request{
        field<&Command::channelId>("radio channel"),
    };
    static constexpr std::array response{
        field<&Response::thresholds>("one for each modulation of the channel's range"),
    };
    static constexpr std::array faults{
        FaultNote{eTI_E_INVALID_ARGUMENT, "RadioChannelId out of bounds", // sic: a small "d"
                  "The node has no such radio channel."},
    };
};

} // namespace zyr_registration
