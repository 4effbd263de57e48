#pragma once

#include "CriManagePathLatencyImpl.h"
#include "Description.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriManagePathLatencyImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriManagePathLatency::Command;
    using Response = zyr_top_api::CriManagePathLatency::Response;

    static constexpr std::string_view help =
        "Sets the latencies of a radio channel's secondary receive paths and gives the latency that results; "
        "without latencies it only reads.";
    static constexpr Group group = Group::Timing;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr std::chrono::milliseconds longest{60000}; // a recovery of the DSP
    static constexpr std::array request{
        field<&Command::channelId>("radio channel", {.isChannel = true}),
        field<&Command::rxPathLatencyXpicSlave>("latency of the XPIC slave's receive path", {.unit = "ns"}),
        field<&Command::rxPathLatencyMimoSpatial>("latency of the MIMO spatial receive path", {.unit = "ns"}),
        field<&Command::rxPathLatencyMimoSpatialSlave>("latency of the MIMO spatial slave's receive path",
                                                       {.unit = "ns"}),
    };
    static constexpr std::array response{
        field<&Response::isValidValues>("whether the latency counts"),
        field<&Response::rxPathLatency>("latency of the receive path", {.unit = "ns"}),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_FAILED, "Failed to recover DSP",
                  "The compensation needs a recovery of the DSP, which failed."},
        FaultNote{eTI_E_FAILED, "Error in calculateAndSetDspDelayCompensation()",
                  "The compensation could not be set."},
    };
};

} // namespace zyr_registration
