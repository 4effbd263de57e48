#pragma once

#include "Export.h"

#include <cstdint>
#include <string_view>

namespace zyr_top_api
{

/// The signal that the DSP transmits.
enum EDspATxMode : std::uint32_t
{
    eDspATxModeNormal = 0,
    eDspATxModeOneTone = 1,
    eDspATxModeTwoTone = 2,
    eDspATxModeToneSweep = 3,
    eDspATxModeWhiteNoise = 4,
    eDspATxModeMute = 5,
    eDspATxModePrbs = 6,
    eDspATxModeStub = 7,
    eDspATxModeUndefined = 8,
};

/// The name of a mode exactly as its enumerator is spelt, "Unknown mode" for a value without one.
ZYR_EXPORT std::string_view dspATxModeToString(EDspATxMode value);

} // namespace zyr_top_api
