#pragma once

#include "Description.h"
#include "TiManageSpcImpl.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::TiManageSpcImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::TiManageSpc::Command;
    using Response = zyr_top_api::TiManageSpc::Response;

    static constexpr std::string_view help =
        "Drives the simulator of power control of a radio channel: sweeps of the input power, and gains.";
    static constexpr Group group = Group::TestPower;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr std::array request{
        field<&Command::RadioChannelID>("radio channel"),
        field<&Command::Action>("what to do",
                                {.texts = oneOf<"StartSweepUp", "StartSweepDown", "StopSweep", "AtpcGain",
                                                "OpcGainOpenLoop", "OpcGainClosedLoop">,
                                 .example = "3"}),
        field<&Command::AtpcAif3Gain>("gain of ATPC, stored times 100", {.unit = kNoUnit}),
        field<&Command::OpcTxRampingGain>("gain while the transmitter ramps, stored times 100",
                                          {.unit = kNoUnit}),
        field<&Command::OpcTxOnGain>("gain while the transmitter is on, stored times 100", {.unit = kNoUnit}),
        field<&Command::Min>("low end of the sweep", {.unit = "0.1 dBm"}),
        field<&Command::Max>("high end of the sweep", {.unit = "0.1 dBm"}),
        field<&Command::Rate>("rate of the sweep, in power units in 1.67 s", {.unit = kNoUnit}),
    };
    static constexpr std::array response{
        field<&Response::Action>("the request's action",
                                 {.texts = oneOf<"StartSweepUp", "StartSweepDown", "StopSweep", "AtpcGain",
                                                 "OpcGainOpenLoop", "OpcGainClosedLoop">}),
        field<&Response::text>("empty"),
        field<&Response::AtpcAif3Gain>("gain of ATPC as it is stored, times 100", {.unit = kNoUnit}),
        field<&Response::OpcTxOnGainClosedLoop>("gain of the closed loop while the transmitter is on",
                                                {.unit = kNoUnit}),
        field<&Response::OpcTxRampingGainClosedLoop>("gain of the closed loop while the transmitter ramps",
                                                     {.unit = kNoUnit}),
        field<&Response::OpcTxOnGainOpenLoop>("gain of the open loop while the transmitter is on",
                                              {.unit = kNoUnit}),
        field<&Response::OpcTxRampingGainOpenLoop>("gain of the open loop while the transmitter ramps",
                                                   {.unit = kNoUnit}),
    };
    static constexpr std::array faults{
        FaultNote{eTI_E_FAILED, "TiManageSpcImpl has not been initialized", "The node has not come up."},
        FaultNote{eTI_E_FAILED, "Min, Max or Rate option missing for <id>", "A sweep needs all three."},
        FaultNote{eTI_E_FAILED, "Max < Min  for <id>", "Max must not be below Min."},
    };
};

} // namespace zyr_registration
