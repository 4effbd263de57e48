#pragma once

#include "Export.h"

#include <cstdint>
#include <string_view>

namespace zyr_top_api
{

/// The kind of a calibration of the pulse per second.
enum class PpsRtcCalibrationMode : std::uint32_t
{
    CoarseAndFine = 0,
    Fine = 1,
    Auto = 2,
    AutoOff = 3,
};

/// The text of a mode, "Unknown" for a value without one.
ZYR_EXPORT std::string_view ppsRtcCalibrationModeToString(PpsRtcCalibrationMode value);

/// How a calibration of the pulse per second stands.
enum class PpsCalibStatus : std::uint32_t
{
    NotCalibrated = 0,
    CoarseInProgress = 1,
    FineInProgress = 2,
    AutoFineInProgress = 3,
    Successful = 4,
    Failed = 5,
    Undefined = 6,
};

/// The text of a status, "Unknown" for a value without one.
ZYR_EXPORT std::string_view ppsCalibStatusToString(PpsCalibStatus value);

/// Why a calibration of the pulse per second failed.
enum class PpsCalibReasonOfFailure : std::uint32_t
{
    NotRelevant = 0,
    SlaveLOL = 1,
    NoResponseFromMaster = 2,
    SlaveAcmSwitch = 3,
    CoarseNeeded = 4,
    GeneralFailure = 5,
    OtherMessageReceived = 6,
    Undefined = 7,
};

/// The text of a reason, "Unknown" for a value without one.
ZYR_EXPORT std::string_view ppsCalibReasonOfFailureToString(PpsCalibReasonOfFailure value);

} // namespace zyr_top_api
