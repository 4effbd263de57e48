#pragma once

#include "CriSetRadioLinkEncryptionImpl.h"
#include "Description.h"

namespace zyr_registration
{

template <>
struct Description<zyr_top_api::CriSetRadioLinkEncryptionImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriSetRadioLinkEncryption::Command;

    static constexpr std::string_view help =
        "Switches the encryption of a radio link on or off; both ends need the same key.";
    static constexpr Group group = Group::Encryption;
    static constexpr Effect effect = Effect::DisturbsTraffic;
    static constexpr std::array request{
        field<&Command::channelId>("radio channel", {.isChannel = true}),
        field<&Command::masterKey>("key of 12 to 64 bytes; not looked at when encryption goes off",
                                   {.example = "example key, not for use", .isSecret = true}),
        field<&Command::txFrequency_kHz>("transmit frequency", {.unit = "kHz", .example = "18700000"}),
        field<&Command::rxFrequency_kHz>("receive frequency", {.unit = "kHz", .example = "19710000"}),
        field<&Command::enableRle>("true switches encryption on, false off"),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_INVALID_ARGUMENT, "MasterKey is shorter than the required 12 characters: <length>",
                  "The key has too few bytes; only switching on looks at it."},
        FaultNote{eTI_E_INVALID_ARGUMENT, "MasterKey is longer than the supported 64 characters: <length>",
                  "The key has too many bytes; only switching on looks at it."},
        FaultNote{eTI_E_FAILED_TO_GET_EXTERNAL_INTERFACE, "ZyrRleHandler missing",
                  "The channel has no encryption."},
        FaultNote{eTI_E_FAILED, "Failed to enable or disable encryption", "The encryption handler refused."},
    };
};

} // namespace zyr_registration
