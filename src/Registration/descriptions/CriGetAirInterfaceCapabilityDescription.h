#pragma once

#include "CriGetAirInterfaceCapabilityImpl.h"
#include "Description.h"
#include "Vocabularies.h"

namespace zyr_registration
{

template <>
struct EnumVocabulary<zyr_top_api::CriGetAirInterfaceCapability::ReleasedFilter>
    : ConsecutiveTexts<&zyr_top_api::CriGetAirInterfaceCapability::releasedFilterToString,
                       zyr_top_api::CriGetAirInterfaceCapability::ReleasedFilter::OnlyReleased,
                       zyr_top_api::CriGetAirInterfaceCapability::ReleasedFilter::All>
{};

template <>
struct EnumVocabulary<zyr_top_api::CriGetAirInterfaceCapability::TelecomFilter>
    : ConsecutiveTexts<&zyr_top_api::CriGetAirInterfaceCapability::telecomFilterToString,
                       zyr_top_api::CriGetAirInterfaceCapability::TelecomFilter::Etsi,
                       zyr_top_api::CriGetAirInterfaceCapability::TelecomFilter::All>
{};

template <>
struct EnumVocabulary<zyr_top_api::CriGetAirInterfaceCapability::RauFilter>
    : ConsecutiveTexts<&zyr_top_api::CriGetAirInterfaceCapability::rauFilterToString,
                       zyr_top_api::CriGetAirInterfaceCapability::RauFilter::OnlyRauCompatible,
                       zyr_top_api::CriGetAirInterfaceCapability::RauFilter::All>
{};

template <>
struct RecordFields<zyr_top_api::FrameFormatModulation>
{
    using Record = zyr_top_api::FrameFormatModulation;
    static constexpr std::array fields{
        field<&Record::Modulation>("Modulation", {.help = "modulation and coding"}),
        field<&Record::Capacity>("Capacity", {.help = "capacity"}),
        field<&Record::XpicCapable>("XpicCapable", {.help = "whether XPIC is possible with it"}),
    };
};

template <>
struct RecordFields<zyr_top_api::FrameFormatCapability>
{
    using Record = zyr_top_api::FrameFormatCapability;
    static constexpr std::array fields{
        field<&Record::RadioFrameID>("RadioFrameID", {.help = "number of the radio frame"}),
        field<&Record::ChannelSpacing>("ChannelSpacing", {.help = "channel spacing"}),
        field<&Record::TelecomStd>("TelecomStd", {.help = "standard of the frame"}),
        field<&Record::AirInterface>("AirInterface", {.help = "name of the air interface"}),
        field<&Record::AvailableModulations>("AvailableModulations", {.help = "modulations that it may use"}),
        field<&Record::FrameLinkType>("FrameLinkType", {.help = "link type"}),
        field<&Record::MaxAvailableAcmCa>("MaxAvailableAcmCa", {.help = "always undefined"}),
    };
};

template <>
struct Description<zyr_top_api::CriGetAirInterfaceCapabilityImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriGetAirInterfaceCapability::Command;
    using Response = zyr_top_api::CriGetAirInterfaceCapability::Response;

    static constexpr std::string_view help =
        "Gives the radio frames that the hardware of a radio channel supports.";
    static constexpr std::array request{
        field<&Command::RadioChannelID>("RadioChannelID", {.help = "radio channel"}),
        field<&Command::ReleasedFilter>("ReleasedFilter", {.help = "which frames are wanted"}),
        field<&Command::TelecomFilter>("TelecomFilter",
                                       {.help = "without effect", .presence = Presence::Defaulted}),
        field<&Command::RauFilter>("RauFilter", {.help = "without effect", .presence = Presence::Defaulted}),
    };
    static constexpr std::array response{
        field<&Response::FrameFormatCapabilities>("FrameFormatCapabilities",
                                                  {.help = "the supported radio frames"}),
    };
    static constexpr std::array faults{
        FaultNote{zyr_top_api::eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds",
                  "The node has no such radio channel."},
        FaultNote{zyr_top_api::eTI_E_INVALID_ARGUMENT,
                  "Failed to get PerformanceProfileArray from HardwareConfigurationHandler",
                  "The performance profile of a frame could not be read."},
        FaultNote{zyr_top_api::eTI_E_FAILED,
                  "CRI.GetAirInterfaceCapability failed, no supported radio frames.",
                  "The hardware supports no radio frame at all."},
    };
};

} // namespace zyr_registration
