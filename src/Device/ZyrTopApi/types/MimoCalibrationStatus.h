#pragma once

#include "Export.h"

#include <cstdint>
#include <string_view>

namespace zyr_top_api
{

/// How the calibration of the MIMO cross-connect delay stands.
enum class MimoCalibrationStatus : std::uint32_t
{
    Disabled = 0,
    InProgress = 1,
    Success = 2,
    NoCorrelationFailure = 3,
    TimeoutFailure = 4,
    WaitingToStart = 5,
};

/// The text of a status, "Unknown" for a value without one.
ZYR_EXPORT std::string_view mimoCalibrationStatusToString(MimoCalibrationStatus value);

} // namespace zyr_top_api
