#include "MimoCalibrationStatus.h"

#include "EnumText.h"

namespace zyr_top_api
{

std::string_view mimoCalibrationStatusToString(MimoCalibrationStatus value)
{
    static constexpr auto texts = std::to_array<std::string_view>(
        {"Disabled", "InProgress", "Success", "NoCorrelationFailure", "TimeoutFailure", "WaitingToStart"});
    return textOf(texts, value, "Unknown");
}

} // namespace zyr_top_api
