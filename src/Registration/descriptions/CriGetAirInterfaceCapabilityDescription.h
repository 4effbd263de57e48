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
        field<&Record::Modulation>("modulation and coding"),
        field<&Record::Capacity>("capacity", {.unit = "kbit/s"}),
        field<&Record::XpicCapable>("whether XPIC is possible with it"),
    };
};

template <>
struct RecordFields<zyr_top_api::FrameFormatCapability>
{
    using Record = zyr_top_api::FrameFormatCapability;
    static constexpr std::array fields{
        field<&Record::RadioFrameID>("number of the radio frame", {.unit = kNoUnit}),
        field<&Record::ChannelSpacing>("channel spacing", {.unit = "kHz"}),
        field<&Record::TelecomStd>("standard of the frame"),
        field<&Record::AirInterface>("name of the air interface"),
        field<&Record::AvailableModulations>("modulations that it may use"),
        field<&Record::FrameLinkType>("link type"),
        field<&Record::MaxAvailableAcmCa>("always undefined"),
    };
};

template <>
struct Description<zyr_top_api::CriGetAirInterfaceCapabilityImpl> : DescriptionDefaults
{
    using Command = zyr_top_api::CriGetAirInterfaceCapability::Command;
    using Response = zyr_top_api::CriGetAirInterfaceCapability::Response;

    static constexpr std::string_view help =
        "Gives the radio frames that the hardware of a radio channel supports.";
    static constexpr Group group = Group::Status;
    static constexpr Effect effect = Effect::Reads;
    static constexpr std::array request{
        field<&Command::RadioChannelID>("radio channel"),
        field<&Command::ReleasedFilter>("which frames are wanted"),
        field<&Command::TelecomFilter>("without effect", {.hasDefault = true}),
        field<&Command::RauFilter>("without effect", {.hasDefault = true}),
    };
    static constexpr std::array response{
        field<&Response::FrameFormatCapabilities>("the supported radio frames"),
    };
    static constexpr std::array faults{
        kRadioChannelOutOfBounds,
        FaultNote{eTI_E_INVALID_ARGUMENT,
                  "Failed to get PerformanceProfileArray from HardwareConfigurationHandler",
                  "The performance profile of a frame could not be read."},
        FaultNote{eTI_E_FAILED, "CRI.GetAirInterfaceCapability failed, no supported radio frames.",
                  "The hardware supports no radio frame at all."},
    };
};

} // namespace zyr_registration
