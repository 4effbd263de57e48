#pragma once

#include "Export.h"

#include <cstdint>
#include <string_view>

namespace zyr_top_api
{

/// A path of the space diversity combiner.
enum class SdcPath : std::int32_t
{
    Main = 0,
    Diversity = 1,
    Auto = 2,
    Invalid = 3, ///< Read: the combiner has no answer. Written: as good as any text that names no path.
};

/// The text of a path, "invalid" for a value without one.
ZYR_EXPORT std::string_view sdcPathToString(SdcPath value);

/// The path with exactly this text, `Invalid` for any other text.
ZYR_EXPORT SdcPath sdcPathStringToEnum(std::string_view text);

} // namespace zyr_top_api
