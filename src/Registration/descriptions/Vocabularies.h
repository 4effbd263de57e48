#pragma once

#include "AcmMode.h"
#include "EDspATxMode.h"
#include "FFConfigType.h"
#include "Field.h"
#include "ForceLoopMode.h"
#include "LinkType.h"
#include "MimoCalibrationStatus.h"
#include "MimoLockStatus.h"
#include "ModemChain.h"
#include "ModulationAndCoding.h"
#include "PpfLockedStatus.h"
#include "PpsCalibration.h"
#include "PpsOutputMode.h"
#include "PpsSource.h"
#include "RadioRestartStatus.h"
#include "Recover.h"
#include "ReferenceSec.h"
#include "RouteType.h"
#include "SdcPath.h"
#include "TxRequestedStatus.h"
#include "XpicMimoPreamble.h"

#include <cstdint>
#include <span>
#include <vector>

// The texts of the vocabulary's enumerations, taken from the vocabulary's own functions.

namespace zyr_registration
{

/// The texts of an enumeration whose values follow each other, the last one included.
/// @tparam TextOf  gives the text of a value
template <auto TextOf, auto First, auto Last>
struct ConsecutiveTexts
{
    static std::span<const EnumText> texts()
    {
        static const std::vector<EnumText> rows = [] {
            std::vector<EnumText> made;
            for (auto number = static_cast<std::int64_t>(First); number <= static_cast<std::int64_t>(Last);
                 ++number) {
                made.push_back({number, TextOf(static_cast<decltype(First)>(number))});
            }
            return made;
        }();
        return rows;
    }
};

template <>
struct EnumVocabulary<zyr_top_api::ModulationAndCoding>
{
    static std::span<const EnumText> texts()
    {
        static const std::vector<EnumText> rows = [] {
            std::vector<EnumText> made;
            for (const auto& row : zyr_top_api::getModulationAndCodeVector()) {
                made.push_back({static_cast<std::int64_t>(row.modulationAndCoding), row.name});
            }
            return made;
        }();
        return rows;
    }
};

template <>
struct EnumVocabulary<zyr_top_api::AcmMode>
    : ConsecutiveTexts<&zyr_top_api::acmModeToString, zyr_top_api::AcmMode::Active,
                       zyr_top_api::AcmMode::Undefined>
{};

template <>
struct EnumVocabulary<zyr_top_api::AcmModePosition>
    : ConsecutiveTexts<&zyr_top_api::acmModePositionToString, zyr_top_api::AcmModePosition::Internal,
                       zyr_top_api::AcmModePosition::Undefined>
{};

template <>
struct EnumVocabulary<zyr_top_api::AcmRlpControl>
    : ConsecutiveTexts<&zyr_top_api::acmRlpControlToString, zyr_top_api::AcmRlpControl::Normal,
                       zyr_top_api::AcmRlpControl::Undefined>
{};

template <>
struct EnumVocabulary<zyr_top_api::EDspATxMode>
    : ConsecutiveTexts<&zyr_top_api::dspATxModeToString, zyr_top_api::EDspATxMode::eDspATxModeNormal,
                       zyr_top_api::EDspATxMode::eDspATxModeUndefined>
{};

template <>
struct EnumVocabulary<zyr_top_api::FFConfigType>
    : ConsecutiveTexts<&zyr_top_api::ffConfigTypeToString, zyr_top_api::FFConfigType::Unknown,
                       zyr_top_api::FFConfigType::Mrcx>
{};

template <>
struct EnumVocabulary<zyr_top_api::ForceLoopMode>
    : ConsecutiveTexts<&zyr_top_api::forceLoopModeToString, zyr_top_api::ForceLoopMode::NormalOperation,
                       zyr_top_api::ForceLoopMode::OpenLoop>
{};

template <>
struct EnumVocabulary<zyr_top_api::LinkType>
{
    // The vocabulary's own function makes strings that nobody keeps.
    static std::span<const EnumText> texts()
    {
        return oneOf<"Disable", "Enable_A", "Enable_B", "Enable_C", "Enable_D">().rows;
    }
};

template <>
struct EnumVocabulary<zyr_top_api::MimoCalibrationStatus>
    : ConsecutiveTexts<&zyr_top_api::mimoCalibrationStatusToString,
                       zyr_top_api::MimoCalibrationStatus::Disabled,
                       zyr_top_api::MimoCalibrationStatus::WaitingToStart>
{};

template <>
struct EnumVocabulary<zyr_top_api::MimoLockStatus>
    : ConsecutiveTexts<&zyr_top_api::mimoLockStatusToString, zyr_top_api::MimoLockStatus::Locked,
                       zyr_top_api::MimoLockStatus::Mute>
{};

template <>
struct EnumVocabulary<bcm::types::ModemChain>
    : ConsecutiveTexts<&bcm::types::modemChainToString, bcm::types::ModemChain::Main,
                       bcm::types::ModemChain::Max>
{};

template <>
struct EnumVocabulary<zyr_top_api::PpfLockedStatus>
    : ConsecutiveTexts<&zyr_top_api::ppfLockedStatusToString, zyr_top_api::PpfLockedStatus::notSupported,
                       zyr_top_api::PpfLockedStatus::unlocked>
{};

template <>
struct EnumVocabulary<zyr_top_api::PpsRtcCalibrationMode>
    : ConsecutiveTexts<&zyr_top_api::ppsRtcCalibrationModeToString,
                       zyr_top_api::PpsRtcCalibrationMode::CoarseAndFine,
                       zyr_top_api::PpsRtcCalibrationMode::AutoOff>
{};

template <>
struct EnumVocabulary<zyr_top_api::PpsCalibStatus>
    : ConsecutiveTexts<&zyr_top_api::ppsCalibStatusToString, zyr_top_api::PpsCalibStatus::NotCalibrated,
                       zyr_top_api::PpsCalibStatus::Undefined>
{};

template <>
struct EnumVocabulary<zyr_top_api::PpsCalibReasonOfFailure>
    : ConsecutiveTexts<&zyr_top_api::ppsCalibReasonOfFailureToString,
                       zyr_top_api::PpsCalibReasonOfFailure::NotRelevant,
                       zyr_top_api::PpsCalibReasonOfFailure::Undefined>
{};

template <>
struct EnumVocabulary<zyr_top_api::PpsOutputMode>
    : ConsecutiveTexts<&zyr_top_api::ppsOutputModeToString, zyr_top_api::PpsOutputMode::Off,
                       zyr_top_api::PpsOutputMode::Auto>
{};

template <>
struct EnumVocabulary<zyr_top_api::PpsSource>
    : ConsecutiveTexts<&zyr_top_api::ppsSourceToString, zyr_top_api::PpsSource::Internal,
                       zyr_top_api::PpsSource::External2>
{};

template <>
struct EnumVocabulary<zyr_top_api::RadioRestartStatus>
    : ConsecutiveTexts<&zyr_top_api::radioRestartStatusToString, zyr_top_api::RadioRestartStatus::Idle,
                       zyr_top_api::RadioRestartStatus::RestartFailed>
{};

template <>
struct EnumVocabulary<zyr_top_api::Recover>
    : ConsecutiveTexts<&zyr_top_api::recoverToString, zyr_top_api::Recover::None, zyr_top_api::Recover::Dsp>
{};

template <>
struct EnumVocabulary<zyr_top_api::ReferenceSec>
    : ConsecutiveTexts<&zyr_top_api::referenceSecToString, zyr_top_api::ReferenceSec::Sec2,
                       zyr_top_api::ReferenceSec::Sec7B>
{};

template <>
struct EnumVocabulary<zyr_top_api::RouteType>
    : ConsecutiveTexts<&zyr_top_api::routeTypeToString, zyr_top_api::RouteType::RcchToPhyRccMap,
                       zyr_top_api::RouteType::RcchToRfPortMap>
{};

template <>
struct EnumVocabulary<zyr_top_api::SdcPath>
    : ConsecutiveTexts<&zyr_top_api::sdcPathToString, zyr_top_api::SdcPath::Main,
                       zyr_top_api::SdcPath::Invalid>
{};

template <>
struct EnumVocabulary<zyr_top_api::TxRequestedStatus>
    : ConsecutiveTexts<&zyr_top_api::txRequestedStatusToString, zyr_top_api::TxRequestedStatus::Off,
                       zyr_top_api::TxRequestedStatus::On>
{};

template <>
struct EnumVocabulary<zyr_top_api::XpicMimoPreamble>
    : ConsecutiveTexts<&zyr_top_api::xpicMimoPreambleToString, zyr_top_api::XpicMimoPreamble::Preamble_A,
                       zyr_top_api::XpicMimoPreamble::Preamble_D>
{};

} // namespace zyr_registration
