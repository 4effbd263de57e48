#pragma once

#include "Description.h"
#include "TiManagePathLatencyCompensationImpl.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::TiManagePathLatencyCompensationImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::TiManagePathLatencyCompensation::Command;
    using Response = zyr_top_api::TiManagePathLatencyCompensation::Response;

    static constexpr std::string_view help =
        "Sets delays by which the DSP compensates the path latency, and gives all of them.";
    static constexpr Group group = Group::Timing;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr ExampleNeeds needs{.before = "CRI.SetRadioChannelNearEnd"};
    static constexpr std::array request{
        field<&Command::radioChannelId>("radio channel, 1 if left out", {.isChannel = true}),
        field<&Command::onePpsDelaySet>(
            "asymmetry compensation of the pulse per second; the low 16 bits count", {.unit = "ns"}),
        field<&Command::modemChain>("chain of the two below, which count only together with it"),
        field<&Command::adjFifoSamplesSet>("samples of delay of the receiver chain; the low 8 bits count",
                                           {.unit = kNoUnit}),
        field<&Command::fffFifoSamplesSet>(
            "samples of delay of the equaliser's feed-forward filter; the low 8 bits count",
            {.unit = kNoUnit}),
    };
    static constexpr std::array response{
        field<&Response::radioChannelId>("radio channel", {.isChannel = true}),
        field<&Response::onePpsDelayNanosec>("asymmetry compensation of the pulse per second",
                                             {.unit = "ns"}),
        field<&Response::adjFifoMain>("samples of delay of the main chain", {.unit = kNoUnit}),
        field<&Response::adjFifoXpicSlave>("samples of delay of the XPIC slave's chain", {.unit = kNoUnit}),
        field<&Response::adjFifoMimoSpatial>("samples of delay of the MIMO spatial chain", {.unit = kNoUnit}),
        field<&Response::adjFifoMimoXSpatialSlave>("samples of delay of the MIMO spatial slave's chain",
                                                   {.unit = kNoUnit}),
        field<&Response::fffFifoMain>("samples of delay of the main chain's filter", {.unit = kNoUnit}),
        field<&Response::fffFifoXpicSlave>("samples of delay of the XPIC slave's filter", {.unit = kNoUnit}),
        field<&Response::fffFifoMimoSpatial>("samples of delay of the MIMO spatial filter",
                                             {.unit = kNoUnit}),
        field<&Response::fffFifoMimoXSpatialSlave>("samples of delay of the MIMO spatial slave's filter",
                                                   {.unit = kNoUnit}),
    };
    static constexpr std::array faults{
        FaultNote{eTI_E_FAILED, "TiManagePathLatencyCompensationImpl has not been initialized",
                  "The command found no DSP at the start of the node."},
        FaultNote{eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds: <n>",
                  "The node has no such radio channel."},
        FaultNote{eTI_E_FAILED, "TiManagePathLatencyCompensationImpl: The DSP channel is not configured",
                  "The channel is not configured."},
        FaultNote{eTI_E_FAILED, "channel <id>: onePpsAsymmetryCompensationSet(<n>) failed",
                  "The DSP refused the compensation."},
        FaultNote{eTI_E_FAILED, "channel <id>: rxChainDelaySet(<chain>, <byte>) failed",
                  "The DSP refused the delay."},
        FaultNote{eTI_E_FAILED, "channel <id>: rxEqualizerFeedForwardFilterDelaySet(<chain>, <byte>) failed",
                  "The DSP refused the delay."},
        FaultNote{eTI_E_FAILED, "channel <id>: onePpsAsymmetryCompensation get failed",
                  "The DSP did not tell the compensation."},
        FaultNote{eTI_E_FAILED, "channel <id>: rxChainDelay get failed for <chain>",
                  "The DSP did not tell the delay."},
        FaultNote{eTI_E_FAILED, "channel <id>: rxEqualizerFeedForwardFilterDelay get failed for Chain<n>",
                  "The DSP did not tell the delay; Chain2 is MimoSpatial, Chain3 MimoXSpatialSlave."},
    };
};

} // namespace zyr_registration
