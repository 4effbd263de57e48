#pragma once

#include "CriGetRauPowerModeImpl.h"
#include "Description.h"
#include "RauPowerModeFields.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriGetRauPowerModeImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriGetRauPowerMode::Command;
    using Response = zyr_top_api::CriGetRauPowerMode::Response;

    static constexpr std::string_view help = "Reads the power mode of the transceivers of a radio unit.";
    static constexpr Group group = Group::RadioUnit;
    static constexpr Effect effect = Effect::Reads;
    static constexpr std::array request{
        field<&Command::RadioChannelID>("radio channel"),
        field<&Command::trxId>("transceiver", {.texts = &transceivers, .example = "1"}),
    };
    static constexpr std::array response{
        field<&Response::RadioChannelID>("0 in every answer", {.unit = kNoUnit}),
        field<&Response::rauPowerMode>("power mode; 0 if what was read is none of the transceiver's"),
    };
    static constexpr std::array faults{
        FaultNote{eTI_E_PARAMETER_INVALID, "RadioChannelID > m_numberOfChannels",
                  "The node has no such radio channel."},
        FaultNote{eTI_E_FAILED, "CRI.GetRauPowerMode, rau handler not available",
                  "The radio channel has no handler of its radio unit."},
        FaultNote{eTI_E_FAILED, "GetRauPowerMode failed: ERAUHResult = <name>",
                  "The radio unit did not tell its power mode."},
    };
};

} // namespace zyr_registration
