#include "PpsCalibration.h"

#include "EnumText.h"

namespace zyr_top_api
{

std::string_view ppsRtcCalibrationModeToString(PpsRtcCalibrationMode value)
{
    static constexpr auto texts =
        std::to_array<std::string_view>({"CoarseAndFine", "Fine", "Auto", "AutoOff"});
    return textOf(texts, value, "Unknown");
}

std::string_view ppsCalibStatusToString(PpsCalibStatus value)
{
    static constexpr auto texts =
        std::to_array<std::string_view>({"NotCalibrated", "CoarseInProgress", "FineInProgress",
                                         "AutoFineInProgress", "Successful", "Failed", "Undefined"});
    return textOf(texts, value, "Unknown");
}

std::string_view ppsCalibReasonOfFailureToString(PpsCalibReasonOfFailure value)
{
    static constexpr auto texts = std::to_array<std::string_view>(
        {"NotRelevant", "SlaveLOL", "NoResponseFromMaster", "SlaveAcmSwitch", "CoarseNeeded",
         "GeneralFailure", "OtherMessageReceived", "Undefined"});
    return textOf(texts, value, "Unknown");
}

} // namespace zyr_top_api
