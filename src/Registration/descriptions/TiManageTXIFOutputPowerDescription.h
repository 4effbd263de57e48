#pragma once

#include "Description.h"
#include "TiManageTXIFOutputPowerImpl.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::TiManageTXIFOutputPowerImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::TiManageTXIFOutputPower::Command;
    using Response = zyr_top_api::TiManageTXIFOutputPower::Response;

    static constexpr std::string_view help =
        "Reads and sets the output power at intermediate frequency of the transmitter of radio channel 1.";
    static constexpr Group group = Group::TestRf;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr std::array request{
        field<&Command::radioChannelId>("radio channel, 1 if given", {.unit = kNoUnit}),
        field<&Command::txIfBarOn>("whether the power is barred to power control"),
        field<&Command::txIfOutputPower>("output power", {.unit = "0.1 dBm", .example = "-100"}),
    };
    static constexpr std::array response{
        field<&Response::radioChannelId>("always 1", {.unit = kNoUnit}),
        field<&Response::txIfBarOn>("whether the power is barred to power control"),
        field<&Response::txIfOutputPower>("output power", {.unit = "0.1 dBm"}),
        field<&Response::dacValue>("setting of the digital to analogue converter", {.unit = kNoUnit}),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
    };
};

} // namespace zyr_registration
