#include "SdcPath.h"

#include "EnumText.h"

namespace zyr_top_api
{

namespace
{

constexpr auto kPathTexts = std::to_array<std::string_view>({"main", "diversity", "auto"});

} // namespace

std::string_view sdcPathToString(SdcPath value)
{
    return textOf(kPathTexts, value, "invalid");
}

SdcPath sdcPathStringToEnum(std::string_view text)
{
    return valueOf(kPathTexts, text, SdcPath::Invalid);
}

} // namespace zyr_top_api
