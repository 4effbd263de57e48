#pragma once

#include "Export.h"

#include <cstdint>
#include <string_view>

namespace zyr_top_api
{

/// A status of the space diversity combiner: one scale of numbers, with texts that depend on what was asked.
enum class SdcStatus : std::int32_t
{
    Inactive = 0,   ///< Switched off, or not calibrated.
    Active = 1,     ///< Switched on, or calibrated.
    InProgress = 2, ///< On the way.
    NoAnswer = 3,   ///< The combiner has no answer.
};

/// The text of an operation status, "invalid" for a value without one.
ZYR_EXPORT std::string_view sdcOperStatusToString(SdcStatus value);

/// The text of a DADE calibration status, "invalid" for a value without one.
ZYR_EXPORT std::string_view sdcDadeStatusToString(SdcStatus value);

} // namespace zyr_top_api
