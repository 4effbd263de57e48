#include "EDspATxMode.h"

#include "EnumText.h"

namespace zyr_top_api
{

std::string_view dspATxModeToString(EDspATxMode value)
{
    static constexpr auto texts =
        std::to_array<std::string_view>({"eDspATxModeNormal", "eDspATxModeOneTone", "eDspATxModeTwoTone",
                                         "eDspATxModeToneSweep", "eDspATxModeWhiteNoise", "eDspATxModeMute",
                                         "eDspATxModePrbs", "eDspATxModeStub", "eDspATxModeUndefined"});
    return textOf(texts, value, "Unknown mode");
}

} // namespace zyr_top_api
