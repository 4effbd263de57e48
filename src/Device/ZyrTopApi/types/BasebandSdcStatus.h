#pragma once

#include "Export.h"

#include <cstdint>
#include <string_view>

namespace zyr_top_api
{

/// How the DADE calibration of the baseband combiner stands.
enum class BasebandSdcDadeStatus : std::uint32_t
{
    CalibrationNotStarted = 0,
    CalibrationOngoing = 1,
    CalibrationStopping = 2,
    CalibrationFailed = 3,
    Calibrated = 4,
};

/// The text of a status, "UndefinedStatus" for a value without one.
ZYR_EXPORT std::string_view basebandSdcDadeStatusToString(BasebandSdcDadeStatus value);

/// What the baseband combiner measures, in its own units. Commands report both SNIR negated.
struct BasebandSdcStatusData
{
    std::int32_t gain = 0;
    std::int32_t xpiMain = 0;
    std::int32_t xpiDiversity = 0;
    std::int32_t snirMain = 0;
    std::int32_t snirDiversity = 0;
};

} // namespace zyr_top_api
