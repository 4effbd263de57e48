#include "BasebandSdcStatus.h"

#include "EnumText.h"

namespace zyr_top_api
{

std::string_view basebandSdcDadeStatusToString(BasebandSdcDadeStatus value)
{
    static constexpr auto texts =
        std::to_array<std::string_view>({"CalibrationNotStarted", "CalibrationOngoing", "CalibrationStopping",
                                         "CalibrationFailed", "Calibrated"});
    return textOf(texts, value, "UndefinedStatus");
}

} // namespace zyr_top_api
